#include "platform/controls/sort_key.h"

#include <charconv>
#include <cmath>
#include <optional>

#include "platform/automation/text.h"
#include "platform/controls/cell_text.h"

namespace quorel::controls {

namespace {

using automation::Value;
using automation::ValueKind;

constexpr std::size_t kLongestNumber = 40;

[[nodiscard]] bool isDigit(char16_t unit) {
    return unit >= u'0' && unit <= u'9';
}

/// The number that the whole text is, e.g. "-12.5".
[[nodiscard]] std::optional<double> numberIn(std::u16string_view text) {
    if (text.empty() || text.size() > kLongestNumber)
        return std::nullopt;
    char narrow[kLongestNumber];
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (!isDigit(text[i]) && text[i] != u'.' && text[i] != u'-')
            return std::nullopt;
        narrow[i] = static_cast<char>(text[i]);
    }
    double number = 0;
    const auto [end, error] = std::from_chars(narrow, narrow + text.size(), number, std::chars_format::fixed);
    if (error != std::errc() || end != narrow + text.size())
        return std::nullopt;
    return number;
}

/// Takes the run of digits off the front, leading zeros apart.
[[nodiscard]] std::u16string_view takeDigits(std::u16string_view& text) {
    std::size_t end = 0;
    while (end < text.size() && isDigit(text[end]))
        ++end;
    std::u16string_view digits = text.substr(0, end);
    text.remove_prefix(end);
    while (digits.size() > 1 && digits.front() == u'0')
        digits.remove_prefix(1);
    return digits;
}

[[nodiscard]] std::weak_ordering compareDigits(std::u16string_view a, std::u16string_view b) {
    if (a.size() != b.size())
        return a.size() <=> b.size();
    return a.compare(b) <=> 0;
}

}  // namespace

std::weak_ordering naturalCompare(std::u16string_view a, std::u16string_view b) noexcept {
    while (!a.empty() && !b.empty()) {
        if (isDigit(a.front()) && isDigit(b.front())) {
            if (const auto order = compareDigits(takeDigits(a), takeDigits(b)); order != 0)
                return order;
            continue;
        }
        if (a.front() != b.front())
            return a.front() <=> b.front();
        a.remove_prefix(1);
        b.remove_prefix(1);
    }
    return a.size() <=> b.size();
}

SortKey::SortKey(const Value& value) : readable(true) {
    switch (value.kind()) {
        case ValueKind::Boolean:
        case ValueKind::Integer:
        case ValueKind::Double:
            isNumber = true;
            number = value.toDouble();
            break;
        case ValueKind::Date:
            isNumber = true;
            number = value.getIf<automation::Date>()->serial;
            break;
        default: {
            text = automation::foldCase(valueText(value));
            if (const auto whole = numberIn(text)) {
                isNumber = true;
                number = *whole;
            }
        }
    }
    if (isNumber && std::isnan(number))
        readable = false;
}

std::weak_ordering compare(const SortKey& a, const SortKey& b) noexcept {
    if (a.isNumber != b.isNumber)
        return a.isNumber ? std::weak_ordering::less : std::weak_ordering::greater;
    if (!a.isNumber)
        return naturalCompare(a.text, b.text);
    if (a.number < b.number)
        return std::weak_ordering::less;
    return b.number < a.number ? std::weak_ordering::greater : std::weak_ordering::equivalent;
}

}  // namespace quorel::controls
