#pragma once

#include <windows.h>

#include <cstdint>
#include <map>
#include <mutex>
#include <string>

#include "platform/ui/colour.h"
#include "platform/ui/font.h"
#include "platform/win32/ui/live_counts.h"

namespace quorel::win32 {

[[nodiscard]] constexpr COLORREF toColorRef(ui::Colour colour) noexcept {
    return RGB(colour.red, colour.green, colour.blue);
}

[[nodiscard]] constexpr ui::Colour toColour(COLORREF colour) noexcept {
    return {static_cast<std::uint8_t>(colour), static_cast<std::uint8_t>(colour >> 8),
            static_cast<std::uint8_t>(colour >> 16)};
}

/// A third of the way from `from` to `to`.
[[nodiscard]] constexpr ui::Colour between(ui::Colour from, ui::Colour to) noexcept {
    const auto mix = [](int a, int b) { return static_cast<std::uint8_t>((2 * a + b) / 3); };
    return {mix(from.red, to.red), mix(from.green, to.green), mix(from.blue, to.blue)};
}

/// Black or white, whichever can be read on `background`.
[[nodiscard]] constexpr COLORREF readableOn(ui::Colour background) noexcept {
    const int luminance = 299 * background.red + 587 * background.green + 114 * background.blue;
    return luminance >= 128'000 ? RGB(0, 0, 0) : RGB(255, 255, 255);
}

/// The height in pixels of a line in that font.
[[nodiscard]] int lineHeight(HFONT font) noexcept;

/// Fonts and brushes that windows share; each is made once and lives as long as this.
class DrawingTools {
  public:
    /// The message font at that resolution, as the system's settings are now.
    [[nodiscard]] HFONT font(std::int32_t dpi, bool bold = false);
    /// The same where `wanted` does not differ from it.
    [[nodiscard]] HFONT font(std::int32_t dpi, const ui::Font& wanted);
    [[nodiscard]] HBRUSH brush(ui::Colour colour);

  private:
    [[nodiscard]] HFONT made(const LOGFONTW& wanted);

    std::mutex mutex_;
    std::map<std::string, CountedFont> fonts_;
    std::map<std::uint32_t, CountedBrush> brushes_;
};

}  // namespace quorel::win32
