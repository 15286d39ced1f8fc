#include "platform/win32/ui/form_window.h"

#include <algorithm>

#include "platform/win32/text.h"

namespace quorel::win32 {

namespace {

/// Counts up while it lives: the window is being placed by us, not by the user.
class Placing {
  public:
    explicit Placing(int& count) noexcept : count_(count) { ++count_; }
    ~Placing() { --count_; }
    Placing(const Placing&) = delete;
    Placing& operator=(const Placing&) = delete;

  private:
    int& count_;
};

[[nodiscard]] RECT workAreaAround(HWND window) noexcept {
    MONITORINFO info{};
    info.cbSize = sizeof(info);
    ::GetMonitorInfoW(::MonitorFromWindow(window, MONITOR_DEFAULTTOPRIMARY), &info);
    return info.rcWork;
}

[[nodiscard]] SIZE sizeOf(const RECT& r) noexcept {
    return {r.right - r.left, r.bottom - r.top};
}

/// A window whose caption is on no screen cannot be moved back by the user.
[[nodiscard]] bool captionIsReachable(POINT at, SIZE outer) noexcept {
    constexpr LONG kCaption = 24;
    const RECT caption{at.x, at.y, at.x + outer.cx, at.y + kCaption};
    return ::MonitorFromRect(&caption, MONITOR_DEFAULTTONULL) != nullptr;
}

}  // namespace

ui::Form* FormWindow::form() const noexcept {
    return static_cast<ui::Form*>(control());
}

DWORD FormWindow::style() const noexcept {
    constexpr DWORD kFixed = WS_CAPTION | WS_SYSMENU | WS_CLIPCHILDREN;
    constexpr DWORD kSizable = WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN;
    return form()->isResizable() ? kSizable : kFixed;
}

DWORD FormWindow::extendedStyle() const noexcept {
    const DWORD takesFiles = form()->onDropFiles.isConnected() ? WS_EX_ACCEPTFILES : 0;
    const DWORD frame = form()->isResizable() ? 0 : WS_EX_DLGMODALFRAME;
    return WS_EX_CONTROLPARENT | frame | takesFiles;
}

NativeWindow::Description FormWindow::describe() {
    return {services().classes.ensure(form()->name()), style(), extendedStyle()};
}

/// Where it will appear, so that it has that screen's resolution from the beginning.
ui::PixelRect FormWindow::placeAtOpening() const {
    const RECT area = workAreaAround(::GetActiveWindow());
    POINT at{area.left, area.top};
    if (form()->hasPosition())
        at = {toPixels(form()->bounds().left, primaryDpi()), toPixels(form()->bounds().top, primaryDpi())};
    return {at.x, at.y, at.x + 1, at.y + 1};
}

void FormWindow::opened() {
    frame()->setForm(handle());
    frame()->setDpi(dpiOf(handle()));
}

void FormWindow::mirror(ui::Change changes) {
    const Placing placing(placing_);
    NativeWindow::mirror(changes & (ui::Change::Text | ui::Change::Enabled | ui::Change::Colours));
    if (has(changes, ui::Change::Style))
        mirrorStyle();
    if (has(changes, ui::Change::Menu))
        mirrorMenu();
    if (has(changes, ui::Change::Bounds) && shown_)
        mirrorBounds();
    if (has(changes, ui::Change::Visible))
        mirrorVisible();
    if (has(changes, ui::Change::Items) && shown_)
        taskbarButton_.show(handle(), form()->progress());
}

/// A thread that asks for no messages is soon taken for hung, so it asks for one and leaves it.
void FormWindow::refresh() {
    ::RedrawWindow(handle(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    MSG message;
    ::PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE);
}

void FormWindow::mirrorStyle() {
    ::SetWindowLongPtrW(
        handle(), GWL_STYLE,
        static_cast<LONG_PTR>(style() | (::GetWindowLongPtrW(handle(), GWL_STYLE) &
                                         (WS_VISIBLE | WS_DISABLED | WS_MAXIMIZE | WS_MINIMIZE))));
    ::SetWindowLongPtrW(handle(), GWL_EXSTYLE, static_cast<LONG_PTR>(extendedStyle()));
    ::SetWindowPos(handle(), nullptr, 0, 0, 0, 0,
                   SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
    if (shown_)
        matchClientSize();
}

void FormWindow::mirrorMenu() {
    menuStale_ = inMenu_;
    if (inMenu_)
        return;
    const bool before = ::GetMenu(handle()) != nullptr;
    const ui::MenuBar* const bar = form()->menuBarIfAny();
    NativeMenu built = bar != nullptr ? buildMenu(*bar, true) : NativeMenu{};
    const bool after = static_cast<bool>(built.handle);
    if (before || after)
        ::SetMenu(handle(), built.handle.get());
    menu_ = std::move(built);
    if (before != after && shown_)
        matchClientSize();
}

SIZE FormWindow::outerSize(ui::Size client) const {
    RECT outer{0, 0, toPixels(client.width, dpi()), toPixels(client.height, dpi())};
    growToWindow(outer, style(), extendedStyle(), ::GetMenu(handle()) != nullptr, dpi());
    return sizeOf(outer);
}

POINT FormWindow::openingPoint(SIZE outer) const {
    if (form()->hasPosition()) {
        const POINT wanted{toPixels(form()->bounds().left, primaryDpi()),
                           toPixels(form()->bounds().top, primaryDpi())};
        if (captionIsReachable(wanted, outer))
            return wanted;
    }
    const RECT area = workAreaAround(handle());
    return {area.left + std::max(0L, (sizeOf(area).cx - outer.cx) / 2),
            area.top + std::max(0L, (sizeOf(area).cy - outer.cy) / 2)};
}

void FormWindow::placeForOpening() {
    const SIZE area = sizeOf(workAreaAround(handle()));
    const SIZE whole = outerSize(form()->clientSize());
    SIZE outer = whole;
    if (form()->isResizable())
        outer = {std::min(outer.cx, area.cx), std::min(outer.cy, area.cy)};
    const POINT at = openingPoint(outer);
    ::SetWindowPos(handle(), nullptr, at.x, at.y, outer.cx, outer.cy, SWP_NOZORDER | SWP_NOACTIVATE);
    placed_ = true;
    if (outer.cx == whole.cx && outer.cy == whole.cy)
        matchClientSize();
}

/// A menu bar that wraps, or a frame that the system draws otherwise than it says, leaves the client area
/// short.
void FormWindow::matchClientSize() {
    if (::IsZoomed(handle()) != FALSE || ::IsIconic(handle()) != FALSE)
        return;
    RECT client{}, outer{};
    ::GetClientRect(handle(), &client);
    ::GetWindowRect(handle(), &outer);
    const ui::Size wanted = form()->clientSize();
    const LONG width = sizeOf(outer).cx + toPixels(wanted.width, dpi()) - client.right;
    const LONG height = sizeOf(outer).cy + toPixels(wanted.height, dpi()) - client.bottom;
    if (width == sizeOf(outer).cx && height == sizeOf(outer).cy)
        return;
    formerClient_ = sizeOf(client);
    formerUntil_ = ::GetTickCount64() + kEchoTime;
    ::SetWindowPos(handle(), nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void FormWindow::mirrorBounds() {
    const bool wantsMaximized = form()->isMaximized();
    if (wantsMaximized != (::IsZoomed(handle()) != FALSE))
        ::ShowWindow(handle(), wantsMaximized ? SW_SHOWMAXIMIZED : SW_RESTORE);
    if (wantsMaximized)
        return;
    if (form()->hasPosition())
        ::SetWindowPos(handle(), nullptr, toPixels(form()->bounds().left, primaryDpi()),
                       toPixels(form()->bounds().top, primaryDpi()), 0, 0,
                       SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    matchClientSize();
}

void FormWindow::mirrorVisible() {
    if (form()->isVisible())
        show();
    else if (shown_)
        hide();
}

void FormWindow::show() {
    if (shown_) {
        ::ShowWindow(handle(), ::IsIconic(handle()) != FALSE ? SW_RESTORE : SW_SHOW);
        ::SetForegroundWindow(handle());
        return;
    }
    if (placed_)
        matchClientSize();
    else
        placeForOpening();
    keyboard_ = frame()->thread().keyboard();
    shown_ = true;
    ::ShowWindow(handle(), form()->isMaximized() ? SW_SHOWMAXIMIZED : SW_SHOWNORMAL);
    ::SetForegroundWindow(handle());
    ::UpdateWindow(handle());
    if (control() != nullptr)
        resized();
}

void FormWindow::hide() {
    shown_ = false;
    endModalRun();
    ::ShowWindow(handle(), SW_HIDE);
    keyboard_.reset();
}

void FormWindow::endModalRun() noexcept {
    const std::shared_ptr<ModalRun> run = std::exchange(modal_, nullptr);
    if (!run)
        return;
    run->lock.release();
    run->ended = true;
    ::PostThreadMessageW(::GetCurrentThreadId(), WM_NULL, 0, 0);  // GetMessage may wait for a message
}

void FormWindow::runModal() {
    if (handle() == nullptr || !shown_)
        return;
    const auto keep = shared_from_this();
    const NativeScope scope(services().controls);
    const auto run = modal_ = std::make_shared<ModalRun>(handle());
    MSG message{};
    while (!run->ended) {
        if (::GetMessageW(&message, nullptr, 0, 0) <= 0) {
            if (ui::Form* const shown = form())
                shown->hide();
            endModalRun();
            ::PostQuitMessage(static_cast<int>(message.wParam));
            return;
        }
        ::TranslateMessage(&message);
        ::DispatchMessageW(&message);
    }
}

}  // namespace quorel::win32
