#include "diagram/layout/crossings.h"

#include <algorithm>
#include <bit>

namespace quorel::diagram::layout {

std::int64_t InversionCounter::count(const std::vector<int>& numbers, std::size_t limit) {
    const std::size_t leaves = std::bit_ceil(std::max<std::size_t>(limit, 1));
    tree_.assign(2 * leaves, 0);
    std::int64_t inversions = 0;
    for (const int number : numbers) {
        std::size_t node = leaves + static_cast<std::size_t>(number);
        ++tree_[node];
        // What stands to the right of the way to the root is greater and came before.
        for (; node > 1; node /= 2) {
            if (node % 2 == 0)
                inversions += tree_[node + 1];
            ++tree_[node / 2];
        }
    }
    return inversions;
}

std::int64_t CrossingCounter::countBelow(const Layered& graph, std::size_t layer) {
    ends_.clear();
    for (const int v : graph.layers[layer]) {
        const std::size_t first = ends_.size();
        for (const int w : graph.below[static_cast<std::size_t>(v)])
            ends_.push_back(graph.position[static_cast<std::size_t>(w)]);
        std::sort(ends_.begin() + static_cast<std::ptrdiff_t>(first), ends_.end());
    }
    return inversions_.count(ends_, graph.layers[layer + 1].size());
}

std::int64_t CrossingCounter::count(const Layered& graph) {
    std::int64_t crossings = 0;
    for (std::size_t layer = 0; layer + 1 < graph.layers.size(); ++layer)
        crossings += countBelow(graph, layer);
    return crossings;
}

}  // namespace quorel::diagram::layout
