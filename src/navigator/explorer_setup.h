#pragma once

#include "platform/automation/object.h"

namespace quorel::navigator {

/// Describes an explorer for any metamodel: an entry for each meta node, below it its nodes, below each the
/// meta links that leave its type with the nodes at their other ends. Panes: a list of all nodes for a meta
/// node; for a node its properties, and a tab for each meta link that leaves or enters its type; the links
/// for a meta link. `explorer` is a "QuorelUtility.Explorer" after `Init`; the meta level's own types are
/// left out.
void describeExplorer(const automation::Object& explorer, const automation::Object& repository);

}  // namespace quorel::navigator
