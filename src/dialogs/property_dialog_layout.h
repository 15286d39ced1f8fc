#pragma once

#include "platform/ui/units.h"

namespace quorel::dialogs {

/// Where the parts of a window with a property grid over a row of buttons are. The buttons' rectangles are
/// relative to the row.
struct PropertyDialogLayout {
    ui::Rect property, buttons, ok, cancel;
};

/// The grid takes the full width and the height that the row of buttons leaves; the row is directly below it.
[[nodiscard]] PropertyDialogLayout layoutPropertyDialog(ui::Size client, ui::Twips lineHeight) noexcept;

/// The least client area: both buttons and some lines of the grid fit.
[[nodiscard]] ui::Size leastPropertyDialogSize(ui::Twips lineHeight) noexcept;

}  // namespace quorel::dialogs
