#include "platform/automation/number_text.h"

#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <limits>

#include "platform/automation/text.h"

namespace quorel::automation {

namespace {

constexpr double kSecondsPerDay = 86400;
constexpr std::chrono::sys_days kDayZero = std::chrono::year{1899} / 12 / 30;

bool isBlank(char16_t unit) noexcept {
    return unit == u' ' || (unit >= 9 && unit <= 13) || unit == 0x00A0 || unit == 0x3000;
}

std::u16string_view trimmed(std::u16string_view text) noexcept {
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

std::optional<std::string> asAscii(std::u16string_view text) {
    std::string ascii;
    ascii.reserve(text.size());
    for (const char16_t unit : text) {
        if (unit >= 0x80)
            return std::nullopt;
        ascii.push_back(static_cast<char>(unit));
    }
    return ascii;
}

std::optional<double> parseRadix(std::string_view digits, int radix) {
    std::uint32_t bits = 0;
    const auto [end, failure] = std::from_chars(digits.data(), digits.data() + digits.size(), bits, radix);
    if (failure != std::errc() || end != digits.data() + digits.size())
        return std::nullopt;
    return static_cast<std::int32_t>(bits);
}

/// Where a well-formed decimal number ends; 0 if none begins here. Keeps out "inf", "nan" and lone points.
std::size_t decimalLength(std::string_view text) noexcept {
    const auto isDigit = [&text](std::size_t i) {
        return i < text.size() && text[i] >= '0' && text[i] <= '9';
    };
    std::size_t i = 0;
    std::size_t digits = 0;
    for (; isDigit(i); ++i)
        ++digits;
    if (i < text.size() && text[i] == '.')
        for (++i; isDigit(i); ++i)
            ++digits;
    if (digits == 0)
        return 0;
    if (i < text.size() && text[i] == 'e') {
        std::size_t exponent = i + 1;
        if (exponent < text.size() && (text[exponent] == '+' || text[exponent] == '-'))
            ++exponent;
        if (isDigit(exponent))
            for (i = exponent; isDigit(i);)
                ++i;
    }
    return i;
}

std::optional<double> parseDecimal(std::string_view text) {
    if (text.empty() || decimalLength(text) != text.size())
        return std::nullopt;
    double number = 0;
    const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (failure == std::errc::result_out_of_range) {
        const std::size_t exponent = text.find('e');
        const bool tiny = exponent != std::string_view::npos && text[exponent + 1] == '-';
        return tiny ? 0.0 : std::numeric_limits<double>::infinity();
    }
    return number;
}

void appendPadded(std::u16string& out, std::int64_t number, std::size_t width) {
    const std::u16string digits = decimal(number);
    if (digits.size() < width)
        out.append(width - digits.size(), u'0');
    out += digits;
}

/// Reads fixed-width fields one after the other.
class FieldReader {
  public:
    explicit FieldReader(std::u16string_view text) : text_(text) {}

    int digits(std::size_t count) {
        int number = 0;
        for (std::size_t i = 0; i < count; ++i) {
            if (text_.empty() || text_[0] < u'0' || text_[0] > u'9') {
                failed_ = true;
                return 0;
            }
            number = number * 10 + (text_[0] - u'0');
            text_.remove_prefix(1);
        }
        return number;
    }
    void expect(char16_t unit) {
        failed_ |= text_.empty() || text_[0] != unit;
        if (!failed_)
            text_.remove_prefix(1);
    }
    bool take(char16_t unit) {
        if (text_.empty() || text_[0] != unit)
            return false;
        text_.remove_prefix(1);
        return true;
    }
    [[nodiscard]] bool atEnd() const noexcept { return text_.empty(); }
    [[nodiscard]] bool succeeded() const noexcept { return !failed_ && text_.empty(); }

  private:
    std::u16string_view text_;
    bool failed_ = false;
};

}  // namespace

std::optional<double> parseNumber(std::u16string_view text) {
    auto ascii = asAscii(foldCase(trimmed(text)));
    if (!ascii || ascii->empty())
        return std::nullopt;
    std::string_view rest = *ascii;
    if (rest.starts_with("&h"))
        return parseRadix(rest.substr(2), 16);
    if (rest.starts_with("&o"))
        return parseRadix(rest.substr(2), 8);
    const bool negative = rest.front() == '-';
    if (negative || rest.front() == '+')
        rest.remove_prefix(1);
    while (!rest.empty() && rest.front() == ' ')
        rest.remove_prefix(1);
    const std::optional<double> number = parseDecimal(rest);
    return number && negative ? -*number : number;
}

std::u16string numberText(double number) {
    if (number == 0)
        return u"0";
    if (std::isnan(number))
        return u"-1.#IND";
    if (std::isinf(number))
        return number < 0 ? u"-1.#INF" : u"1.#INF";
    std::array<char, 40> digits{};
    const auto end =
        std::to_chars(digits.data(), digits.data() + digits.size(), number, std::chars_format::general, 15)
            .ptr;
    std::u16string text(digits.data(), end);
    for (char16_t& unit : text)
        if (unit == u'e')
            unit = u'E';
    return text;
}

bool isDateSerial(double serial) noexcept {
    return serial > -657435.0 && serial < 2958466.0;
}

std::u16string dateText(Date date) {
    if (!isDateSerial(date.serial))
        return numberText(date.serial);
    // A date before day zero counts its days backwards but its time of day forwards.
    double days = std::trunc(date.serial);
    auto seconds = static_cast<std::int64_t>(std::llround(std::abs(date.serial - days) * kSecondsPerDay));
    if (seconds == 86400) {
        days += 1;
        seconds = 0;
    }
    std::u16string text;
    if (days != 0 || seconds == 0) {
        const std::chrono::year_month_day day(kDayZero + std::chrono::days(static_cast<int>(days)));
        appendPadded(text, static_cast<int>(day.year()), 4);
        text += u'-';
        appendPadded(text, static_cast<unsigned>(day.month()), 2);
        text += u'-';
        appendPadded(text, static_cast<unsigned>(day.day()), 2);
    }
    if (seconds != 0) {
        if (!text.empty())
            text += u' ';
        appendPadded(text, seconds / 3600, 2);
        text += u':';
        appendPadded(text, seconds / 60 % 60, 2);
        text += u':';
        appendPadded(text, seconds % 60, 2);
    }
    return text;
}

std::optional<Date> parseDate(std::u16string_view text) {
    FieldReader in(trimmed(text));
    const std::u16string_view rest = trimmed(text);
    double days = 0;
    bool timeFollows = true;
    if (rest.size() >= 10) {
        const int year = in.digits(4);
        in.expect(u'-');
        const auto month = static_cast<unsigned>(in.digits(2));
        in.expect(u'-');
        const auto dayOfMonth = static_cast<unsigned>(in.digits(2));
        const std::chrono::year_month_day day{std::chrono::year(year), std::chrono::month(month),
                                              std::chrono::day(dayOfMonth)};
        if (!day.ok())
            return std::nullopt;
        days = (std::chrono::sys_days(day) - kDayZero).count();
        timeFollows = in.take(u' ') || in.take(u'T');
    }
    double seconds = 0;
    if (timeFollows) {
        const int hour = in.digits(2);
        in.expect(u':');
        const int minute = in.digits(2);
        in.expect(u':');
        const int second = in.digits(2);
        if (hour > 23 || minute > 59 || second > 59)
            return std::nullopt;
        seconds = hour * 3600 + minute * 60 + second;
    }
    if (!in.succeeded() || !isDateSerial(days))
        return std::nullopt;
    const double fraction = seconds / kSecondsPerDay;
    return Date{days < 0 ? days - fraction : days + fraction};
}

}  // namespace quorel::automation
