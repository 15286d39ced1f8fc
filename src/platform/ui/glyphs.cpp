#include "platform/ui/glyphs.h"

#include <utility>

namespace quorel::ui::glyphs {

namespace {

constexpr Colour kInk{64, 64, 64};
constexpr Colour kGreen{30, 130, 55};
constexpr Colour kRed{190, 40, 40};
constexpr Colour kBlue{40, 95, 175};
constexpr Colour kPaleBlue{190, 212, 242};

using Points = std::vector<GlyphPoint>;

[[nodiscard]] Shared made(std::vector<GlyphStroke> strokes) {
    return std::make_shared<const Glyph>(Glyph{std::move(strokes)});
}

[[nodiscard]] GlyphStroke line(Points points, Colour colour, double width = 2) {
    return {std::move(points), colour, width};
}

/// Filled, with a border of one unit along the edges.
void addBox(std::vector<GlyphStroke>& to, double left, double top, double right, double bottom) {
    const Points corners{{left, top}, {right, top}, {right, bottom}, {left, bottom}};
    to.push_back({corners, kPaleBlue, 1, true, true});
    to.push_back({corners, kBlue, 1, true, false});
}

void addPlus(std::vector<GlyphStroke>& to, double x, double y, double reach) {
    to.push_back(line({{x - reach, y}, {x + reach, y}}, kGreen));
    to.push_back(line({{x, y - reach}, {x, y + reach}}, kGreen));
}

[[nodiscard]] std::vector<GlyphStroke> linkStrokes() {
    std::vector<GlyphStroke> strokes{line({{4, 5}, {11, 5}, {11, 10}}, kInk, 1)};
    addBox(strokes, 1.5, 2.5, 6.5, 7.5);
    addBox(strokes, 8.5, 9.5, 13.5, 14.5);
    return strokes;
}

[[nodiscard]] Shared crossed(Colour colour) {
    return made({line({{3.5, 3.5}, {12.5, 12.5}}, colour), line({{12.5, 3.5}, {3.5, 12.5}}, colour)});
}

/// A magnifying glass with room for a sign in it.
[[nodiscard]] std::vector<GlyphStroke> glass() {
    return {line(glyphArc({6.5, 6.5}, 5, 0, 360), kInk, 1.5), line({{10.5, 10.5}, {14, 14}}, kInk, 2.5)};
}

[[nodiscard]] Shared arrow(bool left) {
    const auto at = [left](double x) { return left ? x : kGlyphUnits - x; };
    return made({line({{at(3), 8}, {at(13), 8}}, kBlue), line({{at(7), 4}, {at(3), 8}, {at(7), 12}}, kBlue)});
}

}  // namespace

Shared plus() {
    static const Shared glyph = [] {
        std::vector<GlyphStroke> strokes;
        addPlus(strokes, 8, 8, 5);
        return made(std::move(strokes));
    }();
    return glyph;
}

Shared minus() {
    static const Shared glyph = made({line({{3, 8}, {13, 8}}, kRed)});
    return glyph;
}

Shared newNode() {
    static const Shared glyph = [] {
        std::vector<GlyphStroke> strokes;
        addBox(strokes, 1.5, 5.5, 9.5, 13.5);
        addPlus(strokes, 12, 4, 2.5);
        return made(std::move(strokes));
    }();
    return glyph;
}

Shared link() {
    static const Shared glyph = made(linkStrokes());
    return glyph;
}

Shared newLink() {
    static const Shared glyph = [] {
        std::vector<GlyphStroke> strokes = linkStrokes();
        addPlus(strokes, 4, 12, 2.5);
        return made(std::move(strokes));
    }();
    return glyph;
}

Shared remove() {
    static const Shared glyph = crossed(kRed);
    return glyph;
}

Shared tick() {
    static const Shared glyph = made({line({{3, 8.5}, {6.5, 12}, {13, 4}}, kGreen)});
    return glyph;
}

Shared cross() {
    static const Shared glyph = crossed(kInk);
    return glyph;
}

Shared save() {
    static const Shared glyph = made({
        {{{2.5, 2.5}, {11.5, 2.5}, {13.5, 4.5}, {13.5, 13.5}, {2.5, 13.5}}, kBlue, 1, true, true},
        {{{5.5, 3.5}, {10.5, 3.5}, {10.5, 5.5}, {5.5, 5.5}}, kPaleBlue, 1, true, true},
        {{{4.5, 9.5}, {11.5, 9.5}, {11.5, 12.5}, {4.5, 12.5}}, {255, 255, 255}, 1, true, true},
    });
    return glyph;
}

Shared open() {
    static constexpr Colour kPaper{240, 200, 100};
    static constexpr Colour kEdge{150, 110, 30};
    static const Points kFolder{{1.5, 3.5}, {6.5, 3.5}, {7.5, 5.5}, {13.5, 5.5}, {13.5, 13.5}, {1.5, 13.5}};
    static const Points kFront{{4.5, 8.5}, {15.5, 8.5}, {13.5, 13.5}, {1.5, 13.5}};
    static const Shared glyph = made({{kFolder, kPaper, 1, true, true},
                                      {kFolder, kEdge, 1, true, false},
                                      {kFront, {252, 225, 150}, 1, true, true},
                                      {kFront, kEdge, 1, true, false}});
    return glyph;
}

Shared edit() {
    static constexpr Colour kWood{240, 200, 100};
    static const Points kBody{{4.5, 9}, {11, 2.5}, {13.5, 5}, {7, 11.5}};
    static const Points kTip{{4.5, 9}, {7, 11.5}, {2.5, 13.5}};
    static const Shared glyph =
        made({{kBody, kWood, 1, true, true}, {kBody, kInk, 1, true, false}, {kTip, kInk, 1, true, true}});
    return glyph;
}

Shared refresh() {
    static const Shared glyph = made(
        {line(glyphArc({8, 8}, 5, 20, 300), kGreen), {{{9, 1}, {14, 4.2}, {9, 7}}, kGreen, 0.5, true, true}});
    return glyph;
}

Shared back() {
    static const Shared glyph = arrow(true);
    return glyph;
}

Shared forward() {
    static const Shared glyph = arrow(false);
    return glyph;
}

Shared search() {
    static const Shared glyph =
        made({line(glyphArc({6.5, 6.5}, 4, 0, 360), kInk, 1.5), line({{9.5, 9.5}, {13.5, 13.5}}, kInk)});
    return glyph;
}

Shared revert() {
    static const Shared glyph = made({line(glyphArc({8.5, 8.5}, 4.5, 180, 450), kBlue, 1.5),
                                      {{{1.5, 7.5}, {6.5, 7.5}, {4, 11}}, kBlue, 0.5, true, true}});
    return glyph;
}

Shared zoomIn() {
    static const Shared glyph = [] {
        std::vector<GlyphStroke> strokes = glass();
        strokes.push_back(line({{4, 6.5}, {9, 6.5}}, kGreen, 1.5));
        strokes.push_back(line({{6.5, 4}, {6.5, 9}}, kGreen, 1.5));
        return made(std::move(strokes));
    }();
    return glyph;
}

Shared zoomOut() {
    static const Shared glyph = [] {
        std::vector<GlyphStroke> strokes = glass();
        strokes.push_back(line({{4, 6.5}, {9, 6.5}}, kRed, 1.5));
        return made(std::move(strokes));
    }();
    return glyph;
}

Shared fitAll() {
    static const Shared glyph = [] {
        std::vector<GlyphStroke> strokes;
        for (const double x : {1.5, 14.5})
            for (const double y : {1.5, 14.5}) {
                const double inX = x < 8 ? x + 3 : x - 3;
                const double inY = y < 8 ? y + 3 : y - 3;
                strokes.push_back(line({{inX, y}, {x, y}, {x, inY}}, kInk, 1));
            }
        addBox(strokes, 4.5, 5.5, 11.5, 10.5);
        return made(std::move(strokes));
    }();
    return glyph;
}

Shared actualSize() {
    static const auto dot = [](double y) {
        return GlyphStroke{{{7.5, y}, {8.5, y}, {8.5, y + 1}, {7.5, y + 1}}, kBlue, 0.5, true, true};
    };
    static const Shared glyph = made({line({{2.5, 5.5}, {4.5, 3.5}, {4.5, 12.5}}, kBlue, 1.5), dot(6),
                                      dot(10), line({{10.5, 5.5}, {12.5, 3.5}, {12.5, 12.5}}, kBlue, 1.5)});
    return glyph;
}

Shared print() {
    static constexpr Colour kCase{205, 210, 218};
    static constexpr Colour kPaper{255, 255, 255};
    static const Points kTop{{4.5, 1.5}, {11.5, 1.5}, {11.5, 6.5}, {4.5, 6.5}};
    static const Points kBody{{1.5, 6.5}, {14.5, 6.5}, {14.5, 11.5}, {1.5, 11.5}};
    static const Points kSheet{{4.5, 9.5}, {11.5, 9.5}, {11.5, 14.5}, {4.5, 14.5}};
    static const Shared glyph = made({{kTop, kPaper, 1, true, true},
                                      {kTop, kInk, 1, true, false},
                                      {kBody, kCase, 1, true, true},
                                      {kBody, kInk, 1, true, false},
                                      {kSheet, kPaper, 1, true, true},
                                      {kSheet, kInk, 1, true, false}});
    return glyph;
}

}  // namespace quorel::ui::glyphs
