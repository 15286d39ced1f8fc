#pragma once

// Bytes as hexadecimal text in UTF-16, two upper-case digits a byte, and back.

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace quorel::frame {

/// How the codec works; all ways have the same results.
enum class HexCode : std::uint8_t { Plain, Ssse3, Avx2, Avx512 };

/// Whether this processor can do it that way.
[[nodiscard]] bool isAvailable(HexCode code) noexcept;
/// The fastest of those it can.
[[nodiscard]] HexCode fastestHexCode() noexcept;

/// Writes two units for each byte. They must not overlap.
void encodeHex(std::span<const std::uint8_t> bytes, char16_t* text, HexCode code = fastestHexCode()) noexcept;

/// Writes a byte for each pair of units and one for a unit left over, which is its low digit. A unit that is
/// no digit, of either case, counts as the digit before it in its pair, and as 0 when there is none: "1G" is
/// 11, "G1" is 01, "GG" is 00. They must not overlap.
void decodeHex(std::u16string_view text, std::uint8_t* bytes, HexCode code = fastestHexCode()) noexcept;

/// The value of a digit of either case; negative for any other unit.
[[nodiscard]] constexpr int hexDigit(char16_t unit) noexcept {
    if (unit >= u'0' && unit <= u'9')
        return unit - u'0';
    if (unit >= u'A' && unit <= u'F')
        return unit - u'A' + 10;
    if (unit >= u'a' && unit <= u'f')
        return unit - u'a' + 10;
    return -1;
}

}  // namespace quorel::frame
