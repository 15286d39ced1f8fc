#include <algorithm>
#include <numeric>

#include "platform/automation/calls.h"
#include "platform/automation/text.h"
#include "platform/controls/list_view.h"
#include "platform/controls/list_view_overtaken.h"
#include "platform/ui/plain_controls.h"

namespace quorel::controls {

namespace {

using automation::Object;

[[nodiscard]] bool isBefore(const SortKey& a, const SortKey& b, ui::SortOrder order) {
    if (!a.readable || !b.readable)
        return a.readable && !b.readable;
    return order == ui::SortOrder::Descending ? compare(b, a) < 0 : compare(a, b) < 0;
}

}  // namespace

void ListView::clickedColumn(std::size_t column) {
    ui::SortOrder next = ui::SortOrder::Ascending;
    if (column == sortColumn_ && sortOrder_ != ui::SortOrder::None)
        next = sortOrder_ == ui::SortOrder::Ascending ? ui::SortOrder::Descending : ui::SortOrder::None;
    sortBy(column, next);
}

void ListView::sortBy(std::size_t column, ui::SortOrder order) {
    if (column >= columns_.size())
        return;
    const auto alive = keepFormAlive();
    const ui::WaitPointer wait(desktop_);
    ++arrangement_;
    std::optional<std::vector<std::uint32_t>> sorted;
    if (order != ui::SortOrder::None) {
        sorted = sortedOrder(column, order);
        if (!sorted)
            return;
    }
    const std::optional<std::size_t> selected = selectedRow();
    sortColumn_ = column;
    sortOrder_ = order;
    if (sorted)
        view_.setOrder(*std::move(sorted));
    else
        view_.clearOrder();
    showColumns();
    showRows(selected);
}

SortKey ListView::keyOf(const Object& object, std::size_t column) const {
    try {
        return SortKey(columns_.read(automation::Typed(object), column));
    } catch (...) {
        return {};
    }
}

/// Nothing when the list was changed while the rows were asked.
std::optional<std::vector<std::uint32_t>> ListView::sortedOrder(std::size_t column,
                                                                ui::SortOrder sortOrder) const {
    const Overtaken overtaken(*this);
    std::vector<SortKey> keys;
    keys.reserve(rows_.size());
    for (std::size_t row = 0; !overtaken && row < rows_.size(); ++row)
        keys.push_back(keyOf(rows_[row], column));
    if (overtaken)
        return std::nullopt;
    std::vector<std::uint32_t> order(rows_.size());
    std::iota(order.begin(), order.end(), 0U);
    std::stable_sort(order.begin(), order.end(),
                     [&](std::uint32_t a, std::uint32_t b) { return isBefore(keys[a], keys[b], sortOrder); });
    return order;
}

/// Behind its equals. Asks as many rows as the search has steps.
std::size_t ListView::sortedPosition(const Object& object) const {
    const Overtaken overtaken(*this);
    const SortKey key = keyOf(object, sortColumn_);
    std::size_t low = 0;
    std::size_t high = view_.count();
    while (low < high && !overtaken) {
        const std::size_t middle = low + (high - low) / 2;
        const Object other = rows_[view_.unfilteredRowAt(middle)];
        if (isBefore(key, keyOf(other, sortColumn_), sortOrder_))
            high = middle;
        else
            low = middle + 1;
    }
    return low;
}

void ListView::find(const std::u16string& text, std::size_t start, std::optional<std::size_t>& found) const {
    const ui::WaitPointer wait(desktop_);
    const Overtaken overtaken(*this);
    const std::u16string wanted = automation::foldCase(text);
    const std::size_t count = view_.size();
    for (std::size_t step = 0; !overtaken && step < count; ++step) {
        const std::size_t viewRow = (start + step) % count;
        const std::u16string cell = automation::foldCase(textOf(rows_[view_.rowAt(viewRow)], sortColumn_));
        if (overtaken)
            return;
        if (cell.starts_with(wanted)) {
            found = viewRow;
            return;
        }
    }
}

bool ListView::matches(const Object& object, std::u16string_view folded) const {
    return automation::foldCase(textOf(object, filterColumn_)).find(folded) != std::u16string::npos;
}

void ListView::filterChanged() {
    const ui::WaitPointer wait(desktop_);
    const std::u16string wanted = automation::foldCase(filterBox_->text());
    // What held a longer text held every part of it: only the rows that are shown need be asked again.
    const bool narrower = view_.isFiltered() && wanted.find(filter_) != std::u16string::npos;
    ++arrangement_;
    const Overtaken overtaken(*this);
    std::vector<std::uint32_t> let;
    const std::size_t candidates = narrower ? view_.size() : view_.count();
    for (std::size_t place = 0; !overtaken && !wanted.empty() && place < candidates; ++place) {
        const std::size_t row = narrower ? view_.rowAt(place) : view_.unfilteredRowAt(place);
        if (matches(rows_[row], wanted))
            let.push_back(static_cast<std::uint32_t>(row));
    }
    if (overtaken)
        return;
    const std::optional<std::size_t> selected = selectedRow();
    filter_ = wanted;
    if (wanted.empty())
        view_.clearFilter();
    else
        view_.setMatches(std::move(let));
    showRows(selected);
    onCountChanged.raise();
}

}  // namespace quorel::controls
