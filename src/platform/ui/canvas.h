#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string_view>

#include "platform/ui/colour.h"
#include "platform/ui/font.h"
#include "platform/ui/picture.h"
#include "platform/ui/units.h"

namespace quorel::ui {

/// A line's look. A width of 0 is the thinnest line that there is, at every scale.
struct Pen {
    Colour colour;
    Twips width;
    bool dashed = false;
};

/// How a drawing lies on a canvas: its point `origin` at the left top corner of `clip`, `scale` times as
/// large. `clip` is in twips of the canvas, everything drawn in twips of the drawing.
struct CanvasView {
    Rect clip;
    Point origin;
    double scale = 1;
};

/// Something to draw on: a window, a picture, a file of drawing commands. What is outside the view's clip is
/// not seen. Fonts keep their proportion to the drawing at every scale.
class Canvas {
  public:
    virtual ~Canvas() = default;

    /// For what is drawn from here on.
    virtual void setView(const CanvasView& view) = 0;
    virtual void fillRectangle(const Rect& place, Colour colour) = 0;
    /// The outline alone.
    virtual void drawRectangle(const Rect& place, const Pen& pen) = 0;
    virtual void drawLines(std::span<const Point> points, const Pen& pen) = 0;
    virtual void drawPolygon(std::span<const Point> points, Colour fill, const Pen& outline) = 0;
    /// One line of text from its left top corner on, without marks of access keys.
    virtual void drawText(Point place, std::u16string_view line, const Font& font, Colour colour) = 0;
    /// Stretched to that place.
    virtual void drawPicture(const Rect& place, const std::shared_ptr<const Picture>& picture) = 0;
};

}  // namespace quorel::ui
