#include "hosts/import/run.h"

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>

#include "hosts/import/arguments.h"
#include "hosts/import/platform.h"
#include "hosts/import/progress_display.h"
#include "platform/automation/error.h"
#include "platform/automation/text.h"
#include "repository/errors.h"
#include "repository/import/debian_import.h"
#include "repository/import/ecore_import.h"
#include "repository/import/json_lines.h"
#include "repository/import/metamodel.h"
#include "repository/import/moddle_import.h"
#include "repository/import/new_file.h"
#include "repository/sqlite/file_check.h"
#include "repository/sqlite/sqlite_store.h"

namespace quorel::hosts {

namespace {

constexpr int kDone = 0;
constexpr int kFailed = 1;
constexpr int kWrongUsage = 2;

using automation::toUtf8;

void setRepositoryProperties(repository::Store& store, std::u16string_view name,
                             std::u16string_view description, std::u16string_view type) {
    store.setRepositoryProperty(u"name", name);
    store.setRepositoryProperty(u"Description", description);
    store.setRepositoryProperty(u"RepType", type);
    store.setRepositoryProperty(u"Version", u"1.0");
}

template <class Counts>
std::string summaryOf(const Counts& counts) {
    return std::to_string(counts.nodes) + " nodes and " + std::to_string(counts.links) + " links";
}

std::string summaryOf(const repository::metamodel::Outcome& outcome) {
    return std::to_string(outcome.metaNodes) + " meta nodes with " + std::to_string(outcome.properties) +
           " properties and " + std::to_string(outcome.metaLinks) + " meta links";
}

/// Runs `work` with a progress display and says at the end what came of it.
template <class Work>
void withProgress(const char* verb, const std::u16string& output, ProgressDisplay::Unit unit, Work work) {
    const auto start = std::chrono::steady_clock::now();
    ProgressDisplay display(stderr, errorStreamIsTerminal(), unit);
    const auto counts = [&] {
        try {
            return work([&](const repository::Progress& progress) { display.show(progress); });
        } catch (...) {
            display.finish();
            throw;
        }
    }();
    display.finish();
    const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    const double size = static_cast<double>(std::filesystem::file_size(repository::sqlite::pathOf(output)));
    std::printf("%s %s: %s, %.1f MB, in %.1f s\n", verb, summaryOf(counts).c_str(), toUtf8(output).c_str(),
                size / 1e6, seconds);
}

void importPackages(const Arguments& arguments) {
    const auto lists = repository::debian::packageLists(repository::sqlite::pathOf(arguments.lists));
    withProgress(
        "Imported", arguments.output, ProgressDisplay::Unit::Bytes,
        [&](const repository::ReportProgress& report) {
            repository::debian::Counts counts;
            repository::makeRepositoryFile(
                arguments.output, arguments.replace, [&](repository::Store& store) {
                    setRepositoryProperties(
                        store, u"Debian packages",
                        u"The packages that this machine can install, and how they relate", u"Package index");
                    counts = repository::debian::importPackages(store, lists, openPackageList, report);
                });
            return counts;
        });
}

void importJsonLines(const Arguments& arguments) {
    withProgress("Imported", arguments.output, ProgressDisplay::Unit::Bytes,
                 [&](const repository::ReportProgress& report) {
                     const std::filesystem::path input = repository::sqlite::pathOf(arguments.inputs.front());
                     repository::LineReader lines(repository::openPlainFile(input), repository::shown(input));
                     std::error_code ignored;
                     const std::uintmax_t size = std::filesystem::file_size(input, ignored);
                     repository::JsonCounts counts;
                     repository::makeRepositoryFile(
                         arguments.output, arguments.replace, [&](repository::Store& store) {
                             counts = repository::importJsonLines(store, lines, ignored ? 0 : size, report);
                         });
                     return counts;
                 });
}

/// The names and the addresses of the outermost packages.
void nameRepository(repository::Store& store, const repository::metamodel::Metamodel& metamodel) {
    std::u16string names, addresses;
    const auto append = [](std::u16string& list, const std::u16string& text) {
        list.append(list.empty() || text.empty() ? u"" : u", ").append(text);
    };
    for (const repository::metamodel::Package& package : metamodel.packages) {
        if (package.isNested || package.isNamedOnly)
            continue;
        append(names, package.name);
        append(addresses, package.address);
    }
    setRepositoryProperties(store, names, addresses, u"Metamodel");
}

/// What did not go into the repository as it was in the files.
void printRest(const repository::metamodel::Outcome& outcome) {
    if (!outcome.renamed.empty())
        std::printf("Renamed, as the names were taken:\n");
    for (const std::u16string& line : outcome.renamed)
        std::printf("  %s\n", toUtf8(line).c_str());
    std::printf(outcome.notTaken.empty() ? "Nothing was left out\n" : "Not taken:\n");
    for (const auto& [kind, count] : outcome.notTaken)
        std::printf("%8lld  %s\n", static_cast<long long>(count), kind.c_str());
}

void importMetamodel(const Arguments& arguments, decltype(repository::metamodel::readEcore)* read) {
    std::vector<std::filesystem::path> inputs;
    for (const std::u16string& input : arguments.inputs)
        inputs.push_back(repository::sqlite::pathOf(input));
    repository::metamodel::Outcome outcome;
    withProgress("Imported", arguments.output, ProgressDisplay::Unit::Bytes,
                 [&](const repository::ReportProgress& report) {
                     repository::makeRepositoryFile(
                         arguments.output, arguments.replace, [&](repository::Store& store) {
                             const auto metamodel = read(inputs, repository::openPlainFile, report);
                             nameRepository(store, metamodel);
                             outcome = repository::metamodel::write(store, metamodel);
                         });
                     return outcome;
                 });
    printRest(outcome);
}

[[noreturn]] void refuseOutput(const std::u16string& output) {
    throw repository::failure(automation::error_number::kPathFileAccess,
                              u"The file " + repository::inQuotes(output) + u" cannot be written");
}

/// Writes beside the output and moves it there when it is complete.
repository::JsonCounts exportTo(const Arguments& arguments, const repository::ReportProgress& report) {
    const std::filesystem::path output = repository::sqlite::pathOf(arguments.output);
    if (!arguments.replace && std::filesystem::exists(output))
        throw repository::failure(repository::error_number::kFileAlreadyExists,
                                  u"The file " + repository::inQuotes(arguments.output) + u" already exists");
    const auto store = repository::sqlite::openStore(arguments.inputs.front());
    const std::filesystem::path unfinished = repository::sqlite::pathOf(arguments.output + u".exporting");
    std::ofstream out(unfinished, std::ios::binary);
    if (!out)
        refuseOutput(arguments.output);
    const repository::JsonCounts counts = repository::exportJsonLines(*store, out, report);
    out.close();
    std::error_code failed;
    if (out)
        std::filesystem::rename(unfinished, output, failed);
    if (!out || failed) {
        std::filesystem::remove(unfinished, failed);
        refuseOutput(arguments.output);
    }
    return counts;
}

void exportJsonLines(const Arguments& arguments) {
    withProgress("Exported", arguments.output, ProgressDisplay::Unit::Elements,
                 [&](const repository::ReportProgress& report) { return exportTo(arguments, report); });
}

void perform(const Arguments& arguments) {
    switch (arguments.action) {
        case Arguments::Action::Help:
            std::fputs(usage().c_str(), stdout);
            break;
        case Arguments::Action::ImportPackages:
            return importPackages(arguments);
        case Arguments::Action::ImportJsonLines:
            return importJsonLines(arguments);
        case Arguments::Action::ImportModdle:
            return importMetamodel(arguments, repository::metamodel::readModdle);
        case Arguments::Action::ImportEcore:
            return importMetamodel(arguments, repository::metamodel::readEcore);
        case Arguments::Action::ExportJsonLines:
            return exportJsonLines(arguments);
    }
}

}  // namespace

int runImport(const std::vector<std::u16string>& words) {
    try {
        perform(parseArguments(words));
        return kDone;
    } catch (const UsageError& error) {
        std::fprintf(stderr, "quorel-import: %s\n%s", toUtf8(error.reason).c_str(), usage().c_str());
        return kWrongUsage;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "quorel-import: %s\n", error.what());
        return kFailed;
    }
}

}  // namespace quorel::hosts
