#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/automation/value.h"

namespace quorel::automation {

/// A number as automation languages read it: blanks around it, a sign, a decimal point, an exponent; or a
/// whole number of up to 32 bits behind "&H" or "&O". Empty when the text is no number, infinity when it is
/// too large for a double.
[[nodiscard]] std::optional<double> parseNumber(std::u16string_view text);

/// As short as fifteen digits allow, with "E+20" style exponents.
[[nodiscard]] std::u16string numberText(double number);

/// "2002-03-03 14:05:09"; the date alone at midnight, the time alone on day zero. The same in every locale.
[[nodiscard]] std::u16string dateText(Date date);

/// Reads what `dateText` writes, "T" between date and time too. Empty for any other text.
[[nodiscard]] std::optional<Date> parseDate(std::u16string_view text);

/// True for a date from the year 100 to the year 9999, the range of automation dates.
[[nodiscard]] bool isDateSerial(double serial) noexcept;

}  // namespace quorel::automation
