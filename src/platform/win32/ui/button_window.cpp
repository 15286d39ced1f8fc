
#include "platform/ui/form.h"
#include "platform/win32/ui/input_windows.h"
#include "platform/win32/ui/system_headers.h"

namespace quorel::win32 {

NativeWindow::Description ButtonWindow::describe() {
    return {u"BUTTON", WS_CHILD | WS_CLIPSIBLINGS | WS_TABSTOP | BS_PUSHBUTTON};
}

void ButtonWindow::mirror(ui::Change changes) {
    NativeWindow::mirror(changes);
    if (has(changes, ui::Change::Items) || (has(changes, ui::Change::Bounds) && button().glyph()))
        mirrorPicture();
    if (has(changes, ui::Change::Style))
        restoreDefault();
}

void ButtonWindow::rescaled() {
    NativeWindow::rescaled();
    if (control() != nullptr)
        mirrorPicture();
}

/// The text stays the window's text, which is what screen readers say. Where controls are themed the bitmaps
/// are drawn; elsewhere the system draws the icon.
void ButtonWindow::mirrorPicture() {
    const ui::Picture picture = button().pictureAt(dpi());
    CountedIcon icon = makeIcon(picture);
    const auto style = static_cast<DWORD>(::GetWindowLongPtrW(handle(), GWL_STYLE));
    const DWORD wanted = icon ? style | BS_ICON : style & ~DWORD{BS_ICON};
    if (wanted != style)
        ::SetWindowLongPtrW(handle(), GWL_STYLE, static_cast<LONG_PTR>(wanted));
    if (icon || icon_)
        send(BM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(icon.get()));
    icon_ = std::move(icon);
    usable_ = makeBitmap(picture);
    dimmed_ = makeBitmap(ui::dimmed(picture));
    size_ = {picture.width, picture.height};
    ::InvalidateRect(handle(), nullptr, TRUE);
}

std::optional<LRESULT> ButtonWindow::notified(NMHDR& header) {
    if (header.code != static_cast<UINT>(NM_CUSTOMDRAW) || !usable_)
        return std::nullopt;
    const auto& drawing = reinterpret_cast<const NMCUSTOMDRAW&>(header);
    if (drawing.dwDrawStage != CDDS_PREPAINT)
        return CDRF_DODEFAULT;
    drawPicture(drawing);
    return CDRF_SKIPDEFAULT;
}

/// Over the ground that the system has drawn.
void ButtonWindow::drawPicture(const NMCUSTOMDRAW& drawing) const {
    RECT client{};
    ::GetClientRect(handle(), &client);
    blend(drawing.hdc, ::IsWindowEnabled(handle()) != FALSE ? usable_.get() : dimmed_.get(), size_,
          {(client.right - size_.cx) / 2, (client.bottom - size_.cy) / 2});
    constexpr LRESULT kNoFocusShown = UISF_HIDEFOCUS;
    if (::GetFocus() != handle() || (send(WM_QUERYUISTATE) & kNoFocusShown) != 0)
        return;
    ::InflateRect(&client, -3, -3);
    ::DrawFocusRect(drawing.hdc, &client);
}

void ButtonWindow::commanded(WORD code) {
    if (code == BN_CLICKED)
        button().userClicked();
}

/// Enter presses the button that has the focus, so that one looks like the default while it has.
LRESULT ButtonWindow::serve(UINT message, WPARAM w, LPARAM l) {
    if (control() == nullptr || (message != WM_SETFOCUS && message != WM_KILLFOCUS))
        return NativeWindow::serve(message, w, l);
    const ui::Form* const form = control()->form();
    const ui::Button* const other = form != nullptr ? form->defaultButton() : nullptr;
    auto* const otherWindow =
        other != nullptr && other != &button() && other->peer() != nullptr ? other->peer() : nullptr;
    showDefault(message == WM_SETFOCUS || other == &button());
    if (otherWindow != nullptr)
        otherWindow->apply(ui::Change::Style);
    return NativeWindow::serve(message, w, l);
}

void ButtonWindow::restoreDefault() const {
    const ui::Form* const form = control()->form();
    const HWND focus = ::GetFocus();
    const NativeWindow* const focused = of(focus);
    const bool otherHasIt = focus != handle() && dynamic_cast<const ButtonWindow*>(focused) != nullptr &&
                            focused->frame() == frame();
    showDefault(focus == handle() || (!otherHasIt && form != nullptr && form->defaultButton() == &button()));
}

void ButtonWindow::showDefault(bool isDefault) const {
    const auto style = static_cast<DWORD>(::GetWindowLongPtrW(handle(), GWL_STYLE));
    const DWORD wanted = (style & ~DWORD{BS_TYPEMASK}) | (isDefault ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON);
    if (style != wanted)
        send(BM_SETSTYLE, wanted & 0xFFFFU, TRUE);
}

}  // namespace quorel::win32
