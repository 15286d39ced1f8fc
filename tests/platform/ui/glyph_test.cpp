#include "platform/ui/glyph.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>

#include "platform/ui/glyphs.h"

namespace quorel::ui {

namespace {

constexpr Colour kInk{200, 10, 20};

[[nodiscard]] std::array<int, 4> pixelAt(const Picture& picture, int x, int y) {
    const std::size_t at = (static_cast<std::size_t>(y) * static_cast<std::size_t>(picture.width) +
                            static_cast<std::size_t>(x)) *
                           4;
    return {picture.rgba.at(at), picture.rgba.at(at + 1), picture.rgba.at(at + 2), picture.rgba.at(at + 3)};
}

[[nodiscard]] Glyph upright() {
    return {{{{{8, 3}, {8, 13}}, kInk, 2}}};
}

}  // namespace

TEST(Glyph, IsTransparentWhereNoStrokeIs) {
    const Picture picture = rasterise(upright(), 16);
    EXPECT_TRUE(isWhole(picture));
    EXPECT_EQ(pixelAt(picture, 7, 8), (std::array{200, 10, 20, 255}));
    EXPECT_EQ(pixelAt(picture, 8, 8), (std::array{200, 10, 20, 255}));
    EXPECT_EQ(pixelAt(picture, 6, 8)[3], 0);
    EXPECT_EQ(pixelAt(picture, 9, 8)[3], 0);
    EXPECT_EQ(pixelAt(picture, 8, 0)[3], 0);
}

TEST(Glyph, HasUprightStrokesOfWholePixelsAtEverySize) {
    for (const int size : {16, 17, 20, 24, 32, 48}) {
        SCOPED_TRACE(size);
        const Picture picture = rasterise(upright(), size);
        int covered = 0;
        for (int x = 0; x < size; ++x) {
            const int alpha = pixelAt(picture, x, size / 2)[3];
            EXPECT_TRUE(alpha == 0 || alpha == 255) << x;
            covered += alpha == 255 ? 1 : 0;
        }
        EXPECT_EQ(covered, (2 * size + 8) / 16);
    }
}

TEST(Glyph, SmoothsSlantedStrokes) {
    const Picture picture = rasterise({{{{{3, 3}, {12, 11}}, kInk, 2}}}, 16);
    int partly = 0;
    for (std::size_t i = 3; i < picture.rgba.size(); i += 4)
        partly += picture.rgba[i] > 0 && picture.rgba[i] < 255 ? 1 : 0;
    EXPECT_GT(partly, 8);
}

TEST(Glyph, FillsWhatALineEncloses) {
    const std::vector<GlyphPoint> square{{3, 3}, {13, 3}, {13, 13}, {3, 13}};
    const Picture filled = rasterise({{{square, kInk, 1, true, true}}}, 16);
    const Picture outline = rasterise({{{square, kInk, 1, true, false}}}, 16);
    EXPECT_EQ(pixelAt(filled, 8, 8)[3], 255);
    EXPECT_EQ(pixelAt(outline, 8, 8)[3], 0);
    EXPECT_EQ(pixelAt(outline, 3, 8)[3], 255);
}

TEST(Glyph, PaintsLaterStrokesOverEarlierOnes) {
    Glyph glyph = upright();
    glyph.strokes.push_back({{{3, 8}, {13, 8}}, {0, 0, 255}, 2});
    const Picture picture = rasterise(glyph, 16);
    EXPECT_EQ(pixelAt(picture, 8, 8), (std::array{0, 0, 255, 255}));
    EXPECT_EQ(pixelAt(picture, 8, 5), (std::array{200, 10, 20, 255}));
}

TEST(Glyph, BearsOddInput) {
    EXPECT_TRUE(rasterise(upright(), 0).rgba.empty());
    EXPECT_TRUE(rasterise(upright(), -3).rgba.empty());
    EXPECT_TRUE(isWhole(rasterise({}, 16)));
    EXPECT_TRUE(isWhole(rasterise({{{{}, kInk}, {{{8, 8}}, kInk, 4, true, true}}}, 16)));
    EXPECT_TRUE(isWhole(rasterise(upright(), 1)));
}

TEST(Glyphs, AreDrawnInsideTheirSquareAndDiffer) {
    const std::array all{glyphs::plus(),    glyphs::minus(),  glyphs::newNode(), glyphs::link(),
                         glyphs::newLink(), glyphs::remove(), glyphs::tick(),    glyphs::cross(),
                         glyphs::save(),    glyphs::open(),   glyphs::refresh(), glyphs::back(),
                         glyphs::forward(), glyphs::search(), glyphs::revert()};
    std::vector<std::vector<std::uint8_t>> drawn;
    for (const auto& glyph : all) {
        for (const GlyphStroke& stroke : glyph->strokes)
            for (const GlyphPoint& point : stroke.points)
                EXPECT_TRUE(point.x >= 0 && point.x <= kGlyphUnits && point.y >= 0 && point.y <= kGlyphUnits);
        drawn.push_back(rasterise(*glyph, 16).rgba);
        EXPECT_TRUE(
            std::any_of(drawn.back().begin(), drawn.back().end(), [](auto byte) { return byte != 0; }));
        EXPECT_EQ(std::count(drawn.begin(), drawn.end(), drawn.back()), 1);
    }
}

}  // namespace quorel::ui
