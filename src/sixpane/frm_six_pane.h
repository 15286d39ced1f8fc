#pragma once

#include <array>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "frame/component_registration.h"
#include "frame/environment.h"
#include "frame/guarded.h"
#include "platform/automation/object.h"
#include "platform/controls/list_view.h"
#include "platform/ui/form.h"
#include "platform/ui/menu.h"
#include "platform/ui/plain_controls.h"
#include "sixpane/commands.h"
#include "sixpane/object_rows.h"
#include "sixpane/panes.h"
#include "sixpane/six_pane_layout.h"
#include "sixpane/six_pane_placement.h"

namespace quorel::sixpane {

/// The six-pane browser's window. Every procedure shows its own failures in the error box with module label
/// "SixPane"; none throws.
class frmSixPane final : public ui::Form {
  public:
    explicit frmSixPane(const frame::Environment& environment);
    /// Ends the registration with the session if nothing has ended it before.
    ~frmSixPane() override;

    // The lifecycle.
    // --------------------------------------------------------------------
    void Create(std::u16string_view name, const automation::Object& session);
    void CreatePanes();
    /// Without a session the repository manager stays the one that the host has set.
    void Init();
    void Populate();
    void PopUp(bool modal);
    void Conceal();
    void Deinit();
    /// Drops every reference to the host's objects.
    void Destroy() noexcept;

    // What the host sets.
    // --------------------------------------------------------------------
    std::u16string Path;
    std::u16string current;
    [[nodiscard]] const automation::Object& Repository() const noexcept { return repository_; }
    void setRepository(automation::Object repository) { repository_ = std::move(repository); }
    [[nodiscard]] const automation::Object& PackageObject() const noexcept { return packageObject_; }
    /// Takes the repository from the package object's `Repository`.
    void setPackageObject(automation::Object package);
    [[nodiscard]] const automation::Object& RepositoryManager() const noexcept { return repositoryManager_; }
    void setRepositoryManager(automation::Object manager);
    [[nodiscard]] const std::u16string& RepositoryFileName() const noexcept { return repositoryFileName_; }
    /// Opens that repository as soon as there is a repository manager.
    void setRepositoryFileName(std::u16string_view fileName);

    /// Shows a node or link: selects its type, fills the panes that depend on it, and selects it there. A
    /// type is selected as by a click. Nothing takes the selection away everywhere.
    void SetSelection(const automation::Object& object);

    /// What became of showing an object: closed by the user, and different afterwards.
    struct DisplayResult {
        bool closed = false;
        bool changed = false;
    };
    /// A node's or link's values are edited; a type is only told of.
    DisplayResult DisplayObject(const automation::Object& object, ObjectKind kind);

  private:
    /// What is asked and told about a dynamic meta object.
    struct DynamicMetaObject {
        std::u16string name{};
        bool isPersistent = true;
        std::u16string description{};
    };

    // Event handlers.
    void Form_Load();
    void Form_Unload();
    void Form_Resize();
    void SourceMetaNode_Click();
    void TargetMetaNode_Click();
    void MetaLink_Click();
    void Link_Click();
    void SourceNode_DblClick();
    void TargetNode_DblClick();
    void Link_DblClick();
    void mnuSelect_Click();
    void mnuShowMetamodel_Click() noexcept {}
    void mnuRefresh_Click();
    void mnuProperties_Click();
    void mnuResetLayout_Click();
    void NewSourceNode_Click();
    void NewTargetNode_Click();
    void NewLink_Click();
    void DeleteSourceNode_Click();
    void DeleteTargetNode_Click();
    void DeleteLink_Click();
    void mnuEditDynamic_Click();
    /// Index as in `kDynamic`; others do nothing.
    void Dynamic_Click(std::size_t index);

    /// Runs a procedure of this window under its label.
    template <class Body>
    auto procedure(std::u16string_view label, Body&& body) {
        return frame::guarded(*this, u"SixPane", label, std::forward<Body>(body));
    }

    // Building.
    void buildPanes();
    void buildSplitters();
    void buildMenus();
    void connectPanes();
    void place();

