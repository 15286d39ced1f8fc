#pragma once

#include <cstddef>
#include <functional>
#include <vector>

#include "diagram/diagram_drawing.h"
#include "diagram/palette.h"

namespace quorel::diagram {

/// How strong something is drawn.
enum class Weight : std::uint8_t { Pale, Normal, Neighbour, Accent };

/// The strokes of one drawing: every method draws one thing of a diagram.
class Painting {
  public:
    Painting(ui::Canvas& canvas, const DiagramModel& model, const ui::Rect& visible, Detail detail,
             ui::Colour paper)
        : canvas_(canvas), model_(model), visible_(visible), detail_(detail), paper_(paper) {}

    void paper() { canvas_.fillRectangle(visible_, paper_); }
    void plainBox(const Box& box, Weight weight);
    /// Below everything else: lines begin at the box.
    void shadow(const Box& box);
    void box(const Box& box, const Shape& shape, Weight weight);
    void line(const Connection& connection, Weight weight);
    void label(const Connection& connection, const Shape& shape, Weight weight);

  private:
    [[nodiscard]] ui::Colour shade(ui::Colour colour, Weight weight) const noexcept {
        return weight == Weight::Pale ? palette::paler(colour, paper_) : colour;
    }
    [[nodiscard]] ui::Colour colourOf(TextRole role) const noexcept;
    void texts(const Shape& shape, ui::Point corner, Weight weight);

    ui::Canvas& canvas_;
    const DiagramModel& model_;
    ui::Rect visible_;
    Detail detail_;
    ui::Colour paper_;
};

}  // namespace quorel::diagram
