// What the user and the system do to a form's window.

#include "platform/win32/text.h"
#include "platform/win32/ui/control_peer.h"
#include "platform/win32/ui/form_window.h"
#include "platform/win32/unique.h"

namespace quorel::win32 {

namespace {
constexpr UINT kAllFiles = 0xFFFFFFFF;

BOOL CALLBACK rescaleChild(HWND child, LPARAM) {
    if (NativeWindow* const ours = NativeWindow::of(child))
        ours->rescaled();
    return TRUE;
}
}  // namespace

LRESULT FormWindow::serve(UINT message, WPARAM w, LPARAM l) {
    if (message == WM_NCDESTROY) {
        endModalRun();
        keyboard_.reset();
        frame()->setForm(nullptr);
    }
    if (control() != nullptr)
        if (const std::optional<LRESULT> result = serveForm(message, w, l))
            return *result;
    return NativeWindow::serve(message, w, l);
}

std::optional<LRESULT> FormWindow::serveForm(UINT message, WPARAM w, LPARAM l) {
    switch (message) {
        case WM_CLOSE:
            if (::IsWindowEnabled(handle()) != FALSE)
                form()->userClosed();
            return 0;
        case WM_DROPFILES:
            dropped(reinterpret_cast<HDROP>(w));
            return 0;
        case WM_ERASEBKGND:
            fillBackground(reinterpret_cast<HDC>(w));
            return 1;
        case WM_SETFOCUS:
            focusInside();
            return 0;
        case WM_COMMAND:
            if (l != 0)
                return std::nullopt;
            chooseFromMenu(LOWORD(w));
            return 0;
        case WM_ENTERMENULOOP:
        case WM_EXITMENULOOP:
            inMenu_ = message == WM_ENTERMENULOOP;
            if (!inMenu_ && menuStale_)
                mirrorMenu();
            return 0;
        case WM_SETTINGCHANGE:
        case WM_THEMECHANGED:
        case WM_SYSCOLORCHANGE:
            settingsChanged();
            return std::nullopt;
        default:
            return servePlace(message, w, l);
    }
}

std::optional<LRESULT> FormWindow::servePlace(UINT message, WPARAM w, LPARAM l) {
    switch (message) {
        case WM_SIZE:
        case WM_MOVE:
            original(message, w, l);
            if (control() != nullptr)
                moved(message == WM_SIZE);
            return 0;
        case WM_TIMER:
            if (w != kEchoTimer)
                return std::nullopt;
            ::KillTimer(handle(), kEchoTimer);
            if (shown_ && ::IsIconic(handle()) == FALSE)
                resized();
            return 0;
        case WM_GETMINMAXINFO:
            original(message, w, l);
            limitSize(*reinterpret_cast<MINMAXINFO*>(l));
            return 0;
        case WM_DPICHANGED:
            moveToResolution(LOWORD(w), *reinterpret_cast<const RECT*>(l));
            return 0;
        default:
            return std::nullopt;
    }
}

void FormWindow::dropped(HDROP files) const {
    const Unique<HDROP, ::DragFinish> owned(files);
    std::vector<std::u16string> paths(::DragQueryFileW(files, kAllFiles, nullptr, 0));
    for (UINT i = 0; i < paths.size(); ++i) {
        paths[i].resize(::DragQueryFileW(files, i, nullptr, 0) + 1);
        paths[i].resize(::DragQueryFileW(files, i, wideBuffer(paths[i]), static_cast<UINT>(paths[i].size())));
    }
    if (::IsWindowEnabled(handle()) != FALSE)
        form()->userDroppedFiles(paths);
}

void FormWindow::chooseFromMenu(UINT command) const {
    const std::optional<MenuPath> path = commandPath(menu_, command);
    const ui::MenuBar* const bar = form()->menuBarIfAny();
    ui::MenuItem* const entry = path && bar != nullptr ? resolve(*bar, *path) : nullptr;
    if (entry != nullptr)
        entry->userClicked();
}

void FormWindow::moved(bool sizeToo) {
    if (placing_ > 0 || !shown_ || ::IsIconic(handle()) != FALSE)
        return;
    const bool maximized = ::IsZoomed(handle()) != FALSE;
    if (!maximized) {
        RECT outer{};
        ::GetWindowRect(handle(), &outer);
        form()->userMoved({ui::toTwips(outer.left, primaryDpi()), ui::toTwips(outer.top, primaryDpi())},
                          false);
    } else if (!form()->isMaximized()) {
        form()->userMoved({form()->bounds().left, form()->bounds().top}, true);
    }
    if (sizeToo)
        resized();
}

void FormWindow::resized() {
    RECT client{};
    ::GetClientRect(handle(), &client);
    const ui::Size known = form()->clientSize();
    if (toPixels(known.width, dpi()) == client.right && toPixels(known.height, dpi()) == client.bottom)
        return;
    if (isEcho(client))
        return;
    const Layout layout(frame());
    form()->userResized({ui::toTwips(client.right, dpi()), ui::toTwips(client.bottom, dpi())});
}

/// A window manager may answer a change of size with the former size before it grants the new one. That is no
/// doing of the user's; should the window keep it, it is reported when the time of echoes is over.
bool FormWindow::isEcho(const RECT& client) {
    if (::GetTickCount64() >= formerUntil_ || client.right != formerClient_.cx ||
        client.bottom != formerClient_.cy)
        return false;
    ::SetTimer(handle(), kEchoTimer, kEchoTime, nullptr);
    return true;
}

void FormWindow::limitSize(MINMAXINFO& limits) const {
    const SIZE least = outerSize(form()->minimumClientSize());
    limits.ptMinTrackSize.x = std::max(limits.ptMinTrackSize.x, least.cx);
    limits.ptMinTrackSize.y = std::max(limits.ptMinTrackSize.y, least.cy);
}

void FormWindow::moveToResolution(std::int32_t dpi, const RECT& wanted) {
    frame()->setDpi(dpi);
    ++placing_;
    ::SetWindowPos(handle(), nullptr, wanted.left, wanted.top, wanted.right - wanted.left,
                   wanted.bottom - wanted.top, SWP_NOZORDER | SWP_NOACTIVATE);
    --placing_;
    {
        const Layout layout(frame());
        rescaled();
    }
    if (shown_)
        resized();
    ::RedrawWindow(handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

void FormWindow::rescaled() {
    ::EnumChildWindows(handle(), rescaleChild, 0);
}

void FormWindow::settingsChanged() {
    const HFONT before = frame()->font();
    frame()->setDpi(dpi());
    if (frame()->font() != before)
        rescaled();
    ::RedrawWindow(handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

/// The window itself is no place for the focus while it holds a control that is.
void FormWindow::focusInside() {
    const ui::Control* const focused = form()->focusedControl();
    const HWND inside = focused != nullptr && focused->isUsable() ? handleOf(*focused) : nullptr;
    if (inside != nullptr)
        ::SetFocus(inside);
}

}  // namespace quorel::win32
