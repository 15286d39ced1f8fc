#include "platform/win32/ui/windows_clock.h"

#include <windows.h>

namespace quorel::win32 {

namespace {

constexpr std::int64_t kTicksPerSecond = 10'000'000;
constexpr std::int64_t kEpochTicks = 116'444'736'000'000'000;  // 1 January 1970 in ticks since 1601
constexpr std::int64_t kQuarter = 900;
constexpr std::int64_t kDay = 86'400;
constexpr std::int64_t kOffsetRange = 1 << 20;  // more than any difference, twice

[[nodiscard]] constexpr std::int64_t floorDivide(std::int64_t value, std::int64_t by) noexcept {
    return value / by - (value % by < 0 ? 1 : 0);
}

[[nodiscard]] std::int64_t ticksNow() noexcept {
    FILETIME now{};
    ::GetSystemTimeAsFileTime(&now);
    return (static_cast<std::int64_t>(now.dwHighDateTime) << 32 | now.dwLowDateTime) - kEpochTicks;
}

[[nodiscard]] FILETIME fileTimeOf(std::int64_t seconds) noexcept {
    const std::int64_t ticks = seconds * kTicksPerSecond + kEpochTicks;
    return {static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32)};
}

[[nodiscard]] std::int64_t secondsOf(const FILETIME& time) noexcept {
    const std::int64_t ticks = static_cast<std::int64_t>(time.dwHighDateTime) << 32 | time.dwLowDateTime;
    return (ticks - kEpochTicks) / kTicksPerSecond;
}

/// Zero for times that the system's calendar does not reach.
[[nodiscard]] std::int64_t askOffset(std::int64_t seconds) noexcept {
    const FILETIME utc = fileTimeOf(seconds);
    SYSTEMTIME universal{}, local{};
    FILETIME localFile{};
    if (::FileTimeToSystemTime(&utc, &universal) == FALSE ||
        ::SystemTimeToTzSpecificLocalTime(nullptr, &universal, &local) == FALSE ||
        ::SystemTimeToFileTime(&local, &localFile) == FALSE)
        return 0;
    return secondsOf(localFile) - seconds;
}

/// The civil date of a day number counted from 1 January 1970, by the usual arithmetic on 400-year eras.
void setDate(shell::LocalTime& time, std::int64_t day) noexcept {
    const std::int64_t shifted = day + 719'468;
    const std::int64_t era = floorDivide(shifted, 146'097);
    const std::int64_t dayOfEra = shifted - era * 146'097;
    const std::int64_t yearOfEra =
        (dayOfEra - dayOfEra / 1460 + dayOfEra / 36'524 - dayOfEra / 146'096) / 365;
    const std::int64_t dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
    const std::int64_t shiftedMonth = (5 * dayOfYear + 2) / 153;
    time.day = static_cast<std::int32_t>(dayOfYear - (153 * shiftedMonth + 2) / 5 + 1);
    time.month = static_cast<std::int32_t>(shiftedMonth < 10 ? shiftedMonth + 3 : shiftedMonth - 9);
    time.year = static_cast<std::int32_t>(yearOfEra + era * 400 + (time.month <= 2 ? 1 : 0));
}

}  // namespace

std::int64_t WindowsClock::seconds() {
    return floorDivide(ticksNow(), kTicksPerSecond);
}

std::int64_t WindowsClock::localOffset(std::int64_t seconds) {
    const std::int64_t quarter = floorDivide(seconds, kQuarter);
    const std::int64_t cached = cached_.load(std::memory_order_relaxed);
    if (cached >= 0 && cached / kOffsetRange == quarter)
        return cached % kOffsetRange - kOffsetRange / 2;
    const std::int64_t offset = askOffset(quarter * kQuarter);
    if (quarter >= 0)
        cached_.store(quarter * kOffsetRange + offset + kOffsetRange / 2, std::memory_order_relaxed);
    return offset;
}

shell::LocalTime WindowsClock::localTime(std::int64_t seconds) {
    const std::int64_t local = seconds + localOffset(seconds);
    const std::int64_t day = floorDivide(local, kDay);
    const auto second = static_cast<std::int32_t>(local - day * kDay);
    shell::LocalTime time;
    setDate(time, day);
    time.hour = second / 3600;
    time.minute = second / 60 % 60;
    time.second = second % 60;
    return time;
}

double WindowsClock::secondsSinceMidnight() {
    const std::int64_t ticks = ticksNow();
    const std::int64_t seconds = floorDivide(ticks, kTicksPerSecond);
    const std::int64_t local = seconds + localOffset(seconds);
    const std::int64_t whole = local - floorDivide(local, kDay) * kDay;
    return static_cast<double>(whole) +
           static_cast<double>(ticks - seconds * kTicksPerSecond) / static_cast<double>(kTicksPerSecond);
}

}  // namespace quorel::win32
