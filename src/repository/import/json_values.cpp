#include "repository/import/json_values.h"

#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <nlohmann/json.hpp>

#include "platform/automation/text.h"
#include "repository/errors.h"
#include "repository/import/json_text.h"

namespace quorel::repository {

using automation::Bytes;
using automation::Date;
using automation::Value;
using automation::ValueKind;
using Json = nlohmann::ordered_json;

namespace {

constexpr double kSecondsADay = 86400;
constexpr std::chrono::sys_days kDayZero = std::chrono::sys_days(std::chrono::December / 30 / 1899);

std::string numberText(double number) {
    if (std::isinf(number))
        return number > 0 ? "\"Infinity\"" : "\"-Infinity\"";
    // Readers take "-0" for the integer, which has no sign.
    if (number == 0 && std::signbit(number))
        return "-0.0";
    std::array<char, 32> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), number).ptr;
    return {text.data(), end};
}

/// Automation dates before day zero count the time of day forward from the (negative) day.
double serialOf(std::int64_t days, std::int64_t seconds) {
    const double fraction = static_cast<double>(seconds) / kSecondsADay;
    const auto whole = static_cast<double>(days);
    return days < 0 ? whole - fraction : whole + fraction;
}

std::optional<std::string> dateText(Date date) {
    constexpr double kFarthest = 2958465;  // 31 December 9999
    if (!(std::abs(date.serial) <= kFarthest))
        return std::nullopt;
    const double whole = std::trunc(date.serial);
    const auto seconds =
        static_cast<std::int64_t>(std::llround(std::abs(date.serial - whole) * kSecondsADay));
    if (seconds >= static_cast<std::int64_t>(kSecondsADay))
        return std::nullopt;
    const auto days = static_cast<std::int64_t>(whole);
    if (days < -657434 || serialOf(days, seconds) != date.serial || (days == 0 && std::signbit(date.serial)))
        return std::nullopt;
    const std::chrono::year_month_day day(kDayZero + std::chrono::days(days));
    std::array<char, 64> text{};
    const int length = std::snprintf(text.data(), text.size(), "%04d-%02u-%02uT%02d:%02d:%02d",
                                     static_cast<int>(day.year()), static_cast<unsigned>(day.month()),
                                     static_cast<unsigned>(day.day()), static_cast<int>(seconds / 3600),
                                     static_cast<int>(seconds / 60 % 60), static_cast<int>(seconds % 60));
    return std::string(text.data(), static_cast<std::size_t>(length));
}

std::string hexText(const Bytes& bytes) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string text = "\"";
    for (const std::uint8_t byte : bytes.data) {
        text.push_back(kDigits[byte >> 4U]);
        text.push_back(kDigits[byte & 0xFU]);
    }
    return text.append("\"");
}

std::optional<Bytes> bytesOf(std::string_view hex) {
    Bytes bytes;
    if (hex.size() % 2 != 0)
        return std::nullopt;
    for (std::size_t i = 0; i < hex.size(); i += 2) {
        std::uint8_t byte = 0;
        const auto [stopped, failed] = std::from_chars(hex.data() + i, hex.data() + i + 2, byte, 16);
        if (failed != std::errc() || stopped != hex.data() + i + 2)
            return std::nullopt;
        bytes.data.push_back(byte);
    }
    return bytes;
}

std::optional<int> digits(std::string_view text, std::size_t start, std::size_t length) {
    int number = 0;
    const char* const end = text.data() + start + length;
    const auto [stopped, failed] = std::from_chars(text.data() + start, end, number);
    return failed == std::errc() && stopped == end && number >= 0 ? std::optional(number) : std::nullopt;
}

/// What the JSON holds as a variant of the nearest kind; nothing when the property cannot hold such a value.
std::optional<Value> loose(const Json& json, const PropertyRecord& property) {
    if (json.is_string()) {
        const auto& text = json.get_ref<const std::string&>();
        if (isText(property.type))
            return Value(unsealed(text));
        if (property.type == DataType::Date)
            if (const std::optional<Date> date = dateOf(text))
                return Value(*date);
        if (property.type == DataType::Binary)
            if (std::optional<Bytes> bytes = bytesOf(text))
                return Value(*std::move(bytes));
        if (property.type == DataType::Double && (text == "Infinity" || text == "-Infinity"))
            return Value(text.front() == '-' ? -HUGE_VAL : HUGE_VAL);
        return std::nullopt;
    }
    if (json.is_boolean() && property.type == DataType::Boolean)
        return Value(json.get<bool>());
    if (json.is_number() && property.type == DataType::Date)
        return Value(Date{json.get<double>()});
    if (json.is_number() && property.type == DataType::Double)
        return Value(json.get<double>());
    const bool isInteger =
        json.is_number_integer() && json.get<double>() >= INT32_MIN && json.get<double>() <= INT32_MAX;
    if (isInteger && (property.type == DataType::Integer || property.type == DataType::Colour))
        return Value(json.get<std::int32_t>());
    return std::nullopt;
}

}  // namespace

std::optional<Date> dateOf(std::string_view text) {
    const bool hasTime = text.size() == 19;
    if ((text.size() != 10 && !hasTime) || text[4] != '-' || text[7] != '-')
        return std::nullopt;
    if (hasTime && (text[10] != 'T' || text[13] != ':' || text[16] != ':'))
        return std::nullopt;
    const auto year = digits(text, 0, 4), month = digits(text, 5, 2), day = digits(text, 8, 2);
    const auto hour = hasTime ? digits(text, 11, 2) : 0, minute = hasTime ? digits(text, 14, 2) : 0,
               second = hasTime ? digits(text, 17, 2) : 0;
    if (!year || !month || !day || !hour || !minute || !second || *hour > 23 || *minute > 59 || *second > 59)
        return std::nullopt;
    const std::chrono::year_month_day date(std::chrono::year(*year),
                                           std::chrono::month(static_cast<unsigned>(*month)),
                                           std::chrono::day(static_cast<unsigned>(*day)));
    if (!date.ok())
        return std::nullopt;
    const auto days = (std::chrono::sys_days(date) - kDayZero).count();
    return Date{serialOf(days, *hour * 3600 + *minute * 60 + *second)};
}

std::string jsonOf(const Value& value) {
    switch (value.kind()) {
        case ValueKind::String:
            return jsonQuoted(*value.text());
        case ValueKind::Integer:
            return std::to_string(*value.getIf<std::int32_t>());
        case ValueKind::Double:
            return numberText(*value.getIf<double>());
        case ValueKind::Boolean:
            return *value.getIf<bool>() ? "true" : "false";
        case ValueKind::Bytes:
            return hexText(*value.getIf<Bytes>());
        case ValueKind::Date: {
            const Date date = *value.getIf<Date>();
            const std::optional<std::string> text = dateText(date);
            return text ? "\"" + *text + "\"" : numberText(date.serial);
        }
        default:
            return "null";
    }
}

Value valueOf(const Json& json, const PropertyRecord& property) {
    std::optional<Value> value = loose(json, property);
    if (!value)
        throw failure(automation::error_number::kTypeMismatch,
                      u"the property " + inQuotes(property.name) + u" takes a value of the type " +
                          std::u16string(dataTypeName(property.type)));
    return coerced(property, *value);
}

}  // namespace quorel::repository
