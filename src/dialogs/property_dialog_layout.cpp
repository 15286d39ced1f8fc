#include "dialogs/property_dialog_layout.h"

#include <algorithm>

#include "dialogs/dialog_buttons.h"

namespace quorel::dialogs {

namespace {

using ui::Rect;
using ui::Twips;
using namespace ui::literals;

constexpr Twips kButtonMargin = 120_tw;
constexpr std::int32_t kLeastProperties = 8;

}  // namespace

PropertyDialogLayout layoutPropertyDialog(ui::Size client, ui::Twips lineHeight) noexcept {
    const Twips buttonHeight = lineHeight + kPadding;
    const Twips rowHeight = buttonHeight + kButtonMargin * 2;
    const Twips width = std::max(client.width, 0_tw);
    const Rect property{0_tw, 0_tw, width, std::max(client.height - rowHeight, 0_tw)};
    const Rect row{0_tw, property.bottom(), width, rowHeight};
    const Twips right = std::max(width - kButtonMargin, kButtonMargin + kButtonWidth * 2 + kButtonGap);
    const Rect cancel{right - kButtonWidth, kButtonMargin, kButtonWidth, buttonHeight};
    const Rect ok{cancel.left - kButtonGap - kButtonWidth, kButtonMargin, kButtonWidth, buttonHeight};
    return {property, row, ok, cancel};
}

ui::Size leastPropertyDialogSize(ui::Twips lineHeight) noexcept {
    return {kButtonMargin * 2 + kButtonWidth * 2 + kButtonGap,
            lineHeight * (kLeastProperties + 1) + kPadding + kButtonMargin * 2};
}

}  // namespace quorel::dialogs
