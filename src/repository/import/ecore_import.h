#pragma once

#include <filesystem>
#include <vector>

#include "repository/import/line_reader.h"
#include "repository/import/metamodel.h"
#include "repository/import/progress.h"

namespace quorel::repository::metamodel {

/// Reads Ecore models (XML), which may refer to each other by file name or by a package's address. A class of
/// a file that is not among them becomes one without a description of its own. Nothing but these files is
/// read. Throws `Error` naming file and line for what cannot be read and for classifiers that do not exist.
[[nodiscard]] Metamodel readEcore(const std::vector<std::filesystem::path>& files, const OpenSource& open,
                                  const ReportProgress& report);

}  // namespace quorel::repository::metamodel
