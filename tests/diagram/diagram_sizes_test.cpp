#include "diagram/diagram_sizes.h"

#include <gtest/gtest.h>

#include <cstddef>

#include "tests/diagram/sample_diagram.h"

namespace quorel::diagram {
namespace {

using namespace samples;
using ui::Rect;
using ui::Twips;
using Texts = std::vector<std::u16string>;

Texts textsOf(const Shape& shape) {
    Texts texts;
    for (const TextPiece& piece : shape.pieces)
        texts.push_back(piece.text);
    return texts;
}

Texts linesOf(std::u16string_view text) {
    Texts lines;
    for (const HeaderLine& line : headerLines(text))
        lines.push_back((line.isStereotype ? u"" : u"*") + line.text);
    return lines;
}

Rect rectOf(const DiagramModel& model, const TextPiece& piece) {
    const ui::Size size = evenSize(piece.text, fontOf(model, piece.role));
    return {piece.place.x, piece.place.y, size.width, size.height};
}

/// No text leaves its shape or lies over another, which are in the order from top to bottom.
void expectTidy(const DiagramModel& model, const Shape& shape) {
    const Rect whole{{}, {}, shape.size.width, shape.size.height};
    for (std::size_t at = 0; at < shape.pieces.size(); ++at) {
        const Rect here = rectOf(model, shape.pieces[at]);
        EXPECT_TRUE(holds(whole, here)) << at;
        EXPECT_FALSE(overlap(here, shape.picture)) << at;
        if (at == 0)
            continue;
        EXPECT_FALSE(overlap(here, rectOf(model, shape.pieces[at - 1]))) << at;
        EXPECT_LE(shape.pieces[at - 1].place.y, shape.pieces[at].place.y) << at;
    }
}

TEST(HeaderLines, AStereotypeStandsAboveTheName) {
    EXPECT_EQ(linesOf(u"<<MetaClass>> \r\nPerson"), (Texts{u"«MetaClass»", u"*Person"}));
    EXPECT_EQ(linesOf(u"<<MetaAssoc>> WorksFor"), (Texts{u"«MetaAssoc»", u"*WorksFor"}));
    EXPECT_EQ(linesOf(u"abstract\r\nPerson"), (Texts{u"abstract", u"*Person"}));
}

TEST(HeaderLines, EmptyLinesAreLeftOutAndLooseMarksStay) {
    EXPECT_EQ(linesOf(u""), Texts{});
    EXPECT_EQ(linesOf(u"\r\n\r\nPerson"), (Texts{u"*Person"}));
    EXPECT_EQ(linesOf(u"<<MetaClass>> \r\n"), (Texts{u"«MetaClass»"}));
    EXPECT_EQ(linesOf(u"<<half"), (Texts{u"*<<half"}));
    EXPECT_EQ(linesOf(u"a >> b"), (Texts{u"*a >> b"}));
}

TEST(HeaderLines, OfManyLinesTheFirstAndTheLastAreShown) {
    std::u16string text;
    for (int line = 0; line < 100'000; ++line)
        text += u"x\r\n";
    const Texts lines = linesOf(text + u"Name");
    ASSERT_EQ(lines.size(), kMostHeaderLines);
    EXPECT_EQ(lines.front(), u"x");
    EXPECT_EQ(lines.back(), u"*Name");
}

TEST(ShownLine, CutsLongTextsButNoPair) {
    EXPECT_EQ(shownLine(std::u16string(kLongestText, u'a')), std::u16string(kLongestText, u'a'));
    EXPECT_EQ(shownLine(std::u16string(kLongestText + 1, u'a')), std::u16string(kLongestText, u'a') + u"…");
    std::u16string pairs(kLongestText - 1, u'a');
    pairs += u"\U0001F600 and more";
    EXPECT_EQ(shownLine(pairs), std::u16string(kLongestText - 1, u'a') + u"…");
}

TEST(ShownLine, ReplacesWhatCannotBeDrawn) {
    const std::u16string text{u'a', u'\0', u'\n', 0xD800, u'b', 0xDC00, 0xFFFF, 0x85};
    EXPECT_EQ(shownLine(text), u"a\uFFFD\uFFFD\uFFFDb\uFFFD\uFFFD\uFFFD");
    EXPECT_EQ(shownLine(u"\U0001F600 שלום"), u"\U0001F600 שלום");
}

TEST(BoxShape, AnAlignedBoxFitsWhatItHolds) {
    const auto model = people();
    const Shape shape = boxShape(*model, model->boxes[0], evenSize);
    EXPECT_EQ(textsOf(shape), (Texts{u"«MetaClass»", u"Person", u"Age", u": Integer", u"Born", u": Date"}));
    expectTidy(*model, shape);
    // As wide as its longest line, the properties' here, with a margin on either side.
    const Rect last = rectOf(*model, shape.pieces[3]);
    EXPECT_EQ(shape.size.width - last.right(), shape.pieces[2].place.x);
    EXPECT_LT(shape.header, shape.size.height);
    EXPECT_GE(shape.pieces[2].place.y, shape.header);
}

TEST(BoxShape, ABoxWithoutPropertiesIsAHeader) {
    const auto model = people();
    const Shape shape = boxShape(*model, model->boxes[2], evenSize);
    EXPECT_EQ(shape.header, shape.size.height);
    Box least = metaClass(u"");
    least.text = u"A";
    EXPECT_EQ(boxShape(*model, least, evenSize).size.width, Twips{1500});
}

TEST(BoxShape, NamesAreBoldAndStereotypesSmaller) {
    const auto model = people();
    EXPECT_EQ(fontOf(*model, TextRole::Name), (ui::Font{u"Courier New", 15, true}));
    EXPECT_EQ(fontOf(*model, TextRole::Stereotype), (ui::Font{u"Courier New", 10, false}));
    EXPECT_EQ(fontOf(*model, TextRole::Type), (ui::Font{u"Courier New", 10, false}));
    EXPECT_EQ(fontOf({}, TextRole::Stereotype).points, 7);
}

TEST(BoxShape, APropertyWithoutTypeIsItsNameAlone) {
    auto model = emptyModel();
    model->addBox(metaClass(u"A", {{u"Age", u""}}));
    EXPECT_EQ(textsOf(boxShape(*model, model->boxes[0], evenSize)), (Texts{u"«MetaClass»", u"A", u"Age"}));
}

TEST(BoxShape, ThePictureStandsBesideTheNameInItsProportions) {
    const auto model = people();
    model->headerPicture = std::make_shared<ui::Picture>(ui::Picture{20, 10, std::vector<std::uint8_t>(800)});
    const Shape shape = boxShape(*model, model->boxes[0], evenSize);
    EXPECT_TRUE(holds({{}, {}, shape.size.width, shape.header}, shape.picture));
    EXPECT_EQ(shape.picture.width, shape.picture.height * 2);
    EXPECT_GT(shape.pieces[1].place.x, shape.picture.right());
    EXPECT_LT(shape.pieces[2].place.x, shape.picture.right());
    expectTidy(*model, shape);
}

TEST(BoxShape, ABoxThatIsNotAlignedKeepsItsSizeAndCutsItsTexts) {
    auto model = emptyModel();
    Box box = metaClass(u"A name that is longer than the box", {});
    for (int line = 0; line < 50; ++line)
        box.properties.push_back({u"Property with a long name", u"Integer"});
    box.alignedToText = false;
    model->addBox(box);
    const Shape shape = boxShape(*model, model->boxes[0], evenSize);
    EXPECT_EQ(shape.size, (ui::Size{{3000}, {1500}}));
    EXPECT_TRUE(shape.pieces[1].text.ends_with(u"…"));
    EXPECT_TRUE(shape.pieces[1].text.starts_with(u"A name"));
    EXPECT_LT(shape.pieces.size(), 8U);
    expectTidy(*model, shape);
    for (const ui::Size tiny : {ui::Size{}, ui::Size{{10}, {10}}, ui::Size{{300}, {300}}}) {
        box.place.width = tiny.width;
        box.place.height = tiny.height;
        const Shape small = boxShape(*model, box, evenSize);
        EXPECT_EQ(small.size, tiny);
        expectTidy(*model, small);
    }
}

TEST(BoxShape, TenThousandPropertiesAreAllKeptAndMeasuredOnce) {
    auto model = emptyModel();
    Box box = metaClass(u"Large");
    for (int line = 0; line < 10'000; ++line)
        box.properties.push_back({u"Property", u"Integer"});
    model->addBox(box);
    std::size_t measured = 0;
    const Shape shape =
        boxShape(*model, model->boxes[0], [&](std::u16string_view line, const ui::Font& font) {
            ++measured;
            return evenSize(line, font);
        });
    EXPECT_EQ(shape.pieces.size(), 20'002U);
    EXPECT_LE(measured, 20'010U);
    expectTidy(*model, shape);
}

TEST(BoxShape, MoreLinesThanTheLimitEndInAnEllipsis) {
    auto model = emptyModel();
    Box box = metaClass(u"Endless");
    box.properties.assign(kMostPropertyLines + 5, {u"P", u""});
    const Shape shape = boxShape(*model, box, evenSize);
    EXPECT_EQ(shape.pieces.size(), kMostPropertyLines + 3);
    EXPECT_EQ(shape.pieces.back().text, u"…");
}

TEST(BoxShape, HostileNamesAreShownAndNeverMeasuredLong) {
    auto model = emptyModel();
    std::u16string lone(1'000'000, static_cast<char16_t>(0xD800));
    std::u16string breaks;
    for (int line = 0; line < 300'000; ++line)
        breaks += u"\r\n";
    const std::u16string names[] = {std::u16string(1'000'000, u'W'), std::move(lone), std::move(breaks),
                                    std::u16string(5, u'\0'), u"\u202Eעברית <b>&amp;"};
    for (const std::u16string& name : names) {
        const Box box = metaClass(name, {{name, name}});
        std::size_t longest = 0;
        const Shape shape = boxShape(*model, box, [&](std::u16string_view line, const ui::Font& font) {
            longest = std::max(longest, line.size());
            return evenSize(line, font);
        });
        EXPECT_LE(longest, kLongestText + 3);
        expectTidy(*model, shape);
        for (const TextPiece& piece : shape.pieces) {
            for (const char16_t unit : piece.text)
                EXPECT_TRUE(unit >= 0x20 && (unit & 0xF800) != 0xD800);
        }
    }
}

TEST(LabelShape, ShowsPropertiesOnlyWhereItIsAligned) {
    auto model = people();
    Connection& worksFor = model->connections[1];
    const Shape shape = labelShape(*model, worksFor, evenSize);
    EXPECT_EQ(textsOf(shape), (Texts{u"«MetaAssoc»", u"WorksFor", u"Since", u": Date"}));
    expectTidy(*model, shape);
    EXPECT_LT(shape.header, shape.size.height);
    worksFor.alignedToText = false;
    const Shape bare = labelShape(*model, worksFor, evenSize);
    EXPECT_EQ(textsOf(bare), (Texts{u"«MetaAssoc»", u"WorksFor"}));
    EXPECT_EQ(bare.header, bare.size.height);
}

TEST(LabelShape, WithoutTextThereIsNone) {
    const auto model = people();
    EXPECT_EQ(labelShape(*model, {}, evenSize).size, ui::Size{});
}

TEST(FitSizes, SizesWhatIsAlignedAndEveryLabel) {
    auto model = people();
    model->boxes[2].alignedToText = false;
    fitSizes(*model, evenSize);
    EXPECT_EQ(model->boxes[0].place.size(), boxShape(*model, model->boxes[0], evenSize).size);
    EXPECT_EQ(model->boxes[2].place.size(), (ui::Size{{3000}, {1500}}));
    for (const Connection& connection : model->connections)
        EXPECT_EQ(connection.label.size(), labelShape(*model, connection, evenSize).size);
}

}  // namespace
}  // namespace quorel::diagram
