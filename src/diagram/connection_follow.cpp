#include "diagram/connection_follow.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <optional>
#include <utility>

#include "diagram/spot.h"

namespace quorel::diagram {

namespace {

using ui::operator|;
using ui::Point;
using ui::Rect;

/// How far a label stands from its line.
constexpr ui::Twips kBesideLine{90};

[[nodiscard]] Point moved(Point point, Point by) noexcept {
    return {point.x + by.x, point.y + by.y};
}

[[nodiscard]] bool isInside(const Rect& box, Point point) noexcept {
    return point.x >= box.left && point.x <= box.right() && point.y >= box.top && point.y <= box.bottom();
}

/// Cuts the part from `enter` to `leave` of a way, measured along one axis, down to what lies within.
void narrow(double from, double to, double low, double high, double& enter, double& leave) noexcept {
    const double way = to - from;
    if (way == 0) {
        if (from <= low || from >= high)
            enter = 1, leave = 0;
        return;
    }
    const double a = (low - from) / way;
    const double b = (high - from) / way;
    enter = std::max(enter, std::min(a, b));
    leave = std::min(leave, std::max(a, b));
}

/// The share of the straight way after which it is inside the box; none if it leads past it or along its
/// edge.
[[nodiscard]] std::optional<double> entersAt(const Rect& box, Spot from, Spot to) noexcept {
    double enter = 0, leave = 1;
    narrow(from.x, to.x, box.left.value, box.right().value, enter, leave);
    narrow(from.y, to.y, box.top.value, box.bottom().value, enter, leave);
    constexpr double kTouch = 1e-9;
    return leave - enter > kTouch ? std::optional(enter) : std::nullopt;
}

[[nodiscard]] Point clampedTo(const Rect& box, Point at) noexcept {
    return {std::clamp(at.x, box.left, box.right()), std::clamp(at.y, box.top, box.bottom())};
}

/// Where the way from the middle of the box to a point outside leaves it.
[[nodiscard]] Point edgeTowards(const Rect& box, Spot to) noexcept {
    const Spot middle = middleOf(box);
    const double acrossX = std::abs(to.x - middle.x) / std::max(box.width.value / 2.0, 0.5);
    const double acrossY = std::abs(to.y - middle.y) / std::max(box.height.value / 2.0, 0.5);
    const Point edge = rounded(between(middle, to, 1 / std::max({acrossX, acrossY, 1.0})));
    return clampedTo(box, edge);
}

/// A line that came by `last` from `before` would go back to reach the box.
[[nodiscard]] bool turnsBack(Point before, Point last, const Rect& box) noexcept {
    const Spot a = spot(before), b = spot(last), c = middleOf(box);
    return (b.x - a.x) * (c.x - b.x) + (b.y - a.y) * (c.y - b.y) < 0;
}

/// The part of a line that stays, when it runs into the box on its way: up to the box's edge.
[[nodiscard]] std::optional<std::vector<Point>> cutAtBox(const std::vector<Point>& line, const Rect& box) {
    for (std::size_t i = 1; i + 1 < line.size(); ++i) {
        const Spot from = spot(line[i - 1]), to = spot(line[i]);
        const std::optional<double> enters = entersAt(box, from, to);
        if (!enters || isInside(box, line[i - 1]))
            continue;
        std::vector<Point> result(line.begin(), line.begin() + static_cast<std::ptrdiff_t>(i));
        result.push_back(clampedTo(box, rounded(between(from, to, *enters))));
        return result;
    }
    return std::nullopt;
}

/// `line` ends at the box.
[[nodiscard]] std::vector<Point> followAtEnd(const std::vector<Point>& line, const Rect& box, Point by) {
    if (line.size() < 2 || by == Point{})
        return line;
    if (auto cut = cutAtBox(line, box))
        return *std::move(cut);
    std::size_t kept = line.size() - 1;
    while (kept > 1 && (isInside(box, line[kept - 1]) || turnsBack(line[kept - 2], line[kept - 1], box)))
        --kept;
    const Spot last = spot(line[kept - 1]);
    const Point translated = moved(line.back(), by);
    const bool keepsPlace =
        kept + 1 == line.size() && isInside(box, translated) && !entersAt(box, last, spot(translated));
    std::vector<Point> result(line.begin(), line.begin() + static_cast<std::ptrdiff_t>(kept));
    result.push_back(keepsPlace ? translated : edgeTowards(box, last));
    return result;
}

/// A place on a line, by how far it is from the line's beginning.
struct Anchor {
    double distance = 0;
    Spot at;
};

[[nodiscard]] Anchor nearestOn(const std::vector<Point>& line, Spot to) noexcept {
    Anchor best{0, spot(line.front())};
    double shortest = std::hypot(to.x - best.at.x, to.y - best.at.y);
    double passed = 0;
    for (std::size_t i = 1; i < line.size(); ++i) {
        const Spot a = spot(line[i - 1]);
        const Spot b = spot(line[i]);
        const double length = distance(a, b);
        const double along = (to.x - a.x) * (b.x - a.x) + (to.y - a.y) * (b.y - a.y);
        const double share = length > 0 ? std::clamp(along / (length * length), 0.0, 1.0) : 0;
        const Spot at = between(a, b, share);
        const double way = std::hypot(to.x - at.x, to.y - at.y);
        if (way < shortest) {
            shortest = way;
            best = {passed + share * length, at};
        }
        passed += length;
    }
    return best;
}

/// `line` begins where it has not moved; all up to its last bend is as it was.
[[nodiscard]] Rect followLabel(const Rect& label, const std::vector<Point>& before,
                               const std::vector<Point>& after) {
    if (label.size() == ui::Size{} || before.size() < 2 || after.size() < 2)
        return label;
    double kept = 0;
    for (std::size_t i = 2; i < after.size(); ++i)
        kept += distance(spot(after[i - 2]), spot(after[i - 1]));
    double whole = 0;
    for (std::size_t i = 1; i < before.size(); ++i)
        whole += distance(spot(before[i - 1]), spot(before[i]));
    const Anchor anchor = nearestOn(before, middleOf(label));
    if (anchor.distance <= kept || whole <= kept)
        return label;
    const Spot now =
        between(spot(after[after.size() - 2]), spot(after.back()), (anchor.distance - kept) / (whole - kept));
    const Point by = rounded({now.x - anchor.at.x, now.y - anchor.at.y});
    return {label.left + by.x, label.top + by.y, label.width, label.height};
}

[[nodiscard]] bool overlap(const Rect& a, const Rect& b) noexcept {
    const Rect both = ui::intersection(a, b);
    return both.width.value > 0 && both.height.value > 0;
}

/// A label that the box would hide goes beside the middle of the longest part of the line at which it is in
/// the open; where there is none it stays.
[[nodiscard]] Rect outOfTheWay(const Rect& label, const Rect& box, const std::vector<Point>& line) {
    if (!overlap(label, box))
        return label;
    Rect best = label;
    double longest = -1;
    for (std::size_t i = 1; i < line.size(); ++i) {
        const Spot a = spot(line[i - 1]);
        const Spot b = spot(line[i]);
        const Point middle = rounded(between(a, b, 0.5));
        const Rect beside{middle.x + kBesideLine, middle.y - label.height / 2, label.width, label.height};
        const double length = distance(a, b);
        if (length > longest && !overlap(beside, box)) {
            best = beside;
            longest = length;
        }
    }
    return best;
}

}  // namespace

Followed follow(const Connection& before, Ends ends, const Rect& box, Point by) {
    if (ends == Ends::None)
        return {before.line, before.label};
    std::vector<Point> line = before.line;
    if (ends == (Ends::From | Ends::To)) {
        for (Point& point : line)
            point = moved(point, by);
        const Rect& label = before.label;
        return {std::move(line), {label.left + by.x, label.top + by.y, label.width, label.height}};
    }
    if (ends == Ends::From)
        std::reverse(line.begin(), line.end());
    Followed result{followAtEnd(line, box, by), {}};
    result.label = outOfTheWay(followLabel(before.label, line, result.line), box, result.line);
    if (ends == Ends::From)
        std::reverse(result.line.begin(), result.line.end());
    return result;
}

}  // namespace quorel::diagram
