#include "platform/shell/system_clock.h"

#include <gtest/gtest.h>

#include <chrono>
#include <ctime>

namespace quorel::shell {
namespace {

TEST(SystemClock, SecondsAreThoseOfTheWallClock) {
    SystemClock clock;
    const auto now =
        std::chrono::duration_cast<std::chrono::seconds>(std::chrono::system_clock::now().time_since_epoch());
    EXPECT_NEAR(static_cast<double>(clock.seconds()), static_cast<double>(now.count()), 2);
}

TEST(SystemClock, LocalTimeAgreesWithTheCalendarForAnySecond) {
    SystemClock clock;
    for (const std::int64_t seconds : {std::int64_t{1015164309}, std::int64_t{1015164310}, std::int64_t{0},
                                       std::int64_t{1015164309}, std::int64_t{4102444799}}) {
        const std::time_t time = seconds;
        const std::tm fields = *std::localtime(&time);
        const LocalTime expected{fields.tm_year + 1900, fields.tm_mon + 1, fields.tm_mday,
                                 fields.tm_hour,        fields.tm_min,     fields.tm_sec};
        EXPECT_EQ(clock.localTime(seconds), expected) << seconds;
    }
}

TEST(SystemClock, SecondsSinceMidnightStayWithinTheDay) {
    SystemClock clock;
    const double first = clock.secondsSinceMidnight();
    EXPECT_GE(first, 0);
    EXPECT_LT(first, 86401);
    const LocalTime now = clock.localTime(clock.seconds());
    const double fields = now.hour * 3600 + now.minute * 60 + now.second;
    const double later = clock.secondsSinceMidnight();
    EXPECT_TRUE(std::abs(later - fields) < 3 || later < first) << later << " " << fields;
}

}  // namespace
}  // namespace quorel::shell
