#include "dialogs/name_edit_layout.h"

#include <algorithm>

namespace quorel::dialogs {

namespace {

using ui::Rect;
using ui::Twips;
using namespace ui::literals;

constexpr Twips kMargin = 180_tw;
constexpr Twips kLabelGap = 75_tw;
constexpr Twips kButtonGap = 105_tw;
constexpr Twips kSectionGap = 225_tw;
constexpr Twips kButtonWidth = 1200_tw;
/// What a box or a button needs around a line of text.
constexpr Twips kPadding = 135_tw;

}  // namespace

ui::Twips questionWidth(ui::Twips clientWidth) noexcept {
    return std::max(clientWidth - kMargin * 2, 0_tw);
}

NameEditLayout layoutNameEdit(ui::Size client, ui::Twips lineHeight, std::int32_t questionLines) noexcept {
    const Twips width = questionWidth(client.width);
    const Twips controlHeight = lineHeight + kPadding;
    const Rect question{kMargin, kMargin, width, lineHeight * questionLines};
    const Rect box{kMargin, question.bottom() + kLabelGap, width, controlHeight};
    const Twips right = std::max(client.width - kMargin, kMargin + kButtonWidth * 2 + kButtonGap);
    const Twips top = std::max(client.height - kMargin - controlHeight, box.bottom() + kSectionGap);
    const Rect cancel{right - kButtonWidth, top, kButtonWidth, controlHeight};
    const Rect ok{cancel.left - kButtonGap - kButtonWidth, top, kButtonWidth, controlHeight};
    return {question, box, ok, cancel};
}

ui::Size leastNameEditSize(ui::Twips lineHeight, std::int32_t questionLines) noexcept {
    const Twips height = kMargin + lineHeight * questionLines + kLabelGap + (lineHeight + kPadding) +
                         kSectionGap + (lineHeight + kPadding) + kMargin;
    return {kMargin * 2 + kButtonWidth * 2 + kButtonGap, height};
}

}  // namespace quorel::dialogs
