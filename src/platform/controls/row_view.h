#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace quorel::controls {

/// Which rows are shown in which order: all as they are filled, or a sorted order, or those a filter lets
/// through of either. At most eight bytes a row, none without sorting and filtering.
class RowView {
  public:
    /// All of `count` rows, unsorted and unfiltered.
    void reset(std::size_t count) noexcept;

    [[nodiscard]] std::size_t size() const noexcept {
        return filtered_ ? matches_.size() : sorted_ ? order_.size() : count_;
    }
    [[nodiscard]] std::size_t rowAt(std::size_t viewRow) const noexcept {
        return filtered_ ? matches_[viewRow] : sorted_ ? order_[viewRow] : viewRow;
    }
    /// Where the row is shown; empty when it is not.
    [[nodiscard]] std::optional<std::size_t> viewRowOf(std::size_t row) const noexcept;

    [[nodiscard]] bool isSorted() const noexcept { return sorted_; }
    [[nodiscard]] bool isFiltered() const noexcept { return filtered_; }
    /// All rows in their sorted order. A filter stays and takes the order on.
    void setOrder(std::vector<std::uint32_t> order);
    void clearOrder();
    /// The rows let through, in the order they are to be shown.
    void setMatches(std::vector<std::uint32_t> matches) noexcept;
    void clearFilter() noexcept;

    /// The row `count_` was added; `position` is its place in the sorted order, `matches` whether the filter
    /// lets it through.
    void add(std::size_t position, bool matches);
    /// The row is gone, those behind it have moved up.
    void remove(std::size_t row);

    /// All rows, filter or not: where a wider filter has to look.
    [[nodiscard]] std::size_t count() const noexcept { return count_; }
    [[nodiscard]] std::size_t unfilteredRowAt(std::size_t place) const noexcept {
        return sorted_ ? order_[place] : place;
    }
    [[nodiscard]] std::size_t bytes() const noexcept {
        return (order_.capacity() + matches_.capacity()) * sizeof(std::uint32_t);
    }

  private:
    void rearrangeMatches();

    std::size_t count_ = 0;
    bool sorted_ = false;
    bool filtered_ = false;
    std::vector<std::uint32_t> order_;
    std::vector<std::uint32_t> matches_;
};

}  // namespace quorel::controls
