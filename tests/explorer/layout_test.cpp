#include <gtest/gtest.h>

#include "explorer/explorer_layout.h"
#include "explorer/pane_layout.h"

namespace quorel::explorer {
namespace {

using ui::Twips;
using namespace ui::literals;

// Placing controls on a sub pane.
// ------------------------------------------------------------------------

TEST(PaneLayout, DataControlsTouchEachOther) {
    for (const ControlKind kind :
         {ControlKind::ListView, ControlKind::Property, ControlKind::Combo, ControlKind::EditToolbar}) {
        EXPECT_EQ(placeControl(kind, 0_tw, 1000_tw), (Placement{0_tw, 1000_tw}));
        EXPECT_EQ(placeControl(kind, 1000_tw, 435_tw), (Placement{1000_tw, 1435_tw}));
    }
}

TEST(PaneLayout, SeparatorsAndLabelsHave150AboveAnd150Below) {
    for (const ControlKind kind : {ControlKind::Separator, ControlKind::Label}) {
        EXPECT_EQ(placeControl(kind, 0_tw, 240_tw), (Placement{150_tw, 540_tw}));
        EXPECT_EQ(placeControl(kind, 540_tw, 30_tw), (Placement{690_tw, 870_tw}));
    }
}

TEST(PaneLayout, TwoLabelsAre300Apart) {
    const Placement first = placeControl(ControlKind::Label, 0_tw, 240_tw);
    const Placement second = placeControl(ControlKind::Label, first.nextHeight, 240_tw);
    EXPECT_EQ(second.top - (first.top + 240_tw), 300_tw);
}

TEST(PaneLayout, TheLastControlLeaves200Below) {
    EXPECT_EQ(stretchedHeight(6000_tw, 0_tw), 5800_tw);
    EXPECT_EQ(stretchedHeight(6000_tw, 1435_tw), 4365_tw);
    EXPECT_EQ(stretchedHeight(6000_tw, 5800_tw), 0_tw);
    EXPECT_EQ(stretchedHeight(600_tw, 1435_tw), 0_tw) << "never less than nothing";
}

TEST(PaneLayout, KindsHaveTheirNames) {
    EXPECT_EQ(typeName(ControlKind::ListView), u"ListView");
    EXPECT_EQ(typeName(ControlKind::Property), u"Property");
    EXPECT_EQ(typeName(ControlKind::Combo), u"Combo");
    EXPECT_EQ(typeName(ControlKind::EditToolbar), u"EditToolbar");
    EXPECT_EQ(typeName(ControlKind::Separator), u"Separator");
    EXPECT_EQ(typeName(ControlKind::Label), u"Label");
}

// The window.
// ------------------------------------------------------------------------

TEST(ExplorerLayout, EverythingHasItsPlace) {
    const ui::Size client{13500_tw, 9000_tw};
    const ExplorerLayout layout = layoutExplorer(client, 3000);
    EXPECT_EQ(layout.tree, (ui::Rect{60_tw, 60_tw, 3991_tw, 8880_tw}));
    EXPECT_EQ(layout.splitter.left, layout.tree.right());
    EXPECT_EQ(layout.captionBox.left, layout.splitter.right());
    EXPECT_EQ(layout.captionBox.size(), (ui::Size{480_tw, 480_tw}));
    EXPECT_GT(layout.paneCaption.left, layout.captionBox.right());
    EXPECT_EQ(layout.paneCaption.right(), 13440_tw);
    EXPECT_GT(layout.line.top, layout.captionBox.bottom());
    EXPECT_GT(layout.tabs.top, layout.line.bottom());
    EXPECT_EQ(layout.tabs.right(), 13440_tw);
    EXPECT_EQ(layout.tabs.bottom(), 8940_tw);
}

TEST(ExplorerLayout, NeitherSideGetsTooNarrow) {
    const ui::Size client{13500_tw, 9000_tw};
    EXPECT_EQ(layoutExplorer(client, 0).tree.width, 1500_tw);
    EXPECT_EQ(layoutExplorer(client, 10000).tabs.width, 3000_tw);
    const ExplorerLayout least = layoutExplorer(leastExplorerSize(), 3000);
    EXPECT_EQ(least.tree.width, 1500_tw);
    EXPECT_EQ(least.tabs.width, 3000_tw);
}

TEST(ExplorerLayout, ASplitComesBackToWhereItWasDragged) {
    const ui::Size client{13500_tw, 9000_tw};
    for (std::int32_t left = 1560; left < 10000; left += 137) {
        const std::int32_t split = withSplitter(Twips{left}, client);
        EXPECT_NEAR(layoutExplorer(client, split).splitter.left.value, left, 2);
    }
    EXPECT_EQ(layoutExplorer(client, withSplitter(0_tw, client)).tree.width, 1500_tw);
    EXPECT_EQ(withSplitter(500_tw, {100_tw, 100_tw}), 0);
}

TEST(ExplorerLayout, NothingIsLessThanEmpty) {
    for (std::int32_t width = 0; width < 6000; width += 100)
        for (std::int32_t height = 0; height < 2000; height += 100) {
            const ExplorerLayout layout = layoutExplorer({Twips{width}, Twips{height}}, 3000);
            for (const ui::Rect& part : {layout.tree, layout.splitter, layout.captionBox, layout.paneCaption,
                                         layout.line, layout.tabs}) {
                EXPECT_GE(part.width, 0_tw);
                EXPECT_GE(part.height, 0_tw);
            }
        }
}

}  // namespace
}  // namespace quorel::explorer
