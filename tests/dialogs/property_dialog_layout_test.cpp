#include "dialogs/property_dialog_layout.h"

#include <gtest/gtest.h>

namespace quorel::dialogs {
namespace {

using ui::Rect;
using ui::Size;
using ui::Twips;
using namespace ui::literals;

constexpr Twips kLineHeight = 240_tw;

TEST(PropertyDialogLayout, GridIsAboveTheRowOfButtons) {
    const PropertyDialogLayout layout = layoutPropertyDialog({6600_tw, 6000_tw}, kLineHeight);
    EXPECT_EQ(layout.property, (Rect{0_tw, 0_tw, 6600_tw, 5385_tw}));
    EXPECT_EQ(layout.buttons, (Rect{0_tw, 5385_tw, 6600_tw, 615_tw}));
    EXPECT_EQ(layout.ok, (Rect{3975_tw, 120_tw, 1200_tw, 375_tw}));
    EXPECT_EQ(layout.cancel, (Rect{5280_tw, 120_tw, 1200_tw, 375_tw}));
}

TEST(PropertyDialogLayout, RowIsDirectlyBelowTheGridAtEverySize) {
    for (const std::int32_t line : {195, 240, 300, 480})
        for (std::int32_t height = 0; height < 20000; height += 311) {
            const Size client{Twips{height}, Twips{height}};
            const PropertyDialogLayout layout = layoutPropertyDialog(client, Twips{line});
            EXPECT_EQ(layout.property.left, 0_tw);
            EXPECT_EQ(layout.property.top, 0_tw);
            EXPECT_EQ(layout.property.width, client.width);
            EXPECT_EQ(layout.buttons.top, layout.property.bottom());
            EXPECT_EQ(layout.property.height, std::max(client.height - layout.buttons.height, 0_tw));
            EXPECT_LT(layout.ok.right(), layout.cancel.left);
        }
}

TEST(PropertyDialogLayout, EverythingFitsAtTheLeastSize) {
    const Size least = leastPropertyDialogSize(kLineHeight);
    const PropertyDialogLayout layout = layoutPropertyDialog(least, kLineHeight);
    EXPECT_GE(layout.ok.left, 0_tw);
    EXPECT_LE(layout.cancel.right(), least.width);
    EXPECT_EQ(layout.buttons.bottom(), least.height);
    EXPECT_GE(layout.property.height, kLineHeight * 8);
}

}  // namespace
}  // namespace quorel::dialogs
