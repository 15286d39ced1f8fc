#pragma once

#include <string>
#include <string_view>

#include "platform/automation/object.h"

/// Changes to a repository that windows share. Each throws what the repository throws.
namespace quorel::frame {

/// False if the node has links, or the repository keeps it.
[[nodiscard]] bool removeNode(const automation::Object& node);

/// Takes the link out of both its ends and out of its type. The ends are its source and target, exchanged if
/// it is not `outgoing`.
void removeLink(const automation::Object& repository, const std::u16string& metaLinkName, bool outgoing,
                const std::u16string& identifier);

/// "source->target", by names or, if one cannot be read, by identifiers.
[[nodiscard]] std::u16string proposedLinkName(const automation::Object& source,
                                              const automation::Object& target);

}  // namespace quorel::frame
