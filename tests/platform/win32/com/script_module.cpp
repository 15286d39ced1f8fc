#include "tests/platform/win32/com/script_module.h"

#include <gtest/gtest.h>

#include "platform/automation/text.h"
#include "platform/win32/com/bridge.h"
#include "platform/win32/com/com_object.h"
#include "platform/win32/com/failures.h"

namespace quorel::win32::testing {

namespace {

class Site final : public ComObject<IActiveScriptSite> {
  public:
    explicit Site(Errors errors) : errors_(errors) {}

    STDMETHODIMP GetLCID(LCID* lcid) override {
        *lcid = LOCALE_USER_DEFAULT;
        return S_OK;
    }
    STDMETHODIMP GetItemInfo(LPCOLESTR, DWORD, IUnknown**, ITypeInfo**) override {
        return TYPE_E_ELEMENTNOTFOUND;
    }
    STDMETHODIMP GetDocVersionString(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP OnScriptTerminate(const VARIANT*, const EXCEPINFO*) override { return S_OK; }
    STDMETHODIMP OnStateChange(SCRIPTSTATE) override { return S_OK; }
    STDMETHODIMP OnScriptError(IActiveScriptError* error) override {
        if (errors_ == Errors::KeptByTheHost)
            return S_OK;
        EXCEPINFO failure{};
        error->GetExceptionInfo(&failure);
        const automation::Error told = errorOfInvoke(DISP_E_EXCEPTION, failure);
        leaveErrorInfo(IID_IDispatch, told.description(), told.source());
        return E_FAIL;
    }
    STDMETHODIMP OnEnterScript() override { return S_OK; }
    STDMETHODIMP OnLeaveScript() override { return S_OK; }

  private:
    Errors errors_;
};

}  // namespace

ScriptModule::ScriptModule(const wchar_t* language, const std::u16string& source, Errors errors) {
    CLSID clsid;
    EXPECT_EQ(::CLSIDFromProgID(language, &clsid), S_OK);
    EXPECT_EQ(
        ::CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, __uuidof(IActiveScript), engine_.outVoid()),
        S_OK);
    const auto site = makeCom<Site>(errors);
    EXPECT_EQ(engine_->SetScriptSite(site.get()), S_OK);
    const auto parser = engine_.as<IActiveScriptParse>();
    EXPECT_EQ(parser->InitNew(), S_OK);
    EXPECT_EQ(parser->ParseScriptText(wide(source), nullptr, nullptr, nullptr, 0, 0, SCRIPTTEXT_ISVISIBLE,
                                      nullptr, nullptr),
              S_OK)
        << automation::toUtf8(source);
    EXPECT_EQ(engine_->SetScriptState(SCRIPTSTATE_STARTED), S_OK);
}

ScriptModule::~ScriptModule() {
    engine_->Close();
}

automation::Object ScriptModule::globals() const {
    ComPtr<IDispatch> dispatch;
    EXPECT_EQ(engine_->GetScriptDispatch(nullptr, dispatch.out()), S_OK);
    return fromDispatch(dispatch.get());
}

}  // namespace quorel::win32::testing
