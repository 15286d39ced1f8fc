#include "platform/controls/hierarchy_tree_view.h"

#include <algorithm>
#include <utility>

#include "platform/automation/text.h"
#include "platform/controls/cell_text.h"

namespace quorel::controls {

using automation::Object;
using automation::Value;

namespace {

[[nodiscard]] TreeDescription described(std::u16string_view typ, EntryKind kind, std::u16string_view metatype,
                                        std::u16string_view caption, std::u16string_view paneId) {
    TreeDescription content;
    content.typ = typ;
    content.kind = kind;
    content.metatype = metatype;
    content.caption = caption;
    content.icon = typ;
    content.paneId = paneId;
    return content;
}

/// Whether a meta link's links below a node leave it.
[[nodiscard]] bool leaves(const TreeDescription& metaLink) noexcept {
    return metaLink.below.front()->kind == EntryKind::Links;
}

}  // namespace

void HierarchyTreeView::initialise() {
    types_.clear();
    followsLinks_ = false;
    TreeView::initialise();
}

// The metamodel.
// ------------------------------------------------------------------------

void HierarchyTreeView::addNodeType(std::u16string_view name, std::u16string_view paneId) {
    auto nodes = makeDescription(described(kNodeEntry, EntryKind::Extension, name, {}, paneId));
    // Every node is below its type; what is below a node leads to those.
    nodes->endsSearch = true;
    types_.emplace(name, NodeType{std::move(nodes)});
}

std::shared_ptr<TreeDescription> HierarchyTreeView::metaLink(std::u16string_view name,
                                                             std::u16string_view farType,
                                                             std::u16string_view paneId, EntryKind kind) {
    std::u16string caption(name);
    if (kind == EntryKind::LinksReaching)
        caption += u" (incoming)";
    auto made = makeDescription(described(kLinkEntry, EntryKind::Plain, name, caption, paneId));
    const auto links = makeDescription(described(kLinkEntry, kind, name, {}, paneId));
    links->below.push_back(makeDescription(described(kNodeEntry, EntryKind::FarNode, farType, {}, {})));
    made->below.push_back(links);
    return made;
}

void HierarchyTreeView::addLinkType(std::u16string_view name, std::u16string_view source,
                                    std::u16string_view target, std::u16string_view paneId) {
    if (!followsLinks_)
        return;
    if (const auto type = types_.find(source); type != types_.end()) {
        auto& below = type->second.nodes->below;
        const auto place = below.begin() + static_cast<std::ptrdiff_t>(type->second.outgoing++);
        below.insert(place, metaLink(name, target, paneId, EntryKind::Links));
    }
    if (const auto type = types_.find(target); type != types_.end())
        type->second.nodes->below.push_back(metaLink(name, source, paneId, EntryKind::LinksReaching));
    describedMore();
}

void HierarchyTreeView::addTopLevel(std::u16string_view name, std::u16string_view paneId) {
    const auto type = types_.find(name);
    if (type == types_.end())
        throw automation::Error(automation::error_number::kSubscriptOutOfRange,
                                u"There is no type '" + std::u16string(name) + u"'", u"QuorelUtility");
    const auto made = makeDescription(described(kNodeEntry, EntryKind::Plain, name, name, paneId));
    made->below.push_back(type->second.nodes);
    rootDescription().below.push_back(made);
    describedMore();
}

Object HierarchyTreeView::linkEnd(const TreeEntry& entry, LinkEnd end) {
    if (standsForLinks(entry.kind()))
        return entry.instance.get(end == LinkEnd::Source ? u"source" : u"target").toObject();
    if (!entry.above)
        return {};
    // A meta link from a type to itself is below its nodes twice.
    const auto& siblings = entry.above->description->below;
    const bool hasNodeAtEnd = std::any_of(siblings.begin(), siblings.end(), [&](const auto& sibling) {
        return sibling->metatype == entry.description->metatype &&
               leaves(*sibling) == (end == LinkEnd::Source);
    });
    return hasNodeAtEnd ? nodeAbove(&entry) : Object();
}

// Requests.
// ------------------------------------------------------------------------

Value HierarchyTreeView::ask(RequestCode code, const TreeEntry& entry, std::u16string_view sought) const {
    DataRequest request{code, entry, sought};
    onDataRequest.raise(request);
    return std::move(request.answer);
}

std::u16string HierarchyTreeView::askText(const TreeEntry& entry) {
    const Value answer = ask(RequestCode::Text, entry);
    return answer.isEmpty() ? TreeView::askText(entry) : displayText(answer.toString());
}

std::u16string HierarchyTreeView::askIdentifier(const TreeEntry& entry) {
    const Value answer = ask(RequestCode::Identity, entry);
    return answer.isEmpty() ? TreeView::askIdentifier(entry) : answer.toString();
}

/// The node at the other end of a link is one of its type.
std::shared_ptr<const TreeDescription> HierarchyTreeView::askDescription(const TreeEntry& entry) {
    if (entry.kind() != EntryKind::FarNode)
        return entry.description;
    const Value answer = ask(RequestCode::Type, entry);
    const auto type = types_.find(answer.isEmpty() ? entry.description->metatype : answer.toString());
    return type != types_.end() ? type->second.nodes : entry.description;
}

std::vector<TreeSearch::Match> HierarchyTreeView::matchesFor(const std::u16string& folded) {
    std::vector<TreeSearch::Match> matches = TreeView::matchesFor(folded);
    matches.emplace_back([this, folded, shown = matches.front()](const TreeEntry& entry) {
        if (!standsForInstances(entry.kind()))
            return false;
        const Value answer = ask(RequestCode::Search, entry, folded);
        return !answer.isEmpty() && answer.toBoolean() && !shown(entry);
    });
    return matches;
}

}  // namespace quorel::controls
