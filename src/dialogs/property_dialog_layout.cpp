#include "dialogs/property_dialog_layout.h"

#include <algorithm>

namespace quorel::dialogs {

namespace {

using ui::Rect;
using ui::Twips;
using namespace ui::literals;

constexpr Twips kMargin = 120_tw;
constexpr Twips kButtonGap = 105_tw;
constexpr Twips kButtonWidth = 1200_tw;
/// What a button needs around a line of text.
constexpr Twips kPadding = 135_tw;
constexpr std::int32_t kLeastLines = 8;

}  // namespace

PropertyDialogLayout layoutPropertyDialog(ui::Size client, ui::Twips lineHeight) noexcept {
    const Twips buttonHeight = lineHeight + kPadding;
    const Twips rowHeight = buttonHeight + kMargin * 2;
    const Twips width = std::max(client.width, 0_tw);
    const Rect property{0_tw, 0_tw, width, std::max(client.height - rowHeight, 0_tw)};
    const Rect row{0_tw, property.bottom(), width, rowHeight};
    const Twips right = std::max(width - kMargin, kMargin + kButtonWidth * 2 + kButtonGap);
    const Rect cancel{right - kButtonWidth, kMargin, kButtonWidth, buttonHeight};
    const Rect ok{cancel.left - kButtonGap - kButtonWidth, kMargin, kButtonWidth, buttonHeight};
    return {property, row, ok, cancel};
}

ui::Size leastPropertyDialogSize(ui::Twips lineHeight) noexcept {
    return {kMargin * 2 + kButtonWidth * 2 + kButtonGap,
            lineHeight * (kLeastLines + 1) + kPadding + kMargin * 2};
}

}  // namespace quorel::dialogs
