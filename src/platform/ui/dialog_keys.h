#pragma once

#include "platform/ui/form.h"
#include "platform/ui/keys.h"

namespace quorel::ui {

/// True if the focused control itself acts on the key, so that `pressDialogKey` must leave it alone: Enter in
/// a text box of several lines; Enter in a list with a selected row, or a tree with a selected item, that
/// somebody waits for.
[[nodiscard]] bool wantsKey(const Control& focused, KeyChord chord) noexcept;

/// What a key does in any window, after `Form::userKeyDown` has left it and unless the focused control wants
/// it: Tab and Shift+Tab move the focus; Enter presses the focused button, else the default button; Esc
/// presses the cancel button; Space presses the focused button or turns the focused check box over; Alt with
/// a letter does so to the one, or goes to the control after the label, that bears it as access key; Alt+Left
/// and Alt+Right go back and forward. True if the key had a use.
bool pressDialogKey(Form& form, KeyChord chord);

}  // namespace quorel::ui
