#pragma once

#include <compare>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/automation/value.h"

namespace quorel::controls {

/// A cell as sorting sees it: numbers (also texts that are nothing but a number, dates, booleans) by value,
/// before texts; texts without regard to case, with the numbers in them by value ("Item 9" before "Item 10").
struct SortKey {
    bool readable = false;
    bool isNumber = false;
    double number = 0;
    std::u16string text;  ///< folded

    /// The key of a cell that could not be read; such rows come last in either direction.
    SortKey() = default;
    explicit SortKey(const automation::Value& value);
};

[[nodiscard]] std::weak_ordering compare(const SortKey& a, const SortKey& b) noexcept;

/// Compares folded texts, runs of digits by their value.
[[nodiscard]] std::weak_ordering naturalCompare(std::u16string_view a, std::u16string_view b) noexcept;

}  // namespace quorel::controls
