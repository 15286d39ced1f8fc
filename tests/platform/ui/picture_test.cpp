#include "platform/ui/picture.h"

#include <gtest/gtest.h>

#include "platform/headless/headless_desktop.h"
#include "platform/ui/form.h"
#include "platform/ui/glyphs.h"
#include "platform/ui/plain_controls.h"

namespace quorel::ui {

using namespace literals;

namespace {

[[nodiscard]] Picture twoPixels() {
    return {2, 1, {255, 0, 0, 255, 0, 0, 255, 0}};
}

}  // namespace

TEST(Picture, IsWholeWhenItsBytesFitItsSize) {
    EXPECT_TRUE(isWhole(twoPixels()));
    EXPECT_FALSE(isWhole({}));
    EXPECT_FALSE(isWhole({2, 2, {1, 2, 3, 4}}));
    EXPECT_FALSE(isWhole({-1, -1, {1, 2, 3, 4}}));
}

TEST(Picture, GrowsSmoothlyWithoutTheColourOfTransparentPixels) {
    const Picture grown = scaled(twoPixels(), 4, 2);
    ASSERT_TRUE(isWhole(grown));
    EXPECT_EQ(grown.rgba[3], 255);
    EXPECT_EQ(grown.rgba[7], 191);
    EXPECT_EQ(grown.rgba[4], 255);
    EXPECT_EQ(grown.rgba[6], 0);
    EXPECT_EQ(grown.rgba[15], 0);
    EXPECT_EQ(scaled(twoPixels(), 2, 1).rgba, twoPixels().rgba);
    EXPECT_FALSE(isWhole(scaled(twoPixels(), 0, 2)));
    EXPECT_FALSE(isWhole(scaled({2, 2, {1}}, 4, 4)));
}

TEST(Picture, DimmedIsGreyAndFainter) {
    const Picture dim = dimmed(twoPixels());
    EXPECT_EQ(dim.rgba[0], dim.rgba[1]);
    EXPECT_EQ(dim.rgba[1], dim.rgba[2]);
    EXPECT_EQ(dim.rgba[3], 102);
    EXPECT_EQ(dim.rgba[7], 0);
}

TEST(ButtonPicture, IsMadeForTheResolutionAndFitsTheButton) {
    headless::HeadlessDesktop desktop;
    const auto form = std::make_shared<Form>(desktop, u"frmPictures");
    Button& button = form->add<Button>(u"New");
    EXPECT_TRUE(button.pictureAt(96).rgba.empty());
    button.setGlyph(glyphs::newNode());
    button.setBounds({0_tw, 0_tw, 300_tw, 300_tw});
    EXPECT_EQ(button.pictureAt(96).width, 16);
    EXPECT_EQ(button.pictureAt(144).width, 24);
    EXPECT_EQ(button.pictureAt(192).width, 32);
    button.setBounds({0_tw, 0_tw, 900_tw, 240_tw});
    EXPECT_EQ(button.pictureAt(96).width, 12);
    button.setPicture(std::make_shared<const Picture>(twoPixels()));
    EXPECT_EQ(button.glyph(), nullptr);
    EXPECT_EQ(button.pictureAt(192).width, 4);
    button.setGlyph(glyphs::tick());
    EXPECT_EQ(button.picture(), nullptr);
}

TEST(PictureBoxImage, IsAsLargeAsTheListSaysAtEveryResolution) {
    headless::HeadlessDesktop desktop;
    const auto form = std::make_shared<Form>(desktop, u"frmPictures");
    auto& box = form->add<PictureBox>(u"CaptionBox");
    const auto images = std::make_shared<ImageList>(ImageList::kBig);
    box.setImage(images, u"face");
    EXPECT_FALSE(isWhole(box.pictureAt(96))) << "not there yet";
    Picture large{64, 64, {}}, small{32, 32, {}};
    large.rgba.assign(64 * 64 * 4, 1);
    small.rgba.assign(32 * 32 * 4, 2);
    images->set(u"face", {small, large});
    EXPECT_EQ(box.pictureAt(96).rgba, small.rgba);
    EXPECT_EQ(box.pictureAt(144).width, 48);
    EXPECT_EQ(box.pictureAt(192).rgba, large.rgba) << "the frame that fits is taken as it is";
    box.setPicture(std::make_shared<const Picture>(twoPixels()));
    EXPECT_EQ(box.pictureAt(192).width, 2) << "a picture alone has its own size";
    box.setImage(images, u"Face");
    EXPECT_FALSE(isWhole(box.pictureAt(96))) << "case counts";
    EXPECT_EQ(box.picture(), nullptr);
}

}  // namespace quorel::ui
