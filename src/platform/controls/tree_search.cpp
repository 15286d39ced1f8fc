#include "platform/controls/tree_search.h"

#include <utility>

#include "platform/automation/text.h"

namespace quorel::controls {

using automation::Object;

namespace {
constexpr std::size_t kSearchBatch = 64;
}

TreeSearch::TreeSearch(std::shared_ptr<const TreeDescription> root, Object repository,
                       std::vector<Match> matches)
    : root_(std::move(root)),
      repository_(std::move(repository)),
      matches_(std::move(matches)),
      unopened_{nullptr} {}

TreeSearch::TreeSearch(std::shared_ptr<const TreeDescription> root, Object repository,
                       std::u16string_view text)
    : TreeSearch(std::move(root), std::move(repository),
                 std::vector<Match>{[folded = automation::foldCase(text)](const TreeEntry& entry) {
                     return automation::foldCase(entryText(entry)).find(folded) != std::u16string::npos;
                 }}) {}

std::shared_ptr<const TreeEntry> TreeSearch::next() {
    for (std::size_t asked = 0; asked < kMostAtOnce; ++asked) {
        const EntryPtr entry = advance();
        if (!entry)
            return nullptr;
        if (!entry->description->below.empty() && !entry->description->endsSearch)
            unopened_.push_back(entry);
        if (matches(*entry))
            return entry;
    }
    return nullptr;
}

bool TreeSearch::matches(const TreeEntry& entry) const {
    try {
        return matches_[match_](entry);
    } catch (...) {
        return false;
    }
}

TreeSearch::EntryPtr TreeSearch::advance() {
    while (!ended_) {
        if (source_) {
            if (EntryPtr entry = nextInstance())
                return entry;
            source_.reset();
            continue;
        }
        if (!open())
            break;
        if (const auto& description = below_[description_ - 1]; !standsForInstances(description->kind))
            return std::make_shared<TreeEntry>(TreeEntry{description, {}, above_});
    }
    return nullptr;
}

bool TreeSearch::open() {
    while (description_ >= below_.size()) {
        if (unopened_.empty()) {
            if (++match_ >= matches_.size()) {
                ended_ = true;
                return false;
            }
            unopened_.push_back(nullptr);
        }
        above_ = std::move(unopened_.front());
        unopened_.pop_front();
        below_ = above_ ? above_->description->below : root_->below;
        description_ = 0;
    }
    const TreeDescription& description = *below_[description_++];
    position_ = 0;
    batch_.clear();
    inBatch_ = 0;
    if (standsForInstances(description.kind)) {
        try {
            source_ = collectionBelow(above_.get(), description, repository_).enumerate();
        } catch (...) {
            return open();
        }
    }
    return true;
}

TreeSearch::EntryPtr TreeSearch::nextInstance() {
    for (;;) {
        if (inBatch_ == batch_.size()) {
            try {
                batch_.assign(kSearchBatch, {});
                batch_.resize(source_->next(batch_));
            } catch (...) {
                batch_.clear();
            }
            inBatch_ = 0;
            if (batch_.empty())
                return nullptr;
        }
        const Object* const instance = batch_[inBatch_++].getIf<Object>();
        if (instance == nullptr || !*instance)
            continue;
        auto entry = std::make_shared<TreeEntry>(TreeEntry{below_[description_ - 1], *instance, above_});
        entry->position = position_++;
        return entry;
    }
}

}  // namespace quorel::controls
