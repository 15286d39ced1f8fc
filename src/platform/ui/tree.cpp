#include "platform/ui/tree.h"

#include <algorithm>
#include <utility>

#include "platform/ui/control_visitor.h"

namespace quorel::ui {

namespace {

constexpr std::uint32_t kRootSlot = 0;

[[nodiscard]] const std::u16string& nothing() noexcept {
    static const std::u16string empty;
    return empty;
}

}  // namespace

Tree::Tree(std::u16string_view name)
    : Control(name), nodes_(1), keys_(1), images_([this] { changed(Change::Images); }) {
    nodes_[kRootSlot].live = true;
    nodes_[kRootSlot].expanded = true;
}

void Tree::accept(ControlVisitor& visitor) {
    visitor.visit(*this);
}

const Tree::Node* Tree::find(TreeItemId item) const noexcept {
    const std::size_t slot = slotOf(item);
    return slot < nodes_.size() && nodes_[slot].live && idOf(static_cast<std::uint32_t>(slot)) == item
               ? &nodes_[slot]
               : nullptr;
}

Tree::Node* Tree::find(TreeItemId item) noexcept {
    return const_cast<Node*>(std::as_const(*this).find(item));
}

TreeItemId Tree::idOf(std::uint32_t slot) const noexcept {
    if (slot == kNobody)
        return TreeItemId::None;
    return static_cast<TreeItemId>(std::uint64_t{nodes_[slot].generation} << 32 | slot);
}

bool Tree::contains(TreeItemId item) const noexcept {
    return item != TreeItemId::Root && find(item) != nullptr;
}

std::uint32_t Tree::takeSlot() {
    if (free_ == kNobody) {
        nodes_.emplace_back();
        return static_cast<std::uint32_t>(nodes_.size() - 1);
    }
    const std::uint32_t slot = free_;
    free_ = nodes_[slot].next;
    const std::uint32_t generation = nodes_[slot].generation;
    nodes_[slot] = {};
    nodes_[slot].generation = generation;
    return slot;
}

void Tree::freeSlot(std::uint32_t slot) noexcept {
    Node& node = nodes_[slot];
    node.live = false;
    node.text = {};
    ++node.generation;
    node.next = std::exchange(free_, slot);
    --count_;
}

/// The keys are few: those of a program's pictures.
std::uint32_t Tree::keyOf(std::u16string_view picture) {
    const auto found = std::find(keys_.begin(), keys_.end(), picture);
    if (found != keys_.end())
        return static_cast<std::uint32_t>(found - keys_.begin());
    keys_.emplace_back(picture);
    return static_cast<std::uint32_t>(keys_.size() - 1);
}

void Tree::link(std::uint32_t slot, std::uint32_t parent, std::uint32_t before) noexcept {
    Node& node = nodes_[slot];
    Node& above = nodes_[parent];
    node.parent = parent;
    node.next = before;
    node.previous = before != kNobody ? nodes_[before].previous : above.last;
    (node.previous != kNobody ? nodes_[node.previous].next : above.first) = slot;
    (before != kNobody ? nodes_[before].previous : above.last) = slot;
    ++above.children;
}

void Tree::unlink(std::uint32_t slot) noexcept {
    const Node& node = nodes_[slot];
    Node& above = nodes_[node.parent];
    (node.previous != kNobody ? nodes_[node.previous].next : above.first) = node.next;
    (node.next != kNobody ? nodes_[node.next].previous : above.last) = node.previous;
    --above.children;
}

TreeItemId Tree::add(TreeItemId parent, const TreeItem& item, TreeItemId before) {
    if (find(parent) == nullptr)
        return TreeItemId::None;
    const bool isSibling = contains(before) && parentOf(before) == parent;
    const std::uint32_t slot = takeSlot();
    Node& node = nodes_[slot];
    node.live = true;
    node.text = item.text;
    node.picture = keyOf(item.picture);
    node.bold = item.bold;
    node.mayHaveChildren = item.mayHaveChildren;
    node.asksText = item.textOnDemand;
    link(slot, static_cast<std::uint32_t>(slotOf(parent)),
         isSibling ? static_cast<std::uint32_t>(slotOf(before)) : kNobody);
    ++count_;
    const TreeItemId added = idOf(slot);
    itemChanged(added, TreeChange::Added);
    return added;
}

void Tree::remove(TreeItemId item) {
    if (!contains(item))
        return;
    forgetInside(item, true);
    itemChanged(item, TreeChange::Removing);
    const auto slot = static_cast<std::uint32_t>(slotOf(item));
    const TreeItemId parent = parentOf(item);
    releaseBelow(slot);
    unlink(slot);
    freeSlot(slot);
    if (parent != TreeItemId::Root && childCount(parent) == 0) {
        find(parent)->expanded = false;
        itemChanged(parent, TreeChange::Content);
    }
}

void Tree::removeChildren(TreeItemId item) {
    const Node* const node = find(item);
    if (node == nullptr || node->first == kNobody)
        return;
    forgetInside(item, false);
    if (item != TreeItemId::Root)
        collapse(item);
    for (TreeItemId child = firstChild(item); child != TreeItemId::None; child = nextSibling(child))
        itemChanged(child, TreeChange::Removing);
    releaseBelow(static_cast<std::uint32_t>(slotOf(item)));
    itemChanged(item, TreeChange::Content);
}

/// From the leaves up, without recursion: a tree may be as deep as somebody opens it.
void Tree::releaseBelow(std::uint32_t top) noexcept {
    std::uint32_t at = top;
    for (;;) {
        while (nodes_[at].first != kNobody)
            at = nodes_[at].first;
        if (at == top)
            break;
        const std::uint32_t parent = nodes_[at].parent;
        nodes_[parent].first = nodes_[at].next;
        freeSlot(at);
        at = parent;
    }
    nodes_[top].first = nodes_[top].last = kNobody;
    nodes_[top].children = 0;
}

void Tree::forgetInside(TreeItemId item, bool itself) noexcept {
    const auto inside = [&](TreeItemId other) { return (itself && other == item) || isBelow(other, item); };
    if (inside(target_))
        target_ = TreeItemId::None;
    if (inside(selected_)) {
        selected_ = TreeItemId::None;
        changed(Change::Selection);
    }
}

void Tree::itemChanged(TreeItemId item, TreeChange change) {
    if (peer() != nullptr)
        peer()->applyItem(item, change);
}

bool Tree::isTextKnown(TreeItemId item) const noexcept {
    const Node* const node = find(item);
    return node == nullptr || !node->asksText;
}

std::u16string Tree::itemText(TreeItemId item) const {
    if (isTextKnown(item) || !source_) {
        const Node* const node = find(item);
        return node != nullptr ? node->text : std::u16string();
    }
    const auto alive = keepFormAlive();
    const auto source = source_;
    auto& self = const_cast<Tree&>(*this);
    // Whoever is asked may want the text, too.
    self.find(item)->asksText = false;
    std::u16string text = source(item);
    if (Node* const node = self.find(item))
        node->text = text;
    return text;
}

void Tree::setItemText(TreeItemId item, std::u16string_view text) {
    if (!contains(item) || (isTextKnown(item) && itemText(item) == text))
        return;
    find(item)->asksText = false;
    find(item)->text = text;
    itemChanged(item, TreeChange::Content);
}

const std::u16string& Tree::itemPicture(TreeItemId item) const noexcept {
    const Node* const node = find(item);
    return node != nullptr ? keys_[node->picture] : nothing();
}

void Tree::setItemPicture(TreeItemId item, std::u16string_view key) {
    if (!contains(item) || itemPicture(item) == key)
        return;
    find(item)->picture = keyOf(key);
    itemChanged(item, TreeChange::Content);
}

bool Tree::isBold(TreeItemId item) const noexcept {
    const Node* const node = find(item);
    return node != nullptr && node->bold;
}

void Tree::setBold(TreeItemId item, bool bold) {
    if (!contains(item) || isBold(item) == bold)
        return;
    find(item)->bold = bold;
    itemChanged(item, TreeChange::Content);
}

bool Tree::mayHaveChildren(TreeItemId item) const noexcept {
    const Node* const node = find(item);
    return node != nullptr && (node->mayHaveChildren || node->first != kNobody);
}

void Tree::setMayHaveChildren(TreeItemId item, bool may) {
    if (!contains(item) || find(item)->mayHaveChildren == may)
        return;
    find(item)->mayHaveChildren = may;
    itemChanged(item, TreeChange::Content);
}

TreeItemId Tree::parentOf(TreeItemId item) const noexcept {
    const Node* const node = find(item);
    return node != nullptr ? idOf(node->parent) : TreeItemId::None;
}

TreeItemId Tree::firstChild(TreeItemId item) const noexcept {
    const Node* const node = find(item);
    return node != nullptr ? idOf(node->first) : TreeItemId::None;
}

TreeItemId Tree::lastChild(TreeItemId item) const noexcept {
    const Node* const node = find(item);
    return node != nullptr ? idOf(node->last) : TreeItemId::None;
}

TreeItemId Tree::nextSibling(TreeItemId item) const noexcept {
    const Node* const node = find(item);
    return node != nullptr ? idOf(node->next) : TreeItemId::None;
}

TreeItemId Tree::previousSibling(TreeItemId item) const noexcept {
    const Node* const node = find(item);
    return node != nullptr ? idOf(node->previous) : TreeItemId::None;
}

std::size_t Tree::childCount(TreeItemId item) const noexcept {
    const Node* const node = find(item);
    return node != nullptr ? node->children : 0;
}

bool Tree::isBelow(TreeItemId item, TreeItemId above) const noexcept {
    if (item == TreeItemId::None || find(above) == nullptr)
        return false;
    TreeItemId at = parentOf(item);
    while (at != TreeItemId::None && at != above)
        at = parentOf(at);
    return at == above;
}

void Tree::setImages(std::shared_ptr<ImageList> images) {
    images_.set(std::move(images));
    changed(Change::Images);
}

}  // namespace quorel::ui
