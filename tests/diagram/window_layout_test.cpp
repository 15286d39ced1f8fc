#include "diagram/window_layout.h"

#include <gtest/gtest.h>

#include <vector>

#include "diagram/overview.h"

namespace quorel::diagram {
namespace {

using ui::Rect;
using ui::Size;
using namespace ui::literals;

[[nodiscard]] WindowParts parts(bool withButtons, bool withFind) {
    return {withButtons, withFind, 240_tw, 480_tw, 1050_tw};
}

[[nodiscard]] bool overlap(const Rect& a, const Rect& b) {
    return a.left < b.right() && b.left < a.right() && a.top < b.bottom() && b.top < a.bottom();
}

/// In the order of the tab key.
[[nodiscard]] std::vector<Rect> placesIn(const WindowLayout& layout, const WindowParts& shown) {
    std::vector<Rect> places;
    if (shown.withButtons)
        places.assign(layout.buttons.begin(), layout.buttons.end());
    if (shown.withFind)
        places.insert(places.end(),
                      {layout.findLabel, layout.find, layout.previous, layout.next, layout.found});
    places.insert(places.end(), {layout.view, layout.status});
    return places;
}

TEST(WindowLayout, NothingOverlapsOrLeavesTheWindow) {
    for (const bool withButtons : {false, true})
        for (const bool withFind : {false, true}) {
            const WindowParts shown = parts(withButtons, withFind);
            const Size least = leastWindowSize(shown);
            for (const Size client :
                 {least, Size{9000_tw, 6000_tw}, Size{15000_tw, 10500_tw}, Size{40000_tw, 30000_tw}}) {
                const std::vector<Rect> places = placesIn(layoutWindow(client, shown), shown);
                for (std::size_t i = 0; i < places.size(); ++i) {
                    EXPECT_GT(places[i].width, 0_tw);
                    EXPECT_GT(places[i].height, 0_tw);
                    EXPECT_LE(places[i].right(), client.width) << i;
                    EXPECT_LE(places[i].bottom(), client.height) << i;
                    for (std::size_t other = i + 1; other < places.size(); ++other)
                        EXPECT_FALSE(overlap(places[i], places[other])) << i << " and " << other;
                }
            }
        }
}

TEST(WindowLayout, TheDiagramTakesAllThatIsLeft) {
    const Size client{15000_tw, 10500_tw};
    const WindowLayout bare = layoutWindow(client, parts(false, false));
    EXPECT_EQ(bare.view.top, 0_tw);
    EXPECT_EQ(bare.view.bottom(), bare.status.top);
    EXPECT_EQ(bare.status.bottom(), client.height);
    EXPECT_EQ(bare.buttons[0], Rect{});
    EXPECT_EQ(bare.find, Rect{});
    const WindowLayout full = layoutWindow(client, parts(true, true));
    EXPECT_EQ(full.view.top, full.buttons[0].bottom() + full.buttons[0].top);
    EXPECT_EQ(full.view.width, client.width);
}

TEST(WindowLayout, TheRowGoesFromLeftToRight) {
    const WindowParts shown = parts(true, true);
    const std::vector<Rect> places = placesIn(layoutWindow({15000_tw, 10500_tw}, shown), shown);
    for (std::size_t i = 1; i + 2 < places.size(); ++i)
        EXPECT_GE(places[i].left, places[i - 1].right());
}

TEST(WindowLayout, FindStandsWhereTheButtonsWouldBe) {
    EXPECT_EQ(layoutWindow({15000_tw, 10500_tw}, parts(false, true)).findLabel.left,
              layoutWindow({15000_tw, 10500_tw}, parts(true, false)).buttons[0].left);
}

TEST(PlaceOverview, KeepsTheDrawingsProportions) {
    const Rect wide = placeOverview({15000_tw, 10500_tw}, {60000_tw, 20000_tw});
    EXPECT_EQ(wide, (Rect{11850_tw, 9350_tw, 3000_tw, 1000_tw}));
    const Rect high = placeOverview({15000_tw, 10500_tw}, {20000_tw, 60000_tw});
    EXPECT_EQ(high.size(), (Size{800_tw, 2400_tw}));
    EXPECT_EQ(high.right(), 14850_tw);
}

TEST(PlaceOverview, StaysReadableAndIsLeftOutWhereThereIsNoRoom) {
    EXPECT_EQ(placeOverview({15000_tw, 10500_tw}, {2000000000_tw, 100_tw}).size(), (Size{3000_tw, 450_tw}));
    EXPECT_EQ(placeOverview({1000_tw, 10500_tw}, {2000_tw, 2000_tw}), Rect{});
    EXPECT_EQ(placeOverview({15000_tw, 10500_tw}, {0_tw, 0_tw}), Rect{});
    const Rect small = placeOverview({3000_tw, 3000_tw}, {5000_tw, 5000_tw});
    EXPECT_EQ(small.size(), (Size{1000_tw, 1000_tw}));
}

}  // namespace
}  // namespace quorel::diagram
