#include "diagram/export_svg.h"

#include <gtest/gtest.h>

#include "diagram/diagram_arrange.h"
#include "diagram/svg_canvas.h"
#include "tests/diagram/sample_diagram.h"

namespace quorel::diagram {
namespace {

using namespace samples;
using ui::Point;

std::string drawn(const std::function<void(SvgCanvas&)>& draw) {
    SvgCanvas canvas({{300}, {150}}, evenSize);
    draw(canvas);
    return canvas.finish();
}

/// What stands between the outer tags.
std::string inner(const std::string& document) {
    const std::size_t begin = document.find(">\n", document.find("<svg")) + 2;
    return document.substr(begin, document.rfind("</svg>") - begin);
}

std::size_t countOf(const std::string& text, std::string_view part) {
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
        ++count;
    return count;
}

TEST(SvgCanvas, WritesEveryStroke) {
    const std::vector<Point> line{{{0}, {0}}, {{10}, {-20}}};
    EXPECT_EQ(
        drawn([](SvgCanvas&) {}),
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
        "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"20.000\" height=\"10.000\" viewBox=\"0 0 300 "
        "150\">\n</svg>\n");
    EXPECT_EQ(inner(drawn([](SvgCanvas& canvas) {
                  canvas.fillRectangle({{1}, {2}, {3}, {4}}, {255, 0, 10});
              })),
              "<rect x=\"1\" y=\"2\" width=\"3\" height=\"4\" fill=\"#ff000a\"/>\n");
    EXPECT_EQ(inner(drawn([](SvgCanvas& canvas) {
                  canvas.drawRectangle({{1}, {2}, {3}, {4}}, {{0, 0, 0}, {15}});
              })),
              "<rect x=\"1\" y=\"2\" width=\"3\" height=\"4\" fill=\"none\" stroke=\"#000000\" "
              "stroke-width=\"15\"/>\n");
    EXPECT_EQ(inner(drawn([&](SvgCanvas& canvas) {
                  canvas.drawLines(line, {{0, 0, 0}, {0}, true});
              })),
              "<polyline points=\"0,0 10,-20\" fill=\"none\" stroke=\"#000000\" stroke-width=\"1\" "
              "vector-effect=\"non-scaling-stroke\" stroke-dasharray=\"60 45\"/>\n");
    EXPECT_EQ(inner(drawn([&](SvgCanvas& canvas) {
                  canvas.drawPolygon(line, {1, 2, 3}, {{0, 0, 0}, {15}});
              })),
              "<polygon points=\"0,0 10,-20\" fill=\"#010203\" stroke=\"#000000\" stroke-width=\"15\" "
              "stroke-linejoin=\"round\"/>\n");
}

TEST(SvgCanvas, TextStaysText) {
    EXPECT_EQ(inner(drawn([](SvgCanvas& canvas) {
                  canvas.drawText({{10}, {100}}, u"a <b> & \"c\" «é»", {u"Courier New", 10, true}, {0, 0, 0});
              })),
              "<text x=\"10\" y=\"287\" font-family=\"'Courier New',monospace\" font-size=\"200\" "
              "font-weight=\"bold\" textLength=\"1800\" lengthAdjust=\"spacingAndGlyphs\" "
              "fill=\"#000000\">a &lt;b&gt; &amp; &quot;c&quot; «é»</text>\n");
}

TEST(SvgCanvas, WhatXmlCannotHoldIsReplaced) {
    const std::u16string text{u'a', u'\0', 0xD800, u'\x1B', 0xDC00, 0xFFFE};
    const std::string document = drawn([&](SvgCanvas& canvas) {
        canvas.drawText({}, text, {u"x'\"<y", 9}, {0, 0, 0});
    });
    EXPECT_NE(document.find(">a\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD</text>"), std::string::npos) << document;
    EXPECT_NE(document.find("font-family=\"'x&quot;&lt;y',sans-serif\""), std::string::npos) << document;
    EXPECT_EQ(document.find('\0'), std::string::npos);
}

TEST(SvgCanvas, BlanksThatMatterAreKept) {
    const auto text = [](std::u16string_view line) {
        return drawn([line](SvgCanvas& canvas) { canvas.drawText({}, line, {}, {0, 0, 0}); });
    };
    EXPECT_NE(text(u" a").find("xml:space=\"preserve\""), std::string::npos);
    EXPECT_NE(text(u"a  b").find("xml:space=\"preserve\""), std::string::npos);
    EXPECT_EQ(text(u"a b").find("xml:space"), std::string::npos);
    EXPECT_NE(text(u"a b").find("font-family=\"'Segoe UI',sans-serif\" font-size=\"180\""),
              std::string::npos);
}

TEST(SvgCanvas, AViewIsADocumentInside) {
    EXPECT_EQ(inner(drawn([](SvgCanvas& canvas) {
                  canvas.setView({{{0}, {0}, {100}, {50}}, {{-5}, {7}}, 0.5});
                  canvas.setView({{{0}, {0}, {100}, {50}}, {}, 1});
              })),
              "<svg x=\"0\" y=\"0\" width=\"100\" height=\"50\" viewBox=\"-5 7 200.000 100.000\" "
              "preserveAspectRatio=\"none\">\n</svg>\n"
              "<svg x=\"0\" y=\"0\" width=\"100\" height=\"50\" viewBox=\"0 0 100.000 50.000\" "
              "preserveAspectRatio=\"none\">\n</svg>\n");
}

TEST(SvgCanvas, APictureIsHeldOnce) {
    const auto picture = std::make_shared<ui::Picture>(ui::Picture{1, 1, {1, 2, 3, 255}});
    const std::string document = drawn([&](SvgCanvas& canvas) {
        canvas.drawPicture({{1}, {2}, {3}, {4}}, picture);
        canvas.drawPicture({{5}, {6}, {7}, {8}}, picture);
        canvas.drawPicture({{5}, {6}, {7}, {8}}, nullptr);
        canvas.drawPicture({{5}, {6}, {7}, {8}}, std::make_shared<ui::Picture>());
    });
    EXPECT_EQ(countOf(document, "data:image/png;base64,iVBORw0KGgo"), 1U);
    EXPECT_EQ(countOf(document, "<use href=\"#picture0\""), 2U);
    EXPECT_EQ(countOf(document, "<use"), 2U);
}

TEST(ExportSvg, ASmallDiagramIsExactlyThis) {
    auto model = emptyModel();
    model->addBox(metaClass(u"A", {{u"Age", u"Date"}}));
    model->addBox(metaClass(u"B"));
    model->addConnection(metaAssoc(u"Has", 0, 1));
    ASSERT_TRUE(arrangeDiagram(*model, evenSize));
    EXPECT_EQ(exportSvg(model, evenSize), R"svg(<?xml version="1.0" encoding="UTF-8"?>
<svg xmlns="http://www.w3.org/2000/svg" width="249.000" height="325.000" viewBox="0 0 3735 4875">
<svg x="0" y="0" width="3735" height="4875" viewBox="0 0 3735.000 4875.000" preserveAspectRatio="none">
<rect x="0" y="0" width="3735" height="4875" fill="#ffffff"/>
<rect x="816" y="516" width="1590" height="1185" fill="#e3e9f2"/>
<rect x="816" y="3636" width="1590" height="795" fill="#e3e9f2"/>
<polyline points="1575,1665 1575,3600" fill="none" stroke="#7c8da6" stroke-width="15"/>
<polygon points="1575,3600 1643,3435 1575,3480 1507,3435" fill="#7c8da6" stroke="#7c8da6" stroke-width="15" stroke-linejoin="round"/>
<rect x="1815" y="2265" width="1440" height="735" fill="#ffffff"/>
<text x="1875" y="2512" font-family="'Courier New',monospace" font-size="200" textLength="1320" lengthAdjust="spacingAndGlyphs" fill="#6f809b">«MetaAssoc»</text>
<text x="1875" y="2860" font-family="'Courier New',monospace" font-size="300" textLength="540" lengthAdjust="spacingAndGlyphs" fill="#455570">Has</text>
<rect x="780" y="480" width="1590" height="1185" fill="#ffffff"/>
<rect x="780" y="480" width="1590" height="795" fill="#e8eff9"/>
<polyline points="780,1275 2370,1275" fill="none" stroke="#9db0c9" stroke-width="15"/>
<text x="915" y="757" font-family="'Courier New',monospace" font-size="200" textLength="1320" lengthAdjust="spacingAndGlyphs" fill="#6f809b">«MetaClass»</text>
<text x="915" y="1105" font-family="'Courier New',monospace" font-size="300" font-weight="bold" textLength="180" lengthAdjust="spacingAndGlyphs" fill="#1b2b44">A</text>
<text x="915" y="1537" font-family="'Courier New',monospace" font-size="200" textLength="360" lengthAdjust="spacingAndGlyphs" fill="#334155">Age</text>
<text x="1350" y="1537" font-family="'Courier New',monospace" font-size="200" textLength="720" lengthAdjust="spacingAndGlyphs" fill="#2f7c83">: Date</text>
<rect x="780" y="480" width="1590" height="1185" fill="none" stroke="#9db0c9" stroke-width="15"/>
<rect x="780" y="3600" width="1590" height="795" fill="#ffffff"/>
<rect x="780" y="3600" width="1590" height="795" fill="#e8eff9"/>
<text x="915" y="3877" font-family="'Courier New',monospace" font-size="200" textLength="1320" lengthAdjust="spacingAndGlyphs" fill="#6f809b">«MetaClass»</text>
<text x="915" y="4225" font-family="'Courier New',monospace" font-size="300" font-weight="bold" textLength="180" lengthAdjust="spacingAndGlyphs" fill="#1b2b44">B</text>
<rect x="780" y="3600" width="1590" height="795" fill="none" stroke="#9db0c9" stroke-width="15"/>
</svg>
</svg>
)svg");
}

TEST(ExportSvg, IsTheSameEachTimeAndTellsEverything) {
    const auto model = people();
    ASSERT_TRUE(arrangeDiagram(*model, evenSize));
    const std::string document = exportSvg(model, evenSize);
    EXPECT_EQ(document, exportSvg(model, evenSize));
    for (const char* text : {">Person<", ">: Integer<", ">«MetaAssoc»<", ">WorksFor<", ">Since<", ">City<"})
        EXPECT_NE(document.find(text), std::string::npos) << text;
    EXPECT_EQ(countOf(document, "<svg"), countOf(document, "</svg>"));
}

TEST(ExportSvg, HostileNamesGiveADocumentNevertheless) {
    auto model = emptyModel();
    std::u16string hostile(1'000'000, static_cast<char16_t>(0xDC00));
    model->addBox(metaClass(hostile, {{u"]]>", u"--><script>"}, {std::u16string(3, u'\0'), u"&amp;"}}));
    ASSERT_TRUE(arrangeDiagram(*model, evenSize));
    const std::string document = exportSvg(model, evenSize);
    EXPECT_LT(document.size(), 10'000U);
    EXPECT_NE(document.find(": --&gt;&lt;script&gt;"), std::string::npos);
    EXPECT_NE(document.find(": &amp;amp;"), std::string::npos);
}

}  // namespace
}  // namespace quorel::diagram
