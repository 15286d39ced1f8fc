#include "navigator/search_layout.h"

#include <algorithm>

namespace quorel::navigator {

namespace {

using namespace ui::literals;

constexpr ui::Twips kSearchMargin = 120_tw;
constexpr ui::Twips kBoxPadding = 120_tw;
constexpr ui::Twips kLeastQueryWidth = 2400_tw;
constexpr std::int32_t kLeastResultLines = 6;

}  // namespace

SearchLayout layoutSearch(ui::Size client, ui::Twips lineHeight, ui::Twips captionWidth) noexcept {
    const ui::Twips boxHeight = lineHeight + kBoxPadding;
    const ui::Twips queryLeft = kSearchMargin * 2 + captionWidth;
    const ui::Twips resultsTop = kSearchMargin * 2 + boxHeight;
    const ui::Twips statusTop = std::max(client.height - boxHeight, resultsTop);
    return {
        .caption = {kSearchMargin, kSearchMargin + kBoxPadding / 2, captionWidth, lineHeight},
        .query = {queryLeft, kSearchMargin, std::max(client.width - queryLeft - kSearchMargin, 0_tw),
                  boxHeight},
        .results = {kSearchMargin, resultsTop, std::max(client.width - kSearchMargin * 2, 0_tw),
                    std::max(statusTop - kSearchMargin - resultsTop, 0_tw)},
        .statusBar = {0_tw, statusTop, client.width, boxHeight},
    };
}

ui::Size leastSearchSize(ui::Twips lineHeight, ui::Twips captionWidth) noexcept {
    const ui::Twips boxHeight = lineHeight + kBoxPadding;
    return {kSearchMargin * 3 + captionWidth + kLeastQueryWidth,
            kSearchMargin * 3 + boxHeight * 2 + lineHeight * kLeastResultLines};
}

}  // namespace quorel::navigator
