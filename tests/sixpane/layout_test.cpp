#include <gtest/gtest.h>

#include "sixpane/six_pane_layout.h"

namespace quorel::sixpane {
namespace {

using ui::Rect;
using ui::Size;
using ui::Twips;
using namespace ui::literals;

constexpr Twips kLine = 240_tw;

bool overlap(const Rect& a, const Rect& b) {
    return a.left < b.right() && b.left < a.right() && a.top < b.bottom() && b.top < a.bottom();
}

std::vector<Rect> allOf(const SixPaneLayout& layout) {
    std::vector<Rect> all;
    for (const auto& rects : {layout.captions, layout.panes})
        all.insert(all.end(), rects.begin(), rects.end());
    all.insert(all.end(), layout.commands.begin(), layout.commands.end());
    all.insert(all.end(), layout.columnSplitters.begin(), layout.columnSplitters.end());
    all.insert(all.end(), layout.rowSplitters.begin(), layout.rowSplitters.end());
    all.push_back(layout.statusBar);
    return all;
}

void expectNeat(const SixPaneLayout& layout, Size client) {
    const std::vector<Rect> all = allOf(layout);
    for (std::size_t i = 0; i < all.size(); ++i) {
        EXPECT_GE(all[i].width, 0_tw);
        EXPECT_GE(all[i].height, 0_tw);
        EXPECT_GE(all[i].left, 0_tw);
        EXPECT_LE(all[i].right(), client.width);
        EXPECT_LE(all[i].bottom(), client.height);
        for (std::size_t j = i + 1; j < all.size(); ++j)
            EXPECT_FALSE(overlap(all[i], all[j])) << i << " " << j;
    }
}

TEST(SixPaneLayout, NothingOverlapsFromTheLeastSizeUp) {
    const Size least = leastSixPaneSize(kLine);
    for (const std::int32_t more : {0, 1, 777, 5000, 60000})
        for (const Splits& splits :
             {Splits{}, Splits{{0, 0}, {0, 0, 0}}, Splits{{10000, 10000}, {10000, 10000, 10000}},
              Splits{{9000, 1000}, {100, 5000, 9900}}}) {
            const Size client{least.width + Twips{more}, least.height + Twips{more}};
            const SixPaneLayout layout = layoutSixPane(client, kLine, splits);
            expectNeat(layout, client);
            for (const Rect& pane : layout.panes) {
                EXPECT_GE(pane.width, 1500_tw);
                EXPECT_GE(pane.height, 900_tw);
            }
        }
}

TEST(SixPaneLayout, TypePanesStandOverTheirInstancesInThreeColumns) {
    const SixPaneLayout layout = layoutSixPane({14400_tw, 9000_tw}, kLine, {});
    const auto pane = [&layout](Pane which) { return layout.panes[indexOf(which)]; };
    EXPECT_EQ(pane(Pane::SourceMetaNode).left, pane(Pane::SourceNode).left);
    EXPECT_LT(pane(Pane::SourceMetaNode).bottom(), pane(Pane::SourceNode).top);
    EXPECT_LT(pane(Pane::SourceNode).right(), pane(Pane::Link).left);
    EXPECT_LT(pane(Pane::Link).right(), pane(Pane::TargetNode).left);
    EXPECT_EQ(pane(Pane::MetaLink).top, pane(Pane::TargetMetaNode).top);
    EXPECT_NEAR(pane(Pane::Link).width.value, pane(Pane::SourceNode).width.value, 10);
    for (std::size_t i = 0; i < kPaneCount; ++i)
        EXPECT_EQ(layout.captions[i].bottom(), layout.panes[i].top);
    EXPECT_EQ(layout.statusBar.bottom(), 9000_tw);
    EXPECT_EQ(layout.statusBar.width, 14400_tw);
}

TEST(SixPaneLayout, ResizingKeepsTheShares) {
    const SixPaneLayout small = layoutSixPane({14400_tw, 9000_tw}, kLine, {});
    const SixPaneLayout large = layoutSixPane({28800_tw, 18000_tw}, kLine, {});
    const double before = small.panes[0].width.value / 14400.0;
    EXPECT_NEAR(large.panes[0].width.value / 28800.0, before, 0.01);
}

TEST(SixPaneLayout, DraggedSplittersArriveWhereTheyWereDragged) {
    constexpr Size kClient{14400_tw, 9000_tw};
    for (const std::int32_t left : {1700, 3000, 5000, 7777}) {
        const Splits splits = withColumnSplit({}, 0, Twips{left}, kClient);
        EXPECT_NEAR(layoutSixPane(kClient, kLine, splits).columnSplitters[0].left.value, left, 2);
        EXPECT_EQ(splits.columns[1], Splits{}.columns[1]) << "the other one stays";
    }
    for (const std::int32_t left : {7000, 9000, 12000}) {
        const Splits splits = withColumnSplit({}, 1, Twips{left}, kClient);
        EXPECT_NEAR(layoutSixPane(kClient, kLine, splits).columnSplitters[1].left.value, left, 2);
    }
    for (std::size_t column = 0; column < 3; ++column) {
        const Splits splits = withRowSplit({}, column, 5000_tw, kClient, kLine);
        const SixPaneLayout layout = layoutSixPane(kClient, kLine, splits);
        EXPECT_NEAR(layout.rowSplitters[column].top.value, 5000, 2);
        EXPECT_NE(layout.rowSplitters[column].top, layout.rowSplitters[(column + 1) % 3].top);
    }
}

TEST(SixPaneLayout, DraggingStopsWhereAPaneWouldVanish) {
    constexpr Size kClient{14400_tw, 9000_tw};
    for (const std::int32_t position : {-5000, 0, 50000}) {
        for (const std::size_t splitter : {0U, 1U})
            expectNeat(layoutSixPane(kClient, kLine, withColumnSplit({}, splitter, Twips{position}, kClient)),
                       kClient);
        expectNeat(layoutSixPane(kClient, kLine, withRowSplit({}, 1, Twips{position}, kClient, kLine)),
                   kClient);
    }
    const SixPaneLayout layout = layoutSixPane(kClient, kLine, withColumnSplit({}, 0, 50000_tw, kClient));
    EXPECT_GE(layout.panes[indexOf(Pane::Link)].width, 1500_tw);
    EXPECT_NEAR(layout.columnSplitters[1].left.value,
                layoutSixPane(kClient, kLine, {}).columnSplitters[1].left.value, 2);
}

TEST(SixPaneLayout, StatusPanelsShareTheWidthByWhatTheyWant) {
    const std::array<Twips, kPaneCount> wanted{2000_tw, 1000_tw, 1000_tw, 1000_tw, 2000_tw, 1000_tw};
    EXPECT_EQ(sharePanels(16000_tw, wanted),
              (std::array<Twips, kPaneCount>{4000_tw, 2000_tw, 2000_tw, 2000_tw, 4000_tw, 2000_tw}));
    EXPECT_EQ(sharePanels(4000_tw, wanted)[0], 1000_tw);
    EXPECT_EQ(sharePanels(4000_tw, {})[0], 0_tw);
}

TEST(SixPaneLayout, NothingTurnsNegativeInATinyWindow) {
    for (const Size client : {Size{0_tw, 0_tw}, Size{100_tw, 100_tw}, Size{3000_tw, 1000_tw}})
        for (const Rect& rect : allOf(layoutSixPane(client, kLine, {}))) {
            EXPECT_GE(rect.width, 0_tw);
            EXPECT_GE(rect.height, 0_tw);
        }
}

}  // namespace
}  // namespace quorel::sixpane
