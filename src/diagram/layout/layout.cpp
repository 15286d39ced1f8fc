#include "diagram/layout/layout.h"

#include <stdexcept>

#include "diagram/layout/component.h"
#include "diagram/layout/watch.h"

namespace quorel::diagram::layout {
namespace {

Arrangement emptyArrangement(const Diagram& diagram) {
    const std::size_t boxes = diagram.boxes.size(), connections = diagram.connections.size();
    Arrangement result;
    result.boxes.resize(boxes);
    result.ranks.resize(boxes);
    result.lines.resize(connections);
    result.reversed.resize(connections);
    result.labels.resize(connections);
    return result;
}

void move(const Diagram& diagram, const Component& component, Place by, Arrangement& result) {
    const auto shift = [&by](Place& place) { place.x += by.x, place.y += by.y; };
    for (const int box : component.boxes)
        shift(result.boxes[static_cast<std::size_t>(box)]);
    for (const int connection : component.connections) {
        const auto c = static_cast<std::size_t>(connection);
        for (Place& point : result.lines[c])
            shift(point);
        if (diagram.connections[c].label.width > 0 || diagram.connections[c].label.height > 0)
            shift(result.labels[c]);
    }
}

Arrangement arrangeAll(const Diagram& diagram, const Gaps& gaps, Watch& watch) {
    Arrangement result = emptyArrangement(diagram);
    const std::vector<Component> components = splitIntoComponents(diagram);
    const std::size_t total = diagram.boxes.size() + diagram.connections.size();
    std::vector<Extent> sizes;
    std::size_t done = 0;
    const auto permille = [&] { return static_cast<int>(done * 1000 / total); };
    for (const Component& component : components) {
        const int from = permille();
        done += component.boxes.size() + component.connections.size();
        sizes.push_back(arrangeComponent(diagram, component, gaps, watch, from, permille(), result));
    }
    std::vector<Place> places;
    result.size = pack(sizes, gaps.components, places);
    for (std::size_t i = 0; i < components.size(); ++i)
        move(diagram, components[i], places[i], result);
    watch.enter(1000, 1000);
    return result;
}

}  // namespace

std::optional<Arrangement> arrange(const Diagram& diagram, const Gaps& gaps, const Progress& progress) {
    for (const Connection& connection : diagram.connections)
        if (connection.from >= diagram.boxes.size() || connection.to >= diagram.boxes.size())
            throw std::out_of_range("a connection's end is no box");
    try {
        Watch watch(progress);
        return arrangeAll(diagram, gaps, watch);
    } catch (const Cancelled&) {
        return std::nullopt;
    }
}

}  // namespace quorel::diagram::layout
