#include "platform/controls/property_layout.h"

#include <gtest/gtest.h>

namespace quorel::controls {
namespace {

using ui::Rect;
using ui::Size;
using ui::Twips;
using namespace ui::literals;

constexpr Twips kLine = 240_tw;

bool isInside(const Rect& inner, Size outer) {
    return inner.left >= 0_tw && inner.top >= 0_tw && inner.width >= 0_tw && inner.height >= 0_tw &&
           inner.right() <= outer.width && inner.bottom() <= outer.height;
}

TEST(PropertyLayout, SearchOverListOverDescription) {
    const PropertyLayout layout = layoutProperty({6000_tw, 6000_tw}, kLine);
    EXPECT_EQ(layout.searchBox, (Rect{0_tw, 0_tw, 6000_tw, 345_tw}));
    EXPECT_EQ(layout.list, (Rect{0_tw, 405_tw, 6000_tw, 4575_tw}));
    EXPECT_EQ(layout.title, (Rect{90_tw, 5040_tw, 5820_tw, 240_tw}));
    EXPECT_EQ(layout.description, (Rect{90_tw, 5280_tw, 5820_tw, 720_tw}));
}

TEST(PropertyLayout, DescriptionGivesWayToTheList) {
    const PropertyLayout low = layoutProperty({3000_tw, 1500_tw}, kLine);
    EXPECT_EQ(low.description.height, 0_tw);
    EXPECT_EQ(low.list.bottom(), 1500_tw);
    const PropertyLayout middle = layoutProperty({3000_tw, 2100_tw}, kLine);
    EXPECT_GT(middle.description.height, 0_tw);
    EXPECT_GE(middle.list.height, kLine * 4);
}

TEST(PropertyLayout, PartsStayInsideAndApartAtEverySize) {
    for (const std::int32_t line : {0, 195, 240, 480})
        for (std::int32_t height = -100; height < 9000; height += 37) {
            const Size size{Twips{height / 2}, Twips{height}};
            const PropertyLayout layout = layoutProperty(size, Twips{line});
            const Size outer{std::max(size.width, 0_tw), std::max(size.height, 0_tw)};
            for (const Rect& part : {layout.searchBox, layout.list, layout.title, layout.description})
                ASSERT_TRUE(isInside(part, outer)) << height;
            EXPECT_LE(layout.searchBox.bottom(), layout.list.top);
            EXPECT_LE(layout.list.bottom(), layout.title.top);
            EXPECT_LE(layout.title.bottom(), layout.description.top);
        }
}

constexpr Rect kList{0_tw, 400_tw, 6000_tw, 3000_tw};

TEST(EditorLayout, BoxCoversItsCell) {
    const Rect cell{2400_tw, 900_tw, 3300_tw, 285_tw};
    const EditorLayout layout = layoutEditor(cell, kList, kLine, {1, false, 0});
    EXPECT_EQ(layout.box, cell);
    EXPECT_EQ(layout.button.width, 0_tw);
    EXPECT_EQ(layout.message.height, 0_tw);
}

TEST(EditorLayout, ButtonTakesItsRoomFromTheBox) {
    const Rect cell{2400_tw, 900_tw, 3300_tw, 285_tw};
    const EditorLayout layout = layoutEditor(cell, kList, kLine, {1, true, 0});
    EXPECT_EQ(layout.box.right(), layout.button.left);
    EXPECT_EQ(layout.button.right(), cell.right());
    EXPECT_EQ(layout.button.height, cell.height);
}

TEST(EditorLayout, MessageIsBelowOrWhereItFitsAbove) {
    const EditorLayout high = layoutEditor({2400_tw, 900_tw, 3300_tw, 285_tw}, kList, kLine, {1, false, 2});
    EXPECT_EQ(high.message, (Rect{2400_tw, 1185_tw, 3300_tw, 540_tw}));
    const EditorLayout low = layoutEditor({2400_tw, 3000_tw, 3300_tw, 285_tw}, kList, kLine, {1, false, 2});
    EXPECT_EQ(low.message.bottom(), low.box.top);
}

TEST(EditorLayout, SeveralLinesStayInTheList) {
    const EditorLayout layout =
        layoutEditor({2400_tw, 3000_tw, 3300_tw, 285_tw}, kList, kLine, {5, false, 0});
    EXPECT_EQ(layout.box.height, kLine * 5);
    EXPECT_EQ(layout.box.bottom(), kList.bottom());
}

TEST(EditorLayout, CellOutOfSightGivesABoxInTheList) {
    for (const std::int32_t top : {-5000, 0, 9000})
        for (const std::int32_t left : {-3000, 8000}) {
            const EditorLayout layout =
                layoutEditor({Twips{left}, Twips{top}, 3300_tw, 285_tw}, kList, kLine, {1, true, 1});
            EXPECT_GE(layout.box.top, kList.top);
            EXPECT_LE(layout.box.bottom(), kList.bottom());
            EXPECT_GE(layout.box.left, kList.left);
            EXPECT_LE(layout.button.right(), kList.right());
            EXPECT_GE(layout.box.width, 0_tw);
        }
}

}  // namespace
}  // namespace quorel::controls
