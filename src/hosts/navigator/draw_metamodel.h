#pragma once

#include <string>

#include "frame/environment.h"
#include "platform/automation/object.h"

namespace quorel::hosts {

/// Draws the metamodel of `repository` as the diagram window does, without a window, into a file of the kind
/// that its extension names. Throws automation::Error when that fails; the file is then as it was. Answers
/// what is to be told the user.
[[nodiscard]] std::u16string drawMetamodel(const frame::Environment& environment,
                                           const automation::Object& repository,
                                           const std::u16string& output);

}  // namespace quorel::hosts
