
#include "platform/ui/form.h"
#include "platform/win32/ui/input_windows.h"
#include "platform/win32/ui/system_headers.h"

namespace quorel::win32 {

NativeWindow::Description ButtonWindow::describe() {
    return {u"BUTTON", WS_CHILD | WS_CLIPSIBLINGS | WS_TABSTOP | BS_PUSHBUTTON | BS_NOTIFY};
}

void ButtonWindow::mirror(ui::Change changes) {
    NativeWindow::mirror(changes);
    if (has(changes, ui::Change::Items))
        mirrorPicture();
    if (has(changes, ui::Change::Style))
        restoreDefault();
}

/// The text stays the window's text, which is what screen readers say.
void ButtonWindow::mirrorPicture() {
    const ui::Picture* const picture = button().picture().get();
    CountedIcon icon = picture != nullptr ? makeIcon(*picture) : CountedIcon();
    const auto style = static_cast<DWORD>(::GetWindowLongPtrW(handle(), GWL_STYLE)) & ~DWORD{BS_ICON};
    ::SetWindowLongPtrW(handle(), GWL_STYLE, static_cast<LONG_PTR>(icon ? style | BS_ICON : style));
    send(BM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(icon.get()));
    icon_ = std::move(icon);
    ::InvalidateRect(handle(), nullptr, TRUE);
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
