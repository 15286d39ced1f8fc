#pragma once

#include "platform/automation/error.h"

namespace quorel::navigator {

/// The same error with what the user can do about it behind its description, where there is such a thing.
[[nodiscard]] automation::Error withRemedy(const automation::Error& error);

}  // namespace quorel::navigator
