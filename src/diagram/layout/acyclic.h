#pragma once

#include <cstdint>
#include <vector>

namespace quorel::diagram::layout {

/// A directed edge between nodes that are numbered from 0.
struct Edge {
    int from = 0, to = 0;
};

/// For every edge whether it is to be turned round, so that no cycle is left. `edges` has no loops. Few are
/// turned, by the rule of Eades, Lin and Smyth, in time linear in nodes and edges.
[[nodiscard]] std::vector<bool> edgesToReverse(int nodes, const std::vector<Edge>& edges);

/// The same by a walk in depth in the order of the numbers, which turns the edges that close a cycle on its
/// way. It turns more but keeps to the order in which the diagram was given.
[[nodiscard]] std::vector<bool> edgesToReverseInDepth(int nodes, const std::vector<Edge>& edges);

}  // namespace quorel::diagram::layout
