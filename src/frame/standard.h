#pragma once

#include <cstdint>
#include <string_view>

#include "platform/automation/object.h"
#include "platform/automation/value.h"

namespace quorel::frame {

/// True if the reference is not empty; never raises.
using automation::IsObjectSet;

/// True if reading the collection's default member with that key succeeds, false if it raises any error.
[[nodiscard]] bool ExistsInCollection(const automation::Object& collection, const automation::Value& key);

/// Carriage return and line feed.
[[nodiscard]] constexpr std::u16string_view NewLine() noexcept {
    return u"\r\n";
}

[[nodiscard]] constexpr std::int32_t LargerOf(std::int32_t a, std::int32_t b) noexcept {
    return a > b ? a : b;
}

}  // namespace quorel::frame
