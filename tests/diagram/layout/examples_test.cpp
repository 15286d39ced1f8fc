// Small diagrams whose arrangement one knows beforehand.

#include <gtest/gtest.h>

#include <stdexcept>

#include "diagram/layout/layout.h"
#include "tests/diagram/layout/generated_diagrams.h"

namespace quorel::diagram::layout::tests {
namespace {

constexpr Extent kBox{1000, 500};

Diagram diagramOf(std::size_t boxes, std::vector<std::pair<std::size_t, std::size_t>> connections) {
    Diagram diagram;
    diagram.boxes.assign(boxes, kBox);
    for (const auto& [from, to] : connections)
        diagram.connections.push_back({from, to, {}});
    return diagram;
}

TEST(DiagramLayout, ArrangesNothing) {
    EXPECT_EQ(arrange({}), Arrangement{});
}

TEST(DiagramLayout, OneBoxStandsWithHalfAGapOnEitherSide) {
    const Arrangement result = arrange(diagramOf(1, {})).value();
    EXPECT_EQ(result.boxes, (std::vector<Place>{{300, 0}}));
    EXPECT_EQ(result.size, (Extent{1600, 500}));
}

TEST(DiagramLayout, ConnectsTwoBoxesByAStraightLineDownwards) {
    const Arrangement result = arrange(diagramOf(2, {{1, 0}})).value();
    EXPECT_EQ(result.boxes, (std::vector<Place>{{300, 1400}, {300, 0}}));
    EXPECT_EQ(result.ranks, (std::vector<int>{1, 0}));
    EXPECT_EQ(result.lines[0], (std::vector<Place>{{800, 500}, {800, 1400}}));
    EXPECT_FALSE(result.reversed[0]);
}

TEST(DiagramLayout, RunsOneConnectionOfACycleUpwards) {
    const Arrangement result = arrange(diagramOf(2, {{0, 1}, {1, 0}})).value();
    ASSERT_NE(result.reversed[0], result.reversed[1]);
    const std::size_t up = result.reversed[0] ? 0 : 1;
    EXPECT_GT(result.lines[up].front().y, result.lines[up].back().y);
    EXPECT_LT(result.lines[1 - up].front().y, result.lines[1 - up].back().y);
}

TEST(DiagramLayout, KeepsSeveralConnectionsOfOnePairApart) {
    const Arrangement result = arrange(diagramOf(2, {{0, 1}, {0, 1}, {0, 1}})).value();
    for (std::size_t i = 0; i < 3; ++i) {
        ASSERT_EQ(result.lines[i].size(), 2U);
        EXPECT_EQ(result.lines[i][0].x, result.lines[i][1].x);
    }
    EXPECT_EQ(result.lines[1][0].x - result.lines[0][0].x, 240);
    EXPECT_EQ(result.lines[2][0].x - result.lines[1][0].x, 240);
}

TEST(DiagramLayout, NestsLoopsAtTheRightSide) {
    Diagram diagram = diagramOf(1, {{0, 0}, {0, 0}});
    diagram.connections[1].label = {400, 200};
    const Arrangement result = arrange(diagram).value();
    EXPECT_EQ(result.lines[0], (std::vector<Place>{{1300, 200}, {1540, 200}, {1540, 300}, {1300, 300}}));
    EXPECT_EQ(result.lines[1], (std::vector<Place>{{1300, 100}, {1780, 100}, {1780, 400}, {1300, 400}}));
    EXPECT_EQ(result.labels[1], (Place{2020, 150}));
}

TEST(DiagramLayout, PutsALabelBesideItsLineBetweenTheRanks) {
    Diagram diagram = diagramOf(2, {{0, 1}});
    diagram.connections[0].label = {700, 300};
    const Arrangement result = arrange(diagram).value();
    EXPECT_EQ(result.ranks, (std::vector<int>{0, 1}));
    EXPECT_EQ(result.labels[0].x - result.lines[0][0].x, 240);
    EXPECT_EQ(result.labels[0].y, 500 + 450);
    EXPECT_EQ(result.boxes[1].y, 500 + 450 + 300 + 450);
}

TEST(DiagramLayout, PutsAParentOverTheMiddleOfItsChildren) {
    const Arrangement result = arrange(diagramOf(4, {{0, 1}, {0, 2}, {0, 3}})).value();
    EXPECT_EQ(result.boxes[1].y, result.boxes[3].y);
    EXPECT_EQ(result.boxes[0].x, result.boxes[2].x);
    EXPECT_EQ(result.boxes[2].x - result.boxes[1].x, 1600);
}

TEST(DiagramLayout, RefusesAConnectionToNoBox) {
    EXPECT_THROW(static_cast<void>(arrange(diagramOf(1, {{0, 1}}))), std::out_of_range);
    EXPECT_THROW(static_cast<void>(arrange(diagramOf(0, {{0, 0}}))), std::out_of_range);
}

TEST(DiagramLayout, TakesNegativeExtentsAsNone) {
    Diagram diagram = diagramOf(2, {{0, 1}});
    Diagram none = diagram;
    diagram.boxes[0] = {-5, -7}, none.boxes[0] = {};
    diagram.connections[0].label = {-3, -1};
    EXPECT_EQ(arrange(diagram), arrange(none));
}

TEST(DiagramLayout, TellsItsProgressUpToTheEnd) {
    std::vector<int> told;
    ASSERT_TRUE(arrange(classDiagram(300, 900, 1), {}, [&](int permille) {
        told.push_back(permille);
        return true;
    }));
    EXPECT_TRUE(std::is_sorted(told.begin(), told.end()));
    EXPECT_EQ(told.front(), 0);
    EXPECT_EQ(told.back(), 1000);
    EXPECT_GT(told.size(), 10U);
}

TEST(DiagramLayout, AsksNoMoreOnceCancelledWhereverThatIs) {
    const Diagram diagram = classDiagram(200, 600, 2);
    std::size_t questions = 0;
    ASSERT_TRUE(arrange(diagram, {}, [&](int) { return ++questions > 0; }));
    for (std::size_t last = 1; last <= questions; ++last) {
        std::size_t asked = 0;
        EXPECT_FALSE(arrange(diagram, {}, [&](int) { return ++asked < last; }));
        EXPECT_EQ(asked, last);
    }
}

}  // namespace
}  // namespace quorel::diagram::layout::tests
