#include "platform/ui/raster.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <optional>
#include <utility>
#include <vector>

namespace quorel::ui {

namespace {

constexpr double kDash = 5, kGap = 3;
constexpr int kLinesAPixel = 4;
constexpr double kFar = 1e9;

[[nodiscard]] constexpr std::uint32_t packed(Colour colour) noexcept {
    return static_cast<std::uint32_t>(colour.red) << 16 | static_cast<std::uint32_t>(colour.green) << 8 |
           colour.blue;
}

/// `alpha` of 256 of `over` on `under`, red and blue in one multiplication.
[[nodiscard]] constexpr std::uint32_t mixed(std::uint32_t under, std::uint32_t over,
                                            std::uint32_t alpha) noexcept {
    constexpr std::uint32_t kOuter = 0xFF00FF, kGreen = 0x00FF00;
    const std::uint32_t outer = (under & kOuter) + (((over & kOuter) - (under & kOuter)) * alpha >> 8);
    const std::uint32_t green = (under & kGreen) + (((over & kGreen) - (under & kGreen)) * alpha >> 8);
    return (outer & kOuter) | (green & kGreen);
}

[[nodiscard]] PixelRect cut(const PixelRect& a, const PixelRect& b) noexcept {
    return {std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
            std::min(a.bottom, b.bottom)};
}

[[nodiscard]] bool isEmpty(const PixelRect& area) noexcept {
    return area.left >= area.right || area.top >= area.bottom;
}

[[nodiscard]] PixelRect insideOf(const PixelSurface& surface, const PixelRect& area) noexcept {
    return cut(area, {0, 0, surface.width, surface.height});
}

[[nodiscard]] std::uint32_t* rowOf(const PixelSurface& surface, std::int32_t y) noexcept {
    return surface.pixels + static_cast<std::ptrdiff_t>(y) * surface.width;
}

[[nodiscard]] std::int32_t below(double value) noexcept {
    return static_cast<std::int32_t>(std::floor(std::clamp(value, -kFar, kFar)));
}

void cover(std::uint32_t& pixel, std::uint32_t colour, double coverage) noexcept {
    if (coverage >= 1)
        pixel = colour;
    else if (coverage > 0)
        pixel = mixed(pixel, colour, static_cast<std::uint32_t>(coverage * 256));
}

/// A level or upright stroke, as the pixels it covers.
[[nodiscard]] PixelRect straight(RasterPoint from, RasterPoint to, double width) noexcept {
    const std::int32_t pixels = std::max(1, below(width + 0.5));
    const auto across = [&](double centre) { return below(centre - pixels / 2.0 + 0.5); };
    if (std::abs(from.y - to.y) < 0.01) {
        const std::int32_t top = across(from.y);
        return {below(std::min(from.x, to.x) - pixels / 2.0 + 0.5), top,
                below(std::max(from.x, to.x) + pixels / 2.0 + 0.5), top + pixels};
    }
    const std::int32_t left = across(from.x);
    return {left, below(std::min(from.y, to.y) - pixels / 2.0 + 0.5), left + pixels,
            below(std::max(from.y, to.y) + pixels / 2.0 + 0.5)};
}

/// The part of a stroke that can be seen, as shares of its length.
struct Part {
    double from, to;
};

[[nodiscard]] std::optional<Part> seenPart(const PixelRect& clip, RasterPoint from, RasterPoint to,
                                           double margin) noexcept {
    Part part{0, 1};
    const auto narrow = [&part](double start, double step, double least, double most) {
        if (std::abs(step) < 1e-9)
            return start >= least && start <= most;
        const double one = (least - start) / step, other = (most - start) / step;
        part.from = std::max(part.from, std::min(one, other));
        part.to = std::min(part.to, std::max(one, other));
        return part.from < part.to;
    };
    const bool seen = narrow(from.x, to.x - from.x, clip.left - margin, clip.right + margin) &&
                      narrow(from.y, to.y - from.y, clip.top - margin, clip.bottom + margin);
    return seen ? std::optional(part) : std::nullopt;
}

[[nodiscard]] RasterPoint along(RasterPoint from, RasterPoint to, double share) noexcept {
    return {from.x + (to.x - from.x) * share, from.y + (to.y - from.y) * share};
}

/// How far points are from a stroke.
class Distance {
  public:
    Distance(RasterPoint from, RasterPoint to) noexcept : from_(from), to_(to) {
        length_ = std::hypot(to.x - from.x, to.y - from.y);
        direction_ = length_ > 0 ? RasterPoint{(to.x - from.x) / length_, (to.y - from.y) / length_}
                                 : RasterPoint{1, 0};
    }
    [[nodiscard]] double to(RasterPoint p) const noexcept {
        const double x = p.x - from_.x, y = p.y - from_.y;
        const double forward = x * direction_.x + y * direction_.y;
        if (forward < 0)
            return std::hypot(x, y);
        if (forward > length_)
            return std::hypot(p.x - to_.x, p.y - to_.y);
        return std::abs(x * direction_.y - y * direction_.x);
    }

