#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "frame/component_registration.h"
#include "frame/environment.h"
#include "frame/guarded.h"
#include "matrix/matrix_browser_menu_form.h"
#include "matrix/visited_sources.h"
#include "platform/automation/object.h"
#include "platform/controls/list_view.h"
#include "platform/ui/form.h"
#include "platform/ui/plain_controls.h"
#include "platform/ui/progress_bar.h"

namespace quorel::dialogs {
class NodeEdit;
}

namespace quorel::matrix {

/// The matrix browser's window. Every procedure shows its own failures in the error box with module label
/// "MatrixBrowser"; none throws.
///
/// The direction flag says which links the targets are: true for outgoing. Only a click on a meta link and
/// `SelectMetaLink` with outgoing set it, the latter never back to false.
class frmMatrixBrowser final : public ui::Form {
  public:
    explicit frmMatrixBrowser(const frame::Environment& environment);
    /// Ends the registration with the session if nothing has ended it before.
    ~frmMatrixBrowser() override;

    // The lifecycle.
    // --------------------------------------------------------------------
    void Create(std::u16string_view name, const automation::Object& session);
    /// Gives the lists their colours and columns.
    void Init();
    /// Fills the list of meta nodes anew and keeps its selection; the other lists stay.
    void Populate();
    void PopUp(bool modal);
    void Conceal();
    /// Empties the lists and forgets the visited sources.
    void Deinit();
    /// Drops every reference to the host's objects.
    void Destroy() noexcept;

    // What the host sets.
    // --------------------------------------------------------------------
    std::u16string Path;
    [[nodiscard]] const automation::Object& PackageObject() const noexcept { return packageObject_; }
    void setPackageObject(automation::Object package) { packageObject_ = std::move(package); }
    [[nodiscard]] const std::u16string& RepositoryFileName() const noexcept { return repositoryFileName_; }
    void setRepositoryFileName(std::u16string_view fileName) { repositoryFileName_ = fileName; }
    /// Nothing again when the window is loaded anew after it was closed.
    [[nodiscard]] const automation::Object& RepositoryManager() const noexcept { return repositoryManager_; }
    void setRepositoryManager(automation::Object manager) { repositoryManager_ = std::move(manager); }
    void SetID(std::int32_t id) noexcept { id_ = id; }
    [[nodiscard]] std::int32_t GetID() const noexcept { return id_; }
    /// Shows a repository; what another one was shown with is gone.
    void SetRepository(const automation::Object& repository);
    [[nodiscard]] const automation::Object& GetRepository() const noexcept { return repository_; }
    void setRepository(const automation::Object& repository) { SetRepository(repository); }
    [[nodiscard]] const automation::Object& Repository() const noexcept { return GetRepository(); }

    // Selecting. Only `SetSelection` runs what a click runs.
    // --------------------------------------------------------------------
    /// Makes a node the source.
    void SetSelection(const automation::Object& node);
    /// The meta node comes from the repository's default member or, if that fails, from `MetaNodes`.
    void SelectSourceMetaNode(const std::u16string& name);
    void SelectSourceInstance(const std::u16string& identifier);
    void SelectMetaLink(const std::u16string& name, bool outgoing);

    // Without effect, on purpose.
    // --------------------------------------------------------------------
    void SelectTargetInstance(const std::u16string&) noexcept {}
    void Navigate() noexcept {}
    void EditTargetNode() noexcept {}
    [[nodiscard]] static automation::Object GetTargetInstance() noexcept { return {}; }
    [[nodiscard]] static automation::Object GetTargetMetaNode() noexcept { return {}; }

    /// Lets the user edit the node's properties, then fills what depends on the selected meta node anew.
    void EditSourceNode(const automation::Object& node);

    // The progress bar.
    // --------------------------------------------------------------------
    /// The bar's end is one above `max`, so that it is never seen full.
    void InitProgressBar(std::int32_t min, std::int32_t max, std::int32_t value);
    void ProgressBarStep(std::int32_t step);

  private:
    class FillProgress;
    static constexpr std::u16string_view kTargetsCaption = u"&Target instances";

    // Event handlers. The key of the row is not looked at: what counts is the selected object.
    void Form_Load();
    void Form_Unload();
    void Form_Resize();
    void SourceMetaNodeList_Click(std::u16string_view key);
    void SourceInstanceList_Click(std::u16string_view key);
    void SourceInstanceList_DblClick();
    void MetaLinkListIncoming_Click(std::u16string_view key);
    void MetaLinkListOutgoing_Click(std::u16string_view key);
    void TargetInstanceList_DblClick();
    void mnuSelect_Click();
    void mnuShowMetamodel_Click() noexcept {}
    void mnuBack_Click();
    void mnuForward_Click();

    /// Runs a procedure of this window under its label.
    template <class Body>
    auto procedure(std::u16string_view label, Body&& body) {
        return frame::guarded(*this, u"MatrixBrowser", label, std::forward<Body>(body));
    }

    // Building.
    void buildMenus();
    void buildListMenus();
    void connectLists();
    void reportCellsOf(controls::ListView& list, std::u16string_view label);

    // Lists.
    void Init_lists();
    void setListColours();
    void addMetaLinkColumns();
    void SetTargetColumns(const automation::Object& metaLink, bool outgoing);
    void clickedMetaLink(controls::ListView& clicked, bool outgoing, std::u16string_view label);
    void fillTargets(const automation::Object& instance, const automation::Object& metaLink,
                     std::u16string_view label);
    /// Says above the targets along which meta link they are.
    void showTargetsOf(std::u16string_view metaLink);
    void navigateTo(const automation::Object& node);
    void showCounts();

    // Placement.
    void restorePlacement();
    void savePlacement();

    // The keyboard's way to each list.
    void buildPaneMenu();
    /// The next list in the order of the grid, or the one before, round and round.
    void goToPane(int step);
    [[nodiscard]] bool hasFocus(controls::ListView& list) const;

    // The dialog of `EditSourceNode`.
    void placeOverThis(ui::Form& dialog) const;
    void closeNodeEdit();

    // Visited sources.
    void travelTo(const automation::Object& node);
    void showTravel();

    frame::Environment environment_;
    frame::ComponentRegistration registration_;
    std::int32_t id_ = 0;
    automation::Object repository_;
    automation::Object repositoryManager_;
    automation::Object packageObject_;
    std::u16string repositoryFileName_;
    std::shared_ptr<MatrixBrowserMenuForm> menuForm_;
    bool outgoing_ = false;

    controls::ListView& sourceMetaNodeList_;
    controls::ListView& sourceInstanceList_;
    controls::ListView& metaLinkListIncoming_;
    controls::ListView& metaLinkListOutgoing_;
    ui::Label& targetInstanceLabel_;
    controls::ListView& targetInstanceList_;
    ui::ProgressBar& progressBar_;
    ui::StatusBar& statusBar_;
    const std::array<controls::ListView*, 5> lists_;
    bool wasShown_ = false;

    VisitedSources visited_;
    bool travelling_ = false;
    /// The procedure that filled the targets, for cells that cannot be read.
    std::u16string_view targetsFilledBy_;
    std::weak_ptr<dialogs::NodeEdit> nodeEdit_;
};

}  // namespace quorel::matrix
