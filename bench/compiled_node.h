#pragma once

// Objects as a compiled repository makes them: a switch over ids.

#include <oaidl.h>
#include <windows.h>

#include <string>

#include "platform/win32/com/com_object.h"

namespace quorel::bench {

inline constexpr DISPID kNodeName = 1;

/// A description of nodes, a new one each time.
[[nodiscard]] inline win32::ComPtr<ITypeInfo> nodeDescription() {
    static wchar_t name[] = L"name";
    static METHODDATA method{};
    method.szName = name;
    method.dispid = kNodeName;
    method.cc = CC_STDCALL;
    method.wFlags = DISPATCH_PROPERTYGET;
    method.vtReturn = VT_BSTR;
    INTERFACEDATA data{&method, 1};
    win32::ComPtr<ITypeInfo> info;
    ::CreateDispTypeInfo(&data, 0, info.out());
    return info;
}

/// A node with a name, described by one type information.
class CompiledNode final : public win32::ComObject<IDispatch> {
  public:
    explicit CompiledNode(win32::ComPtr<ITypeInfo> info) : info_(std::move(info)) {}

    STDMETHODIMP GetTypeInfoCount(UINT* count) override {
        *count = 1;
        return S_OK;
    }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo** info) override {
        *info = win32::ComPtr<ITypeInfo>(info_).detach();
        return S_OK;
    }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override {
        return info_->GetIDsOfNames(names, count, ids);
    }
    STDMETHODIMP Invoke(DISPID id, REFIID iid, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                        EXCEPINFO*, UINT*) override {
        if (iid != IID_NULL || parameters == nullptr)
            return E_INVALIDARG;
        if (id != kNodeName || (flags & DISPATCH_PROPERTYGET) == 0)
            return DISP_E_MEMBERNOTFOUND;
        if (parameters->cArgs != 0)
            return DISP_E_BADPARAMCOUNT;
        if (result != nullptr) {
            V_BSTR(result) = ::SysAllocStringLen(name_.data(), static_cast<UINT>(name_.size()));
            V_VT(result) = VT_BSTR;
        }
        return S_OK;
    }

  private:
    win32::ComPtr<ITypeInfo> info_;
    std::wstring name_ = L"libquorel-common-data";
};

}  // namespace quorel::bench