  private:
    RasterPoint from_, to_, direction_;
    double length_;
};

/// Row by row, in each only as far as the stroke reaches.
void drawSlanted(const PixelSurface& surface, const PixelRect& inside, RasterPoint from, RasterPoint to,
                 double width, std::uint32_t colour) {
    const double reach = width / 2 + 0.5;
    const Distance distance(from, to);
    const double dx = to.x - from.x, dy = to.y - from.y;
    // How far the pixels of one row lie to the left and right of where the stroke crosses its middle.
    const double steep = std::abs(dy) > 1e-9 ? reach * std::hypot(dx, dy) / std::abs(dy) : kFar;
    const double least = std::min(from.x, to.x) - reach, most = std::max(from.x, to.x) + reach;
    const std::int32_t top = std::max(inside.top, below(std::min(from.y, to.y) - reach));
    const std::int32_t bottom = std::min(inside.bottom, below(std::max(from.y, to.y) + reach) + 1);
    for (std::int32_t y = top; y < bottom; ++y) {
        const double middle = std::abs(dy) > 1e-9 ? from.x + (y + 0.5 - from.y) * dx / dy : from.x;
        const std::int32_t left = std::max(inside.left, below(std::max(least, middle - steep)));
        const std::int32_t right = std::min(inside.right, below(std::min(most, middle + steep)) + 1);
        std::uint32_t* const row = rowOf(surface, y);
        for (std::int32_t x = left; x < right; ++x)
            cover(row[x], colour, reach - distance.to({x + 0.5, y + 0.5}));
    }
}

/// Of a line that is one pixel wide: along its longer side, two pixels a step, in steps of 1/65,536 pixel.
class ThinLine {
  public:
    ThinLine(const PixelSurface& surface, const PixelRect& inside, std::uint32_t colour) noexcept
        : surface_(surface), inside_(inside), colour_(colour) {}

    void draw(RasterPoint from, RasterPoint to) noexcept {
        const bool flat = std::abs(to.x - from.x) >= std::abs(to.y - from.y);
        if (flat)
            walk<true, true>(from, to);
        else
            walk<false, true>({from.y, from.x}, {to.y, to.x});
    }
    /// One pixel a step.
    void drawCoarse(RasterPoint from, RasterPoint to) noexcept {
        const bool flat = std::abs(to.x - from.x) >= std::abs(to.y - from.y);
        if (flat)
            walk<true, false>(from, to);
        else
            walk<false, false>({from.y, from.x}, {to.y, to.x});
    }

  private:
    static constexpr double kOne = 65536;

