#pragma once

#include <cstdint>
#include <optional>

namespace quorel::shell {

struct Day {
    std::int32_t year = 0;
    std::int32_t month = 0;  ///< from 1
    std::int32_t day = 0;    ///< from 1
    friend bool operator==(const Day&, const Day&) = default;
};

/// The system's pickers for values that are seen rather than spelt. Each returns when the user has chosen, is
/// empty when he cancels and throws `automation::Error` when it cannot be shown.
class ValuePickers {
  public:
    virtual ~ValuePickers() = default;
    /// Colours are the platform's integers: blue, green and red from the highest byte, 0 to 0xFFFFFF.
    [[nodiscard]] virtual std::optional<std::int32_t> pickColour(std::int32_t proposed) = 0;
    /// Drops down from what has the keyboard. Without a proposal it begins with today.
    [[nodiscard]] virtual std::optional<Day> pickDay(std::optional<Day> proposed) = 0;
};

}  // namespace quorel::shell
