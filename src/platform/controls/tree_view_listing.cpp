// Listing the entries below an entry, page by page.

#include <algorithm>
#include <utility>

#include "platform/automation/text.h"
#include "platform/controls/cell_text.h"
#include "platform/controls/tree_view.h"
#include "platform/ui/plain_controls.h"

namespace quorel::controls {

using automation::Object;
using automation::Value;
using ui::TreeItemId;

namespace {

/// "21,828"
[[nodiscard]] std::u16string grouped(std::int64_t number) {
    std::u16string digits = automation::decimal(number);
    for (std::size_t at = digits.size(); at > 3; at -= 3)
        digits.insert(at - 3, 1, u',');
    return digits;
}

/// Reads until there are `wanted` objects or no more.
void readObjects(automation::Enumerator& source, std::vector<Object>& objects, std::size_t wanted) {
    while (objects.size() < wanted) {
        std::vector<Value> batch(wanted - objects.size());
        const std::size_t got = source.next(batch);
        for (std::size_t i = 0; i < got; ++i) {
            auto* const object = batch[i].getIf<Object>();
            if (object == nullptr)
                throw automation::Error(automation::error_number::kTypeMismatch);
            if (*object)
                objects.push_back(std::move(*object));
        }
        if (got < batch.size())
            return;
    }
}

}  // namespace

TreeView::Slot& TreeView::slotAt(TreeItemId item) {
    const std::size_t slot = ui::slotOf(item);
    if (slot >= slots_.size())
        slots_.resize(slot + 1);
    return slots_[slot];
}

void TreeView::populate() {
    if (std::exchange(populated_, true))
        return;
    const auto alive = keepFormAlive();
    const ui::WaitPointer wait(desktop_);
    list(TreeItemId::Root);
    reportFailure();
}

bool TreeView::list(TreeItemId item) {
    const std::uint64_t generation = generation_;
    const std::shared_ptr<TreeEntry> entry = entryAt(item);
    std::vector<Source> sources;
    for (const auto& description : (entry ? *entry->description : *root_).below)
        sources.push_back({description});
    const std::size_t count = sources.size();
    slotAt(item).sources = std::move(sources);
    bool failed = false;
    for (std::size_t source = 0; source < count; ++source) {
        try {
            if (!listSource(item, source))
                return false;
        } catch (...) {
            if (generation != generation_)
                return false;
            failed = true;
            noteFailure();
        }
    }
    if (entry)
        entry->isListed = !failed || tree_->childCount(item) > 0;
    return true;
}

bool TreeView::listSource(TreeItemId item, std::size_t index) {
    const std::uint64_t generation = generation_;
    const std::shared_ptr<const TreeDescription> description = sourceAt(item, index).description;
    const std::shared_ptr<TreeEntry> above = entryAt(item);
    if (!standsForInstances(description->kind)) {
        addEntry(item, std::make_shared<TreeEntry>(TreeEntry{description, {}, above}), TreeItemId::None);
        return true;
    }
    Object collection = collectionBelow(above.get(), *description, Object(repository_));
    std::unique_ptr<automation::Enumerator> rest = collection.enumerate();
    if (generation != generation_)
        return false;
    sourceAt(item, index).collection = std::move(collection);
    sourceAt(item, index).rest = std::move(rest);
    return listMore(item, index, kPage);
}

bool TreeView::listMore(TreeItemId item, std::size_t index, std::size_t count) {
    const std::uint64_t generation = generation_;
    std::vector<Object> objects;
    if (const Object& ahead = sourceAt(item, index).ahead)
        objects.push_back(ahead);
    // Out of the host's reach while it is asked.
    std::unique_ptr<automation::Enumerator> rest = std::move(sourceAt(item, index).rest);
    if (!rest)
        return true;
    try {
        readObjects(*rest, objects, count + 1);
    } catch (...) {
        // The user may try again.
        if (generation == generation_)
            sourceAt(item, index).rest = std::move(rest);
        throw;
    }
    if (generation != generation_)
        return false;
    Source& source = sourceAt(item, index);
    source.rest = std::move(rest);
    source.ahead = objects.size() > count ? objects[count] : Object();
    objects.resize(std::min(objects.size(), count));
    for (Object& instance : objects)
        if (!addInstance(item, index, std::move(instance)))
            return false;
    showMore(item, index);
    return true;
}

bool TreeView::addInstance(TreeItemId item, std::size_t index, Object instance) {
    const std::uint64_t generation = generation_;
    auto entry = std::make_shared<TreeEntry>(
        TreeEntry{sourceAt(item, index).description, std::move(instance), entryAt(item)});
    const auto& revealed = sourceAt(item, index).revealed;
    if (std::find(revealed.begin(), revealed.end(), entry->instance) != revealed.end()) {
        ++sourceAt(item, index).listed;
        return true;
    }
    entry->description = askDescription(*entry);
    if (generation != generation_)
        return false;
    Source& source = sourceAt(item, index);
    entry->position = source.listed++;
    const TreeItemId before = source.more;
    addEntry(item, std::move(entry), before);
    return true;
}

/// The mark of what cannot be read, where that is so.
std::u16string TreeView::textOf(const TreeEntry& entry) {
    const std::uint64_t generation = generation_;
    try {
        return askText(entry);
    } catch (...) {
        const automation::Error error = automation::currentError();
        if (generation == generation_)
            textFailed(error);
        return std::u16string(kUnreadableMark);
    }
}

void TreeView::addEntry(TreeItemId parent, std::shared_ptr<TreeEntry> entry, TreeItemId before) {
    const TreeDescription& description = *entry->description;
    const bool isAsked = standsForInstances(description.kind);
    const TreeItemId item = tree_->add(parent,
                                       {.text = isAsked ? std::u16string() : description.caption,
                                        .picture = description.icon,
                                        .mayHaveChildren = !description.below.empty(),
                                        .textOnDemand = isAsked},
                                       before);
    entry->item = item;
    slotAt(item) = {std::move(entry)};
}

void TreeView::showMore(TreeItemId item, std::size_t index) {
    Source& source = sourceAt(item, index);
    if (!source.ahead) {
        source.rest.reset();
        tree_->remove(std::exchange(source.more, TreeItemId::None));
        return;
    }
    const std::u16string text = moreText(source);
    if (source.more != TreeItemId::None) {
        tree_->setItemText(source.more, text);
        return;
    }
    const TreeItemId more = tree_->add(item, {text});
    slotAt(more) = {};
    sourceAt(item, index).more = more;
    desktop_.post([this, more, life = std::weak_ptr(alive_)] {
        if (!life.expired())
            countMore(more);
    });
}

std::u16string TreeView::moreText(const Source& source) {
    if (!source.total)
        return grouped(kPage) + u" more";
    const auto listed = static_cast<std::int64_t>(source.listed);
    const std::int64_t total = std::max(*source.total, listed + 1);
    return grouped(std::min<std::int64_t>(kPage, total - listed)) + u" more of " + grouped(total);
}

/// Nobody waits for the number: counting may take a repository longer than reading a page.
void TreeView::countMore(TreeItemId more) {
    const auto alive = keepFormAlive();
    const auto find = [&]() -> Source* {
        if (!tree_->contains(more))
            return nullptr;
        std::vector<Source>& sources = slotAt(tree_->parentOf(more)).sources;
        const auto at = std::find_if(sources.begin(), sources.end(),
                                     [more](const Source& source) { return source.more == more; });
        return at != sources.end() ? &*at : nullptr;
    };
    if (const Source* const source = find()) {
        const std::uint64_t generation = generation_;
        std::optional<std::int64_t> total;
        try {
            total = Object(source->collection).get(u"Count").toInteger();
        } catch (...) {
            if (generation == generation_)
                noteFailure();
        }
        if (Source* const counted = find(); counted != nullptr && total) {
            counted->total = total;
            tree_->setItemText(more, moreText(*counted));
        }
        reportFailure();
    }
}

void TreeView::listMoreAt(TreeItemId more) {
    const TreeItemId parent = tree_->parentOf(more);
    const std::vector<Source>& sources = slotAt(parent).sources;
    const auto at = std::find_if(sources.begin(), sources.end(),
                                 [more](const Source& source) { return source.more == more; });
    if (at == sources.end())
        return;
    const ui::WaitPointer wait(desktop_);
    const TreeItemId last = tree_->previousSibling(more);
    try {
        if (!listMore(parent, static_cast<std::size_t>(at - sources.begin()), kPage))
            return;
    } catch (...) {
        noteFailure();
    }
    TreeItemId next = tree_->nextSibling(last);
    // What stands for more is never what the user stands on.
    if (next == more)
        next = last;
    tree_->select(next);
    const std::shared_ptr<TreeEntry> entry = entryAt(next);
    reportFailure();
    if (entry)
        onNodeClick.raise(entry);
}

void TreeView::noteFailure() {
    if (!failure_)
        failure_ = automation::currentError();
}

/// Not while the tree is painted, and once until everything is read anew.
void TreeView::textFailed(const automation::Error& error) {
    if (std::exchange(textFailureReported_, true))
        return;
    desktop_.post([this, error, generation = generation_, life = std::weak_ptr(alive_)] {
        if (life.expired())
            return;
        const auto alive = keepFormAlive();
        if (generation == generation_)
            onFailure.raise(error);
    });
}

void TreeView::reportFailure() {
    if (const auto failure = std::exchange(failure_, std::nullopt))
        onFailure.raise(*failure);
}

}  // namespace quorel::controls
