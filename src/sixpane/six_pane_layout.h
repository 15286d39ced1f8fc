#pragma once

#include <array>
#include <cstdint>

#include "platform/ui/units.h"
#include "sixpane/commands.h"
#include "sixpane/panes.h"

namespace quorel::sixpane {

/// Where the splitters are, in ten-thousandths of the room there is, so that they keep their place when the
/// window is resized.
struct Splits {
    std::array<std::int32_t, 2> columns{3333, 6667};     ///< right ends of the first two columns
    std::array<std::int32_t, 3> rows{4000, 4000, 4000};  ///< lower ends of the type panes, column by column
    friend constexpr bool operator==(const Splits&, const Splits&) = default;
};

/// Where everything in the window is, in twips of its client area.
struct SixPaneLayout {
    std::array<ui::Rect, kPaneCount> captions, panes;  ///< in the order of `Pane`
    std::array<ui::Rect, kCommandCount> commands;      ///< in the order of `Command`
    std::array<ui::Rect, 2> columnSplitters;
    std::array<ui::Rect, 3> rowSplitters;
    ui::Rect statusBar;
};

/// Three columns side by side, in each a type pane over an instance pane with a caption above each; the
/// buttons at the right of the instance pane's caption; the status line below. No pane gets smaller than can
/// be used while the window has its least size.
[[nodiscard]] SixPaneLayout layoutSixPane(ui::Size client, ui::Twips lineHeight,
                                          const Splits& splits) noexcept;

/// The widths of the status line's panels: what each wants, and the rest, or what is missing, in proportion.
[[nodiscard]] std::array<ui::Twips, kPaneCount> sharePanels(
    ui::Twips width, const std::array<ui::Twips, kPaneCount>& wanted) noexcept;

[[nodiscard]] ui::Size leastSixPaneSize(ui::Twips lineHeight) noexcept;

/// The splits after a column splitter was dragged so that its left edge is at `left`.
[[nodiscard]] Splits withColumnSplit(const Splits& splits, std::size_t splitter, ui::Twips left,
                                     ui::Size client) noexcept;
/// The splits after the row splitter of a column was dragged so that its upper edge is at `top`.
[[nodiscard]] Splits withRowSplit(const Splits& splits, std::size_t column, ui::Twips top, ui::Size client,
                                  ui::Twips lineHeight) noexcept;

}  // namespace quorel::sixpane
