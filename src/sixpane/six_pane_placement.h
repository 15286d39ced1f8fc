#pragma once

#include <optional>

#include "frame/window_placement.h"
#include "platform/shell/settings_store.h"
#include "sixpane/six_pane_layout.h"

namespace quorel::sixpane {

/// Where the user left the window.
struct Placement {
    frame::WindowPlacement window;
    Splits splits;
    friend constexpr bool operator==(const Placement&, const Placement&) = default;
};

/// What was written last; empty when nothing was, or when it makes no sense. Throws what the store throws.
[[nodiscard]] std::optional<Placement> readPlacement(shell::SettingsStore& settings);
void writePlacement(shell::SettingsStore& settings, const Placement& placement);

}  // namespace quorel::sixpane
