#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "repository/import/line_reader.h"
#include "repository/import/progress.h"
#include "repository/store.h"

namespace quorel::repository::debian {

/// The package lists in a folder of apt's, in the order of their names. Throws `Error` 53 with the remedy
/// when there are none.
[[nodiscard]] std::vector<std::filesystem::path> packageLists(const std::filesystem::path& folder);

struct Counts {
    std::int64_t nodes = 0;
    std::int64_t links = 0;
};

/// Reads package lists into an empty store. The newest version of a package wins when several lists hold it.
/// The lists are read twice: for the names, and for what belongs to them. Throws `Error` naming file and line
/// for a record that cannot be read.
Counts importPackages(Store& store, const std::vector<std::filesystem::path>& lists, const OpenSource& open,
                      const ReportProgress& report);

}  // namespace quorel::repository::debian
