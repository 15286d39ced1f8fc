#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "platform/automation/class_table.h"
#include "platform/automation/native_object.h"
#include "repository/identity_map.h"
#include "repository/model.h"
#include "repository/store.h"
#include "repository/type_info.h"

namespace quorel::repository {

class Node;
class Link;
class MetaObject;
class MetaProperty;

/// The root object that hosts hand to windows. Made closed; `open` or `create` gives it a file, once. It
/// stays open while anything of it is referenced, or until `close`; from then on every member of every object
/// of it throws an error that says so.
class Repository final : public automation::NativeObject {
  public:
    Repository() = default;
    [[nodiscard]] const automation::ClassTable& classTable() const override;

    void open(const std::u16string& file);
    void create(const std::u16string& file);
    void close();
    [[nodiscard]] bool isOpen() const noexcept { return store_ != nullptr; }
    [[nodiscard]] std::u16string fileName() const { return file_; }

    // The published members.
    [[nodiscard]] automation::Object metaNodes();
    [[nodiscard]] automation::Object metaLinks();
    /// The meta node of that name, or else the meta link.
    [[nodiscard]] automation::Object item(const std::u16string& name);
    automation::Object makeNode(const std::u16string& metaNode, const std::u16string& name,
                                const std::u16string& identifier);
    automation::Object makeLink(const std::u16string& metaLink, const std::u16string& name,
                                const std::u16string& identifier, const automation::Object& source,
                                const automation::Object& target);
    automation::Object makeMetaNode(const std::u16string& name, const std::u16string& description);
    /// The ends are meta nodes or their names.
    automation::Object makeMetaLink(const std::u16string& name, const automation::Value& source,
                                    const automation::Value& target, const std::u16string& description);
    automation::Object makeDynamicMetaClass(const std::u16string& name, const std::u16string& description);
    /// `name` is of the form Source.Name.Target, with the names of two meta nodes.
    automation::Object makeDynamicMetaAssoc(const std::u16string& name, const std::u16string& description);
    void deleteDynamicMetaClass(const std::u16string& name);
    void deleteDynamicMetaAssoc(const std::u16string& name);

    [[nodiscard]] std::u16string name() { return textProperty(u"name"); }
    void setName(const std::u16string& value) { setTextProperty(u"name", value); }
    [[nodiscard]] std::u16string description() { return textProperty(u"Description"); }
    void setDescription(const std::u16string& value) { setTextProperty(u"Description", value); }
    [[nodiscard]] std::u16string repType() { return textProperty(u"RepType"); }
    void setRepType(const std::u16string& value) { setTextProperty(u"RepType", value); }
    [[nodiscard]] std::u16string version() { return textProperty(u"Version"); }
    void setVersion(const std::u16string& value) { setTextProperty(u"Version", value); }
    [[nodiscard]] automation::Object properties();
    /// A property of the repository itself; empty when it was never set.
    [[nodiscard]] automation::Value property(const std::u16string& name);
    /// Without a value it changes nothing and returns the value.
    automation::Value setProperty(const std::u16string& name, const automation::Value& value);

    /// Works for about that long at what `search` looks in and returns how far it is, from 0 to 100.
    std::int32_t prepareSearch(std::int32_t milliseconds);
    /// Types, nodes and links with these words in their names or values: a collection of `SearchResult`.
    [[nodiscard]] automation::Object search(const std::u16string& text, std::int32_t limit);

    // For the objects of the repository.
    /// Throws when the repository is not open.
    [[nodiscard]] Store& store() const;
    [[nodiscard]] automation::Ref<Node> node(ElementId id, TypeInfo& type);
    [[nodiscard]] automation::Ref<Link> link(ElementId id, TypeInfo& type);
    /// A node or a link, by the kind of the type.
    [[nodiscard]] automation::Object element(ElementId id, TypeInfo& type);
    [[nodiscard]] automation::Ref<MetaObject> metaObject(MetaId id, Kind kind);
    [[nodiscard]] automation::Ref<MetaProperty> metaProperty(MetaObject& owner, const PropertySlot& slot);
    /// Throws when there is no such meta object any more.
    [[nodiscard]] TypeInfo& type(MetaId id);
    /// The meta link of that name, remembered while no other program changes the file; to be asked right
    /// behind a read, which notices such changes. Error 9 when there is none.
    [[nodiscard]] TypeInfo& linkTypeNamed(const std::u16string& name);
    /// Error 9 names the kind and the name when there is none.
    [[nodiscard]] MetaRecord metaNamed(Kind kind, std::u16string_view name);
    /// A handle enters itself when it is made and leaves when it dies.
    void remember(Node& handle);
    void remember(Link& handle);
    void remember(MetaObject& handle);
    void remember(MetaProperty& handle);
    void forget(Node& handle) noexcept;
    void forget(Link& handle) noexcept;
    void forget(MetaObject& handle) noexcept;
    void forget(MetaProperty& handle) noexcept;

  private:
    void adopt(std::unique_ptr<Store> store, const std::u16string& file);
    [[nodiscard]] std::u16string textProperty(std::u16string_view name);
    void setTextProperty(std::u16string_view name, std::u16string_view value);
    automation::Object addMeta(MetaRecord record);
    [[nodiscard]] MetaId metaNodeOf(const automation::Value& nodeOrName);
    [[nodiscard]] std::pair<MetaId, MetaId> endsNamedIn(std::u16string_view composed);
    [[nodiscard]] MetaRecord dynamicMeta(Kind kind, std::u16string_view name);
    [[nodiscard]] Node& endOfLink(const automation::Object& end, MetaId type, std::u16string_view role);
    void refuseIfUsed(const MetaRecord& record);

    std::unique_ptr<Store> store_;
    std::u16string file_;
    bool wasOpened_ = false;
    IdentityMap<Node> nodes_;
    IdentityMap<Link> links_;
    IdentityMap<MetaObject> metaObjects_;
    IdentityMap<MetaProperty> metaProperties_;
    std::unordered_map<MetaId, std::unique_ptr<TypeInfo>> types_;
    std::unordered_map<std::u16string, TypeInfo*> linkTypesByName_;
    std::uint32_t linkTypesStamp_ = 0;
};

}  // namespace quorel::repository
