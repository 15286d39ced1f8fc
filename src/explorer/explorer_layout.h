#pragma once

#include <cstdint>

#include "platform/ui/units.h"

namespace quorel::explorer {

/// Where everything in an explorer is, in twips of its client area.
struct ExplorerLayout {
    ui::Rect tree, splitter, captionBox, paneCaption, line, tabs;
};

/// The tree at the left of the splitter, at its right the caption over a line over the tabs. `split` is the
/// tree's share of the width in ten-thousandths; neither side gets narrower than can be used while the window
/// has its least size.
[[nodiscard]] ExplorerLayout layoutExplorer(ui::Size client, std::int32_t split) noexcept;

[[nodiscard]] ui::Size leastExplorerSize() noexcept;

/// The split after the splitter was dragged so that its left edge is at `left`.
[[nodiscard]] std::int32_t withSplitter(ui::Twips left, ui::Size client) noexcept;

}  // namespace quorel::explorer