    // Panes.
    [[nodiscard]] controls::ListView& pane(Pane which) noexcept { return *panes_[indexOf(which)]; }
    void fillTypePanes();
    void fillNodes(Pane nodes, Pane metaNodes);
    void fillLinks();
    /// True if the meta node is the one selected in a type pane.
    [[nodiscard]] bool isSelected(Pane metaNodes, const automation::Object& metaNode);
    void displayNode(Pane nodes, Pane metaNodes, void (frmSixPane::*metaNodeClick)());
    [[nodiscard]] DisplayResult displayType(const automation::Object& type, ObjectKind kind);
    [[nodiscard]] DisplayResult displayInstance(const automation::Object& object);
    void showInstance(const automation::Object& object, const automation::Object& type);
    void showType(const automation::Object& type);
    void openNamedRepository();
    void showCount(Pane which);
    [[nodiscard]] std::u16string countText(Pane which);

    // Commands.
    void addButtons(Pane which);
    void buildCommands();
    void buildDynamicMenu();
    /// Lets the key of a command run it while the pane has the focus.
    void keyInPane(Pane which, ui::KeyEvent& event);
    [[nodiscard]] bool canRun(Command command);
    [[nodiscard]] bool canRunDynamic(std::size_t index);
    void enableCommands();
    void run(Command command);

    /// Shows a dialog of this window's, which closes with it. False if this window is gone before or
    /// afterwards.
    template <class Dialog>
    bool ask(const std::shared_ptr<Dialog>& dialog) {
        if (!isLoaded())
            return false;
        dialog_ = dialog;
        dialog->PopUp();
        return isLoaded();
    }

    // Editing.
    /// The next identifier of the window's generator.
    [[nodiscard]] std::u16string UUID();
    /// Empty if it failed, which has been reported.
    automation::Object MakeNode(std::u16string_view name, std::u16string_view metaNode);
    automation::Object MakeLink(std::u16string_view name, std::u16string_view metaLink,
                                const automation::Object& source, const automation::Object& target);
    /// Asks for a name, starting from `name`; true if the user confirmed.
    bool GetName(std::u16string& name, std::u16string_view caption, std::u16string_view question);
    void newNode(Pane nodes);
    void deleteNode(Pane nodes);
    void refreshLinks();

    // Dynamic meta objects.
    /// True if the user confirmed; otherwise `edited` is unchanged.
    bool EditMetaObject(bool asClass, DynamicMetaObject& edited);
    /// Shows the entries of `Dynamic` in editing mode only.
    void CheckDynamic();
    void newMetaClass();
    void newMetaAssoc();
    void setPersistent(const automation::Object& metaObject, bool isPersistent);
    void deleteMetaObject(Pane metaObjects, std::u16string_view member);

    // Placement.
    void restorePlacement();
    void savePlacement();

    frame::Environment environment_;
    frame::ComponentRegistration registration_;
    automation::Object uuidGenerator_;
    automation::Object repository_;
    automation::Object repositoryManager_;
    automation::Object packageObject_;
    std::u16string repositoryFileName_;
    /// The file name whose repository was opened, so that it is opened once.
    std::u16string openedFileName_;

    std::array<ui::Label*, kPaneCount> captions_{};
    std::array<controls::ListView*, kPaneCount> panes_{};
    std::array<ui::Splitter*, 2> columnSplitters_{};
    std::array<ui::Splitter*, 3> rowSplitters_{};
    ui::StatusBar* statusBar_ = nullptr;
    std::array<ui::Button*, kCommandCount> commands_{};
    std::array<ui::MenuItem*, kCommandCount> commandEntries_{};
    /// Each entry of `Dynamic` in the menu bar and in the context menu of its pane.
    std::array<std::array<ui::MenuItem*, 2>, kDynamicCount> dynamicEntries_{};
    /// What is visible in editing mode only: the entries of `Dynamic` and the lines between them.
    std::vector<ui::MenuItem*> metamodelEntries_;
    bool editsMetamodel_ = false;
    Splits splits_;
    bool wasShown_ = false;
    /// The dialog that is open, if one is; it closes with this window.
    std::weak_ptr<ui::Form> dialog_;
};

}  // namespace quorel::sixpane
