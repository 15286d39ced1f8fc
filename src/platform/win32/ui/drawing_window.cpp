#include "platform/win32/ui/drawing_window.h"

#include <algorithm>

#include "platform/win32/ui/pictures.h"
#include "platform/win32/ui/system_headers.h"

namespace quorel::win32 {

namespace {

using ui::MouseButton;

constexpr double kMostSmoothPixels = 500'000;

[[nodiscard]] ui::Modifiers modifiersOf(WPARAM keys) noexcept {
    ui::Modifiers modifiers = ui::Modifiers::None;
    if ((keys & MK_SHIFT) != 0)
        modifiers |= ui::Modifiers::Shift;
    if ((keys & MK_CONTROL) != 0)
        modifiers |= ui::Modifiers::Control;
    if (::GetKeyState(VK_MENU) < 0)
        modifiers |= ui::Modifiers::Alt;
    return modifiers;
}

[[nodiscard]] POINT pixelOf(LPARAM at) noexcept {
    return {GET_X_LPARAM(at), GET_Y_LPARAM(at)};
}

}  // namespace

NativeWindow::Description DrawingWindow::describe() {
    return {services().classes.ensure(u"QuorelDrawing"),
            WS_CHILD | WS_CLIPSIBLINGS | (control()->isTabStop() ? WS_TABSTOP : 0U)};
}

void DrawingWindow::invalidate(const ui::Rect& area) {
    if (handle() == nullptr)
        return;
    const ui::PixelRect pixels = toPixels(area, dpi());
    const RECT place{pixels.left - 1, pixels.top - 1, pixels.right + 1, pixels.bottom + 1};
    ::InvalidateRect(handle(), &place, FALSE);
}

void DrawingWindow::rescaled() {
    NativeWindow::rescaled();
    ::InvalidateRect(handle(), nullptr, FALSE);
}

ui::Point DrawingWindow::pointAt(POINT pixel) const noexcept {
    return {ui::toTwips(pixel.x, dpi()), ui::toTwips(pixel.y, dpi())};
}

LRESULT DrawingWindow::serve(UINT message, WPARAM w, LPARAM l) {
    if (control() == nullptr)
        return NativeWindow::serve(message, w, l);
    switch (message) {
        case WM_PAINT: {
            const PaintScope paint(handle());
            paintOn(paint.dc(), paint.dirty());
            return 0;
        }
        case WM_PRINTCLIENT: {
            RECT client{};
            ::GetClientRect(handle(), &client);
            paintOn(reinterpret_cast<HDC>(w), client);
            return 0;
        }
        case WM_ERASEBKGND:
            return 1;
        case WM_SETCURSOR:
            return showsShape(l) ? TRUE : NativeWindow::serve(message, w, l);
        case WM_GETDLGCODE:
            return DLGC_WANTARROWS | DLGC_WANTCHARS;
        case WM_MOUSEWHEEL:
            return turnWheel(w, l) ? 0 : original(message, w, l);
        case WM_SIZE:
        case WM_KILLFOCUS:
        case WM_SETFOCUS:
            ::InvalidateRect(handle(), nullptr, FALSE);
            return NativeWindow::serve(message, w, l);
        default:
            return serveMouse(message, w, l) ? 0 : NativeWindow::serve(message, w, l);
    }
}

bool DrawingWindow::serveMouse(UINT message, WPARAM w, LPARAM l) {
    switch (message) {
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK:
            press(MouseButton::Left, message == WM_LBUTTONDBLCLK, w, l);
            return true;
        case WM_MBUTTONDOWN:
        case WM_MBUTTONDBLCLK:
            press(MouseButton::Middle, false, w, l);
            return true;
        case WM_RBUTTONDOWN:
        case WM_RBUTTONDBLCLK:
            press(MouseButton::Right, false, w, l);
            return true;
        case WM_LBUTTONUP:
            release(MouseButton::Left, w, l);
            return true;
        case WM_MBUTTONUP:
            release(MouseButton::Middle, w, l);
            return true;
        case WM_RBUTTONUP:
            release(MouseButton::Right, w, l);
            return false;  // the system makes a wish for the context menu of it
        case WM_MOUSEMOVE:
            move(w, l);
            return true;
        case WM_MOUSELEAVE:
            tracked_ = false;
            area().userMouseLeft();
            return true;
        case WM_CAPTURECHANGED:
            lose();
            return true;
        default:
            return false;
    }
}

void DrawingWindow::press(MouseButton button, bool twice, WPARAM keys, LPARAM at) {
    if (held_ != MouseButton::None)
        return;
    held_ = button;
    ::SetCapture(handle());
    if (control()->isTabStop())
        ::SetFocus(handle());
    if (control() == nullptr || held_ == MouseButton::None)
        return;
    const ui::MouseEvent event{pointAt(pixelOf(at)), button, modifiersOf(keys)};
    if (twice)
        area().userDoubleClicked(event);
    else
        area().userMouseDown(event);
}

void DrawingWindow::release(MouseButton button, WPARAM keys, LPARAM at) {
    if (held_ != button)
        return;
    held_ = MouseButton::None;
    ::ReleaseCapture();
    area().userMouseUp({pointAt(pixelOf(at)), button, modifiersOf(keys)});
}

void DrawingWindow::move(WPARAM keys, LPARAM at) {
    if (!std::exchange(tracked_, true)) {
        TRACKMOUSEEVENT wish{sizeof(wish), TME_LEAVE, handle(), 0};
        ::TrackMouseEvent(&wish);
    }
    area().userMouseMove({pointAt(pixelOf(at)), held_, modifiersOf(keys)});
}

void DrawingWindow::lose() {
    if (std::exchange(held_, MouseButton::None) != MouseButton::None)
        area().userMouseLost();
}

/// Whoever has the focus hears of the wheel, wherever the mouse is.
bool DrawingWindow::turnWheel(WPARAM w, LPARAM onScreen) {
    POINT at = pixelOf(onScreen);
    ::ScreenToClient(handle(), &at);
    RECT client{};
    ::GetClientRect(handle(), &client);
    at.x = std::clamp(at.x, 0L, std::max(0L, client.right - 1));
    at.y = std::clamp(at.y, 0L, std::max(0L, client.bottom - 1));
    return area().userTurnedWheel(
        {pointAt(at), held_, modifiersOf(GET_KEYSTATE_WPARAM(w)), GET_WHEEL_DELTA_WPARAM(w)});
}

bool DrawingWindow::showsShape(LPARAM hit) const {
    if (services().pointer == ui::Pointer::Wait || LOWORD(hit) != HTCLIENT)
        return false;
    showShape();
    return true;
}

void DrawingWindow::showShape() const {
    const ui::PointerShape shape = area().pointerShape();
    ::SetCursor(::LoadCursorW(nullptr, shape == ui::PointerShape::Hand   ? IDC_HAND
                                       : shape == ui::PointerShape::Move ? IDC_SIZEALL
                                                                         : IDC_ARROW));
}

/// The system asks for the shape when the mouse moves, but not while a button holds it.
void DrawingWindow::mirror(ui::Change changes) {
    NativeWindow::mirror(changes);
    if (has(changes, ui::Change::Style) && held_ != MouseButton::None &&
        services().pointer != ui::Pointer::Wait)
        showShape();
}

/// On the background. The painter may end the window, and run a loop that paints it again.
std::shared_ptr<const DrawingSurface> DrawingWindow::draw(const RECT& dirty) {
    RECT client{};
    ::GetClientRect(handle(), &client);
    if (!surface_ || surface_->pixels().width < client.right || surface_->pixels().height < client.bottom)
        surface_ = std::make_shared<DrawingSurface>(client.right, client.bottom);
    const std::shared_ptr<DrawingSurface> surface = surface_;
    const ui::PixelRect bounds{dirty.left, dirty.top, dirty.right, dirty.bottom};
    const std::optional<ui::Colour> colour = background();
    ui::fillArea(surface->pixels(), bounds, bounds, colour ? *colour : toColour(::GetSysColor(COLOR_WINDOW)));
    SurfaceCanvas canvas(*surface, tools_, ui::CanvasMapping(static_cast<double>(dpi()) / ui::kTwipsPerInch),
                         bounds, kMostSmoothPixels);
    const ui::Point from = pointAt({dirty.left, dirty.top}), to = pointAt({dirty.right, dirty.bottom});
    area().userPaints(canvas, {from.x, from.y, to.x - from.x, to.y - from.y});
    ::GdiFlush();
    return surface;
}

void DrawingWindow::paintOn(HDC dc, const RECT& dirty) {
    if (::IsRectEmpty(&dirty) == FALSE)
        ::BitBlt(dc, dirty.left, dirty.top, dirty.right - dirty.left, dirty.bottom - dirty.top,
                 draw(dirty)->dc(), dirty.left, dirty.top, SRCCOPY);
}

}  // namespace quorel::win32
