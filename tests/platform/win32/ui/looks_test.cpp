// What buttons with pictures and rows with a look of their own paint.

#include <algorithm>

#include "platform/ui/glyphs.h"
#include "tests/platform/win32/ui/colours.h"
#include "tests/platform/win32/ui/snapshot.h"
#include "tests/platform/win32/ui/windows_fixture.h"

namespace quorel::win32::testing {

using namespace ui::literals;
using Looks = GalleryTest;

namespace {

constexpr ui::Colour kGreen{30, 130, 55};

[[nodiscard]] std::size_t solid(const ui::Picture& picture, ui::Colour colour) {
    std::size_t found = 0;
    for (std::size_t i = 0; i < picture.rgba.size(); i += 4)
        found += picture.rgba[i] == colour.red && picture.rgba[i + 1] == colour.green &&
                         picture.rgba[i + 2] == colour.blue && picture.rgba[i + 3] == 255
                     ? 1U
                     : 0U;
    return found;
}

void moveToResolution(HWND form, int dpi) {
    RECT suggested{40, 40, 40 + 800 * dpi / 96, 40 + 600 * dpi / 96};
    ::SendMessageW(form, WM_DPICHANGED, MAKEWPARAM(dpi, dpi), reinterpret_cast<LPARAM>(&suggested));
    pump();
}

/// Row 0 is a group, row 1 is marked in its second column.
class LookingRows final : public ui::RowSource {
  public:
    static constexpr ui::Colour kMark{10, 200, 30};
    bool looks = true;
    std::size_t asked = 0;

    [[nodiscard]] std::size_t rowCount() const override { return 4; }
    [[nodiscard]] std::u16string cellText(std::size_t, std::size_t) override { return u"text"; }
    [[nodiscard]] bool hasLooks() const override { return looks; }
    [[nodiscard]] bool isGroup(std::size_t row) override {
        ++asked;
        return row == 0;
    }
    [[nodiscard]] ui::CellLook cellLook(std::size_t row, std::size_t column) override {
        ++asked;
        if (row == 1 && column == 1)
            return {true, ui::Colour{255, 255, 255}, kMark};
        return {};
    }
};

[[nodiscard]] RECT cellRect(HWND list, int row, int column) {
    RECT r{};
    r.top = column;
    r.left = LVIR_LABEL;
    ::SendMessageW(list, LVM_GETSUBITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&r));
    return r;
}

}  // namespace

TEST_F(Looks, AButtonPaintsItsDrawingPixelByPixelAtEveryResolution) {
    gallery->addDrawings();
    ui::Button& button = *gallery->glyphs.front();
    for (const int dpi : {96, 144, 192}) {
        SCOPED_TRACE(dpi);
        moveToResolution(form(), dpi);
        const ui::Picture picture = button.pictureAt(dpi);
        EXPECT_EQ(picture.width, 16 * dpi / 96);
        ASSERT_GT(solid(picture, kGreen), 20U);
        EXPECT_EQ(Snapshot(window(button)).count(kGreen), solid(picture, kGreen));
    }
}

TEST_F(Looks, APictureOfAListGrowsWithTheResolution) {
    ui::Picture picture{16, 16, {}};
    for (int i = 0; i < 16 * 16; ++i)
        picture.rgba.insert(picture.rgba.end(), {kRed.red, kRed.green, kRed.blue, 255});
    const auto images = std::make_shared<ui::ImageList>();
    images->set(u"face", picture);
    gallery->picture->setImage(images, u"face");
    for (const int dpi : {96, 192, 144, 96}) {
        SCOPED_TRACE(dpi);
        moveToResolution(form(), dpi);
        const auto side = static_cast<std::size_t>(16 * dpi / 96);
        EXPECT_EQ(Snapshot(window(*gallery->picture)).count(kRed), side * side);
    }
}

