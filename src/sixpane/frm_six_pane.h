#pragma once

#include <array>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "frame/component_registration.h"
#include "frame/environment.h"
#include "frame/guarded.h"
#include "platform/automation/object.h"
#include "platform/controls/list_view.h"
#include "platform/ui/form.h"
#include "platform/ui/plain_controls.h"
#include "sixpane/object_rows.h"
#include "sixpane/panes.h"
#include "sixpane/six_pane_layout.h"
#include "sixpane/six_pane_placement.h"

namespace quorel::sixpane {

class frmObjectProperties;

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
    DisplayResult DisplayObject(const automation::Object& object, ObjectKind kind);

  private:
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
    void showInstance(const automation::Object& object, const automation::Object& type);
    void showType(const automation::Object& type);
    void openNamedRepository();
    void showCount(Pane which);
    [[nodiscard]] std::u16string countText(Pane which);

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
    Splits splits_;
    bool wasShown_ = false;
    std::weak_ptr<frmObjectProperties> properties_;
};

}  // namespace quorel::sixpane
