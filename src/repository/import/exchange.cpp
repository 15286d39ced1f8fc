#include "repository/import/exchange.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <utility>

#include "platform/automation/error.h"
#include "platform/automation/text.h"
#include "repository/errors.h"
#include "repository/import/debian_import.h"
#include "repository/import/ecore_import.h"
#include "repository/import/json_lines.h"
#include "repository/import/moddle_import.h"
#include "repository/import/new_file.h"
#include "repository/sqlite/file_check.h"
#include "repository/sqlite/sqlite_store.h"

namespace quorel::repository {

namespace {

using automation::error_number::kInvalidCall;
using automation::error_number::kPathFileAccess;
using Paths = std::vector<std::filesystem::path>;

void describe(Store& store, std::u16string_view name, std::u16string_view description,
              std::u16string_view type) {
    store.setRepositoryProperty(u"name", name);
    store.setRepositoryProperty(u"Description", description);
    store.setRepositoryProperty(u"RepType", type);
    store.setRepositoryProperty(u"Version", u"1.0");
}

/// By the names and the addresses of the outermost packages.
void describe(Store& store, const metamodel::Metamodel& metamodel) {
    std::u16string names, addresses;
    const auto append = [](std::u16string& list, const std::u16string& text) {
        list.append(list.empty() || text.empty() ? u"" : u", ").append(text);
    };
    for (const metamodel::Package& package : metamodel.packages) {
        if (package.isNested || package.isNamedOnly)
            continue;
        append(names, package.name);
        append(addresses, package.address);
    }
    describe(store, names, addresses, u"Metamodel");
}

/// Folders as the lists in them.
Paths packageListsOf(const Paths& inputs) {
    Paths lists;
    std::error_code ignored;
    for (const std::filesystem::path& input : inputs) {
        if (std::filesystem::is_regular_file(input, ignored)) {
            lists.push_back(input);
            continue;
        }
        const Paths found = debian::packageLists(input);
        lists.insert(lists.end(), found.begin(), found.end());
    }
    return lists;
}

ImportReport loadPackages(Store& store, const Paths& inputs, const ReportProgress& report,
                          const OpenSource& openList) {
    describe(store, u"Debian packages", u"The packages that this machine can install, and how they relate",
             u"Package index");
    const debian::Counts counts = debian::importPackages(store, packageListsOf(inputs), openList, report);
    return {counts.nodes, counts.links, {}};
}

ImportReport loadJsonLines(Store& store, const Paths& inputs, const ReportProgress& report) {
    if (inputs.size() != 1)
        throw failure(kInvalidCall, u"A repository is made of one JSON Lines file");
    const std::filesystem::path& input = inputs.front();
    LineReader lines(openPlainFile(input), shown(input));
    std::error_code failed;
    const std::uintmax_t size = std::filesystem::file_size(input, failed);
    const JsonCounts counts = importJsonLines(store, lines, failed ? 0 : size, report);
    return {counts.nodes, counts.links, {}};
}

ImportReport loadMetamodel(Store& store, const metamodel::Metamodel& metamodel) {
    describe(store, metamodel);
    return {0, 0, metamodel::write(store, metamodel)};
}

ImportReport load(Store& store, ImportKind kind, const Paths& inputs, const ReportProgress& report,
                  const OpenSource& openList) {
    switch (kind) {
        case ImportKind::PackageIndex:
            return loadPackages(store, inputs, report, openList);
        case ImportKind::JsonLines:
            return loadJsonLines(store, inputs, report);
        case ImportKind::Moddle:
            return loadMetamodel(store, metamodel::readModdle(inputs, openPlainFile, report));
        case ImportKind::Ecore:
            break;
    }
    return loadMetamodel(store, metamodel::readEcore(inputs, openPlainFile, report));
}

void refuseInputAsOutput(const Paths& inputs, const std::u16string& output) {
    const std::filesystem::path path = sqlite::pathOf(output);
    std::error_code ignored;
    for (const std::filesystem::path& input : inputs)
        if (std::filesystem::equivalent(input, path, ignored))
            throw failure(kPathFileAccess, u"The file " + inQuotes(output) +
                                               u" is what is read; write to one of another name");
}

[[noreturn]] void refuseOutput(const std::u16string& output) {
    throw failure(kPathFileAccess,
                  u"The file " + inQuotes(output) +
                      u" cannot be written: its folder is missing, or it is protected or in use");
}

/// A file that is written beside its place; what is unfinished is removed.
class FileInTheMaking {
  public:
    explicit FileInTheMaking(const std::u16string& output)
        : output_(output), path_(sqlite::pathOf(output + u".exporting")), stream_(path_, std::ios::binary) {
        if (!stream_)
            refuseOutput(output);
    }
    FileInTheMaking(const FileInTheMaking&) = delete;
    FileInTheMaking& operator=(const FileInTheMaking&) = delete;
    ~FileInTheMaking() {
        stream_.close();
        std::error_code ignored;
        std::filesystem::remove(path_, ignored);
    }
    [[nodiscard]] std::ostream& stream() noexcept { return stream_; }
    void moveToItsPlace() {
        stream_.close();
        std::error_code failed;
        if (stream_)
            std::filesystem::rename(path_, sqlite::pathOf(output_), failed);
        if (!stream_ || failed)
            refuseOutput(output_);
    }

