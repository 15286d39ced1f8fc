// What the menus Browse, Tools and Help do.

#include <algorithm>
#include <filesystem>

#include "navigator/chosen_text.h"
#include "navigator/frm_navigator.h"
#include "navigator/hosted_window.h"
#include "navigator/paths.h"
#include "platform/automation/calls.h"
#include "platform/automation/text.h"
#include "repository/sqlite/file_check.h"

namespace quorel::navigator {

using automation::each;
using automation::Object;

namespace {

constexpr std::int32_t kInformation = 64;
constexpr std::int32_t kNameColumn = 3000, kDescriptionColumn = 4500, kSizeColumn = 1500;

[[nodiscard]] std::u16string shownSize(std::uintmax_t bytes) {
    return automation::decimal(static_cast<std::int64_t>((bytes + 1023) / 1024)) + u" KB";
}

/// The repositories of a folder in the order of their names. Throws what the file system throws.
[[nodiscard]] std::vector<std::filesystem::directory_entry> repositoriesIn(const std::u16string& folder) {
    std::vector<std::filesystem::directory_entry> files;
    for (const auto& entry : std::filesystem::directory_iterator(repository::sqlite::pathOf(folder)))
        if (entry.is_regular_file() && hasExtension(entry.path().u16string(), u".quorel"))
            files.push_back(entry);
    std::sort(files.begin(), files.end());
    return files;
}

/// The text behind the item that the user chose; none when nothing was chosen.
[[nodiscard]] std::u16string chosenIn(const Object& dialog) {
    dialog.call(u"PopUp");
    if (!dialog.get(u"IsOk").toBoolean())
        return {};
    const Object chosen = dialog.get(u"Selection").toObject();
    return chosen ? chosen.get(u"Text").toString() : std::u16string();
}

}  // namespace

void frmNavigator::openBrowser(Browser which) {
    const ui::WaitPointer wait(desktop());
    browsers_.open(which, selectedObject());
}

Object frmNavigator::selectedObject() const {
    Object instance = model_->selectedInstance();
    return instance ? instance : model_->selectedType();
}

void frmNavigator::refresh() {
    readModel([this](const Object& repository) { model_->refresh(repository); });
    enableCommands();
}

void frmNavigator::reveal(const Object& object) {
    procedure(u"reveal", [&] {
        const bool inMatrix = preferences_.revealsInMatrix && Browsers::canShow(Browser::Matrix, object);
        browsers_.reveal(inMatrix ? Browser::Matrix : Browser::SixPane, object);
    });
}

void frmNavigator::editProperties() {
    const Object object = model_->selectedInstance();
    const Object type = model_->selectedType();
    const HostedWindow editor(services_.environment.classes, u"QuorelUtility.PropertyEditor");
    editor.object().call(u"Create", folderOf(workspace_.path()));
    editor.object().put(u"Caption", object.get(u"name").toString() + u" - Properties");
    editor.object().putRef(u"repObject", object);
    editor.object().call(u"Init", type);
    editor.object().call(u"PopUp", true);
    if (isLoaded() && editor.object().get(u"OK").toBoolean())
        model_->refreshInstance(object);
}

void frmNavigator::showDiagram() {
    services_.environment.classes.createObject(u"QuorelUtility.ShowMetamodel")
        .call(u"Show", workspace_.repository());
}

std::u16string frmNavigator::chooseBinaryProperty(std::u16string_view statement) {
    const HostedWindow dialog(services_.environment.classes, u"QuorelUtility.SelectItem");
    dialog.object().call(u"Create");
    dialog.object().put(u"Caption", u"Binary property");
    dialog.object().put(u"Statement", std::u16string(statement));
    dialog.object().call(u"AsListView");
    dialog.object().call(u"AddColumn", u"Property", kNameColumn);
    dialog.object().call(u"AddColumn", u"Description", kDescriptionColumn);
    for (const Object& property : each(model_->selectedType().get(u"Properties").toObject()))
        if (automation::equalsIgnoringCase(property.get(u"datatype").toString(), u"Binary")) {
            const std::u16string name = property.get(u"name").toString();
            dialog.object().call(u"AddItem", name, Object(automation::make<ChosenText>(name)),
                                 property.get(u"Description"));
        }
    return chosenIn(dialog.object());
}

void frmNavigator::loadBinary() {
    const Object object = model_->selectedInstance();
    const std::u16string name = chooseBinaryProperty(u"Which property is to hold the bytes of a file?");
    if (name.empty() || !isLoaded())
        return;
    const auto file = fileDialogs().openFile({.title = u"Load " + name, .folder = {}, .fileName = {}});
    if (!file)
        return;
    const Object blob = services_.environment.classes.createObject(u"QuorelUtility.Blob");
    blob.putRef(u"repObject", object);
    blob.call(u"loadPropertyFromFile", name, *file);
    model_->refreshInstance(object);
}

void frmNavigator::storeBinary() {
    const Object object = model_->selectedInstance();
    const std::u16string name = chooseBinaryProperty(u"Which property's bytes are to be stored in a file?");
    if (name.empty() || !isLoaded())
        return;
    const auto file = fileDialogs().saveFile({.title = u"Store " + name, .folder = {}, .fileName = name});
    if (!file)
        return;
    const Object blob = services_.environment.classes.createObject(u"QuorelUtility.Blob");
    blob.putRef(u"repObject", object);
    blob.call(u"storePropertyToFile", name, *file);
}

void frmNavigator::openFromFolder() {
    const Object chooser = services_.environment.classes.createObject(u"QuorelUtility.DirectoryChooser");
    chooser.put(u"Caption", u"Folder with repositories");
    chooser.put(u"ShowCreateButton", 0);
    chooser.call(u"PopUp");
    if (!chooser.get(u"Canceled").toBoolean() && isLoaded())
        chooseFrom(chooser.get(u"Directory").toString());
}

void frmNavigator::chooseFrom(const std::u16string& folder) {
    const auto files = repositoriesIn(folder);
    if (files.empty()) {
        tell(u"There is no repository (*.quorel) in '" + folder + u"'.");
        return;
    }
    const HostedWindow dialog(services_.environment.classes, u"QuorelUtility.SelectItem");
    dialog.object().call(u"Create");
    dialog.object().put(u"Caption", u"Repositories in a folder");
    dialog.object().put(u"Statement", u"Which repository in '" + folder + u"' is to be opened?");
    dialog.object().call(u"AsListView");
    dialog.object().call(u"AddColumn", u"File", kNameColumn);
    dialog.object().call(u"AddColumn", u"Size", kSizeColumn);
    for (const auto& file : files)
        dialog.object().call(u"AddItem", file.path().filename().u16string(),
                             Object(automation::make<ChosenText>(file.path().u16string())),
                             shownSize(file.file_size()));
    const std::u16string chosen = chosenIn(dialog.object());
    if (!chosen.empty() && isLoaded())
        openFile(chosen);
}

void frmNavigator::editOptions() {
    editPreferences(services_, workspace_);
    preferences_ = readPreferences(services_.environment.settings);
    showRecentFiles();
}

void frmNavigator::tell(std::u16string_view text) {
    desktop().showMessage({std::u16string(text), u"Navigator", kInformation}, this);
}

void frmNavigator::showDocumentation() {
    tell(u"The documentation is in '" + joinPath(services_.programFolder, u"docs") +
         u"'; begin with navigator.md.");
}

}  // namespace quorel::navigator
