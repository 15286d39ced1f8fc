#include "dialogs/progress_layout.h"

#include <algorithm>

namespace quorel::dialogs {

namespace {

using ui::Rect;
using ui::Twips;
using namespace ui::literals;

constexpr Twips kMargin = 180_tw;
constexpr Twips kGap = 105_tw;
constexpr Twips kBarHeight = 300_tw;
/// What a status line needs around its text.
constexpr Twips kStatusPadding = 120_tw;

Twips innerWidth(ui::Size client) noexcept {
    return std::max(client.width - kMargin * 2, 0_tw);
}

}  // namespace

ProgressLayout layoutProgress(ui::Size client, Twips lineHeight, Twips percentageWidth) noexcept {
    const Twips width = innerWidth(client);
    const Twips barWidth = std::max(width - percentageWidth - kGap, 0_tw);
    const Rect title{kMargin, kMargin, width, lineHeight};
    const Rect bar{kMargin, title.bottom() + kGap, barWidth, kBarHeight};
    const Rect percentage{bar.right() + kGap, bar.top + (kBarHeight - lineHeight) / 2, percentageWidth,
                          lineHeight};
    const Twips statusHeight = lineHeight + kStatusPadding;
    const Twips statusTop = std::max(client.height - statusHeight, bar.bottom() + kMargin);
    return {title, bar, percentage, {0_tw, statusTop, client.width, statusHeight}};
}

Twips progressHeight(Twips lineHeight) noexcept {
    return kMargin + lineHeight + kGap + kBarHeight + kMargin + lineHeight + kStatusPadding;
}

ProgressBarLayout layoutProgressBar(ui::Size client, Twips lineHeight) noexcept {
    const Twips width = innerWidth(client);
    const Rect information{kMargin, kMargin, width, lineHeight};
    return {information, {kMargin, information.bottom() + kGap, width, kBarHeight}};
}

Twips progressBarHeight(Twips lineHeight) noexcept {
    return kMargin + lineHeight + kGap + kBarHeight + kMargin;
}

}  // namespace quorel::dialogs
