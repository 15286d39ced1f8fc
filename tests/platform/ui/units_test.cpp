#include "platform/ui/units.h"

#include <gtest/gtest.h>

namespace quorel::ui {

using namespace literals;

TEST(Units, FifteenTwipsAreOnePixelAt96DotsPerInch) {
    EXPECT_EQ(toPixels(15_tw, 96), 1);
    EXPECT_EQ(toPixels(1440_tw, 96), 96);
    EXPECT_EQ(toPixels(1440_tw, 144), 144);
    EXPECT_EQ(toTwips(1, 96), 15_tw);
}

TEST(Units, HalvesAreRoundedAwayFromZero) {
    EXPECT_EQ(toPixels(Twips{7}, 96), 0);
    EXPECT_EQ(toPixels(Twips{8}, 96), 1);
    EXPECT_EQ(toPixels(Twips{-8}, 96), -1);
    EXPECT_EQ(toPixels(Twips{-7}, 96), 0);
}

TEST(Units, NeighboursInTwipsStayNeighboursInPixels) {
    for (const std::int32_t dpi : {96, 120, 144, 168, 192, 97}) {
        for (std::int32_t left = -100; left < 100; ++left) {
            const Rect a{{left}, {0}, {101}, {50}};
            const Rect b{a.right(), {0}, {77}, {50}};
            EXPECT_EQ(toPixels(a, dpi).right, toPixels(b, dpi).left);
        }
    }
}

TEST(Units, TheLargestLengthsDoNotOverflow) {
    EXPECT_EQ(toPixels(Twips{2'000'000'000}, 96), 133'333'333);
    EXPECT_EQ(toTwips(100'000'000, 96).value, 1'500'000'000);
}

}  // namespace quorel::ui
