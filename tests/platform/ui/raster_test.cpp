#include "platform/ui/raster.h"

#include <gtest/gtest.h>

#include <array>
#include <random>
#include <vector>

#include "platform/ui/canvas_mapping.h"

namespace quorel::ui {

namespace {

constexpr Colour kBlack{0, 0, 0}, kRed{255, 0, 0};

/// White, with a frame around it that nothing may touch.
class Sheet {
  public:
    static constexpr std::int32_t kSide = 32;
    static constexpr PixelRect kAll{0, 0, kSide, kSide};

  private:
    std::vector<std::uint32_t> pixels_ = std::vector<std::uint32_t>(kSide * (kSide + 2), 0xFFFFFF);

  public:
    PixelSurface surface{pixels_.data() + kSide, kSide, kSide};

    [[nodiscard]] std::uint32_t at(std::int32_t x, std::int32_t y) const {
        return pixels_.at(static_cast<std::size_t>((y + 1) * kSide + x));
    }
    /// How dark it is, 0 to 255.
    [[nodiscard]] int ink(std::int32_t x, std::int32_t y) const {
        return 255 - static_cast<int>(at(x, y) & 0xFFU);
    }
    [[nodiscard]] double allInk() const {
        double sum = 0;
        for (std::int32_t y = 0; y < kSide; ++y)
            for (std::int32_t x = 0; x < kSide; ++x)
                sum += ink(x, y) / 255.0;
        return sum;
    }
    [[nodiscard]] bool isWhiteOutside(const PixelRect& area) const {
        for (std::int32_t y = -1; y <= kSide; ++y)
            for (std::int32_t x = 0; x < kSide; ++x)
                if ((x < area.left || x >= area.right || y < area.top || y >= area.bottom) &&
                    at(x, y) != 0xFFFFFF)
                    return false;
        return true;
    }
};

}  // namespace

TEST(Raster, AnAreaIsCutByClipAndSurface) {
    Sheet sheet;
    fillArea(sheet.surface, {4, 4, 8, 100}, {-5, 2, 6, 1000}, kRed);
    EXPECT_EQ(sheet.at(4, 4), 0xFF0000U);
    EXPECT_EQ(sheet.at(5, 31), 0xFF0000U);
    EXPECT_TRUE(sheet.isWhiteOutside({4, 4, 6, 32}));
    fillArea(sheet.surface, {9, 9, 3, 3}, {-5, 2, 6, 1000}, kBlack);
    EXPECT_EQ(sheet.at(5, 9), 0xFF0000U);
}

TEST(Raster, StraightStrokesCoverWholePixels) {
    for (const double width : {1.0, 2.0, 3.0}) {
        Sheet sheet;
        drawStroke(sheet.surface, Sheet::kAll, {4, 10.3}, {20, 10.3}, width, kBlack);
        const auto pixels = static_cast<int>(width);
        int dark = 0;
        for (std::int32_t y = 0; y < Sheet::kSide; ++y) {
            EXPECT_TRUE(sheet.ink(12, y) == 0 || sheet.ink(12, y) == 255) << y;
            dark += sheet.ink(12, y) == 255 ? 1 : 0;
        }
        EXPECT_EQ(dark, pixels);
    }
}

TEST(Raster, TheCornersOfARectangleAreClosed) {
    Sheet sheet;
    const std::array<RasterPoint, 5> corners = {{{5, 5}, {20, 5}, {20, 15}, {5, 15}, {5, 5}}};
    drawStrokes(sheet.surface, Sheet::kAll, corners, 1, false, kBlack);
    EXPECT_DOUBLE_EQ(sheet.allInk(), 2 * 16 + 2 * 9);
}

TEST(Raster, ASlantedStrokeIsSmoothAndAsWideAsItIsToBe) {
    for (const double width : {1.0, 2.0, 4.0}) {
        Sheet sheet;
        drawStroke(sheet.surface, Sheet::kAll, {-40, -27}, {80, 63}, width, kBlack);
        double across = 0;
        int grey = 0;
        for (std::int32_t y = 0; y < Sheet::kSide; ++y) {
            across += sheet.ink(16, y) / 255.0;
            grey += sheet.ink(16, y) > 0 && sheet.ink(16, y) < 255 ? 1 : 0;
        }
        EXPECT_NEAR(across, width * 1.25, 0.15) << "a line of slope 3/4 is 5/4 as wide upright";
        EXPECT_GE(grey, 1);
    }
}

TEST(Raster, ACoarseStrokeIsOnePixelAStepFromEndToEnd) {
    Sheet sheet;
    const std::array<RasterPoint, 3> line = {{{3.5, 4.5}, {27.5, 13.5}, {20.5, 29.5}}};
    drawCoarseStrokes(sheet.surface, Sheet::kAll, line, kBlack);
    EXPECT_EQ(sheet.ink(3, 4), 255);
    EXPECT_EQ(sheet.ink(27, 13), 255);
    EXPECT_EQ(sheet.ink(20, 29), 255);
    EXPECT_DOUBLE_EQ(sheet.allInk(), 25 + 16);
}

TEST(Raster, AStrokeThatIsFarOutsideCostsNothingAndDrawsNothing) {
    Sheet sheet;
    for (int i = 0; i < 100'000; ++i)
        drawStroke(sheet.surface, Sheet::kAll, {-1e8, -5e7}, {-3, 1e8}, 2, kBlack);
    EXPECT_TRUE(sheet.isWhiteOutside({}));
}

TEST(Raster, DashesKeepTheirLengthAroundCornersAndWhereverTheyBegin) {
    Sheet sheet;
    const std::array<RasterPoint, 2> line = {{{-4'000'000, 10.5}, {4'000'000, 10.5}}};
    drawStrokes(sheet.surface, Sheet::kAll, line, 1, true, kBlack);
    EXPECT_NEAR(sheet.allInk(), 32 * 6.0 / 8, 4.1) << "five and the round ends, of eight";
    EXPECT_GT(sheet.allInk(), 12);
    EXPECT_LT(sheet.allInk(), 31);
}

TEST(Raster, APolygonCoversItsArea) {
    Sheet sheet;
    const std::array<RasterPoint, 3> triangle = {{{4.25, 4}, {28, 9.5}, {10, 27}}};
    fillPolygon(sheet.surface, Sheet::kAll, triangle, kBlack);
    const double area = ((28 - 4.25) * (27 - 4) - (10 - 4.25) * (9.5 - 4)) / 2;
    EXPECT_NEAR(sheet.allInk(), area, area * 0.01);
    EXPECT_EQ(sheet.ink(13, 13), 255);
    EXPECT_TRUE(sheet.isWhiteOutside({4, 4, 28, 27}));
}

TEST(Raster, APictureIsBlendedByItsTransparency) {
    Sheet sheet;
    const Picture picture{2, 1, {0, 0, 0, 255, 0, 0, 0, 128}};
    blendPicture(sheet.surface, Sheet::kAll, 31, 3, picture);
    EXPECT_EQ(sheet.at(31, 3), 0U);
    blendPicture(sheet.surface, Sheet::kAll, 10, 3, picture);
    EXPECT_EQ(sheet.ink(10, 3), 255);
    EXPECT_NEAR(sheet.ink(11, 3), 128, 1);
    EXPECT_EQ(sheet.ink(12, 3), 0);
    blendPicture(sheet.surface, Sheet::kAll, 20, 20, {4, 4, {1, 2, 3}});
    EXPECT_EQ(sheet.ink(20, 20), 0);
}

TEST(Raster, NothingOutsideTheClipIsTouchedWhateverIsDrawn) {
    std::mt19937 random(7);
    std::uniform_real_distribution<double> place(-60, 90), width(0, 9);
    std::uniform_int_distribution<std::int32_t> edge(-4, 36);
    for (int round = 0; round < 3000; ++round) {
        Sheet sheet;
        const PixelRect clip{edge(random), edge(random), edge(random), edge(random)};
        const std::array<RasterPoint, 4> points = {{{place(random), place(random)},
                                                    {place(random), place(random)},
                                                    {place(random), place(random)},
                                                    {place(random), place(random)}}};
        drawStrokes(sheet.surface, clip, points, width(random), round % 2 == 0, kBlack);
        drawCoarseStrokes(sheet.surface, clip, points, kBlack);
        fillPolygon(sheet.surface, clip, points, kBlack);
        ASSERT_TRUE(sheet.isWhiteOutside(clip)) << round;
    }
}

TEST(CanvasMapping, PutsTheOriginOfAViewIntoTheCornerOfItsClip) {
    CanvasMapping mapping(2 / 15.0);  // 192 dots per inch
    EXPECT_EQ(mapping.pixels({{150}, {300}, {75}, {15}}), (PixelRect{20, 40, 30, 42}));
    mapping.setView({{{150}, {150}, {1500}, {1500}}, {{3000}, {600}}, 0.5});
    EXPECT_DOUBLE_EQ(mapping.at({{3000}, {600}}).x, 20);
    EXPECT_DOUBLE_EQ(mapping.at({{3150}, {600}}).x, 30);
    EXPECT_EQ(mapping.canvasPixels({{150}, {150}, {1500}, {1500}}), (PixelRect{20, 20, 220, 220}));
}

TEST(CanvasMapping, KeepsNeighboursNeighboursAtEveryScale) {
    CanvasMapping mapping(1 / 15.0);
    for (double scale = 0.01; scale < 8; scale *= 1.1) {
        mapping.setView({{{}, {}, {9000}, {9000}}, {{37}, {11}}, scale});
        EXPECT_EQ(mapping.pixels({{100}, {100}, {333}, {77}}).right,
                  mapping.pixels({{433}, {100}, {50}, {77}}).left);
    }
}

}  // namespace quorel::ui
