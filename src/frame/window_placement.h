#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

#include "platform/shell/settings_store.h"
#include "platform/ui/form.h"
#include "platform/ui/units.h"

namespace quorel::frame {

/// Where the user left a window.
struct WindowPlacement {
    std::optional<ui::Point> position{};  ///< empty while it stands where the platform has put it
    ui::Size size{};                      ///< of the client area; like the position, when not maximized
    bool maximized = false;
    friend constexpr bool operator==(const WindowPlacement&, const WindowPlacement&) = default;
};

/// The place of a splitter, in ten-thousandths of the room there is, and the key it is kept under.
struct KeptShare {
    std::u16string_view key;
    std::int32_t* value;
};

/// What was written last under the window's name; empty when nothing was, or when it makes no sense: then the
/// shares are as they were. Throws what the store throws.
[[nodiscard]] std::optional<WindowPlacement> readWindowPlacement(shell::SettingsStore& settings,
                                                                 std::u16string_view window,
                                                                 std::span<const KeptShare> shares);
void writeWindowPlacement(shell::SettingsStore& settings, std::u16string_view window,
                          const WindowPlacement& placement, std::span<const KeptShare> shares);

/// The window moved and, if need be, made smaller until it is inside the work area.
[[nodiscard]] ui::Rect fitInto(const ui::Rect& workArea, ui::Rect window) noexcept;

/// Puts the window where it was left, as far as that is on the screen.
void place(ui::Form& window, const WindowPlacement& placement);
/// Where it is now. `former` is what is known of a maximized window, which goes back to that.
[[nodiscard]] WindowPlacement placementOf(const ui::Form& window, const WindowPlacement& former);

}  // namespace quorel::frame
