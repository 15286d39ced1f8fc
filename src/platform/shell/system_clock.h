#pragma once

#include "platform/shell/clock.h"

namespace quorel::shell {

/// The machine's clock and time zone. The calendar fields of the second asked for last are kept.
class SystemClock final : public Clock {
  public:
    [[nodiscard]] std::int64_t seconds() override;
    /// Throws `automation::Error` 5 for a second that the calendar cannot express.
    [[nodiscard]] LocalTime localTime(std::int64_t seconds) override;
    [[nodiscard]] double secondsSinceMidnight() override;

  private:
    bool known_ = false;
    std::int64_t knownSeconds_ = 0;
    LocalTime knownTime_;
};

}  // namespace quorel::shell
