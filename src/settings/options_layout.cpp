#include "settings/options_layout.h"

#include <algorithm>

namespace quorel::settings {

namespace {

using ui::Rect;
using ui::Size;
using ui::Twips;
using namespace ui::literals;

constexpr Twips kMargin = kStripLeft;
constexpr Twips kPageMargin = 30_tw;
constexpr Twips kGap = 90_tw;
constexpr Twips kPadding = 120_tw;
constexpr Twips kButtonPadding = 150_tw;
constexpr Twips kButtonWidth = 1200_tw;
constexpr Twips kButtonGap = 105_tw;
constexpr Twips kFoundWidth = 1200_tw;
constexpr Twips kSearchWidth = 3300_tw;
constexpr Twips kFirstColumn = 5400_tw;
constexpr Twips kLeastColumn = 3000_tw;
/// What the window's frame and caption take, at most.
constexpr Size kFrame{240_tw, 750_tw};
/// The page that is there by design.
constexpr Size kLeastPage{5280_tw, 1800_tw};

}  // namespace

Twips columnWidth(const OptionsMeasures& measures) noexcept {
    const Twips taken = kFrame.width + kMargin * 2 + kPageLeft * 4 + measures.scrollBarWidth;
    return std::clamp((measures.workArea.width - taken) / 2, kLeastColumn, kFirstColumn);
}

OptionsLayout layoutOptions(std::span<const Size> pages, const OptionsMeasures& measures) {
    OptionsLayout layout;
    const ui::Borders& borders = measures.tabBorders;
    const Twips boxHeight = measures.lineHeight + kPadding;
    const Twips buttonHeight = measures.lineHeight + kButtonPadding;
    const Twips stripTop = kMargin + boxHeight + kGap;
    const Twips pageTop = borders.top + kPageMargin;
    const Twips aroundPage = pageTop + kPageMargin + borders.bottom;
    const Twips besidesPage = stripTop + aroundPage + kMargin * 3 + buttonHeight + kFrame.height;
    const Twips highest = std::max(measures.workArea.height - besidesPage, kLeastPage.height);

    Size largest = kLeastPage;
    for (const Size& page : pages) {
        const Twips bar = page.height > highest ? measures.scrollBarWidth : 0_tw;
        largest = {std::max(largest.width, page.width + bar),
                   std::max(largest.height, std::min(page.height, highest))};
    }
    layout.page = {kPageLeft, pageTop, largest.width, largest.height};
    const Twips width = kPageLeft + largest.width + (kPageLeft - borders.left) + borders.right;
    layout.strip = {kMargin, stripTop, width, largest.height + aroundPage};
    layout.search = {kMargin, kMargin, kSearchWidth, boxHeight};
    layout.found = {layout.search.right() + kGap, kMargin + kPadding / 2, kFoundWidth, measures.lineHeight};
    layout.buttons = {kMargin, layout.strip.bottom() + kMargin, width, buttonHeight};
    layout.apply = {width - kButtonWidth, 0_tw, kButtonWidth, buttonHeight};
    layout.cancel = {layout.apply.left - kButtonGap - kButtonWidth, 0_tw, kButtonWidth, buttonHeight};
    layout.ok = {layout.cancel.left - kButtonGap - kButtonWidth, 0_tw, kButtonWidth, buttonHeight};
    layout.message = {0_tw, 0_tw, layout.ok.left - kGap, buttonHeight};
    layout.client = {kMargin * 2 + width, layout.buttons.bottom() + kMargin * 2};
    return layout;
}

}  // namespace quorel::settings
