#pragma once

#include "platform/controls/hierarchy_tree_view.h"

namespace quorel::explorer {

/// Answers what a hierarchy asks about a node or a link:
///
/// - `Text`: a node's `Name`; without one its `Text`, the first of its `Properties` that `GetProperty` has a
///   value of, or its `Identifier`. Of a link its `Name`; without one the same of the node at its far end.
/// - `Type`: the `Name` of its `Parent`.
/// - `Search`: what its `Search` says; nothing where it has no such member.
/// - `Identity`: its `Identifier`.
///
/// Throws what the repository throws.
void answerRequest(controls::DataRequest& request);

}  // namespace quorel::explorer
