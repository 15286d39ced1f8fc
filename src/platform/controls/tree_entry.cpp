#include "platform/controls/tree_entry.h"

#include "platform/automation/calls.h"
#include "platform/controls/cell_text.h"

namespace quorel::controls {

using automation::Object;

namespace {

[[nodiscard]] Object targetOf(const Object& link) {
    return link.get(u"target").toObject();
}

}  // namespace

EntryKind entryKindOf(std::u16string_view typ) noexcept {
    if (typ == u"Extension")
        return EntryKind::Extension;
    if (typ == u"Links")
        return EntryKind::Links;
    return typ == u"Folder" ? EntryKind::Folder : EntryKind::Plain;
}

Object TreeEntry::object() const {
    return kind() == EntryKind::Folder ? nodeAbove(above.get()) : instance;
}

Object nodeOf(const TreeEntry& entry) {
    switch (entry.kind()) {
        case EntryKind::Extension:
            return entry.instance;
        case EntryKind::Links:
            return targetOf(entry.instance);
        case EntryKind::Folder:
            return nodeAbove(entry.above.get());
        case EntryKind::Plain:
            break;
    }
    return {};
}

Object nodeAbove(const TreeEntry* entry) {
    while (entry != nullptr && !standsForInstances(entry->kind()))
        entry = entry->above.get();
    return entry != nullptr ? nodeOf(*entry) : Object();
}

std::u16string instanceText(EntryKind kind, const Object& instance) {
    const Object named = kind == EntryKind::Links ? targetOf(instance) : instance;
    return displayText(named ? valueText(named.get(u"name")) : std::u16string());
}

Object collectionBelow(const TreeEntry* entry, const TreeDescription& description, const Object& repository) {
    const std::u16string& type = description.metatype;
    if (description.kind == EntryKind::Extension)
        return repository.get(u"MetaNodes", type).toObject().get(u"Extension").toObject();
    if (const Object node = nodeAbove(entry))
        return node.get(u"Outgoing_", type).toObject();
    return repository.get(u"MetaLinks", type).toObject().get(u"Extension").toObject();
}

}  // namespace quorel::controls
