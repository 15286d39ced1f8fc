#include "platform/win32/ui/native_scope.h"

#include "platform/win32/ui/system_headers.h"

namespace quorel::win32 {

namespace {

constexpr int kManifestResource = 2;

/// Functions that older systems lack, looked up once.
struct DpiFunctions {
    decltype(&::SetThreadDpiAwarenessContext) setThreadContext = nullptr;
    decltype(&::GetDpiForWindow) dpiForWindow = nullptr;
    decltype(&::GetDpiForSystem) dpiForSystem = nullptr;
    decltype(&::AdjustWindowRectExForDpi) adjustForDpi = nullptr;
    decltype(&::SystemParametersInfoForDpi) parametersForDpi = nullptr;
};

template <class Function>
void find(HMODULE module, const char* name, Function& function) noexcept {
    function = reinterpret_cast<Function>(reinterpret_cast<void*>(::GetProcAddress(module, name)));
}

[[nodiscard]] DpiFunctions findDpiFunctions() noexcept {
    DpiFunctions found;
    if (const HMODULE user = ::GetModuleHandleW(L"user32.dll")) {
        find(user, "SetThreadDpiAwarenessContext", found.setThreadContext);
        find(user, "GetDpiForWindow", found.dpiForWindow);
        find(user, "GetDpiForSystem", found.dpiForSystem);
        find(user, "AdjustWindowRectExForDpi", found.adjustForDpi);
        find(user, "SystemParametersInfoForDpi", found.parametersForDpi);
    }
    return found;
}

[[nodiscard]] const DpiFunctions& dpiFunctions() noexcept {
    static const DpiFunctions functions = findDpiFunctions();
    return functions;
}

void useControls() noexcept {
    const INITCOMMONCONTROLSEX wanted{sizeof(INITCOMMONCONTROLSEX),
                                      ICC_STANDARD_CLASSES | ICC_LISTVIEW_CLASSES | ICC_BAR_CLASSES |
                                          ICC_PROGRESS_CLASS | ICC_TAB_CLASSES | ICC_TREEVIEW_CLASSES};
    ::InitCommonControlsEx(&wanted);
}

}  // namespace

ControlsContext::ControlsContext(HINSTANCE module) {
    ACTCTXW request{};
    request.cbSize = sizeof(request);
    request.dwFlags = ACTCTX_FLAG_HMODULE_VALID | ACTCTX_FLAG_RESOURCE_NAME_VALID;
    request.hModule = module;
    request.lpResourceName = MAKEINTRESOURCEW(kManifestResource);
    handle_ = fromFile(::CreateActCtxW(&request));
    const NativeScope scope(*this);
    useControls();
}

ControlsContext::~ControlsContext() {
    if (handle_ != nullptr)
        ::ReleaseActCtx(handle_);
}

NativeScope::NativeScope(const ControlsContext& controls) noexcept {
    if (const auto set = dpiFunctions().setThreadContext)
        dpiBefore_ = set(DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE_V2);
    active_ = controls.handle_ != nullptr && ::ActivateActCtx(controls.handle_, &cookie_) != FALSE;
}

NativeScope::~NativeScope() {
    if (active_)
        ::DeactivateActCtx(0, cookie_);
    if (dpiBefore_ != nullptr)
        dpiFunctions().setThreadContext(static_cast<DPI_AWARENESS_CONTEXT>(dpiBefore_));
}

std::int32_t primaryDpi() noexcept {
    if (const auto get = dpiFunctions().dpiForSystem)
        return static_cast<std::int32_t>(get());
    const HDC screen = ::GetDC(nullptr);
    const int dpi = ::GetDeviceCaps(screen, LOGPIXELSX);
    ::ReleaseDC(nullptr, screen);
    return dpi;
}

std::int32_t dpiOf(HWND window) noexcept {
    const auto get = dpiFunctions().dpiForWindow;
    const auto dpi = get != nullptr ? static_cast<std::int32_t>(get(window)) : 0;
    return dpi > 0 ? dpi : primaryDpi();
}

void growToWindow(RECT& client, DWORD style, DWORD extendedStyle, bool menu, std::int32_t dpi) noexcept {
    if (const auto adjust = dpiFunctions().adjustForDpi)
        adjust(&client, style, menu, extendedStyle, static_cast<UINT>(dpi));
    else
        ::AdjustWindowRectEx(&client, style, menu, extendedStyle);
}

LOGFONTW messageFont(std::int32_t dpi) noexcept {
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof(metrics);
    const auto ask = dpiFunctions().parametersForDpi;
    if (ask != nullptr && ask(SPI_GETNONCLIENTMETRICS, sizeof(metrics), &metrics, 0, static_cast<UINT>(dpi)))
        return metrics.lfMessageFont;
    ::SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof(metrics), &metrics, 0);
    metrics.lfMessageFont.lfHeight = ::MulDiv(metrics.lfMessageFont.lfHeight, dpi, primaryDpi());
    return metrics.lfMessageFont;
}

}  // namespace quorel::win32
