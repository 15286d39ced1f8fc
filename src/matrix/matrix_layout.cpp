#include "matrix/matrix_layout.h"

#include <algorithm>

namespace quorel::matrix {

namespace {

using ui::Twips;
using namespace ui::literals;

/// Between the lists: none, so they touch.
constexpr Twips kGap = 0_tw;
constexpr Twips kWidestProgressBar = 3000_tw;
/// At the right end of the status bar, where the window is taken to resize it.
constexpr Twips kGrip = 300_tw;

}  // namespace

MatrixLayout layoutMatrix(ui::Size client, const MatrixMeasures& measures) noexcept {
    const Twips left = measures.origin.x;
    const Twips top = measures.origin.y;
    const Twips height = std::max(client.height - measures.statusBarHeight, 0_tw);  // above the status bar
    const Twips column = std::max((client.width - left * 3) / 2, 0_tw);
    const Twips half = std::max((height - kGap * 3) / 2, 0_tw);
    const Twips quarter = std::max((height - kGap * 3) / 4, 0_tw);

    MatrixLayout layout;
    layout.sourceMetaNodes = {left, top, column, half};
    layout.sourceInstances = {left, layout.sourceMetaNodes.bottom(), column, half};
    const Twips right = layout.sourceMetaNodes.right();
    layout.incoming = {right, top, column, quarter};
    layout.outgoing = {right, layout.incoming.bottom(), column, quarter};
    const Twips label = std::min(measures.labelHeight, half);
    layout.targetLabel = {right, layout.sourceInstances.top, column, label};
    layout.targetInstances = {right, layout.targetLabel.bottom(), column, half - label};

    const Twips progress = std::min(kWidestProgressBar, client.width / 4);
    layout.statusPanel = std::max(client.width - progress - kGrip, 0_tw);
    layout.statusBar = {0_tw, height, client.width, measures.statusBarHeight};
    layout.progressBar = {layout.statusPanel, height, progress, measures.statusBarHeight};
    return layout;
}

}  // namespace quorel::matrix
