#pragma once

#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string>
#include <string_view>

#include "platform/automation/value.h"
#include "repository/model.h"

namespace quorel::repository {

/// A property's value in JSON: strings and enumerations as strings, numbers and booleans as they are, dates
/// as "2001-02-03T04:05:06" where that is exact and as the serial number where not, bytes as hexadecimal
/// digits.
[[nodiscard]] std::string jsonOf(const automation::Value& value);

/// The way back, by the property's type. Throws `Error` 13 naming the property.
[[nodiscard]] automation::Value valueOf(const nlohmann::ordered_json& json, const PropertyRecord& property);

/// A date in the form above, of the proleptic Gregorian calendar; nothing when the text is no date.
[[nodiscard]] std::optional<automation::Date> dateOf(std::string_view text);

}  // namespace quorel::repository
