#pragma once

#include <string>

#include "platform/automation/object.h"

namespace quorel::explorer {

/// The summary of a repository that the information pane shows. Throws what the repository throws.
[[nodiscard]] std::u16string repositorySummary(const automation::Object& repository);

}  // namespace quorel::explorer
