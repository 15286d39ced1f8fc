#pragma once

#include "diagram/layout/layered.h"
#include "diagram/layout/watch.h"

namespace quorel::diagram::layout {

/// Orders every layer so that few segments cross.
void orderLayers(Layered& graph, Watch& watch);

}  // namespace quorel::diagram::layout
