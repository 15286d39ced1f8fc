#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/ui/control.h"
#include "platform/ui/image_list.h"
#include "platform/ui/tree_item.h"

namespace quorel::ui {

/// What an item of a tree is made with.
struct TreeItem {
    std::u16string text;
    std::u16string picture{};  ///< its key in the tree's image list; one that is not there shows nothing
    bool bold = false;
    bool mayHaveChildren = false;  ///< can be opened before its children are known
    bool textOnDemand = false;     ///< the text is asked of the tree's source when it is wanted
};

/// A tree whose items are made when they are wanted, and their texts read when they are seen. An item costs
/// about 80 bytes and its text, is added and removed in constant time, and has a native item only while all
/// above it are expanded. One item can be selected; the selected one is never inside a collapsed one.
///
/// Members that take the id of an item that was removed do nothing, or answer as for an item with nothing.
class Tree : public Control {
  public:
    explicit Tree(std::u16string_view name);
    void accept(ControlVisitor& visitor) override;

    // Items
    // --------------------------------------------------------------------
    /// As the last child of `parent`, or before the sibling given; `None` when there is no such parent.
    TreeItemId add(TreeItemId parent, const TreeItem& item, TreeItemId before = TreeItemId::None);
    /// With all below it. What was selected in there is not any more.
    void remove(TreeItemId item);
    /// All below `item`, which is then collapsed; below `Root`, everything.
    void removeChildren(TreeItemId item);
    /// Every item there is; `Root` is none of them.
    [[nodiscard]] std::size_t itemCount() const noexcept { return count_; }
    [[nodiscard]] bool contains(TreeItemId item) const noexcept;

    /// Answers the texts of items that were added without. It is asked for each one once: when the item is
    /// first painted, looked for by typing, or read. It must not throw, and may change the tree.
    void setTextSource(std::function<std::u16string(TreeItemId)> source) { source_ = std::move(source); }
    [[nodiscard]] std::u16string itemText(TreeItemId item) const;
    /// False while it has still to be asked for.
    [[nodiscard]] bool isTextKnown(TreeItemId item) const noexcept;
    void setItemText(TreeItemId item, std::u16string_view text);
    [[nodiscard]] const std::u16string& itemPicture(TreeItemId item) const noexcept;
    void setItemPicture(TreeItemId item, std::u16string_view key);
    [[nodiscard]] bool isBold(TreeItemId item) const noexcept;
    void setBold(TreeItemId item, bool bold);
    /// True if it has children or was said to: it has a button to open it.
    [[nodiscard]] bool mayHaveChildren(TreeItemId item) const noexcept;
    void setMayHaveChildren(TreeItemId item, bool may);

    // Kinship, each in constant time; `None` where there is nobody
    // --------------------------------------------------------------------
    [[nodiscard]] TreeItemId parentOf(TreeItemId item) const noexcept;
    [[nodiscard]] TreeItemId firstChild(TreeItemId item) const noexcept;
    [[nodiscard]] TreeItemId lastChild(TreeItemId item) const noexcept;
    [[nodiscard]] TreeItemId nextSibling(TreeItemId item) const noexcept;
    [[nodiscard]] TreeItemId previousSibling(TreeItemId item) const noexcept;
    [[nodiscard]] std::size_t childCount(TreeItemId item) const noexcept;
    /// True for an item anywhere below `above`.
    [[nodiscard]] bool isBelow(TreeItemId item, TreeItemId above) const noexcept;

    // What is shown: the items whose ancestors are all expanded, in the order of the lines
    // --------------------------------------------------------------------
    [[nodiscard]] bool isExpanded(TreeItemId item) const noexcept;
    /// By program, without an event; nothing happens to an item without children.
    void expand(TreeItemId item);
    /// A selected item below it hands the selection up to it. What is below stays as it is.
    void collapse(TreeItemId item);
    [[nodiscard]] bool isItemShown(TreeItemId item) const noexcept;
    [[nodiscard]] TreeItemId shownAfter(TreeItemId item) const noexcept;
    [[nodiscard]] TreeItemId shownBefore(TreeItemId item) const noexcept;
    [[nodiscard]] TreeItemId lastShown() const noexcept;
    /// Expands what is above it and scrolls, if it must, until the item can be seen.
    void ensureVisible(TreeItemId item);
    [[nodiscard]] TreeItemId scrollTarget() const noexcept { return target_; }

    /// `None` when nothing is selected.
    [[nodiscard]] TreeItemId selected() const noexcept { return selected_; }
    /// Expands what is above it and brings it into view; raises no event. `None` selects nothing.
    void select(TreeItemId item);

    /// Where the pictures of items come from.
    [[nodiscard]] const std::shared_ptr<ImageList>& images() const noexcept { return images_.list(); }
    void setImages(std::shared_ptr<ImageList> images);

    /// The next item shown that begins with `text`, whatever its case, going round at the end: from the
    /// selected one on, or after it. `None` if there is none.
    [[nodiscard]] TreeItemId findShown(std::u16string_view text, bool afterSelected) const;

    /// The user selected the item, by mouse, key or typing, or clicked the selected one again, or closed what
    /// was above the selected one.
    Event<TreeItemId> onSelect;
    /// The user opens an item, whether for the first time or again: what it shows is to be added now if it is
    /// not there yet. It opens when it has children after that; where there are none,
    /// `setMayHaveChildren(item, false)` takes the button away.
    Event<TreeItemId> onExpand;
    Event<TreeItemId> onCollapse;  ///< the user has closed it
    Event<TreeItemId> onActivate;  ///< a double-click on it, or Enter while it is selected

    void userSelected(TreeItemId item);
    void userExpands(TreeItemId item);
    void userCollapsed(TreeItemId item);
    /// A double-click also opens or closes the item; the backend does that by the two above.
    void userActivated(TreeItemId item);

  private:
    static constexpr std::uint32_t kNobody = ~std::uint32_t{0};

    /// Siblings are linked both ways. A slot without an item has its next free one in `next`.
    struct Node {
        std::u16string text;
        std::uint32_t parent = kNobody, first = kNobody, last = kNobody, previous = kNobody, next = kNobody;
        std::uint32_t children = 0;
        std::uint32_t generation = 0;
        std::uint32_t picture = 0;  ///< its place in `keys_`
        bool live = false;
        bool asksText = false;
        bool bold = false;
        bool mayHaveChildren = false;
        bool expanded = false;
    };

    [[nodiscard]] const Node* find(TreeItemId item) const noexcept;
    [[nodiscard]] Node* find(TreeItemId item) noexcept;
    [[nodiscard]] TreeItemId idOf(std::uint32_t slot) const noexcept;
    [[nodiscard]] std::uint32_t takeSlot();
    void freeSlot(std::uint32_t slot) noexcept;
    [[nodiscard]] std::uint32_t keyOf(std::u16string_view picture);
    void link(std::uint32_t slot, std::uint32_t parent, std::uint32_t before) noexcept;
    void unlink(std::uint32_t slot) noexcept;
    void releaseBelow(std::uint32_t top) noexcept;
    void itemChanged(TreeItemId item, TreeChange change);
    void expandAbove(TreeItemId item);
    void forgetInside(TreeItemId item, bool itself) noexcept;

    std::vector<Node> nodes_;  ///< the first is the root
    std::function<std::u16string(TreeItemId)> source_;
    std::uint32_t free_ = kNobody;
    std::size_t count_ = 0;
    std::vector<std::u16string> keys_;  ///< of pictures
    TreeItemId selected_ = TreeItemId::None;
    TreeItemId target_ = TreeItemId::None;
    ImageUse images_;
};

}  // namespace quorel::ui
