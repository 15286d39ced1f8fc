#include "platform/win32/ui/scroll_window.h"

#include "platform/win32/ui/control_peer.h"

namespace quorel::win32 {

namespace {

constexpr ui::Twips kLine{300};

[[nodiscard]] int linesPerNotch() noexcept {
    UINT lines = 3;
    ::SystemParametersInfoW(SPI_GETWHEELSCROLLLINES, 0, &lines, 0);
    return lines == WHEEL_PAGESCROLL ? 10 : static_cast<int>(lines);
}

}  // namespace

NativeWindow::Description ScrollWindow::describe() {
    return {services().classes.ensure(u"QuorelScrollPanel"), WS_CHILD | WS_CLIPSIBLINGS | WS_CLIPCHILDREN,
            WS_EX_CONTROLPARENT};
}

void ScrollWindow::mirror(ui::Change changes) {
    NativeWindow::mirror(changes);
    if (has(changes, ui::Change::Colours))
        ::RedrawWindow(handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
    if (has(changes, ui::Change::Bounds | ui::Change::ScrollTo)) {
        mirrorBar();
        moveContent();
    }
}

void ScrollWindow::mirrorBar() const {
    SCROLLINFO info{};
    info.cbSize = sizeof(info);
    info.fMask = SIF_ALL;
    const int page = toPixels(panel().bounds().height, dpi());
    const int content = panel().scrolls() ? toPixels(panel().contentHeight(), dpi()) : page;
    info.nMax = content > 0 ? content - 1 : 0;
    info.nPage = static_cast<UINT>(page);
    info.nPos = toPixels(panel().scrolled(), dpi());
    ::SetScrollInfo(handle(), SB_VERT, &info, TRUE);
}

void ScrollWindow::moveContent() {
    if (std::exchange(shownAt_, panel().scrolled()) == panel().scrolled())
        return;
    const Layout layout(frame());
    for (const auto& child : panel().children())
        if (child->peer() != nullptr)
            child->peer()->apply(ui::Change::Bounds);
}

void ScrollWindow::rescaled() {
    NativeWindow::rescaled();
    if (control() != nullptr)
        mirrorBar();
}

void ScrollWindow::scroll(WORD request) {
    SCROLLINFO info{};
    info.cbSize = sizeof(info);
    info.fMask = SIF_TRACKPOS;
    ::GetScrollInfo(handle(), SB_VERT, &info);
    const ui::Twips at = panel().scrolled(), page = panel().bounds().height;
    switch (request) {
        case SB_LINEUP:
            return panel().userScrolled(at - kLine);
        case SB_LINEDOWN:
            return panel().userScrolled(at + kLine);
        case SB_PAGEUP:
            return panel().userScrolled(at - page);
        case SB_PAGEDOWN:
            return panel().userScrolled(at + page);
        case SB_THUMBTRACK:
        case SB_THUMBPOSITION:
            return panel().userScrolled(ui::toTwips(info.nTrackPos, dpi()));
        case SB_TOP:
            return panel().userScrolled({});
        case SB_BOTTOM:
            return panel().userScrolled(panel().contentHeight());
        default:
            return;
    }
}

/// Wheels that turn smoothly report less than a notch at a time.
bool ScrollWindow::turnWheel(short delta) {
    if (!panel().scrolls())
        return false;
    wheel_ += delta * linesPerNotch();
    const int lines = wheel_ / WHEEL_DELTA;
    wheel_ -= lines * WHEEL_DELTA;
    panel().userScrolled(panel().scrolled() - kLine * lines);
    return true;
}

LRESULT ScrollWindow::serve(UINT message, WPARAM w, LPARAM l) {
    if (control() == nullptr)
        return NativeWindow::serve(message, w, l);
    if (message == WM_VSCROLL && l == 0) {
        scroll(LOWORD(w));
        return 0;
    }
    if (message == WM_MOUSEWHEEL && turnWheel(GET_WHEEL_DELTA_WPARAM(w)))
        return 0;
    if (message == WM_ERASEBKGND) {
        fillBackground(reinterpret_cast<HDC>(w));
        return 1;
    }
    return NativeWindow::serve(message, w, l);
}

}  // namespace quorel::win32
