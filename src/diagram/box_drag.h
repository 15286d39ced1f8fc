#pragma once

#include <cstddef>
#include <vector>

#include "diagram/diagram_model.h"

namespace quorel::diagram {

/// A box on its way with the mouse, its connections following. Every place is computed from where all was at
/// first, so that a box that comes back finds its lines as they were.
class BoxDrag {
  public:
    /// `connections` are those that begin or end at the box, each once. The model outlives the drag and keeps
    /// its boxes and connections meanwhile.
    BoxDrag(DiagramModel& model, std::size_t box, const std::vector<std::size_t>& connections);

    [[nodiscard]] std::size_t box() const noexcept { return box_; }
    /// By that much from where it was at first.
    void moveBy(ui::Point by);
    void undo();

  private:
    struct Kept {
        std::size_t index = 0;
        Connection before;
    };

    DiagramModel& model_;
    std::size_t box_;
    ui::Rect place_;
    std::vector<Kept> connections_;
};

}  // namespace quorel::diagram
