// What the menu File does.

#include "frame/attempt.h"
#include "navigator/frm_navigator.h"
#include "navigator/imports.h"
#include "navigator/paths.h"
#include "navigator/remedy.h"
#include "navigator/setting_names.h"
#include "platform/automation/error.h"

namespace quorel::navigator {

using automation::Error;
using automation::Object;

namespace {

constexpr std::u16string_view kRepositoryFilter = u"Repositories (*.quorel)|*.quorel";
constexpr std::u16string_view kJsonLinesFilter = u"JSON Lines (*.jsonl)|*.jsonl";
constexpr std::u16string_view kRepositoryExtension = u".quorel";
constexpr std::int32_t kQuestionYesNo = 4 | 32;

}  // namespace

void frmNavigator::openFile(const std::u16string& path) {
    procedure(u"openFile", [&] { work(workspace_.openBeside(path)); });
}

/// The one that was open is ended only when the new one stands.
void frmNavigator::work(Object information) {
    if (information == workspace_.information()) {
        refresh();
        return;
    }
    endRepository();
    workspace_.adopt(std::move(information));
    showState();
    procedure(u"Types_Click",
              [this] { readModel([this](const Object& repository) { model_->fill(repository); }); });
    enableCommands();
    if (!workspace_.isOpen())
        return;
    model_->types().list().focus();
    rememberFile(workspace_.path());
}

void frmNavigator::rememberFile(const std::u16string& path) {
    recentFiles_.add(path, preferences_.recentLimit);
    services_.environment.settings.write(kStoreApplication, kStoreSection, kLastFile, path);
    showRecentFiles();
}

void frmNavigator::closeRepository() {
    procedure(u"closeRepository", [this] {
        endRepository();
        showState();
    });
}

void frmNavigator::endRepository() noexcept {
    endSearch();
    browsers_.closeAll();
    frame::attempt([this] { model_->empty(); });
    workspace_.close();
}

void frmNavigator::reopenLastFile() {
    procedure(u"reopenLastFile", [this] {
        if (workspace_.isOpen() || !isLoaded())
            return;
        const auto path = services_.environment.settings.read(kStoreApplication, kStoreSection, kLastFile);
        if (path && !path->empty())
            openFile(*path);
    });
}

shell::FileDialogs& frmNavigator::fileDialogs() const {
    if (services_.environment.fileDialogs == nullptr)
        throw Error(automation::error_number::kInvalidCall, u"There is no file dialog here", u"Navigator");
    return *services_.environment.fileDialogs;
}

void frmNavigator::createRepository() {
    const auto path = fileDialogs().saveFile({.title = u"New repository",
                                              .folder = folderOf(workspace_.path()),
                                              .fileName = u"New.quorel",
                                              .filter = std::u16string(kRepositoryFilter),
                                              .defaultExtension = std::u16string(kRepositoryExtension)});
    if (path)
        work(workspace_.createBeside(*path));
}

void frmNavigator::askForRepository() {
    const auto path = fileDialogs().openFile({.title = u"Open a repository",
                                              .folder = folderOf(workspace_.path()),
                                              .fileName = {},
                                              .filter = std::u16string(kRepositoryFilter),
                                              .defaultExtension = std::u16string(kRepositoryExtension)});
    if (path)
        openFile(*path);
}

/// The sample ships as text and is made into a repository of the user's own, so that nothing is written where
/// the program lies.
void frmNavigator::openSample() {
    const std::u16string own = joinPath(services_.userFolder, u"library.quorel");
    if (!fileExists(own)) {
        const std::u16string shipped =
            joinPath(joinPath(services_.programFolder, u"samples"), u"library.jsonl");
        makeUserFolder(services_);
        repository::importInto(repository::ImportKind::JsonLines, {shipped}, own, false,
                               [](const repository::Progress&) {});
    }
    openFile(own);
}

void frmNavigator::Recent_Click(const std::u16string& path) {
    procedure(u"Recent_Click", [&] {
        if (fileExists(path)) {
            openFile(path);
            return;
        }
        const ui::MessageAnswer answer =
            desktop().showMessage({u"The file '" + path + u"' is not there any more. Take it off the list?",
                                   u"Navigator", kQuestionYesNo},
                                  this);
        if (answer == ui::MessageAnswer::Yes)
            forgetFile(path);
    });
}

void frmNavigator::forgetFile(const std::u16string& path) {
    recentFiles_.remove(path);
    showRecentFiles();
}

void frmNavigator::importFrom(repository::ImportKind kind) {
    const ImportTraits& traits = kImports[static_cast<std::size_t>(kind)];
    const auto input = fileDialogs().openFile({.title = std::u16string(traits.title),
                                               .folder = folderOf(workspace_.path()),
                                               .fileName = {},
                                               .filter = std::u16string(traits.filter)});
    if (input)
        importFiles(kind, {*input});
}

void frmNavigator::importFiles(repository::ImportKind kind, const std::vector<std::u16string>& inputs) {
    const std::u16string proposed = withExtension(fileNameOf(inputs.front()), kRepositoryExtension);
    // The dialog has asked before it names a file that is there.
    const auto output = fileDialogs().saveFile({.title = u"Import into the repository",
                                                .folder = folderOf(inputs.front()),
                                                .fileName = proposed,
                                                .filter = std::u16string(kRepositoryFilter),
                                                .defaultExtension = std::u16string(kRepositoryExtension)});
    if (!output)
        return;
    if (workspace_.isOpen() && isSameFile(*output, workspace_.path()))
        closeRepository();
    std::u16string summary;
    try {
        RunProgress progress(services_.environment.classes, u"Import", fileNameOf(inputs.front()));
        summary = importSummary(repository::importInto(
            kind, inputs, *output, true, [&](const repository::Progress& step) { progress.show(step); }));
    } catch (const Error& error) {
        throw withRemedy(error);
    }
    tell(summary);
    openFile(*output);
}

void frmNavigator::offerImport(const std::vector<std::u16string>& files) {
    const auto kind = repository::importKindOf(files.front());
    std::vector<std::u16string> inputs;
    for (const std::u16string& file : files)
        if (repository::importKindOf(file) == kind)
            inputs.push_back(file);
    if (inputs.size() > 1 && *kind == repository::ImportKind::JsonLines)
        inputs.resize(1);
    const std::u16string others =
        inputs.size() == 1 ? std::u16string() : u" and the files of its kind that came with it";
    const ui::MessageAnswer answer = desktop().showMessage(
        {u"Import '" + fileNameOf(inputs.front()) + u"'" + others + u" into a new repository?", u"Navigator",
         kQuestionYesNo},
        this);
    if (answer == ui::MessageAnswer::Yes)
        importFiles(*kind, inputs);
}

void frmNavigator::exportRepository() {
    const auto output =
        fileDialogs().saveFile({.title = u"Export as JSON Lines",
                                .folder = folderOf(workspace_.path()),
                                .fileName = withExtension(fileNameOf(workspace_.path()), u".jsonl"),
                                .filter = std::u16string(kJsonLinesFilter),
                                .defaultExtension = u".jsonl"});
    if (!output)
        return;
    std::u16string summary;
    try {
        RunProgress progress(services_.environment.classes, u"Export", fileNameOf(*output));
        summary = exportSummary(
            repository::exportTo(workspace_.path(), *output, true,
                                 [&](const repository::Progress& step) { progress.show(step); }),
            *output);
    } catch (const Error& error) {
        throw withRemedy(error);
    }
    tell(summary);
}

}  // namespace quorel::navigator
