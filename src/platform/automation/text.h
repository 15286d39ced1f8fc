#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quorel::automation {

/// UTF-16 to UTF-8. Lone surrogates are kept as three-byte sequences (WTF-8), so that the way back is exact.
[[nodiscard]] std::string toUtf8(std::u16string_view text);

/// UTF-8 (WTF-8) to UTF-16. Malformed bytes become U+FFFD, one for each.
[[nodiscard]] std::u16string fromUtf8(std::string_view text);

/// Ordinal comparison of member and collection names that ignores the case of letters (simple case folding of
/// the Basic Multilingual Plane where the C++ library knows it, ASCII always).
[[nodiscard]] bool equalsIgnoringCase(std::u16string_view a, std::u16string_view b) noexcept;

/// `text` with its letters folded as `equalsIgnoringCase` compares them; equal results mean equal names.
[[nodiscard]] std::u16string foldCase(std::u16string_view text);

/// Decimal text of an integer.
[[nodiscard]] std::u16string decimal(std::int64_t number);

}  // namespace quorel::automation
