#pragma once

#include <cstddef>
#include <memory>
#include <string>

#include "platform/automation/object.h"
#include "platform/controls/tree_description.h"
#include "platform/ui/tree_item.h"

namespace quorel::controls {

/// An entry of a tree that is or was listed. Whoever keeps one may go on asking it after it was taken out.
struct TreeEntry {
    std::shared_ptr<const TreeDescription> description;
    /// The node or link of an entry that stands for one of its own.
    automation::Object instance{};
    std::shared_ptr<const TreeEntry> above{};  ///< none at the top
    ui::TreeItemId item = ui::TreeItemId::None;
    std::size_t position = 0;  ///< among those of its description
    bool isListed = false;     ///< the entries below it have been read

    [[nodiscard]] EntryKind kind() const noexcept { return description->kind; }
    [[nodiscard]] const std::u16string& paneId() const noexcept { return description->paneId; }
    /// What it stands for: a node, a link, for a folder the node that it belongs to, for a plain entry
    /// Nothing. Throws what the repository throws.
    [[nodiscard]] automation::Object object() const;
};

/// The node that a pane of the entry shows: that of the entry itself, the far end of its link, the node that
/// its folder belongs to; Nothing for plain entries. Throws what the repository throws.
[[nodiscard]] automation::Object nodeOf(const TreeEntry& entry);

/// The node whose links are listed below the entry: `nodeOf`, and for a plain entry that of the next one
/// above. Nothing where there is none.
[[nodiscard]] automation::Object nodeAbove(const TreeEntry* entry);

/// The name of a node or of a link's far end, as an entry shows it. Throws what the repository throws.
[[nodiscard]] std::u16string instanceText(EntryKind kind, const automation::Object& instance);

/// The text of any entry: that of its instance, else its caption. Throws what the repository throws.
[[nodiscard]] std::u16string entryText(const TreeEntry& entry);

/// What there is below an entry (none: at the top) for a description that stands for nodes or links. A meta
/// link has its whole extension where there is no node above. Enumerable, with `Count`.
[[nodiscard]] automation::Object collectionBelow(const TreeEntry* entry, const TreeDescription& description,
                                                 const automation::Object& repository);

[[nodiscard]] constexpr bool standsForLinks(EntryKind kind) noexcept {
    return kind == EntryKind::Links || kind == EntryKind::LinksReaching;
}

[[nodiscard]] constexpr bool standsForInstances(EntryKind kind) noexcept {
    return kind == EntryKind::Extension || kind == EntryKind::FarNode || standsForLinks(kind);
}

}  // namespace quorel::controls
