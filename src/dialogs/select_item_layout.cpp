#include "dialogs/select_item_layout.h"

#include <algorithm>

#include "dialogs/dialog_buttons.h"

namespace quorel::dialogs {

namespace {

using ui::Rect;
using ui::Size;
using ui::Twips;
using namespace ui::literals;

constexpr Twips kMargin = 120_tw;
constexpr Twips kLabelGap = 75_tw;
constexpr Twips kCountWidth = 1500_tw;
constexpr std::int32_t kLeastLines = 6;

[[nodiscard]] Twips leastWidth(bool withChecks) noexcept {
    return kMargin * 2 + (kButtonWidth + kButtonGap) * (withChecks ? 4 : 2) + kCountWidth;
}

}  // namespace

Twips statementWidth(Twips clientWidth) noexcept {
    return std::max(clientWidth - kMargin * 2, 0_tw);
}

SelectItemLayout layoutSelectItem(Size client, Twips lineHeight, Twips statementHeight,
                                  bool withChecks) noexcept {
    const Twips width = statementWidth(client.width);
    const Twips buttonHeight = lineHeight + kPadding;
    const Rect statement{kMargin, kMargin, width, statementHeight};
    const Twips top =
        std::max(client.height - kMargin - buttonHeight, statement.bottom() + kLabelGap + kMargin);
    const Twips listTop = statement.bottom() + kLabelGap;
    const Rect list{kMargin, listTop, width, std::max(top - kMargin - listTop, 0_tw)};
    const Twips right = std::max(client.width, leastWidth(withChecks)) - kMargin;
    const Rect cancel{right - kButtonWidth, top, kButtonWidth, buttonHeight};
    const Rect ok{cancel.left - kButtonGap - kButtonWidth, top, kButtonWidth, buttonHeight};
    const Twips checks = withChecks ? kButtonWidth : 0_tw;
    const Rect checkAll{kMargin, top, checks, buttonHeight};
    const Rect checkNone{checkAll.right() + (withChecks ? kButtonGap : 0_tw), top, checks, buttonHeight};
    const Twips countLeft = checkNone.right() + (withChecks ? kButtonGap : 0_tw);
    const Rect count{countLeft, top + (buttonHeight - lineHeight) / 2, ok.left - kButtonGap - countLeft,
                     lineHeight};
    return {statement, list, checkAll, checkNone, count, ok, cancel};
}

Size leastSelectItemSize(Twips lineHeight, Twips statementHeight, bool withChecks) noexcept {
    return {leastWidth(withChecks),
            kMargin * 3 + statementHeight + kLabelGap + lineHeight * kLeastLines + lineHeight + kPadding};
}

}  // namespace quorel::dialogs
