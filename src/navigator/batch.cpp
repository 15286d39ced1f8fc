#include "navigator/batch.h"

#include <filesystem>

#include "navigator/remedy.h"
#include "navigator/workspace.h"
#include "platform/automation/error.h"
#include "repository/errors.h"
#include "repository/sqlite/file_check.h"

namespace quorel::navigator {

namespace {

using automation::Error;

constexpr std::u16string_view kVersion = u"Quorel Navigator " QUOREL_VERSION;

void quietly(const repository::Progress&) {}

/// What can be done about it, where the error does not tell: an input that is not what it should be is told
/// with file and line, and what opens the repository of a diagram tells of its own.
[[nodiscard]] Error forBatch(const Error& error, Command::Action action) {
    if (error.number() == repository::error_number::kFileAlreadyExists)
        return {error.number(), error.description() + u". Give --replace to write over it, or another name."};
    const bool tells =
        action == Command::Action::Diagram || error.number() == automation::error_number::kPathFileAccess ||
        (action == Command::Action::Import && error.number() == repository::error_number::kBadFileFormat);
    return tells ? error : withRemedy(error);
}

void importFiles(const Command& command, const BatchServices& services) {
    const repository::ImportReport report =
        repository::importInto(command.kind, command.inputs, command.output, command.replace, quietly);
    services.writeResult(u"Imported " + summaryOf(report) + u": " + command.output);
    for (const std::u16string& line : remarksOf(report))
        services.writeResult(line);
}

void exportFile(const Command& command, const BatchServices& services) {
    const repository::ExportReport report =
        repository::exportTo(command.inputs.front(), command.output, command.replace, quietly);
    services.writeResult(u"Exported " + summaryOf(report) + u": " + command.output);
}

void drawMetamodel(const Command& command, const BatchServices& services) {
    std::error_code ignored;
    if (!command.replace && std::filesystem::exists(repository::sqlite::pathOf(command.output), ignored))
        throw repository::failure(repository::error_number::kFileAlreadyExists,
                                  u"The file " + repository::inQuotes(command.output) + u" already exists");
    Workspace workspace(services.classes());
    workspace.open(command.inputs.front());
    services.writeResult(services.draw(workspace.repository(), command.output));
}

void perform(const Command& command, const BatchServices& services) {
    switch (command.action) {
        case Command::Action::Import:
            return importFiles(command, services);
        case Command::Action::Export:
            return exportFile(command, services);
        case Command::Action::Diagram:
            return drawMetamodel(command, services);
        case Command::Action::Version:
            return services.writeResult(kVersion);
        case Command::Action::Help:
        case Command::Action::Show:
            break;
    }
    std::u16string_view text = usageText();
    services.writeResult(text.substr(0, text.size() - 1));
}

}  // namespace

int runBatch(const Command& command, const BatchServices& services) {
    try {
        perform(command, services);
        return kDone;
    } catch (...) {
        const Error error = forBatch(automation::currentError(), command.action);
        services.writeError(u"navigator: " + error.description());
        return kFailed;
    }
}

int refuseCommandLine(const UsageError& error, const BatchServices& services) {
    services.writeError(u"navigator: " + error.reason);
    services.writeError(u"navigator --help tells what it understands");
    return kWrongUsage;
}

}  // namespace quorel::navigator
