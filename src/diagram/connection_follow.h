#pragma once

#include <cstdint>
#include <vector>

#include "diagram/diagram_model.h"
#include "platform/ui/flags.h"
#include "platform/ui/units.h"

namespace quorel::diagram {

/// Which ends of a connection have moved.
enum class Ends : std::uint8_t { None = 0, From = 1, To = 2 };

}  // namespace quorel::diagram

template <>
inline constexpr bool quorel::ui::kIsFlags<quorel::diagram::Ends> = true;

namespace quorel::diagram {

/// A connection's way after a box at its end has moved.
struct Followed {
    std::vector<ui::Point> line;
    ui::Rect label;
};

/// The way of `before` when the box at those of its ends, which now stands at `box`, has moved by that much;
/// a connection of which both ends have moved goes along as it is. The end keeps its place at the box as long
/// as the line does not run through the box; then it is where the line meets the edge. Bends that the box now
/// covers, that lie behind it or at which the line would turn back go, the rest of the line stays. The label
/// stays beside the same part of the line.
[[nodiscard]] Followed follow(const Connection& before, Ends moved, const ui::Rect& box, ui::Point by);

}  // namespace quorel::diagram
