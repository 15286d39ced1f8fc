#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "diagram/diagram_model.h"
#include "platform/ui/units.h"

namespace quorel::diagram {

/// What lies where: a grid whose cells know the boxes and connections that touch them.
class DiagramIndex {
  public:
    struct Found {
        std::vector<std::size_t> boxes, connections;  ///< in the diagram's order
    };

    void build(const DiagramModel& model);
    /// From now on found by its present place; where it was it is looked at in vain.
    void addBox(std::size_t box);
    void addConnections(const std::vector<std::size_t>& connections);

    /// Everything that touches `area`, the lines' labels and arrow heads too.
    [[nodiscard]] Found find(const DiagramModel& model, const ui::Rect& area) const;

  private:
    struct Cell {
        std::vector<std::uint32_t> boxes, connections;
    };
    struct CellRange {
        std::int32_t left = 0, top = 0, right = 0, bottom = 0;  ///< both ends included
    };

    void measureGrid(const DiagramModel& model);
    [[nodiscard]] CellRange cellsOf(const ui::Rect& area) const noexcept;
    [[nodiscard]] Cell& cell(std::int32_t column, std::int32_t row) noexcept;
    [[nodiscard]] const Cell& cell(std::int32_t column, std::int32_t row) const noexcept;
    void insertConnection(const Connection& connection, std::uint32_t number);
    void insert(const CellRange& range, std::uint32_t connection);
    void insertSegment(ui::Point from, ui::Point to, std::uint32_t number);

    std::int64_t left_ = 0, top_ = 0, cellWidth_ = 1, cellHeight_ = 1;
    std::int32_t side_ = 1;
    std::vector<Cell> cells_;
    std::vector<std::size_t> movedBoxes_, movedConnections_;
};

}  // namespace quorel::diagram
