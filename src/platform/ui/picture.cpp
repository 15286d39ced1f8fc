#include "platform/ui/picture.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

namespace quorel::ui {

namespace {

constexpr std::int32_t kMostPixels = 1 << 14;

/// Two neighbours along one axis and how much the second of them counts.
struct Between {
    std::size_t first, second;
    double share;
};

[[nodiscard]] Between sample(std::int32_t to, std::int32_t toSize, std::int32_t fromSize) {
    const double at = std::clamp((to + 0.5) * fromSize / toSize - 0.5, 0.0, fromSize - 1.0);
    const auto first = static_cast<std::size_t>(at);
    return {first, std::min(first + 1, static_cast<std::size_t>(fromSize) - 1), at - std::floor(at)};
}

[[nodiscard]] std::uint8_t toByte(double value) {
    return static_cast<std::uint8_t>(std::clamp(std::lround(value), 0L, 255L));
}

/// Colours count by their opacity, or transparent pixels would darken the edges.
[[nodiscard]] std::array<std::uint8_t, 4> mix(const Picture& picture, const Between& x, const Between& y) {
    std::array<double, 4> sum{};
    for (const auto& [row, rowShare] : {std::pair{y.first, 1 - y.share}, {y.second, y.share}})
        for (const auto& [column, share] : {std::pair{x.first, 1 - x.share}, {x.second, x.share}}) {
            const std::uint8_t* const pixel =
                &picture.rgba[(row * static_cast<std::size_t>(picture.width) + column) * 4];
            const double weight = rowShare * share * pixel[3];
            for (std::size_t channel = 0; channel < 3; ++channel)
                sum[channel] += weight * pixel[channel];
            sum[3] += weight;
        }
    if (sum[3] <= 0)
        return {};
    return {toByte(sum[0] / sum[3]), toByte(sum[1] / sum[3]), toByte(sum[2] / sum[3]), toByte(sum[3])};
}

}  // namespace

bool isWhole(const Picture& picture) noexcept {
    return picture.width > 0 && picture.height > 0 && picture.width <= kMostPixels &&
           picture.height <= kMostPixels &&
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
    for (std::int32_t y = 0; y < height; ++y)
        for (std::int32_t x = 0; x < width; ++x) {
            const auto pixel =
                mix(picture, sample(x, width, picture.width), sample(y, height, picture.height));
            result.rgba.insert(result.rgba.end(), pixel.begin(), pixel.end());
        }
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
