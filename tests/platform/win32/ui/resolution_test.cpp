// Twips to pixels, at the resolutions of screens.

#include "platform/win32/ui/native_scope.h"
#include "platform/win32/ui/system_headers.h"
#include "tests/platform/win32/ui/windows_fixture.h"

namespace quorel::win32::testing {

using namespace ui::literals;
using Resolutions = GalleryTest;

namespace {

[[nodiscard]] ui::PixelRect placeOf(HWND window) {
    RECT r{};
    ::GetWindowRect(window, &r);
    ::MapWindowPoints(nullptr, ::GetParent(window), reinterpret_cast<POINT*>(&r), 2);
    return {r.left, r.top, r.right, r.bottom};
}

[[nodiscard]] LONG fontHeight(HWND window) {
    LOGFONTW font{};
    ::GetObjectW(reinterpret_cast<HFONT>(::SendMessageW(window, WM_GETFONT, 0, 0)), sizeof(font), &font);
    return font.lfHeight;
}

void moveToResolution(HWND form, int dpi, int width, int height) {
    RECT suggested{40, 40, 40 + width, 40 + height};
    ::SendMessageW(form, WM_DPICHANGED, MAKEWPARAM(dpi, dpi), reinterpret_cast<LPARAM>(&suggested));
    pump();
}

}  // namespace

TEST_F(Resolutions, EveryControlStandsOnItsRoundedEdges) {
    const LONG height96 = fontHeight(window(*gallery->label));
    for (const int dpi : {120, 144, 192, 96}) {
        SCOPED_TRACE(dpi);
        moveToResolution(form(), dpi, 800 * dpi / 96, 600 * dpi / 96);
        for (const auto& child : gallery->form->children())
            EXPECT_EQ(placeOf(window(*child)), toPixels(child->bounds(), dpi));
        EXPECT_NEAR(static_cast<double>(fontHeight(window(*gallery->label))),
                    static_cast<double>(height96) * dpi / 96, 1.0);
        RECT client{};
        ::GetClientRect(form(), &client);
        EXPECT_EQ(toPixels(gallery->form->clientSize().width, dpi), client.right);
        EXPECT_EQ(toPixels(gallery->form->clientSize().height, dpi), client.bottom);
        EXPECT_EQ(::SendMessageW(window(*gallery->list), LVM_GETCOLUMNWIDTH, 0, 0),
                  toPixels(gallery->list->columns()[0].width, dpi));
    }
}

TEST_F(Resolutions, NeighboursTouchWithoutGapOrOverlap) {
    for (const int dpi : {96, 120, 144, 192}) {
        moveToResolution(form(), dpi, 800 * dpi / 96, 600 * dpi / 96);
        const ui::PixelRect list = placeOf(window(*gallery->list));
        const ui::PixelRect bar = placeOf(window(*gallery->splitter));
        const ui::PixelRect side = placeOf(window(*gallery->side));
        EXPECT_EQ(list.right, bar.left) << dpi;
        EXPECT_EQ(bar.right, side.left) << dpi;
    }
}

TEST_F(Resolutions, AWidthThatTheUserChangedComesBackInTwips) {
    moveToResolution(form(), 144, 1200, 900);
    const HWND list = window(*gallery->list);
    std::vector<std::size_t> resized;
    gallery->list->onColumnResize.connect([&](std::size_t column) { resized.push_back(column); });
    ::SendMessageW(list, LVM_SETCOLUMNWIDTH, 1, 150);
    EXPECT_EQ(resized, std::vector<std::size_t>{1});
    EXPECT_EQ(gallery->list->columns()[1].width, 1500_tw);
}

using OpeningPlaces = WindowsTest;

TEST_F(OpeningPlaces, AreTheMiddleOfTheWorkAreaOrWhereTheOwnerSays) {
    Gallery centred(*desktop);
    centred.form->show(ui::Modality::Modeless);
    pump();
    RECT outer{}, area{};
    ::GetWindowRect(windowFor(*centred.form), &outer);
    ::SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
    EXPECT_NEAR(static_cast<double>(outer.left + outer.right), static_cast<double>(area.left + area.right),
                60);
    EXPECT_NEAR(static_cast<double>(outer.top + outer.bottom), static_cast<double>(area.top + area.bottom),
                60);
    Gallery placed(*desktop);
    placed.form->setPosition({1500_tw, 1350_tw});
    placed.form->show(ui::Modality::Modeless);
    ::GetWindowRect(windowFor(*placed.form), &outer);
    EXPECT_EQ(outer.left, toPixels(1500_tw, primaryDpi()));
    EXPECT_EQ(outer.top, toPixels(1350_tw, primaryDpi()));
}

TEST_F(OpeningPlaces, OffEveryScreenAreNotUsed) {
    Gallery gallery(*desktop);
    gallery.form->setPosition({1'500'000_tw, 1'500'000_tw});
    gallery.form->show(ui::Modality::Modeless);
    pump();
    RECT outer{};
    ::GetWindowRect(windowFor(*gallery.form), &outer);
    EXPECT_LT(outer.left, 10'000);
}

TEST_F(OpeningPlaces, AMaximizedFormOpensMaximizedAndSaysSo) {
    Gallery gallery(*desktop);
    gallery.form->setMaximized(true);
    gallery.form->show(ui::Modality::Modeless);
    pump();
    EXPECT_NE(::IsZoomed(windowFor(*gallery.form)), FALSE);
    ::ShowWindow(windowFor(*gallery.form), SW_RESTORE);
    pump();
    EXPECT_FALSE(gallery.form->isMaximized());
}

TEST_F(OpeningPlaces, TheFormerSizeComingBackIsReportedOnlyIfItStays) {
    Gallery gallery(*desktop);
    gallery.form->show(ui::Modality::Modeless);
    pumpPatiently();
    const ui::Size former = gallery.form->clientSize();
    const HWND form = windowFor(*gallery.form);
    RECT outer{};
    ::GetWindowRect(form, &outer);
    gallery.form->setClientSize({9000_tw, 6000_tw});
    int resizes = 0;
    gallery.form->onResize.connect([&] { ++resizes; });
    ::SetWindowPos(form, nullptr, 0, 0, outer.right - outer.left, outer.bottom - outer.top,
                   SWP_NOMOVE | SWP_NOZORDER);
    EXPECT_EQ(resizes, 0);
    ::Sleep(600);
    pumpPatiently();
    EXPECT_EQ(resizes, 1);
    EXPECT_EQ(gallery.form->clientSize(), former);
}

TEST_F(OpeningPlaces, AMenuBarThatComesAndGoesLeavesTheClientSize) {
    Gallery gallery(*desktop);
    gallery.form->show(ui::Modality::Modeless);
    pump();
    const HWND form = windowFor(*gallery.form);
    const ui::Size size = gallery.form->clientSize();
    for (const bool visible : {false, true}) {
        for (const auto& entry : gallery.form->menuBar().items())
            entry->setVisible(visible);
        pump();
        EXPECT_EQ(::GetMenu(form) != nullptr, visible);
        RECT client{};
        ::GetClientRect(form, &client);
        EXPECT_EQ(client.right, toPixels(size.width, dpiOf(form)));
        EXPECT_EQ(client.bottom, toPixels(size.height, dpiOf(form)));
        EXPECT_EQ(gallery.form->clientSize(), size);
    }
}

}  // namespace quorel::win32::testing
