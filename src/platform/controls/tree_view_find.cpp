// Finding entries that may not be listed, and reading all of them anew.

#include <algorithm>
#include <utility>

#include "platform/automation/text.h"
#include "platform/controls/tree_view.h"
#include "platform/ui/plain_controls.h"

namespace quorel::controls {

using automation::Object;
using ui::TreeItemId;

namespace {
constexpr std::size_t kMostPages = 10;
}

// Finding.
// ------------------------------------------------------------------------

bool TreeView::find(const std::u16string& text) {
    if (text.empty() || !repository_)
        return false;
    const auto alive = keepFormAlive();
    const ui::WaitPointer wait(desktop_);
    if (!search_ || searched_ != text) {
        search_ = std::make_shared<TreeSearch>(root_, repository_, matchesFor(automation::foldCase(text)));
        searched_ = text;
    }
    const std::shared_ptr<TreeSearch> search = search_;
    const std::shared_ptr<const TreeEntry> found = search->next();
    if (search != search_)
        return false;
    if (!found) {
        showFound(search->hasEnded() ? u"Not found" : u"Not found yet");
        if (search->hasEnded())
            search_.reset();
        return false;
    }
    showFound({});
    populate();
    const TreeItemId item = reveal(*found);
    reportFailure();
    const std::shared_ptr<TreeEntry> entry = entryAt(item);
    if (!entry)
        return false;
    tree_->select(item);
    onNodeClick.raise(entry);
    return true;
}

TreeItemId TreeView::reveal(const TreeEntry& entry) {
    const TreeItemId parent = entry.above ? reveal(*entry.above) : TreeItemId::Root;
    if (parent == TreeItemId::None)
        return parent;
    const std::shared_ptr<TreeEntry> above = entryAt(parent);
    if (above && !above->isListed && !list(parent))
        return TreeItemId::None;
    return childFor(parent, entry);
}

std::optional<std::size_t> TreeView::sourceOf(TreeItemId parent, const TreeEntry& entry) {
    const std::vector<Source>& sources = slotAt(parent).sources;
    const auto at = std::find_if(sources.begin(), sources.end(), [&entry](const Source& source) {
        return source.description == entry.description;
    });
    return at != sources.end() ? std::optional(static_cast<std::size_t>(at - sources.begin())) : std::nullopt;
}

TreeItemId TreeView::childFor(TreeItemId parent, const TreeEntry& entry) {
    const std::optional<std::size_t> index = sourceOf(parent, entry);
    if (!index)
        return TreeItemId::None;
    const Source& source = sourceAt(parent, *index);
    const bool isFar = entry.position >= source.listed + kPage * kMostPages;
    if (entry.position >= source.listed && source.ahead && !isFar) {
        const std::size_t missing = entry.position + 1 - source.listed;
        // Many lines are added faster where they cannot be seen.
        if (missing > kPage && parent != TreeItemId::Root)
            tree_->collapse(parent);
        try {
            if (!listMore(parent, *index, (missing + kPage - 1) / kPage * kPage))
                return TreeItemId::None;
        } catch (...) {
            noteFailure();
        }
    }
    TreeItemId atPosition = TreeItemId::None;
    for (TreeItemId child = tree_->firstChild(parent); child != TreeItemId::None;
         child = tree_->nextSibling(child)) {
        const std::shared_ptr<TreeEntry> candidate = entryAt(child);
        if (!candidate || candidate->description != entry.description)
            continue;
        if (candidate->instance == entry.instance)
            return child;
        if (candidate->position == entry.position)
            atPosition = child;
    }
    return isFar ? revealAlone(parent, *index, entry.instance, entry.position) : atPosition;
}

TreeItemId TreeView::revealAlone(TreeItemId parent, std::size_t index, Object instance,
                                 std::size_t position) {
    auto entry = std::make_shared<TreeEntry>(
        TreeEntry{sourceAt(parent, index).description, std::move(instance), entryAt(parent)});
    entry->position = position;
    Source& source = sourceAt(parent, index);
    source.revealed.push_back(entry->instance);
    const TreeItemId before = source.more;
    addEntry(parent, entry, before);
    return entry->item;
}

// Reading anew.
// ------------------------------------------------------------------------

void TreeView::refresh() {
    const auto alive = keepFormAlive();
    const ui::WaitPointer wait(desktop_);
    const std::shared_ptr<TreeEntry> selected = selectedEntry();
    const std::vector<Kept> kept = keptBelow(TreeItemId::Root);
    const std::vector<std::size_t> listed = listedBelow(TreeItemId::Root);
    drop();
    populated_ = true;
    if (!restore(TreeItemId::Root, kept, listed))
        return;
    selectAgain(selected);
    reportFailure();
}

std::vector<TreeView::Kept> TreeView::keptBelow(TreeItemId item) {
    std::vector<Kept> kept;
    for (TreeItemId child = tree_->firstChild(item); child != TreeItemId::None;
         child = tree_->nextSibling(child)) {
        const std::shared_ptr<TreeEntry> entry = entryAt(child);
        const bool isExpanded = tree_->isExpanded(child);
        if (entry && (isExpanded || child == tree_->selected()))
            kept.push_back(
                {entry, isExpanded, isExpanded ? keptBelow(child) : std::vector<Kept>(), listedBelow(child)});
    }
    return kept;
}

std::vector<std::size_t> TreeView::listedBelow(TreeItemId item) {
    std::vector<std::size_t> listed;
    for (const Source& source : slotAt(item).sources)
        listed.push_back(source.listed);
    return listed;
}

bool TreeView::restore(TreeItemId item, const std::vector<Kept>& kept,
                       const std::vector<std::size_t>& listed) {
    if (!list(item))
        return false;
    for (std::size_t source = 0; source < slotAt(item).sources.size() && source < listed.size(); ++source) {
        const std::size_t now = sourceAt(item, source).listed;
        try {
            if (now < listed[source] && !listMore(item, source, listed[source] - now))
                return false;
        } catch (...) {
            noteFailure();
        }
    }
    for (const Kept& former : kept) {
        const std::uint64_t generation = generation_;
        const TreeItemId child = itemFor(item, *former.entry);
        if (generation != generation_)
            return false;
        const std::shared_ptr<TreeEntry> made = entryAt(child);
        if (!made)
            continue;
        // The entry stays the same one for whoever keeps it.
        *former.entry = *made;
        slotAt(child).entry = former.entry;
        if (!former.wasExpanded)
            continue;
        if (!restore(child, former.below, former.listed))
            return false;
        tree_->expand(child);
    }
    return true;
}

TreeItemId TreeView::itemFor(TreeItemId parent, const TreeEntry& former) {
    std::vector<TreeItemId> candidates;
    for (TreeItemId child = tree_->firstChild(parent); child != TreeItemId::None;
         child = tree_->nextSibling(child)) {
        const std::shared_ptr<TreeEntry> entry = entryAt(child);
        if (!entry || entry->description != former.description)
            continue;
        if (entry->instance == former.instance)
            return child;
        candidates.push_back(child);
    }
    // Another object may stand for the same node now.
    const std::uint64_t generation = generation_;
    try {
        const std::u16string identifier = askIdentifier(former);
        for (const TreeItemId child : candidates) {
            if (generation != generation_)
                break;
            if (askIdentifier(*entryAt(child)) == identifier)
                return child;
        }
        return generation == generation_ ? stillThere(parent, former, identifier) : TreeItemId::None;
    } catch (...) {
        return TreeItemId::None;  // an object that cannot tell who it is, is nobody who was there
    }
}

/// One that was listed by itself is far down again.
TreeItemId TreeView::stillThere(TreeItemId parent, const TreeEntry& former,
                                const std::u16string& identifier) {
    const std::optional<std::size_t> index = sourceOf(parent, former);
    if (!index || !sourceAt(parent, *index).ahead)
        return TreeItemId::None;
    const std::uint64_t generation = generation_;
    Object instance = Object(sourceAt(parent, *index).collection).get(u"Item", identifier).toObject();
    if (generation != generation_ || !instance)
        return TreeItemId::None;
    return revealAlone(parent, *index, std::move(instance), former.position);
}

/// What was selected is gone: the user stands on what was above it.
void TreeView::selectAgain(const std::shared_ptr<TreeEntry>& former) {
    const TreeEntry* at = former.get();
    while (at != nullptr && entryAt(at->item).get() != at)
        at = at->above.get();
    selectEntry(at);
    if (at != nullptr && at != former.get())
        onNodeClick.raise(entryAt(at->item));
}

}  // namespace quorel::controls
