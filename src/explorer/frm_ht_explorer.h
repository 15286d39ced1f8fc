#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "explorer/explorer_window.h"
#include "explorer/ht_explorer_pane.h"
#include "frame/component_registration.h"
#include "platform/controls/hierarchy_tree_view.h"

namespace quorel::explorer {

/// The window of an explorer whose tree and panes follow the metamodel. Of each meta node there is a pane for
/// a node (its name), one for all of them ("0 " and the name), of each meta link one ("2 " and the name).
class frmHTExplorer final : public ExplorerWindow {
  public:
    explicit frmHTExplorer(const frame::Environment& environment);
    /// Ends the registration with the session if nothing has ended it before.
    ~frmHTExplorer() override;

    void Create(std::u16string_view name, const automation::Object& session);
    void Init();
    /// Makes the panes and describes the tree, once, with a progress window while it does. A failure leaves
    /// what was made until then.
    void SetupTree();
    /// Reads the tree anew.
    void Populate();
    /// Lays every pane out to its present size.
    void Resize();
    /// Drops every reference to the host's objects.
    void Destroy() noexcept;

    [[nodiscard]] const std::u16string& ComponentName() const noexcept { return registration_.ComponentName; }
    [[nodiscard]] const automation::Object& session() const noexcept { return registration_.session; }
    [[nodiscard]] const automation::Object& PackageObject() const noexcept { return packageObject_; }
    void setPackageObject(automation::Object package) { packageObject_ = std::move(package); }
    [[nodiscard]] const std::u16string& RepositoryFileName() const noexcept { return repositoryFileName_; }
    void setRepositoryFileName(std::u16string_view fileName) { repositoryFileName_ = fileName; }

    [[nodiscard]] controls::HierarchyTreeView& HierarchyTreeView1() noexcept { return tree_; }

    void contentsChanged() override { tree_.refresh(); }
    /// A picture that is not there is that of a node.
    void showCaption(std::u16string_view icon, std::u16string_view caption) override;

  private:
    class Setup;

    void HierarchyTreeView1_NodeClick(const Entry& entry);
    void Form_Terminate() const noexcept;

    // The progress window.
    void CreateProgressBar();
    void InitProgressBar(const automation::Object& repository);
    void IncProgressBar(const std::u16string& step);
    void DestroyProgressBar() noexcept;

    [[nodiscard]] std::unique_ptr<ExplorerPane> makePane() const override {
        return std::make_unique<HTExplorerPane>();
    }
    void selectInTree(const controls::TreeEntry* entry) override { tree_.selectEntry(entry); }
    void fillTree() override { tree_.populate(); }
    void releaseTree() override { tree_.release(); }
    void addTreePicture(std::u16string_view icon, const std::vector<ui::Picture>& frames) override;

    controls::HierarchyTreeView& tree_;
    std::shared_ptr<ui::ImageList> treeImages_ = std::make_shared<ui::ImageList>();
    frame::ComponentRegistration registration_;
    automation::Object packageObject_;
    std::u16string repositoryFileName_;
    automation::Object progress_;  ///< while the tree is set up
};

}  // namespace quorel::explorer
