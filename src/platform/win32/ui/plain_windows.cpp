#include "platform/win32/ui/plain_windows.h"

#include <algorithm>
#include <utility>

#include "platform/ui/form.h"
#include "platform/win32/text.h"
#include "platform/win32/ui/native_text.h"
#include "platform/win32/ui/system_headers.h"

namespace quorel::win32 {

namespace {

constexpr DWORD kChild = WS_CHILD | WS_CLIPSIBLINGS;
constexpr std::size_t kMostPanelUnits = 1000;

}  // namespace

NativeWindow::Description PanelWindow::describe() {
    return {services().classes.ensure(u"QuorelPanel"), kChild | WS_CLIPCHILDREN, WS_EX_CONTROLPARENT};
}

void PanelWindow::mirror(ui::Change changes) {
    NativeWindow::mirror(changes);
    if (has(changes, ui::Change::Colours))
        ::RedrawWindow(handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

LRESULT PanelWindow::serve(UINT message, WPARAM w, LPARAM l) {
    if (message != WM_ERASEBKGND || control() == nullptr)
        return NativeWindow::serve(message, w, l);
    fillBackground(reinterpret_cast<HDC>(w));
    return 1;
}

/// With notifications, so that the mouse finds it and its tool tip shows.
NativeWindow::Description LabelWindow::describe() {
    return {u"STATIC", kChild | SS_LEFT | SS_NOTIFY};
}

void LabelWindow::mirror(ui::Change changes) {
    NativeWindow::mirror(changes);
    if (has(changes, ui::Change::Style))
        send(WM_SETFONT, reinterpret_cast<WPARAM>(font()), TRUE);
}

HFONT LabelWindow::font() const {
    return control() != nullptr ? services().tools.font(dpi(), label().font()) : NativeWindow::font();
}

NativeWindow::Description LineWindow::describe() {
    return {services().classes.ensure(u"QuorelLine"), kChild};
}

LRESULT LineWindow::serve(UINT message, WPARAM w, LPARAM l) {
    if (control() == nullptr || (message != WM_ERASEBKGND && message != WM_PAINT))
        return NativeWindow::serve(message, w, l);
    if (message == WM_PAINT)
        paint();
    return message == WM_ERASEBKGND ? 1 : 0;
}

void LineWindow::paint() const {
    const PaintScope paint(handle());
    RECT client{};
    ::GetClientRect(handle(), &client);
    fillBackground(paint.dc());
    const int thickness = std::max(1, ::MulDiv(1, dpi(), USER_DEFAULT_SCREEN_DPI));
    if (line().orientation() == ui::Orientation::Vertical)
        client.right = thickness;
    else
        client.bottom = thickness;
    const HBRUSH ink =
        line().colour() ? services().tools.brush(*line().colour()) : ::GetSysColorBrush(COLOR_BTNSHADOW);
    ::FillRect(paint.dc(), &client, ink);
}

NativeWindow::Description PictureWindow::describe() {
    return {services().classes.ensure(u"QuorelPicture"), kChild | (control()->isTabStop() ? WS_TABSTOP : 0U)};
}

void PictureWindow::mirror(ui::Change changes) {
    NativeWindow::mirror(changes);
    if (has(changes, ui::Change::Items))
        mirrorPicture();
}

void PictureWindow::rescaled() {
    NativeWindow::rescaled();
    if (control() != nullptr)
        mirrorPicture();
}

void PictureWindow::mirrorPicture() {
    const ui::Picture picture = box().pictureAt(dpi());
    bitmap_ = ui::isWhole(picture) ? makeBitmap(picture) : CountedBitmap();
    size_ = bitmap_ ? SIZE{picture.width, picture.height} : SIZE{};
    ::InvalidateRect(handle(), nullptr, FALSE);
}

LRESULT PictureWindow::serve(UINT message, WPARAM w, LPARAM l) {
    if (control() == nullptr)
        return NativeWindow::serve(message, w, l);
    switch (message) {
        case WM_ERASEBKGND:
            return 1;
        case WM_PAINT:
            paint();
            return 0;
        case WM_PRINTCLIENT: {
            RECT client{};
            ::GetClientRect(handle(), &client);
            paintOn(reinterpret_cast<HDC>(w), client);
            return 0;
        }
        case WM_LBUTTONDOWN:
            pressed_ = true;
            if (control()->isTabStop())
                ::SetFocus(handle());
            return 0;
        case WM_LBUTTONUP:
            if (std::exchange(pressed_, false))
                box().userClicked();
            return 0;
        case WM_KEYUP:
            if (w == VK_SPACE)
                box().userClicked();
            return 0;
        case WM_SETFOCUS:
        case WM_KILLFOCUS:
            ::InvalidateRect(handle(), nullptr, FALSE);
            return NativeWindow::serve(message, w, l);
        default:
            return NativeWindow::serve(message, w, l);
    }
}

void PictureWindow::paint() const {
    PaintScope paint(handle());
    RECT client{};
    ::GetClientRect(handle(), &client);
    const OffScreen off(paint.dc(), client);
    paintOn(off.dc(), client);
}

void PictureWindow::paintOn(HDC dc, const RECT& client) const {
    fillBackground(dc);
    if (bitmap_)
        blend(dc, bitmap_.get(), size_, {(client.right - size_.cx) / 2, (client.bottom - size_.cy) / 2});
    if (::GetFocus() == handle())
        ::DrawFocusRect(dc, &client);
}

NativeWindow::Description StatusWindow::describe() {
    const ui::Form* const form = control()->form();
    const DWORD grip = form != nullptr && form->isResizable() ? SBARS_SIZEGRIP : 0U;
    return {u"msctls_statusbar32", kChild | CCS_NOPARENTALIGN | CCS_NORESIZE | CCS_NODIVIDER | grip};
}

void StatusWindow::mirror(ui::Change changes) {
    if (has(changes, ui::Change::Items)) {
        mirrorParts();
        shown_.clear();
        changes |= ui::Change::Text;
    }
    NativeWindow::mirror(changes);
}

void StatusWindow::mirrorParts() {
    std::vector<INT> edges;
    ui::Twips right;
    for (const ui::StatusBar::PanelState& panel : bar().panels())
        edges.push_back(toPixels(right += panel.width, dpi()));
    if (edges.empty())
        edges.push_back(-1);
    edges.back() = -1;
    send(SB_SETPARTS, edges.size(), reinterpret_cast<LPARAM>(edges.data()));
}

/// The system's bar paints a text as it gets it, so a counter would be painted at every step: the bar gets
/// its texts when it is painted, or somebody reads them.
void StatusWindow::mirrorText() {
    if (!std::exchange(stale_, true))
        ::InvalidateRect(handle(), nullptr, FALSE);
}

LRESULT StatusWindow::serve(UINT message, WPARAM w, LPARAM l) {
    const bool shows = message == WM_PAINT || message == WM_PRINTCLIENT || message == WM_GETTEXT ||
                       message == WM_GETTEXTLENGTH || message == SB_GETTEXTW ||
                       message == SB_GETTEXTLENGTHW || message == SB_GETTEXTA || message == SB_GETTEXTLENGTHA;
    if (shows && control() != nullptr && std::exchange(stale_, false))
        mirrorPanels();
    return NativeWindow::serve(message, w, l);
}

/// Only what has changed, so that the other panels do not flicker.
void StatusWindow::mirrorPanels() {
    const auto& panels = bar().panels();
    shown_.resize(panels.size());
    for (std::size_t i = 0; i < panels.size(); ++i) {
        std::u16string text = shownLine(panels[i].text, kMostPanelUnits);
        if (shown_[i] == text)
            continue;
        send(SB_SETTEXTW, i, reinterpret_cast<LPARAM>(wide(text)));
        shown_[i] = std::move(text);
    }
}

void StatusWindow::rescaled() {
    NativeWindow::rescaled();
    if (control() != nullptr)
        mirrorParts();
}

}  // namespace quorel::win32
