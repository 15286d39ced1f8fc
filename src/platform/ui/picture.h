#pragma once

#include <cstdint>
#include <vector>

namespace quorel::ui {

/// An RGBA image, rows from the top, four bytes a pixel (red, green, blue, alpha, not premultiplied).
struct Picture {
    std::int32_t width = 0;
    std::int32_t height = 0;
    std::vector<std::uint8_t> rgba;
};

/// True if it has pixels, and bytes for exactly those.
[[nodiscard]] bool isWhole(const Picture& picture) noexcept;

/// The best of `frames`, which are the same picture in several sizes, as large as it fits into that size, in
/// the middle of it with nothing around; empty when none is whole or the size is empty.
[[nodiscard]] Picture fitted(const std::vector<Picture>& frames, std::int32_t width, std::int32_t height);

/// The picture at another size, smoothly; empty when it is not whole or the size is.
[[nodiscard]] Picture scaled(const Picture& picture, std::int32_t width, std::int32_t height);

/// As it looks on a control that cannot be used: grey and half transparent.
[[nodiscard]] Picture dimmed(Picture picture);

}  // namespace quorel::ui
