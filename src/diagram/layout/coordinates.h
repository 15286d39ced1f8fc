#pragma once

#include <vector>

#include "diagram/layout/layered.h"
#include "diagram/layout/layout.h"
#include "diagram/layout/watch.h"

namespace quorel::diagram::layout {

/// What a node needs on its layer to the left and to the right of the line through it.
struct Reach {
    Length left = 0, right = 0;
};

/// The x of every node (of the line through it), so that neighbours on a layer keep their reaches apart, long
/// lines are straight as far as they can be and nodes stand near the middle of their neighbours. By Brandes
/// and Köpf: four arrangements, each pushed to one corner, and of the four the mean of the two in the middle.
/// Blocks are placed by longest ways instead of classes of blocks.
[[nodiscard]] std::vector<Length> assignCoordinates(const Layered& graph, const std::vector<Reach>& reaches,
                                                    Watch& watch);

}  // namespace quorel::diagram::layout
