#pragma once

#include <cstdint>

namespace quorel::frame {

/// The published enumeration. `CTrue` is 1, unlike the automation boolean true, which is -1.
enum class CBoolean : std::int32_t { CFalse = 0, CTrue = 1 };

}  // namespace quorel::frame
