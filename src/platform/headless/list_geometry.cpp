// Where the cells of a list and the lines of a tree are when nothing is painted.

#include <algorithm>

#include "platform/headless/headless_desktop.h"
#include "platform/ui/tree.h"
#include "platform/ui/virtual_list.h"

namespace quorel::headless {

namespace {

constexpr ui::Twips kEdge{30};
constexpr ui::Twips kHeader{360};
constexpr ui::Twips kRow{270};

/// The area under the header, relative to the list.
[[nodiscard]] ui::Rect cellArea(const ui::VirtualList& list) {
    const ui::Size size = list.bounds().size();
    const ui::Twips header = list.isTitled() ? kHeader : ui::Twips{0};
    return {kEdge, kEdge + header, std::max(ui::Twips{0}, size.width - kEdge * 2),
            std::max(ui::Twips{0}, size.height - kEdge * 2 - header)};
}

[[nodiscard]] std::size_t wholeRows(const ui::VirtualList& list) {
    return std::max<std::size_t>(1, static_cast<std::size_t>(cellArea(list).height.value / kRow.value));
}

/// How many lines there are, and how many of them are seen as a whole.
struct Lines {
    std::size_t all = 0;
    std::size_t seen = 0;
};

[[nodiscard]] std::optional<Lines> linesOf(const ui::Control& control) {
    if (const auto* const list = dynamic_cast<const ui::VirtualList*>(&control))
        return Lines{list->rowCount(), wholeRows(*list)};
    const auto* const tree = dynamic_cast<const ui::Tree*>(&control);
    if (tree == nullptr)
        return std::nullopt;
    Lines lines;
    for (ui::TreeItemId item = tree->shownAfter(ui::TreeItemId::Root); item != ui::TreeItemId::None;
         item = tree->shownAfter(item))
        ++lines.all;
    const ui::Twips room = tree->bounds().height - kEdge * 2;
    lines.seen = static_cast<std::size_t>(std::max(room.value / kRow.value, 1));
    return lines;
}

[[nodiscard]] ui::Twips leftOf(const ui::VirtualList& list, std::size_t column) {
    ui::Twips left;
    for (std::size_t i = 0; i < column; ++i)
        left += list.columns()[i].width;
    return left;
}

}  // namespace

std::optional<ui::Rect> HeadlessPeer::cellBounds(ui::CellIndex cell) const {
    const auto* const list = dynamic_cast<const ui::VirtualList*>(&control_);
    if (list == nullptr || cell.row < topRow_ || cell.row - topRow_ > wholeRows(*list))
        return std::nullopt;
    const ui::Rect area = cellArea(*list);
    const ui::Twips left = area.left + leftOf(*list, cell.column) - scrolled_;
    const ui::Twips top = area.top + kRow * static_cast<std::int32_t>(cell.row - topRow_);
    const ui::Twips right = std::min(left + list->columns()[cell.column].width, area.right());
    const ui::Twips bottom = std::min(top + kRow, area.bottom());
    const ui::Twips seen = std::max(left, area.left);
    if (seen >= right || top >= bottom)
        return std::nullopt;
    return ui::Rect{seen, top, right - seen, bottom - top};
}

bool HeadlessPeer::scrollTo(std::size_t row) {
    const std::optional<Lines> lines = linesOf(control_);
    if (!lines)
        return false;
    const std::size_t last = lines->all > lines->seen ? lines->all - lines->seen : 0;
    return std::exchange(topRow_, std::min(row, last)) != topRow_;
}

bool HeadlessPeer::bringIntoView(std::size_t row, std::optional<std::size_t> column) {
    const auto* const list = dynamic_cast<const ui::VirtualList*>(&control_);
    if (list == nullptr || row >= list->rowCount())
        return false;
    const ui::Twips before = scrolled_;
    if (column && *column < list->columns().size()) {
        const ui::Twips left = leftOf(*list, *column);
        const ui::Twips room = cellArea(*list).width - list->columns()[*column].width;
        scrolled_ = std::min(left, std::max(scrolled_, left - std::max(room, ui::Twips{0})));
    }
    const std::size_t seen = wholeRows(*list);
    bool moved = false;
    if (row < topRow_)
        moved = scrollTo(row);
    else if (row >= topRow_ + seen)
        moved = scrollTo(row - seen + 1);
    return moved || scrolled_ != before;
}

std::vector<ui::TreeItemId> HeadlessPeer::itemsInView() {
    const auto* const tree = dynamic_cast<const ui::Tree*>(&control_);
    std::vector<ui::TreeItemId> items;
    if (tree == nullptr)
        return items;
    scrollTo(topRow_);
    const std::size_t end = topRow_ + linesOf(control_)->seen;
    std::size_t line = 0;
    for (ui::TreeItemId item = tree->shownAfter(ui::TreeItemId::Root);
         item != ui::TreeItemId::None && line < end; item = tree->shownAfter(item))
        if (line++ >= topRow_)
            items.push_back(item);
    return items;
}

void HeadlessPeer::bringIntoView(const ui::Tree& tree) {
    std::size_t line = 0;
    ui::TreeItemId item = tree.shownAfter(ui::TreeItemId::Root);
    for (; item != ui::TreeItemId::None && item != tree.scrollTarget(); item = tree.shownAfter(item))
        ++line;
    const std::size_t seen = linesOf(tree)->seen;
    if (item == ui::TreeItemId::None)
        return;
    if (line < topRow_)
        scrollTo(line);
    else if (line >= topRow_ + seen)
        scrollTo(line - seen + 1);
}

}  // namespace quorel::headless
