#include "diagram/connection_follow.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

namespace quorel::diagram {

namespace {

using ui::operator|;
using ui::Point;
using ui::Rect;

/// A place or a way, where parts of a twip count.
struct Vector {
    double x = 0, y = 0;
};

[[nodiscard]] Vector vector(Point point) noexcept {
    return {static_cast<double>(point.x.value), static_cast<double>(point.y.value)};
}

[[nodiscard]] Point rounded(Vector at) noexcept {
    return {{static_cast<std::int32_t>(std::lround(at.x))}, {static_cast<std::int32_t>(std::lround(at.y))}};
}

[[nodiscard]] Vector middleOf(const Rect& place) noexcept {
    return {place.left.value + place.width.value / 2.0, place.top.value + place.height.value / 2.0};
}

[[nodiscard]] Vector between(Vector a, Vector b, double share) noexcept {
    return {a.x + (b.x - a.x) * share, a.y + (b.y - a.y) * share};
}

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

/// Whether the straight way leads through the inside of the box, not only along its edge.
[[nodiscard]] bool runsThrough(const Rect& box, Vector from, Vector to) noexcept {
    double enter = 0, leave = 1;
    narrow(from.x, to.x, box.left.value, box.right().value, enter, leave);
    narrow(from.y, to.y, box.top.value, box.bottom().value, enter, leave);
    constexpr double kTouch = 1e-9;
    return leave - enter > kTouch;
}

/// Where the way from the middle of the box to a point outside leaves it.
[[nodiscard]] Point edgeTowards(const Rect& box, Vector to) noexcept {
    const Vector middle = middleOf(box);
    const double acrossX = std::abs(to.x - middle.x) / std::max(box.width.value / 2.0, 0.5);
    const double acrossY = std::abs(to.y - middle.y) / std::max(box.height.value / 2.0, 0.5);
    const Point edge = rounded(between(middle, to, 1 / std::max({acrossX, acrossY, 1.0})));
    return {std::clamp(edge.x, box.left, box.right()), std::clamp(edge.y, box.top, box.bottom())};
}

/// `line` ends at the box.
[[nodiscard]] std::vector<Point> followAtEnd(const std::vector<Point>& line, const Rect& box, Point by) {
    if (line.size() < 2)
        return line;
    std::size_t kept = line.size() - 1;
    while (kept > 1 && isInside(box, line[kept - 1]))
        --kept;
    const Vector last = vector(line[kept - 1]);
    const Point translated = moved(line.back(), by);
    const bool keepsPlace =
        kept + 1 == line.size() && isInside(box, translated) && !runsThrough(box, last, vector(translated));
    std::vector<Point> result(line.begin(), line.begin() + static_cast<std::ptrdiff_t>(kept));
    result.push_back(keepsPlace ? translated : edgeTowards(box, last));
    return result;
}

[[nodiscard]] double lengthOf(Point a, Point b) noexcept {
    return std::hypot(vector(b).x - vector(a).x, vector(b).y - vector(a).y);
}

/// A place on a line, by how far it is from the line's beginning.
struct Anchor {
    double distance = 0;
    Vector at;
};

[[nodiscard]] Anchor nearestOn(const std::vector<Point>& line, Vector to) noexcept {
    Anchor best{0, vector(line.front())};
    double shortest = std::hypot(to.x - best.at.x, to.y - best.at.y);
    double passed = 0;
    for (std::size_t i = 1; i < line.size(); ++i) {
        const Vector a = vector(line[i - 1]);
        const Vector b = vector(line[i]);
        const double length = lengthOf(line[i - 1], line[i]);
        const double along = (to.x - a.x) * (b.x - a.x) + (to.y - a.y) * (b.y - a.y);
        const double share = length > 0 ? std::clamp(along / (length * length), 0.0, 1.0) : 0;
        const Vector at = between(a, b, share);
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
        kept += lengthOf(after[i - 2], after[i - 1]);
    double whole = 0;
    for (std::size_t i = 1; i < before.size(); ++i)
        whole += lengthOf(before[i - 1], before[i]);
    const Anchor anchor = nearestOn(before, middleOf(label));
    if (anchor.distance <= kept || whole <= kept)
        return label;
    const Vector now = between(vector(after[after.size() - 2]), vector(after.back()),
                               (anchor.distance - kept) / (whole - kept));
    const Point by = rounded({now.x - anchor.at.x, now.y - anchor.at.y});
    return {label.left + by.x, label.top + by.y, label.width, label.height};
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
    result.label = followLabel(before.label, line, result.line);
    if (ends == Ends::From)
        std::reverse(result.line.begin(), result.line.end());
    return result;
}

}  // namespace quorel::diagram
