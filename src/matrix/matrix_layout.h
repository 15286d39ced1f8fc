#pragma once

#include "platform/ui/units.h"

namespace quorel::matrix {

/// What the layout does not decide, in twips.
struct MatrixMeasures {
    ui::Point origin;       ///< of the list of meta nodes, where it stays
    ui::Twips labelHeight;  ///< of the label above the targets
    ui::Twips statusBarHeight;
};

/// Where everything in the window is, in twips of its client area.
struct MatrixLayout {
    ui::Rect sourceMetaNodes, sourceInstances;
    ui::Rect incoming, outgoing;
    ui::Rect targetLabel, targetInstances;
    ui::Rect statusBar, progressBar;
    ui::Twips statusPanel;  ///< the width of the status bar's panel with text
};

/// Two by two: types above instances at the left, incoming above outgoing meta links above the targets at the
/// right, all of them touching; below, the status bar with the progress bar at its right end. Each column is
/// half of what is left of the width after three times the left margin, so with a margin there is more room
/// at the right than at the left.
[[nodiscard]] MatrixLayout layoutMatrix(ui::Size client, const MatrixMeasures& measures) noexcept;

}  // namespace quorel::matrix
