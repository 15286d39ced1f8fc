#pragma once

#include <optional>

#include "platform/shell/settings_store.h"
#include "platform/ui/units.h"
#include "sixpane/six_pane_layout.h"

namespace quorel::sixpane {

/// Where the user left the window.
struct Placement {
    std::optional<ui::Point> position;  ///< empty while the window stands where the platform has put it
    ui::Size size;                      ///< of the client area; like the position, when not maximized
    bool maximized = false;
    Splits splits;
    friend constexpr bool operator==(const Placement&, const Placement&) = default;
};

/// What was written last; empty when nothing was, or when it makes no sense. Throws what the store throws.
[[nodiscard]] std::optional<Placement> readPlacement(shell::SettingsStore& settings);
void writePlacement(shell::SettingsStore& settings, const Placement& placement);

/// The window moved and, if need be, made smaller until it is inside the work area.
[[nodiscard]] ui::Rect fitInto(const ui::Rect& workArea, ui::Rect window) noexcept;

}  // namespace quorel::sixpane
