#pragma once

#include <cstdint>
#include <vector>

#include "platform/ui/colour.h"
#include "platform/ui/picture.h"

namespace quorel::ui {

/// A point of a glyph's square, which is 16 by 16 units with its origin at the top left.
struct GlyphPoint {
    double x = 0, y = 0;
};

/// One line through some points, with round ends, or an area.
struct GlyphStroke {
    std::vector<GlyphPoint> points;
    Colour colour;
    double width = 2;     ///< units; no less than a pixel is drawn
    bool closed = false;  ///< the last point is joined to the first
    bool filled = false;  ///< what the closed line encloses is drawn, too
};

/// A small drawing for buttons: strokes over each other, made into pixels for each resolution.
struct Glyph {
    std::vector<GlyphStroke> strokes;
};

inline constexpr double kGlyphUnits = 16;

/// Points along a circle, angles in degrees clockwise from the right.
[[nodiscard]] std::vector<GlyphPoint> glyphArc(GlyphPoint centre, double radius, double from, double to);

/// The glyph as a square of `pixels`, with smooth edges; upright and level strokes are moved onto whole
/// pixels. An empty picture for no pixels.
[[nodiscard]] Picture rasterise(const Glyph& glyph, std::int32_t pixels);

}  // namespace quorel::ui
