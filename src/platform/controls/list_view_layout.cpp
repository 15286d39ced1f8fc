#include "platform/controls/list_view_layout.h"

#include <algorithm>

namespace quorel::controls {

namespace {
constexpr ui::Twips kLine{315};
constexpr ui::Twips kGap{45};
constexpr ui::Twips kWidestLabel{1800};
/// Brings the label's text onto the line of the text in the box.
constexpr ui::Twips kTextInset{60};
}  // namespace

ListViewLayout layoutListView(ui::Size size, bool filterOpen) noexcept {
    const ui::Twips width = std::max(size.width, ui::Twips{0});
    const ui::Twips height = std::max(size.height, ui::Twips{0});
    if (!filterOpen)
        return {{}, {}, {{0}, {0}, width, height}};
    const ui::Twips labelWidth = std::min(kWidestLabel, width / 2);
    const ui::Twips boxWidth = std::max(width - labelWidth - kGap, ui::Twips{0});
    const ui::Twips line = std::min(kLine, height);
    const ui::Twips inset = std::min(kTextInset, line);
    const ui::Twips top = std::min(kLine + kGap, height);
    return {{{0}, {0}, boxWidth, line},
            {width - labelWidth, inset, labelWidth, line - inset},
            {{0}, top, width, height - top}};
}

}  // namespace quorel::controls
