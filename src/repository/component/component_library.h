#pragma once

#include "platform/win32/com/com_server.h"

namespace quorel::repository {

/// The classes that hosts can create of this component, with their fixed identifiers.
[[nodiscard]] std::vector<win32::ComClass> repositoryComClasses();

}  // namespace quorel::repository
