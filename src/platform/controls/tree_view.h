#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/automation/calls.h"
#include "platform/automation/error.h"
#include "platform/automation/object.h"
#include "platform/controls/tree_description.h"
#include "platform/controls/tree_entry.h"
#include "platform/controls/tree_search.h"
#include "platform/ui/control.h"
#include "platform/ui/desktop.h"
#include "platform/ui/tree.h"

namespace quorel::ui {
class Label;
class TextBox;
}  // namespace quorel::ui

namespace quorel::controls {

/// A tree of repository objects that follows descriptions. What is below an entry is read when the user opens
/// it, a hundred at a time: an entry "100 more of 21,828" stands for the rest and lists the next ones when it
/// is selected. An object is asked for its name when its entry is seen, and for nothing else.
///
/// A text in the box above the tree is looked for by Enter in all entries, listed or not, those nearer to the
/// top first; Enter again, and F3 in the tree, go on to the next one. The pages up to it are listed; one that
/// is more than ten pages away is listed by itself, behind those. Ctrl+F goes to the box, Esc back. F5
/// reads everything anew and keeps what is open and what is selected.
///
/// Made of plain controls: the tree bears the name given, this container is "<name>.View", the box
/// "<name>.Find" and the text beside it "<name>.Found".
///
/// The host may do anything while it is asked, even describe, release or destroy the tree: what was being
/// listed then is dropped.
class TreeView : public ui::Panel {
  public:
    static constexpr std::size_t kPage = 100;

    TreeView(std::u16string_view name, ui::Desktop& desktop);

    /// Begins anew: no descriptions, no entries, no repository.
    virtual void initialise();
    /// A tree that is filled already is filled anew.
    void setRepository(automation::Object repository);
    [[nodiscard]] const automation::Object& repository() const noexcept { return repository_; }
    /// Describes entries below those of `parent`; those of the root's descriptions are at the top. A tree
    /// that is filled already shows them a moment later.
    std::shared_ptr<TreeDescription> AddChildDesc(TreeDescription& parent, std::u16string_view typ,
                                                  std::u16string_view metatype, std::u16string_view caption,
                                                  std::u16string_view icon, std::u16string_view paneId);
    [[nodiscard]] TreeDescription& rootDescription() noexcept { return *root_; }
    /// Lists the entries at the top, unless they are.
    void populate();
    void refresh();
    /// Drops entries and the repository; the descriptions stay.
    void release();

    /// Selects the next entry whose text contains this one, as the user would. False if there is none.
    bool find(const std::u16string& text);

    /// Null when none is selected.
    [[nodiscard]] std::shared_ptr<TreeEntry> selectedEntry() const;
    /// Nobody has clicked: no event. An entry that is not listed, or null, selects nothing.
    void selectEntry(const TreeEntry* entry);
    /// Null for an item that is no entry, such as the one that stands for more.
    [[nodiscard]] std::shared_ptr<TreeEntry> entryAt(ui::TreeItemId item) const;
    void setImages(std::shared_ptr<ui::ImageList> images);

    ui::Event<const std::shared_ptr<TreeEntry>&> onNodeClick;  ///< the user selected an entry
    /// Entries could not be read; those that could are listed.
    ui::Event<const automation::Error&> onFailure;

    [[nodiscard]] ui::Tree& tree() noexcept { return *tree_; }
    [[nodiscard]] ui::TextBox& findBox() noexcept { return *findBox_; }

  protected:
    /// A new description with a key, for one to put below another and say so.
    [[nodiscard]] std::shared_ptr<TreeDescription> makeDescription(TreeDescription content);
    /// A tree that is filled already shows what was described a moment later.
    void describedMore();

    // What it asks about entries that stand for instances. Each throws what the repository throws.
    // --------------------------------------------------------------------
    [[nodiscard]] virtual std::u16string askText(const TreeEntry& entry);
    [[nodiscard]] virtual std::u16string askIdentifier(const TreeEntry& entry);
    /// Whose entry an instance becomes that was found by the description of `entry`.
    [[nodiscard]] virtual std::shared_ptr<const TreeDescription> askDescription(const TreeEntry& entry);
    /// Which entries the user looks for by that text, folded.
    [[nodiscard]] virtual std::vector<TreeSearch::Match> matchesFor(const std::u16string& folded);

