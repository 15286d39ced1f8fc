#include "hosts/import/run.h"

#include <chrono>
#include <cstdio>
#include <filesystem>

#include "hosts/import/arguments.h"
#include "hosts/import/platform.h"
#include "hosts/import/progress_display.h"
#include "platform/automation/text.h"
#include "repository/import/exchange.h"
#include "repository/sqlite/file_check.h"

namespace quorel::hosts {

namespace {

constexpr int kDone = 0;
constexpr int kFailed = 1;
constexpr int kWrongUsage = 2;

using automation::toUtf8;

/// Runs `work` with a progress display and says at the end what came of it.
template <class Work>
auto withProgress(const char* verb, const std::u16string& output, ProgressDisplay::Unit unit, Work work) {
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
    std::printf("%s %s: %s, %.1f MB, in %.1f s\n", verb, toUtf8(summaryOf(counts)).c_str(),
                toUtf8(output).c_str(), size / 1e6, seconds);
    return counts;
}

void importFiles(const Arguments& arguments, repository::ImportKind kind) {
    const bool fromLists = kind == repository::ImportKind::PackageIndex;
    const std::vector<std::u16string> inputs = fromLists ? std::vector{arguments.lists} : arguments.inputs;
    const repository::ImportReport made =
        withProgress("Imported", arguments.output, ProgressDisplay::Unit::Bytes,
                     [&](const repository::ReportProgress& report) {
                         return repository::importInto(kind, inputs, arguments.output, arguments.replace,
                                                       report, openPackageList);
                     });
    for (const std::u16string& line : remarksOf(made))
        std::printf("%s\n", toUtf8(line).c_str());
}

void exportJsonLines(const Arguments& arguments) {
    withProgress("Exported", arguments.output, ProgressDisplay::Unit::Elements,
                 [&](const repository::ReportProgress& report) {
                     return repository::exportTo(arguments.inputs.front(), arguments.output,
                                                 arguments.replace, report);
                 });
}

void perform(const Arguments& arguments) {
    switch (arguments.action) {
        case Arguments::Action::Help:
            std::fputs(usage().c_str(), stdout);
            break;
        case Arguments::Action::ImportPackages:
            return importFiles(arguments, repository::ImportKind::PackageIndex);
        case Arguments::Action::ImportJsonLines:
            return importFiles(arguments, repository::ImportKind::JsonLines);
        case Arguments::Action::ImportModdle:
            return importFiles(arguments, repository::ImportKind::Moddle);
        case Arguments::Action::ImportEcore:
            return importFiles(arguments, repository::ImportKind::Ecore);
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
