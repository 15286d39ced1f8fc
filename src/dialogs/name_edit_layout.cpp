#include "dialogs/name_edit_layout.h"

#include <algorithm>

#include "dialogs/dialog_buttons.h"

namespace quorel::dialogs {

namespace {

using ui::Rect;
using ui::Twips;
using namespace ui::literals;

constexpr Twips kQuestionMargin = 180_tw;
constexpr Twips kBoxGap = 75_tw;
constexpr Twips kSectionGap = 225_tw;

}  // namespace

ui::Twips questionWidth(ui::Twips clientWidth) noexcept {
    return std::max(clientWidth - kQuestionMargin * 2, 0_tw);
}

NameEditLayout layoutNameEdit(ui::Size client, ui::Twips lineHeight, std::int32_t questionLines) noexcept {
    const Twips width = questionWidth(client.width);
    const Twips controlHeight = lineHeight + kPadding;
    const Rect question{kQuestionMargin, kQuestionMargin, width, lineHeight * questionLines};
    const Rect box{kQuestionMargin, question.bottom() + kBoxGap, width, controlHeight};
    const Twips right =
        std::max(client.width - kQuestionMargin, kQuestionMargin + kButtonWidth * 2 + kButtonGap);
    const Twips top = std::max(client.height - kQuestionMargin - controlHeight, box.bottom() + kSectionGap);
    const Rect cancel{right - kButtonWidth, top, kButtonWidth, controlHeight};
    const Rect ok{cancel.left - kButtonGap - kButtonWidth, top, kButtonWidth, controlHeight};
    return {question, box, ok, cancel};
}

ui::Size leastNameEditSize(ui::Twips lineHeight, std::int32_t questionLines) noexcept {
    const Twips height = kQuestionMargin + lineHeight * questionLines + kBoxGap + (lineHeight + kPadding) +
                         kSectionGap + (lineHeight + kPadding) + kQuestionMargin;
    return {kQuestionMargin * 2 + kButtonWidth * 2 + kButtonGap, height};
}

}  // namespace quorel::dialogs
