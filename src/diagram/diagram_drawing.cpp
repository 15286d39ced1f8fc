#include "diagram/diagram_drawing.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <utility>

#include "diagram/diagram_arrange.h"
#include "diagram/painting.h"

namespace quorel::diagram {

using ui::Point;
using ui::Rect;
using ui::Twips;

namespace {

/// From how many points on, as they are seen, a text can be read or guessed.
constexpr double kReadable = 4.5, kGuessed = 3.5;
/// Below this a header is a few pixels high.
constexpr double kShowsHeaders = 0.09;

/// Grows around what is added, with a margin; holds 0, 0.
class Extent {
  public:
    explicit Extent(const Rect& begin = {})
        : left_(begin.left.value),
          top_(begin.top.value),
          right_(left_ + begin.width.value),
          bottom_(top_ + begin.height.value) {}

    void add(const Box& box) { add(box.place); }
    void add(const Connection& connection) {
        for (const Point& point : connection.line)
            add(point);
        if (connection.label.width.value > 0)
            add(connection.label);
    }
    [[nodiscard]] Rect rect() const noexcept {
        constexpr std::int64_t kMost = std::numeric_limits<std::int32_t>::max();
        const auto twips = [](std::int64_t length) { return Twips{static_cast<std::int32_t>(length)}; };
        return {twips(std::max(left_, -kMost / 2)), twips(std::max(top_, -kMost / 2)),
                twips(std::min(right_ - left_, kMost)), twips(std::min(bottom_ - top_, kMost))};
    }

  private:
    void add(Point point) {
        left_ = std::min<std::int64_t>(left_, std::int64_t{point.x.value} - kDrawingMargin.value);
        top_ = std::min<std::int64_t>(top_, std::int64_t{point.y.value} - kDrawingMargin.value);
        right_ = std::max<std::int64_t>(right_, std::int64_t{point.x.value} + kDrawingMargin.value);
        bottom_ = std::max<std::int64_t>(bottom_, std::int64_t{point.y.value} + kDrawingMargin.value);
    }
    void add(const Rect& place) {
        add(Point{place.left, place.top});
        add(Point{place.right(), place.bottom()});
    }

    std::int64_t left_, top_, right_, bottom_;
};

[[nodiscard]] Rect extentOf(const DiagramModel& model) {
    Extent extent;
    for (const Box& box : model.boxes)
        extent.add(box);
    for (const Connection& connection : model.connections)
        extent.add(connection);
    return extent.rect();
}

}  // namespace

Detail detailAt(const DiagramModel& model, double scale) {
    const auto points = [&](TextRole role) { return pointsOf(fontOf(model, role)) * scale; };
    if (points(TextRole::Property) >= kReadable)
        return Detail::Full;
    if (points(TextRole::Name) >= kGuessed)
        return Detail::Names;
    return scale >= kShowsHeaders ? Detail::Boxes : Detail::Plain;
}

/// Who is drawn how.
class DiagramDrawing::Weights {
  public:
    Weights(const DiagramDrawing& drawing, const Emphasis& emphasis) : emphasis_(emphasis) {
        const std::ptrdiff_t focus = emphasis.hovered >= 0 ? emphasis.hovered : emphasis.selected;
        if (focus < 0 || static_cast<std::size_t>(focus) >= drawing.model_->boxes.size())
            return;
        focus_ = focus;
        for (const std::size_t box : drawing.neighboursOf(static_cast<std::size_t>(focus)))
            neighbours_.push_back(box);
    }
    [[nodiscard]] bool areUneven() const noexcept { return focus_ >= 0; }
    [[nodiscard]] Weight of(const Box&, std::size_t box) const {
        const auto number = static_cast<std::ptrdiff_t>(box);
        if (number == focus_ || number == emphasis_.selected)
            return Weight::Accent;
        if (focus_ < 0)
            return Weight::Normal;
        return std::binary_search(neighbours_.begin(), neighbours_.end(), box) ? Weight::Neighbour
                                                                               : Weight::Pale;
    }
    [[nodiscard]] Weight of(const Connection& connection, std::size_t) const noexcept {
        if (focus_ < 0)
            return Weight::Normal;
        const auto focus = static_cast<std::size_t>(focus_);
        return connection.from == focus || connection.to == focus ? Weight::Accent : Weight::Pale;
    }

