#include "explorer/explorer_picture.h"

#include "platform/ui/glyph.h"

namespace quorel::explorer {

namespace {

using ui::Colour;
using ui::GlyphStroke;

/// A tree of three boxes and its lines.
[[nodiscard]] ui::Glyph drawing() {
    constexpr Colour kBranch{96, 96, 96}, kEdge{30, 60, 120}, kTop{250, 200, 90}, kBelow{150, 190, 240};
    ui::Glyph glyph;
    const auto box = [&glyph](double left, double top, Colour area) {
        const std::vector<ui::GlyphPoint> corners{
            {left, top}, {left + 5, top}, {left + 5, top + 4}, {left, top + 4}};
        glyph.strokes.push_back({corners, area, 1, true, true});
        glyph.strokes.push_back({corners, kEdge, 0.7, true, false});
    };
    glyph.strokes.push_back({{{4, 5.5}, {4, 12.5}, {9, 12.5}}, kBranch, 0.8});
    glyph.strokes.push_back({{{4, 8}, {9, 8}}, kBranch, 0.8});
    box(1.5, 1.5, kTop);
    box(9, 6, kBelow);
    box(9, 11, kBelow);
    return glyph;
}

}  // namespace

std::vector<ui::Picture> explorerPicture() {
    const ui::Glyph glyph = drawing();
    std::vector<ui::Picture> sizes;
    for (const std::int32_t pixels : {16, 32, 48, 64})
        sizes.push_back(ui::rasterise(glyph, pixels));
    return sizes;
}

}  // namespace quorel::explorer
