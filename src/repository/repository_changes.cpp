// The members of the repository that make and delete.

#include <algorithm>

#include "platform/automation/text.h"
#include "repository/element.h"
#include "repository/errors.h"
#include "repository/meta_object.h"
#include "repository/repository.h"

namespace quorel::repository {

using automation::Object;
using automation::Value;

namespace {

std::u16string kindName(Kind kind) {
    return kind == Kind::Node ? u"meta node" : u"meta link";
}

void needIdentifier(const std::u16string& identifier) {
    if (identifier.empty())
        throw failure(automation::error_number::kInvalidCall, u"An identifier must not be empty");
}

}  // namespace

MetaRecord Repository::metaNamed(Kind kind, std::u16string_view name) {
    std::optional<MetaRecord> found = store().findMeta(kind, name);
    if (!found)
        throw failure(automation::error_number::kSubscriptOutOfRange,
                      u"There is no " + kindName(kind) + u" named " + inQuotes(name));
    return *std::move(found);
}

Object Repository::makeNode(const std::u16string& metaNode, const std::u16string& name,
                            const std::u16string& identifier) {
    needIdentifier(identifier);
    TypeInfo& nodeType = type(metaNamed(Kind::Node, metaNode).id);
    return node(store().addNode(nodeType.record().id, name, identifier), nodeType);
}

Node& Repository::endOfLink(const Object& end, MetaId wanted, std::u16string_view role) {
    auto* const found = dynamic_cast<Node*>(end.native());
    if (found == nullptr || &found->repository() != this)
        throw failure(automation::error_number::kTypeMismatch,
                      u"The link's " + std::u16string(role) + u" is no node of this repository");
    if (found->type().record().id != wanted)
        throw failure(automation::error_number::kTypeMismatch,
                      u"The link's " + std::u16string(role) + u" must be of the type " +
                          inQuotes(type(wanted).record().name) + u", not " +
                          inQuotes(found->type().record().name));
    static_cast<void>(found->name());
    return *found;
}

Object Repository::makeLink(const std::u16string& metaLink, const std::u16string& name,
                            const std::u16string& identifier, const Object& source, const Object& target) {
    needIdentifier(identifier);
    TypeInfo& linkType = type(metaNamed(Kind::Link, metaLink).id);
    const Node& from = endOfLink(source, linkType.record().source, u"source");
    const Node& to = endOfLink(target, linkType.record().target, u"target");
    return link(store().addLink(linkType.record().id, name, identifier, from.id(), to.id()), linkType);
}

Object Repository::addMeta(MetaRecord record) {
    if (record.name.empty())
        throw failure(automation::error_number::kInvalidCall,
                      u"A " + kindName(record.kind) + u" needs a name");
    const Kind kind = record.kind;
    return metaObject(store().addMeta(record), kind);
}

Object Repository::makeMetaNode(const std::u16string& name, const std::u16string& description) {
    return addMeta({{}, Kind::Node, name, description, false, true, {}, {}});
}

MetaId Repository::metaNodeOf(const Value& nodeOrName) {
    const auto* object = nodeOrName.getIf<Object>();
    if (object == nullptr)
        return metaNamed(Kind::Node, nodeOrName.toString()).id;
    const auto* metaNode = dynamic_cast<const MetaNode*>(object->native());
    if (metaNode == nullptr || &metaNode->repository() != this)
        throw failure(automation::error_number::kTypeMismatch,
                      u"An end of a meta link is a meta node of this repository, or its name");
    return metaNode->record().id;
}

Object Repository::makeMetaLink(const std::u16string& name, const Value& source, const Value& target,
                                const std::u16string& description) {
    return addMeta({{}, Kind::Link, name, description, false, true, metaNodeOf(source), metaNodeOf(target)});
}

Object Repository::makeDynamicMetaClass(const std::u16string& name, const std::u16string& description) {
    return addMeta({{}, Kind::Node, name, description, true, false, {}, {}});
}

std::pair<MetaId, MetaId> Repository::endsNamedIn(std::u16string_view composed) {
    // Names of meta nodes may hold points themselves, so every meta node is tried at both ends.
    std::optional<MetaRecord> source;
    std::optional<MetaRecord> target;
    for (const MetaId id : store().metas({Kind::Node, std::nullopt, MetaId{}})) {
        std::optional<MetaRecord> each = store().meta(id);
        if (!each)
            continue;
        const std::u16string prefix = each->name + u".";
        const std::u16string suffix = u"." + each->name;
        if (composed.starts_with(prefix) && (!source || source->name.size() < each->name.size()))
            source = each;
        if (composed.ends_with(suffix) && (!target || target->name.size() < each->name.size()))
            target = std::move(each);
    }
    if (source && target && source->name.size() + target->name.size() + 2 < composed.size())
        return {source->id, target->id};
    throw failure(
        automation::error_number::kInvalidCall,
        inQuotes(composed) + u" is not of the form Source.Name.Target with the names of two meta nodes");
}

Object Repository::makeDynamicMetaAssoc(const std::u16string& name, const std::u16string& description) {
    const auto [source, target] = endsNamedIn(name);
    return addMeta({{}, Kind::Link, name, description, true, false, source, target});
}

MetaRecord Repository::dynamicMeta(Kind kind, std::u16string_view name) {
    MetaRecord record = metaNamed(kind, name);
    if (!record.dynamic)
        throw failure(
            automation::error_number::kInvalidCall,
            u"The " + kindName(kind) + u" " + inQuotes(name) + u" belongs to the stored metamodel and stays");
    return record;
}

void Repository::refuseIfUsed(const MetaRecord& record) {
    const std::u16string start =
        u"The " + kindName(record.kind) + u" " + inQuotes(record.name) + u" still has ";
    const std::int64_t instances = store().count({record.kind, record.id, std::nullopt, ElementId{}});
    if (instances != 0)
        throw failure(
            automation::error_number::kInvalidCall,
            start + automation::decimal(instances) + (instances == 1 ? u" instance" : u" instances"));
    if (record.kind == Kind::Link)
        return;
    const std::int64_t links = store().countMetas({Kind::Link, Direction::Outgoing, record.id}) +
                               store().countMetas({Kind::Link, Direction::Incoming, record.id});
    if (links != 0)
        throw failure(automation::error_number::kInvalidCall,
                      start + automation::decimal(links) + (links == 1 ? u" meta link" : u" meta links"));
}

void Repository::deleteDynamicMetaClass(const std::u16string& name) {
    Transaction transaction(store());
    const MetaRecord record = dynamicMeta(Kind::Node, name);
    refuseIfUsed(record);
    store().removeMeta(record.id);
    transaction.commit();
}

void Repository::deleteDynamicMetaAssoc(const std::u16string& name) {
    Transaction transaction(store());
    const MetaRecord record = dynamicMeta(Kind::Link, name);
    refuseIfUsed(record);
    linkTypesByName_.clear();
    store().removeMeta(record.id);
    transaction.commit();
}

}  // namespace quorel::repository
