#pragma once

#include <cstdint>
#include <vector>

#include "diagram/layout/layered.h"
#include "diagram/layout/watch.h"

namespace quorel::diagram::layout {

/// Improves an order one node at a time: each goes to the best place in its layer within `reach` places while
/// all others keep their order, so that crossings never get more.
class Sifting {
  public:
    explicit Sifting(Layered& graph) : graph_(graph) {}

    /// Sifts every node once. Returns how many crossings fewer there are. `done` of `total` is told to the
    /// watch.
    std::int64_t round(int reach, Watch& watch, std::size_t done, std::size_t total);

  private:
    std::int64_t siftLayer(std::size_t layer, int reach, Watch& watch, std::size_t done, std::size_t total);
    void readEnds(std::size_t layer);
    [[nodiscard]] int changeByPassing(int left, int right) const;
    std::int64_t sift(std::vector<int>& order, std::size_t place, int reach);

    Layered& graph_;
    std::vector<int> ends_;  ///< sorted positions of a node's neighbours: above, then below
    struct Ends {
        int first = 0, middle = 0, last = 0;
    };
    std::vector<Ends> endsOf_;
    std::size_t work_ = 0;
};

}  // namespace quorel::diagram::layout
