#pragma once

#include <cmath>
#include <cstdint>

#include "platform/ui/units.h"

namespace quorel::diagram {

/// A place or a way, in twips, where parts of a twip count.
struct Spot {
    double x = 0, y = 0;
};

[[nodiscard]] inline Spot spot(ui::Point point) noexcept {
    return {static_cast<double>(point.x.value), static_cast<double>(point.y.value)};
}

[[nodiscard]] inline ui::Point rounded(Spot at) noexcept {
    return {{static_cast<std::int32_t>(std::lround(at.x))}, {static_cast<std::int32_t>(std::lround(at.y))}};
}

[[nodiscard]] inline Spot middleOf(const ui::Rect& place) noexcept {
    return {place.left.value + place.width.value / 2.0, place.top.value + place.height.value / 2.0};
}

[[nodiscard]] inline double distance(Spot a, Spot b) noexcept {
    return std::hypot(b.x - a.x, b.y - a.y);
}

/// What lies between two places, at a share from 0 to 1 of the way.
[[nodiscard]] inline Spot between(Spot from, Spot to, double share) noexcept {
    return {from.x + (to.x - from.x) * share, from.y + (to.y - from.y) * share};
}

}  // namespace quorel::diagram
