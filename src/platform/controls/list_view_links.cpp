#include <utility>
#include <vector>

#include "platform/automation/calls.h"
#include "platform/controls/cell_text.h"
#include "platform/controls/list_view.h"

namespace quorel::controls {

namespace {

using automation::Object;

constexpr ui::Twips kEndWidth{1200};
constexpr ui::Twips kPropertyWidth{1000};

}  // namespace

void ListView::setMetaLink(const Object& metaLink, LinkMode mode) {
    const auto alive = keepFormAlive();
    dropRows();
    dropColumns();
    columns_.setKind(RowKind::Links);
    if (mode == LinkMode::Source)
        columns_.add(u"source", u"SourceName", kEndWidth);
    else
        columns_.add(u"target", u"TargetName", kEndWidth);
    const std::uint64_t generation = ++generation_;
    std::vector<std::u16string> names;
    for (const Object& property : automation::each(metaLink.get(u"Properties").toObject()))
        names.push_back(valueText(property.get(u"name")));
    if (generation != generation_)
        return;
    for (std::u16string& name : names)
        columns_.addProperty(std::move(name), kPropertyWidth);
    showColumns();
    onCountChanged.raise();
}

void ListView::setIcons(std::shared_ptr<ui::ImageList> images, std::u16string_view key) {
    icon_ = key;
    list_->setImages(icon_.empty() ? nullptr : std::move(images));
    list_->rowsChanged();
}

void ListView::SetList_Outgoing(const Object& node, const Object& metaLink, bool outgoing) {
    const auto alive = keepFormAlive();
    const ui::WaitPointer wait(desktop_);
    dropRows();
    endSorting();
    columns_.setKind(RowKind::Links);
    setFilterColumn(0);
    showColumns();
    const std::uint64_t generation = ++generation_;
    RowStore incoming;
    try {
        if (node)
            enumerate(node.get(outgoing ? u"Outgoing_" : u"Incoming_", metaLink.get(u"name")).toObject(),
                      generation, incoming);
    } catch (...) {
        install(generation, std::move(incoming));
        throw;
    }
    install(generation, std::move(incoming));
}

}  // namespace quorel::controls
