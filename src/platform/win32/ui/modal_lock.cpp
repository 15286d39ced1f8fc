#include "platform/win32/ui/modal_lock.h"

#include <utility>

#include "platform/win32/ui/native_window.h"

namespace quorel::win32 {

namespace {

BOOL CALLBACK collect(HWND window, LPARAM list) {
    if (::IsWindowVisible(window) != FALSE && ::IsWindowEnabled(window) != FALSE)
        reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
    return TRUE;
}

void setLocked(HWND window, bool locked) noexcept {
    if (NativeWindow* const ours = NativeWindow::of(window))
        ours->setLocked(locked);
    else
        ::EnableWindow(window, !locked);
}

}  // namespace

ModalLock::ModalLock(HWND except) : except_(except), activeBefore_(::GetActiveWindow()) {
    std::vector<HWND> windows;
    ::EnumThreadWindows(::GetCurrentThreadId(), collect, reinterpret_cast<LPARAM>(&windows));
    for (const HWND window : windows) {
        if (window == except)
            continue;
        locked_.push_back(window);
        setLocked(window, true);
    }
}

void ModalLock::release() noexcept {
    const std::vector<HWND> locked = std::exchange(locked_, {});
    for (const HWND window : locked)
        if (::IsWindow(window) != FALSE)
            setLocked(window, false);
    const HWND before = std::exchange(activeBefore_, nullptr);
    if (before == nullptr || before == except_ || ::IsWindow(before) == FALSE)
        return;
    if (except_ == nullptr || ::GetActiveWindow() == except_)
        ::SetActiveWindow(before);
}

}  // namespace quorel::win32