  private:
    /// What is below one entry by one description.
    struct Source {
        std::shared_ptr<const TreeDescription> description;
        automation::Object collection{};
        std::unique_ptr<automation::Enumerator> rest{};
        automation::Object ahead{};  ///< read, but not listed yet; Nothing when all are listed
        std::size_t listed = 0;
        std::optional<std::int64_t> total{};  ///< once it was counted
        ui::TreeItemId more = ui::TreeItemId::None;
        std::vector<automation::Object> revealed{};  ///< found and shown before their page is listed
    };
    struct Slot {
        std::shared_ptr<TreeEntry> entry{};
        std::vector<Source> sources{};
    };
    /// An entry that was open, selected, or above such a one when the tree was read anew.
    struct Kept {
        std::shared_ptr<TreeEntry> entry;
        bool wasExpanded = false;
        std::vector<Kept> below{};
        std::vector<std::size_t> listed{};  ///< by source
    };

    void boundsChanged() override;
    void place();
    void buildMenu();
    void keyInTree(ui::KeyEvent& event);
    void keyInBox(ui::KeyEvent& event);
    void selected(ui::TreeItemId item);
    void expanded(ui::TreeItemId item);
    void showFound(std::u16string_view text);
    void drop();

    // Listing. Those that answer a truth: false if what they list was dropped meanwhile.
    [[nodiscard]] Slot& slotAt(ui::TreeItemId item);
    [[nodiscard]] Source& sourceAt(ui::TreeItemId item, std::size_t source) {
        return slotAt(item).sources[source];
    }
    bool list(ui::TreeItemId item);
    bool listSource(ui::TreeItemId item, std::size_t source);
    bool listMore(ui::TreeItemId item, std::size_t source, std::size_t count);
    bool addInstance(ui::TreeItemId item, std::size_t source, automation::Object instance);
    void showMore(ui::TreeItemId item, std::size_t source);
    [[nodiscard]] static std::u16string moreText(const Source& source);
    void countMore(ui::TreeItemId more);
    [[nodiscard]] std::u16string textOf(const TreeEntry& entry);
    void addEntry(ui::TreeItemId parent, std::shared_ptr<TreeEntry> entry, ui::TreeItemId before);
    void listMoreAt(ui::TreeItemId more);
    void noteFailure();
    void textFailed(const automation::Error& error);
    void reportFailure();

    // Finding.
    [[nodiscard]] ui::TreeItemId reveal(const TreeEntry& entry);
    [[nodiscard]] ui::TreeItemId childFor(ui::TreeItemId parent, const TreeEntry& entry);
    /// Shows one that is far down by itself, in front of what stands for more.
    ui::TreeItemId revealAlone(ui::TreeItemId parent, std::size_t source, automation::Object instance,
                               std::size_t position);
    [[nodiscard]] ui::TreeItemId stillThere(ui::TreeItemId parent, const TreeEntry& former,
                                            const std::u16string& identifier);
    [[nodiscard]] std::optional<std::size_t> sourceOf(ui::TreeItemId parent, const TreeEntry& entry);

    // Reading anew.
    [[nodiscard]] std::vector<Kept> keptBelow(ui::TreeItemId item);
    [[nodiscard]] std::vector<std::size_t> listedBelow(ui::TreeItemId item);
    bool restore(ui::TreeItemId item, const std::vector<Kept>& kept, const std::vector<std::size_t>& listed);
    [[nodiscard]] ui::TreeItemId itemFor(ui::TreeItemId parent, const TreeEntry& former);
    void selectAgain(const std::shared_ptr<TreeEntry>& former);

    ui::Desktop& desktop_;
    ui::TextBox* findBox_;
    ui::Label* foundLabel_;
    ui::Tree* tree_;

    std::shared_ptr<TreeDescription> root_ = std::make_shared<TreeDescription>();
    std::size_t descriptions_ = 0;
    automation::Object repository_;
    std::vector<Slot> slots_;  ///< by the slots of the tree's items
    std::shared_ptr<TreeSearch> search_;
    std::u16string searched_;
    bool populated_ = false;
    bool refreshPosted_ = false;
    bool textFailureReported_ = false;  ///< since everything was read anew
    std::uint64_t generation_ = 0;      ///< counts replacements of all entries
    std::optional<automation::Error> failure_;
    std::shared_ptr<const bool> alive_ = std::make_shared<const bool>(true);
};

}  // namespace quorel::controls
