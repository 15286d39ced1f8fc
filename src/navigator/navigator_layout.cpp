#include "navigator/navigator_layout.h"

#include <algorithm>

namespace quorel::navigator {

namespace {

using ui::Rect;
using ui::Size;
using ui::Twips;
using namespace ui::literals;

constexpr Twips kPageMargin = 300_tw;
constexpr Twips kListMargin = 90_tw;
constexpr Twips kSplitterWidth = 75_tw;
constexpr Twips kLinePadding = 45_tw;
constexpr Twips kButtonPadding = 180_tw;
constexpr Twips kButtonWidth = 2700_tw;
constexpr Twips kGap = 120_tw;
constexpr Twips kStatusLinePadding = 120_tw;
constexpr Twips kLeastListWidth = 1800_tw;
constexpr Twips kLeastListHeight = 1500_tw;
constexpr std::int32_t kAll = 10000;

[[nodiscard]] Twips roomOf(Size page) noexcept {
    return std::max(page.width - kListMargin * 2 - kSplitterWidth, 0_tw);
}

[[nodiscard]] Rect notNegative(Rect r) noexcept {
    r.width = std::max(r.width, 0_tw);
    r.height = std::max(r.height, 0_tw);
    return r;
}

}  // namespace

WelcomeLayout layoutWelcome(Size page, Twips lineHeight, Twips titleHeight) noexcept {
    WelcomeLayout layout;
    const Twips line = lineHeight + kLinePadding;
    const Twips width = page.width - kPageMargin * 2;
    layout.title = notNegative({kPageMargin, kPageMargin, width, titleHeight + kLinePadding});
    layout.hint = notNegative({kPageMargin, layout.title.bottom(), width, line});
    const Twips top = layout.hint.bottom() + kPageMargin;
    const Twips buttonHeight = lineHeight + kButtonPadding;
    for (std::size_t i = 0; i < kWelcomeButtons; ++i)
        layout.buttons[i] = {kPageMargin, top + (buttonHeight + kGap) * static_cast<std::int32_t>(i),
                             kButtonWidth, buttonHeight};
    const Twips left = kPageMargin + kButtonWidth + kPageMargin;
    layout.recentCaption = notNegative({left, top, page.width - kPageMargin - left, line});
    const Twips listTop = layout.recentCaption.bottom();
    layout.recent =
        notNegative({left, listTop, layout.recentCaption.width, page.height - kPageMargin - listTop});
    return layout;
}

ModelLayout layoutModel(Size page, Twips lineHeight, std::int32_t share) noexcept {
    const Twips room = roomOf(page);
    Twips types{static_cast<std::int32_t>(static_cast<std::int64_t>(room.value) * share / kAll)};
    types =
        room < kLeastListWidth * 2 ? room / 2 : std::clamp(types, kLeastListWidth, room - kLeastListWidth);
    const Twips caption = std::min(lineHeight + kLinePadding, page.height);
    const Twips top = std::min(kListMargin, page.height - caption);
    const Twips height = std::max(page.height - top - caption, 0_tw);
    ModelLayout layout;
    layout.typesCaption = {kListMargin, top, types, caption};
    layout.types = {kListMargin, top + caption, types, height};
    layout.splitter = {kListMargin + types, top + caption, kSplitterWidth, height};
    const Twips left = layout.splitter.right();
    layout.instancesCaption = {left, top, room - types, caption};
    layout.instances = {left, top + caption, room - types, height};
    return layout;
}

std::int32_t shareAt(Size page, Twips left) noexcept {
    const Twips room = roomOf(page);
    if (room <= 0_tw)
        return kFirstShare;
    // Rounded up, so that the layout gives back the place.
    const std::int64_t scaled = static_cast<std::int64_t>((left - kListMargin).value) * kAll;
    return static_cast<std::int32_t>(
        std::clamp<std::int64_t>((scaled + room.value - 1) / room.value, 0, kAll));
}

WindowLayout layoutWindow(Size client, Twips lineHeight) noexcept {
    const Twips status = std::min(lineHeight + kStatusLinePadding, client.height);
    return {{0_tw, 0_tw, client.width, client.height - status},
            {0_tw, client.height - status, client.width, status}};
}

Size leastNavigatorSize(Twips lineHeight) noexcept {
    const Twips buttons = (lineHeight + kButtonPadding + kGap) * static_cast<std::int32_t>(kWelcomeButtons);
    return {kPageMargin * 3 + kButtonWidth + kLeastListWidth * 2,
            std::max(buttons, kLeastListHeight) + kPageMargin * 3 + lineHeight * 5 + kStatusLinePadding};
}

}  // namespace quorel::navigator
