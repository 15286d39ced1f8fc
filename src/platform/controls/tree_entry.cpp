#include "platform/controls/tree_entry.h"

#include <span>
#include <utility>

#include "platform/automation/calls.h"
#include "platform/automation/class_table.h"
#include "platform/automation/native_object.h"
#include "platform/controls/cell_text.h"

namespace quorel::controls {

using automation::Object;

namespace {

/// The end of a link that is not the node above it.
[[nodiscard]] Object farEndOf(EntryKind kind, const Object& link) {
    return link.get(kind == EntryKind::LinksReaching ? u"source" : u"target").toObject();
}

/// A collection of one object, or of none for Nothing.
class OneObject final : public automation::NativeObject {
  public:
    explicit OneObject(Object object) : object_(std::move(object)) {}
    [[nodiscard]] const automation::ClassTable& classTable() const override {
        static const automation::ClassTable table =
            automation::ClassTable::of<OneObject>(u"OneObject").readOnly(u"Count", &OneObject::count);
        return table;
    }
    [[nodiscard]] std::unique_ptr<automation::Enumerator> enumerate() override {
        return std::make_unique<Reader>(object_);
    }

  private:
    class Reader final : public automation::Enumerator {
      public:
        explicit Reader(Object object) : object_(std::move(object)) {}
        std::size_t next(std::span<automation::Value> values) override {
            if (!object_ || values.empty())
                return 0;
            values.front() = std::exchange(object_, {});
            return 1;
        }

      private:
        Object object_;
    };
    [[nodiscard]] std::int32_t count() const { return object_ ? 1 : 0; }

    Object object_;
};

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
        case EntryKind::FarNode:
            return entry.instance;
        case EntryKind::Links:
        case EntryKind::LinksReaching:
            return farEndOf(entry.kind(), entry.instance);
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
    const Object named = standsForLinks(kind) ? farEndOf(kind, instance) : instance;
    return displayText(named ? valueText(named.get(u"name")) : std::u16string());
}

std::u16string entryText(const TreeEntry& entry) {
    return standsForInstances(entry.kind()) ? instanceText(entry.kind(), entry.instance)
                                            : entry.description->caption;
}

Object collectionBelow(const TreeEntry* entry, const TreeDescription& description, const Object& repository) {
    const std::u16string& type = description.metatype;
    if (description.kind == EntryKind::Extension)
        return repository.get(u"MetaNodes", type).toObject().get(u"Extension").toObject();
    const Object node = nodeAbove(entry);
    if (description.kind == EntryKind::FarNode)
        return automation::make<OneObject>(node);
    if (node)
        return node.get(description.kind == EntryKind::Links ? u"Outgoing_" : u"Incoming_", type).toObject();
    return repository.get(u"MetaLinks", type).toObject().get(u"Extension").toObject();
}

}  // namespace quorel::controls
