#pragma once

#include "platform/ui/canvas.h"
#include "platform/ui/units.h"

namespace quorel::diagram {

/// How a drawing is seen through a window: how large, and which point of it is in the middle. The middle is
/// always a point of the drawing, so that it is never lost. Lengths of the window and of the drawing are
/// twips; at a scale of 1 one is as long as the other.
class ViewState {
  public:
    static constexpr double kLargest = 4;
    /// The least scale, where the whole drawing does not ask for a smaller one.
    static constexpr double kSmallest = 0.1;
    /// By which a command makes it larger or smaller.
    static constexpr double kStep = 1.25;

    /// What there is to see. What was in the middle stays there as far as it can.
    void setExtent(const ui::Rect& extent);
    /// The same point stays in the middle.
    void setWindow(ui::Size window);

    [[nodiscard]] double scale() const noexcept { return scale_; }
    [[nodiscard]] const ui::Rect& extent() const noexcept { return extent_; }
    [[nodiscard]] ui::Size window() const noexcept { return window_; }
    [[nodiscard]] ui::Point middle() const noexcept;

    /// Larger by `factor`, within the limits; what is at that point of the window stays there. A change that
    /// passes the scale of 1 stops there.
    void zoomAbout(ui::Point at, double factor);
    void zoom(double factor);
    void setScale(double scale);
    /// The whole drawing, as large as it can be but no larger than it is, in the middle.
    void fit();
    /// By that much of the window; positive moves the drawing to the right and down.
    void panBy(ui::Point by);
    void centreOn(ui::Point point);
    void centreOn(const ui::Rect& place);
    /// Moves no more than needed for the place to be seen; its left top corner is, when it is larger.
    void reveal(const ui::Rect& place);

    [[nodiscard]] ui::Point toDrawing(ui::Point at) const noexcept;
    [[nodiscard]] ui::Point toWindow(ui::Point point) const noexcept;
    [[nodiscard]] ui::Rect toWindow(const ui::Rect& place) const noexcept;
    /// The part of the drawing that the window shows, with what lies round the drawing.
    [[nodiscard]] ui::Rect seen() const noexcept;
    /// The drawing where it is painted in that part of the window.
    [[nodiscard]] ui::CanvasView canvasView(const ui::Rect& clip) const noexcept;

    [[nodiscard]] double fittingScale() const noexcept;

  private:
    [[nodiscard]] double limited(double scale) const noexcept;
    void confine() noexcept;

    ui::Rect extent_;
    ui::Size window_;
    double scale_ = 1;
    double x_ = 0, y_ = 0;  ///< of the drawing, in the middle of the window
};

}  // namespace quorel::diagram