  private:
    std::u16string output_;
    std::filesystem::path path_;
    std::ofstream stream_;
};

std::u16string summaryOf(std::int64_t nodes, std::int64_t links) {
    return automation::decimal(nodes) + u" nodes and " + automation::decimal(links) + u" links";
}

}  // namespace

std::u16string summaryOf(const ImportReport& report) {
    if (!report.metamodel)
        return summaryOf(report.nodes, report.links);
    return automation::decimal(report.metamodel->metaNodes) + u" meta nodes with " +
           automation::decimal(report.metamodel->properties) + u" properties and " +
           automation::decimal(report.metamodel->metaLinks) + u" meta links";
}

std::u16string summaryOf(const ExportReport& report) {
    return summaryOf(report.nodes, report.links);
}

std::vector<std::u16string> remarksOf(const ImportReport& report) {
    constexpr std::size_t kCountWidth = 8;
    std::vector<std::u16string> lines;
    if (!report.metamodel)
        return lines;
    if (!report.metamodel->renamed.empty())
        lines.emplace_back(u"Renamed, as the names were taken:");
    for (const std::u16string& line : report.metamodel->renamed)
        lines.push_back(u"  " + line);
    lines.emplace_back(report.metamodel->notTaken.empty() ? u"Nothing was left out" : u"Not taken:");
    for (const auto& [kind, times] : report.metamodel->notTaken) {
        const std::u16string count = automation::decimal(times);
        lines.push_back(std::u16string(kCountWidth - std::min(kCountWidth, count.size()), u' ') + count +
                        u"  " + automation::fromUtf8(kind));
    }
    return lines;
}

std::optional<ImportKind> importKindOf(std::u16string_view file) {
    constexpr std::array<std::pair<std::u16string_view, ImportKind>, 4> kEndings{
        {{u".jsonl", ImportKind::JsonLines},
         {u".json", ImportKind::Moddle},
         {u".ecore", ImportKind::Ecore},
         {u"packages", ImportKind::PackageIndex}}};
    const std::u16string name = automation::foldCase(file);
    for (const auto& [ending, kind] : kEndings)
        if (name.ends_with(ending))
            return kind;
    const std::size_t mark = name.rfind(u"_packages.");
    const bool isCompressedList =
        mark != std::u16string::npos && name.find_first_of(u"/\\", mark) == std::u16string::npos;
    return isCompressedList ? std::optional(ImportKind::PackageIndex) : std::nullopt;
}

std::unique_ptr<ByteSource> openUnpackedList(const std::filesystem::path& path) {
    constexpr std::array<std::string_view, 6> kCompressed{".lz4", ".gz", ".xz", ".zst", ".bz2", ".lzma"};
    if (std::find(kCompressed.begin(), kCompressed.end(), shown(path.extension())) != kCompressed.end())
        throw failure(
            error_number::kBadFileFormat,
            u"The list " + inQuotes(automation::fromUtf8(shown(path))) + u" is compressed; unpack it first");
    return openPlainFile(path);
}

ImportReport importInto(ImportKind kind, const std::vector<std::u16string>& inputs,
                        const std::u16string& output, bool replace, const ReportProgress& report,
                        const OpenSource& openList) {
    if (inputs.empty())
        throw failure(kInvalidCall, u"There is nothing to import");
    Paths paths;
    for (const std::u16string& input : inputs)
        paths.push_back(sqlite::pathOf(input));
    refuseInputAsOutput(paths, output);
    ImportReport result;
    makeRepositoryFile(output, replace,
                       [&](Store& store) { result = load(store, kind, paths, report, openList); });
    return result;
}

ExportReport exportTo(const std::u16string& repository, const std::u16string& output, bool replace,
                      const ReportProgress& report) {
    refuseInputAsOutput({sqlite::pathOf(repository)}, output);
    std::error_code ignored;
    if (!replace && std::filesystem::exists(sqlite::pathOf(output), ignored))
        throw failure(error_number::kFileAlreadyExists, u"The file " + inQuotes(output) + u" already exists");
    const auto store = sqlite::openStore(repository);
    FileInTheMaking file(output);
    const JsonCounts counts = exportJsonLines(*store, file.stream(), report);
    file.moveToItsPlace();
    return {counts.nodes, counts.links};
}

}  // namespace quorel::repository
