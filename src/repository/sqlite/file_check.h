#pragma once

#include <filesystem>
#include <string>

namespace quorel::repository::sqlite {

[[nodiscard]] std::filesystem::path pathOf(const std::u16string& file);

/// Reads a file's header and throws `Error` when it is not a repository of this program: 53 there is no such
/// file, 75 it cannot be read, 321 it is no repository, or one of a newer program. Nothing is written or
/// locked.
void checkFile(const std::u16string& file);

}  // namespace quorel::repository::sqlite
