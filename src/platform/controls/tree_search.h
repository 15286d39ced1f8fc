#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/automation/calls.h"
#include "platform/controls/tree_entry.h"

namespace quorel::controls {

/// Looks for entries among all that descriptions stand for, level by level, and lists none. What cannot be
/// read is passed over.
class TreeSearch {
  public:
    /// One call of `next` asks no more entries than this for their texts.
    static constexpr std::size_t kMostAtOnce = 200'000;

    /// Whether an entry is one that is looked for. May throw what the repository throws.
    using Match = std::function<bool(const TreeEntry&)>;

    /// What the first one matches comes first, then from the top again what the second one does.
    TreeSearch(std::shared_ptr<const TreeDescription> root, automation::Object repository,
               std::vector<Match> matches);
    /// For the entries whose text contains this one, whatever the case of its letters.
    TreeSearch(std::shared_ptr<const TreeDescription> root, automation::Object repository,
               std::u16string_view text);

    /// The next entry that is looked for. Null when it was not found: by then in all entries if `hasEnded`,
    /// else another call goes on.
    [[nodiscard]] std::shared_ptr<const TreeEntry> next();
    [[nodiscard]] bool hasEnded() const noexcept { return ended_; }

  private:
    using EntryPtr = std::shared_ptr<const TreeEntry>;

    /// The next entry in line; null at the end.
    [[nodiscard]] EntryPtr advance();
    /// Goes on to the next description of the entry whose children are read, or to the next entry. False at
    /// the end.
    [[nodiscard]] bool open();
    [[nodiscard]] EntryPtr nextInstance();
    [[nodiscard]] bool matches(const TreeEntry& entry) const;

    std::shared_ptr<const TreeDescription> root_;
    automation::Object repository_;
    std::vector<Match> matches_;
    std::size_t match_ = 0;
    std::deque<EntryPtr> unopened_;  ///< null stands for the top
    EntryPtr above_;
    std::vector<std::shared_ptr<TreeDescription>> below_;  ///< of the entry above, from `description_` on
    std::size_t description_ = 0;
    std::unique_ptr<automation::Enumerator> source_;
    std::vector<automation::Value> batch_;
    std::size_t inBatch_ = 0;
    std::size_t position_ = 0;
    bool ended_ = false;
};

}  // namespace quorel::controls
