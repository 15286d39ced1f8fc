
#include "platform/win32/ui/input_windows.h"
#include "platform/win32/ui/system_headers.h"

namespace quorel::win32 {

namespace {

constexpr ui::Twips kStep{120};

[[nodiscard]] LONG mouseAlong(HWND parent, HWND window, LPARAM at, bool vertical) noexcept {
    POINT point{GET_X_LPARAM(at), GET_Y_LPARAM(at)};
    ::MapWindowPoints(window, parent, &point, 1);
    return vertical ? point.x : point.y;
}

}  // namespace

NativeWindow::Description SplitterWindow::describe() {
    return {services().classes.ensure(u"QuorelSplitter"),
            WS_CHILD | WS_CLIPSIBLINGS | (control()->isTabStop() ? WS_TABSTOP : 0U)};
}

ui::Twips SplitterWindow::position() const noexcept {
    return isVertical() ? splitter().bounds().left : splitter().bounds().top;
}

LRESULT SplitterWindow::serve(UINT message, WPARAM w, LPARAM l) {
    if (control() == nullptr)
        return NativeWindow::serve(message, w, l);
    switch (message) {
        case WM_SETCURSOR:
            if (services().pointer == ui::Pointer::Wait)
                return NativeWindow::serve(message, w, l);
            ::SetCursor(::LoadCursorW(nullptr, isVertical() ? IDC_SIZEWE : IDC_SIZENS));
            return TRUE;
        case WM_LBUTTONDOWN:
            beginDrag(l);
            return 0;
        case WM_MOUSEMOVE:
            drag(l);
            return 0;
        case WM_LBUTTONUP:
            endDrag(false);
            return 0;
        case WM_CAPTURECHANGED:
            dragging_ = false;
            return 0;
        case WM_KEYDOWN:
            return step(w) ? 0 : NativeWindow::serve(message, w, l);
        case WM_ERASEBKGND:
            return 1;
        case WM_PAINT:
            paint();
            return 0;
        case WM_SETFOCUS:
        case WM_KILLFOCUS:
            ::InvalidateRect(handle(), nullptr, FALSE);
            return NativeWindow::serve(message, w, l);
        default:
            return NativeWindow::serve(message, w, l);
    }
}

void SplitterWindow::beginDrag(LPARAM at) {
    const HWND parent = ::GetParent(handle());
    RECT place{};
    ::GetWindowRect(handle(), &place);
    ::MapWindowPoints(nullptr, parent, reinterpret_cast<POINT*>(&place), 2);
    grip_ = mouseAlong(parent, handle(), at, isVertical()) - (isVertical() ? place.left : place.top);
    dragStart_ = position();
    dragging_ = true;
    ::SetCapture(handle());
    if (control()->isTabStop())
        ::SetFocus(handle());
}

void SplitterWindow::drag(LPARAM at) {
    if (!dragging_)
        return;
    const LONG mouse = mouseAlong(::GetParent(handle()), handle(), at, isVertical());
    const ui::Twips wanted = ui::toTwips(mouse - grip_, dpi());
    if (wanted == position())
        return;
    const Layout layout(frame());
    splitter().userMoved(wanted);
}

void SplitterWindow::endDrag(bool takeBack) {
    if (!std::exchange(dragging_, false))
        return;
    ::ReleaseCapture();
    if (!takeBack || control() == nullptr)
        return;
    const Layout layout(frame());
    splitter().userMoved(dragStart_);
}

bool SplitterWindow::step(WPARAM key) {
    if (key == VK_ESCAPE && dragging_) {
        endDrag(true);
        return true;
    }
    const bool back = key == (isVertical() ? VK_LEFT : VK_UP);
    if (!back && key != static_cast<WPARAM>(isVertical() ? VK_RIGHT : VK_DOWN))
        return false;
    const Layout layout(frame());
    splitter().userMoved(back ? position() - kStep : position() + kStep);
    return true;
}

void SplitterWindow::paint() const {
    const PaintScope paint(handle());
    RECT client{};
    ::GetClientRect(handle(), &client);
    const std::optional<ui::Colour> colour = background();
    ::FillRect(paint.dc(), &client,
               colour ? services().tools.brush(*colour) : ::GetSysColorBrush(COLOR_BTNFACE));
    if (::GetFocus() == handle())
        ::DrawFocusRect(paint.dc(), &client);
}

}  // namespace quorel::win32
