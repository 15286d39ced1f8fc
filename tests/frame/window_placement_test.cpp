#include "frame/window_placement.h"

#include <gtest/gtest.h>

#include <array>

#include "tests/support/test_world.h"

namespace quorel::frame {
namespace {

using namespace ui::literals;

TEST(WindowPlacement, WindowIsBroughtBackOntoTheScreen) {
    constexpr ui::Rect kScreen{0_tw, 0_tw, 20000_tw, 15000_tw};
    EXPECT_EQ(fitInto(kScreen, {100_tw, 200_tw, 5000_tw, 4000_tw}),
              (ui::Rect{100_tw, 200_tw, 5000_tw, 4000_tw}));
    EXPECT_EQ(fitInto(kScreen, {90000_tw, -90000_tw, 5000_tw, 4000_tw}),
              (ui::Rect{15000_tw, 0_tw, 5000_tw, 4000_tw}));
    EXPECT_EQ(fitInto(kScreen, {500_tw, 500_tw, 50000_tw, 50000_tw}), kScreen);
}

TEST(WindowPlacement, EachWindowHasItsOwn) {
    testing::TestWorld world;
    std::int32_t share = 2500;
    const std::array shares{KeptShare{u"Tree", &share}};
    const WindowPlacement placement{ui::Point{30_tw, 45_tw}, {6000_tw, 4500_tw}, true};
    writeWindowPlacement(world.settings, u"frmOne", placement, shares);
    share = 0;
    EXPECT_EQ(readWindowPlacement(world.settings, u"frmTwo", shares), std::nullopt);
    EXPECT_EQ(share, 0) << "nothing was read";
    EXPECT_EQ(readWindowPlacement(world.settings, u"frmOne", shares), placement);
    EXPECT_EQ(share, 2500);
}

TEST(WindowPlacement, SharesThatMakeNoSenseAreNotTaken) {
    testing::TestWorld world;
    std::int32_t first = 1, second = 2;
    const std::array shares{KeptShare{u"First", &first}, KeptShare{u"Second", &second}};
    writeWindowPlacement(world.settings, u"frmOne", {std::nullopt, {6000_tw, 4500_tw}}, shares);
    world.settings.write(u"QuorelUtility", u"frmOne", u"First", u"77");
    world.settings.write(u"QuorelUtility", u"frmOne", u"Second", u"10001");
    EXPECT_EQ(readWindowPlacement(world.settings, u"frmOne", shares), std::nullopt);
    EXPECT_EQ(first, 1);
}

TEST(WindowPlacement, AMaximizedWindowKeepsWhatItGoesBackTo) {
    testing::TestWorld world;
    const auto window = std::make_shared<ui::Form>(world.desktop, u"frmOne");
    place(*window, {ui::Point{150_tw, 300_tw}, {6000_tw, 4500_tw}});
    const WindowPlacement normal = placementOf(*window, {});
    EXPECT_EQ(normal, (WindowPlacement{ui::Point{150_tw, 300_tw}, {6000_tw, 4500_tw}}));
    window->setMaximized(true);
    window->userResized({20000_tw, 15000_tw});
    const WindowPlacement maximized = placementOf(*window, normal);
    EXPECT_TRUE(maximized.maximized);
    EXPECT_EQ(maximized.size, normal.size);
    EXPECT_EQ(maximized.position, normal.position);
}

}  // namespace
}  // namespace quorel::frame
