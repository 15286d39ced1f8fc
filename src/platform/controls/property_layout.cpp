#include "platform/controls/property_layout.h"

#include <algorithm>

namespace quorel::controls {

using ui::Rect;
using ui::Twips;
using namespace ui::literals;

namespace {

constexpr Twips kPartGap = 60_tw;
/// What a box needs around a line of text.
constexpr Twips kSearchPadding = 105_tw;
constexpr std::int32_t kDescriptionLines = 3;
/// As many rows stay visible before the description gets any room.
constexpr std::int32_t kLeastRows = 4;
/// More lines are scrolled: nobody has a screen for them.
constexpr std::int32_t kMostRows = 60;
constexpr Twips kRowPadding = 60_tw;
constexpr Twips kHeaderPadding = 165_tw;
constexpr Twips kButtonWidth = 375_tw;
/// Brings the description under the text of the list.
constexpr Twips kDescriptionInset = 90_tw;

[[nodiscard]] Twips positive(Twips length) {
    return std::max(length, 0_tw);
}

}  // namespace

PropertyLayout layoutProperty(ui::Size size, ui::Twips lineHeight) noexcept {
    const Twips width = positive(size.width);
    const Twips height = positive(size.height);
    const Twips searchHeight = std::min(lineHeight + kSearchPadding, height);
    const Twips listTop = std::min(searchHeight + kPartGap, height);
    const Twips wanted = kPartGap + lineHeight * (1 + kDescriptionLines);
    const Twips spare = positive(height - listTop - lineHeight * kLeastRows - kPartGap);
    const Twips below = spare < kPartGap + lineHeight * 2 ? 0_tw : std::min(wanted, spare);
    const Rect list{0_tw, listTop, width, height - listTop - below};
    const Twips titleTop = list.bottom() + std::min(kPartGap, below);
    const Twips titleHeight = below == 0_tw ? 0_tw : lineHeight;
    const Twips inset = std::min(kDescriptionInset, width / 2);
    const Rect title{inset, titleTop, width - inset * 2, titleHeight};
    return {{0_tw, 0_tw, width, searchHeight},
            list,
            title,
            {inset, title.bottom(), title.width, positive(height - title.bottom())}};
}

Twips neededPropertyHeight(std::size_t lines, Twips lineHeight) noexcept {
    const auto rows = static_cast<std::int32_t>(std::clamp<std::size_t>(lines, kLeastRows, kMostRows));
    const Twips list = (lineHeight + kRowPadding) * rows + lineHeight + kHeaderPadding;
    return lineHeight + kSearchPadding + kPartGap + list + kPartGap + lineHeight * (1 + kDescriptionLines);
}

EditorLayout layoutEditor(const ui::Rect& cell, const ui::Rect& list, ui::Twips lineHeight,
                          EditorWants wants) noexcept {
    const Twips left = std::clamp(cell.left, list.left, list.right());
    const Twips right = std::clamp(cell.right(), left, list.right());
    const Twips height = std::min(std::max(cell.height, lineHeight * wants.lines), list.height);
    const Twips top = std::clamp(cell.top, list.top, list.bottom() - height);
    const Twips button = wants.button ? std::min(kButtonWidth, right - left) : 0_tw;
    const Rect box{left, top, right - left - button, height};
    const Twips messageHeight = wants.messageLines > 0 ? lineHeight * wants.messageLines + kPartGap : 0_tw;
    const bool below = box.bottom() + messageHeight <= list.bottom();
    const Twips messageTop = below ? box.bottom() : std::max(box.top - messageHeight, list.top);
    return {box,
            {box.right(), top, button, std::min(height, std::max(cell.height, lineHeight))},
            {left, messageTop, right - left, messageHeight}};
}

}  // namespace quorel::controls
