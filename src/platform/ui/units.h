#pragma once

#include <algorithm>
#include <compare>
#include <cstdint>

namespace quorel::ui {

/// A length on a window: 1,440 twips are one logical inch, so 15 twips are one pixel at 96 dots per inch.
struct Twips {
    std::int32_t value = 0;

    friend constexpr auto operator<=>(Twips, Twips) = default;
    constexpr Twips& operator+=(Twips other) noexcept { return value += other.value, *this; }
    constexpr Twips& operator-=(Twips other) noexcept { return value -= other.value, *this; }
    friend constexpr Twips operator+(Twips a, Twips b) noexcept { return {a.value + b.value}; }
    friend constexpr Twips operator-(Twips a, Twips b) noexcept { return {a.value - b.value}; }
    friend constexpr Twips operator-(Twips a) noexcept { return {-a.value}; }
    friend constexpr Twips operator*(Twips a, std::int32_t factor) noexcept { return {a.value * factor}; }
    friend constexpr Twips operator/(Twips a, std::int32_t divisor) noexcept { return {a.value / divisor}; }
};

namespace literals {
constexpr Twips operator""_tw(unsigned long long value) noexcept {
    return {static_cast<std::int32_t>(value)};
}
}  // namespace literals

struct Point {
    Twips x, y;
    friend constexpr bool operator==(const Point&, const Point&) = default;
};

struct Size {
    Twips width, height;
    friend constexpr bool operator==(const Size&, const Size&) = default;
};

/// A rectangle relative to the client area of the parent (for a form: to the desktop's primary screen).
struct Rect {
    Twips left, top, width, height;
    [[nodiscard]] constexpr Twips right() const noexcept { return left + width; }
    [[nodiscard]] constexpr Twips bottom() const noexcept { return top + height; }
    [[nodiscard]] constexpr Size size() const noexcept { return {width, height}; }
    friend constexpr bool operator==(const Rect&, const Rect&) = default;
};

/// What is in both; without width or height when nothing is.
[[nodiscard]] constexpr Rect intersection(const Rect& a, const Rect& b) noexcept {
    const Twips left = std::max(a.left, b.left), top = std::max(a.top, b.top);
    return {left, top, std::max(Twips{}, std::min(a.right(), b.right()) - left),
            std::max(Twips{}, std::min(a.bottom(), b.bottom()) - top)};
}

/// The smallest rectangle around both.
[[nodiscard]] constexpr Rect united(const Rect& a, const Rect& b) noexcept {
    const Twips left = std::min(a.left, b.left), top = std::min(a.top, b.top);
    return {left, top, std::max(a.right(), b.right()) - left, std::max(a.bottom(), b.bottom()) - top};
}

/// A rectangle in device pixels; only peers use it.
struct PixelRect {
    std::int32_t left = 0, top = 0, right = 0, bottom = 0;
    friend constexpr bool operator==(const PixelRect&, const PixelRect&) = default;
};

inline constexpr std::int32_t kTwipsPerInch = 1440;

/// Rounds to the nearest pixel, halves away from zero.
[[nodiscard]] constexpr std::int32_t toPixels(Twips length, std::int32_t dpi) noexcept {
    const std::int64_t scaled = static_cast<std::int64_t>(length.value) * dpi;
    const std::int64_t half = scaled < 0 ? -kTwipsPerInch / 2 : kTwipsPerInch / 2;
    return static_cast<std::int32_t>((scaled + half) / kTwipsPerInch);
}

/// Edges are converted and then subtracted, so that neighbours in twips stay neighbours in pixels.
[[nodiscard]] constexpr PixelRect toPixels(const Rect& r, std::int32_t dpi) noexcept {
    return {toPixels(r.left, dpi), toPixels(r.top, dpi), toPixels(r.right(), dpi), toPixels(r.bottom(), dpi)};
}

[[nodiscard]] constexpr Twips toTwips(std::int32_t pixels, std::int32_t dpi) noexcept {
    const std::int64_t scaled = static_cast<std::int64_t>(pixels) * kTwipsPerInch;
    const std::int64_t half = scaled < 0 ? -dpi / 2 : dpi / 2;
    return {static_cast<std::int32_t>((scaled + half) / dpi)};
}

}  // namespace quorel::ui
