#include "diagram/diagram_index.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace quorel::diagram {

using ui::Point;
using ui::Rect;

namespace {

constexpr std::int32_t kMostCellsASide = 128;
/// Heads of arrows and rounded corners stay within that of their line.
constexpr std::int32_t kBesideLines = 150;

struct Bounds {
    std::int64_t left = std::numeric_limits<std::int64_t>::max(), top = left;
    std::int64_t right = std::numeric_limits<std::int64_t>::min(), bottom = right;

    void add(Point point) noexcept {
        left = std::min<std::int64_t>(left, point.x.value);
        top = std::min<std::int64_t>(top, point.y.value);
        right = std::max<std::int64_t>(right, point.x.value);
        bottom = std::max<std::int64_t>(bottom, point.y.value);
    }
    void add(const Rect& place) noexcept {
        add(Point{place.left, place.top});
        add(Point{place.right(), place.bottom()});
    }
};

[[nodiscard]] bool touches(const Rect& a, const Rect& b) noexcept {
    return a.left <= b.right() && b.left <= a.right() && a.top <= b.bottom() && b.top <= a.bottom();
}

[[nodiscard]] bool touches(const Connection& connection, const Rect& area) noexcept {
    if (connection.label.width.value > 0 && touches(connection.label, area))
        return true;
    for (std::size_t at = 1; at < connection.line.size(); ++at) {
        const auto [left, right] = std::minmax(connection.line[at - 1].x.value, connection.line[at].x.value);
        const auto [top, bottom] = std::minmax(connection.line[at - 1].y.value, connection.line[at].y.value);
        if (left - kBesideLines <= area.right().value && area.left.value <= right + kBesideLines &&
            top - kBesideLines <= area.bottom().value && area.top.value <= bottom + kBesideLines)
            return true;
    }
    return false;
}

template <class Numbers>
void keepOnce(Numbers& numbers) {
    std::sort(numbers.begin(), numbers.end());
    numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
}

/// Marks numbers, each once, and tells them in order.
class Marks {
  public:
    explicit Marks(std::size_t size) : marked_(size) {}
    void add(std::size_t number) {
        if (number < marked_.size() && !marked_[number]) {
            marked_[number] = true;
            numbers_.push_back(number);
        }
    }
    [[nodiscard]] std::vector<std::size_t> take() {
        std::sort(numbers_.begin(), numbers_.end());
        return std::move(numbers_);
    }

  private:
    std::vector<bool> marked_;
    std::vector<std::size_t> numbers_;
};

}  // namespace

void DiagramIndex::measureGrid(const DiagramModel& model) {
    left_ = top_ = 0, cellWidth_ = cellHeight_ = side_ = 1;
    if (model.boxes.empty())
        return;
    Bounds bounds;
    for (const Box& box : model.boxes)
        bounds.add(box.place);
    for (const Connection& connection : model.connections) {
        for (const Point& point : connection.line)
            bounds.add(point);
        if (connection.label.width.value > 0)
            bounds.add(connection.label);
    }
    if (model.boxes.empty())
        bounds.add(Point{});
    const double things = static_cast<double>(model.boxes.size() + model.connections.size());
    side_ = std::clamp(static_cast<std::int32_t>(std::sqrt(things)), 1, kMostCellsASide);
    left_ = bounds.left;
    top_ = bounds.top;
    cellWidth_ = (bounds.right - bounds.left) / side_ + 1;
    cellHeight_ = (bounds.bottom - bounds.top) / side_ + 1;
}

void DiagramIndex::build(const DiagramModel& model) {
    measureGrid(model);
    cells_.assign(static_cast<std::size_t>(side_) * static_cast<std::size_t>(side_), {});
    movedBoxes_.clear();
    movedConnections_.clear();
    for (std::size_t box = 0; box < model.boxes.size(); ++box) {
        const CellRange range = cellsOf(model.boxes[box].place);
        for (std::int32_t row = range.top; row <= range.bottom; ++row)
            for (std::int32_t column = range.left; column <= range.right; ++column)
                cell(column, row).boxes.push_back(static_cast<std::uint32_t>(box));
    }
    for (std::size_t number = 0; number < model.connections.size(); ++number)
        insertConnection(model.connections[number], static_cast<std::uint32_t>(number));
}

void DiagramIndex::addBox(std::size_t box) {
    movedBoxes_.push_back(box);
    keepOnce(movedBoxes_);
}

void DiagramIndex::addConnections(const std::vector<std::size_t>& connections) {
    movedConnections_.insert(movedConnections_.end(), connections.begin(), connections.end());
    keepOnce(movedConnections_);
}

