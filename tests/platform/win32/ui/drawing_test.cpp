// Drawings on windows: what the painter draws is what is seen, at every resolution.

#include "platform/ui/drawing_area.h"
#include "platform/win32/ui/native_scope.h"
#include "tests/platform/win32/ui/colours.h"
#include "tests/platform/win32/ui/snapshot.h"
#include "tests/platform/win32/ui/windows_fixture.h"

namespace quorel::win32::testing {

using namespace ui::literals;

namespace {

struct DrawingForm {
    explicit DrawingForm(ui::Desktop& desktop)
        : form(std::make_shared<ui::Form>(desktop, u"frmDrawing")),
          area(form->add<ui::DrawingArea>(u"Area")) {
        form->setClientSize({6000_tw, 4500_tw});
        area.setBounds({150_tw, 150_tw, 3000_tw, 2250_tw});
        area.setBackground(kWhite);
    }
    void show() const {
        form->show(ui::Modality::Modeless);
        pump();
    }
    void moveTo(int dpi) const {
        RECT suggested{40, 40, 40 + 500 * dpi / 96, 40 + 400 * dpi / 96};
        ::SendMessageW(windowFor(*form), WM_DPICHANGED, MAKEWPARAM(dpi, dpi),
                       reinterpret_cast<LPARAM>(&suggested));
        pump();
    }
    [[nodiscard]] Snapshot look() const { return Snapshot(windowFor(area)); }

