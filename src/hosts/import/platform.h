#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "repository/import/line_reader.h"

namespace quorel::hosts {

/// A package list, unpacked by apt's own helper when it is compressed. Where there is no apt a compressed
/// list is an error that says so.
[[nodiscard]] std::unique_ptr<repository::ByteSource> openPackageList(const std::filesystem::path& path);

/// Whether the error stream is shown to somebody.
[[nodiscard]] bool errorStreamIsTerminal();

}  // namespace quorel::hosts
