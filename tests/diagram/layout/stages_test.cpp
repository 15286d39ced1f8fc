// The stages of the layout, each against a plain way to the same result.

#include <gtest/gtest.h>

#include <limits>
#include <numeric>

#include "diagram/layout/acyclic.h"
#include "diagram/layout/component.h"
#include "diagram/layout/crossings.h"
#include "diagram/layout/ordering.h"
#include "diagram/layout/ranks.h"
#include "diagram/layout/sifting.h"
#include "tests/diagram/layout/generated_diagrams.h"

namespace quorel::diagram::layout::tests {
namespace {

/// Every node but the first has an edge with an earlier one, so all are joined; edges lead from lower numbers
/// to higher.
std::vector<Edge> joinedEdges(int nodes, std::size_t more, Random& random) {
    std::vector<Edge> edges;
    for (int v = 1; v < nodes; ++v)
        edges.push_back({static_cast<int>(random.below(static_cast<std::size_t>(v))), v});
    for (std::size_t i = 0; i < more; ++i) {
        const int to = 1 + static_cast<int>(random.below(static_cast<std::size_t>(nodes - 1)));
        edges.push_back({static_cast<int>(random.below(static_cast<std::size_t>(to))), to});
    }
    return edges;
}

int lengthOf(const std::vector<Edge>& edges, const std::vector<int>& ranks) {
    int sum = 0;
    for (const Edge& edge : edges)
        sum += ranks[static_cast<std::size_t>(edge.to)] - ranks[static_cast<std::size_t>(edge.from)];
    return sum;
}

/// By trying all ranks below `nodes`, node by node; edges lead to higher numbers.
int shortest(int nodes, const std::vector<Edge>& edges, std::vector<int>& ranks, int node) {
    if (node == nodes)
        return lengthOf(edges, ranks);
    int best = std::numeric_limits<int>::max();
    for (int rank = 0; rank < nodes; ++rank) {
        ranks[static_cast<std::size_t>(node)] = rank;
        const bool feasible = std::all_of(edges.begin(), edges.end(), [&](const Edge& edge) {
            return edge.to != node || ranks[static_cast<std::size_t>(edge.from)] < rank;
        });
        if (feasible)
            best = std::min(best, shortest(nodes, edges, ranks, node + 1));
    }
    return best;
}

/// As many rounds of longest ways as there are nodes settle the ranks of a graph without cycles.
bool hasCycle(int nodes, const std::vector<Edge>& edges, const std::vector<bool>& reversed) {
    std::vector<int> ranks(static_cast<std::size_t>(nodes));
    bool changed = true;
    for (int round = 0; round <= nodes && changed; ++round) {
        changed = false;
        for (std::size_t e = 0; e < edges.size(); ++e) {
            const auto from = static_cast<std::size_t>(reversed[e] ? edges[e].to : edges[e].from);
            const auto to = static_cast<std::size_t>(reversed[e] ? edges[e].from : edges[e].to);
            if (ranks[to] <= ranks[from])
                ranks[to] = ranks[from] + 1, changed = true;
        }
    }
    return changed;
}

TEST(DiagramCycles, AreBrokenAndOnlyIfThereAreAny) {
    for (std::uint64_t seed = 1; seed < 200; ++seed) {
        for (const auto reverse : {edgesToReverse, edgesToReverseInDepth}) {
            Random random(seed);
            const int nodes = 2 + static_cast<int>(random.below(30));
            std::vector<Edge> edges = joinedEdges(nodes, 40, random);
            EXPECT_EQ(reverse(nodes, edges), std::vector<bool>(edges.size())) << seed;
            for (Edge& edge : edges)
                if (random.below(3) == 0)
                    std::swap(edge.from, edge.to);
            const std::vector<bool> reversed = reverse(nodes, edges);
            EXPECT_FALSE(hasCycle(nodes, edges, reversed)) << seed;
            if (reverse == edgesToReverse) {
                EXPECT_LE(2 * std::count(reversed.begin(), reversed.end(), true), std::ssize(reversed));
            }
        }
    }
}

TEST(DiagramRanks, MakeTheEdgesAsShortAsTheyCanBe) {
    const Progress none;
    Watch watch(none);
    for (std::uint64_t seed = 1; seed < 60; ++seed) {
        Random random(seed);
        const int nodes = 2 + static_cast<int>(random.below(6));
        const std::vector<Edge> edges = joinedEdges(nodes, random.below(8), random);
        const std::vector<int> ranks = assignRanks(nodes, edges, watch);
        for (const Edge& edge : edges)
            EXPECT_LT(ranks[static_cast<std::size_t>(edge.from)], ranks[static_cast<std::size_t>(edge.to)]);
        EXPECT_EQ(*std::min_element(ranks.begin(), ranks.end()), 0);
        std::vector<int> tried(static_cast<std::size_t>(nodes));
        EXPECT_EQ(lengthOf(edges, ranks), shortest(nodes, edges, tried, 0)) << seed;
    }
}

std::int64_t crossingsOneByOne(const Layered& graph) {
    std::int64_t crossings = 0;
    const auto place = [&](int v) { return graph.position[static_cast<std::size_t>(v)]; };
    for (const Edge& a : graph.segments)
        for (const Edge& b : graph.segments)
            crossings += graph.rank[static_cast<std::size_t>(a.from)] ==
                             graph.rank[static_cast<std::size_t>(b.from)] &&
                         place(a.from) < place(b.from) && place(a.to) > place(b.to);
    return crossings;
}

Layered layeredFrom(std::uint64_t seed, int nodes, std::size_t more) {
    const Progress none;
    Watch watch(none);
    Random random(seed);
    const std::vector<Edge> edges = joinedEdges(nodes, more, random);
    return {assignRanks(nodes, edges, watch), edges};
}

TEST(DiagramCrossings, AreCountedAsOneByOne) {
    for (std::uint64_t seed = 1; seed < 100; ++seed) {
        const Layered graph = layeredFrom(seed, 20, 30);
        EXPECT_EQ(CrossingCounter().count(graph), crossingsOneByOne(graph)) << seed;
    }
}

TEST(DiagramCrossings, GetFewerByWhatSiftingSays) {
    const Progress none;
    Watch watch(none);
    for (std::uint64_t seed = 1; seed < 50; ++seed) {
        Layered graph = layeredFrom(seed, 40, 60);
        const std::int64_t before = CrossingCounter().count(graph);
        const std::int64_t saved = Sifting(graph).round(100, watch, 0, 1);
        EXPECT_GE(saved, 0);
        EXPECT_EQ(CrossingCounter().count(graph), before - saved) << seed;
    }
}

TEST(DiagramCrossings, AreNoneInATree) {
    const Progress none;
    Watch watch(none);
    for (std::uint64_t seed = 1; seed < 50; ++seed) {
        Layered graph = layeredFrom(seed, 200, 0);
        orderLayers(graph, watch);
        EXPECT_EQ(CrossingCounter().count(graph), 0) << seed;
    }
}

TEST(DiagramComponents, AreThePartsThatNothingJoins) {
    Diagram diagram;
    diagram.boxes.resize(5);
    diagram.connections = {{4, 0, {}}, {2, 2, {}}, {3, 1, {}}};
    const std::vector<Component> components = splitIntoComponents(diagram);
    ASSERT_EQ(components.size(), 3U);
    EXPECT_EQ(components[0].boxes, (std::vector<int>{0, 4}));
    EXPECT_EQ(components[1].boxes, (std::vector<int>{1, 3}));
    EXPECT_EQ(components[2].boxes, (std::vector<int>{2}));
    EXPECT_EQ(components[2].connections, (std::vector<int>{1}));
}

TEST(DiagramComponents, ArePackedIntoAboutASquare) {
    std::vector<Place> places;
    const Extent whole = pack(std::vector<Extent>(100, {100, 100}), 0, places);
    EXPECT_EQ(whole, (Extent{1000, 1000}));
    EXPECT_EQ(places[99], (Place{900, 900}));
}

}  // namespace
}  // namespace quorel::diagram::layout::tests