    /// `x` is along, `y` across.
    template <bool kFlat, bool kSmooth>
    void walk(RasterPoint from, RasterPoint to) noexcept {
        if (from.x > to.x)
            std::swap(from, to);
        const double slope = (to.y - from.y) / (to.x - from.x);
        const auto boost = static_cast<std::uint32_t>(256 * std::sqrt(1 + slope * slope));
        const std::int32_t first = std::max(kFlat ? inside_.left : inside_.top, below(from.x));
        const std::int32_t end = std::min(kFlat ? inside_.right : inside_.bottom, below(to.x) + 1);
        auto across =
            static_cast<std::int64_t>((from.y + (first + 0.5 - from.x) * slope - (kSmooth ? 0.5 : 0)) * kOne);
        const auto step = static_cast<std::int64_t>(slope * kOne);
        const std::int32_t least = kFlat ? inside_.top : inside_.left;
        const std::int32_t most = kFlat ? inside_.bottom : inside_.right;
        for (std::int32_t along = first; along < end; ++along, across += step) {
            const auto lower = static_cast<std::int32_t>(across >> 16);
            if constexpr (!kSmooth) {
                if (lower >= least && lower < most)
                    pixelAt<kFlat>(along, lower) = colour_;
                continue;
            }
            const auto share = static_cast<std::uint32_t>(across >> 8) & 0xFFU;
            if (lower >= least && lower < most)
                touch<kFlat>(along, lower, (256 - share) * boost >> 8);
            if (lower + 1 >= least && lower + 1 < most)
                touch<kFlat>(along, lower + 1, share * boost >> 8);
        }
    }
    template <bool kFlat>
    [[nodiscard]] std::uint32_t& pixelAt(std::int32_t along, std::int32_t across) const noexcept {
        return rowOf(surface_, kFlat ? across : along)[kFlat ? along : across];
    }
    template <bool kFlat>
    void touch(std::int32_t along, std::int32_t across, std::uint32_t alpha) const noexcept {
        std::uint32_t& pixel = pixelAt<kFlat>(along, across);
        pixel = mixed(pixel, colour_, std::min(256U, alpha));
    }