TEST_F(Looks, ALineOfTextStandsInTheMiddleOfItsBox) {
    for (const int dpi : {96, 144, 192}) {
        SCOPED_TRACE(dpi);
        moveToResolution(form(), dpi);
        const HWND box = window(*gallery->box);
        RECT outer{}, line{};
        ::GetWindowRect(box, &outer);
        ::GetClientRect(box, &line);
        ::MapWindowPoints(box, nullptr, reinterpret_cast<POINT*>(&line), 2);
        EXPECT_NEAR(static_cast<double>(line.top - outer.top),
                    static_cast<double>(outer.bottom - line.bottom), 1.0);
        const auto font = reinterpret_cast<HFONT>(::SendMessageW(box, WM_GETFONT, 0, 0));
        EXPECT_EQ(line.bottom - line.top, lineHeight(font) + 2);
        // A click beside the line is one into the box.
        const LPARAM besides = MAKELPARAM(line.left + 5, line.top - 1);
        EXPECT_EQ(::SendMessageW(box, WM_NCHITTEST, 0, besides), HTCLIENT);
    }
}

TEST_F(Looks, NoLineOfACaptionIsCutBesideItsBox) {
    ui::CheckBox& check = gallery->form->add<ui::CheckBox>(u"Long");
    check.setText(
        u"Be formal towards everybody who is not known by name, and even towards those who are when it is "
        u"late");
    for (const int dpi : {96, 192})
        for (int width = 4200; width < 5100; width += 30) {
            SCOPED_TRACE(width);
            moveToResolution(form(), dpi);
            check.setBounds({0_tw, 0_tw, {width}, 900_tw});
            RECT client{};
            ::GetClientRect(window(check), &client);
            EXPECT_LE(client.right, toPixels(ui::Twips{width}, dpi));
            EXPECT_GT(client.right, toPixels(ui::Twips{width - 240}, dpi));
            const Snapshot shot(window(check));
            const ui::Colour ground = shot.at(client.right - 1, 0);
            const RECT edge{client.right - 1, 0, client.right, client.bottom};
            EXPECT_EQ(shot.count(ground, edge), static_cast<std::size_t>(client.bottom));
            EXPECT_LT(shot.count(ground), static_cast<std::size_t>(client.right * client.bottom));
        }
}

TEST_F(Looks, ADisabledButtonPaintsItsDrawingFaintly) {
    gallery->addDrawings();
    ui::Button& button = *gallery->glyphs.front();
    button.setEnabled(false);
    const Snapshot disabled(window(button));
    EXPECT_EQ(disabled.count(kGreen), 0U);
    button.setGlyph(nullptr);
    button.setText(u"");
    const Snapshot bare(window(button));
    EXPECT_FALSE(disabled.at(10, 10) == bare.at(10, 10));
}

TEST_F(Looks, AListAsksForLooksOnlyWhenItsRowsHaveThem) {
    LookingRows rows;
    rows.looks = false;
    gallery->list->setSource(&rows);
    ::RedrawWindow(window(*gallery->list), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
    EXPECT_EQ(rows.asked, 0U);
    rows.looks = true;
    const Snapshot drawn(window(*gallery->list));
    EXPECT_GT(rows.asked, 4U);
    gallery->list->setSource(nullptr);
}

TEST_F(Looks, GroupsAndMarkedCellsAreToldApart) {
    LookingRows rows;
    gallery->list->setSource(&rows);
    const HWND list = window(*gallery->list);
    pump();
    const Snapshot drawn(list);
    const ui::Colour ground{235, 235, 255};
    const RECT group = cellRect(list, 0, 2), marked = cellRect(list, 1, 1), plain = cellRect(list, 2, 1);
    EXPECT_EQ(drawn.count(ground, group), 0U);
    EXPECT_GT(drawn.count(LookingRows::kMark, marked), 100U);
    EXPECT_EQ(drawn.count(LookingRows::kMark, plain), 0U);
    EXPECT_GT(drawn.count(ground, plain), 100U);
    gallery->list->setSource(nullptr);
}

}  // namespace quorel::win32::testing
