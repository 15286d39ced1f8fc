#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "diagram/diagram_index.h"
#include "diagram/diagram_model.h"
#include "diagram/diagram_sizes.h"
#include "platform/ui/canvas.h"

namespace quorel::diagram {

/// How much of a diagram can be read at a scale.
enum class Detail : std::uint8_t {
    Plain,  ///< boxes as plain rectangles, lines as hair lines
    Boxes,  ///< boxes with their header, no text
    Names,  ///< names and labels, no properties
    Full
};

[[nodiscard]] Detail detailAt(const DiagramModel& model, double scale);

/// The box that the user has chosen and the one under the mouse; -1 for none. The one under the mouse, else
/// the chosen one, is shown with its neighbours, and the rest paler.
struct Emphasis {
    std::ptrdiff_t selected = -1;
    std::ptrdiff_t hovered = -1;
};

class Painting;

/// Draws a diagram. Only what a part of it needs is looked at, and texts are measured when they are first
/// seen.
class DiagramDrawing {
  public:
    DiagramDrawing(std::shared_ptr<const DiagramModel> model, Measure measure);

    /// Boxes and lines have got other places, or hold something else. Costs the diagram's size.
    void refresh();
    /// One box was moved, its connections with it. The extent grows, and never shrinks before the next
    /// `refresh`.
    void boxMoved(std::size_t box);

    /// All there is to see, with a margin; begins at 0, 0 unless something lies left of or above that.
    [[nodiscard]] ui::Rect extent() const noexcept { return extent_; }

    /// Draws what lies in `visible`, with the paper, as it looks at `scale`. The canvas has its view already.
    void draw(ui::Canvas& canvas, const ui::Rect& visible, double scale, const Emphasis& emphasis = {}) const;
    /// All of it in full, on white: for paper and files.
    void drawAll(ui::Canvas& canvas) const;
    /// Every box as a plain rectangle, no narrower or lower than that, and nothing else.
    void drawOverview(ui::Canvas& canvas, ui::Twips leastSide) const;

    /// The topmost box there; -1 if there is none.
    [[nodiscard]] std::ptrdiff_t boxAt(ui::Point point) const;
    /// The connections that begin or end at that box, each once.
    [[nodiscard]] const std::vector<std::size_t>& connectionsOf(std::size_t box) const;
    /// The other boxes at their ends, in order.
    [[nodiscard]] std::vector<std::size_t> neighboursOf(std::size_t box) const;

    [[nodiscard]] const DiagramModel& model() const noexcept { return *model_; }

  private:
    class Weights;

    void drawPart(ui::Canvas& canvas, const ui::Rect& visible, Detail detail, const Emphasis& emphasis,
                  ui::Colour paper) const;
    template <class IsDrawn>
    void drawLayer(Painting& painting, const DiagramIndex::Found& found, const Weights& weights,
                   Detail detail, const IsDrawn& isDrawn) const;
    [[nodiscard]] const Shape& shapeOfBox(std::size_t box) const;
    [[nodiscard]] const Shape& shapeOfLabel(std::size_t connection) const;

    std::shared_ptr<const DiagramModel> model_;
    Measure measure_;
    DiagramIndex index_;
    ui::Rect extent_;
    std::vector<std::vector<std::size_t>> connectionsOf_;
    /// Made when first needed.
    mutable std::vector<std::unique_ptr<const Shape>> boxShapes_, labelShapes_;
};

}  // namespace quorel::diagram
