#include "explorer/pane_layout.h"

#include <algorithm>

namespace quorel::explorer {

using ui::Twips;
using namespace ui::literals;

namespace {

constexpr Twips kAboveText = 150_tw;
constexpr Twips kAroundText = 300_tw;
constexpr Twips kBottomMargin = 200_tw;

[[nodiscard]] bool isText(ControlKind kind) noexcept {
    return kind == ControlKind::Separator || kind == ControlKind::Label;
}

}  // namespace

std::u16string_view typeName(ControlKind kind) noexcept {
    switch (kind) {
        case ControlKind::ListView:
            return u"ListView";
        case ControlKind::Property:
            return u"Property";
        case ControlKind::Combo:
            return u"Combo";
        case ControlKind::EditToolbar:
            return u"EditToolbar";
        case ControlKind::Separator:
            return u"Separator";
        case ControlKind::Label:
            return u"Label";
    }
    return {};
}

Placement placeControl(ControlKind kind, Twips currentHeight, Twips height) noexcept {
    if (isText(kind))
        return {currentHeight + kAboveText, currentHeight + height + kAroundText};
    return {currentHeight, currentHeight + height};
}

Twips stretchedHeight(Twips scaleHeight, Twips top) noexcept {
    return std::max(scaleHeight - top - kBottomMargin, 0_tw);
}

}  // namespace quorel::explorer
