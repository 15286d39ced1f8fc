#pragma once

#include <string>

#include "platform/automation/object.h"

namespace quorel::frame {

/// What a named component's form was told by `Create`: under which name the host's session knows it.
struct ComponentRegistration {
    std::u16string ComponentName;
    automation::Object session;

    /// Takes the component out of the session's component manager: its public object (`ComObject`) is told to
    /// `Deinit` and `Destroy`, then the manager is told to remove the name. Steps that fail are skipped and
    /// nothing is reported, for the window is ending and the host may be too. The host may come back and
    /// destroy the component meanwhile.
    void endRegistration() const noexcept;
};

}  // namespace quorel::frame
