#pragma once

#include <vector>

#include "diagram/layout/acyclic.h"
#include "diagram/layout/watch.h"

namespace quorel::diagram::layout {

/// The rank of every node, from 0, so that each edge leads at least one rank down and all together are as
/// short as they can be (network simplex). `edges` are free of cycles and loops and join all nodes; several
/// between one pair count each.
[[nodiscard]] std::vector<int> assignRanks(int nodes, const std::vector<Edge>& edges, Watch& watch);

}  // namespace quorel::diagram::layout
