#pragma once

#include <cstdint>
#include <span>

#include "platform/ui/colour.h"
#include "platform/ui/picture.h"
#include "platform/ui/units.h"

namespace quorel::ui {

/// Pixels that somebody else owns: rows from the top without gaps, each pixel 0x00RRGGBB.
struct PixelSurface {
    std::uint32_t* pixels = nullptr;
    std::int32_t width = 0, height = 0;
};

/// A place in pixels; 0, 0 is the left top corner of the first one.
struct RasterPoint {
    double x = 0, y = 0;
};

// Everything below changes only what is inside both the surface and `clip`, and is smooth at its edges.

void fillArea(const PixelSurface& surface, const PixelRect& clip, const PixelRect& area, Colour colour);

/// A stroke with round ends, `width` pixels wide, at least one. Upright and level ones cover whole pixels.
void drawStroke(const PixelSurface& surface, const PixelRect& clip, RasterPoint from, RasterPoint to,
                double width, Colour colour);

/// Through all points. Dashes are five widths long and three apart, and run on around corners.
void drawStrokes(const PixelSurface& surface, const PixelRect& clip, std::span<const RasterPoint> points,
                 double width, bool dashed, Colour colour);

/// The same one pixel wide and not smooth, for where there are very many of them.
void drawCoarseStrokes(const PixelSurface& surface, const PixelRect& clip,
                       std::span<const RasterPoint> points, Colour colour);

/// Closes itself; where it overlaps itself an even number of times it is open.
void fillPolygon(const PixelSurface& surface, const PixelRect& clip, std::span<const RasterPoint> points,
                 Colour colour);

/// In its own size with its left top corner there; nothing when it is not whole.
void blendPicture(const PixelSurface& surface, const PixelRect& clip, std::int32_t left, std::int32_t top,
                  const Picture& picture);

}  // namespace quorel::ui