    const PixelSurface& surface_;
    const PixelRect& inside_;
    std::uint32_t colour_;
};

/// One row's share of a polygon: adds how much of each pixel lies between two places.
void addSpan(std::vector<float>& row, const PixelRect& inside, double from, double to) {
    from = std::clamp<double>(from, inside.left, inside.right) - inside.left;
    to = std::clamp<double>(to, inside.left, inside.right) - inside.left;
    if (to <= from)
        return;
    const auto first = static_cast<std::size_t>(from), last = static_cast<std::size_t>(to);
    constexpr double kLine = 1.0 / kLinesAPixel;
    if (first == last) {
        row[first] += static_cast<float>((to - from) * kLine);
        return;
    }
    row[first] += static_cast<float>((static_cast<double>(first + 1) - from) * kLine);
    for (std::size_t x = first + 1; x < last; ++x)
        row[x] += static_cast<float>(kLine);
    if (last < row.size())
        row[last] += static_cast<float>((to - static_cast<double>(last)) * kLine);
}

void collectCrossings(std::span<const RasterPoint> points, double y, std::vector<double>& crossings) {
    crossings.clear();
    for (std::size_t i = 0, j = points.size() - 1; i < points.size(); j = i++) {
        const RasterPoint a = points[i], b = points[j];
        if ((a.y > y) != (b.y > y))
            crossings.push_back((b.x - a.x) * (y - a.y) / (b.y - a.y) + a.x);
    }
    std::sort(crossings.begin(), crossings.end());
}

}  // namespace

void fillArea(const PixelSurface& surface, const PixelRect& clip, const PixelRect& area, Colour colour) {
    const PixelRect inside = insideOf(surface, cut(clip, area));
    if (isEmpty(inside))
        return;
    for (std::int32_t y = inside.top; y < inside.bottom; ++y)
        std::fill(rowOf(surface, y) + inside.left, rowOf(surface, y) + inside.right, packed(colour));
}

void drawStroke(const PixelSurface& surface, const PixelRect& clip, RasterPoint from, RasterPoint to,
                double width, Colour colour) {
    const double used = std::max(1.0, width);
    const PixelRect inside = insideOf(surface, clip);
    const auto part = isEmpty(inside) ? std::nullopt : seenPart(inside, from, to, used + 1);
    if (!part)
        return;
    const RasterPoint begin = along(from, to, part->from), end = along(from, to, part->to);
    if (std::abs(from.x - to.x) < 0.01 || std::abs(from.y - to.y) < 0.01)
        fillArea(surface, inside, straight(begin, end, used), colour);
    else if (used <= 1)
        ThinLine(surface, inside, packed(colour)).draw(begin, end);
    else
        drawSlanted(surface, inside, begin, end, used, packed(colour));
}

void drawStrokes(const PixelSurface& surface, const PixelRect& clip, std::span<const RasterPoint> points,
                 double width, bool dashed, Colour colour) {
    const double used = std::max(1.0, width);
    const double period = (kDash + kGap) * used;
    double before = 0;
    for (std::size_t i = 0; i + 1 < points.size(); ++i) {
        const RasterPoint from = points[i], to = points[i + 1];
        const double length = std::hypot(to.x - from.x, to.y - from.y);
        if (!dashed || length <= 0) {
            drawStroke(surface, clip, from, to, used, colour);
            continue;
        }
        if (const auto part = seenPart(insideOf(surface, clip), from, to, used + 1)) {
            const double first = std::floor((before + part->from * length) / period) * period - before;
            for (double dash = first; dash < part->to * length; dash += period) {
                const double begin = std::max(dash, 0.0), end = std::min(dash + kDash * used, length);
                if (begin < end)
                    drawStroke(surface, clip, along(from, to, begin / length), along(from, to, end / length),
                               used, colour);
            }
        }
        before += length;
    }
}

void drawCoarseStrokes(const PixelSurface& surface, const PixelRect& clip,
                       std::span<const RasterPoint> points, Colour colour) {
    const PixelRect inside = insideOf(surface, clip);
    for (std::size_t i = 0; i + 1 < points.size() && !isEmpty(inside); ++i) {
        const RasterPoint from = points[i], to = points[i + 1];
        const auto part = seenPart(inside, from, to, 1);
        if (part && (from.x != to.x || from.y != to.y))
            ThinLine(surface, inside, packed(colour))
                .drawCoarse(along(from, to, part->from), along(from, to, part->to));
    }
}

void fillPolygon(const PixelSurface& surface, const PixelRect& clip, std::span<const RasterPoint> points,
                 Colour colour) {
    if (points.size() < 3)
        return;
    RasterPoint least = points[0], most = points[0];
    for (const RasterPoint& point : points) {
        least = {std::min(least.x, point.x), std::min(least.y, point.y)};
        most = {std::max(most.x, point.x), std::max(most.y, point.y)};
    }
    const PixelRect inside =
        insideOf(surface, cut(clip, {below(least.x), below(least.y), below(most.x) + 1, below(most.y) + 1}));
    if (isEmpty(inside))
        return;
    std::vector<float> row(static_cast<std::size_t>(inside.right - inside.left));
    std::vector<double> crossings;
    for (std::int32_t y = inside.top; y < inside.bottom; ++y) {
        std::fill(row.begin(), row.end(), 0.0F);
        for (int line = 0; line < kLinesAPixel; ++line) {
            collectCrossings(points, y + (line + 0.5) / kLinesAPixel, crossings);
            for (std::size_t i = 0; i + 1 < crossings.size(); i += 2)
                addSpan(row, inside, crossings[i], crossings[i + 1]);
        }
        std::uint32_t* const pixels = rowOf(surface, y) + inside.left;
        for (std::size_t x = 0; x < row.size(); ++x)
            cover(pixels[x], packed(colour), row[x] > 0.999F ? 1 : row[x]);
    }
}

void blendPicture(const PixelSurface& surface, const PixelRect& clip, std::int32_t left, std::int32_t top,
                  const Picture& picture) {
    const PixelRect place{left, top, left + picture.width, top + picture.height};
    const PixelRect inside = insideOf(surface, cut(clip, place));
    if (!isWhole(picture) || isEmpty(inside))
        return;
    for (std::int32_t y = inside.top; y < inside.bottom; ++y) {
        const auto first = static_cast<std::size_t>(y - top) * static_cast<std::size_t>(picture.width) +
                           static_cast<std::size_t>(inside.left - left);
        const std::uint8_t* from = picture.rgba.data() + first * 4;
        std::uint32_t* const row = rowOf(surface, y);
        for (std::int32_t x = inside.left; x < inside.right; ++x, from += 4)
            row[x] = mixed(row[x], packed({from[0], from[1], from[2]}),
                           static_cast<std::uint32_t>(from[3]) + (from[3] >> 7));
    }
}

}  // namespace quorel::ui
