#pragma once

#include <cstdint>

namespace quorel::scripthost {

/// Waits while windows of this thread go on living.
void sleepPumping(std::int32_t milliseconds);

}  // namespace quorel::scripthost
