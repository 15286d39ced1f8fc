#include "diagram/clean_text.h"

#include <cstddef>

namespace quorel::diagram {

namespace {

constexpr char16_t kReplacement = u'\uFFFD';

[[nodiscard]] constexpr bool isHigh(char16_t unit) noexcept {
    return unit >= 0xD800 && unit < 0xDC00;
}
[[nodiscard]] constexpr bool isLow(char16_t unit) noexcept {
    return unit >= 0xDC00 && unit < 0xE000;
}
[[nodiscard]] constexpr bool isNoCharacter(char16_t unit) noexcept {
    return unit < 0x20 || (unit >= 0x7F && unit < 0xA0) || unit >= 0xFFFE;
}

}  // namespace

std::u16string cleanText(std::u16string_view text) {
    std::u16string clean(text);
    for (std::size_t at = 0; at < clean.size(); ++at) {
        if (isHigh(clean[at]) && at + 1 < clean.size() && isLow(clean[at + 1]))
            ++at;
        else if (isHigh(clean[at]) || isLow(clean[at]) || isNoCharacter(clean[at]))
            clean[at] = kReplacement;
    }
    return clean;
}

}  // namespace quorel::diagram
