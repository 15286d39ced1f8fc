#include "diagram/layout/alignment.h"

#include <algorithm>
#include <limits>
#include <numeric>

namespace quorel::diagram::layout {

int Alignment::placeOf(int node) const {
    const int place = graph_.position[at(node)];
    return fromLeft_ ? place : static_cast<int>(graph_.layers[at(graph_.rank[at(node)])].size()) - 1 - place;
}

int Alignment::following(int node) const {
    const auto& layer = graph_.layers[at(graph_.rank[at(node)])];
    const int place = graph_.position[at(node)] + (fromLeft_ ? 1 : -1);
    return place < 0 || at(place) >= layer.size() ? -1 : layer[at(place)];
}

Length Alignment::apart(int node, int next) const {
    return fromLeft_ ? reaches_[at(node)].right + reaches_[at(next)].left
                     : reaches_[at(next)].right + reaches_[at(node)].left;
}

void Alignment::alignNode(int node, const Neighbours& neighbours, const std::vector<bool>& conflicts,
                          int& last) {
    const auto segments = neighbours.nodes[at(node)];
    if (segments.empty())
        return;
    const std::size_t low = (segments.size() - 1) / 2, high = segments.size() / 2;
    for (const std::size_t middle : {fromLeft_ ? low : high, fromLeft_ ? high : low}) {
        const int segment = segments[middle], other = neighbours.otherEnd[at(segment)];
        if (next_[at(node)] != node || conflicts[at(segment)] || placeOf(other) <= last)
            continue;
        next_[at(other)] = node;
        root_[at(node)] = root_[at(other)];
        next_[at(node)] = root_[at(node)];
        last = placeOf(other);
    }
}

void Alignment::align(const Neighbours& neighbours, const std::vector<bool>& conflicts, Watch& watch) {
    root_.resize(at(graph_.nodes()));
    std::iota(root_.begin(), root_.end(), 0);
    next_ = root_;
    const std::size_t count = graph_.layers.size();
    for (std::size_t i = 1; i < count; ++i) {
        const auto& layer = graph_.layers[downwards_ ? i : count - 1 - i];
        int last = -1;
        for (std::size_t j = 0; j < layer.size(); ++j)
            alignNode(layer[fromLeft_ ? j : layer.size() - 1 - j], neighbours, conflicts, last);
        watch.work(4 * layer.size());
    }
}

/// A block comes before every block that follows it on some layer. Blocks do not cross, so there is such an
/// order.
std::vector<int> Alignment::sortBlocks() const {
    std::vector<int> waiting(at(graph_.nodes())), sorted;
    for (int v = 0; v < graph_.nodes(); ++v)
        if (const int w = following(v); w >= 0)
            ++waiting[at(root_[at(w)])];
    for (int v = 0; v < graph_.nodes(); ++v)
        if (root_[at(v)] == v && waiting[at(v)] == 0)
            sorted.push_back(v);
    for (std::size_t i = 0; i < sorted.size(); ++i) {
        int v = sorted[i];
        do {
            if (const int w = following(v); w >= 0 && --waiting[at(root_[at(w)])] == 0)
                sorted.push_back(root_[at(w)]);
            v = next_[at(v)];
        } while (v != sorted[i]);
    }
    return sorted;
}

std::vector<Length> Alignment::place(const Neighbours& neighbours, const std::vector<bool>& conflicts,
                                     Watch& watch) {
    align(neighbours, conflicts, watch);
    const std::vector<int> blocks = sortBlocks();
    watch.work(8 * at(graph_.nodes()));
    std::vector<Length> x(at(graph_.nodes()));
    for (const int root : blocks) {
        int v = root;
        do {
            if (const int w = following(v); w >= 0)
                x[at(root_[at(w)])] = std::max(x[at(root_[at(w)])], x[at(root)] + apart(v, w));
            v = next_[at(v)];
        } while (v != root);
    }
    // Back towards what follows, so that blocks stand with their neighbours instead of at the edge.
    for (std::size_t i = blocks.size(); i-- > 0;) {
        Length most = std::numeric_limits<Length>::max();
        int v = blocks[i];
        do {
            if (const int w = following(v); w >= 0)
                most = std::min(most, x[at(root_[at(w)])] - apart(v, w));
            v = next_[at(v)];
        } while (v != blocks[i]);
        if (most != std::numeric_limits<Length>::max())
            x[at(blocks[i])] = most;
    }
    for (std::size_t v = 0; v < x.size(); ++v)
        x[v] = x[at(root_[v])];
    if (!fromLeft_)
        for (Length& value : x)
            value = -value;
    watch.work(16 * at(graph_.nodes()));
    return x;
}

}  // namespace quorel::diagram::layout
