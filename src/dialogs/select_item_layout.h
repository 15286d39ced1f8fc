#pragma once

#include "platform/ui/units.h"

namespace quorel::dialogs {

/// Where the controls of the selection dialog are, in twips of its client area.
struct SelectItemLayout {
    ui::Rect statement, list, checkAll, checkNone, count, ok, cancel;
};

/// The statement over the list over a row with the buttons for checks at the left, if there are any, the
/// count beside them and OK and Cancel at the right. The list takes what is left. `lineHeight` is that of the
/// windows' font, `statementHeight` what the statement needs.
[[nodiscard]] SelectItemLayout layoutSelectItem(ui::Size client, ui::Twips lineHeight,
                                                ui::Twips statementHeight, bool withChecks) noexcept;

/// The least client area: all buttons and some rows fit.
[[nodiscard]] ui::Size leastSelectItemSize(ui::Twips lineHeight, ui::Twips statementHeight,
                                           bool withChecks) noexcept;

/// The width that the statement has in a client area of that width.
[[nodiscard]] ui::Twips statementWidth(ui::Twips clientWidth) noexcept;

}  // namespace quorel::dialogs
