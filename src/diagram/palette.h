#pragma once

#include "platform/ui/colour.h"
#include "platform/ui/units.h"

/// The colours and widths of diagrams.
namespace quorel::diagram::palette {

inline constexpr ui::Colour kPaper{0xF7, 0xF9, 0xFC};
inline constexpr ui::Colour kWhite{0xFF, 0xFF, 0xFF};
inline constexpr ui::Colour kShadow{0xE3, 0xE9, 0xF2};
inline constexpr ui::Colour kBorder{0x9D, 0xB0, 0xC9};
inline constexpr ui::Colour kHeader{0xE8, 0xEF, 0xF9};
inline constexpr ui::Colour kPlainBox{0xC9, 0xD7, 0xEA};
inline constexpr ui::Colour kName{0x1B, 0x2B, 0x44};
inline constexpr ui::Colour kStereotype{0x6F, 0x80, 0x9B};
inline constexpr ui::Colour kProperty{0x33, 0x41, 0x55};
inline constexpr ui::Colour kType{0x2F, 0x7C, 0x83};
inline constexpr ui::Colour kLine{0x7C, 0x8D, 0xA6};
inline constexpr ui::Colour kLabel{0x45, 0x55, 0x70};
inline constexpr ui::Colour kLabelBorder{0xD3, 0xDC, 0xE9};
inline constexpr ui::Colour kAccent{0x2B, 0x6C, 0xD4};
inline constexpr ui::Colour kAccentHeader{0xD3, 0xE4, 0xFD};
inline constexpr ui::Colour kNeighbour{0x6C, 0x96, 0xD8};

inline constexpr ui::Twips kBorderWidth{15}, kLineWidth{15}, kAccentWidth{30}, kHairLine{0};
/// As wide as a pixel of a screen that is not scaled.
inline constexpr ui::Twips kPixel{15};

/// What is not looked at: half way to the paper, so that it can still be read.
[[nodiscard]] constexpr ui::Colour paler(ui::Colour colour, ui::Colour paper) noexcept {
    const auto mixed = [](int a, int b) { return static_cast<std::uint8_t>((a + b) / 2); };
    return {mixed(colour.red, paper.red), mixed(colour.green, paper.green), mixed(colour.blue, paper.blue)};
}

}  // namespace quorel::diagram::palette
