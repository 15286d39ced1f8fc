#pragma once

#include <memory>

#include "platform/ui/control.h"
#include "platform/win32/ui/control_peer.h"

namespace quorel::win32 {

/// Makes the native window of a control inside its parent's, which must have one unless the control is a
/// form.
[[nodiscard]] std::unique_ptr<ControlPeer> makeControlPeer(const std::shared_ptr<Services>& services,
                                                           ui::Control& control);

}  // namespace quorel::win32
