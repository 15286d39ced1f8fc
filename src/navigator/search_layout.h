#pragma once

#include "platform/ui/units.h"

namespace quorel::navigator {

/// Where everything in the search window is, in twips of its client area.
struct SearchLayout {
    ui::Rect caption, query, results, statusBar;
};

/// What is typed at the top behind its caption, what is found below it.
[[nodiscard]] SearchLayout layoutSearch(ui::Size client, ui::Twips lineHeight,
                                        ui::Twips captionWidth) noexcept;
[[nodiscard]] ui::Size leastSearchSize(ui::Twips lineHeight, ui::Twips captionWidth) noexcept;

}  // namespace quorel::navigator
