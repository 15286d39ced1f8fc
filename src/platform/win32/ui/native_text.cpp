#include "platform/win32/ui/native_text.h"

#include <algorithm>

namespace quorel::win32 {

namespace {

constexpr char16_t kSymbolForNull = u'\u2400';

[[nodiscard]] constexpr char16_t shownUnit(char16_t unit) noexcept {
    return unit == u'\0' ? kSymbolForNull : unit;
}

[[nodiscard]] constexpr bool isHighSurrogate(char16_t unit) noexcept {
    return unit >= 0xD800 && unit <= 0xDBFF;
}

}  // namespace

std::u16string shownLine(std::u16string_view text, std::size_t most) {
    std::u16string shown(text.substr(0, most));
    if (shown.size() < text.size() && !shown.empty() && isHighSurrogate(shown.back()))
        shown.pop_back();
    for (char16_t& unit : shown)
        unit = unit == u'\t' || unit == u'\r' || unit == u'\n' ? u' ' : shownUnit(unit);
    return shown;
}

std::u16string editedText(std::u16string_view before, std::u16string_view shownNow) {
    const auto same = [](char16_t old, char16_t now) { return shownUnit(old) == now; };
    const std::size_t shorter = std::min(before.size(), shownNow.size());
    std::size_t head = 0;
    while (head < shorter && same(before[head], shownNow[head]))
        ++head;
    std::size_t tail = 0;
    while (tail < shorter - head &&
           same(before[before.size() - 1 - tail], shownNow[shownNow.size() - 1 - tail]))
        ++tail;
    std::u16string edited(before.substr(0, head));
    edited += shownNow.substr(head, shownNow.size() - head - tail);
    edited += before.substr(before.size() - tail);
    return edited;
}

}  // namespace quorel::win32
