#pragma once

#include <oaidl.h>
#include <windows.h>

#include <functional>
#include <map>
#include <string>

#include "platform/win32/com/com_ptr.h"

namespace quorel::win32::testing {

/// Somebody else's object: what it answers is up to the test, and it counts how it is held.
class FakeDispatch : public IDispatch {
  public:
    struct Call {
        DISPID id;
        WORD flags;
        DISPPARAMS& parameters;
        VARIANT* result;
        EXCEPINFO* failure;
    };
    using Handler = std::function<HRESULT(Call&)>;

    explicit FakeDispatch(Handler handler = {}) : handler_(std::move(handler)) { ++alive(); }

    static int& alive() {
        static int count = 0;
        return count;
    }
    [[nodiscard]] ULONG count() const noexcept { return count_; }

    std::map<std::wstring, DISPID> names;
    ComPtr<ITypeInfo> info;
    int namesAsked = 0;

    STDMETHODIMP QueryInterface(REFIID iid, void** result) override {
        *result = nullptr;
        if (iid != IID_IUnknown && iid != IID_IDispatch)
            return E_NOINTERFACE;
        *result = static_cast<IDispatch*>(this);
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++count_; }
    STDMETHODIMP_(ULONG) Release() override {
        const ULONG left = --count_;
        if (left == 0)
            delete this;
        return left;
    }
    STDMETHODIMP GetTypeInfoCount(UINT* count) override {
        *count = info ? 1 : 0;
        return S_OK;
    }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo** result) override {
        *result = ComPtr<ITypeInfo>(info).detach();
        return info ? S_OK : E_NOTIMPL;
    }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* asked, UINT, LCID, DISPID* ids) override {
        ++namesAsked;
        const auto found = names.find(asked[0]);
        ids[0] = found != names.end() ? found->second : DISPID_UNKNOWN;
        return found != names.end() ? S_OK : DISP_E_UNKNOWNNAME;
    }
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                        EXCEPINFO* failure, UINT*) override {
        Call call{id, flags, *parameters, result, failure};
        return handler_ ? handler_(call) : DISP_E_MEMBERNOTFOUND;
    }

  protected:
    virtual ~FakeDispatch() { --alive(); }

  private:
    Handler handler_;
    ULONG count_ = 0;
};

[[nodiscard]] inline ComPtr<FakeDispatch> fake(FakeDispatch::Handler handler = {}) {
    return ComPtr<FakeDispatch>(new FakeDispatch(std::move(handler)));
}

}  // namespace quorel::win32::testing
