#pragma once

#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "frame/guarded.h"
#include "frame/window_placement.h"
#include "navigator/browsers.h"
#include "navigator/menu_commands.h"
#include "navigator/model_page.h"
#include "navigator/preferences.h"
#include "navigator/recent_files.h"
#include "navigator/services.h"
#include "navigator/welcome_page.h"
#include "navigator/workspace.h"
#include "platform/shell/file_dialogs.h"
#include "platform/ui/form.h"
#include "platform/ui/menu.h"
#include "platform/ui/plain_controls.h"
#include "repository/import/exchange.h"

namespace quorel::navigator {

class frmSearch;

/// The navigator's main window: a welcome page, or the types and instances of the repository that is open.
/// Every procedure shows its own failures in the error box with module label "Navigator"; none throws.
///
/// It reaches repositories and the library's windows by programmatic identifier only, as any host does.
class frmNavigator final : public ui::Form {
  public:
    explicit frmNavigator(const Services& services);
    ~frmNavigator() override;

    /// Opens that repository in place of the one that is open. A file that cannot be opened is reported with
    /// what can be done about it, and what was open stays open.
    void openFile(const std::u16string& path);
    /// Ends every window on the repository, in the order in which they were opened, and closes it. Harmless
    /// when there is none.
    void closeRepository();
    /// Shows a node, link or type in the browser that the user prefers, in one that is open if there is one.
    void reveal(const automation::Object& object);
    /// The window that searches everywhere; null while there is none.
    [[nodiscard]] const std::shared_ptr<frmSearch>& searchWindow() const noexcept { return search_; }

  private:
    // Event handlers.
    void Form_Load();
    void Form_Unload();
    void Form_Resize();
    void Types_Click();
    void Instances_DblClick();
    void Files_Drop(const std::vector<std::u16string>& files);
    void Recent_Click(const std::u16string& path);

    /// Runs a procedure of this window under its label.
    template <class Body>
    auto procedure(std::u16string_view label, Body&& body) {
        return frame::guarded(*this, u"Navigator", label, std::forward<Body>(body));
    }

    // Building.
    void buildPages();
    void buildMenus();
    void addCommand(const MenuCommandTraits& traits);
    void connectWelcomePage();
    void place();
    void showState();
    void showStatus();
    void enableCommands();
    void showRecentFiles();
    void showWindows();
    /// What is read may close the repository meanwhile: then nothing of it is kept.
    void readModel(const std::function<void(const automation::Object& repository)>& read);
    void connectCellErrors(controls::ListView& list, std::u16string_view label);

    // Commands.
    [[nodiscard]] bool canRun(MenuCommand command);
    [[nodiscard]] bool canRunOnSelection(MenuCommand command);
    void run(MenuCommand command);
    void runFile(MenuCommand command);
    void runTool(MenuCommand command);

    // File.
    void work(automation::Object information);
    void endRepository() noexcept;
    void createRepository();
    void askForRepository();
    void openSample();
    void importFrom(repository::ImportKind kind);
    void importFiles(repository::ImportKind kind, const std::vector<std::u16string>& inputs);
    void exportRepository();
    void offerImport(const std::vector<std::u16string>& files);
    void forgetFile(const std::u16string& path);
    void rememberFile(const std::u16string& path);
    void reopenLastFile();
    [[nodiscard]] shell::FileDialogs& fileDialogs() const;

    // Browse.
    void openBrowser(Browser which);
    [[nodiscard]] automation::Object selectedObject() const;
    void refresh();

    // Tools.
    void editProperties();
    void showDiagram();
    void loadBinary();
    void storeBinary();
    [[nodiscard]] std::u16string chooseBinaryProperty(std::u16string_view statement);
    void openFromFolder();
    void chooseFrom(const std::u16string& folder);
    void search();
    void endSearch() noexcept;
    void editOptions();

    // Help.
    void tell(std::u16string_view text);
    void showDocumentation();
    void showAbout();

    // Placement.
    void restorePlacement();
    void savePlacement();

    Services services_;
    Workspace workspace_;
    Browsers browsers_;
    RecentFiles recentFiles_;
    Preferences preferences_;

    WelcomePage* welcome_ = nullptr;
    ModelPage* model_ = nullptr;
    ui::StatusBar* statusBar_ = nullptr;
    std::array<ui::MenuItem*, kMenuCommands> entries_{};
    std::array<ui::MenuItem*, RecentFiles::kMost> recentEntries_{};
    std::vector<std::u16string> shownFiles_;
    /// As many as were ever needed; those that are not are hidden.
    std::vector<ui::MenuItem*> windowEntries_;
    std::vector<std::u16string> shownWindows_;
    std::shared_ptr<frmSearch> search_;
    bool wasShown_ = false;
};

}  // namespace quorel::navigator
