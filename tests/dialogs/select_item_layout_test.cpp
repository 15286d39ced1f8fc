#include "dialogs/select_item_layout.h"

#include <gtest/gtest.h>

namespace quorel::dialogs {
namespace {

using ui::Rect;
using ui::Size;
using ui::Twips;

constexpr Twips kLine{195};

bool contains(Size client, const Rect& rect) {
    return rect.left.value >= 0 && rect.top.value >= 0 && rect.right() <= client.width &&
           rect.bottom() <= client.height;
}

TEST(SelectItemLayout, TheListTakesWhatIsLeftUnderTheStatement) {
    for (const bool withChecks : {false, true})
        for (const Size client : {Size{{7200}, {5400}}, Size{{12000}, {9000}}}) {
            const SelectItemLayout layout = layoutSelectItem(client, kLine, kLine * 2, withChecks);
            EXPECT_EQ(layout.list.width, layout.statement.width);
            EXPECT_GT(layout.list.top, layout.statement.bottom());
            EXPECT_EQ(layout.ok.top, layout.cancel.top);
            EXPECT_GT(layout.ok.top, layout.list.bottom());
            EXPECT_EQ(layout.ok.bottom() + (layout.ok.top - layout.list.bottom()), client.height)
                << "as far from the list as from the edge";
            EXPECT_EQ(layout.cancel.right() + layout.list.left, client.width);
            EXPECT_GT(layout.cancel.left, layout.ok.right());
            EXPECT_GT(layout.ok.left, layout.count.right());
            EXPECT_EQ(layout.checkAll.width > Twips{0}, withChecks);
        }
}

TEST(SelectItemLayout, EverythingFitsInTheLeastSize) {
    for (const bool withChecks : {false, true}) {
        const Size least = leastSelectItemSize(kLine, kLine, withChecks);
        const SelectItemLayout layout = layoutSelectItem(least, kLine, kLine, withChecks);
        for (const Rect& rect : {layout.statement, layout.list, layout.checkAll, layout.checkNone,
                                 layout.count, layout.ok, layout.cancel})
            EXPECT_TRUE(contains(least, rect));
        EXPECT_GE(layout.list.height, kLine * 6);
        EXPECT_GT(layout.count.width, Twips{1000});
    }
}

TEST(SelectItemLayout, NoSizeMakesAnythingNegative) {
    for (const Size client : {Size{}, Size{{10}, {10}}, Size{{100'000}, {1}}}) {
        const SelectItemLayout layout = layoutSelectItem(client, kLine, kLine * 3, true);
        for (const Rect& rect : {layout.statement, layout.list, layout.ok, layout.cancel, layout.count}) {
            EXPECT_GE(rect.width, Twips{0});
            EXPECT_GE(rect.height, Twips{0});
        }
    }
}

}  // namespace
}  // namespace quorel::dialogs
