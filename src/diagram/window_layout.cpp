#include "diagram/window_layout.h"

#include <algorithm>

namespace quorel::diagram {

namespace {

using ui::Rect;
using ui::Twips;
using namespace ui::literals;

constexpr Twips kMargin = 90_tw;
constexpr Twips kButton = 390_tw;
constexpr Twips kGap = 30_tw;
constexpr Twips kGroupGap = 180_tw;
constexpr Twips kLabelGap = 75_tw;
constexpr Twips kBoxPadding = 105_tw;
constexpr Twips kStatusPadding = 120_tw;
constexpr Twips kLeastFind = 1200_tw;
constexpr Twips kMostFind = 3600_tw;
constexpr Twips kLeastView = 3000_tw;

/// Buttons that belong together stand close.
[[nodiscard]] constexpr bool beginsGroup(std::size_t button) noexcept {
    return button == static_cast<std::size_t>(StandardButton::Find) ||
           button == static_cast<std::size_t>(StandardButton::Print);
}

/// Places the buttons and returns where they end.
Twips placeButtons(WindowLayout& layout) noexcept {
    Twips left = kMargin;
    for (std::size_t i = 0; i < kStandardButtons; ++i) {
        if (beginsGroup(i))
            left += kGroupGap - kGap;
        layout.buttons[i] = {left, kMargin, kButton, kButton};
        left += kButton + kGap;
    }
    return left - kGap;
}

[[nodiscard]] Twips besideFindBox(const WindowParts& parts) noexcept {
    return parts.findLabel + kLabelGap * 3 + parts.found + kButton * 2 + kGap + kMargin;
}

void placeFind(WindowLayout& layout, Twips left, Twips width, const WindowParts& parts) noexcept {
    const Twips room = width - left - besideFindBox(parts);
    const Twips boxHeight = parts.line + kBoxPadding;
    const Twips box = std::clamp(room, kLeastFind, kMostFind);
    const auto inRow = [](Twips height) { return kMargin + (kButton - height) / 2; };
    layout.findLabel = {left, inRow(parts.line), parts.findLabel, parts.line};
    layout.find = {layout.findLabel.right() + kLabelGap, inRow(boxHeight), box, boxHeight};
    layout.previous = {layout.find.right() + kLabelGap, kMargin, kButton, kButton};
    layout.next = {layout.previous.right() + kGap, kMargin, kButton, kButton};
    layout.found = {layout.next.right() + kLabelGap, inRow(parts.line), parts.found, parts.line};
}

}  // namespace

WindowLayout layoutWindow(ui::Size client, const WindowParts& parts) noexcept {
    WindowLayout layout{};
    Twips left = kMargin;
    if (parts.withButtons)
        left = placeButtons(layout) + kGroupGap;
    if (parts.withFind)
        placeFind(layout, left, client.width, parts);
    const Twips top = parts.withButtons || parts.withFind ? kMargin * 2 + kButton : 0_tw;
    const Twips status = parts.line + kStatusPadding;
    const Twips bottom = std::max(client.height - status, top);
    layout.view = {0_tw, top, client.width, bottom - top};
    layout.status = {0_tw, bottom, client.width, status};
    return layout;
}

ui::Size leastWindowSize(const WindowParts& parts) noexcept {
    WindowLayout layout{};
    const Twips left = placeButtons(layout) + kGroupGap;
    return {left + besideFindBox(parts) + kLeastFind,
            kMargin * 2 + kButton + kLeastView + parts.line + kStatusPadding};
}

}  // namespace quorel::diagram
