#include "tests/support/repository_double.h"

#include <algorithm>
#include <utility>

#include "platform/automation/text.h"

namespace quorel::testing {

using automation::Argument;
using automation::ClassTable;
using automation::Error;
using automation::InvokeKind;
using automation::make;
using automation::MemberId;
using automation::Object;
using automation::param;
using automation::Ref;
using automation::Value;

namespace error_number = automation::error_number;

void Script::step(const std::u16string& call) {
    log.push_back(call);
    if (onCall)
        onCall(call);
    if (++calls_ != failingCall_)
        return;
    if (onFailure)
        onFailure();
    throw Error(1000, u"Refused: " + call, u"Repository");
}

class CollectionDouble::Reader final : public automation::Enumerator {
  public:
    explicit Reader(Ref<CollectionDouble> list) : list_(std::move(list)) {}
    std::size_t next(std::span<Value> values) override {
        list_->script_->step(list_->label_ + u".next");
        std::size_t count = 0;
        while (count < values.size() && position_ < list_->items.size())
            values[count++] = list_->items[position_++].second;
        return count;
    }

  private:
    Ref<CollectionDouble> list_;
    std::size_t position_ = 0;
};

const ClassTable& CollectionDouble::classTable() const {
    static const ClassTable table =
        ClassTable::of<CollectionDouble>(u"Collection")
            .readOnly(u"Item", &CollectionDouble::item, {param(u"key")})
            .withId(MemberId::Default)
            .readOnly(u"Count", &CollectionDouble::count)
            .method(u"Remove", &CollectionDouble::remove, {param(u"key"), param(u"removed")});
    return table;
}

std::unique_ptr<automation::Enumerator> CollectionDouble::enumerate() {
    script_->step(label_ + u".enumerate");
    return std::make_unique<Reader>(Ref<CollectionDouble>(this));
}

Object CollectionDouble::item(const Value& keyGiven) {
    script_->step(label_ + u".Item");
    if (const std::int32_t* const position = keyGiven.getIf<std::int32_t>()) {
        const std::int32_t index = *position - 1;
        if (index < 0 || index >= static_cast<std::int32_t>(items.size()))
            throw Error(error_number::kSubscriptOutOfRange);
        return items[static_cast<std::size_t>(index)].second;
    }
    const std::u16string key = keyGiven.toString();
    for (const auto& [itemKey, object] : items)
        if (itemKey == key)
            return object;
    throw Error(error_number::kSubscriptOutOfRange);
}

std::int32_t CollectionDouble::count() {
    script_->step(label_ + u".Count");
    return static_cast<std::int32_t>(items.size());
}

void CollectionDouble::remove(const std::u16string& key, bool& removed) {
    script_->step(label_ + u".Remove");
    removed = std::erase_if(items, [&key](const auto& item) { return item.first == key; }) != 0;
}

const ClassTable& MetaPropertyDouble::classTable() const {
    static const ClassTable table = ClassTable::of<MetaPropertyDouble>(u"MetaProperty")
                                        .readOnly(u"name", &MetaPropertyDouble::name)
                                        .readOnly(u"datatype", &MetaPropertyDouble::datatype);
    return table;
}

std::u16string MetaPropertyDouble::name() {
    script_->step(u"property.name");
    return name_;
}

std::u16string MetaPropertyDouble::datatype() {
    script_->step(u"property.datatype");
    return type_;
}

MetaDouble::MetaDouble(ScriptRef script, std::u16string metaNameGiven, Ref<MetaDouble> from,
                       Ref<MetaDouble> to, Object ownerGiven)
    : metaName(std::move(metaNameGiven)),
      extension(make<CollectionDouble>(script, metaName + u".Extension")),
      properties(make<CollectionDouble>(script, metaName + u".Properties")),
      outgoingLinks(make<CollectionDouble>(script, metaName + u".outgoing")),
      incomingLinks(make<CollectionDouble>(script, metaName + u".incoming")),
      owner(std::move(ownerGiven)),
      script_(std::move(script)),
      from_(std::move(from)),
      to_(std::move(to)) {}

MetaDouble& MetaDouble::withProperty(const std::u16string& property, const std::u16string& type) {
    properties->add(property, make<MetaPropertyDouble>(script_, property, type));
    return *this;
}

const ClassTable& MetaDouble::classTable() const {
    static const ClassTable node =
        ClassTable::of<MetaDouble>(u"MetaNode")
            .readOnly(u"name", &MetaDouble::name)
            .readOnly(u"Extension", &MetaDouble::readExtension)
            .readOnly(u"Properties", &MetaDouble::readProperties)
            .readOnly(u"outgoing", &MetaDouble::outgoing)
            .readOnly(u"incoming", &MetaDouble::incoming)
            .property(u"IsPersistent", &MetaDouble::isPersistent, &MetaDouble::setPersistent)
            .readOnly(u"IsDynamic", &MetaDouble::isDynamic);
    static const ClassTable link =
        ClassTable::of<MetaDouble>(u"MetaLink")
            .readOnly(u"name", &MetaDouble::name)
            .readOnly(u"Extension", &MetaDouble::readExtension)
            .readOnly(u"Properties", &MetaDouble::readProperties)
            .readOnly(u"source", &MetaDouble::source)
            .readOnly(u"target", &MetaDouble::target)
            .readOnly(u"sourcename", &MetaDouble::sourceName)
            .readOnly(u"targetname", &MetaDouble::targetName)
            .readOnly(u"Parent", &MetaDouble::parent)
            .property(u"IsPersistent", &MetaDouble::isPersistent, &MetaDouble::setPersistent)
            .readOnly(u"IsDynamic", &MetaDouble::isDynamic);
    return isLink() ? link : node;
}

void MetaDouble::note(const char16_t* member) {
    script_->step(metaName + u"." + member);
}
std::u16string MetaDouble::name() {
    note(u"name");
    return metaName;
}
Object MetaDouble::readExtension() {
    note(u"Extension");
    return extension;
}
Object MetaDouble::readProperties() {
    note(u"Properties");
    return properties;
}
Object MetaDouble::outgoing() {
    note(u"outgoing");
    return outgoingLinks;
}
Object MetaDouble::incoming() {
    note(u"incoming");
    return incomingLinks;
}
Object MetaDouble::source() {
    note(u"source");
    return from_;
}
Object MetaDouble::target() {
    note(u"target");
    return to_;
}
std::u16string MetaDouble::sourceName() {
    note(u"sourcename");
    return from_->metaName;
}
std::u16string MetaDouble::targetName() {
    note(u"targetname");
    return to_->metaName;
}
Object MetaDouble::parent() {
    note(u"Parent");
    return owner;
}
bool MetaDouble::isPersistent() {
    note(u"IsPersistent");
    return isPersistentNow;
}
void MetaDouble::setPersistent(bool persistent) {
    note(u"IsPersistent=");
    isPersistentNow = persistent;
}
bool MetaDouble::isDynamic() {
    note(u"IsDynamic");
    return isDynamicNow;
}

InstanceDouble::InstanceDouble(ScriptRef script, Ref<MetaDouble> type, std::u16string name,
                               std::u16string identifierGiven, Object from, Object to)
    : shownName(std::move(name)),
      identifier(std::move(identifierGiven)),
      script_(std::move(script)),
      type_(std::move(type)),
      from_(std::move(from)),
      to_(std::move(to)) {}

const ClassTable& InstanceDouble::classTable() const {
    static const ClassTable node =
        ClassTable::of<InstanceDouble>(u"Node")
            .property(u"name", &InstanceDouble::name, &InstanceDouble::setName)
            .readOnly(u"Identifier", &InstanceDouble::readIdentifier)
            .readOnly(u"Parent", &InstanceDouble::parent)
            .readOnly(u"Outgoing_", &InstanceDouble::outgoing, {param(u"metaLink")})
            .readOnly(u"Incoming_", &InstanceDouble::incoming, {param(u"metaLink")})
            .readOnly(u"Prop_", &InstanceDouble::getProperty, {param(u"property")})
            .method(u"GetProperty", &InstanceDouble::getProperty, {param(u"property")})
            .method(u"SetProperty", &InstanceDouble::setProperty, {param(u"property"), param(u"value")})
            .readOnly(u"Properties", &InstanceDouble::properties);
    static const ClassTable link =
        ClassTable::of<InstanceDouble>(u"Link")
            .property(u"name", &InstanceDouble::name, &InstanceDouble::setName)
            .readOnly(u"Identifier", &InstanceDouble::readIdentifier)
            .readOnly(u"Parent", &InstanceDouble::parent)
            .readOnly(u"source", &InstanceDouble::source)
            .readOnly(u"target", &InstanceDouble::target)
            .method(u"GetProperty", &InstanceDouble::getProperty, {param(u"property")})
            .method(u"SetProperty", &InstanceDouble::setProperty, {param(u"property"), param(u"value")})
            .readOnly(u"Properties", &InstanceDouble::properties);
    return from_ || to_ ? link : node;
}

namespace {

constexpr std::int32_t kFirstExtra = 0x10000;

/// One number for one property name on all instances.
std::vector<std::u16string>& extraNames() {
    static std::vector<std::u16string> names;
    return names;
}

}  // namespace

std::optional<MemberId> InstanceDouble::resolveExtra(std::u16string_view name) {
    const auto isNamed = [name](const auto& pair) {
        return automation::equalsIgnoringCase(pair.first, name);
    };
    const auto& declared = type_->properties->items;
    const auto definition = std::find_if(declared.begin(), declared.end(), isNamed);
    const auto value = std::find_if(values.begin(), values.end(), isNamed);
    if (definition == declared.end() && value == values.end())
        return std::nullopt;
    const std::u16string& known = definition != declared.end() ? definition->first : value->first;
    auto& names = extraNames();
    const auto found = std::find(names.begin(), names.end(), known);
    const auto position = found - names.begin();
    if (found == names.end())
        names.push_back(known);
    return static_cast<MemberId>(kFirstExtra + position);
}

Value InstanceDouble::invokeExtra(MemberId id, InvokeKind kind, std::span<Argument> arguments) {
    const std::u16string property =
        extraNames().at(static_cast<std::size_t>(static_cast<std::int32_t>(id) - kFirstExtra));
    note(property);
    if (kind == InvokeKind::Put)
        values[property] = arguments.back().value();
    return values[property];
}

void InstanceDouble::note(const std::u16string& member) {
    script_->step(identifier + u"." + member);
}
std::u16string InstanceDouble::name() {
    note(u"name");
    return shownName;
}
void InstanceDouble::setName(const std::u16string& name) {
    note(u"name=");
    shownName = name;
}
std::u16string InstanceDouble::readIdentifier() {
    note(u"Identifier");
    return identifier;
}
Object InstanceDouble::parent() {
    note(u"Parent");
    return type_;
}
Object InstanceDouble::source() {
    note(u"source");
    return from_;
}
Object InstanceDouble::target() {
    note(u"target");
    return to_;
}
Object InstanceDouble::outgoing(const std::u16string& metaLink) {
    note(u"Outgoing_");
    return linksIn(outgoingLinks, metaLink, u"Outgoing_");
}
Object InstanceDouble::incoming(const std::u16string& metaLink) {
    note(u"Incoming_");
    return linksIn(incomingLinks, metaLink, u"Incoming_");
}
Ref<CollectionDouble> InstanceDouble::linksIn(std::map<std::u16string, Ref<CollectionDouble>>& links,
                                              const std::u16string& metaLink, std::u16string_view member) {
    Ref<CollectionDouble>& list = links[metaLink];
    if (!list)
        list = make<CollectionDouble>(script_, identifier + u"." + std::u16string(member));
    return list;
}
Object InstanceDouble::properties() {
    note(u"Properties");
    return type_->properties;
}
Value InstanceDouble::getProperty(const std::u16string& property) {
    note(u"GetProperty");
    const auto found = values.find(property);
    if (found == values.end() && property == u"Name")
        return shownName;
    return found != values.end() ? found->second : Value();
}
void InstanceDouble::setProperty(const std::u16string& property, const Value& value) {
    note(u"SetProperty");
    values[property] = value;
}

RepositoryDouble::RepositoryDouble(ScriptRef script)
    : metaNodes(make<CollectionDouble>(script, u"MetaNodes")),
      metaLinks(make<CollectionDouble>(script, u"MetaLinks")),
      script_(std::move(script)) {}

const ClassTable& RepositoryDouble::classTable() const {
    static const ClassTable table =
        ClassTable::of<RepositoryDouble>(u"Repository")
            .readOnly(u"MetaNodes", &RepositoryDouble::readMetaNodes)
            .readOnly(u"MetaLinks", &RepositoryDouble::readMetaLinks)
            .readOnly(u"name", &RepositoryDouble::name)
            .readOnly(u"Description", &RepositoryDouble::readDescription)
            .readOnly(u"RepType", &RepositoryDouble::readRepType)
            .readOnly(u"Version", &RepositoryDouble::readVersion)
            .method(u"MakeNode", &RepositoryDouble::makeNode,
                    {param(u"metaNode"), param(u"name"), param(u"identifier")})
            .method(u"MakeLink", &RepositoryDouble::makeLink,
                    {param(u"metaLink"), param(u"name"), param(u"identifier"), param(u"source"),
                     param(u"target")})
            .method(u"MakeDynamicMetaClass", &RepositoryDouble::makeDynamicMetaClass,
                    {param(u"name"), param(u"description")})
            .method(u"MakeDynamicMetaAssoc", &RepositoryDouble::makeDynamicMetaAssoc,
                    {param(u"name"), param(u"description")})
            .method(u"DeleteDynamicMetaClass", &RepositoryDouble::deleteDynamicMetaClass, {param(u"name")})
            .method(u"DeleteDynamicMetaAssoc", &RepositoryDouble::deleteDynamicMetaAssoc, {param(u"name")});
    return table;
}

std::u16string RepositoryDouble::name() {
    script_->step(u"repository.name");
    return shownName;
}

std::u16string RepositoryDouble::readDescription() {
    script_->step(u"repository.Description");
    return shownDescription;
}

std::u16string RepositoryDouble::readRepType() {
    script_->step(u"repository.RepType");
    return repType;
}

std::u16string RepositoryDouble::readVersion() {
    script_->step(u"repository.Version");
    return version;
}

Object RepositoryDouble::readMetaNodes() {
    script_->step(u"repository.MetaNodes");
    return metaNodes;
}

Object RepositoryDouble::readMetaLinks() {
    script_->step(u"repository.MetaLinks");
    return metaLinks;
}

Ref<MetaDouble> RepositoryDouble::addMetaNode(const std::u16string& name) {
    auto type = make<MetaDouble>(script_, name);
    metaNodes->add(name, type);
    types_.push_back(type);
    return type;
}

Ref<MetaDouble> RepositoryDouble::addMetaLink(const std::u16string& name, const Ref<MetaDouble>& from,
                                              const Ref<MetaDouble>& to) {
    auto type = make<MetaDouble>(script_, name, from, to, Object(this));
    metaLinks->add(name, type);
    from->outgoingLinks->add(name, type);
    to->incomingLinks->add(name, type);
    types_.push_back(type);
    return type;
}

std::u16string RepositoryDouble::nextIdentifier() {
    return u"id" + automation::decimal(++made_);
}

Ref<InstanceDouble> RepositoryDouble::addNode(const Ref<MetaDouble>& type, const std::u16string& name) {
    return insert(type, name, nextIdentifier(), {}, {});
}

Ref<InstanceDouble> RepositoryDouble::addLink(const Ref<MetaDouble>& type, const std::u16string& name,
                                              const Ref<InstanceDouble>& from,
                                              const Ref<InstanceDouble>& to) {
    return insert(type, name, nextIdentifier(), from, to);
}

Ref<InstanceDouble> RepositoryDouble::insert(const Ref<MetaDouble>& type, const std::u16string& name,
                                             const std::u16string& identifier, const Object& from,
                                             const Object& to) {
    auto instance = make<InstanceDouble>(script_, type, name, identifier, from, to);
    type->extension->add(identifier, instance);
    instances_.push_back(instance);
    if (auto* const source = dynamic_cast<InstanceDouble*>(from ? from.native() : nullptr))
        source->linksIn(source->outgoingLinks, type->metaName, u"Outgoing_")->add(identifier, instance);
    if (auto* const target = dynamic_cast<InstanceDouble*>(to ? to.native() : nullptr))
        target->linksIn(target->incomingLinks, type->metaName, u"Incoming_")->add(identifier, instance);
    return instance;
}

Ref<MetaDouble> RepositoryDouble::typeNamed(std::u16string_view name) const {
    for (const Ref<MetaDouble>& type : types_)
        if (type->metaName == name)
            return type;
    throw Error(error_number::kSubscriptOutOfRange);
}

Object RepositoryDouble::makeNode(const std::u16string& type, const std::u16string& name,
                                  const std::u16string& identifier) {
    script_->step(u"repository.MakeNode");
    return insert(typeNamed(type), name, identifier, {}, {});
}

Object RepositoryDouble::makeLink(const std::u16string& type, const std::u16string& name,
                                  const std::u16string& identifier, const Object& from, const Object& to) {
    script_->step(u"repository.MakeLink");
    return insert(typeNamed(type), name, identifier, from, to);
}

Object RepositoryDouble::makeDynamicMetaClass(const std::u16string& name, const std::u16string& description) {
    script_->step(u"repository.MakeDynamicMetaClass");
    const Ref<MetaDouble> made = addMetaNode(name);
    made->isDynamicNow = true;
    made->description = description;
    return made;
}

Object RepositoryDouble::makeDynamicMetaAssoc(const std::u16string& name, const std::u16string& description) {
    script_->step(u"repository.MakeDynamicMetaAssoc");
    const Ref<MetaDouble> made = addMetaLink(name, typeNamed(name.substr(0, name.find(u'.'))),
                                             typeNamed(name.substr(name.rfind(u'.') + 1)));
    made->isDynamicNow = true;
    made->description = description;
    return made;
}

void RepositoryDouble::deleteDynamicMetaClass(const std::u16string& name) {
    script_->step(u"repository.DeleteDynamicMetaClass");
    std::erase_if(metaNodes->items, [&name](const auto& item) { return item.first == name; });
}

void RepositoryDouble::deleteDynamicMetaAssoc(const std::u16string& name) {
    script_->step(u"repository.DeleteDynamicMetaAssoc");
    std::erase_if(metaLinks->items, [&name](const auto& item) { return item.first == name; });
}

void RepositoryDouble::clear() {
    // Only once nothing holds them: what goes first may still be asked by what goes later.
    const std::vector<Ref<MetaDouble>> types = std::exchange(types_, {});
    const std::vector<Ref<InstanceDouble>> instances = std::exchange(instances_, {});
    metaNodes->items.clear();
    metaLinks->items.clear();
    for (const Ref<MetaDouble>& type : types) {
        type->extension->items.clear();
        type->outgoingLinks->items.clear();
        type->incomingLinks->items.clear();
        type->owner.reset();
    }
    for (const Ref<InstanceDouble>& instance : instances)
        for (auto* const links : {&instance->outgoingLinks, &instance->incomingLinks})
            for (const auto& [metaLink, list] : *links)
                list->items.clear();
}

const ClassTable& RepositoryHolderDouble::classTable() const {
    static const ClassTable table = ClassTable::of<RepositoryHolderDouble>(u"RepositoryHolder")
                                        .readOnly(u"Repository", &RepositoryHolderDouble::repository);
    return table;
}

Object RepositoryHolderDouble::repository() {
    script_->step(u"holder.Repository");
    return repository_;
}

const ClassTable& RepositoryManagerDouble::classTable() const {
    static const ClassTable table =
        ClassTable::of<RepositoryManagerDouble>(u"RepositoryManager")
            .method(u"SelectDialog", &RepositoryManagerDouble::selectDialog)
            .method(u"Open", &RepositoryManagerDouble::open, {param(u"fileName")});
    return table;
}

Object RepositoryManagerDouble::selectDialog() {
    script_->step(u"manager.SelectDialog");
    return chosen;
}

Object RepositoryManagerDouble::open(const std::u16string& fileName) {
    script_->step(u"manager.Open " + fileName);
    const auto found = files.find(fileName);
    if (found == files.end())
        throw Error(error_number::kFileNotFound);
    return found->second;
}

}  // namespace quorel::testing
