#pragma once

#include <cmath>

#include "platform/ui/canvas.h"
#include "platform/ui/raster.h"

namespace quorel::ui {

/// Where on a device a drawing's points are, for what implements a canvas. `unitsPerTwip` of the device are
/// one twip of the canvas, whose point 0, 0 is at `corner`.
class CanvasMapping {
  public:
    explicit CanvasMapping(double unitsPerTwip, RasterPoint corner = {}) noexcept
        : unitsPerTwip_(unitsPerTwip), corner_(corner), scale_(unitsPerTwip), origin_(corner) {}

    void setView(const CanvasView& view) noexcept {
        scale_ = unitsPerTwip_ * view.scale;
        origin_ = {corner_.x + view.clip.left.value * unitsPerTwip_ - view.origin.x.value * scale_,
                   corner_.y + view.clip.top.value * unitsPerTwip_ - view.origin.y.value * scale_};
    }
    /// Units of the device a twip of the drawing.
    [[nodiscard]] double scale() const noexcept { return scale_; }
    [[nodiscard]] RasterPoint at(Point point) const noexcept {
        return {origin_.x + point.x.value * scale_, origin_.y + point.y.value * scale_};
    }
    /// Edges are rounded, so that neighbours stay neighbours.
    [[nodiscard]] PixelRect pixels(const Rect& place) const noexcept {
        const RasterPoint first = at({place.left, place.top}), last = at({place.right(), place.bottom()});
        return {rounded(first.x), rounded(first.y), rounded(last.x), rounded(last.y)};
    }
    /// Of a rectangle in twips of the canvas.
    [[nodiscard]] PixelRect canvasPixels(const Rect& place) const noexcept {
        return {rounded(corner_.x + place.left.value * unitsPerTwip_),
                rounded(corner_.y + place.top.value * unitsPerTwip_),
                rounded(corner_.x + place.right().value * unitsPerTwip_),
                rounded(corner_.y + place.bottom().value * unitsPerTwip_)};
    }
    [[nodiscard]] static std::int32_t rounded(double value) noexcept {
        constexpr double kMost = 100'000'000;
        return static_cast<std::int32_t>(std::floor(std::min(kMost, std::max(-kMost, value)) + 0.5));
    }

  private:
    double unitsPerTwip_;
    RasterPoint corner_;
    double scale_;
    RasterPoint origin_;
};

}  // namespace quorel::ui
