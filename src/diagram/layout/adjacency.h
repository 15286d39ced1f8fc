#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace quorel::diagram::layout {

/// For every node the items that belong to it, in one array.
class Adjacency {
  public:
    Adjacency() = default;

    /// Item i belongs to node `nodeOf(i)`; a node's items stay in the order of their numbers.
    template <class NodeOf>
    Adjacency(int nodes, std::size_t items, NodeOf nodeOf)
        : start_(static_cast<std::size_t>(nodes) + 1), items_(items) {
        for (std::size_t i = 0; i < items; ++i)
            ++start_[static_cast<std::size_t>(nodeOf(i)) + 1];
        for (std::size_t v = 1; v < start_.size(); ++v)
            start_[v] += start_[v - 1];
        std::vector<int> next(start_.begin(), start_.end() - 1);
        for (std::size_t i = 0; i < items; ++i)
            items_[static_cast<std::size_t>(next[static_cast<std::size_t>(nodeOf(i))]++)] =
                static_cast<int>(i);
    }

    [[nodiscard]] std::span<const int> operator[](std::size_t node) const {
        return {items_.data() + start_[node], static_cast<std::size_t>(start_[node + 1] - start_[node])};
    }
    [[nodiscard]] std::span<int> operator[](std::size_t node) {
        return {items_.data() + start_[node], static_cast<std::size_t>(start_[node + 1] - start_[node])};
    }

  private:
    std::vector<int> start_, items_;
};

}  // namespace quorel::diagram::layout
