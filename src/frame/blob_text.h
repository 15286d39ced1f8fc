#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/automation/value.h"

/// What `Blob` does with bytes in memory: their text form, and the arrays they come in.
namespace quorel::frame {

/// Two upper-case digits for each element, in order, in a text of twice the upper bound plus one: an array
/// that begins above 0 leaves blanks at the end, one that begins below is error 5. Elements of other arrays
/// than byte arrays are taken as 32-bit integers, of which the first two digits are written. Empty for what
/// is no array.
[[nodiscard]] std::u16string hexText(const automation::Value& array);

/// Makes `array` the bytes of a text; an empty text leaves it. A text of 3, 7, 11 ... units is error 9; one
/// of 5, 9, 13 ... gives a last byte of one digit.
void parseHexText(std::u16string_view text, automation::Value& array);

/// Puts the text in upper case and reads it as a number, error 6 beyond 2,147,483,647. What is no digit
/// counts as the digit before it, or as 0.
[[nodiscard]] std::int32_t parseHexNumber(std::u16string& text);

/// The bytes of an array, those of a byte array without a copy. Elements of other arrays are converted: error
/// 6 for one outside 0 to 255, 13 for one that is no number, and for what is no array.
class ArrayBytes {
  public:
    /// `array` must outlive it.
    explicit ArrayBytes(const automation::Value& array);
    [[nodiscard]] std::span<const std::uint8_t> view() const noexcept { return view_; }

  private:
    std::vector<std::uint8_t> converted_;
    std::span<const std::uint8_t> view_;
};

/// Whether the value is an array of any kind.
[[nodiscard]] bool isArray(const automation::Value& value) noexcept;

}  // namespace quorel::frame
