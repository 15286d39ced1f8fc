#pragma once

#include <cstdint>
#include <vector>

#include "diagram/layout/layered.h"

namespace quorel::diagram::layout {

/// Counts pairs that stand the wrong way round, in O(n log m) for n numbers below m (an accumulator tree, by
/// Barth, Jünger and Mutzel).
class InversionCounter {
  public:
    /// The pairs of `numbers` of which the greater comes first. All are in [0, `limit`).
    [[nodiscard]] std::int64_t count(const std::vector<int>& numbers, std::size_t limit);

  private:
    std::vector<int> tree_;
};

/// Counts the crossings of the segments below a layer.
class CrossingCounter {
  public:
    [[nodiscard]] std::int64_t countBelow(const Layered& graph, std::size_t layer);
    [[nodiscard]] std::int64_t count(const Layered& graph);

  private:
    InversionCounter inversions_;
    std::vector<int> ends_;
};

}  // namespace quorel::diagram::layout
