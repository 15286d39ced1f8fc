#include "repository/meta_object.h"

#include "platform/automation/text.h"
#include "repository/element_collection.h"
#include "repository/errors.h"
#include "repository/keyed_list.h"
#include "repository/meta_collection.h"

namespace quorel::repository {

using automation::ClassTable;
using automation::MemberId;
using automation::Object;
using automation::param;
using automation::Ref;
using automation::Value;

namespace {

/// An enumeration's values as hosts pass them: an array, a script array object, or text with commas between.
std::vector<std::u16string> textsOf(const Value& values) {
    std::vector<std::u16string> texts;
    if (const auto* array = values.getIf<automation::Array>()) {
        for (const Value& item : array->items)
            texts.push_back(item.toString());
    } else if (const auto* object = values.getIf<Object>(); object != nullptr && *object) {
        const std::int32_t length = object->get(u"length").toInteger();
        for (std::int32_t i = 0; i < length; ++i)
            texts.push_back(object->get(automation::decimal(i)).toString());
    } else if (const auto text = values.text()) {
        for (std::size_t start = 0; start <= text->size();) {
            const std::size_t comma = std::min(text->find(u',', start), text->size());
            texts.emplace_back(text->substr(start, comma - start));
            start = comma + 1;
        }
    }
    return texts;
}

PropertyRecord definitionOf(const std::u16string& name, const std::u16string& datatype,
                            const std::u16string& description, const Value& values) {
    if (name.empty())
        throw failure(automation::error_number::kInvalidCall, u"A property needs a name");
    const std::optional<DataType> type = dataTypeNamed(datatype);
    if (!type)
        throw failure(automation::error_number::kInvalidCall,
                      inQuotes(datatype) + u" is no data type; there are " + dataTypeNames());
    PropertyRecord record{{}, name, *type, description, textsOf(values)};
    if ((*type == DataType::Enumeration) == record.values.empty())
        throw failure(automation::error_number::kInvalidCall,
                      u"The property " + inQuotes(name) +
                          (record.values.empty() ? u" is an enumeration and needs its values"
                                                 : u" is no enumeration and takes no values"));
    return record;
}

}  // namespace

Value valuesOf(const PropertyRecord& record) {
    automation::Array array;
    for (const std::u16string& value : record.values)
        array.items.emplace_back(value);
    return array;
}

MetaObject::MetaObject(Ref<Repository> repository, MetaId id)
    : Identified(static_cast<std::int64_t>(id)), repository_(std::move(repository)) {
    repository_->remember(*this);
}

MetaObject::~MetaObject() {
    repository_->forget(*this);
}

MetaRecord MetaObject::record() const {
    std::optional<MetaRecord> found = repository_->store().meta(id());
    if (!found)
        throw failure(automation::error_number::kInvalidCall,
                      u"The meta object has been removed from the repository");
    return *std::move(found);
}

void MetaObject::setDescription(const std::u16string& description) {
    static_cast<void>(record());
    repository_->store().setDescription(id(), description);
}

void MetaObject::setPersistent(bool persistent) {
    const MetaRecord self = record();
    if (self.persistent == persistent)
        return;
    Store& store = repository_->store();
    if (!self.dynamic)
        throw failure(automation::error_number::kInvalidCall,
                      inQuotes(self.name) + u" belongs to the stored metamodel and stays persistent");
    if (persistent && self.kind == Kind::Link)
        for (const MetaId end : {self.source, self.target})
            if (const auto node = store.meta(end); node && !node->persistent)
                throw failure(automation::error_number::kInvalidCall,
                              inQuotes(self.name) + u" cannot be persistent, for its meta node " +
                                  inQuotes(node->name) + u" is not");
    if (!persistent && self.kind == Kind::Node)
        for (const Direction direction : {Direction::Outgoing, Direction::Incoming})
            for (const MetaId each : store.metas({Kind::Link, direction, id()}))
                if (const auto link = store.meta(each); link && link->persistent)
                    throw failure(automation::error_number::kInvalidCall,
                                  inQuotes(self.name) + u" must stay persistent, for its meta link " +
                                      inQuotes(link->name) + u" is");
    store.setPersistent(id(), persistent);
}

Object MetaObject::extension() const {
    static_cast<void>(record());
    return automation::make<Extension>(repository_, repository_->type(id()));
}

Object MetaObject::properties() {
    TypeInfo& type = repository_->type(id());
    type.refresh(repository_->store());
    KeyedList::Elements elements;
    for (const PropertySlot& slot : type.slots())
        if (slot.declared)
            elements.emplace_back(slot.record.name, repository_->metaProperty(*this, slot));
    return automation::make<KeyedList>(u"property", std::move(elements));
}

Object MetaObject::makeMetaProperty(const std::u16string& name, const std::u16string& datatype,
                                    const std::u16string& description, const Value& values,
                                    const std::u16string& category) {
    PropertyRecord definition = definitionOf(name, datatype, description, values);
    definition.category = category;
    TypeInfo& type = repository_->type(id());
    type.refresh(repository_->store());
    if (const PropertySlot* slot = type.find(name); slot != nullptr && slot->declared)
        throw failure(automation::error_number::kKeyAlreadyUsed,
                      inQuotes(record().name) + u" already has a property named " + inQuotes(name));
    repository_->store().addMetaProperty(id(), definition);
    type.refresh(repository_->store());
    return repository_->metaProperty(*this, *type.find(name));
}

const ClassTable& MetaNode::classTable() const {
    static const ClassTable table =
        ClassTable::of<MetaNode>(u"MetaNode")
            .readOnly(u"name", &MetaNode::name)
            .withId(MemberId::Default)
            .readOnly(u"Extension", &MetaNode::extension)
            .readOnly(u"outgoing", &MetaNode::outgoing)
            .readOnly(u"incoming", &MetaNode::incoming)
            .readOnly(u"Properties", &MetaNode::properties)
            .property(u"IsPersistent", &MetaNode::isPersistent, &MetaNode::setPersistent)
            .readOnly(u"IsDynamic", &MetaNode::isDynamic)
            .property(u"Description", &MetaNode::description, &MetaNode::setDescription)
            .readOnly(u"Parent", &MetaNode::parent)
            .method(u"MakeMetaProperty", &MetaNode::makeMetaProperty,
                    {param(u"name"), param(u"datatype", u"String"), param(u"description", u""),
                     param(u"values", Value()), param(u"category", u"")});
    return table;
}

Object MetaNode::outgoing() const {
    static_cast<void>(record());
    return automation::make<MetaCollection>(Ref<Repository>(&repository()),
                                            MetaScope{Kind::Link, Direction::Outgoing, id()});
}

Object MetaNode::incoming() const {
    static_cast<void>(record());
    return automation::make<MetaCollection>(Ref<Repository>(&repository()),
                                            MetaScope{Kind::Link, Direction::Incoming, id()});
}

const ClassTable& MetaLink::classTable() const {
    static const ClassTable table =
        ClassTable::of<MetaLink>(u"MetaLink")
            .readOnly(u"name", &MetaLink::name)
            .withId(MemberId::Default)
            .readOnly(u"source", &MetaLink::source)
            .readOnly(u"target", &MetaLink::target)
            .readOnly(u"sourcename", &MetaLink::sourceName)
            .readOnly(u"targetname", &MetaLink::targetName)
            .readOnly(u"Extension", &MetaLink::extension)
            .readOnly(u"Parent", &MetaLink::parent)
            .readOnly(u"Properties", &MetaLink::properties)
            .property(u"IsPersistent", &MetaLink::isPersistent, &MetaLink::setPersistent)
            .readOnly(u"IsDynamic", &MetaLink::isDynamic)
            .property(u"Description", &MetaLink::description, &MetaLink::setDescription)
            .method(u"MakeMetaProperty", &MetaLink::makeMetaProperty,
                    {param(u"name"), param(u"datatype", u"String"), param(u"description", u""),
                     param(u"values", Value()), param(u"category", u"")});
    return table;
}

Object MetaLink::source() const {
    return repository().metaObject(record().source, Kind::Node);
}

Object MetaLink::target() const {
    return repository().metaObject(record().target, Kind::Node);
}

std::u16string MetaLink::sourceName() const {
    return repository().metaObject(record().source, Kind::Node)->name();
}

std::u16string MetaLink::targetName() const {
    return repository().metaObject(record().target, Kind::Node)->name();
}

MetaProperty::MetaProperty(Ref<MetaObject> owner, const PropertySlot& slot)
    : Identified(static_cast<std::int64_t>(slot.record.id)), owner_(std::move(owner)), slot_(&slot) {
    owner_->repository().remember(*this);
}

MetaProperty::~MetaProperty() {
    owner_->repository().forget(*this);
}

const ClassTable& MetaProperty::classTable() const {
    static const ClassTable table = ClassTable::of<MetaProperty>(u"MetaProperty")
                                        .readOnly(u"name", &MetaProperty::name)
                                        .withId(MemberId::Default)
                                        .readOnly(u"datatype", &MetaProperty::dataType)
                                        .readOnly(u"Description", &MetaProperty::description)
                                        .readOnly(u"Values", &MetaProperty::values)
                                        .readOnly(u"Category", &MetaProperty::category)
                                        .readOnly(u"Parent", &MetaProperty::parent);
    return table;
}

std::u16string MetaProperty::dataType() const {
    return std::u16string(dataTypeName(slot_->record.type));
}

Value MetaProperty::values() const {
    return valuesOf(slot_->record);
}

}  // namespace quorel::repository
