#pragma once

#include <cstddef>

#include "diagram/diagram_model.h"
#include "diagram/diagram_sizes.h"
#include "diagram/layout/layout.h"
#include "platform/ui/units.h"

namespace quorel::diagram {

/// What is left free around an arranged diagram.
inline constexpr ui::Twips kDrawingMargin{480};

/// Fits the sizes, then arranges all boxes from top to bottom, the first at (margin, margin), and leads the
/// connections along. False if `progress` cancelled: then sizes are fitted and places are as they were.
bool arrangeDiagram(DiagramModel& model, const Measure& measure, const layout::Progress& progress = {});

/// For boxes that stay where they are: fits the sizes and leads every connection straight from box to box,
/// its label on it.
void connectStraight(DiagramModel& model, const Measure& measure);

}  // namespace quorel::diagram