DiagramIndex::CellRange DiagramIndex::cellsOf(const Rect& area) const noexcept {
    const auto column = [this](std::int64_t x) {
        return static_cast<std::int32_t>(std::clamp<std::int64_t>((x - left_) / cellWidth_, 0, side_ - 1));
    };
    const auto row = [this](std::int64_t y) {
        return static_cast<std::int32_t>(std::clamp<std::int64_t>((y - top_) / cellHeight_, 0, side_ - 1));
    };
    return {column(area.left.value), row(area.top.value),
            column(std::int64_t{area.left.value} + area.width.value),
            row(std::int64_t{area.top.value} + area.height.value)};
}

DiagramIndex::Cell& DiagramIndex::cell(std::int32_t column, std::int32_t row) noexcept {
    return cells_[static_cast<std::size_t>(row) * static_cast<std::size_t>(side_) +
                  static_cast<std::size_t>(column)];
}

const DiagramIndex::Cell& DiagramIndex::cell(std::int32_t column, std::int32_t row) const noexcept {
    return const_cast<DiagramIndex*>(this)->cell(column, row);
}

void DiagramIndex::insertConnection(const Connection& connection, std::uint32_t number) {
    for (std::size_t at = 1; at < connection.line.size(); ++at)
        insertSegment(connection.line[at - 1], connection.line[at], number);
    if (connection.label.width.value > 0)
        insert(cellsOf(connection.label), number);
}

void DiagramIndex::insertSegment(Point from, Point to, std::uint32_t number) {
    if (from.y > to.y)
        std::swap(from, to);
    const std::int64_t width = std::int64_t{to.x.value} - from.x.value;
    const std::int64_t height = std::int64_t{to.y.value} - from.y.value;
    const CellRange rows = cellsOf({from.x, from.y, {}, {static_cast<std::int32_t>(height)}});
    // Row by row, for a slanted line touches few cells of the rectangle around it.
    for (std::int32_t row = rows.top; row <= rows.bottom; ++row) {
        const auto xAt = [&](std::int64_t y) {
            const std::int64_t down = std::clamp<std::int64_t>(y - from.y.value, 0, height);
            return from.x.value + (height == 0 ? width : width * down / height);
        };
        const std::int64_t enters = height == 0 ? from.x.value : xAt(top_ + row * cellHeight_);
        const std::int64_t leaves = xAt(top_ + (row + 1) * cellHeight_);
        const auto [left, right] = std::minmax(enters, leaves);
        CellRange range = cellsOf({{static_cast<std::int32_t>(left) - kBesideLines},
                                   {},
                                   {static_cast<std::int32_t>(right - left) + 2 * kBesideLines},
                                   {}});
        range.top = range.bottom = row;
        insert(range, number);
    }
}

void DiagramIndex::insert(const CellRange& range, std::uint32_t connection) {
    for (std::int32_t row = range.top; row <= range.bottom; ++row) {
        for (std::int32_t column = range.left; column <= range.right; ++column) {
            std::vector<std::uint32_t>& known = cell(column, row).connections;
            if (known.empty() || known.back() != connection)
                known.push_back(connection);
        }
    }
}

DiagramIndex::Found DiagramIndex::find(const DiagramModel& model, const Rect& area) const {
    Marks boxes(model.boxes.size()), connections(model.connections.size());
    const auto look = [&](std::size_t box) {
        if (box < model.boxes.size() && touches(model.boxes[box].place, area))
            boxes.add(box);
    };
    const auto lookAlong = [&](std::size_t number) {
        if (number < model.connections.size() && touches(model.connections[number], area))
            connections.add(number);
    };
    // What sticks out of a line beside it may lie in the row above or below.
    const CellRange range = cells_.empty() ? CellRange{0, 0, -1, -1}
                                           : cellsOf({area.left, area.top - ui::Twips{kBesideLines},
                                                      area.width, area.height + ui::Twips{2 * kBesideLines}});
    for (std::int32_t row = range.top; row <= range.bottom; ++row) {
        for (std::int32_t column = range.left; column <= range.right; ++column) {
            const Cell& here = cell(column, row);
            std::for_each(here.boxes.begin(), here.boxes.end(), look);
            std::for_each(here.connections.begin(), here.connections.end(), lookAlong);
        }
    }
    std::for_each(movedBoxes_.begin(), movedBoxes_.end(), look);
    std::for_each(movedConnections_.begin(), movedConnections_.end(), lookAlong);
    return {boxes.take(), connections.take()};
}

}  // namespace quorel::diagram
