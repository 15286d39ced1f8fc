// What holds of every arrangement, over many diagrams from seeds and over shapes that are hard.

#include <gtest/gtest.h>

#include <chrono>

#include "diagram/layout/layout.h"
#include "tests/diagram/layout/generated_diagrams.h"

namespace quorel::diagram::layout::tests {
namespace {

struct Rect {
    Length left, top, right, bottom;
};

Rect rectOf(Place place, Extent extent) {
    return {place.x, place.y, place.x + extent.width, place.y + extent.height};
}

bool overlap(const Rect& a, const Rect& b) {
    return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
}

/// Whether the line goes through the rectangle's inside: none of the four sides, nor the line, keeps them
/// apart.
bool meets(Place a, Place b, const Rect& r) {
    if (std::max(a.x, b.x) <= r.left || std::min(a.x, b.x) >= r.right || std::max(a.y, b.y) <= r.top ||
        std::min(a.y, b.y) >= r.bottom)
        return false;
    const auto side = [&](Length x, Length y) { return (b.x - a.x) * (y - a.y) - (b.y - a.y) * (x - a.x); };
    const Length corners[] = {side(r.left, r.top), side(r.right, r.top), side(r.left, r.bottom),
                              side(r.right, r.bottom)};
    const auto [low, high] = std::minmax_element(std::begin(corners), std::end(corners));
    return *low < 0 && *high > 0;
}

bool hasLabel(const Connection& connection) {
    return connection.label.width > 0 || connection.label.height > 0;
}

/// All boxes and labels as rectangles, from left to right.
std::vector<Rect> rectsOf(const Diagram& diagram, const Arrangement& result) {
    std::vector<Rect> rects;
    for (std::size_t i = 0; i < diagram.boxes.size(); ++i)
        rects.push_back(rectOf(result.boxes[i], diagram.boxes[i]));
    for (std::size_t c = 0; c < diagram.connections.size(); ++c)
        if (hasLabel(diagram.connections[c]))
            rects.push_back(rectOf(result.labels[c], diagram.connections[c].label));
    std::sort(rects.begin(), rects.end(), [](const Rect& a, const Rect& b) { return a.left < b.left; });
    return rects;
}

void expectNoOverlaps(const std::vector<Rect>& rects, Extent size) {
    std::size_t overlaps = 0, outside = 0;
    for (std::size_t i = 0; i < rects.size(); ++i) {
        const Rect& r = rects[i];
        outside += r.left < 0 || r.top < 0 || r.right > size.width || r.bottom > size.height;
        for (std::size_t j = i + 1; j < rects.size() && rects[j].left < r.right; ++j)
            overlaps += overlap(r, rects[j]);
    }
    EXPECT_EQ(overlaps, 0U);
    EXPECT_EQ(outside, 0U);
}

void expectLinesBetweenTheirBoxes(const Diagram& diagram, const Arrangement& result) {
    std::size_t loose = 0, flat = 0;
    for (std::size_t c = 0; c < diagram.connections.size(); ++c) {
        const Connection& connection = diagram.connections[c];
        const auto& line = result.lines[c];
        const Rect from = rectOf(result.boxes[connection.from], diagram.boxes[connection.from]);
        const Rect to = rectOf(result.boxes[connection.to], diagram.boxes[connection.to]);
        ASSERT_GE(line.size(), 2U);
        const Place first = line.front(), last = line.back();
        if (connection.from == connection.to) {
            loose +=
                first.x != from.right || last.x != from.right || first.y < from.top || last.y > from.bottom;
            continue;
        }
        const bool up = result.reversed[c];
        loose += first.y != (up ? from.top : from.bottom) || last.y != (up ? to.bottom : to.top);
        loose += first.x < from.left || first.x > from.right || last.x < to.left || last.x > to.right;
        const int step = result.ranks[connection.to] - result.ranks[connection.from];
        flat += up ? step >= 0 : step <= 0;
        for (std::size_t i = 1; i < line.size(); ++i)
            flat += up ? line[i].y > line[i - 1].y : line[i].y < line[i - 1].y;
    }
    EXPECT_EQ(loose, 0U);
    EXPECT_EQ(flat, 0U);
}

void expectNoLineThroughAnything(const Arrangement& result, const std::vector<Rect>& rects) {
    Length widest = 0;
    for (const Rect& rect : rects)
        widest = std::max(widest, rect.right - rect.left);
    std::size_t through = 0;
    for (const auto& line : result.lines) {
        for (std::size_t i = 1; i < line.size(); ++i) {
            const Length left = std::min(line[i - 1].x, line[i].x),
                         right = std::max(line[i - 1].x, line[i].x);
            auto rect = std::lower_bound(rects.begin(), rects.end(), left - widest,
                                         [](const Rect& r, Length x) { return r.left < x; });
            for (; rect != rects.end() && rect->left < right + 1; ++rect)
                through += meets(line[i - 1], line[i], *rect);
        }
    }
    EXPECT_EQ(through, 0U);
}

void expectGood(const Diagram& diagram) {
    const Arrangement result = arrange(diagram).value();
    const std::vector<Rect> rects = rectsOf(diagram, result);
    expectNoOverlaps(rects, result.size);
    expectLinesBetweenTheirBoxes(diagram, result);
    expectNoLineThroughAnything(result, rects);
    EXPECT_EQ(arrange(diagram), result);
}

Diagram boxesOnly(std::size_t boxes) {
    Diagram diagram;
    diagram.boxes.assign(boxes, {1500, 900});
    return diagram;
}

TEST(DiagramLayoutProperties, HoldForAnyDiagram) {
    for (std::uint64_t seed = 0; seed < 500; ++seed) {
        SCOPED_TRACE(seed);
        expectGood(anyDiagram(seed));
    }
}

TEST(DiagramLayoutProperties, HoldForClassDiagrams) {
    for (std::uint64_t seed = 0; seed < 6; ++seed) {
        SCOPED_TRACE(seed);
        expectGood(classDiagram(120, 360, seed, seed % 2 == 0 ? Labels::None : Labels::All));
    }
}

TEST(DiagramLayoutProperties, HoldForABigClassDiagram) {
    expectGood(classDiagram(1000, 2000, 3, Labels::All));
}

TEST(DiagramLayoutProperties, HoldForBoxesThatNothingConnects) {
    expectGood(boxesOnly(500));
}

TEST(DiagramLayoutProperties, HoldWhenAllAreConnectedWithAll) {
    Diagram diagram = boxesOnly(24);
    for (std::size_t i = 0; i < 24; ++i)
        for (std::size_t j = 0; j < 24; ++j)
            diagram.connections.push_back({i, j, {}});
    expectGood(diagram);
}

TEST(DiagramLayoutProperties, HoldForALongChain) {
    Diagram diagram = boxesOnly(3'000);
    for (std::size_t i = 1; i < diagram.boxes.size(); ++i)
        diagram.connections.push_back({i - 1, i, {}});
    expectGood(diagram);
}

TEST(DiagramLayoutProperties, HoldForALongCycle) {
    Diagram diagram = boxesOnly(3'000);
    for (std::size_t i = 0; i < diagram.boxes.size(); ++i)
        diagram.connections.push_back({i, (i + 1) % diagram.boxes.size(), {}});
    expectGood(diagram);
}

TEST(DiagramLayoutProperties, HoldForAStar) {
    Diagram diagram = boxesOnly(10'001);
    for (std::size_t i = 1; i < diagram.boxes.size(); ++i)
        diagram.connections.push_back({0, i, {}});
    expectGood(diagram);
}

TEST(DiagramLayoutProperties, HoldForManyLoopsAndConnectionsOfOnePair) {
    Diagram diagram = boxesOnly(3);
    for (std::size_t i = 0; i < 200; ++i) {
        diagram.connections.push_back({0, 0, {500, 300}});
        diagram.connections.push_back({1, 2, {i % 2 == 0 ? 0 : 400, i % 2 == 0 ? 0 : 200}});
    }
    expectGood(diagram);
}

/// The longest time between two questions bounds how long a cancellation takes.
TEST(DiagramLayoutProperties, AsksOftenEnoughToBeCancelledAtOnce) {
    using Clock = std::chrono::steady_clock;
    Clock::duration longest{};
    Clock::time_point last = Clock::now();
    const auto ask = [&](int) {
        longest = std::max(longest, Clock::now() - last);
        last = Clock::now();
        return true;
    };
    ASSERT_TRUE(arrange(classDiagram(1000, 3000, 4), {}, ask));
    EXPECT_LT(longest, std::chrono::milliseconds(100));
}

}  // namespace
}  // namespace quorel::diagram::layout::tests
