#pragma once

#include <atomic>
#include <cstdint>

#include "platform/shell/clock.h"

namespace quorel::win32 {

/// The system's clock. The difference between local time and UTC is asked for once for each quarter of an
/// hour of the times converted, for that is where it can change; a change of the time zone shows after at
/// most that time.
class WindowsClock : public shell::Clock {
  public:
    [[nodiscard]] std::int64_t seconds() override;
    [[nodiscard]] shell::LocalTime localTime(std::int64_t seconds) override;
    [[nodiscard]] double secondsSinceMidnight() override;

  private:
    [[nodiscard]] std::int64_t localOffset(std::int64_t seconds);

    /// Quarter and difference in one word, so that threads see both of the same reading.
    std::atomic<std::int64_t> cached_{-1};
};

}  // namespace quorel::win32
