#include <gtest/gtest.h>

#include <vector>

#include "matrix/matrix_layout.h"

namespace quorel::matrix {
namespace {

using ui::PixelRect;
using ui::Rect;
using ui::Size;
using ui::Twips;
using namespace ui::literals;

/// The lists begin at 120, 60; the label is 285 high, the status bar 345.
constexpr MatrixMeasures kMeasures{{120_tw, 60_tw}, 285_tw, 345_tw};
constexpr Size kClient{12000_tw, 8400_tw};

TEST(MatrixLayout, FollowsTheFormulas) {
    const MatrixLayout layout = layoutMatrix(kClient, kMeasures);
    // H = 8400 - 345 = 8055, H / 2 = 4027, H / 4 = 2013, (W - 3 L) / 2 = 5820.
    EXPECT_EQ(layout.sourceMetaNodes, (Rect{120_tw, 60_tw, 5820_tw, 4027_tw}));
    EXPECT_EQ(layout.sourceInstances, (Rect{120_tw, 4087_tw, 5820_tw, 4027_tw}));
    EXPECT_EQ(layout.incoming, (Rect{5940_tw, 60_tw, 5820_tw, 2013_tw}));
    EXPECT_EQ(layout.outgoing, (Rect{5940_tw, 2073_tw, 5820_tw, 2013_tw}));
    EXPECT_EQ(layout.targetLabel, (Rect{5940_tw, 4087_tw, 5820_tw, 285_tw}));
    EXPECT_EQ(layout.targetInstances, (Rect{5940_tw, 4372_tw, 5820_tw, 3742_tw}));
    EXPECT_EQ(layout.progressBar, (Rect{8700_tw, 8055_tw, 3000_tw, 345_tw}));
    EXPECT_EQ(layout.statusBar, (Rect{0_tw, 8055_tw, 12000_tw, 345_tw}));
    EXPECT_EQ(layout.statusPanel, 8700_tw);
}

TEST(MatrixLayout, WithoutAMarginTheListsFillTheWindow) {
    const MatrixLayout layout = layoutMatrix({12000_tw, 8345_tw}, {{}, 285_tw, 345_tw});
    EXPECT_EQ(layout.sourceMetaNodes, (Rect{0_tw, 0_tw, 6000_tw, 4000_tw}));
    EXPECT_EQ(layout.sourceInstances, (Rect{0_tw, 4000_tw, 6000_tw, 4000_tw}));
    EXPECT_EQ(layout.incoming, (Rect{6000_tw, 0_tw, 6000_tw, 2000_tw}));
    EXPECT_EQ(layout.outgoing, (Rect{6000_tw, 2000_tw, 6000_tw, 2000_tw}));
    EXPECT_EQ(layout.targetLabel, (Rect{6000_tw, 4000_tw, 6000_tw, 285_tw}));
    EXPECT_EQ(layout.targetInstances, (Rect{6000_tw, 4285_tw, 6000_tw, 3715_tw}));
}

TEST(MatrixLayout, ListsTouch) {
    for (std::int32_t width = 3000; width < 12000; width += 37) {
        const MatrixLayout layout = layoutMatrix({{width}, {width * 2 / 3}}, kMeasures);
        EXPECT_EQ(layout.sourceInstances.top, layout.sourceMetaNodes.bottom());
        EXPECT_EQ(layout.incoming.left, layout.sourceMetaNodes.right());
        EXPECT_EQ(layout.outgoing.top, layout.incoming.bottom());
        EXPECT_EQ(layout.targetLabel.top, layout.sourceInstances.top);
        EXPECT_EQ(layout.targetInstances.top, layout.targetLabel.bottom());
        EXPECT_EQ(layout.targetInstances.bottom(), layout.sourceInstances.bottom());
        EXPECT_EQ(layout.progressBar.left, layout.statusPanel);
        EXPECT_EQ(layout.progressBar.top, layout.statusBar.top);
        EXPECT_EQ(layout.progressBar.height, layout.statusBar.height);
        EXPECT_EQ(layout.statusBar.right(), Twips{width});
    }
}

TEST(MatrixLayout, OriginStaysWhateverTheSize) {
    for (const Size size : {Size{4500_tw, 4500_tw}, kClient, Size{40000_tw, 30000_tw}}) {
        const MatrixLayout layout = layoutMatrix(size, kMeasures);
        EXPECT_EQ(layout.sourceMetaNodes.left, 120_tw);
        EXPECT_EQ(layout.sourceMetaNodes.top, 60_tw);
    }
}

TEST(MatrixLayout, NothingHasANegativeSize) {
    for (const Size size : {Size{}, Size{100_tw, 100_tw}, Size{500_tw, 400_tw}}) {
        const MatrixLayout layout = layoutMatrix(size, kMeasures);
        for (const Rect& each :
             {layout.sourceMetaNodes, layout.sourceInstances, layout.incoming, layout.outgoing,
              layout.targetLabel, layout.targetInstances, layout.statusBar, layout.progressBar}) {
            EXPECT_GE(each.width, 0_tw);
            EXPECT_GE(each.height, 0_tw);
        }
    }
}

/// The pixels that a peer gives the lists, in the order incoming, outgoing, instances, targets.
std::vector<PixelRect> pixelsAt(std::int32_t dpi) {
    const MatrixLayout layout = layoutMatrix(kClient, kMeasures);
    std::vector<PixelRect> all;
    for (const Rect& each :
         {layout.incoming, layout.outgoing, layout.sourceInstances, layout.targetInstances})
        all.push_back(toPixels(each, dpi));
    return all;
}

TEST(MatrixLayout, PixelsAtEveryResolution) {
    using All = std::vector<PixelRect>;
    EXPECT_EQ(pixelsAt(96),
              (All{{396, 4, 784, 138}, {396, 138, 784, 272}, {8, 272, 396, 541}, {396, 291, 784, 541}}));
    EXPECT_EQ(pixelsAt(120),
              (All{{495, 5, 980, 173}, {495, 173, 980, 341}, {10, 341, 495, 676}, {495, 364, 980, 676}}));
    EXPECT_EQ(pixelsAt(144),
              (All{{594, 6, 1176, 207}, {594, 207, 1176, 409}, {12, 409, 594, 811}, {594, 437, 1176, 811}}));
    EXPECT_EQ(
        pixelsAt(192),
        (All{{792, 8, 1568, 276}, {792, 276, 1568, 545}, {16, 545, 792, 1082}, {792, 583, 1568, 1082}}));
}

TEST(MatrixLayout, NeighboursInTwipsAreNeighboursInPixels) {
    for (const std::int32_t dpi : {96, 120, 144, 192}) {
        const MatrixLayout layout = layoutMatrix({11987_tw, 8399_tw}, kMeasures);
        const auto pixels = [dpi](const Rect& rect) { return toPixels(rect, dpi); };
        EXPECT_EQ(pixels(layout.sourceMetaNodes).bottom, pixels(layout.sourceInstances).top);
        EXPECT_EQ(pixels(layout.sourceMetaNodes).right, pixels(layout.incoming).left);
        EXPECT_EQ(pixels(layout.incoming).bottom, pixels(layout.outgoing).top);
        EXPECT_EQ(pixels(layout.targetLabel).bottom, pixels(layout.targetInstances).top);
        EXPECT_EQ(pixels(layout.progressBar).left, toPixels(layout.statusPanel, dpi));
        EXPECT_EQ(pixels(layout.statusBar).right, toPixels(11987_tw, dpi));
    }
}

}  // namespace
}  // namespace quorel::matrix
