#pragma once

#include <vector>

#include "diagram/layout/layered.h"
#include "diagram/layout/layout.h"

namespace quorel::diagram::layout {

/// The space that a layer takes: everything on it lies between its edges.
struct Band {
    Length top = 0, bottom = 0;
};

/// A box where it stands.
struct Placed {
    Length left = 0, top = 0, right = 0, bottom = 0;
};

/// The way of every edge from its upper box to its lower one: down from a box and along its chain in vertical
/// lines as far as the layers go, straight in the gaps between layers. So it meets no box, and in a gap two
/// lines cross once or never.
[[nodiscard]] std::vector<std::vector<Place>> routeEdges(const Layered& graph, const std::vector<Edge>& edges,
                                                         const std::vector<Length>& x,
                                                         const std::vector<Band>& bands,
                                                         const std::vector<Placed>& boxes, Length gap);

}  // namespace quorel::diagram::layout
