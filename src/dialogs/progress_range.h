#pragma once

#include <cstdint>

namespace quorel::dialogs {

/// The numbers of a progress bar; always minimum <= value <= maximum.
struct ProgressRange {
    std::int32_t value = 0;
    std::int32_t minimum = 0;
    std::int32_t maximum = 0;
    friend constexpr bool operator==(ProgressRange, ProgressRange) = default;
};

/// What a host's start, maximum and minimum become. A start below 1 means that so many steps are done before
/// the bar begins: the maximum is their sum and the value 0. A minimum above the maximum is replaced by 0, or
/// by the maximum where that is less. What still lies outside is brought to the nearer end. Never fails.
[[nodiscard]] ProgressRange progressRange(std::int32_t start, std::int32_t maximum,
                                          std::int32_t minimum) noexcept;

/// The value after an advance, by 1 for 0; stays within the range whatever the advance.
[[nodiscard]] std::int32_t advanced(ProgressRange range, std::int32_t by) noexcept;

/// `value` in hundredths of `maximum` as a whole number, halves to the even neighbour; 0 of a maximum of 0.
[[nodiscard]] std::int64_t percentageOf(std::int32_t value, std::int32_t maximum) noexcept;

}  // namespace quorel::dialogs
