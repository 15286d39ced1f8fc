#include "settings/options_layout.h"

#include <gtest/gtest.h>

#include <vector>

namespace quorel::settings {
namespace {

using ui::Rect;
using ui::Size;
using ui::Twips;

OptionsMeasures on(Size workArea) {
    return {Twips{195}, {{60}, {390}, {60}, {60}}, Twips{255}, workArea};
}

const OptionsMeasures kLarge = on({{28'800}, {16'200}});

TEST(OptionsLayout, TheStripHoldsTheLargestPageAndTheButtonsAreBelow) {
    const std::vector<Size> pages{{Twips{6000}, Twips{3000}}, {Twips{8000}, Twips{2000}}};
    const OptionsLayout layout = layoutOptions(pages, kLarge);
    EXPECT_EQ(layout.page.size(), (Size{Twips{8000}, Twips{3000}}));
    EXPECT_EQ(layout.strip.left + layout.page.left, Twips{210});
    EXPECT_LE(layout.page.right() + Twips{60}, layout.strip.width);
    EXPECT_LE(layout.page.bottom() + Twips{60}, layout.strip.height);
    EXPECT_EQ(layout.buttons.top, layout.strip.bottom() + layout.strip.left);
    EXPECT_EQ(layout.client, (Size{layout.strip.width + layout.strip.left * 2,
                                   layout.buttons.bottom() + layout.strip.left * 2}));
    EXPECT_LE(layout.apply.right(), layout.buttons.width);
    EXPECT_LT(layout.ok.right(), layout.cancel.left);
    EXPECT_LT(layout.cancel.right(), layout.apply.left);
    EXPECT_LT(layout.message.right(), layout.ok.left);
}

TEST(OptionsLayout, APageHigherThanTheScreenIsCutAndHasRoomForItsBar) {
    const std::vector<Size> pages{{Twips{6000}, Twips{60'000}}};
    const OptionsLayout layout = layoutOptions(pages, kLarge);
    EXPECT_EQ(layout.page.width, Twips{6000 + 255});
    EXPECT_LE(layout.client.height, kLarge.workArea.height);
    EXPECT_GT(layout.client.height, kLarge.workArea.height - Twips{1000});
}

TEST(OptionsLayout, WithoutPagesThereIsRoomForOne) {
    const OptionsLayout layout = layoutOptions({}, kLarge);
    EXPECT_GT(layout.page.width, Twips{0});
    EXPECT_GT(layout.page.height, Twips{0});
    EXPECT_GE(layout.ok.left, Twips{0});
}

TEST(OptionsLayout, TwoColumnsFitTheScreen) {
    EXPECT_EQ(columnWidth(kLarge), Twips{5400});
    const OptionsMeasures narrow = on({{9600}, {6750}});
    const std::vector<Size> pages{{columnWidth(narrow) * 2, Twips{60'000}}};
    EXPECT_LE(layoutOptions(pages, narrow).client.width, narrow.workArea.width);
    EXPECT_EQ(columnWidth(on({{1000}, {1000}})), Twips{3000});
}

}  // namespace
}  // namespace quorel::settings
