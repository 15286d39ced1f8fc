#include "hosts/scripthost/script_engine.h"

#include <dispex.h>

#include "hosts/console.h"
#include "hosts/scripthost/script_errors.h"
#include "platform/automation/calls.h"
#include "platform/automation/error.h"
#include "platform/win32/com/bridge.h"
#include "platform/win32/com/com_object.h"
#include "platform/win32/com/failures.h"
#include "platform/win32/system_error.h"

namespace quorel::scripthost {

namespace {

constexpr const wchar_t* kHostName = L"WScript";
}  // namespace

/// What the engine asks of its host.
class ScriptSite final : public win32::ComObject<IActiveScriptSite, IActiveScriptSiteWindow> {
  public:
    explicit ScriptSite(const std::u16string& file) : file_(file) {}

    void setHost(IDispatch* host) { host_ = win32::ComPtr<IDispatch>(host); }
    /// The error told of last. It is the script's end only when the script itself fails.
    [[nodiscard]] const std::u16string& lastError() const noexcept { return lastError_; }

    STDMETHODIMP GetLCID(LCID* lcid) override {
        *lcid = ::GetUserDefaultLCID();
        return S_OK;
    }
    STDMETHODIMP GetItemInfo(LPCOLESTR name, DWORD mask, IUnknown** item, ITypeInfo** info) override {
        if (info != nullptr)
            *info = nullptr;
        if (item != nullptr)
            *item = nullptr;
        if (!host_ || win32::narrowView(name) != win32::narrowView(kHostName))
            return TYPE_E_ELEMENTNOTFOUND;
        if ((mask & SCRIPTINFO_IUNKNOWN) != 0 && item != nullptr)
            *item = win32::ComPtr<IDispatch>(host_).detach();
        return S_OK;
    }
    STDMETHODIMP GetDocVersionString(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP OnScriptTerminate(const VARIANT*, const EXCEPINFO*) override { return S_OK; }
    STDMETHODIMP OnStateChange(SCRIPTSTATE) override { return S_OK; }
    /// Engines tell of every error that leaves a script, also of one in a member that a component called,
    /// which may well handle it: it gets the number (by this answer) and the texts.
    STDMETHODIMP OnScriptError(IActiveScriptError* error) override {
        const automation::Error told = errorOf(*error);
        lastError_ = describe(*error, told, file_);
        win32::leaveErrorInfo(IID_IDispatch, told.description(), told.source());
        return E_FAIL;
    }
    STDMETHODIMP OnEnterScript() override { return S_OK; }
    STDMETHODIMP OnLeaveScript() override { return S_OK; }

    STDMETHODIMP GetWindow(HWND* window) override {
        *window = nullptr;
        return S_OK;
    }
    STDMETHODIMP EnableModeless(BOOL) override { return S_OK; }

  private:
    std::u16string file_;
    win32::ComPtr<IDispatch> host_;
    std::u16string lastError_;
};

namespace {

bool isObjectWithoutCode(IDispatchEx& globals, DISPID id) {
    win32::Variant value;
    DISPPARAMS none{};
    if (FAILED(globals.InvokeEx(id, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none, value.out(), nullptr,
                                nullptr)) ||
        V_VT(value.get()) != VT_DISPATCH)
        return false;
    const automation::Object object = win32::fromVariant(*value).toObject();
    return object && !automation::answersTo(object, u"apply");
}

/// Components may call script objects when they are let go of. While the engine closes it can run nothing any
/// more, so the script's variables are emptied before; its functions stay.
void letGoOfVariables(IActiveScript& engine) {
    win32::ComPtr<IDispatch> dispatch;
    if (FAILED(engine.GetScriptDispatch(nullptr, dispatch.out())))
        return;
    const auto globals = dispatch.as<IDispatchEx>();
    DISPID id = DISPID_STARTENUM;
    while (globals && globals->GetNextDispID(fdexEnumAll, id, &id) == S_OK) {
        if (!isObjectWithoutCode(*globals.get(), id))
            continue;
        VARIANT empty{};
        DISPID assigned = DISPID_PROPERTYPUT;
        DISPPARAMS parameters{&empty, &assigned, 1, 1};
        globals->InvokeEx(id, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYPUT, &parameters, nullptr, nullptr,
                          nullptr);
    }
}

}  // namespace

ScriptEngine::ScriptEngine(const wchar_t* language, std::u16string file)
    : file_(std::move(file)), site_(win32::makeCom<ScriptSite>(file_)) {
    CLSID clsid;
    win32::check(::CLSIDFromProgID(language, &clsid), u"finding the script engine");
    win32::check(
        ::CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, IID_IActiveScript, engine_.outVoid()),
        u"starting the script engine");
    win32::check(engine_->SetScriptSite(site_.get()), u"starting the script engine");
}

ScriptEngine::~ScriptEngine() {
    letGoOfVariables(*engine_.get());
    engine_->Close();
    site_->setHost(nullptr);
}

bool ScriptEngine::run(const std::u16string& source, IDispatch& host) {
    site_->setHost(&host);
    const auto parser = engine_.as<IActiveScriptParse>();
    if (!parser)
        throw win32::errorFromStatus(E_NOINTERFACE, u"starting the script engine");
    win32::check(parser->InitNew(), u"starting the script engine");
    win32::check(engine_->AddNamedItem(kHostName, SCRIPTITEM_ISVISIBLE), u"starting the script engine");
    // In an engine that runs already the text is run at once, and its failure is the call's.
    win32::check(engine_->SetScriptState(SCRIPTSTATE_CONNECTED), u"starting the script engine");
    EXCEPINFO failure{};
    const HRESULT status = parser->ParseScriptText(win32::wide(source), nullptr, nullptr, nullptr, 0, 0,
                                                   SCRIPTTEXT_ISVISIBLE, nullptr, &failure);
    if (SUCCEEDED(status))
        return true;
    hosts::writeLine(hosts::Stream::Errors,
                     site_->lastError().empty() ? describe(status, file_) : site_->lastError());
    return false;
}

}  // namespace quorel::scripthost
