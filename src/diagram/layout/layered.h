#pragma once

#include <vector>

#include "diagram/layout/acyclic.h"
#include "diagram/layout/adjacency.h"

namespace quorel::diagram::layout {

/// A graph cut into ranks: an edge over several ranks is a chain of nodes of its own, one on each rank
/// between its ends, so that every segment joins neighbouring ranks. Nodes from 0 to `boxes` - 1 are the
/// boxes.
struct Layered {
    /// The nodes of an edge's chain, from top to bottom: `count` numbers from `first` on.
    struct Chain {
        int first = 0, count = 0;
    };

    /// `edges` lead downwards by `rank`.
    Layered(std::vector<int> ranks, const std::vector<Edge>& edges);

    [[nodiscard]] int nodes() const { return static_cast<int>(rank.size()); }
    [[nodiscard]] bool isBox(int node) const { return node < boxes; }

    int boxes = 0;
    std::vector<int> rank;
    std::vector<Chain> chains;             ///< of every edge
    std::vector<Edge> segments;            ///< `from` on one rank, `to` on the next
    Adjacency above, below;                ///< the nodes at the other ends of a node's segments
    std::vector<std::vector<int>> layers;  ///< the nodes of every rank, from left to right
    std::vector<int> position;             ///< of a node in its layer

    /// Takes over `order` as the layer's, and the positions from it.
    void place(std::size_t layer, std::vector<int> order);
    void renumber(std::size_t layer);
};

}  // namespace quorel::diagram::layout
