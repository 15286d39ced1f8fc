#pragma once

#include "platform/ui/units.h"

namespace quorel::controls {

/// Where the parts of a tree view go, relative to it.
struct TreeViewLayout {
    ui::Rect findBox, foundLabel, tree;
};

/// A line with the box and, at its right, what was found, `foundWidth` wide; the tree below it.
[[nodiscard]] TreeViewLayout layoutTreeView(ui::Size size, ui::Twips lineHeight,
                                            ui::Twips foundWidth) noexcept;

}  // namespace quorel::controls
