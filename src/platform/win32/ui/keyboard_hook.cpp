#include "platform/win32/ui/keyboard_hook.h"

#include "platform/win32/ui/native_window.h"

namespace quorel::win32 {

namespace {

[[nodiscard]] HWND nearestOfOurs(HWND window) noexcept {
    while (window != nullptr && NativeWindow::of(window) == nullptr)
        window = ::GetAncestor(window, GA_PARENT);
    return window;
}

[[nodiscard]] bool systemReadsKeys() noexcept {
    GUITHREADINFO info{};
    info.cbSize = sizeof(info);
    constexpr DWORD kBusy = GUI_INMENUMODE | GUI_INMOVESIZE | GUI_POPUPMENUMODE | GUI_SYSTEMMENUMODE;
    return ::GetGUIThreadInfo(::GetCurrentThreadId(), &info) != FALSE && (info.flags & kBusy) != 0;
}

void rename(MSG& message) noexcept {
    if ((message.message != WM_KEYDOWN && message.message != WM_SYSKEYDOWN) ||
        message.wParam == VK_PROCESSKEY)
        return;
    const HWND ours = nearestOfOurs(message.hwnd);
    if (ours == nullptr || systemReadsKeys())
        return;
    message.message = message.message == WM_KEYDOWN ? keyMessages().keyDown : keyMessages().sysKeyDown;
    message.hwnd = ours;
}

LRESULT CALLBACK readMessage(int code, WPARAM removal, LPARAM message) {
    if (code == HC_ACTION && removal == PM_REMOVE)
        rename(*reinterpret_cast<MSG*>(message));
    return ::CallNextHookEx(nullptr, code, removal, message);
}

}  // namespace

KeyboardHook::KeyboardHook()
    : hook_(counted<CountedHook>(
          ::SetWindowsHookExW(WH_GETMESSAGE, readMessage, nullptr, ::GetCurrentThreadId()), Counted::Hook)) {}

const KeyMessages& keyMessages() noexcept {
    static const KeyMessages messages{::RegisterWindowMessageW(L"QuorelKeyDown"),
                                      ::RegisterWindowMessageW(L"QuorelSysKeyDown")};
    return messages;
}

}  // namespace quorel::win32
