#pragma once

#include <filesystem>
#include <vector>

#include "repository/import/line_reader.h"
#include "repository/import/metamodel.h"
#include "repository/import/progress.h"

namespace quorel::repository::metamodel {

/// Reads moddle descriptors (JSON), which may refer to each other by their prefixes. A type of a prefix that
/// no file has becomes a class without a description of its own. Throws `Error` naming file and line for what
/// cannot be read and for types that do not exist.
[[nodiscard]] Metamodel readModdle(const std::vector<std::filesystem::path>& files, const OpenSource& open,
                                   const ReportProgress& report);

}  // namespace quorel::repository::metamodel
