// What a tree shows of its items, and what the user does to it.

#include <vector>

#include "platform/automation/text.h"
#include "platform/ui/form.h"
#include "platform/ui/tree.h"

namespace quorel::ui {

bool Tree::isExpanded(TreeItemId item) const noexcept {
    const Node* const node = find(item);
    return node != nullptr && node->expanded;
}

void Tree::expand(TreeItemId item) {
    if (!contains(item) || isExpanded(item) || childCount(item) == 0)
        return;
    find(item)->expanded = true;
    itemChanged(item, TreeChange::Expanded);
}

void Tree::collapse(TreeItemId item) {
    if (!contains(item) || !isExpanded(item))
        return;
    const bool handsUp = isBelow(selected_, item);
    if (handsUp)
        selected_ = item;
    if (isBelow(target_, item))
        target_ = item;
    find(item)->expanded = false;
    itemChanged(item, TreeChange::Collapsed);
    if (handsUp)
        changed(Change::Selection);
}

bool Tree::isItemShown(TreeItemId item) const noexcept {
    if (!contains(item))
        return false;
    TreeItemId above = parentOf(item);
    while (above != TreeItemId::Root && isExpanded(above))
        above = parentOf(above);
    return above == TreeItemId::Root;
}

TreeItemId Tree::shownAfter(TreeItemId item) const noexcept {
    if (isExpanded(item) && childCount(item) > 0)
        return firstChild(item);
    while (item != TreeItemId::None && nextSibling(item) == TreeItemId::None)
        item = parentOf(item);
    return nextSibling(item);
}

TreeItemId Tree::shownBefore(TreeItemId item) const noexcept {
    TreeItemId before = previousSibling(item);
    if (before == TreeItemId::None) {
        const TreeItemId parent = parentOf(item);
        return parent != TreeItemId::Root ? parent : TreeItemId::None;
    }
    while (isExpanded(before) && childCount(before) > 0)
        before = lastChild(before);
    return before;
}

TreeItemId Tree::lastShown() const noexcept {
    TreeItemId last = lastChild(TreeItemId::Root);
    while (isExpanded(last) && childCount(last) > 0)
        last = lastChild(last);
    return last;
}

void Tree::expandAbove(TreeItemId item) {
    std::vector<TreeItemId> above;
    for (TreeItemId at = parentOf(item); at != TreeItemId::Root; at = parentOf(at))
        if (!isExpanded(at))
            above.push_back(at);
    for (; !above.empty(); above.pop_back())
        expand(above.back());
}

void Tree::ensureVisible(TreeItemId item) {
    if (!contains(item))
        return;
    expandAbove(item);
    target_ = item;
    changed(Change::ScrollTo);
}

void Tree::select(TreeItemId item) {
    if (!contains(item)) {
        selected_ = TreeItemId::None;
        changed(Change::Selection);
        return;
    }
    expandAbove(item);
    selected_ = target_ = item;
    changed(Change::Selection | Change::ScrollTo);
}

TreeItemId Tree::findShown(std::u16string_view text, bool afterSelected) const {
    const TreeItemId begin = firstChild(TreeItemId::Root);
    if (begin == TreeItemId::None || text.empty())
        return TreeItemId::None;
    const auto following = [&](TreeItemId item) {
        const TreeItemId next = shownAfter(item);
        return next != TreeItemId::None ? next : begin;
    };
    const bool any = selected_ != TreeItemId::None;
    const TreeItemId start = !any ? begin : afterSelected ? following(selected_) : selected_;
    const auto alive = keepFormAlive();
    TreeItemId at = start;
    do {
        const std::u16string own = itemText(at);
        // Whoever was asked for it may have changed the tree.
        if (!isItemShown(at) || !isItemShown(start))
            return TreeItemId::None;
        if (automation::equalsIgnoringCase(std::u16string_view(own).substr(0, text.size()), text))
            return at;
        at = following(at);
    } while (at != start);
    return TreeItemId::None;
}

void Tree::userSelected(TreeItemId item) {
    if (!contains(item))
        return;
    const auto alive = keepFormAlive();
    selected_ = item;
    onSelect.raise(item);
}

void Tree::userExpands(TreeItemId item) {
    if (!contains(item) || isExpanded(item) || !mayHaveChildren(item))
        return;
    const auto alive = keepFormAlive();
    onExpand.raise(item);
    expand(item);
}

void Tree::userCollapsed(TreeItemId item) {
    if (!contains(item) || !isExpanded(item))
        return;
    const auto alive = keepFormAlive();
    const bool handsUp = isBelow(selected_, item);
    collapse(item);
    onCollapse.raise(item);
    if (handsUp && selected_ == item)
        onSelect.raise(item);
}

void Tree::userActivated(TreeItemId item) {
    if (!contains(item))
        return;
    const auto alive = keepFormAlive();
    onActivate.raise(item);
}

}  // namespace quorel::ui
