#include "platform/ui/glyph.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>

namespace quorel::ui {

namespace {

constexpr std::int32_t kMostGlyphPixels = 1024;

/// A stroke in pixels.
struct Outline {
    std::vector<GlyphPoint> points;
    double width;
    bool closed, filled;
};

/// So that a line of that width along the axis begins and ends with a pixel.
[[nodiscard]] double snapped(double at, double width) {
    return std::lround(width) % 2 == 0 ? std::round(at) : std::floor(at) + 0.5;
}

[[nodiscard]] bool same(double a, double b) {
    return std::abs(a - b) < 1e-9;
}

[[nodiscard]] Outline scaledToPixels(const GlyphStroke& stroke, double scale) {
    Outline line{stroke.points, std::max(1.0, std::round(stroke.width * scale)), stroke.closed,
                 stroke.filled};
    const std::size_t count = stroke.points.size();
    for (GlyphPoint& point : line.points)
        point = {point.x * scale, point.y * scale};
    const std::size_t segments = stroke.closed ? count : count - 1;
    for (std::size_t i = 0; count > 1 && i < segments; ++i) {
        const std::size_t next = (i + 1) % count;
        if (same(stroke.points[i].x, stroke.points[next].x))
            line.points[i].x = line.points[next].x = snapped(stroke.points[i].x * scale, line.width);
        if (same(stroke.points[i].y, stroke.points[next].y))
            line.points[i].y = line.points[next].y = snapped(stroke.points[i].y * scale, line.width);
    }
    return line;
}

[[nodiscard]] double distanceToSegment(GlyphPoint p, GlyphPoint a, GlyphPoint b) {
    const double dx = b.x - a.x, dy = b.y - a.y;
    const double length = dx * dx + dy * dy;
    const double along =
        length > 0 ? std::clamp(((p.x - a.x) * dx + (p.y - a.y) * dy) / length, 0.0, 1.0) : 0.0;
    return std::hypot(p.x - a.x - along * dx, p.y - a.y - along * dy);
}

[[nodiscard]] double distanceToLine(GlyphPoint p, const Outline& line) {
    const std::size_t count = line.points.size();
    double least = std::hypot(p.x - line.points[0].x, p.y - line.points[0].y);
    for (std::size_t i = 0; i + 1 < count; ++i)
        least = std::min(least, distanceToSegment(p, line.points[i], line.points[i + 1]));
    if (line.closed)
        least = std::min(least, distanceToSegment(p, line.points.back(), line.points.front()));
    return least;
}

[[nodiscard]] bool encloses(const Outline& line, GlyphPoint p) {
    bool inside = false;
    for (std::size_t i = 0, j = line.points.size() - 1; i < line.points.size(); j = i++) {
        const GlyphPoint a = line.points[i], b = line.points[j];
        if ((a.y > p.y) != (b.y > p.y) && p.x < (b.x - a.x) * (p.y - a.y) / (b.y - a.y) + a.x)
            inside = !inside;
    }
    return inside;
}

/// How much of the pixel around `p` the stroke covers, 0 to 1.
[[nodiscard]] double coverage(const Outline& line, GlyphPoint p) {
    if (line.filled && encloses(line, p))
        return 1;
    return std::clamp(line.width / 2 + 0.5 - distanceToLine(p, line), 0.0, 1.0);
}

void paintOver(std::uint8_t* pixel, Colour colour, double cover) {
    const double below = pixel[3] / 255.0 * (1 - cover);
    const double alpha = cover + below;
    if (alpha <= 0)
        return;
    const auto blend = [&](std::uint8_t under, std::uint8_t over) {
        return static_cast<std::uint8_t>(std::lround((over * cover + under * below) / alpha));
    };
    pixel[0] = blend(pixel[0], colour.red);
    pixel[1] = blend(pixel[1], colour.green);
    pixel[2] = blend(pixel[2], colour.blue);
    pixel[3] = static_cast<std::uint8_t>(std::lround(alpha * 255));
}

}  // namespace

std::vector<GlyphPoint> glyphArc(GlyphPoint centre, double radius, double from, double to) {
    constexpr double kStep = 10;
    const int steps = std::max(1, static_cast<int>(std::ceil(std::abs(to - from) / kStep)));
    std::vector<GlyphPoint> points;
    for (int i = 0; i <= steps; ++i) {
        const double angle = (from + (to - from) * i / steps) * std::numbers::pi / 180;
        points.push_back({centre.x + radius * std::cos(angle), centre.y + radius * std::sin(angle)});
    }
    return points;
}

Picture rasterise(const Glyph& glyph, std::int32_t pixels) {
    if (pixels <= 0)
        return {};
    const std::int32_t side = std::min(pixels, kMostGlyphPixels);
    Picture picture{side, side, {}};
    picture.rgba.resize(static_cast<std::size_t>(side) * static_cast<std::size_t>(side) * 4);
    for (const GlyphStroke& stroke : glyph.strokes) {
        if (stroke.points.empty())
            continue;
        const Outline line = scaledToPixels(stroke, side / kGlyphUnits);
        std::uint8_t* pixel = picture.rgba.data();
        for (std::int32_t y = 0; y < side; ++y)
            for (std::int32_t x = 0; x < side; ++x, pixel += 4)
                if (const double cover = coverage(line, {x + 0.5, y + 0.5}); cover > 0)
                    paintOver(pixel, stroke.colour, cover);
    }
    return picture;
}

}  // namespace quorel::ui
