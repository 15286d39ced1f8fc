#pragma once

#include <cstdint>

namespace quorel::shell {

struct LocalTime {
    std::int32_t year = 0, month = 0, day = 0, hour = 0, minute = 0, second = 0;
    friend constexpr bool operator==(const LocalTime&, const LocalTime&) = default;
};

/// The wall clock. One reading is cheap (tens of nanoseconds); calendar fields are made from it on demand.
class Clock {
  public:
    virtual ~Clock() = default;
    /// Whole seconds since 1 January 1970 UTC.
    [[nodiscard]] virtual std::int64_t seconds() = 0;
    [[nodiscard]] virtual LocalTime localTime(std::int64_t seconds) = 0;
    /// Seconds since local midnight, with fractions.
    [[nodiscard]] virtual double secondsSinceMidnight() = 0;
};

}  // namespace quorel::shell
