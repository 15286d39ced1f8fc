#include "diagram/straight_lines.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

#include "diagram/spot.h"

namespace quorel::diagram {

using ui::Point;
using ui::Rect;
using ui::Twips;

namespace {

constexpr double kBetweenLanes = 240;
constexpr Twips kLoopWidth{420};

/// The part of the way, from 0 to 1, that lies within the box, its edge included.
[[nodiscard]] std::optional<std::pair<double, double>> within(const Rect& box, Spot from, Spot to) noexcept {
    double enters = 0, leaves = 1;
    const auto narrow = [&](double start, double length, double low, double high) {
        if (length == 0)
            return start >= low && start <= high;
        const auto [first, last] = std::minmax({(low - start) / length, (high - start) / length});
        enters = std::max(enters, first);
        leaves = std::min(leaves, last);
        return enters <= leaves;
    };
    if (narrow(from.x, to.x - from.x, box.left.value, box.right().value) &&
        narrow(from.y, to.y - from.y, box.top.value, box.bottom().value))
        return std::pair(enters, leaves);
    return std::nullopt;
}

}  // namespace

std::vector<Point> straightLine(const Rect& from, const Rect& to, std::int32_t lane) {
    Spot begin = middleOf(from), end = middleOf(to);
    const double length = std::hypot(end.x - begin.x, end.y - begin.y);
    if (lane != 0 && length > 0) {
        // Lanes lie on either side by turns.
        const double aside = (lane % 2 == 0 ? -lane / 2 : (lane + (lane > 0 ? 1 : -1)) / 2) * kBetweenLanes;
        const Spot by{-(end.y - begin.y) / length * aside, (end.x - begin.x) / length * aside};
        begin = {begin.x + by.x, begin.y + by.y};
        end = {end.x + by.x, end.y + by.y};
    }
    const auto inFirst = within(from, begin, end);
    const auto inSecond = within(to, begin, end);
    const double leaves = inFirst ? inFirst->second : 0;
    const double enters = inSecond ? inSecond->first : 1;
    if (leaves >= enters)
        return {rounded(begin), rounded(end)};
    return {rounded(between(begin, end, leaves)), rounded(between(begin, end, enters))};
}

std::vector<Point> loopLine(const Rect& box, std::int32_t lane) {
    const Twips right = box.right() + kLoopWidth * (lane + 1);
    const Twips upper = box.top + box.height / 3, lower = box.top + box.height * 2 / 3;
    return {{box.right(), upper}, {right, upper}, {right, lower}, {box.right(), lower}};
}

Point pointAlong(const std::vector<Point>& line, double part) {
    const auto lengthOf = [&](std::size_t at) {
        return std::hypot(static_cast<double>(line[at].x.value) - line[at - 1].x.value,
                          static_cast<double>(line[at].y.value) - line[at - 1].y.value);
    };
    double all = 0;
    for (std::size_t at = 1; at < line.size(); ++at)
        all += lengthOf(at);
    double rest = all * part;
    for (std::size_t at = 1; at < line.size(); ++at) {
        const double length = lengthOf(at);
        if (rest <= length && length > 0) {
            const Spot from{static_cast<double>(line[at - 1].x.value),
                            static_cast<double>(line[at - 1].y.value)};
            const Spot to{static_cast<double>(line[at].x.value), static_cast<double>(line[at].y.value)};
            return rounded(between(from, to, rest / length));
        }
        rest -= length;
    }
    return line.empty() ? Point{} : line.front();
}

}  // namespace quorel::diagram
