#include "platform/ui/image_list.h"

#include <gtest/gtest.h>

#include "platform/headless/user.h"
#include "platform/ui/tree.h"

namespace quorel::ui {

namespace {

[[nodiscard]] Picture square(std::int32_t side, std::uint8_t red) {
    Picture picture{side, side, {}};
    for (std::int32_t i = 0; i < side * side; ++i)
        picture.rgba.insert(picture.rgba.end(), {red, 0, 0, 255});
    return picture;
}

[[nodiscard]] std::uint8_t redAt(const Picture& picture, std::int32_t x, std::int32_t y) {
    return picture.rgba[static_cast<std::size_t>(y * picture.width + x) * 4];
}

[[nodiscard]] std::uint8_t alphaAt(const Picture& picture, std::int32_t x, std::int32_t y) {
    return picture.rgba[static_cast<std::size_t>(y * picture.width + x) * 4 + 3];
}

}  // namespace

TEST(ImageList, KeepsPlacesWhenAPictureIsReplaced) {
    ImageList list;
    list.set(u"Node", square(16, 10));
    list.set(u"Link", square(16, 20));
    list.set(u"Node", square(16, 30));
    EXPECT_EQ(list.count(), 2U);
    EXPECT_EQ(list.placeOf(u"Node"), 0U);
    EXPECT_EQ(list.placeOf(u"Link"), 1U);
    EXPECT_EQ(list.placeOf(u"link"), std::nullopt);
    EXPECT_EQ(redAt(list.at(0, 96), 0, 0), 30);
}

TEST(ImageList, TakesTheFrameThatIsLargeEnough) {
    ImageList list;
    list.set(u"Node", {square(48, 48), square(16, 16), square(32, 32)});
    EXPECT_EQ(redAt(list.at(0, 96), 8, 8), 16);
    EXPECT_EQ(redAt(list.at(0, 192), 8, 8), 32);
    EXPECT_EQ(redAt(list.at(0, 144), 8, 8), 32);
    EXPECT_EQ(redAt(list.at(0, 480), 8, 8), 48);
    EXPECT_EQ(list.at(0, 144).width, 24);
    EXPECT_EQ(list.at(0, 480).width, 80);
}

TEST(ImageList, APictureOfAnotherShapeStandsInTheMiddle) {
    ImageList list;
    Picture wide{32, 16, {}};
    wide.rgba.assign(32 * 16 * 4, 255);
    list.set(u"Wide", wide);
    const Picture shown = list.at(0, 96);
    EXPECT_EQ(shown.width, 16);
    EXPECT_EQ(shown.height, 16);
    EXPECT_EQ(alphaAt(shown, 8, 3), 0);
    EXPECT_EQ(alphaAt(shown, 8, 4), 255);
    EXPECT_EQ(alphaAt(shown, 8, 11), 255);
    EXPECT_EQ(alphaAt(shown, 8, 12), 0);
}

TEST(ImageList, APictureThatIsNotWholeShowsNothing) {
    ImageList list;
    list.set(u"None", std::vector<Picture>{});
    list.set(u"Torn", Picture{16, 16, {1, 2, 3}});
    EXPECT_TRUE(list.at(0, 96).rgba.empty());
    EXPECT_TRUE(list.at(1, 96).rgba.empty());
}

TEST(ImageList, ItsUsersHearOfNewPicturesForAsLongAsTheyUseIt) {
    headless::HeadlessDesktop desktop;
    auto images = std::make_shared<ImageList>();
    {
        const auto form = std::make_shared<Form>(desktop, u"frmImages");
        Tree& tree = form->add<Tree>(u"Tree");
        tree.setImages(images);
        form->show(Modality::Modeless);
        auto& peer = dynamic_cast<headless::HeadlessPeer&>(*tree.peer());
        static_cast<void>(peer.takeChanges());
        images->set(u"Node", square(16, 10));
        EXPECT_EQ(peer.takeChanges(), Change::Images);
        tree.setImages(nullptr);
        static_cast<void>(peer.takeChanges());
        images->set(u"Link", square(16, 10));
        EXPECT_EQ(peer.takeChanges(), Change::None);
        tree.setImages(images);
    }
    images->set(u"Gone", square(16, 10));
    EXPECT_EQ(images->count(), 3U);
}

namespace {

class Pictured final : public RowSource {
  public:
    [[nodiscard]] std::size_t rowCount() const override { return 3; }
    [[nodiscard]] std::u16string cellText(std::size_t, std::size_t) override { return u"cell"; }
    [[nodiscard]] std::u16string rowPicture(std::size_t row) override {
        return row == 0 ? u"" : row == 1 ? u"Node" : u"Unknown";
    }
};

}  // namespace

TEST(ImageList, RowsNameTheirPictures) {
    headless::HeadlessDesktop desktop;
    Pictured rows;
    const auto form = std::make_shared<Form>(desktop, u"frmImages");
    VirtualList& list = form->add<VirtualList>(u"List");
    list.setSource(&rows);
    EXPECT_EQ(list.rowPicture(1), std::nullopt);
    const auto images = std::make_shared<ImageList>();
    list.setImages(images);
    EXPECT_EQ(list.rowPicture(1), std::nullopt);
    images->set(u"Node", square(16, 10));
    EXPECT_EQ(list.rowPicture(0), std::nullopt);
    EXPECT_EQ(list.rowPicture(1), 0U);
    EXPECT_EQ(list.rowPicture(2), std::nullopt);
    EXPECT_EQ(list.rowPicture(3), std::nullopt);
}

}  // namespace quorel::ui
