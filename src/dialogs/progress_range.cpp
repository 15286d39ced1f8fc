#include "dialogs/progress_range.h"

#include <algorithm>
#include <limits>

namespace quorel::dialogs {

namespace {

std::int32_t saturated(std::int64_t number) noexcept {
    using Limits = std::numeric_limits<std::int32_t>;
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(number, Limits::min(), Limits::max()));
}

}  // namespace

ProgressRange progressRange(std::int32_t start, std::int32_t maximum, std::int32_t minimum) noexcept {
    if (start < 1) {
        maximum = saturated(std::int64_t{start} + maximum);
        start = 0;
    }
    if (minimum > maximum)
        minimum = std::min(maximum, 0);
    return {std::clamp(start, minimum, maximum), minimum, maximum};
}

std::int32_t advanced(ProgressRange range, std::int32_t by) noexcept {
    const std::int64_t value = std::int64_t{range.value} + (by == 0 ? 1 : by);
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(value, range.minimum, range.maximum));
}

std::int64_t percentageOf(std::int32_t value, std::int32_t maximum) noexcept {
    if (maximum == 0)
        return 0;
    const std::int64_t sign = (value < 0) == (maximum < 0) ? 1 : -1;
    const std::int64_t whole = std::max<std::int64_t>(maximum, -std::int64_t{maximum});
    const std::int64_t hundredfold = std::max<std::int64_t>(value, -std::int64_t{value}) * 100;
    const std::int64_t floor = hundredfold / whole;
    const std::int64_t twiceRest = hundredfold % whole * 2;
    const bool up = twiceRest > whole || (twiceRest == whole && floor % 2 != 0);
    return sign * (floor + (up ? 1 : 0));
}

}  // namespace quorel::dialogs
