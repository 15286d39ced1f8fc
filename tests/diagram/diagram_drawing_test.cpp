#include "diagram/diagram_drawing.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "diagram/diagram_arrange.h"
#include "diagram/palette.h"
#include "platform/automation/text.h"
#include "platform/headless/recording_canvas.h"
#include "tests/diagram/layout/generated_diagrams.h"
#include "tests/diagram/sample_diagram.h"

namespace quorel::diagram {
namespace {

using namespace samples;
using headless::DrawnItem;
using headless::RecordingCanvas;
using Kind = DrawnItem::Kind;
using ui::Rect;
using ui::Twips;

std::shared_ptr<DiagramModel> arranged(std::shared_ptr<DiagramModel> model) {
    EXPECT_TRUE(arrangeDiagram(*model, evenSize));
    return model;
}

std::u16string nameOfBox(std::size_t box) {
    return u"B" + automation::decimal(static_cast<std::int64_t>(box));
}

/// Boxes of 2000 by 1000 in rows, each connected to the one five further on.
std::shared_ptr<DiagramModel> field(std::size_t boxes, std::size_t columns) {
    auto model = emptyModel();
    for (std::size_t each = 0; each < boxes; ++each) {
        Box box = metaClass(nameOfBox(each));
        box.alignedToText = false;
        box.place = {{static_cast<std::int32_t>(each % columns * 4000)},
                     {static_cast<std::int32_t>(each / columns * 3000)},
                     {2000},
                     {1000}};
        model->addBox(std::move(box));
    }
    for (std::size_t each = 0; each + 5 < boxes; ++each)
        model->addConnection(metaAssoc(u"L", each, each + 5));
    connectStraight(*model, evenSize);
    return model;
}

RecordingCanvas drawn(const DiagramDrawing& drawing, const Rect& visible, double scale = 1,
                      const Emphasis& emphasis = {}) {
    RecordingCanvas canvas(headless::wholeView(visible.size()));
    drawing.draw(canvas, visible, scale, emphasis);
    return canvas;
}

std::size_t countOf(const RecordingCanvas& canvas, Kind kind) {
    return static_cast<std::size_t>(
        std::count_if(canvas.items().begin(), canvas.items().end(),
                      [kind](const DrawnItem& item) { return item.kind == kind; }));
}

std::set<std::u16string> namesIn(const RecordingCanvas& canvas) {
    std::set<std::u16string> names;
    for (const std::u16string& text : canvas.texts())
        if (text.starts_with(u"B"))
            names.insert(text);
    return names;
}

TEST(DiagramDrawing, DrawsOnlyWhatIsVisible) {
    const auto model = field(3000, 60);
    const DiagramDrawing drawing(model, evenSize);
    const Rect visible{{40'000}, {60'000}, {12'000}, {9'000}};
    const RecordingCanvas canvas = drawn(drawing, visible);
    EXPECT_LT(canvas.items().size(), 400U);
    EXPECT_GT(namesIn(canvas).size(), 5U);
    EXPECT_LT(namesIn(canvas).size(), 20U);
}

TEST(DiagramDrawing, DrawsEverythingThatIsVisible) {
    const auto model = arranged([] {
        auto made = emptyModel();
        const layout::Diagram diagram = layout::tests::classDiagram(80, 200, 3);
        for (std::size_t box = 0; box < 80; ++box)
            made->addBox(metaClass(nameOfBox(box)));
        for (const layout::Connection& each : diagram.connections)
            made->addConnection(metaAssoc(u"L", each.from, each.to));
        return made;
    }());
    const DiagramDrawing drawing(model, evenSize);
    const Rect all = drawing.extent();
    layout::tests::Random random(5);
    for (int round = 0; round < 50; ++round) {
        const auto below = [&](Twips limit) {
            return Twips{static_cast<std::int32_t>(random.below(static_cast<std::size_t>(limit.value)))};
        };
        const Rect visible{below(all.width), below(all.height), below(Twips{9000}), below(Twips{9000})};
        std::set<std::u16string> expected;
        for (std::size_t box = 0; box < model->boxes.size(); ++box) {
            const Rect& place = model->boxes[box].place;
            // The name stands in the box, and may itself be out of sight.
            const Rect name{place.left, place.top + Twips{300}, place.width, {420}};
            if (overlap(name, visible))
                expected.insert(nameOfBox(box));
        }
        const RecordingCanvas canvas = drawn(drawing, visible);
        const auto names = namesIn(canvas);
        EXPECT_TRUE(std::includes(names.begin(), names.end(), expected.begin(), expected.end()));
        std::size_t lines = 0;
        for (const Connection& connection : model->connections) {
            bool touchesIt = false;
            for (std::size_t at = 1; at < connection.line.size(); ++at) {
                const auto [left, right] = std::minmax(connection.line[at - 1].x, connection.line[at].x);
                const auto [top, bottom] = std::minmax(connection.line[at - 1].y, connection.line[at].y);
                const bool isUpright = left == right;
                touchesIt = touchesIt || (isUpright && overlap({left, top, {1}, bottom - top}, visible));
            }
            lines += touchesIt ? 1 : 0;
        }
        EXPECT_GE(countOf(canvas, Kind::Polygon), lines);
    }
}

TEST(DiagramDrawing, DetailFadesWithTheScale) {
    const auto model = people();
    EXPECT_EQ(detailAt(*model, 4), Detail::Full);
    EXPECT_EQ(detailAt(*model, 1), Detail::Full);
    EXPECT_EQ(detailAt(*model, 0.4), Detail::Names);
    EXPECT_EQ(detailAt(*model, 0.2), Detail::Boxes);
    EXPECT_EQ(detailAt(*model, 0.05), Detail::Plain);
}

TEST(DiagramDrawing, SmallDrawingsHaveNoTexts) {
    const DiagramDrawing drawing(arranged(people()), evenSize);
    const Rect all = drawing.extent();
    const RecordingCanvas full = drawn(drawing, all, 1);
    EXPECT_NE(full.findText(u": Integer"), nullptr);
    EXPECT_NE(full.findText(u"Since"), nullptr);
    const RecordingCanvas names = drawn(drawing, all, 0.4);
    EXPECT_EQ(names.findText(u": Integer"), nullptr);
    EXPECT_EQ(names.findText(u"Since"), nullptr);
    EXPECT_NE(names.findText(u"WorksFor"), nullptr);
    const RecordingCanvas boxes = drawn(drawing, all, 0.2);
    EXPECT_TRUE(boxes.texts().empty());
    EXPECT_EQ(countOf(boxes, Kind::Outline), 3U);
    const RecordingCanvas plain = drawn(drawing, all, 0.05);
    EXPECT_TRUE(plain.texts().empty());
    EXPECT_EQ(countOf(plain, Kind::Outline), 0U);
    EXPECT_EQ(countOf(plain, Kind::Filled), 1U + 3U);
    EXPECT_EQ(countOf(plain, Kind::Lines), 3U);
}

TEST(DiagramDrawing, TextsStandInTheirBoxesAndLabels) {
    const auto model = arranged(people());
    const DiagramDrawing drawing(model, evenSize);
    std::vector<Rect> solid;
    for (const Box& box : model->boxes)
        solid.push_back(box.place);
    for (const Connection& connection : model->connections)
        solid.push_back(connection.label);
    const RecordingCanvas canvas = drawn(drawing, drawing.extent());
    std::vector<Rect> texts;
    for (const DrawnItem& item : canvas.items()) {
        if (item.kind != Kind::Text)
            continue;
        const ui::Size size = evenSize(item.text, item.font);
        const Rect text{item.place.left, item.place.top, size.width, size.height};
        EXPECT_EQ(
            std::count_if(solid.begin(), solid.end(), [&](const Rect& each) { return holds(each, text); }),
            1);
        for (const Rect& other : texts)
            EXPECT_FALSE(overlap(text, other));
        texts.push_back(text);
    }
    EXPECT_EQ(texts.size(), 20U);
}

TEST(DiagramDrawing, AHoveredBoxIsShownWithItsNeighboursAndTheRestPaler) {
    const DiagramDrawing drawing(arranged(people()), evenSize);
    const RecordingCanvas canvas = drawn(drawing, drawing.extent(), 1, {.selected = -1, .hovered = 1});
    EXPECT_EQ(canvas.findText(u"Company")->colour, palette::kName);
    EXPECT_EQ(canvas.findText(u"Person")->colour, palette::kName);
    EXPECT_EQ(canvas.findText(u"City")->colour, palette::paler(palette::kName, palette::kPaper));
    EXPECT_EQ(canvas.findText(u"WorksFor")->colour, palette::kLabel);
    EXPECT_EQ(canvas.findText(u"LivesIn")->colour, palette::paler(palette::kLabel, palette::kPaper));
    const RecordingCanvas chosen = drawn(drawing, drawing.extent(), 1, {.selected = 2, .hovered = -1});
    EXPECT_EQ(chosen.findText(u"City")->colour, palette::kName);
    EXPECT_NE(chosen.findText(u"Company")->colour, palette::kName);
    const RecordingCanvas none = drawn(drawing, drawing.extent(), 1, {.selected = 99, .hovered = -1});
    EXPECT_EQ(none.findText(u"City")->colour, palette::kName);
}

TEST(DiagramDrawing, KnowsNeighboursAndConnections) {
    const DiagramDrawing drawing(arranged(people()), evenSize);
    EXPECT_EQ(drawing.neighboursOf(0), (std::vector<std::size_t>{1, 2}));
    EXPECT_EQ(drawing.neighboursOf(2), (std::vector<std::size_t>{0}));
    EXPECT_EQ(drawing.connectionsOf(0), (std::vector<std::size_t>{0, 1, 2}));
}

TEST(DiagramDrawing, FindsTheTopmostBoxAtAPoint) {
    const auto model = field(9, 3);
    Box cover = metaClass(u"Cover");
    cover.place = {{500}, {500}, {2000}, {1000}};
    model->addBox(cover);
    const DiagramDrawing drawing(model, evenSize);
    EXPECT_EQ(drawing.boxAt({{100}, {100}}), 0);
    EXPECT_EQ(drawing.boxAt({{600}, {600}}), 9);
    EXPECT_EQ(drawing.boxAt({{3500}, {100}}), -1);
    EXPECT_EQ(drawing.boxAt({{-5'000'000}, {100}}), -1);
}

TEST(DiagramDrawing, AMovedBoxIsFoundWhereItIs) {
    const auto model = field(100, 10);
    DiagramDrawing drawing(model, evenSize);
    Rect& place = model->boxes[0].place;
    place.left = {90'000};
    place.top = {90'000};
    drawing.boxMoved(0);
    EXPECT_EQ(drawing.boxAt({{100}, {100}}), -1);
    EXPECT_EQ(drawing.boxAt({{90'100}, {90'100}}), 0);
    EXPECT_GE(drawing.extent().right(), Twips{92'000});
    EXPECT_EQ(namesIn(drawn(drawing, {{89'000}, {89'000}, {4000}, {4000}})), std::set<std::u16string>{u"B0"});
}

TEST(DiagramDrawing, OfTenThousandPropertiesOnlyTheVisibleLinesAreDrawn) {
    auto model = emptyModel();
    Box box = metaClass(u"Large");
    box.properties.assign(10'000, {u"Property", u"Integer"});
    model->addBox(box);
    const DiagramDrawing drawing(arranged(model), evenSize);
    const RecordingCanvas canvas = drawn(drawing, {{}, {1'000'000}, {6000}, {3000}});
    EXPECT_GT(countOf(canvas, Kind::Text), 10U);
    EXPECT_LT(countOf(canvas, Kind::Text), 40U);
}

TEST(DiagramDrawing, TheWholeIsDrawnOnWhiteInFull) {
    const DiagramDrawing drawing(arranged(people()), evenSize);
    RecordingCanvas canvas(headless::wholeView(drawing.extent().size()));
    drawing.drawAll(canvas);
    EXPECT_EQ(canvas.items().front().colour, palette::kWhite);
    EXPECT_NE(canvas.findText(u": Integer"), nullptr);
}

TEST(DiagramDrawing, TheOverviewIsBoxesAlone) {
    const DiagramDrawing drawing(field(100, 10), evenSize);
    RecordingCanvas canvas(headless::wholeView(drawing.extent().size()));
    drawing.drawOverview(canvas, {});
    EXPECT_EQ(canvas.items().size(), 100U);
    EXPECT_EQ(countOf(canvas, Kind::Filled), 100U);
}

TEST(DiagramDrawing, AnEmptyDiagramIsPaper) {
    const DiagramDrawing drawing(emptyModel(), evenSize);
    EXPECT_EQ(drawn(drawing, {{}, {}, {100}, {100}}).items().size(), 1U);
    EXPECT_EQ(drawing.boxAt({}), -1);
    EXPECT_EQ(drawing.extent(), Rect{});
}

TEST(DiagramDrawing, ThePictureIsDrawnInEveryHeader) {
    const auto model = people();
    model->headerPicture = std::make_shared<ui::Picture>(ui::Picture{2, 2, std::vector<std::uint8_t>(16)});
    const DiagramDrawing drawing(arranged(model), evenSize);
    EXPECT_EQ(countOf(drawn(drawing, drawing.extent()), Kind::Picture), 3U);
}

}  // namespace
}  // namespace quorel::diagram
