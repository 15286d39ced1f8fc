#include "platform/shell/system_clock.h"

#include <chrono>
#include <ctime>

#include "platform/automation/error.h"

namespace quorel::shell {

std::int64_t SystemClock::seconds() {
    // A whole second is all that is wanted, and the C library reads it several times faster than <chrono>
    // reads nanoseconds.
    return std::time(nullptr);
}

LocalTime SystemClock::localTime(std::int64_t seconds) {
    if (known_ && seconds == knownSeconds_)
        return knownTime_;
    const std::time_t time = seconds;
    const std::tm* const fields = std::localtime(&time);
    if (fields == nullptr)
        throw automation::Error(automation::error_number::kInvalidCall);
    knownTime_ = {fields->tm_year + 1900, fields->tm_mon + 1, fields->tm_mday,
                  fields->tm_hour,        fields->tm_min,     fields->tm_sec};
    knownSeconds_ = seconds;
    known_ = true;
    return knownTime_;
}

double SystemClock::secondsSinceMidnight() {
    using namespace std::chrono;
    const auto now = system_clock::now();
    const auto whole = floor<std::chrono::seconds>(now);
    const LocalTime time = localTime(whole.time_since_epoch().count());
    return time.hour * 3600 + time.minute * 60 + time.second + duration<double>(now - whole).count();
}

}  // namespace quorel::shell
