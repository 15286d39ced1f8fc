#include "diagram/layout/layered.h"

#include <algorithm>
#include <utility>

namespace quorel::diagram::layout {

Layered::Layered(std::vector<int> ranks, const std::vector<Edge>& edges)
    : boxes(static_cast<int>(ranks.size())), rank(std::move(ranks)) {
    chains.reserve(edges.size());
    for (const Edge& edge : edges) {
        const int top = rank[static_cast<std::size_t>(edge.from)],
                  bottom = rank[static_cast<std::size_t>(edge.to)];
        chains.push_back({nodes(), bottom - top - 1});
        int last = edge.from;
        for (int r = top + 1; r < bottom; ++r) {
            segments.push_back({last, nodes()});
            last = nodes();
            rank.push_back(r);
        }
        segments.push_back({last, edge.to});
    }
    above = Adjacency(nodes(), segments.size(), [this](std::size_t s) { return segments[s].to; });
    below = Adjacency(nodes(), segments.size(), [this](std::size_t s) { return segments[s].from; });
    for (std::size_t v = 0; v < rank.size(); ++v) {
        for (int& s : above[v])
            s = segments[static_cast<std::size_t>(s)].from;
        for (int& s : below[v])
            s = segments[static_cast<std::size_t>(s)].to;
    }
    layers.resize(static_cast<std::size_t>(*std::max_element(rank.begin(), rank.end())) + 1);
    for (int v = 0; v < nodes(); ++v)
        layers[static_cast<std::size_t>(rank[static_cast<std::size_t>(v)])].push_back(v);
    position.resize(rank.size());
    for (std::size_t layer = 0; layer < layers.size(); ++layer)
        renumber(layer);
}

void Layered::place(std::size_t layer, std::vector<int> order) {
    layers[layer] = std::move(order);
    renumber(layer);
}

void Layered::renumber(std::size_t layer) {
    int next = 0;
    for (const int v : layers[layer])
        position[static_cast<std::size_t>(v)] = next++;
}

}  // namespace quorel::diagram::layout
