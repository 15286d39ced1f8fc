#include "dialogs/progress_layout.h"

#include <algorithm>

namespace quorel::dialogs {

namespace {

using ui::Rect;
using ui::Twips;
using namespace ui::literals;

constexpr Twips kProgressMargin = 180_tw;
constexpr Twips kBarGap = 105_tw;
constexpr Twips kBarHeight = 300_tw;
/// What a status line needs around its text.
constexpr Twips kStatusPadding = 120_tw;

Twips innerWidth(ui::Size client) noexcept {
    return std::max(client.width - kProgressMargin * 2, 0_tw);
}

}  // namespace

ProgressLayout layoutProgress(ui::Size client, Twips lineHeight, Twips percentageWidth) noexcept {
    const Twips width = innerWidth(client);
    const Twips barWidth = std::max(width - percentageWidth - kBarGap, 0_tw);
    const Rect title{kProgressMargin, kProgressMargin, width, lineHeight};
    const Rect bar{kProgressMargin, title.bottom() + kBarGap, barWidth, kBarHeight};
    const Rect percentage{bar.right() + kBarGap, bar.top + (kBarHeight - lineHeight) / 2, percentageWidth,
                          lineHeight};
    const Twips statusHeight = lineHeight + kStatusPadding;
    const Twips statusTop = std::max(client.height - statusHeight, bar.bottom() + kProgressMargin);
    return {title, bar, percentage, {0_tw, statusTop, client.width, statusHeight}};
}

Twips progressHeight(Twips lineHeight) noexcept {
    return kProgressMargin + lineHeight + kBarGap + kBarHeight + kProgressMargin + lineHeight +
           kStatusPadding;
}

ProgressBarLayout layoutProgressBar(ui::Size client, Twips lineHeight) noexcept {
    const Twips width = innerWidth(client);
    const Rect information{kProgressMargin, kProgressMargin, width, lineHeight};
    return {information, {kProgressMargin, information.bottom() + kBarGap, width, kBarHeight}};
}

Twips progressBarHeight(Twips lineHeight) noexcept {
    return kProgressMargin + lineHeight + kBarGap + kBarHeight + kProgressMargin;
}

}  // namespace quorel::dialogs
