#include "platform/controls/tree_view_layout.h"

#include <algorithm>

namespace quorel::controls {

using ui::Twips;
using namespace ui::literals;

namespace {
constexpr Twips kFindPadding = 105_tw;
constexpr Twips kFindGap = 60_tw;
}  // namespace

TreeViewLayout layoutTreeView(ui::Size size, Twips lineHeight, Twips foundWidth) noexcept {
    const Twips width = std::max(size.width, 0_tw);
    const Twips height = std::max(size.height, 0_tw);
    const Twips line = std::min(lineHeight + kFindPadding, height);
    const Twips top = std::min(line + kFindGap, height);
    const Twips found = foundWidth > 0_tw ? std::min(foundWidth + kFindGap, width / 2) : 0_tw;
    const Twips box = width - found;
    return {{0_tw, 0_tw, box, line},
            {box + std::min(kFindGap, found), std::min(kFindGap, line), std::max(found - kFindGap, 0_tw),
             std::max(line - kFindGap, 0_tw)},
            {0_tw, top, width, height - top}};
}

}  // namespace quorel::controls
