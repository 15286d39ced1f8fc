#pragma once

#include <optional>
#include <string>

namespace quorel::repository {

/// The platform's dialog for opening a file, over the window the user is in; nothing when the user cancels.
[[nodiscard]] std::optional<std::u16string> selectRepositoryFile();

}  // namespace quorel::repository
