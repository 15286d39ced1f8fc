#pragma once

#include <cstdint>
#include <vector>

#include "platform/ui/units.h"

/// Lines for boxes that nobody has arranged.
namespace quorel::diagram {

/// From edge to edge along the way between the middles; `lane` steps aside, for lines of the same boxes.
[[nodiscard]] std::vector<ui::Point> straightLine(const ui::Rect& from, const ui::Rect& to,
                                                  std::int32_t lane);

/// Around the right side of a box; later lanes are wider.
[[nodiscard]] std::vector<ui::Point> loopLine(const ui::Rect& box, std::int32_t lane);

/// That part of the way, from 0 to 1, along a line; 0, 0 of one without points.
[[nodiscard]] ui::Point pointAlong(const std::vector<ui::Point>& line, double part);

}  // namespace quorel::diagram