    std::shared_ptr<ui::Form> form;
    ui::DrawingArea& area;
};

/// How far the ink of a picture reaches to the right.
[[nodiscard]] LONG rightOfInk(const Snapshot& picture, HWND window) {
    RECT client{};
    ::GetClientRect(window, &client);
    for (LONG x = client.right; x-- > 0;)
        for (LONG y = 0; y < client.bottom; ++y)
            if (picture.at(x, y) != kWhite)
                return x;
    return -1;
}

}  // namespace

using Drawings = WindowsTest;

TEST_F(Drawings, StandWhereTheyAreDrawnAtEveryResolution) {
    DrawingForm drawing(*desktop);
    drawing.area.setPainter([](ui::Canvas& canvas, const ui::Rect&) {
        canvas.fillRectangle({300_tw, 150_tw, 600_tw, 450_tw}, kRed);
        canvas.setView({{1500_tw, 0_tw, 750_tw, 2250_tw}, {3000_tw, 0_tw}, 0.5});
        canvas.fillRectangle({3000_tw, 600_tw, 9000_tw, 600_tw}, kBlue);
    });
    drawing.show();
    for (const int dpi : {96, 192}) {
        SCOPED_TRACE(dpi);
        drawing.moveTo(dpi);
        const Snapshot seen = drawing.look();
        const auto pixels = static_cast<std::size_t>(dpi * dpi) / (96 * 96);
        EXPECT_EQ(seen.count(kRed), 40 * 30 * pixels);
        EXPECT_EQ(seen.count(kBlue), 50 * 20 * pixels) << "no more than the view's clip";
        const RECT red{20 * dpi / 96, 10 * dpi / 96, 60 * dpi / 96, 40 * dpi / 96};
        EXPECT_EQ(seen.count(kRed, red), seen.count(kRed));
        EXPECT_EQ(seen.at(2 * dpi / 96, 2 * dpi / 96), kWhite);
    }
}

TEST_F(Drawings, HearTheMouseInTwipsAtEveryResolution) {
    DrawingForm drawing(*desktop);
    drawing.show();
    std::vector<ui::Point> heard;
    drawing.area.onMouseDown.connect([&](const ui::MouseEvent& event) { heard.push_back(event.at); });
    for (const int dpi : {96, 192}) {
        drawing.moveTo(dpi);
        click(windowFor(drawing.area), {20 * dpi / 96, 30 * dpi / 96});
    }
    EXPECT_EQ(heard, (std::vector<ui::Point>{{300_tw, 450_tw}, {300_tw, 450_tw}}));
}

TEST_F(Drawings, ThePointerChangesWhileAButtonHoldsTheMouse) {
    DrawingForm drawing(*desktop);
    drawing.show();
    drawing.area.onMouseDown.connect(
        [&](const ui::MouseEvent&) { drawing.area.setPointerShape(ui::PointerShape::Move); });
    ::SetCursor(::LoadCursorW(nullptr, IDC_ARROW));
    const HWND window = windowFor(drawing.area);
    ::SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(10, 10));
    EXPECT_EQ(::GetCursor(), ::LoadCursorW(nullptr, IDC_SIZEALL));
    ::SendMessageW(window, WM_LBUTTONUP, 0, MAKELPARAM(10, 10));
    drawing.area.setPointerShape(ui::PointerShape::Hand);
    ::SendMessageW(window, WM_SETCURSOR, reinterpret_cast<WPARAM>(window),
                   MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
    EXPECT_EQ(::GetCursor(), ::LoadCursorW(nullptr, IDC_HAND));
}

TEST_F(Drawings, TextKeepsItsProportionToTheDrawingAtEveryScale) {
    DrawingForm drawing(*desktop);
    const ui::Font font{.points = 9};
    const std::u16string text = u"Illustration of a fairly long name: String";
    const ui::Size measured = desktop->textSize(text, font);
    double scale = 1;
    drawing.area.setPainter([&](ui::Canvas& canvas, const ui::Rect&) {
        canvas.setView({{0_tw, 0_tw, 3000_tw, 2250_tw}, {}, scale});
        canvas.drawText({0_tw, 0_tw}, text, font, kBlack);
    });
    drawing.area.setBounds({0_tw, 0_tw, 12'000_tw, 2250_tw});
    drawing.form->setClientSize({12'000_tw, 3000_tw});
    drawing.show();
    for (scale = 0.3; scale < 2.5; scale *= 1.17) {
        drawing.area.setPainter([&](ui::Canvas& canvas, const ui::Rect&) {
            canvas.setView({{0_tw, 0_tw, 12'000_tw, 2250_tw}, {}, scale});
            canvas.drawText({0_tw, 0_tw}, text, font, kBlack);
        });
        const HWND window = windowFor(drawing.area);
        const double expected = toPixels(measured.width, dpiOf(window)) * scale;
        EXPECT_NEAR(static_cast<double>(rightOfInk(drawing.look(), window)), expected, 3 + expected * 0.01)
            << scale;
    }
}

TEST_F(Drawings, HostileTextsAndPicturesAreHarmless) {
    DrawingForm drawing(*desktop);
    const std::vector<std::u16string> texts = {u"", std::u16string(1, char16_t{0xD800}),
                                               std::u16string(u"a\0b\r\n\tc\x1"
                                                              u"d",
                                                              9),
                                               std::u16string(100'000, u'W'),
                                               u"\u05E9\u05DC\u05D5\u05DD \U0001F468\u200D\U0001F469"};
    const auto broken = std::make_shared<const ui::Picture>(ui::Picture{9, 9, {1, 2}});
    drawing.area.setPainter([&](ui::Canvas& canvas, const ui::Rect&) {
        for (const double scale : {1.0, 0.37, 1e-6, 1e6, 0.0, -1.0}) {
            canvas.setView({{0_tw, 0_tw, 3000_tw, 2250_tw}, {}, scale});
            for (const std::u16string& text : texts)
                canvas.drawText({0_tw, 0_tw}, text, {u"No such font", 9, true}, kBlack);
            canvas.drawPicture({0_tw, 0_tw, 300_tw, 300_tw}, broken);
            canvas.drawPicture({0_tw, 0_tw, 300_tw, 300_tw}, nullptr);
            canvas.drawLines({}, {});
            canvas.drawPolygon({}, kRed, {});
            const std::vector<ui::Point> distant = {{{-2'000'000'000}, {-2'000'000'000}},
                                                    {{2'000'000'000}, {1'900'000'000}}};
            canvas.drawLines(distant, {kBlue, 10_tw, true});
            canvas.drawPolygon(distant, kRed, {});
        }
    });
    drawing.show();
    EXPECT_GT(drawing.look().count(kWhite), 100U);
}

TEST_F(Drawings, APictureIsStretchedToItsPlaceAndBlended) {
    DrawingForm drawing(*desktop);
    const auto picture =
        std::make_shared<const ui::Picture>(ui::Picture{2, 1, {200, 30, 40, 255, 0, 0, 0, 0}});
    drawing.area.setPainter([&](ui::Canvas& canvas, const ui::Rect&) {
        canvas.drawPicture({150_tw, 150_tw, 600_tw, 300_tw}, picture);
    });
    drawing.show();
    const Snapshot seen = drawing.look();
    EXPECT_EQ(seen.at(11, 20), kRed);
    EXPECT_EQ(seen.at(48, 20), kWhite);
}

TEST_F(Drawings, WhatAPainterThrowsEndsInTheWindowProcedureAndIsNotRepeated) {
    DrawingForm drawing(*desktop);
    int painted = 0;
    drawing.area.setPainter([&](ui::Canvas&, const ui::Rect&) {
        ++painted;
        throw std::runtime_error("painter");
    });
    drawing.show();
    ::UpdateWindow(windowFor(drawing.area));
    pump();
    EXPECT_GE(painted, 1);
    EXPECT_LE(painted, 5);
    expectedStrays = painted;
}

TEST_F(Drawings, ThousandsOfSizesOfAFontDoNotPileUp) {
    DrawingForm drawing(*desktop);
    drawing.area.setPainter([](ui::Canvas& canvas, const ui::Rect&) {
        for (int i = 1; i < 1000; ++i) {
            canvas.setView({{0_tw, 0_tw, 3000_tw, 2250_tw}, {}, i * 0.2});
            canvas.drawText({}, u"x", {}, kBlack);
        }
    });
    drawing.show();
    static_cast<void>(drawing.look());
    EXPECT_LE(liveCounts().gdiObjects - before_.gdiObjects, 150);
}

}  // namespace quorel::win32::testing
