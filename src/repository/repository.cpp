#include "repository/repository.h"

#include "platform/automation/text.h"
#include "repository/element.h"
#include "repository/errors.h"
#include "repository/keyed_list.h"
#include "repository/meta_collection.h"
#include "repository/meta_object.h"
#include "repository/property.h"
#include "repository/sqlite/sqlite_store.h"

namespace quorel::repository {

using automation::ClassTable;
using automation::MemberId;
using automation::Object;
using automation::param;
using automation::Ref;
using automation::Value;

namespace {

/// The file's name without folder and extension.
std::u16string stemOf(const std::u16string& file) {
    const std::size_t slash = file.find_last_of(u"/\\");
    std::u16string stem = slash == std::u16string::npos ? file : file.substr(slash + 1);
    const std::size_t dot = stem.rfind(u'.');
    return dot == std::u16string::npos || dot == 0 ? stem : stem.substr(0, dot);
}

}  // namespace

const ClassTable& Repository::classTable() const {
    static const ClassTable table =
        ClassTable::of<Repository>(u"Repository")
            .readOnly(u"MetaNodes", &Repository::metaNodes)
            .readOnly(u"MetaLinks", &Repository::metaLinks)
            .readOnly(u"Item", &Repository::item, {param(u"name")})
            .withId(MemberId::Default)
            .method(u"MakeNode", &Repository::makeNode,
                    {param(u"metaNode"), param(u"name"), param(u"identifier")})
            .method(u"MakeLink", &Repository::makeLink,
                    {param(u"metaLink"), param(u"name"), param(u"identifier"), param(u"source"),
                     param(u"target")})
            .method(u"MakeDynamicMetaClass", &Repository::makeDynamicMetaClass,
                    {param(u"name"), param(u"description", u"")})
            .method(u"DeleteDynamicMetaClass", &Repository::deleteDynamicMetaClass, {param(u"name")})
            .method(u"MakeDynamicMetaAssoc", &Repository::makeDynamicMetaAssoc,
                    {param(u"name"), param(u"description", u"")})
            .method(u"DeleteDynamicMetaAssoc", &Repository::deleteDynamicMetaAssoc, {param(u"name")})
            .method(u"MakeMetaNode", &Repository::makeMetaNode, {param(u"name"), param(u"description", u"")})
            .method(u"MakeMetaLink", &Repository::makeMetaLink,
                    {param(u"name"), param(u"source"), param(u"target"), param(u"description", u"")})
            .property(u"name", &Repository::name, &Repository::setName)
            .property(u"Description", &Repository::description, &Repository::setDescription)
            .property(u"RepType", &Repository::repType, &Repository::setRepType)
            .property(u"Version", &Repository::version, &Repository::setVersion)
            .readOnly(u"Properties", &Repository::properties)
            .readOnly(u"Prop_", &Repository::property, {param(u"name")})
            .method(u"GetProperty", &Repository::property, {param(u"name")})
            .method(u"SetProperty", &Repository::setProperty,
                    {param(u"name"), param(u"value", Value::missing())})
            .method(u"Search", &Repository::search, {param(u"text"), param(u"limit", 100)})
            .method(u"PrepareSearch", &Repository::prepareSearch, {param(u"milliseconds", 50)})
            .readOnly(u"FileName", &Repository::fileName)
            .readOnly(u"IsOpen", &Repository::isOpen)
            .method(u"Open", &Repository::open, {param(u"fileName")})
            .method(u"Create", &Repository::create, {param(u"fileName")})
            .method(u"Close", &Repository::close);
    return table;
}

void Repository::adopt(std::unique_ptr<Store> store, const std::u16string& file) {
    store_ = std::move(store);
    file_ = file;
    wasOpened_ = true;
}

void Repository::open(const std::u16string& file) {
    // Handles of the first file would come to mean rows of the second.
    if (wasOpened_)
        throw failure(automation::error_number::kInvalidCall,
                      u"This repository object has already been opened");
    adopt(sqlite::openStore(file), file);
}

void Repository::create(const std::u16string& file) {
    if (wasOpened_)
        throw failure(automation::error_number::kInvalidCall,
                      u"This repository object has already been opened");
    std::unique_ptr<Store> store = sqlite::createStore(file);
    Transaction transaction(*store);
    store->setRepositoryProperty(u"name", stemOf(file));
    store->setRepositoryProperty(u"Description", u"");
    store->setRepositoryProperty(u"RepType", u"Reference");
    store->setRepositoryProperty(u"Version", u"1.0");
    transaction.commit();
    adopt(std::move(store), file);
}

void Repository::close() {
    store_.reset();
}

Store& Repository::store() const {
    if (store_ == nullptr)
        throw failure(automation::error_number::kInvalidCall,
                      wasOpened_ ? u"The repository has been closed" : u"The repository has not been opened");
    return *store_;
}

Object Repository::metaNodes() {
    static_cast<void>(store());
    return automation::make<MetaCollection>(Ref<Repository>(this),
                                            MetaScope{Kind::Node, std::nullopt, MetaId{}});
}

Object Repository::metaLinks() {
    static_cast<void>(store());
    return automation::make<MetaCollection>(Ref<Repository>(this),
                                            MetaScope{Kind::Link, std::nullopt, MetaId{}});
}

Object Repository::item(const std::u16string& name) {
    if (const std::optional<MetaRecord> node = store().findMeta(Kind::Node, name))
        return metaObject(node->id, Kind::Node);
    if (const std::optional<MetaRecord> link = store().findMeta(Kind::Link, name))
        return metaObject(link->id, Kind::Link);
    throw failure(automation::error_number::kSubscriptOutOfRange,
                  u"There is no meta node and no meta link named " + inQuotes(name));
}

std::u16string Repository::textProperty(std::u16string_view name) {
    return store().repositoryProperty(name).value_or(u"");
}

void Repository::setTextProperty(std::u16string_view name, std::u16string_view value) {
    store().setRepositoryProperty(name, value);
}

Object Repository::properties() {
    KeyedList::Elements elements;
    for (const RepositoryProperty& property : store().repositoryProperties())
        elements.emplace_back(property.name,
                              automation::make<RepositoryTextProperty>(Ref<Repository>(this), property.name));
    return automation::make<KeyedList>(u"property", std::move(elements));
}

Value Repository::property(const std::u16string& name) {
    for (const RepositoryProperty& property : store().repositoryProperties())
        if (automation::equalsIgnoringCase(property.name, name))
            return property.value;
    return {};
}

Value Repository::setProperty(const std::u16string& name, const Value& value) {
    if (value.isMissing())
        return property(name);
    if (name.empty())
        throw failure(automation::error_number::kInvalidCall, u"A property needs a name");
    std::u16string key = name;
    for (const RepositoryProperty& property : store().repositoryProperties())
        if (automation::equalsIgnoringCase(property.name, name))
            key = property.name;
    setTextProperty(key, value.toString());
    return {};
}

Ref<Node> Repository::node(ElementId id, TypeInfo& type) {
    if (Node* const live = nodes_.find(static_cast<std::int64_t>(id)))
        return Ref<Node>(live);
    return automation::make<Node>(Ref<Repository>(this), id, type);
}

Ref<Link> Repository::link(ElementId id, TypeInfo& type) {
    if (Link* const live = links_.find(static_cast<std::int64_t>(id)))
        return Ref<Link>(live);
    return automation::make<Link>(Ref<Repository>(this), id, type);
}

Object Repository::element(ElementId id, TypeInfo& type) {
    if (type.record().kind == Kind::Node)
        return node(id, type);
    return link(id, type);
}

Ref<MetaObject> Repository::metaObject(MetaId id, Kind kind) {
    if (MetaObject* const live = metaObjects_.find(static_cast<std::int64_t>(id)))
        return Ref<MetaObject>(live);
    if (kind == Kind::Node)
        return automation::make<MetaNode>(Ref<Repository>(this), id);
    return automation::make<MetaLink>(Ref<Repository>(this), id);
}

Ref<MetaProperty> Repository::metaProperty(MetaObject& owner, const PropertySlot& slot) {
    if (MetaProperty* const live = metaProperties_.find(static_cast<std::int64_t>(slot.record.id)))
        return Ref<MetaProperty>(live);
    return automation::make<MetaProperty>(Ref<MetaObject>(&owner), slot);
}

TypeInfo& Repository::type(MetaId id) {
    std::unique_ptr<TypeInfo>& known = types_[id];
    if (known == nullptr) {
        std::optional<MetaRecord> record = store().meta(id);
        if (!record)
            throw failure(automation::error_number::kInvalidCall,
                          u"The meta object has been removed from the repository");
        known = std::make_unique<TypeInfo>(*std::move(record));
        known->refresh(store());
    }
    return *known;
}

TypeInfo& Repository::linkTypeNamed(const std::u16string& name) {
    if (const std::uint32_t stamp = store().foreignChanges(); stamp != linkTypesStamp_) {
        linkTypesByName_.clear();
        linkTypesStamp_ = stamp;
    }
    if (const auto found = linkTypesByName_.find(name); found != linkTypesByName_.end())
        return *found->second;
    TypeInfo& found = type(metaNamed(Kind::Link, name).id);
    linkTypesByName_.emplace(name, &found);
    return found;
}

void Repository::remember(Node& handle) {
    nodes_.insert(handle);
}
void Repository::remember(Link& handle) {
    links_.insert(handle);
}
void Repository::remember(MetaObject& handle) {
    metaObjects_.insert(handle);
}
void Repository::remember(MetaProperty& handle) {
    metaProperties_.insert(handle);
}
void Repository::forget(Node& handle) noexcept {
    nodes_.erase(handle);
}
void Repository::forget(Link& handle) noexcept {
    links_.erase(handle);
}
void Repository::forget(MetaObject& handle) noexcept {
    metaObjects_.erase(handle);
}
void Repository::forget(MetaProperty& handle) noexcept {
    metaProperties_.erase(handle);
}

}  // namespace quorel::repository
