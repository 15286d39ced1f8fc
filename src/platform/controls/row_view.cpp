#include "platform/controls/row_view.h"

#include <algorithm>

namespace quorel::controls {

namespace {

void drop(std::vector<std::uint32_t>& rows, std::size_t row) {
    std::size_t kept = 0;
    for (const std::uint32_t each : rows) {
        if (each == row)
            continue;
        rows[kept++] = each > row ? each - 1 : each;
    }
    rows.resize(kept);
}

}  // namespace

void RowView::reset(std::size_t count) noexcept {
    count_ = count;
    sorted_ = filtered_ = false;
    order_ = {};
    matches_ = {};
}

std::optional<std::size_t> RowView::viewRowOf(std::size_t row) const noexcept {
    if (!filtered_ && !sorted_)
        return row < count_ ? std::optional(row) : std::nullopt;
    const std::vector<std::uint32_t>& shown = filtered_ ? matches_ : order_;
    const auto at = std::find(shown.begin(), shown.end(), row);
    return at != shown.end() ? std::optional(static_cast<std::size_t>(at - shown.begin())) : std::nullopt;
}

void RowView::setOrder(std::vector<std::uint32_t> order) {
    order_ = std::move(order);
    sorted_ = true;
    rearrangeMatches();
}

void RowView::clearOrder() {
    order_ = {};
    sorted_ = false;
    rearrangeMatches();
}

void RowView::rearrangeMatches() {
    if (!filtered_)
        return;
    std::vector<bool> let(count_);
    for (const std::uint32_t row : matches_)
        let[row] = true;
    matches_.clear();
    for (std::size_t place = 0; place < count_; ++place)
        if (const std::size_t row = unfilteredRowAt(place); let[row])
            matches_.push_back(static_cast<std::uint32_t>(row));
}

void RowView::setMatches(std::vector<std::uint32_t> matches) noexcept {
    matches_ = std::move(matches);
    filtered_ = true;
}

void RowView::clearFilter() noexcept {
    matches_ = {};
    filtered_ = false;
}

void RowView::add(std::size_t position, bool matches) {
    const auto row = static_cast<std::uint32_t>(count_++);
    if (sorted_)
        order_.insert(order_.begin() + static_cast<std::ptrdiff_t>(position), row);
    if (filtered_ && matches) {
        matches_.push_back(row);
        if (sorted_)
            rearrangeMatches();
    }
}

void RowView::remove(std::size_t row) {
    --count_;
    drop(order_, row);
    drop(matches_, row);
}

}  // namespace quorel::controls
