#pragma once

#include <windows.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/ui/menu.h"
#include "platform/win32/ui/live_counts.h"

namespace quorel::win32 {

/// The way to an entry: the index at each level. Survives the destruction of what it leads to.
using MenuPath = std::vector<std::size_t>;

/// A native menu made of portable entries; command n (from kFirstCommand) chooses the entry at `commands[n]`.
struct NativeMenu {
    CountedMenu handle;
    std::vector<MenuPath> commands;
};

inline constexpr UINT kFirstCommand = 0x100;

/// What stands right of a caption, e.g. "Ctrl+C"; empty for no shortcut.
[[nodiscard]] std::u16string shortcutText(ui::KeyChord chord);

/// `bar` makes a menu bar, else a popup. Separators without visible neighbours are left out. An empty handle
/// when no entry is visible.
[[nodiscard]] NativeMenu buildMenu(const ui::MenuItem& root, bool bar);

/// The entry there now; null when there is none.
[[nodiscard]] ui::MenuItem* resolve(const ui::MenuItem& root, const MenuPath& path) noexcept;

/// The entry that `command` chooses; empty when it is none of the menu's.
[[nodiscard]] std::optional<MenuPath> commandPath(const NativeMenu& menu, UINT command);

/// Opens the entries below `menu` at a point of the screen and waits for the user.
[[nodiscard]] std::optional<MenuPath> trackMenu(const ui::MenuItem& menu, HWND owner, POINT at);

}  // namespace quorel::win32
