#pragma once

#include <cstddef>

#include "platform/ui/units.h"

namespace quorel::controls {

/// Where the parts of a property control go, relative to it, in twips.
struct PropertyLayout {
    ui::Rect searchBox, list, title, description;
};

/// The search box over the list over the description, which gives way when there is little room: the list
/// comes first. `lineHeight` is that of the windows' font.
[[nodiscard]] PropertyLayout layoutProperty(ui::Size size, ui::Twips lineHeight) noexcept;

/// The height at which that many lines can be seen, and the description below them.
[[nodiscard]] ui::Twips neededPropertyHeight(std::size_t lines, ui::Twips lineHeight) noexcept;

/// Where the parts of an open editor go, relative to the property control.
struct EditorLayout {
    ui::Rect box;      ///< the text box, the choices, the check mark
    ui::Rect button;   ///< right of it; as wide as nothing without a button
    ui::Rect message;  ///< why the text is refused: below the cell, or above it where there is no room
};

struct EditorWants {
    std::int32_t lines = 1;  ///< how many lines of text the box shows
    bool button = false;
    /// Of text below the box, measured in the windows' font.
    std::int32_t messageLines = 0;
};

/// An editor over `cell`, which lies in `list`: never out of the list, as high as its lines want and the list
/// allows.
[[nodiscard]] EditorLayout layoutEditor(const ui::Rect& cell, const ui::Rect& list, ui::Twips lineHeight,
                                        EditorWants wants) noexcept;

}  // namespace quorel::controls
