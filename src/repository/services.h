#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "platform/automation/object.h"

namespace quorel::repository {

/// What an entry point lends to the manager; either may be empty.
struct Services {
    /// Lets the user choose a repository file; nothing when the user cancels.
    std::function<std::optional<std::u16string>()> selectFile;
    /// Creates an object by programmatic identifier, e.g. `ClassRegistry::createObject`.
    std::function<automation::Object(std::u16string_view progId)> createObject;
};

}  // namespace quorel::repository
