#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace quorel::automation {

/// UTF-16 to UTF-8. Lone surrogates are kept as three-byte sequences (WTF-8), so that the way back is exact.
[[nodiscard]] std::string toUtf8(std::u16string_view text);

/// UTF-8 (WTF-8) to UTF-16. Malformed bytes become U+FFFD, one for each.
[[nodiscard]] std::u16string fromUtf8(std::string_view text);

/// Ordinal comparison of member and collection names that ignores the case of letters (one to one, for the
/// Latin, Greek, Cyrillic and Armenian scripts; the same in every locale).
[[nodiscard]] bool equalsIgnoringCase(std::u16string_view a, std::u16string_view b) noexcept;

/// `text` with its letters folded as `equalsIgnoringCase` compares them; equal results mean equal names.
[[nodiscard]] std::u16string foldCase(std::u16string_view text);

/// `text` with every small letter that `foldCase` makes of a capital turned into that capital: as long as it
/// was, the same in every locale. Letters whose capital is no single unit stay.
void makeUpperCase(std::u16string& text) noexcept;

/// For hash tables whose keys are names: looked up by any spelling, without making a string.
struct FoldedHash {
    using is_transparent = void;
    [[nodiscard]] std::size_t operator()(std::u16string_view name) const noexcept;
};
struct FoldedEqual {
    using is_transparent = void;
    [[nodiscard]] bool operator()(std::u16string_view a, std::u16string_view b) const noexcept {
        return equalsIgnoringCase(a, b);
    }
};

/// Decimal text of an integer.
[[nodiscard]] std::u16string decimal(std::int64_t number);

}  // namespace quorel::automation
