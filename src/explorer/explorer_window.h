#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "explorer/explorer_pane.h"
#include "frame/environment.h"
#include "frame/guarded.h"
#include "platform/automation/object.h"
#include "platform/controls/elastic.h"
#include "platform/controls/index_tab.h"
#include "platform/controls/tree_entry.h"
#include "platform/ui/form.h"
#include "platform/ui/image_list.h"
#include "platform/ui/plain_controls.h"

namespace quorel::explorer {

/// What all windows of a tree and panes have but the tree: caption, tabs, panes and pictures, and which pane
/// is shown. Its procedures show their failures in the error box under the window's name, but for `Panes` and
/// what a pane does for a host: that throws.
class ExplorerWindow : public ui::Form {
  public:
    using Entry = std::shared_ptr<controls::TreeEntry>;

    /// The form's name is the module of its error reports.
    ExplorerWindow(const frame::Environment& environment, std::u16string_view name);

    // What the host sets.
    // --------------------------------------------------------------------
    std::u16string Path;
    [[nodiscard]] const automation::Object& Repository() const noexcept { return repository_; }
    void setRepository(automation::Object repository) { repository_ = std::move(repository); }

    // The lifecycle.
    // --------------------------------------------------------------------
    void PopUp(bool modal);
    void Conceal();
    void Deinit();
    /// Drops every reference to the host's objects.
    void Destroy() noexcept;

    // Panes and pictures. They are only ever added.
    // --------------------------------------------------------------------
    /// Null if it failed, which has been reported. Error 457 for an id that is there already.
    ExplorerPane* AddPane(std::u16string_view paneId, std::u16string_view icon, std::u16string_view caption,
                          std::u16string_view subPane);
    /// The pane of that id; error 9 if there is none.
    [[nodiscard]] ExplorerPane& Panes(std::u16string_view paneId) const;
    [[nodiscard]] std::size_t paneCount() const noexcept { return panes_.size(); }
    /// Loads a small and a large picture; the large one is the small one's file if its own is empty.
    void AddPicture(std::u16string_view icon, std::u16string_view picturePath,
                    std::u16string_view bigPicturePath);
    /// Shows the pane that the entry names. Null if there is none, or if it failed, which has been reported.
    ExplorerPane* ActivatePane(const Entry& entry);

    // What panes need of their window.
    // --------------------------------------------------------------------
    [[nodiscard]] controls::IndexTab& tabs() noexcept { return *tabs_; }
    [[nodiscard]] const std::shared_ptr<ui::ImageList>& smallImages() const noexcept { return smallImages_; }
    [[nodiscard]] const std::shared_ptr<ui::ImageList>& bigImages() const noexcept { return bigImages_; }
    [[nodiscard]] const frame::Environment& environment() const noexcept { return environment_; }
    /// The name of the next element of a control array, such as "Label1(3)".
    [[nodiscard]] std::u16string nextElement(std::u16string_view array);
    /// The caption and the large picture of that key, or none.
    virtual void showCaption(std::u16string_view icon, std::u16string_view caption);
    /// Counts how often everything was let go of: who was at it then has to stop.
    [[nodiscard]] std::uint64_t releases() const noexcept { return releases_; }
    /// The next identifier of the window's generator.
    [[nodiscard]] std::u16string UUID();
    /// Shows an error as one of that procedure.
    void report(std::u16string_view label, const automation::Error& error);
    /// What is in the repository has changed.
    virtual void contentsChanged() = 0;
    /// Shows a dialog of this window's, which closes with it. False if this window is gone before or
    /// afterwards.
    bool ask(const std::shared_ptr<ui::Form>& dialog);

    /// Runs a procedure of this window under its label.
    template <class Body>
    auto procedure(std::u16string_view label, Body&& body) {
        return frame::guarded(*this, name(), label, std::forward<Body>(body));
    }

  protected:
    /// The key of the explorers' own picture.
    static constexpr std::u16string_view kInformationIcon = u"QuorelExplorer";

    /// Makes the controls beside the tree, which is there already.
    void build(ui::Control& tree);
    [[nodiscard]] controls::Elastic& vsElastic1() noexcept { return *elastic_; }
    [[nodiscard]] virtual std::unique_ptr<ExplorerPane> makePane() const {
        return std::make_unique<ExplorerPane>();
    }
    /// The tree goes back to that entry, which is shown still.
    virtual void selectInTree(const controls::TreeEntry* entry) = 0;
    /// Fills the tree before it is first shown.
    virtual void fillTree() = 0;
    virtual void releaseTree() = 0;
    /// The tree has a picture under that key, too.
    virtual void addTreePicture(std::u16string_view icon, const std::vector<ui::Picture>& frames) = 0;
    /// For what the tree raises: shows the entry's pane and its first tab.
    void nodeClick(const Entry& entry);
    /// Lays every pane out to its present size.
    void resizePanes();
    void keepPicture(std::u16string_view icon, std::vector<ui::Picture> frames);

  private:
    void Switch(std::size_t oldTab, std::size_t newTab);
    void Form_Load();
    void Form_Unload();
    /// The elements 0 of the control arrays, which are never seen; panes number theirs from 1.
    void addTemplates();
    void place();
    void release();

    frame::Environment environment_;
    automation::Object repository_;
    automation::Object uuidGenerator_;
    std::shared_ptr<ui::ImageList> smallImages_ = std::make_shared<ui::ImageList>(ui::ImageList::kSmall);
    std::shared_ptr<ui::ImageList> bigImages_ = std::make_shared<ui::ImageList>(ui::ImageList::kBig);
    std::vector<std::unique_ptr<ExplorerPane>> panes_;
    std::map<std::u16string, ExplorerPane*, std::less<>> panesById_;
    std::map<std::u16string, std::int32_t, std::less<>> elements_;
    Entry current_;
    ExplorerPane* shown_ = nullptr;  ///< whose tabs are seen
    std::uint64_t releases_ = 0;

    controls::Elastic* elastic_ = nullptr;
    ui::Control* tree_ = nullptr;
    ui::Splitter* splitter_ = nullptr;
    ui::PictureBox* captionBox_ = nullptr;
    ui::Label* paneCaption_ = nullptr;
    ui::Line* line_ = nullptr;
    controls::IndexTab* tabs_ = nullptr;
    std::int32_t split_ = 3000;
    bool wasShown_ = false;
    std::weak_ptr<ui::Form> dialog_;
};

}  // namespace quorel::explorer
