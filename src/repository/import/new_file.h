#pragma once

#include <functional>
#include <string>

#include "repository/store.h"

namespace quorel::repository {

/// Makes a repository file by one load: `fill` gets an empty store inside one transaction. The file appears
/// under its name only when it is complete; whatever goes wrong, nothing of it is left. Throws `Error` 58
/// when the file exists and is not to be replaced.
void makeRepositoryFile(const std::u16string& file, bool replace, const std::function<void(Store&)>& fill);

}  // namespace quorel::repository
