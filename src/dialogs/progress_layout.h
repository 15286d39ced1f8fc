#pragma once

#include "platform/ui/units.h"

namespace quorel::dialogs {

/// Where the controls of the progress window are, in twips of its client area.
struct ProgressLayout {
    ui::Rect title, bar, percentage, status;
};

/// The title over the bar with its percentage at the right, the status line along the bottom. `lineHeight` is
/// that of the windows' font, `percentageWidth` what the longest percentage needs.
[[nodiscard]] ProgressLayout layoutProgress(ui::Size client, ui::Twips lineHeight,
                                            ui::Twips percentageWidth) noexcept;

/// The height that `layoutProgress` fills exactly.
[[nodiscard]] ui::Twips progressHeight(ui::Twips lineHeight) noexcept;

/// Where the controls of the bare progress window are: the line of information over the bar.
struct ProgressBarLayout {
    ui::Rect information, bar;
};

[[nodiscard]] ProgressBarLayout layoutProgressBar(ui::Size client, ui::Twips lineHeight) noexcept;

/// The height that `layoutProgressBar` fills exactly.
[[nodiscard]] ui::Twips progressBarHeight(ui::Twips lineHeight) noexcept;

}  // namespace quorel::dialogs
