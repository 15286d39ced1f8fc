// Keys and context menus of native windows.

#include <algorithm>

#include "platform/ui/check_box.h"
#include "platform/ui/dialog_keys.h"
#include "platform/ui/form.h"
#include "platform/ui/plain_controls.h"
#include "platform/win32/ui/menus.h"
#include "platform/win32/ui/native_window.h"

namespace quorel::win32 {

namespace {

[[nodiscard]] bool isDown(int key) noexcept {
    return ::GetKeyState(key) < 0;
}

[[nodiscard]] ui::KeyChord chordOf(WPARAM key) noexcept {
    ui::KeyChord chord{static_cast<ui::Key>(key)};
    if (isDown(VK_SHIFT))
        chord.modifiers |= ui::Modifiers::Shift;
    if (isDown(VK_CONTROL))
        chord.modifiers |= ui::Modifiers::Control;
    if (isDown(VK_MENU))
        chord.modifiers |= ui::Modifiers::Alt;
    return chord;
}

[[nodiscard]] bool isModifier(WPARAM key) noexcept {
    return key == VK_SHIFT || key == VK_CONTROL || key == VK_MENU || key == VK_LWIN || key == VK_RWIN ||
           key == VK_CAPITAL || key == VK_NUMLOCK;
}

/// Who uses these wants to see where the focus is and which access keys there are.
[[nodiscard]] bool drivesByKeyboard(WPARAM key) noexcept {
    return key == VK_TAB || key == VK_MENU || key == VK_F10 || (key >= VK_LEFT && key <= VK_DOWN);
}

/// An access key is a character, which on some keyboards is not the key's own code.
[[nodiscard]] ui::KeyChord accessChord(ui::KeyChord chord) noexcept {
    const UINT character = ::MapVirtualKeyW(static_cast<UINT>(chord.key), MAPVK_VK_TO_CHAR) & 0xFFFFU;
    if (chord.modifiers == ui::Modifiers::Alt && character > u' ')
        chord.key = static_cast<ui::Key>(character);
    return chord;
}

[[nodiscard]] bool isButton(const ui::Control* control) noexcept {
    return dynamic_cast<const ui::Button*>(control) != nullptr ||
           dynamic_cast<const ui::CheckBox*>(control) != nullptr;
}

/// Arrow keys walk along neighbouring buttons.
[[nodiscard]] bool walkButtons(ui::Form& form, ui::KeyChord chord) {
    const ui::Control* const button = form.focusedControl();
    if (!isButton(button) || chord.modifiers != ui::Modifiers::None)
        return false;
    const bool back = chord.key == ui::Key::Left || chord.key == ui::Key::Up;
    if (!back && chord.key != ui::Key::Right && chord.key != ui::Key::Down)
        return false;
    const auto& siblings = button->parent()->children();
    const auto at = static_cast<std::ptrdiff_t>(
        std::find_if(siblings.begin(), siblings.end(), [&](const auto& c) { return c.get() == button; }) -
        siblings.begin());
    const std::ptrdiff_t next = at + (back ? -1 : 1);
    if (next < 0 || next >= static_cast<std::ptrdiff_t>(siblings.size()))
        return true;
    ui::Control& neighbour = *siblings[static_cast<std::size_t>(next)];
    if (isButton(&neighbour) && neighbour.isUsable() && neighbour.isTabStop() && neighbour.peer() != nullptr)
        neighbour.peer()->takeFocus();
    return true;
}

/// The system's button presses itself on Space, when the key comes up.
[[nodiscard]] bool isNativePress(const ui::Form& form, ui::KeyChord chord) {
    return chord == ui::KeyChord{ui::Key::Space} && isButton(form.focusedControl());
}

}  // namespace

LRESULT NativeWindow::serveKey(UINT message, WPARAM key, LPARAM flags) {
    const HWND focus = ::GetFocus();
    const HWND inner =
        handle_ != nullptr && focus != nullptr && ::IsChild(handle_, focus) && of(focus) == nullptr ? focus
                                                                                                    : handle_;
    const bool taken = pressKey(key);
    // The system has to see the keys that Alt goes with, or Alt by itself opens the menu bar when it comes
    // up; but not those that it answers by itself.
    const bool goesWithAlt = (HIWORD(flags) & KF_ALTDOWN) != 0 && key != VK_F4 && key != VK_F10;
    if (taken && goesWithAlt && handle_ != nullptr)
        ::DefWindowProcW(handle_, message, key, flags);
    if (taken || handle_ == nullptr)
        return 0;
    MSG plain{};
    plain.hwnd = inner;
    plain.message = message;
    plain.wParam = key;
    plain.lParam = flags;
    plain.time = static_cast<DWORD>(::GetMessageTime());
    ::TranslateMessage(&plain);
    return ::SendMessageW(inner, message, key, flags);
}

bool NativeWindow::pressKey(WPARAM key) {
    if (drivesByKeyboard(key))
        ::SendMessageW(frame_->form(), WM_CHANGEUISTATE,
                       MAKEWPARAM(UIS_CLEAR, UISF_HIDEFOCUS | UISF_HIDEACCEL), 0);
    if (isModifier(key) || ::IsWindowEnabled(frame_->form()) == FALSE)
        return false;
    ui::Form* const form = control_->form();
    if (form == nullptr)
        return false;
    const auto alive = form->weak_from_this().lock();
    const ui::KeyChord chord = chordOf(key);
    if (claimsKey(chord))
        return false;
    if (form->userKeyDown(chord) || control_ == nullptr)
        return true;
    if (chord == ui::KeyChord{ui::Key::F10, ui::Modifiers::Shift}) {
        send(WM_CONTEXTMENU, reinterpret_cast<WPARAM>(handle_), -1);
        return true;
    }
    if (!isNativePress(*form, chord) && ui::pressDialogKey(*form, accessChord(chord)))
        return true;
    return control_ == nullptr || walkButtons(*form, chord) || dropsKey(chord);
}

bool NativeWindow::showContextMenu(LPARAM position) {
    ui::Control* const asked = control_;
    ui::Form* const form = asked->form();
    const bool ours = asked->onContextMenu.isConnected() || asked->contextMenuIfAny() != nullptr;
    if (form == nullptr || !ours)
        return false;
    const auto alive = form->weak_from_this().lock();
    POINT at{static_cast<short>(LOWORD(position)), static_cast<short>(HIWORD(position))};
    if (position == -1) {
        at = contextPoint();
        ::ClientToScreen(handle_, &at);
    }
    asked->onContextMenu.raise();
    const ui::Menu* const menu = control_ == asked ? asked->contextMenuIfAny() : nullptr;
    if (menu == nullptr)
        return true;
    const std::optional<MenuPath> chosen = trackMenu(*menu, frame_->form(), at);
    if (chosen && control_ == asked && asked->contextMenuIfAny() != nullptr)
        if (ui::MenuItem* const entry = resolve(*asked->contextMenuIfAny(), *chosen))
            entry->userClicked();
    return true;
}

void NativeWindow::popUpMenu(ui::MenuItem& menu, ui::MenuPlace place) {
    if (handle_ == nullptr)
        return;
    const Serving serving(frame_);
    const NativeScope scope(services().controls);
    POINT at{};
    if (place == ui::MenuPlace::Mouse) {
        ::GetCursorPos(&at);
    } else {
        RECT outer{};
        ::GetWindowRect(handle_, &outer);
        at = {outer.left, outer.bottom};
    }
    const std::optional<MenuPath> chosen = trackMenu(menu, frame_->form(), at);
    if (ui::MenuItem* const entry = chosen ? resolve(menu, *chosen) : nullptr)
        entry->userClicked();
}

/// Back and forward: the mouse's buttons, and what keyboards and system make of theirs.
bool NativeWindow::navigate(UINT message, WPARAM w, LPARAM l) {
    ui::Form* const form = control_->form();
    if (form == nullptr || ::IsWindowEnabled(frame_->form()) == FALSE)
        return false;
    if (message == WM_XBUTTONUP)
        return form->userNavigated(GET_XBUTTON_WPARAM(w) == XBUTTON1 ? ui::Navigation::Back
                                                                     : ui::Navigation::Forward);
    switch (GET_APPCOMMAND_LPARAM(l)) {
        case APPCOMMAND_BROWSER_BACKWARD:
            return form->userNavigated(ui::Navigation::Back);
        case APPCOMMAND_BROWSER_FORWARD:
            return form->userNavigated(ui::Navigation::Forward);
        default:
            return false;
    }
}

}  // namespace quorel::win32
