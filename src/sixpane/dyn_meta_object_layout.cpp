#include "sixpane/dyn_meta_object_layout.h"

#include <algorithm>

namespace quorel::sixpane {

namespace {

using ui::Rect;
using ui::Size;
using ui::Twips;
using namespace ui::literals;

constexpr Twips kMargin = 180_tw;
constexpr Twips kGap = 105_tw;
constexpr Twips kSectionGap = 225_tw;
constexpr Twips kButtonWidth = 1200_tw;
/// What a box or a button needs around its text.
constexpr Twips kPadding = 135_tw;
/// A label's text stands on the line of its box's first.
constexpr Twips kLabelDrop = 60_tw;

}  // namespace

DynMetaObjectLayout layoutDynMetaObject(Size client, Twips lineHeight, Twips labelWidth) noexcept {
    const Size least = leastDynMetaObjectSize(lineHeight, labelWidth);
    const Twips right = std::max(client.width, least.width) - kMargin;
    const Twips bottom = std::max(client.height, least.height) - kMargin;
    const Twips boxLeft = kMargin + labelWidth + kGap;
    const Twips boxWidth = right - boxLeft;
    const Twips lineBox = lineHeight + kPadding;
    DynMetaObjectLayout layout;
    layout.nameLabel = {kMargin, kMargin + kLabelDrop, labelWidth, lineHeight};
    layout.nameBox = {boxLeft, kMargin, boxWidth, lineBox};
    const Twips descriptionTop = layout.nameBox.bottom() + kGap;
    layout.cancel = {right - kButtonWidth, bottom - lineBox, kButtonWidth, lineBox};
    layout.ok = {layout.cancel.left - kGap - kButtonWidth, layout.cancel.top, kButtonWidth, lineBox};
    layout.persistent = {boxLeft, layout.ok.top - kSectionGap - lineBox, boxWidth, lineBox};
    layout.descriptionLabel = {kMargin, descriptionTop + kLabelDrop, labelWidth, lineHeight};
    layout.descriptionBox = {boxLeft, descriptionTop, boxWidth,
                             layout.persistent.top - kGap - descriptionTop};
    return layout;
}

Size leastDynMetaObjectSize(Twips lineHeight, Twips labelWidth) noexcept {
    const Twips lineBox = lineHeight + kPadding;
    const Twips description = lineHeight * 2 + kPadding;
    return {kMargin + labelWidth + kGap + kButtonWidth * 2 + kGap + kMargin,
            kMargin + lineBox + kGap + description + kGap + lineBox + kSectionGap + lineBox + kMargin};
}

}  // namespace quorel::sixpane
