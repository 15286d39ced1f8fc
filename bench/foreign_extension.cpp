#include "bench/foreign_extension.h"

#include <vector>

#include "bench/compiled_node.h"

namespace {

using quorel::win32::ComObject;
using quorel::win32::ComPtr;
using quorel::win32::makeCom;

using Nodes = std::vector<ComPtr<IDispatch>>;

class NodeReader final : public ComObject<IEnumVARIANT> {
  public:
    NodeReader(ComPtr<IUnknown> owner, const Nodes& nodes) : owner_(std::move(owner)), nodes_(nodes) {}

    STDMETHODIMP Next(ULONG count, VARIANT* values, ULONG* fetched) override {
        ULONG filled = 0;
        for (; filled < count && position_ < nodes_.size(); ++filled, ++position_) {
            V_DISPATCH(&values[filled]) = ComPtr<IDispatch>(nodes_[position_]).detach();
            V_VT(&values[filled]) = VT_DISPATCH;
        }
        if (fetched != nullptr)
            *fetched = filled;
        return filled == count ? S_OK : S_FALSE;
    }
    STDMETHODIMP Skip(ULONG) override { return E_NOTIMPL; }
    STDMETHODIMP Reset() override { return E_NOTIMPL; }
    STDMETHODIMP Clone(IEnumVARIANT**) override { return E_NOTIMPL; }

  private:
    ComPtr<IUnknown> owner_;
    const Nodes& nodes_;
    std::size_t position_ = 0;
};

/// The extension of a meta node: nodes that their repository holds.
class Extension final : public ComObject<IDispatch> {
  public:
    explicit Extension(std::size_t count) {
        const ComPtr<ITypeInfo> info = quorel::bench::nodeDescription();
        nodes_.reserve(count);
        for (std::size_t i = 0; i < count; ++i)
            nodes_.push_back(ComPtr<IDispatch>::adopt(makeCom<quorel::bench::CompiledNode>(info).detach()));
    }
    STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return DISP_E_UNKNOWNNAME; }
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                        UINT*) override {
        if (id != DISPID_NEWENUM || result == nullptr)
            return DISP_E_MEMBERNOTFOUND;
        V_UNKNOWN(result) = makeCom<NodeReader>(ComPtr<IUnknown>(this), nodes_).detach();
        V_VT(result) = VT_UNKNOWN;
        return S_OK;
    }

  private:
    Nodes nodes_;
};

}  // namespace

__declspec(dllexport) IDispatch* bench_makeExtension(ULONG count) {
    return makeCom<Extension>(count).detach();
}
