#include <span>
#include <utility>
#include <vector>

#include "platform/automation/calls.h"
#include "platform/controls/cell_text.h"
#include "platform/controls/list_view.h"

namespace quorel::controls {

namespace {
using automation::Object;
using automation::Value;
constexpr std::size_t kBatch = 256;
}  // namespace

void ListView::fillWithMetaNodes(const Object& repository, bool withColumns) {
    fill({RowKind::MetaNodes, repository, u"MetaNodes", withColumns});
}

void ListView::fillWithMetaLinks(const Object& repository, bool withColumns) {
    fill({RowKind::MetaLinks, repository, u"MetaLinks", withColumns});
}

void ListView::fillWithExtension(const Object& metaNode, bool withColumns) {
    fill({RowKind::Nodes, metaNode, u"Extension", withColumns});
}

void ListView::fillWithLinks(const Object& metaLink, bool withColumns) {
    fill({RowKind::Links, metaLink, u"Extension", withColumns});
}

void ListView::fillWithIncomingMetaLinks(const Object& metaNode, bool withColumns) {
    fill({RowKind::MetaLinks, metaNode, u"incoming", false, !withColumns});
}

void ListView::fillWithOutgoingMetaLinks(const Object& metaNode, bool withColumns) {
    fill({RowKind::MetaLinks, metaNode, u"outgoing", false, !withColumns});
}

void ListView::fillWithIncomingLinks(const Object& node, const Object& metaLink) {
    fill({RowKind::Links, node, u"Incoming_", false, true, metaLink, LinkEnd::Source});
}

void ListView::fillWithOutgoingLinks(const Object& node, const Object& metaLink) {
    fill({RowKind::Links, node, u"Outgoing_", false, true, metaLink, LinkEnd::Target});
}

void ListView::prepareColumns(const FillRequest& request) {
    if (request.keepsColumns) {
        endSorting();
        columns_.setKind(request.kind);
        if (request.kind == RowKind::Links)
            columns_.beginWithEndName(request.farEnd);
    } else {
        endSorting();
        columns_.reset(request.kind);
    }
    setFilterColumn(0);
    showColumns();
}

void ListView::readRows(const FillRequest& request, std::uint64_t generation, RowStore& incoming) {
    if (request.withProperties && (request.kind == RowKind::Nodes || request.kind == RowKind::Links))
        readProperties(request.owner, generation);
    const bool ofNode = request.keepsColumns && request.kind == RowKind::Links;
    const Value collection = ofNode ? request.owner.get(request.collection, request.along.get(u"name"))
                                    : request.owner.get(request.collection);
    enumerate(collection.toObject(), generation, incoming);
}

void ListView::fill(const FillRequest& request) {
    const auto alive = keepFormAlive();
    const ui::WaitPointer wait(desktop_);
    dropRows();
    prepareColumns(request);
    const std::uint64_t generation = ++generation_;
    RowStore incoming;
    try {
        readRows(request, generation, incoming);
    } catch (...) {
        install(generation, std::move(incoming));
        throw;
    }
    install(generation, std::move(incoming));
}

void ListView::readProperties(const Object& metaObject, std::uint64_t generation) {
    std::vector<std::u16string> names;
    for (const Object& property : automation::each(metaObject.get(u"Properties").toObject()))
        names.push_back(valueText(property.get(u"name")));
    if (generation != generation_)
        return;
    for (std::u16string& name : names)
        columns_.addProperty(std::move(name));
    showColumns();
}

void ListView::enumerate(const Object& collection, std::uint64_t generation, RowStore& incoming) const {
    const std::unique_ptr<automation::Enumerator> source = collection.enumerate();
    std::vector<Object> batch(kBatch);
    std::size_t got = kBatch;
    const auto taken = [&] { return std::span(batch).first(got); };
    while (got == kBatch && generation == generation_) {
        try {
            source->nextObjects(batch, got);
        } catch (...) {
            incoming.append(taken());
            throw;
        }
        incoming.append(taken());
    }
}

void ListView::install(std::uint64_t generation, RowStore incoming) {
    if (generation != generation_)
        return;
    rows_ = std::move(incoming);
    view_.reset(rows_.size());
    showRows(std::nullopt);
    onCountChanged.raise();
}

}  // namespace quorel::controls
