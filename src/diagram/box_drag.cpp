#include "diagram/box_drag.h"

#include <utility>

#include "diagram/connection_follow.h"

namespace quorel::diagram {

BoxDrag::BoxDrag(DiagramModel& model, std::size_t box, const std::vector<std::size_t>& connections)
    : model_(model), box_(box), place_(model.boxes.at(box).place) {
    connections_.reserve(connections.size());
    for (const std::size_t index : connections)
        connections_.push_back({index, model.connections.at(index)});
}

void BoxDrag::moveBy(ui::Point by) {
    using ui::operator|;
    ui::Rect& place = model_.boxes[box_].place;
    place = {place_.left + by.x, place_.top + by.y, place_.width, place_.height};
    for (const Kept& kept : connections_) {
        const Ends ends = (kept.before.from == box_ ? Ends::From : Ends::None) |
                          (kept.before.to == box_ ? Ends::To : Ends::None);
        Followed now = follow(kept.before, ends, place, by);
        model_.connections[kept.index].line = std::move(now.line);
        model_.connections[kept.index].label = now.label;
    }
}

void BoxDrag::undo() {
    model_.boxes[box_].place = place_;
    for (const Kept& kept : connections_) {
        model_.connections[kept.index].line = kept.before.line;
        model_.connections[kept.index].label = kept.before.label;
    }
}

}  // namespace quorel::diagram
