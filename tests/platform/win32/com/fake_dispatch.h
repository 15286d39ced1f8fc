#pragma once

#include <oaidl.h>
#include <windows.h>

#include <functional>
#include <map>
#include <string>

#include "platform/win32/com/com_object.h"

namespace quorel::win32::testing {

/// Somebody else's object: what it answers is up to the test, and it counts how it is held.
class FakeDispatch : public ComObject<IDispatch> {
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
    [[nodiscard]] ULONG count() const noexcept { return references(); }

    std::map<std::wstring, DISPID> names;
    ComPtr<ITypeInfo> info;
    int namesAsked = 0;

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
    ~FakeDispatch() override { --alive(); }

  private:
    Handler handler_;
};

[[nodiscard]] inline ComPtr<FakeDispatch> fake(FakeDispatch::Handler handler = {}) {
    return makeCom<FakeDispatch>(std::move(handler));
}

}  // namespace quorel::win32::testing
