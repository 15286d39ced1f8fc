#include "frame/model_edits.h"

#include <cstdint>

#include "frame/attempt.h"
#include "platform/automation/calls.h"

namespace quorel::frame {

using automation::each;
using automation::Object;
using automation::Value;

namespace {

/// The links of the node along the meta links, which leave or enter its type.
std::int64_t countLinks(const Object& node, const Object& metaLinks, std::u16string_view collection) {
    std::int64_t links = 0;
    for (const Object& metaLink : each(metaLinks))
        links += node.get(collection, metaLink.get(u"name")).toObject().get(u"Count").toInteger();
    return links;
}

void removeFrom(const Object& collection, const std::u16string& identifier) {
    Value removed(false);
    collection.call(u"Remove", identifier, automation::byRef(removed));
}

}  // namespace

bool removeNode(const Object& node) {
    const Object metaNode = node.get(u"Parent").toObject();
    const std::int64_t links = countLinks(node, metaNode.get(u"outgoing").toObject(), u"Outgoing_") +
                               countLinks(node, metaNode.get(u"incoming").toObject(), u"Incoming_");
    if (links != 0)
        return false;
    Value removed(false);
    metaNode.get(u"Extension")
        .toObject()
        .call(u"Remove", node.get(u"Identifier"), automation::byRef(removed));
    return removed.toBoolean();
}

void removeLink(const Object& repository, const std::u16string& metaLinkName, bool outgoing,
                const std::u16string& identifier) {
    const Object metaLink = repository.get(u"MetaLinks", metaLinkName).toObject();
    const Object link = metaLink.get(u"Extension", identifier).toObject();
    const auto atSource = outgoing ? u"Outgoing_" : u"Incoming_";
    const auto atTarget = outgoing ? u"Incoming_" : u"Outgoing_";
    removeFrom(link.get(u"source").toObject().get(atSource, metaLinkName).toObject(), identifier);
    removeFrom(link.get(u"target").toObject().get(atTarget, metaLinkName).toObject(), identifier);
    removeFrom(metaLink.get(u"Extension").toObject(), identifier);
}

std::u16string proposedLinkName(const Object& source, const Object& target) {
    const auto joined = [&](std::u16string_view member) {
        return source.get(member).toString() + u"->" + target.get(member).toString();
    };
    std::u16string name;
    if (!attempt([&] { name = joined(u"name"); }))
        name = joined(u"Identifier");
    return name;
}

}  // namespace quorel::frame