  private:
    Emphasis emphasis_;
    std::ptrdiff_t focus_ = -1;
    std::vector<std::size_t> neighbours_;
};

DiagramDrawing::DiagramDrawing(std::shared_ptr<const DiagramModel> model, Measure measure)
    : model_(std::move(model)), measure_(std::move(measure)) {
    refresh();
}

void DiagramDrawing::refresh() {
    index_.build(*model_);
    extent_ = extentOf(*model_);
    connectionsOf_.assign(model_->boxes.size(), {});
    for (std::size_t number = 0; number < model_->connections.size(); ++number) {
        const Connection& connection = model_->connections[number];
        connectionsOf_[connection.from].push_back(number);
        if (connection.to != connection.from)
            connectionsOf_[connection.to].push_back(number);
    }
    boxShapes_.clear();
    boxShapes_.resize(model_->boxes.size());
    labelShapes_.clear();
    labelShapes_.resize(model_->connections.size());
}

void DiagramDrawing::boxMoved(std::size_t box) {
    index_.addBox(box);
    index_.addConnections(connectionsOf_.at(box));
    Extent extent(extent_);
    extent.add(model_->boxes.at(box));
    for (const std::size_t number : connectionsOf_[box])
        extent.add(model_->connections[number]);
    extent_ = extent.rect();
}

const Shape& DiagramDrawing::shapeOfBox(std::size_t box) const {
    std::unique_ptr<const Shape>& shape = boxShapes_[box];
    if (!shape)
        shape = std::make_unique<const Shape>(boxShape(*model_, model_->boxes[box], measure_));
    return *shape;
}

const Shape& DiagramDrawing::shapeOfLabel(std::size_t connection) const {
    std::unique_ptr<const Shape>& shape = labelShapes_[connection];
    if (!shape)
        shape = std::make_unique<const Shape>(labelShape(*model_, model_->connections[connection], measure_));
    return *shape;
}

void DiagramDrawing::draw(ui::Canvas& canvas, const Rect& visible, double scale,
                          const Emphasis& emphasis) const {
    drawPart(canvas, visible, detailAt(*model_, scale), emphasis, palette::kPaper);
}

void DiagramDrawing::drawAll(ui::Canvas& canvas) const {
    drawPart(canvas, extent_, Detail::Full, {}, palette::kWhite);
}

void DiagramDrawing::drawOverview(ui::Canvas& canvas, Twips leastSide) const {
    for (const Box& box : model_->boxes) {
        const Rect& place = box.place;
        const bool isSmall = std::min(place.width, place.height) < leastSide * 2;
        canvas.fillRectangle(
            {place.left, place.top, std::max(place.width, leastSide), std::max(place.height, leastSide)},
            isSmall ? palette::kBorder : palette::kPlainBox);
    }
}

void DiagramDrawing::drawPart(ui::Canvas& canvas, const Rect& visible, Detail detail,
                              const Emphasis& emphasis, ui::Colour paper) const {
    const DiagramIndex::Found found = index_.find(*model_, visible);
    const Weights weights(*this, emphasis);
    Painting painting(canvas, *model_, visible, detail, paper);
    painting.paper();
    // What is pale lies below what is looked at.
    if (weights.areUneven())
        drawLayer(painting, found, weights, detail, [](Weight weight) { return weight == Weight::Pale; });
    drawLayer(painting, found, weights, detail, [](Weight weight) { return weight != Weight::Pale; });
}

template <class IsDrawn>
void DiagramDrawing::drawLayer(Painting& painting, const DiagramIndex::Found& found, const Weights& weights,
                               Detail detail, const IsDrawn& isDrawn) const {
    const auto forEachDrawn = [&](const auto& things, const std::vector<std::size_t>& numbers,
                                  auto&& stroke) {
        for (const std::size_t number : numbers) {
            if (const Weight weight = weights.of(things[number], number); isDrawn(weight))
                stroke(things[number], number, weight);
        }
    };
    const auto forEachBox = [&](auto&& stroke) { forEachDrawn(model_->boxes, found.boxes, stroke); };
    const auto forEachConnection = [&](auto&& stroke) {
        forEachDrawn(model_->connections, found.connections, stroke);
    };
    const bool hasTexts = detail >= Detail::Names;
    if (hasTexts)
        forEachBox([&](const Box& box, std::size_t, Weight weight) {
            if (weight != Weight::Pale)
                painting.shadow(box);
        });
    forEachConnection(
        [&](const Connection& connection, std::size_t, Weight weight) { painting.line(connection, weight); });
    if (hasTexts)
        forEachConnection([&](const Connection& connection, std::size_t number, Weight weight) {
            painting.label(connection, shapeOfLabel(number), weight);
        });
    forEachBox([&](const Box& box, std::size_t number, Weight weight) {
        if (detail == Detail::Plain)
            painting.plainBox(box, weight);
        else
            painting.box(box, shapeOfBox(number), weight);
    });
}

std::ptrdiff_t DiagramDrawing::boxAt(Point point) const {
    const DiagramIndex::Found found = index_.find(*model_, {point.x, point.y, {}, {}});
    return found.boxes.empty() ? -1 : static_cast<std::ptrdiff_t>(found.boxes.back());
}

const std::vector<std::size_t>& DiagramDrawing::connectionsOf(std::size_t box) const {
    return connectionsOf_.at(box);
}

std::vector<std::size_t> DiagramDrawing::neighboursOf(std::size_t box) const {
    std::vector<std::size_t> neighbours;
    for (const std::size_t number : connectionsOf(box)) {
        const Connection& connection = model_->connections[number];
        if (connection.from != connection.to)
            neighbours.push_back(connection.from == box ? connection.to : connection.from);
    }
    std::sort(neighbours.begin(), neighbours.end());
    neighbours.erase(std::unique(neighbours.begin(), neighbours.end()), neighbours.end());
    return neighbours;
}

}  // namespace quorel::diagram
