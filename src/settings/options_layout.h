#pragma once

#include <span>

#include "platform/ui/desktop.h"
#include "platform/ui/units.h"

namespace quorel::settings {

/// What the layout of the options window is derived from.
struct OptionsMeasures {
    ui::Twips lineHeight;
    ui::Borders tabBorders;
    ui::Twips scrollBarWidth;
    ui::Size workArea;
};

/// Where the parts of the options window are. The page is in the tab strip's coordinates, the parts of the
/// row of buttons in the row's.
struct OptionsLayout {
    ui::Rect search, found, strip, buttons;
    ui::Rect page;  ///< of the page that is seen; one that is higher than that scrolls
    ui::Rect message, ok, cancel, apply;
    ui::Size client;
};

/// The left edge of the page that is seen, 210 twips from the window's, and of those that are not.
inline constexpr ui::Twips kStripLeft{120};
inline constexpr ui::Twips kPageLeft = ui::Twips{210} - kStripLeft;
inline constexpr ui::Twips kPageAway{-20'000};

/// The room of a column of edit controls: as much as two of them have on the screen.
[[nodiscard]] ui::Twips columnWidth(const OptionsMeasures& measures) noexcept;

/// `pages` are the sizes of what the pages hold. The tab strip is as large as its largest page needs, but no
/// higher than the screen allows; the row of buttons is below it. The strip's left edge is the margin on
/// every side of the window, and twice below.
[[nodiscard]] OptionsLayout layoutOptions(std::span<const ui::Size> pages, const OptionsMeasures& measures);

}  // namespace quorel::settings
