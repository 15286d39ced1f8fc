// The menu bar: its entries, when they can act, and what each of them runs.

#include <algorithm>

#include "navigator/frm_navigator.h"
#include "navigator/imports.h"
#include "navigator/setting_names.h"
#include "platform/automation/text.h"

namespace quorel::navigator {

namespace {

/// The ninth file or window is the last with a digit as its access key.
constexpr std::size_t kAccessDigits = 9;

/// A text that is no caption of ours: its ampersands are shown.
[[nodiscard]] std::u16string asCaption(const std::u16string& text) {
    std::u16string caption;
    for (const char16_t unit : text)
        caption.append(unit == u'&' ? 2 : 1, unit);
    return caption;
}

[[nodiscard]] std::u16string numberedCaption(std::size_t place, const std::u16string& text) {
    std::u16string caption(place < kAccessDigits ? 1 : 0, u'&');
    caption.append(automation::decimal(static_cast<std::int64_t>(place + 1)));
    return caption.append(u" ").append(asCaption(text));
}

[[nodiscard]] std::u16string entryName(std::u16string_view array, std::size_t place) {
    return std::u16string(array) + u"(" + automation::decimal(static_cast<std::int64_t>(place)) + u")";
}

}  // namespace

void frmNavigator::buildMenus() {
    ui::MenuItem& file = menuBar().add(u"mnuFile", u"&File");
    for (const MenuCommandTraits& traits : kMenuCommandTraits) {
        if (traits.command == MenuCommand::ImportPackages) {
            ui::MenuItem& recent = file.add(u"mnuRecent", u"&Recent");
            for (std::size_t place = 0; place < recentEntries_.size(); ++place) {
                recentEntries_[place] = &recent.add(entryName(u"mnuRecent", place), u"");
                recentEntries_[place]->onClick.connect([this, place] { Recent_Click(shownFiles_[place]); });
            }
            file.add(u"mnuImport", u"&Import");
        } else if (traits.command == MenuCommand::SixPane) {
            menuBar().add(u"mnuBrowse", u"&Browse");
            menuBar().add(u"mnuTools", u"&Tools");
            menuBar().add(u"mnuWindow", u"&Window");
            menuBar().add(u"mnuHelp", u"&Help");
        }
        addCommand(traits);
    }
    showWindows();
}

void frmNavigator::addCommand(const MenuCommandTraits& traits) {
    ui::MenuItem& menu = *menuBar().find(traits.menu);
    if (traits.beginsGroup)
        menu.addSeparator();
    ui::MenuItem& entry = menu.add(traits.name, traits.caption, traits.shortcut);
    entry.onClick.connect([this, command = traits.command] { run(command); });
    entries_[indexOf(traits.command)] = &entry;
}

void frmNavigator::connectWelcomePage() {
    welcome_->newButton().onClick.connect([this] { run(MenuCommand::New); });
    welcome_->openButton().onClick.connect([this] { run(MenuCommand::Open); });
    welcome_->importButton().onClick.connect([this] {
        welcome_->importButton().popUpMenu(*menuBar().find(u"mnuImport"), ui::MenuPlace::Control);
    });
    welcome_->sampleButton().onClick.connect([this] { procedure(u"openSample", [this] { openSample(); }); });
    welcome_->onOpen.connect([this](const std::u16string& path) { Recent_Click(path); });
    welcome_->onForget.connect(
        [this](const std::u16string& path) { procedure(u"forgetFile", [&] { forgetFile(path); }); });
}

void frmNavigator::showRecentFiles() {
    shownFiles_ = recentFiles_.read();
    shownFiles_.resize(std::min(shownFiles_.size(), preferences_.recentLimit));
    for (std::size_t place = 0; place < recentEntries_.size(); ++place) {
        const bool isUsed = place < shownFiles_.size();
        recentEntries_[place]->setVisible(isUsed);
        if (isUsed)
            recentEntries_[place]->setCaption(numberedCaption(place, shownFiles_[place]));
    }
    menuBar().find(u"mnuRecent")->setEnabled(!shownFiles_.empty());
    welcome_->setFiles(shownFiles_);
}

/// The list of windows comes behind the command; it has grown entries as they were needed.
void frmNavigator::showWindows() {
    procedure(u"showWindows", [this] { shownWindows_ = browsers_.names(); });
    ui::MenuItem& menu = *menuBar().find(u"mnuWindow");
    while (windowEntries_.size() < shownWindows_.size()) {
        const std::size_t place = windowEntries_.size();
        windowEntries_.push_back(&menu.add(entryName(u"mnuWindow", place), u""));
        windowEntries_.back()->onClick.connect([this, place] {
            procedure(u"mnuWindow_Click", [&] {
                const std::u16string name = shownWindows_.at(place);
                browsers_.bringToFront(name);
            });
        });
    }
    for (std::size_t place = 0; place < windowEntries_.size(); ++place) {
        windowEntries_[place]->setVisible(place < shownWindows_.size());
        if (place < shownWindows_.size())
            windowEntries_[place]->setCaption(numberedCaption(place, shownWindows_[place]));
    }
    if (entries_[indexOf(MenuCommand::CloseAll)] != nullptr)
        entries_[indexOf(MenuCommand::CloseAll)]->setEnabled(!shownWindows_.empty());
}

void frmNavigator::enableCommands() {
    for (const MenuCommandTraits& traits : kMenuCommandTraits)
        entries_[indexOf(traits.command)]->setEnabled(canRun(traits.command));
    menuBar().find(u"mnuImport")->setEnabled(canRun(MenuCommand::ImportJsonLines));
    welcome_->newButton().setEnabled(canRun(MenuCommand::New));
    welcome_->openButton().setEnabled(canRun(MenuCommand::Open));
    welcome_->importButton().setEnabled(canRun(MenuCommand::ImportJsonLines));
}

bool frmNavigator::canRun(MenuCommand command) {
    const bool hasFiles = services_.environment.fileDialogs != nullptr;
    switch (command) {
        case MenuCommand::New:
        case MenuCommand::Open:
        case MenuCommand::ImportPackages:
        case MenuCommand::ImportJsonLines:
        case MenuCommand::ImportModdle:
        case MenuCommand::ImportEcore:
            return hasFiles;
        case MenuCommand::Export:
            return hasFiles && workspace_.isOpen();
        case MenuCommand::Folder:
            return services_.environment.folderBrowser != nullptr;
        case MenuCommand::CloseAll:
            return !shownWindows_.empty();
        case MenuCommand::Exit:
        case MenuCommand::Options:
        case MenuCommand::Documentation:
        case MenuCommand::About:
            return true;
        default:
            return workspace_.isOpen() && canRunOnSelection(command);
    }
}

bool frmNavigator::canRunOnSelection(MenuCommand command) {
    switch (command) {
        case MenuCommand::Properties:
            return static_cast<bool>(model_->selectedInstance());
        case MenuCommand::LoadBinary:
        case MenuCommand::StoreBinary:
            return services_.environment.fileDialogs != nullptr && model_->hasBinaryProperty() &&
                   static_cast<bool>(model_->selectedInstance());
        default:
            return true;
    }
}

void frmNavigator::run(MenuCommand command) {
    if (!canRun(command))
        return;
    const MenuCommandTraits& traits = kMenuCommandTraits[indexOf(command)];
    procedure(std::u16string(traits.name) + u"_Click", [&] {
        if (command < MenuCommand::SixPane)
            runFile(command);
        else
            runTool(command);
    });
}

void frmNavigator::runFile(MenuCommand command) {
    switch (command) {
        case MenuCommand::New:
            return createRepository();
        case MenuCommand::Open:
            return askForRepository();
        case MenuCommand::Export:
            return exportRepository();
        case MenuCommand::Close:
            services_.environment.settings.write(kStoreApplication, kStoreSection, kLastFile, u"");
            return closeRepository();
        case MenuCommand::Exit:
            return userClosed();
        default:
            return importFrom(kImports[indexOf(command) - indexOf(MenuCommand::ImportPackages)].kind);
    }
}

void frmNavigator::runTool(MenuCommand command) {
    switch (command) {
        case MenuCommand::Refresh:
            return refresh();
        case MenuCommand::Search:
            return search();
        case MenuCommand::Properties:
            return editProperties();
        case MenuCommand::Diagram:
            return showDiagram();
        case MenuCommand::LoadBinary:
            return loadBinary();
        case MenuCommand::StoreBinary:
            return storeBinary();
        case MenuCommand::Folder:
            return openFromFolder();
        case MenuCommand::Options:
            return editOptions();
        case MenuCommand::CloseAll:
            return browsers_.closeAll();
        case MenuCommand::Documentation:
            return showDocumentation();
        case MenuCommand::About:
            return showAbout();
        default:
            return openBrowser(static_cast<Browser>(indexOf(command) - indexOf(MenuCommand::SixPane)));
    }
}

}  // namespace quorel::navigator
