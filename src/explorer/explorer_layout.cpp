#include "explorer/explorer_layout.h"

#include <algorithm>

namespace quorel::explorer {

using ui::Twips;
using namespace ui::literals;

namespace {

constexpr std::int32_t kWhole = 10'000;
constexpr Twips kMargin = 60_tw;
constexpr Twips kSplitter = 75_tw;
constexpr Twips kLeastTree = 1500_tw;
constexpr Twips kLeastPane = 3000_tw;
constexpr Twips kPicture = 480_tw;
constexpr Twips kLine = 30_tw;

/// Between the two least widths, as far as both have room.
[[nodiscard]] Twips treeWidth(Twips wanted, Twips room) noexcept {
    return std::clamp(wanted, std::min(kLeastTree, room),
                      std::max(room - kLeastPane, std::min(kLeastTree, room)));
}

[[nodiscard]] Twips roomIn(ui::Size client) noexcept {
    return std::max(client.width - kMargin * 2 - kSplitter, 0_tw);
}

}  // namespace

ExplorerLayout layoutExplorer(ui::Size client, std::int32_t split) noexcept {
    const Twips room = roomIn(client);
    const Twips height = std::max(client.height - kMargin * 2, 0_tw);
    const auto share = static_cast<std::int32_t>(static_cast<std::int64_t>(room.value) * split / kWhole);
    ExplorerLayout layout;
    layout.tree = {kMargin, kMargin, treeWidth(Twips{share}, room), height};
    layout.splitter = {layout.tree.right(), kMargin, kSplitter, height};
    const Twips left = layout.splitter.right();
    const Twips width = std::max(client.width - kMargin - left, 0_tw);
    layout.captionBox = {left, kMargin, kPicture, kPicture};
    const Twips textLeft = layout.captionBox.right() + kMargin * 2;
    layout.paneCaption = {textLeft, kMargin + 30_tw, std::max(left + width - textLeft, 0_tw),
                          kPicture - 30_tw};
    layout.line = {left, layout.captionBox.bottom() + kMargin, width, kLine};
    const Twips top = layout.line.bottom() + kMargin;
    layout.tabs = {left, top, width, std::max(kMargin + height - top, 0_tw)};
    return layout;
}

ui::Size leastExplorerSize() noexcept {
    return {kMargin * 2 + kSplitter + kLeastTree + kLeastPane, 3000_tw};
}

std::int32_t withSplitter(Twips left, ui::Size client) noexcept {
    const Twips room = roomIn(client);
    if (room <= 0_tw)
        return 0;
    const Twips width = treeWidth(left - kMargin, room);
    // Upwards, so that the same width comes out again.
    const std::int64_t share =
        (static_cast<std::int64_t>(width.value) * kWhole + room.value - 1) / room.value;
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(share, 0, kWhole));
}

}  // namespace quorel::explorer
