#include "diagram/layout/coordinates.h"

#include <algorithm>
#include <array>

#include "diagram/layout/alignment.h"
#include "diagram/layout/index.h"

namespace quorel::diagram::layout {
namespace {

/// The neighbours above (`up`) or below every node, sorted by where they stand.
Neighbours neighboursOf(const Layered& graph, bool up) {
    Neighbours result;
    result.otherEnd.reserve(graph.segments.size());
    for (const Edge& segment : graph.segments)
        result.otherEnd.push_back(up ? segment.from : segment.to);
    result.nodes = Adjacency(graph.nodes(), graph.segments.size(), [&](std::size_t s) {
        return up ? graph.segments[s].to : graph.segments[s].from;
    });
    for (std::size_t v = 0; v < graph.rank.size(); ++v)
        std::sort(result.nodes[v].begin(), result.nodes[v].end(), [&](int a, int b) {
            return std::pair(graph.position[at(result.otherEnd[at(a)])], a) <
                   std::pair(graph.position[at(result.otherEnd[at(b)])], b);
        });
    return result;
}

/// Segments that cross one between two chain nodes: those stay straight, these give way.
std::vector<bool> findConflicts(const Layered& graph, const Neighbours& above) {
    std::vector<bool> conflicts(graph.segments.size());
    const auto innerEnd = [&](int v) {
        if (graph.isBox(v) || graph.isBox(above.otherEnd[at(above.nodes[at(v)][0])]))
            return -1;
        return graph.position[at(above.otherEnd[at(above.nodes[at(v)][0])])];
    };
    for (std::size_t i = 1; i < graph.layers.size(); ++i) {
        const auto& layer = graph.layers[i];
        int left = 0;
        std::size_t scanned = 0;
        for (std::size_t j = 0; j < layer.size(); ++j) {
            const int inner = innerEnd(layer[j]);
            if (inner < 0 && j + 1 < layer.size())
                continue;
            const int right = inner < 0 ? static_cast<int>(graph.layers[i - 1].size()) - 1 : inner;
            for (; scanned <= j; ++scanned) {
                for (const int s : above.nodes[at(layer[scanned])]) {
                    const int place = graph.position[at(above.otherEnd[at(s)])];
                    conflicts[at(s)] = place < left || place > right;
                }
            }
            left = right;
        }
    }
    return conflicts;
}

/// Moves the arrangements side by side with the narrowest: those from the left by their left edges, the
/// others by their right ones.
void align(std::array<std::vector<Length>, 4>& arrangements) {
    std::array<Length, 4> left{}, right{};
    std::size_t narrowest = 0;
    for (std::size_t i = 0; i < 4; ++i) {
        const auto [low, high] = std::minmax_element(arrangements[i].begin(), arrangements[i].end());
        left[i] = *low, right[i] = *high;
        if (right[i] - left[i] < right[narrowest] - left[narrowest])
            narrowest = i;
    }
    for (std::size_t i = 0; i < 4; ++i) {
        const Length shift = i % 2 == 0 ? left[narrowest] - left[i] : right[narrowest] - right[i];
        for (Length& x : arrangements[i])
            x += shift;
    }
}

}  // namespace

std::vector<Length> assignCoordinates(const Layered& graph, const std::vector<Reach>& reaches, Watch& watch) {
    const Neighbours above = neighboursOf(graph, true), below = neighboursOf(graph, false);
    const std::vector<bool> conflicts = findConflicts(graph, above);
    watch.work(40 * graph.segments.size());
    std::array<std::vector<Length>, 4> arrangements;
    for (std::size_t i = 0; i < 4; ++i) {
        const bool down = i < 2;
        Alignment alignment(graph, reaches, down, i % 2 == 0);
        arrangements[i] = alignment.place(down ? above : below, conflicts, watch);
    }
    align(arrangements);
    std::vector<Length> x(graph.rank.size());
    for (std::size_t v = 0; v < x.size(); ++v) {
        std::array<Length, 4> values{arrangements[0][v], arrangements[1][v], arrangements[2][v],
                                     arrangements[3][v]};
        std::sort(values.begin(), values.end());
        // Rounded down, not towards 0, so that nodes that are far enough apart in all four are so in the
        // mean.
        x[v] = (values[1] + values[2]) >> 1;
    }
    return x;
}

}  // namespace quorel::diagram::layout
