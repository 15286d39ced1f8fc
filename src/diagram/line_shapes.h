#pragma once

#include <array>
#include <vector>

#include "platform/ui/units.h"

/// What is drawn of a connection's line.
namespace quorel::diagram {

/// The line with round corners, where there is room for them.
[[nodiscard]] std::vector<ui::Point> roundedLine(const std::vector<ui::Point>& line);

/// The head of an arrow whose tip is `tip`, coming from `from`: tip, one side, the notch, the other side.
[[nodiscard]] std::array<ui::Point, 4> arrowHead(ui::Point from, ui::Point tip);

}  // namespace quorel::diagram
