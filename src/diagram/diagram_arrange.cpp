#include "diagram/diagram_arrange.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>
#include <map>
#include <utility>

#include "diagram/straight_lines.h"

namespace quorel::diagram {

using ui::Point;
using ui::Rect;
using ui::Twips;

namespace {

/// Lines leave and reach boxes upright, over this length.
constexpr layout::Length kStub = 210;
/// Slanted lines keep away from labels by that much.
constexpr layout::Length kAboveLabel = 120;
/// Where on straight lines the labels of several connections of the same boxes are, one after another.
constexpr std::array kLabelParts{0.5, 0.25, 0.75};
constexpr Twips kBesideLoop{90};
constexpr layout::Gaps kGaps{.boxes = 600, .ranks = 540, .connections = 240, .components = 1200};

[[nodiscard]] Twips fromLayout(layout::Length length) noexcept {
    constexpr layout::Length kMost = std::numeric_limits<std::int32_t>::max() / 2;
    return {static_cast<std::int32_t>(std::clamp<layout::Length>(length, 0, kMost))};
}

[[nodiscard]] Point fromLayout(layout::Place place) noexcept {
    return {fromLayout(place.x + kDrawingMargin.value), fromLayout(place.y + kDrawingMargin.value - kStub)};
}

/// Every box with the upright ends of its lines, every label with what is left free around it.
[[nodiscard]] layout::Diagram toLayout(const DiagramModel& model) {
    layout::Diagram diagram;
    diagram.boxes.reserve(model.boxes.size());
    for (const Box& box : model.boxes)
        diagram.boxes.push_back({box.place.width.value, box.place.height.value + 2 * kStub});
    diagram.connections.reserve(model.connections.size());
    for (const Connection& connection : model.connections) {
        layout::Extent label{connection.label.width.value, connection.label.height.value};
        if (label.width > 0)
            label.height += 2 * kAboveLabel;
        diagram.connections.push_back({connection.from, connection.to, label});
    }
    return diagram;
}

void moveTo(Rect& place, Point leftTop) noexcept {
    place.left = leftTop.x;
    place.top = leftTop.y;
}

/// A loop's place along its box, which is as high as the box and its stubs were.
[[nodiscard]] Twips alongBox(const Rect& box, Twips y) noexcept {
    const std::int64_t height = std::max(box.height.value, 1);
    const std::int64_t down = std::int64_t{y.value} - box.top.value + kStub;
    return box.top + Twips{static_cast<std::int32_t>(down * height / (height + 2 * kStub))};
}

/// From the stub's end, where the layout saw the box, to the box.
[[nodiscard]] Point atBox(const Rect& box, Point end) noexcept {
    return {end.x, end.y < box.top + box.height / 2 ? box.top : box.bottom()};
}

[[nodiscard]] bool isUpright(Point a, Point b, Point c) noexcept {
    return a.x == b.x && b.x == c.x;
}

[[nodiscard]] std::vector<Point> lineOf(const DiagramModel& model, const Connection& connection,
                                        const std::vector<layout::Place>& places) {
    std::vector<Point> line;
    const Rect& from = model.boxes[connection.from].place;
    const auto append = [&](Point point) {
        if (line.size() >= 2 && isUpright(line[line.size() - 2], line.back(), point))
            line.pop_back();
        line.push_back(point);
    };
    if (connection.from == connection.to) {
        for (const layout::Place& place : places) {
            const Point point = fromLayout(place);
            line.push_back({point.x, alongBox(from, point.y)});
        }
        return line;
    }
    append(atBox(from, fromLayout(places.front())));
    for (const layout::Place& place : places)
        append(fromLayout(place));
    append(atBox(model.boxes[connection.to].place, fromLayout(places.back())));
    return line;
}

}  // namespace

bool arrangeDiagram(DiagramModel& model, const Measure& measure, const layout::Progress& progress) {
    fitSizes(model, measure);
    const auto arrangement = layout::arrange(toLayout(model), kGaps, progress);
    if (!arrangement)
        return false;
    for (std::size_t box = 0; box < model.boxes.size(); ++box) {
        const layout::Place& place = arrangement->boxes[box];
        moveTo(model.boxes[box].place, fromLayout({place.x, place.y + kStub}));
    }
    for (std::size_t number = 0; number < model.connections.size(); ++number) {
        Connection& connection = model.connections[number];
        connection.line = lineOf(model, connection, arrangement->lines[number]);
        const layout::Place& place = arrangement->labels[number];
        if (connection.label.width.value > 0)
            moveTo(connection.label, fromLayout({place.x, place.y + kAboveLabel}));
    }
    return true;
}

void connectStraight(DiagramModel& model, const Measure& measure) {
    fitSizes(model, measure);
    std::map<std::pair<std::size_t, std::size_t>, std::int32_t> between;
    for (Connection& connection : model.connections) {
        const auto ends = std::minmax(connection.from, connection.to);
        const std::int32_t earlier = between[ends]++;
        const Rect& from = model.boxes[connection.from].place;
        const Twips width = connection.label.width, height = connection.label.height;
        if (connection.from == connection.to) {
            connection.line = loopLine(from, earlier);
            moveTo(connection.label, {connection.line[1].x + kBesideLoop, connection.line[1].y});
            continue;
        }
        const bool isForth = connection.from == ends.first;
        connection.line = straightLine(from, model.boxes[connection.to].place, isForth ? earlier : -earlier);
        const double part = kLabelParts[static_cast<std::size_t>(earlier) % kLabelParts.size()];
        const Point middle = pointAlong(connection.line, isForth ? part : 1 - part);
        moveTo(connection.label, {middle.x - width / 2, middle.y - height / 2});
    }
}

}  // namespace quorel::diagram
