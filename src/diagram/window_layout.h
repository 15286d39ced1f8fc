#pragma once

#include <array>
#include <cstddef>

#include "platform/ui/units.h"

namespace quorel::diagram {

/// The standard buttons, in the order in which they stand.
enum class StandardButton : std::size_t { ZoomIn, ZoomOut, Fit, ActualSize, Find, Print, Save };
inline constexpr std::size_t kStandardButtons = 7;

/// What a diagram's window shows beside the diagram, and the sizes of its texts.
struct WindowParts {
    bool withButtons = false;
    bool withFind = false;
    ui::Twips line;       ///< the height of a line in the windows' font
    ui::Twips findLabel;  ///< the width of what stands before the find box
    ui::Twips found;      ///< the width of what stands behind it, at most
};

/// Where the controls of a diagram's window are, in twips of its client area. What is not shown has no size.
struct WindowLayout {
    std::array<ui::Rect, kStandardButtons> buttons;
    ui::Rect findLabel, find, found, previous, next, view, status;
};

/// A row with the buttons and behind them the find box, the diagram, the status line. Without buttons and
/// find box there is no row.
[[nodiscard]] WindowLayout layoutWindow(ui::Size client, const WindowParts& parts) noexcept;

/// The least client area, in which everything fits with buttons and find box.
[[nodiscard]] ui::Size leastWindowSize(const WindowParts& parts) noexcept;

}  // namespace quorel::diagram
