#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "explorer/explorer_window.h"
#include "platform/controls/tree_view.h"

namespace quorel::explorer {

/// The window of an explorer that a host describes.
class frmExplorer final : public ExplorerWindow {
  public:
    explicit frmExplorer(const frame::Environment& environment);

    void Create();
    /// Hands the repository to the tree and adds the information pane, "ID:1".
    void Init();
    /// Drops every reference to the host's objects.
    void Destroy() noexcept;

    [[nodiscard]] const automation::Object& RepositoryManager() const noexcept { return repositoryManager_; }
    void setRepositoryManager(automation::Object manager) { repositoryManager_ = std::move(manager); }

    [[nodiscard]] controls::TreeView& TreeView1() noexcept { return tree_; }

    void contentsChanged() override { tree_.refresh(); }

  private:
    void TreeView1_NodeClick(const Entry& entry);
    [[nodiscard]] std::u16string RepInfo();

    void selectInTree(const controls::TreeEntry* entry) override { tree_.selectEntry(entry); }
    void fillTree() override { tree_.populate(); }
    void releaseTree() override { tree_.release(); }
    void addTreePicture(std::u16string_view icon, const std::vector<ui::Picture>& frames) override;

    controls::TreeView& tree_;
    std::shared_ptr<ui::ImageList> treeImages_ = std::make_shared<ui::ImageList>();
    automation::Object repositoryManager_;
};

}  // namespace quorel::explorer
