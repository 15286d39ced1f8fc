#include "platform/controls/property_value.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <utility>

#include "platform/automation/calls.h"
#include "platform/automation/number_text.h"
#include "platform/automation/text.h"
#include "platform/controls/cell_text.h"

namespace quorel::controls {

using automation::equalsIgnoringCase;
using automation::Value;
using automation::ValueKind;

namespace {

using Name = std::pair<std::u16string_view, EditorKind>;

constexpr std::array kTypeNames{
    Name{u"Memo", EditorKind::MultiLine},     Name{u"MultiLine", EditorKind::MultiLine},
    Name{u"LongText", EditorKind::MultiLine}, Name{u"Integer", EditorKind::Integer},
    Name{u"Int", EditorKind::Integer},        Name{u"Long", EditorKind::Integer},
    Name{u"Short", EditorKind::Integer},      Name{u"Double", EditorKind::Real},
    Name{u"Real", EditorKind::Real},          Name{u"Float", EditorKind::Real},
    Name{u"Single", EditorKind::Real},        Name{u"Number", EditorKind::Real},
    Name{u"Decimal", EditorKind::Real},       Name{u"Currency", EditorKind::Real},
    Name{u"Boolean", EditorKind::Boolean},    Name{u"Bool", EditorKind::Boolean},
    Name{u"Date", EditorKind::Date},          Name{u"DateTime", EditorKind::Date},
    Name{u"Time", EditorKind::Date},          Name{u"Enumeration", EditorKind::Enumeration},
    Name{u"Enum", EditorKind::Enumeration},   Name{u"Colour", EditorKind::Colour},
    Name{u"Color", EditorKind::Colour},       Name{u"File", EditorKind::File},
    Name{u"FileName", EditorKind::File},      Name{u"Directory", EditorKind::Directory},
    Name{u"Folder", EditorKind::Directory},   Name{u"Binary", EditorKind::Binary},
    Name{u"Bytes", EditorKind::Binary},       Name{u"Blob", EditorKind::Binary}};

constexpr std::int32_t kLargestColour = 0xFFFFFF;
constexpr std::size_t kDayLength = 10;

[[nodiscard]] std::u16string_view trimmed(std::u16string_view text) {
    constexpr std::u16string_view kBlanks = u" \t\r\n";
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::u16string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

[[nodiscard]] std::u16string hexadecimal(std::u16string_view prefix, std::uint32_t number, int digits) {
    std::u16string text(prefix);
    for (int digit = digits - 1; digit >= 0; --digit)
        text += u"0123456789ABCDEF"[number >> digit * 4 & 0xF];
    return text;
}

[[nodiscard]] std::uint32_t exchangedRedAndBlue(std::uint32_t colour) {
    return (colour & 0xFF) << 16 | (colour & 0xFF00) | (colour >> 16 & 0xFF);
}

[[nodiscard]] std::u16string colourText(std::int32_t colour) {
    const auto bits = static_cast<std::uint32_t>(colour);
    if (colour < 0 || colour > kLargestColour)
        return hexadecimal(u"&H", bits, 8);
    return hexadecimal(u"#", exchangedRedAndBlue(bits), 6);
}

[[nodiscard]] std::optional<std::int32_t> wholeNumber(std::u16string_view text) {
    const std::optional<double> number = automation::parseNumber(text);
    if (!number || std::trunc(*number) != *number)
        return std::nullopt;
    using Limits = std::numeric_limits<std::int32_t>;
    if (*number < Limits::min() || *number > Limits::max())
        return std::nullopt;
    return static_cast<std::int32_t>(*number);
}

[[nodiscard]] std::optional<std::int32_t> colourOf(std::u16string_view text) {
    if (!text.starts_with(u'#'))
        return wholeNumber(text);
    if (text.size() != 7)
        return std::nullopt;
    std::u16string number = u"&H";
    number += text.substr(1);
    const std::optional<std::int32_t> bits = wholeNumber(number);
    if (!bits)
        return std::nullopt;
    return static_cast<std::int32_t>(exchangedRedAndBlue(static_cast<std::uint32_t>(*bits)));
}

[[nodiscard]] ParsedValue parseInteger(std::u16string_view text) {
    if (const auto number = wholeNumber(text))
        return {Value(*number), {}};
    return {{}, u"Enter a whole number from -2147483648 to 2147483647."};
}

[[nodiscard]] ParsedValue parseReal(std::u16string_view text) {
    const std::optional<double> number = automation::parseNumber(text);
    if (number && std::isfinite(*number))
        return {Value(*number), {}};
    return {{}, u"Enter a number, such as 3.14 or 1E-6."};
}

[[nodiscard]] ParsedValue parseBoolean(std::u16string_view text) {
    constexpr std::array<std::u16string_view, 5> kTrue{u"True", u"Yes", u"On", u"1", u"-1"};
    constexpr std::array<std::u16string_view, 4> kFalse{u"False", u"No", u"Off", u"0"};
    const auto isOneOf = [text](const auto& names) {
        return std::any_of(names.begin(), names.end(),
                           [text](std::u16string_view name) { return equalsIgnoringCase(name, text); });
    };
    if (isOneOf(kTrue))
        return {Value(true), {}};
    if (isOneOf(kFalse))
        return {Value(false), {}};
    return {{}, u"Enter True or False."};
}

[[nodiscard]] ParsedValue parseDay(std::u16string_view text) {
    if (const auto date = automation::parseDate(text))
        return {Value(*date), {}};
    return {{}, u"Enter a date, such as 2002-03-03 or 2002-03-03 14:05:09."};
}

[[nodiscard]] ParsedValue parseColour(const ParseContext& context, std::u16string_view text) {
    const auto colour = colourOf(text);
    if (!colour)
        return {{}, u"Enter a colour as #RRGGBB, such as #FF8000 for orange."};
    if (context.original.kind() == ValueKind::String)
        return {Value(colourText(*colour)), {}};
    return {Value(*colour), {}};
}

[[nodiscard]] ParsedValue parseChoice(const ParseContext& context, std::u16string_view text) {
    if (context.choices.empty())
        return {Value(std::u16string(text)), {}};
    std::u16string list;
    for (const std::u16string& choice : context.choices) {
        if (choice == text)
            return {Value(choice), {}};
        list.append(list.empty() ? u"" : u", ").append(choice);
    }
    return {{}, u"Choose one of: " + list + u"."};
}

[[nodiscard]] bool isText(EditorKind kind) {
    return kind == EditorKind::Text || kind == EditorKind::MultiLine;
}

[[nodiscard]] bool isNumber(const Value& value) {
    return value.kind() == ValueKind::Integer || value.kind() == ValueKind::Double;
}

}  // namespace

EditorKind editorKind(std::u16string_view dataType) {
    const std::u16string_view name = trimmed(dataType);
    const auto* const found = std::find_if(kTypeNames.begin(), kTypeNames.end(), [name](const Name& known) {
        return equalsIgnoringCase(known.first, name);
    });
    return found != kTypeNames.end() ? found->second : EditorKind::Text;
}

std::u16string editText(EditorKind kind, const Value& value) {
    if (kind == EditorKind::Colour && isNumber(value)) {
        const double number = value.toDouble();
        using Limits = std::numeric_limits<std::int32_t>;
        if (number >= Limits::min() && number <= Limits::max())
            return colourText(value.toInteger());
    }
    return valueText(value);
}

ParsedValue parseValue(const ParseContext& context, std::u16string_view text) {
    if (isText(context.kind)) {
        if (text.empty() && isUnset(context.original))
            return {Value(), {}};
        return {Value(std::u16string(text)), {}};
    }
    const std::u16string_view bare = trimmed(text);
    if (bare.empty() &&
        std::find(context.choices.begin(), context.choices.end(), text) == context.choices.end())
        return {Value(), {}};
    switch (context.kind) {
        case EditorKind::Integer:
            return parseInteger(bare);
        case EditorKind::Real:
            return parseReal(bare);
        case EditorKind::Boolean:
            return parseBoolean(bare);
        case EditorKind::Date:
            return parseDay(bare);
        case EditorKind::Colour:
            return parseColour(context, bare);
        case EditorKind::Enumeration:
            return parseChoice(context, text);
        case EditorKind::Binary:
            return {{}, u"Bytes are loaded from a file: choose Load."};
        default:
            return {Value(std::u16string(bare)), {}};
    }
}

bool isTimeOfDay(std::u16string_view dataType) {
    return equalsIgnoringCase(trimmed(dataType), u"Time");
}

std::optional<shell::Day> dayOf(std::u16string_view text) {
    const auto date = automation::parseDate(trimmed(text));
    const std::u16string day = date ? automation::dateText(*date) : std::u16string();
    // "2002-03-03", with or without a time behind it.
    if (day.size() < kDayLength || day[4] != u'-')
        return std::nullopt;
    const auto part = [&day](std::size_t from, std::size_t length) {
        return static_cast<std::int32_t>(
            automation::parseNumber(std::u16string_view(day).substr(from, length)).value_or(0));
    };
    return shell::Day{part(0, 4), part(5, 2), part(8, 2)};
}

std::u16string withDay(std::u16string_view text, const shell::Day& day) {
    const auto padded = [](std::int32_t number, std::size_t width) {
        const std::u16string digits = automation::decimal(number);
        return std::u16string(width - std::min(width, digits.size()), u'0') + digits;
    };
    std::u16string result = padded(day.year, 4) + u"-" + padded(day.month, 2) + u"-" + padded(day.day, 2);
    if (const auto date = automation::parseDate(trimmed(text))) {
        const std::u16string before = automation::dateText(*date);
        const std::size_t colon = before.find(u':');
        if (colon != std::u16string::npos)
            result.append(u" ").append(before, colon - 2);
    }
    return result;
}

bool isUnset(const Value& value) noexcept {
    return value.isEmpty() || value.isNull() || value.isMissing();
}

bool sameValue(const Value& a, const Value& b) {
    if (isUnset(a) || isUnset(b))
        return isUnset(a) && isUnset(b);
    if (isNumber(a) && isNumber(b))
        return a.toDouble() == b.toDouble();
    if (a.kind() != b.kind())
        return false;
    if (const auto* bytes = a.getIf<automation::Bytes>())
        return bytes->data == b.getIf<automation::Bytes>()->data;
    if (a.kind() == ValueKind::Array)
        return false;
    return Value::equal(a, b);
}

std::u16string withWindowsLines(std::u16string_view text) {
    std::u16string result;
    result.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != u'\r' && text[i] != u'\n') {
            result += text[i];
            continue;
        }
        if (text[i] == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n')
            ++i;
        result += u"\r\n";
    }
    return result;
}

namespace {

[[nodiscard]] std::vector<std::u16string> numberedTexts(const automation::Object& list) {
    std::vector<std::u16string> texts;
    const std::int32_t length = list.get(u"length").toInteger();
    for (std::int32_t i = 0; i < length; ++i)
        texts.push_back(list.get(automation::decimal(i)).toString());
    return texts;
}

[[nodiscard]] std::vector<std::u16string> enumeratedTexts(const automation::Object& collection) {
    std::vector<std::u16string> texts;
    const auto reader = collection.enumerate();
    std::array<Value, 64> batch;
    for (std::size_t got = batch.size(); got == batch.size();) {
        got = reader->next(batch);
        for (std::size_t i = 0; i < got; ++i)
            texts.push_back(batch.at(i).toString());
    }
    return texts;
}

[[nodiscard]] std::vector<std::u16string> separatedTexts(std::u16string_view text) {
    std::vector<std::u16string> texts;
    while (!text.empty()) {
        const std::size_t comma = std::min(text.find(u','), text.size());
        texts.emplace_back(trimmed(text.substr(0, comma)));
        text.remove_prefix(std::min(comma + 1, text.size()));
    }
    return texts;
}

}  // namespace

std::vector<std::u16string> choicesOf(const Value& values) {
    if (const auto* array = values.getIf<automation::Array>()) {
        std::vector<std::u16string> texts;
        for (const Value& item : array->items)
            texts.push_back(item.toString());
        return texts;
    }
    if (const auto* object = values.getIf<automation::Object>(); object != nullptr && *object)
        return answersTo(*object, u"length") ? numberedTexts(*object) : enumeratedTexts(*object);
    return values.kind() == ValueKind::String ? separatedTexts(values.toString())
                                              : std::vector<std::u16string>();
}

}  // namespace quorel::controls
