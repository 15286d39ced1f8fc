#include "repository/element.h"

#include "platform/automation/text.h"
#include "repository/element_collection.h"
#include "repository/errors.h"
#include "repository/keyed_list.h"
#include "repository/member_names.h"
#include "repository/meta_object.h"
#include "repository/property.h"

namespace quorel::repository {

using automation::Argument;
using automation::ClassTable;
using automation::InvokeKind;
using automation::MemberId;
using automation::Object;
using automation::param;
using automation::Ref;
using automation::Value;

namespace {

constexpr std::u16string_view kPropertyPrefix = u"prop_";
constexpr std::u16string_view kOutgoingPrefix = u"outgoing_";
constexpr std::u16string_view kIncomingPrefix = u"incoming_";

bool assigns(InvokeKind kind) noexcept {
    constexpr auto kAssignments =
        static_cast<std::uint32_t>(InvokeKind::Put) | static_cast<std::uint32_t>(InvokeKind::PutRef);
    return (static_cast<std::uint32_t>(kind) & kAssignments) != 0;
}

bool containsFolded(const std::u16string& text, const std::u16string& folded) {
    return automation::foldCase(text).find(folded) != std::u16string::npos;
}

}  // namespace

void Element::refuseRemoved() const {
    throw failure(automation::error_number::kInvalidCall,
                  kind() == Kind::Node ? u"The node has been removed from the repository"
                                       : u"The link has been removed from the repository");
}

std::u16string Element::name() const {
    std::optional<std::u16string> found = repository_->store().name(kind(), id());
    if (!found)
        refuseRemoved();
    return *std::move(found);
}

void Element::setName(const std::u16string& name) {
    if (!repository_->store().setName(kind(), id(), name))
        refuseRemoved();
}

std::u16string Element::identifier() const {
    std::optional<std::u16string> found = repository_->store().identifier(kind(), id());
    if (!found)
        refuseRemoved();
    return *std::move(found);
}

Object Element::parent() const {
    if (!repository_->store().exists(kind(), id()))
        refuseRemoved();
    const MetaRecord& type = type_->record();
    return repository_->metaObject(type.id, type.kind);
}

const PropertySlot* Element::findSlot(std::u16string_view name) const {
    if (const PropertySlot* slot = type_->find(name))
        return slot;
    type_->refresh(repository_->store());
    return type_->find(name);
}

const PropertySlot& Element::slot(std::u16string_view name) const {
    if (const PropertySlot* found = findSlot(name))
        return *found;
    throw failure(automation::error_number::kMemberNotSupported,
                  inQuotes(type_->record().name) + u" has no property named " + inQuotes(name));
}

Value Element::read(const PropertySlot& slot) const {
    if (slot.origin == PropertySlot::Origin::Name)
        return name();
    if (slot.origin == PropertySlot::Origin::Identifier)
        return identifier();
    Store& store = repository_->store();
    Value value = store.value(kind(), id(), slot.record.id, slot.record.type);
    if (value.isEmpty() && !store.exists(kind(), id()))
        refuseRemoved();
    return value;
}

void Element::write(const PropertySlot& slot, const Value& value) {
    if (slot.origin == PropertySlot::Origin::Name)
        return setName(value.toString());
    if (slot.origin == PropertySlot::Origin::Identifier)
        throw failure(automation::error_number::kMemberNotSupported, u"An identifier cannot be changed");
    const Value stored = coerced(slot.record, value);
    Store& store = repository_->store();
    if (!store.exists(kind(), id()))
        refuseRemoved();
    store.setValue(kind(), id(), slot.record.id, stored);
}

Value Element::property(const std::u16string& name) const {
    return read(slot(name));
}

Value Element::setProperty(const std::u16string& name, const Value& value) {
    const PropertySlot& target = slot(name);
    if (value.isMissing())
        return read(target);
    write(target, value);
    return {};
}

Object Element::properties() {
    type_->refresh(repository_->store());
    KeyedList::Elements elements;
    for (const PropertySlot& slot : type_->slots())
        if (slot.declared)
            elements.emplace_back(slot.record.name,
                                  automation::make<ElementProperty>(Ref<Element>(this), slot));
    return automation::make<KeyedList>(u"property", std::move(elements));
}

bool Element::search(const std::u16string& text) const {
    const std::u16string folded = automation::foldCase(text);
    if (containsFolded(name(), folded))
        return true;
    type_->refresh(repository_->store());
    for (const PropertySlot& slot : type_->slots()) {
        if (slot.declared && isText(slot.record.type) && containsFolded(read(slot).toString(), folded))
            return true;
    }
    return false;
}

std::u16string Element::text() const {
    std::u16string shown = name();
    return shown.empty() ? identifier() : shown;
}

std::optional<Value> Element::prefixedMember(std::u16string_view folded) {
    if (!folded.starts_with(kPropertyPrefix))
        return std::nullopt;
    const PropertySlot* found = findSlot(folded.substr(kPropertyPrefix.size()));
    return found != nullptr ? std::optional(read(*found)) : std::nullopt;
}

std::optional<MemberId> Element::resolveExtra(std::u16string_view name) {
    const bool isKnown = findSlot(name) != nullptr || prefixedMember(automation::foldCase(name)).has_value();
    return isKnown ? std::optional(MemberNames::idOf(name)) : std::nullopt;
}

Value Element::accessProperty(const PropertySlot& slot, InvokeKind kind, std::span<Argument> arguments) {
    const bool isPut = assigns(kind);
    if (arguments.size() != (isPut ? 1U : 0U))
        throw automation::Error(automation::error_number::kWrongArgumentCount);
    if (!isPut)
        return read(slot);
    write(slot, arguments.front().value());
    return {};
}

Value Element::invokeExtra(MemberId id, InvokeKind kind, std::span<Argument> arguments) {
    if (const PropertySlot* found = type_->find(id))
        return accessProperty(*found, kind, arguments);
    const std::optional<std::u16string> name = MemberNames::nameOf(id);
    const std::optional<Value> value = name && !assigns(kind) ? prefixedMember(*name) : std::nullopt;
    if (!value)
        throw failure(
            automation::error_number::kMemberNotSupported,
            inQuotes(type_->record().name) + u" has no member named " + inQuotes(name.value_or(u"")));
    if (arguments.empty())
        return *value;
    return value->toObject().invoke(MemberId::Default, InvokeKind::Call, arguments);
}

Node::Node(Ref<Repository> repository, ElementId id, TypeInfo& type)
    : Element(std::move(repository), id, type) {
    this->repository().remember(*this);
}

Node::~Node() {
    repository().forget(*this);
}

const ClassTable& Node::classTable() const {
    static const ClassTable table =
        ClassTable::of<Node>(u"Node")
            .property(u"name", &Node::name, &Node::setName)
            .withId(MemberId::Default)
            .readOnly(u"Identifier", &Node::identifier)
            .readOnly(u"Parent", &Node::parent)
            .readOnly(u"Outgoing_", &Node::outgoing, {param(u"metaLink")})
            .readOnly(u"Incoming_", &Node::incoming, {param(u"metaLink")})
            .readOnly(u"Prop_", &Node::property, {param(u"name")})
            .method(u"GetProperty", &Node::property, {param(u"name")})
            .method(u"SetProperty", &Node::setProperty, {param(u"name"), param(u"value", Value::missing())})
            .readOnly(u"Properties", &Node::properties)
            .method(u"Search", &Node::search, {param(u"text")})
            .readOnly(u"Text", &Node::text);
    return table;
}

Object Node::links(const std::u16string& metaLink, Direction direction) {
    if (!repository().store().exists(Kind::Node, id()))
        refuseRemoved();
    TypeInfo& linkType = repository().linkTypeNamed(metaLink);
    return automation::make<LinkCollection>(Ref<Repository>(&repository()), linkType, direction, id());
}

Object Node::outgoing(const std::u16string& metaLink) {
    return links(metaLink, Direction::Outgoing);
}

Object Node::incoming(const std::u16string& metaLink) {
    return links(metaLink, Direction::Incoming);
}

std::optional<Value> Node::prefixedMember(std::u16string_view folded) {
    const bool isOutgoing = folded.starts_with(kOutgoingPrefix);
    if (!isOutgoing && !folded.starts_with(kIncomingPrefix))
        return Element::prefixedMember(folded);
    const std::u16string_view wanted =
        folded.substr(isOutgoing ? kOutgoingPrefix.size() : kIncomingPrefix.size());
    Store& store = repository().store();
    for (const MetaId each : store.metas({Kind::Link, std::nullopt, MetaId{}})) {
        const std::optional<MetaRecord> link = store.meta(each);
        if (link && automation::foldCase(link->name) == wanted)
            return Value(isOutgoing ? outgoing(link->name) : incoming(link->name));
    }
    return std::nullopt;
}

Link::Link(Ref<Repository> repository, ElementId id, TypeInfo& type)
    : Element(std::move(repository), id, type) {
    this->repository().remember(*this);
}

Link::~Link() {
    repository().forget(*this);
}

const ClassTable& Link::classTable() const {
    static const ClassTable table =
        ClassTable::of<Link>(u"Link")
            .property(u"name", &Link::name, &Link::setName)
            .withId(MemberId::Default)
            .readOnly(u"Identifier", &Link::identifier)
            .readOnly(u"Parent", &Link::parent)
            .readOnly(u"source", &Link::source)
            .readOnly(u"target", &Link::target)
            .readOnly(u"Prop_", &Link::property, {param(u"name")})
            .method(u"GetProperty", &Link::property, {param(u"name")})
            .method(u"SetProperty", &Link::setProperty, {param(u"name"), param(u"value", Value::missing())})
            .readOnly(u"Properties", &Link::properties)
            .method(u"Search", &Link::search, {param(u"text")})
            .readOnly(u"Text", &Link::text);
    return table;
}

Object Link::end(Direction direction) const {
    const std::optional<ElementId> found = repository().store().end(id(), direction);
    if (!found)
        refuseRemoved();
    // A link's ends are of the types of its meta link's ends, always.
    const MetaRecord& linkType = type().record();
    TypeInfo& nodeType =
        repository().type(direction == Direction::Outgoing ? linkType.source : linkType.target);
    return repository().node(*found, nodeType);
}

}  // namespace quorel::repository
