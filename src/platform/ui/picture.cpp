#include "platform/ui/picture.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

namespace quorel::ui {

namespace {

constexpr std::int32_t kMostIconPixels = 1 << 14;

/// The pixels along one axis that make one of the result, and how much each of them counts.
struct Samples {
    std::size_t first = 0;
    std::vector<double> shares;
};

/// Between two neighbours when it grows; what a pixel of the result covers when it shrinks.
[[nodiscard]] Samples samples(std::int32_t to, std::int32_t toSize, std::int32_t fromSize) {
    if (toSize >= fromSize) {
        const double at = std::clamp((to + 0.5) * fromSize / toSize - 0.5, 0.0, fromSize - 1.0);
        const auto first = static_cast<std::size_t>(at);
        const double share = at - std::floor(at);
        return share > 0 ? Samples{first, {1 - share, share}} : Samples{first, {1}};
    }
    const double begin = static_cast<double>(to) * fromSize / toSize;
    const double end = static_cast<double>(to + 1) * fromSize / toSize;
    Samples covered{static_cast<std::size_t>(begin), {}};
    for (auto at = covered.first; at < static_cast<std::size_t>(fromSize) && static_cast<double>(at) < end;
         ++at)
        covered.shares.push_back(
            (std::min(end, static_cast<double>(at + 1)) - std::max(begin, static_cast<double>(at))) /
            (end - begin));
    return covered;
}

[[nodiscard]] std::vector<Samples> allSamples(std::int32_t toSize, std::int32_t fromSize) {
    std::vector<Samples> all;
    for (std::int32_t to = 0; to < toSize; ++to)
        all.push_back(samples(to, toSize, fromSize));
    return all;
}

[[nodiscard]] std::uint8_t toByte(double value) {
    return static_cast<std::uint8_t>(std::clamp(std::lround(value), 0L, 255L));
}

/// Colours count by their opacity, or transparent pixels would darken the edges.
[[nodiscard]] std::array<std::uint8_t, 4> mix(const Picture& picture, const Samples& x, const Samples& y) {
    std::array<double, 4> sum{};
    for (std::size_t row = 0; row < y.shares.size(); ++row)
        for (std::size_t column = 0; column < x.shares.size(); ++column) {
            const std::uint8_t* const pixel =
                &picture.rgba[((y.first + row) * static_cast<std::size_t>(picture.width) + x.first + column) *
                              4];
            const double weight = y.shares[row] * x.shares[column] * pixel[3];
            for (std::size_t channel = 0; channel < 3; ++channel)
                sum[channel] += weight * pixel[channel];
            sum[3] += weight;
        }
    if (sum[3] <= 0)
        return {};
    return {toByte(sum[0] / sum[3]), toByte(sum[1] / sum[3]), toByte(sum[2] / sum[3]), toByte(sum[3])};
}

/// The smallest that needs not grow, else the largest; null when none is whole.
[[nodiscard]] const Picture* bestOf(const std::vector<Picture>& frames, std::int32_t width,
                                    std::int32_t height) {
    const Picture* best = nullptr;
    const auto suffices = [&](const Picture& p) { return p.width >= width || p.height >= height; };
    for (const Picture& frame : frames) {
        if (!isWhole(frame))
            continue;
        const bool larger = best != nullptr && frame.width > best->width;
        if (best == nullptr || (suffices(frame) ? !suffices(*best) || !larger : !suffices(*best) && larger))
            best = &frame;
    }
    return best;
}

}  // namespace

bool isWhole(const Picture& picture) noexcept {
    return picture.width > 0 && picture.height > 0 && picture.width <= kMostIconPixels &&
           picture.height <= kMostIconPixels &&
           picture.rgba.size() ==
               static_cast<std::size_t>(picture.width) * static_cast<std::size_t>(picture.height) * 4;
}

Picture scaled(const Picture& picture, std::int32_t width, std::int32_t height) {
    if (!isWhole(picture) || width <= 0 || height <= 0)
        return {};
    if (picture.width == width && picture.height == height)
        return picture;
    Picture result{width, height, {}};
    result.rgba.reserve(static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 4);
    const std::vector<Samples> columns = allSamples(width, picture.width);
    for (const Samples& row : allSamples(height, picture.height))
        for (const Samples& column : columns) {
            const auto pixel = mix(picture, column, row);
            result.rgba.insert(result.rgba.end(), pixel.begin(), pixel.end());
        }
    return result;
}

Picture fitted(const std::vector<Picture>& frames, std::int32_t width, std::int32_t height) {
    const Picture* const best = bestOf(frames, width, height);
    if (best == nullptr || width <= 0 || height <= 0)
        return {};
    const double factor =
        std::min(static_cast<double>(width) / best->width, static_cast<double>(height) / best->height);
    const auto inside = [factor](std::int32_t length, std::int32_t most) {
        return std::clamp(static_cast<std::int32_t>(std::lround(length * factor)), 1, most);
    };
    const Picture small = scaled(*best, inside(best->width, width), inside(best->height, height));
    Picture result{width, height, {}};
    result.rgba.resize(static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 4);
    const std::int32_t left = (width - small.width) / 2, top = (height - small.height) / 2;
    for (std::int32_t y = 0; y < small.height; ++y)
        std::copy_n(&small.rgba[static_cast<std::size_t>(y) * static_cast<std::size_t>(small.width) * 4],
                    static_cast<std::size_t>(small.width) * 4,
                    &result.rgba[(static_cast<std::size_t>(y + top) * static_cast<std::size_t>(width) +
                                  static_cast<std::size_t>(left)) *
                                 4]);
    return result;
}

Picture dimmed(Picture picture) {
    for (std::size_t i = 0; i + 3 < picture.rgba.size(); i += 4) {
        std::uint8_t* const pixel = &picture.rgba[i];
        const int grey = (299 * pixel[0] + 587 * pixel[1] + 114 * pixel[2]) / 1000;
        pixel[0] = pixel[1] = pixel[2] = static_cast<std::uint8_t>(grey);
        pixel[3] = static_cast<std::uint8_t>(pixel[3] * 2 / 5);
    }
    return picture;
}

}  // namespace quorel::ui
