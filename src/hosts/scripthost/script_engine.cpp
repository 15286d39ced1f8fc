#include "hosts/scripthost/script_engine.h"

#include "hosts/scripthost/console.h"
#include "hosts/scripthost/script_errors.h"
#include "platform/automation/error.h"
#include "platform/win32/system_error.h"

namespace quorel::scripthost {

namespace {

constexpr const wchar_t* kHostName = L"WScript";
constexpr auto kReported = static_cast<HRESULT>(0x80020101);  // SCRIPT_E_REPORTED

}  // namespace

/// What the engine asks of its host.
class ScriptSite final : public IActiveScriptSite, public IActiveScriptSiteWindow {
  public:
    explicit ScriptSite(const std::u16string& file) : file_(file) {}

    void setHost(IDispatch* host) { host_ = win32::ComPtr<IDispatch>(host); }
    [[nodiscard]] bool failed() const noexcept { return failed_; }

    STDMETHODIMP QueryInterface(REFIID iid, void** result) override {
        *result = nullptr;
        if (iid == IID_IUnknown || iid == IID_IActiveScriptSite)
            *result = static_cast<IActiveScriptSite*>(this);
        else if (iid == IID_IActiveScriptSiteWindow)
            *result = static_cast<IActiveScriptSiteWindow*>(this);
        else
            return E_NOINTERFACE;
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
    STDMETHODIMP OnScriptError(IActiveScriptError* error) override {
        failed_ = true;
        writeLine(Stream::Errors, describe(*error, file_));
        return S_OK;
    }
    STDMETHODIMP OnEnterScript() override { return S_OK; }
    STDMETHODIMP OnLeaveScript() override { return S_OK; }

    STDMETHODIMP GetWindow(HWND* window) override {
        *window = nullptr;
        return S_OK;
    }
    STDMETHODIMP EnableModeless(BOOL) override { return S_OK; }

  private:
    virtual ~ScriptSite() = default;

    std::u16string file_;
    win32::ComPtr<IDispatch> host_;
    ULONG count_ = 0;
    bool failed_ = false;
};

ScriptEngine::ScriptEngine(const wchar_t* language, std::u16string file)
    : file_(std::move(file)), site_(new ScriptSite(file_)) {
    CLSID clsid;
    win32::check(::CLSIDFromProgID(language, &clsid), u"finding the script engine");
    win32::check(
        ::CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, IID_IActiveScript, engine_.outVoid()),
        u"starting the script engine");
    win32::check(engine_->SetScriptSite(site_.get()), u"starting the script engine");
}

ScriptEngine::~ScriptEngine() {
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
    EXCEPINFO failure{};
    HRESULT status = parser->ParseScriptText(win32::wide(source), nullptr, nullptr, nullptr, 0, 0,
                                             SCRIPTTEXT_ISVISIBLE, nullptr, &failure);
    if (SUCCEEDED(status))
        status = engine_->SetScriptState(SCRIPTSTATE_STARTED);
    if (FAILED(status) && !site_->failed() && status != kReported) {
        writeLine(Stream::Errors, describe(status, file_));
        return false;
    }
    return !site_->failed() && SUCCEEDED(status);
}

}  // namespace quorel::scripthost
