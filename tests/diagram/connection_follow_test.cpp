#include "diagram/connection_follow.h"

#include <gtest/gtest.h>

#include <random>

namespace quorel::diagram {
namespace {

using ui::operator|;
using ui::Point;
using ui::Rect;
using namespace ui::literals;

constexpr Rect kBox{1000_tw, 1000_tw, 2000_tw, 1000_tw};

[[nodiscard]] constexpr Rect moved(const Rect& place, Point by) {
    return {place.left + by.x, place.top + by.y, place.width, place.height};
}

/// On the edge of the box, neither within nor outside.
[[nodiscard]] bool touches(const Rect& box, Point at) {
    const bool within = at.x >= box.left && at.x <= box.right() && at.y >= box.top && at.y <= box.bottom();
    const bool inside = at.x > box.left && at.x < box.right() && at.y > box.top && at.y < box.bottom();
    return within && !inside;
}

/// Down from the box, aside and down to another one.
[[nodiscard]] Connection stepped() {
    Connection connection;
    connection.line = {{2000_tw, 2000_tw}, {2000_tw, 3000_tw}, {5000_tw, 4000_tw}, {5000_tw, 6000_tw}};
    return connection;
}

TEST(Follow, TheEndGoesAlongAndTheRestStays) {
    const Point by{300_tw, -200_tw};
    const Followed now = follow(stepped(), Ends::From, moved(kBox, by), by);
    EXPECT_EQ(now.line, (std::vector<Point>{
                            {2300_tw, 1800_tw}, {2000_tw, 3000_tw}, {5000_tw, 4000_tw}, {5000_tw, 6000_tw}}));
}

TEST(Follow, TheOtherEndDoesSoToo) {
    const Rect below{4000_tw, 6000_tw, 2000_tw, 1000_tw};
    const Point by{-400_tw, 500_tw};
    const Followed now = follow(stepped(), Ends::To, moved(below, by), by);
    EXPECT_EQ(now.line, (std::vector<Point>{
                            {2000_tw, 2000_tw}, {2000_tw, 3000_tw}, {5000_tw, 4000_tw}, {4600_tw, 6500_tw}}));
}

TEST(Follow, NotMovingChangesNothing) {
    EXPECT_EQ(follow(stepped(), Ends::From, kBox, {}).line, stepped().line);
    EXPECT_EQ(follow(stepped(), Ends::None, kBox, {100_tw, 100_tw}).line, stepped().line);
}

TEST(Follow, BendsThatTheBoxCoversGo) {
    const Point by{0_tw, 1500_tw};
    const Rect box = moved(kBox, by);
    const Followed now = follow(stepped(), Ends::From, box, by);
    ASSERT_EQ(now.line.size(), 3U);
    EXPECT_TRUE(touches(box, now.line.front()));
    EXPECT_EQ(now.line[1], (Point{5000_tw, 4000_tw}));
}

TEST(Follow, ALineDoesNotRunThroughItsOwnBox) {
    // The box is now below the line's first bend, which it left at its bottom.
    const Point by{0_tw, 3000_tw};
    const Rect box = moved(kBox, by);
    const Followed now = follow(stepped(), Ends::From, box, by);
    EXPECT_EQ(now.line, (std::vector<Point>{{3000_tw, 5000_tw}, {5000_tw, 6000_tw}}));
}

TEST(Follow, AStraightLineLeavesAtTheSideThatFacesTheOtherEnd) {
    Connection connection;
    connection.line = {{2000_tw, 2000_tw}, {2000_tw, 6000_tw}};
    const Point by{0_tw, 6000_tw};
    const Followed now = follow(connection, Ends::From, moved(kBox, by), by);
    EXPECT_EQ(now.line, (std::vector<Point>{{2000_tw, 7000_tw}, {2000_tw, 6000_tw}}));
}

TEST(Follow, ALineEndsWhereItMeetsTheBoxOnItsWay) {
    // The box stands on the middle part of the line now.
    const Rect box{4500_tw, 4500_tw, 2000_tw, 1000_tw};
    const Followed now = follow(stepped(), Ends::From, box, {3500_tw, 3500_tw});
    EXPECT_EQ(now.line, (std::vector<Point>{{5000_tw, 5500_tw}, {5000_tw, 6000_tw}}));
}

TEST(Follow, ALineDoesNotTurnBack) {
    // Far to the right of the bend that led the line to the left.
    const Point by{9000_tw, 3200_tw};
    const Rect box = moved(kBox, by);
    const Followed now = follow(stepped(), Ends::From, box, by);
    ASSERT_EQ(now.line.size(), 2U);
    EXPECT_TRUE(touches(box, now.line[0]));
    EXPECT_EQ(now.line[1], (Point{5000_tw, 6000_tw}));
}

TEST(Follow, ALoopGoesAlongAsItIs) {
    Connection loop;
    loop.line = {{3000_tw, 1200_tw}, {3500_tw, 1200_tw}, {3500_tw, 1800_tw}, {3000_tw, 1800_tw}};
    loop.label = {3600_tw, 1300_tw, 500_tw, 200_tw};
    const Followed now = follow(loop, Ends::From | Ends::To, moved(kBox, {50_tw, 70_tw}), {50_tw, 70_tw});
    EXPECT_EQ(now.line, (std::vector<Point>{
                            {3050_tw, 1270_tw}, {3550_tw, 1270_tw}, {3550_tw, 1870_tw}, {3050_tw, 1870_tw}}));
    EXPECT_EQ(now.label, (Rect{3650_tw, 1370_tw, 500_tw, 200_tw}));
}

TEST(Follow, ALabelStaysBesideItsPartOfTheLine) {
    Connection connection = stepped();
    connection.label = {5100_tw, 4800_tw, 800_tw, 300_tw};
    const Point by{-600_tw, 0_tw};
    // It stands beside what has not changed,
    EXPECT_EQ(follow(connection, Ends::From, moved(kBox, by), by).label, connection.label);
    // or half way along what has.
    connection.label = {2100_tw, 2350_tw, 800_tw, 300_tw};
    EXPECT_EQ(follow(connection, Ends::From, moved(kBox, by), by).label,
              (Rect{1800_tw, 2350_tw, 800_tw, 300_tw}));
}

TEST(Follow, ALabelThatTheBoxWouldHideGoesElsewhere) {
    Connection connection = stepped();
    connection.label = {2100_tw, 2350_tw, 800_tw, 300_tw};
    const Point by{0_tw, 700_tw};
    const Rect box = moved(kBox, by);
    const Rect label = follow(connection, Ends::From, box, by).label;
    EXPECT_EQ(label.size(), connection.label.size());
    EXPECT_EQ(ui::intersection(label, box).height, 0_tw);
}

TEST(Follow, NoLabelStaysNone) {
    EXPECT_EQ(follow(stepped(), Ends::From, moved(kBox, {500_tw, 0_tw}), {500_tw, 0_tw}).label, Rect{});
}

TEST(Follow, LinesWithoutLengthDoNoHarm) {
    Connection connection;
    connection.label = {0_tw, 0_tw, 100_tw, 100_tw};
    EXPECT_TRUE(follow(connection, Ends::From, kBox, {10_tw, 10_tw}).line.empty());
    connection.line = {{2000_tw, 2000_tw}, {2000_tw, 2000_tw}};
    EXPECT_TRUE(touches(moved(kBox, {10_tw, 0_tw}),
                        follow(connection, Ends::To, moved(kBox, {10_tw, 0_tw}), {10_tw, 0_tw}).line.back()));
}

TEST(Follow, EndsTouchTheirBoxesWhereverTheyGo) {
    std::mt19937 random(11);
    const auto between = [&random](std::int32_t low, std::int32_t high) {
        return ui::Twips{low + static_cast<std::int32_t>(random() % static_cast<unsigned>(high - low))};
    };
    const Rect other{8000_tw, 8000_tw, 1500_tw, 900_tw};
    for (int round = 0; round < 5000; ++round) {
        Connection connection;
        connection.line = {{between(1000, 3000), 2000_tw}};
        for (unsigned bends = random() % 4; bends > 0; --bends)
            connection.line.push_back({between(0, 12000), between(0, 12000)});
        connection.line.push_back({8500_tw, 8000_tw});
        connection.label = {between(0, 9000), between(0, 9000), 600_tw, 200_tw};
        const Point by{between(-9000, 9000), between(-9000, 9000)};
        const Ends end = random() % 2 == 0 ? Ends::From : Ends::To;
        const Rect box = moved(end == Ends::From ? kBox : other, by);
        const Followed now = follow(connection, end, box, by);
        const Point fixed = end == Ends::From ? now.line.back() : now.line.front();
        const Point free = end == Ends::From ? now.line.front() : now.line.back();
        EXPECT_EQ(fixed, end == Ends::From ? connection.line.back() : connection.line.front());
        const bool covered =
            fixed.x >= box.left && fixed.x <= box.right() && fixed.y >= box.top && fixed.y <= box.bottom();
        // A box over the other end hides it: then there is no edge to meet.
        EXPECT_TRUE(covered || touches(box, free)) << round;
        EXPECT_EQ(now.label.size(), connection.label.size());
    }
}

}  // namespace
}  // namespace quorel::diagram
