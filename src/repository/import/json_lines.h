#pragma once

#include <filesystem>
#include <iosfwd>

#include "repository/import/line_reader.h"
#include "repository/import/progress.h"
#include "repository/store.h"

namespace quorel::repository {

struct JsonCounts {
    std::int64_t nodes = 0;
    std::int64_t links = 0;
};

/// Reads a repository in JSON Lines (described in docs/repository.md) into an empty store. `total` is the
/// size of the input where it is known. Throws `Error` naming file and line for what cannot be read.
JsonCounts importJsonLines(Store& store, LineReader& lines, std::uint64_t total,
                           const ReportProgress& report);

/// Writes the whole repository but what ends with the session. What was written reads back as the same
/// repository, and is written the same again, byte for byte. `report` counts elements instead of bytes.
JsonCounts exportJsonLines(Store& store, std::ostream& out, const ReportProgress& report);

}  // namespace quorel::repository
