#include "platform/controls/cell_text.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <utility>

#include "platform/automation/text.h"

namespace quorel::controls {

namespace {

using automation::Value;
using automation::ValueKind;

constexpr std::size_t kMostUnits = 4096;
constexpr char16_t kEllipsis = u'\u2026';
constexpr char16_t kNullSymbol = u'\u2400';

[[nodiscard]] bool isHighSurrogate(char16_t unit) {
    return unit >= 0xD800 && unit < 0xDC00;
}

/// A text without control characters and of the usual length is shown as it stands. Looks at four units at a
/// time: every cell that is painted for the first time comes here.
[[nodiscard]] bool isPlain(std::u16string_view text) {
    constexpr std::size_t kAtATime = sizeof(std::uint64_t) / sizeof(char16_t);
    constexpr std::uint64_t kEach = 0x0001'0001'0001'0001;
    if (text.size() > kMostUnits)
        return false;
    std::uint64_t borrows = 0;
    for (; text.size() >= kAtATime; text.remove_prefix(kAtATime)) {
        std::uint64_t units = 0;
        std::memcpy(&units, text.data(), sizeof units);
        borrows |= (units - kEach * u' ') & ~units;
    }
    return (borrows & kEach << 15) == 0 &&
           std::all_of(text.begin(), text.end(), [](char16_t unit) { return unit >= u' '; });
}

[[nodiscard]] std::u16string counted(std::size_t count, std::u16string_view noun) {
    std::u16string text = automation::decimal(static_cast<std::int64_t>(count));
    text += noun;
    return text;
}

}  // namespace

std::u16string valueText(const Value& value) {
    switch (value.kind()) {
        case ValueKind::Empty:
        case ValueKind::Null:
        case ValueKind::Missing:
            return {};
        case ValueKind::Bytes:
            return counted(value.getIf<automation::Bytes>()->data.size(), u" bytes");
        case ValueKind::Array:
            return counted(value.getIf<automation::Array>()->items.size(), u" items");
        case ValueKind::Object:
            return *value.getIf<automation::Object>() ? value.toString() : std::u16string();
        default:
            return value.toString();
    }
}

std::u16string displayText(std::u16string_view text) {
    const std::size_t lineEnd = text.find_first_of(u"\r\n");
    std::u16string_view shown = text.substr(0, lineEnd);
    if (shown.size() > kMostUnits)
        shown = shown.substr(0, kMostUnits - (isHighSurrogate(shown[kMostUnits - 1]) ? 1 : 0));
    std::u16string result(shown);
    for (char16_t& unit : result) {
        if (unit == u'\t')
            unit = u' ';
        else if (unit == u'\0')
            unit = kNullSymbol;
    }
    if (shown.size() < text.size())
        result += kEllipsis;
    return result;
}

void makeDisplayText(Value& value) {
    const auto text = value.text();
    if (!text || !isPlain(*text))
        value = Value(displayText(text ? *text : valueText(value)));
}

std::u16string clipboardField(std::u16string_view text) {
    const bool quoted = text.find_first_of(u"\t\r\n\"") != std::u16string_view::npos;
    std::u16string result;
    result.reserve(text.size() + 2);
    if (quoted)
        result += u'"';
    for (const char16_t unit : text) {
        if (unit == u'"' && quoted)
            result += u'"';
        result += unit == u'\0' ? kNullSymbol : unit;
    }
    if (quoted)
        result += u'"';
    return result;
}

}  // namespace quorel::controls
