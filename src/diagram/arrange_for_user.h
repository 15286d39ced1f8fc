#pragma once

#include "diagram/diagram_arrange.h"
#include "frame/environment.h"

namespace quorel::diagram {

/// Arranges all boxes from top to bottom, as `arrangeDiagram` does. When that takes longer than a moment, a
/// window shows how far it is, and the cancel key, if there is one, cancels it. False if it was cancelled:
/// then the boxes stand in rows.
[[nodiscard]] bool arrangeForUser(const frame::Environment& environment, DiagramModel& model,
                                  const Measure& measure);

/// Boxes in rows about as wide as all are high, in the diagram's order of heights, and straight connections.
void arrangeInRows(DiagramModel& model, const Measure& measure);

}  // namespace quorel::diagram
