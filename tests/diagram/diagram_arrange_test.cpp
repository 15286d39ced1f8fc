#include "diagram/diagram_arrange.h"

#include <gtest/gtest.h>

#include <set>

#include "platform/automation/text.h"
#include "tests/diagram/layout/generated_diagrams.h"
#include "tests/diagram/sample_diagram.h"

namespace quorel::diagram {
namespace {

using namespace samples;
using ui::Point;
using ui::Rect;
using ui::Twips;

std::shared_ptr<DiagramModel> generated(std::size_t boxes, std::size_t connections) {
    auto model = emptyModel();
    const layout::Diagram diagram = layout::tests::classDiagram(boxes, connections, 7);
    for (std::size_t box = 0; box < diagram.boxes.size(); ++box) {
        Box made = metaClass(u"Class" + automation::decimal(static_cast<std::int64_t>(box)));
        for (std::size_t line = 0; line < box % 7; ++line)
            made.properties.push_back({u"Property", u"Integer"});
        model->addBox(std::move(made));
    }
    for (const layout::Connection& each : diagram.connections)
        model->addConnection(metaAssoc(u"Link", each.from, each.to));
    return model;
}

/// What surrounds a part of a line, if it leaves out a twip at its ends.
bool meets(const Rect& box, Point a, Point b) {
    for (int step = 1; step < 64; ++step) {
        const auto at = [step](Twips from, Twips to) {
            return Twips{from.value +
                         static_cast<std::int32_t>((std::int64_t{to.value} - from.value) * step / 64)};
        };
        const Rect spot{at(a.x, b.x), at(a.y, b.y), {1}, {1}};
        if (overlap({box.left + Twips{2}, box.top + Twips{2}, box.width - Twips{4}, box.height - Twips{4}},
                    spot))
            return true;
    }
    return false;
}

TEST(ArrangeDiagram, NothingOverlapsAndLinesKeepClear) {
    const auto model = generated(60, 150);
    ASSERT_TRUE(arrangeDiagram(*model, evenSize));
    std::vector<Rect> solid;
    for (const Box& box : model->boxes)
        solid.push_back(box.place);
    for (const Connection& connection : model->connections)
        solid.push_back(connection.label);
    for (std::size_t a = 0; a < solid.size(); ++a)
        for (std::size_t b = a + 1; b < solid.size(); ++b)
            ASSERT_FALSE(overlap(solid[a], solid[b])) << a << " and " << b;
    for (const Connection& connection : model->connections) {
        ASSERT_GE(connection.line.size(), 2U);
        for (std::size_t at = 1; at < connection.line.size(); ++at)
            for (const Rect& place : solid)
                ASSERT_FALSE(meets(place, connection.line[at - 1], connection.line[at]));
    }
}

TEST(ArrangeDiagram, LinesLeaveAndReachBoxesUprightAtTheirEdges) {
    const auto model = generated(60, 150);
    ASSERT_TRUE(arrangeDiagram(*model, evenSize));
    for (const Connection& connection : model->connections) {
        const std::vector<Point>& line = connection.line;
        const Rect& from = model->boxes[connection.from].place;
        const Rect& to = model->boxes[connection.to].place;
        if (connection.from == connection.to) {
            EXPECT_EQ(line.front().x, from.right());
            EXPECT_EQ(line.back().x, from.right());
            EXPECT_TRUE(line.front().y >= from.top && line.back().y <= from.bottom());
            continue;
        }
        EXPECT_EQ(line.front().x, line[1].x);
        EXPECT_EQ(line.back().x, line[line.size() - 2].x);
        EXPECT_TRUE(line.front().y == from.bottom() || line.front().y == from.top);
        EXPECT_TRUE(line.back().y == to.top || line.back().y == to.bottom());
    }
}

TEST(ArrangeDiagram, BeginsAtTheMarginAndIsTheSameEachTime) {
    const auto model = generated(30, 60);
    const auto again = generated(30, 60);
    ASSERT_TRUE(arrangeDiagram(*model, evenSize));
    ASSERT_TRUE(arrangeDiagram(*again, evenSize));
    std::set<Twips> lefts, tops;
    for (std::size_t box = 0; box < model->boxes.size(); ++box) {
        EXPECT_EQ(model->boxes[box].place, again->boxes[box].place);
        lefts.insert(model->boxes[box].place.left);
        tops.insert(model->boxes[box].place.top);
    }
    for (std::size_t each = 0; each < model->connections.size(); ++each)
        EXPECT_EQ(model->connections[each].line, again->connections[each].line);
    EXPECT_GE(*lefts.begin(), kDrawingMargin);
    EXPECT_EQ(*tops.begin(), kDrawingMargin);
}

TEST(ArrangeDiagram, CancelledItLeavesPlacesAsTheyWere) {
    const auto model = generated(200, 600);
    for (std::size_t box = 0; box < model->boxes.size(); ++box)
        model->boxes[box].place.left = Twips{static_cast<std::int32_t>(box)};
    EXPECT_FALSE(arrangeDiagram(*model, evenSize, [](int) { return false; }));
    for (std::size_t box = 0; box < model->boxes.size(); ++box)
        EXPECT_EQ(model->boxes[box].place.left, Twips{static_cast<std::int32_t>(box)});
}

TEST(ArrangeDiagram, TellsHowFarItIs) {
    const auto model = generated(200, 600);
    int last = -1;
    EXPECT_TRUE(arrangeDiagram(*model, evenSize, [&](int permille) {
        EXPECT_GE(permille, last);
        last = permille;
        return true;
    }));
    EXPECT_GE(last, 0);
    EXPECT_LE(last, 1000);
}

TEST(ArrangeDiagram, AnEmptyDiagramIsArranged) {
    DiagramModel model;
    EXPECT_TRUE(arrangeDiagram(model, evenSize));
}

TEST(ConnectStraight, LinesRunFromEdgeToEdgeBesideEachOther) {
    auto model = emptyModel();
    for (const int left : {0, 6000}) {
        Box box = metaClass(u"A");
        box.alignedToText = false;
        box.place.left = {left};
        model->addBox(std::move(box));
    }
    for (int each = 0; each < 3; ++each)
        model->addConnection(metaAssoc(u"Link", 0, 1));
    model->addConnection(metaAssoc(u"Back", 1, 0));
    connectStraight(*model, evenSize);
    std::set<Twips> heights;
    for (const Connection& connection : model->connections) {
        ASSERT_EQ(connection.line.size(), 2U);
        const bool back = connection.from == 1;
        EXPECT_EQ(connection.line.front().x, Twips{back ? 6000 : 3000});
        EXPECT_EQ(connection.line.back().x, Twips{back ? 3000 : 6000});
        heights.insert(connection.line.front().y);
        EXPECT_GT(connection.label.width, Twips{});
    }
    EXPECT_EQ(heights.size(), 4U);
    EXPECT_EQ(model->boxes[1].place.left, Twips{6000});
}

TEST(ConnectStraight, LoopsRunAroundTheRightSide) {
    const auto model = people();
    connectStraight(*model, evenSize);
    const Rect& person = model->boxes[0].place;
    const std::vector<Point>& loop = model->connections[0].line;
    ASSERT_EQ(loop.size(), 4U);
    EXPECT_EQ(loop.front().x, person.right());
    EXPECT_EQ(loop.back().x, person.right());
    EXPECT_GT(loop[1].x, person.right());
}

TEST(ConnectStraight, BoxesOfOnePlaceHaveALineNevertheless) {
    auto model = emptyModel();
    model->addBox(metaClass(u"A"));
    model->addBox(metaClass(u"B"));
    model->addConnection(metaAssoc(u"Link", 0, 1));
    connectStraight(*model, evenSize);
    EXPECT_EQ(model->connections[0].line.size(), 2U);
}

}  // namespace
}  // namespace quorel::diagram
