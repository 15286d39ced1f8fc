#pragma once

#include "platform/ui/units.h"

namespace quorel::dialogs {

/// Where the controls of the name entry dialog are, in twips of its client area.
struct NameEditLayout {
    ui::Rect question, nameBox, ok, cancel;
};

/// The question over the box over the buttons, which stay at the right. `lineHeight` is that of the windows'
/// font.
[[nodiscard]] NameEditLayout layoutNameEdit(ui::Size client, ui::Twips lineHeight,
                                            std::int32_t questionLines) noexcept;

/// The height that `layoutNameEdit` fills exactly, and the width below which the buttons would not fit.
[[nodiscard]] ui::Size leastNameEditSize(ui::Twips lineHeight, std::int32_t questionLines) noexcept;

/// The width that the question has in a client area of that width.
[[nodiscard]] ui::Twips questionWidth(ui::Twips clientWidth) noexcept;

}  // namespace quorel::dialogs
