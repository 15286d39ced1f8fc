#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "repository/import/line_reader.h"
#include "repository/import/metamodel.h"
#include "repository/import/progress.h"

/// Whole repositories made of files of others, and written as one.
namespace quorel::repository {

enum class ImportKind {
    PackageIndex,  ///< package lists of Debian, or a folder of them
    JsonLines,     ///< one file, a repository as `exportTo` writes it
    Moddle,        ///< moddle descriptors (JSON)
    Ecore          ///< Ecore models (XML)
};

/// The kind that a file's name tells: ".jsonl", ".json" (moddle), ".ecore", or the name of a package list.
[[nodiscard]] std::optional<ImportKind> importKindOf(std::u16string_view file);

/// What came of an import.
struct ImportReport {
    std::int64_t nodes = 0;
    std::int64_t links = 0;
    /// Of Moddle and Ecore, which bring types: how many, what was renamed since names clashed, and how often
    /// each kind of thing was met for which there is no place.
    std::optional<metamodel::Outcome> metamodel;
};

/// "42 nodes and 57 links" or, of a metamodel, "3 meta nodes with 5 properties and 2 meta links".
[[nodiscard]] std::u16string summaryOf(const ImportReport& report);
/// Lines that tell what was renamed and what has no place in a repository; none unless it is a metamodel.
[[nodiscard]] std::vector<std::u16string> remarksOf(const ImportReport& report);

/// Opens a package list that is not compressed; a compressed one is error 321 that says what to do.
[[nodiscard]] std::unique_ptr<ByteSource> openUnpackedList(const std::filesystem::path& path);

/// Makes the repository file `output` of `inputs`, which stay as they are. It appears under its name only
/// when it is complete, and whatever goes wrong an old file of that name is as it was. Throws `Error`: 58 the
/// output exists and is not to be replaced, 75 it is one of the inputs or cannot be written, 53 and 75 an
/// input is missing or cannot be read, 321 with file and line an input is not what it should be. `report`
/// gets bytes read; `openList` opens package lists.
ImportReport importInto(ImportKind kind, const std::vector<std::u16string>& inputs,
                        const std::u16string& output, bool replace, const ReportProgress& report,
                        const OpenSource& openList = openUnpackedList);

struct ExportReport {
    std::int64_t nodes = 0;
    std::int64_t links = 0;
};

[[nodiscard]] std::u16string summaryOf(const ExportReport& report);

/// Writes the repository file `repository` as the JSON Lines file `output`, which appears only when it is
/// complete. Throws `Error` as `importInto` does. `report` gets elements written.
ExportReport exportTo(const std::u16string& repository, const std::u16string& output, bool replace,
                      const ReportProgress& report);

}  // namespace quorel::repository
