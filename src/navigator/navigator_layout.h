#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "platform/ui/units.h"

namespace quorel::navigator {

/// New, Open, Import, Sample.
inline constexpr std::size_t kWelcomeButtons = 4;

/// Where everything on the welcome page is, in twips of the page.
struct WelcomeLayout {
    ui::Rect title, hint;
    std::array<ui::Rect, kWelcomeButtons> buttons;
    ui::Rect recentCaption, recent;
};

/// The title above all, the buttons below each other at the left, the recent files beside them.
/// `titleHeight` is that of the title's line.
[[nodiscard]] WelcomeLayout layoutWelcome(ui::Size page, ui::Twips lineHeight,
                                          ui::Twips titleHeight) noexcept;

/// Where everything is while a repository is open.
struct ModelLayout {
    ui::Rect typesCaption, types, splitter, instancesCaption, instances;
};

/// The share of the types where the user has not moved the splitter, in ten-thousandths of the room.
inline constexpr std::int32_t kFirstShare = 3500;

/// The types at the left, the instances at the right. Neither gets smaller than can be used while the window
/// has its least size.
[[nodiscard]] ModelLayout layoutModel(ui::Size page, ui::Twips lineHeight, std::int32_t share) noexcept;
/// The share after the splitter was dragged so that its left edge is at `left`.
[[nodiscard]] std::int32_t shareAt(ui::Size page, ui::Twips left) noexcept;

/// The page over the status line, and that line.
struct WindowLayout {
    ui::Rect page, statusBar;
};
[[nodiscard]] WindowLayout layoutWindow(ui::Size client, ui::Twips lineHeight) noexcept;
[[nodiscard]] ui::Size leastNavigatorSize(ui::Twips lineHeight) noexcept;

}  // namespace quorel::navigator
