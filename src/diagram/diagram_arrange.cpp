#include "diagram/diagram_arrange.h"

#include <algorithm>
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

[[nodiscard]] Twips fromLayout(layout::Length length) noexcept {
    constexpr layout::Length kMost = std::numeric_limits<std::int32_t>::max() / 2;
    return {static_cast<std::int32_t>(std::clamp<layout::Length>(length + kDrawingMargin.value, 0, kMost))};
}

[[nodiscard]] Point fromLayout(layout::Place place) noexcept {
    return {fromLayout(place.x), fromLayout(place.y)};
}

[[nodiscard]] layout::Extent toLayout(const Rect& place) noexcept {
    return {place.width.value, place.height.value};
}

[[nodiscard]] layout::Diagram toLayout(const DiagramModel& model) {
    layout::Diagram diagram;
    diagram.boxes.reserve(model.boxes.size());
    for (const Box& box : model.boxes)
        diagram.boxes.push_back(toLayout(box.place));
    diagram.connections.reserve(model.connections.size());
    for (const Connection& connection : model.connections)
        diagram.connections.push_back({connection.from, connection.to, toLayout(connection.label)});
    return diagram;
}

void moveTo(Rect& place, Point leftTop) noexcept {
    place.left = leftTop.x;
    place.top = leftTop.y;
}

}  // namespace

bool arrangeDiagram(DiagramModel& model, const Measure& measure, const layout::Progress& progress) {
    fitSizes(model, measure);
    const auto arrangement = layout::arrange(toLayout(model), {}, progress);
    if (!arrangement)
        return false;
    for (std::size_t box = 0; box < model.boxes.size(); ++box)
        moveTo(model.boxes[box].place, fromLayout(arrangement->boxes[box]));
    for (std::size_t number = 0; number < model.connections.size(); ++number) {
        Connection& connection = model.connections[number];
        connection.line.clear();
        for (const layout::Place& place : arrangement->lines[number])
            connection.line.push_back(fromLayout(place));
        moveTo(connection.label, fromLayout(arrangement->labels[number]));
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
        connection.line = connection.from == connection.to
                              ? loopLine(from, earlier)
                              : straightLine(from, model.boxes[connection.to].place,
                                             connection.from == ends.first ? earlier : -earlier);
        const Point middle = middleOf(connection.line);
        moveTo(connection.label, {middle.x + kBesideLine, middle.y - connection.label.height / 2});
    }
}

}  // namespace quorel::diagram
