#pragma once

#include "diagram/layout/layered.h"
#include "diagram/layout/layout.h"
#include "diagram/layout/watch.h"

namespace quorel::diagram::layout {

/// A part of the diagram that no connection joins to the rest, by numbers in the diagram.
struct Component {
    std::vector<int> boxes, connections;
};

/// The components, each with what belongs to it in the diagram's order, in the order of their first boxes.
[[nodiscard]] std::vector<Component> splitIntoComponents(const Diagram& diagram);

/// Places for rectangles of these sizes, `gap` apart, in rows about as wide as all are high; returns the
/// whole extent.
Extent pack(const std::vector<Extent>& sizes, Length gap, std::vector<Place>& places);

/// Arranges one component, its corner at 0, 0; writes only what belongs to it and returns its size.
Extent arrangeComponent(const Diagram& diagram, const Component& component, const Gaps& gaps, Watch& watch,
                        int from, int to, Arrangement& result);

}  // namespace quorel::diagram::layout
