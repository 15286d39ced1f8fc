#include "diagram/layout/sifting.h"

#include <algorithm>

#include "diagram/layout/index.h"

namespace quorel::diagram::layout {
namespace {

/// For two sorted runs: the crossings that there are more if the first node, now on the left, passes the
/// second.
int change(const int* left, const int* leftEnd, const int* right, const int* rightEnd) {
    if (leftEnd - left == 1 && rightEnd - right == 1)
        return (*left < *right) - (*left > *right);
    int result = 0;
    const int *less = right, *notGreater = right;
    for (; left != leftEnd; ++left) {
        while (less != rightEnd && *less < *left)
            ++less;
        while (notGreater != rightEnd && *notGreater <= *left)
            ++notGreater;
        result += static_cast<int>((rightEnd - notGreater) - (less - right));
    }
    return result;
}

}  // namespace

void Sifting::readEnds(std::size_t layer) {
    ends_.clear();
    endsOf_.resize(at(graph_.nodes()));
    const auto read = [this](std::span<const int> nodes) {
        const auto first = static_cast<std::ptrdiff_t>(ends_.size());
        for (const int w : nodes)
            ends_.push_back(graph_.position[at(w)]);
        std::sort(ends_.begin() + first, ends_.end());
        return static_cast<int>(ends_.size());
    };
    const Layered& graph = graph_;
    for (const int v : graph.layers[layer]) {
        Ends& ends = endsOf_[at(v)];
        ends.first = static_cast<int>(ends_.size());
        ends.middle = read(graph.above[at(v)]);
        ends.last = read(graph.below[at(v)]);
    }
}

int Sifting::changeByPassing(int left, int right) const {
    const Ends &l = endsOf_[at(left)], &r = endsOf_[at(right)];
    const int* ends = ends_.data();
    return change(ends + l.first, ends + l.middle, ends + r.first, ends + r.middle) +
           change(ends + l.middle, ends + l.last, ends + r.middle, ends + r.last);
}

std::int64_t Sifting::sift(std::vector<int>& order, std::size_t place, int reach) {
    const int v = order[place];
    const std::size_t first = place > at(reach) ? place - at(reach) : 0;
    const std::size_t last = std::min(place + at(reach), order.size() - 1);
    std::int64_t sum = 0, best = 0;
    std::size_t bestPlace = place;
    for (std::size_t p = place; p-- > first;)
        if ((sum += changeByPassing(order[p], v)) < best)
            best = sum, bestPlace = p;
    sum = 0;
    for (std::size_t p = place + 1; p <= last; ++p)
        if ((sum += changeByPassing(v, order[p])) < best)
            best = sum, bestPlace = p;
    work_ += 4 * (last - first);
    const auto begin = order.begin();
    const auto from = static_cast<std::ptrdiff_t>(place), to = static_cast<std::ptrdiff_t>(bestPlace);
    if (to < from)
        std::rotate(begin + to, begin + from, begin + from + 1);
    else if (to > from)
        std::rotate(begin + from, begin + from + 1, begin + to + 1);
    return -best;
}

std::int64_t Sifting::siftLayer(std::size_t layer, int reach, Watch& watch, std::size_t done,
                                std::size_t total) {
    readEnds(layer);
    std::vector<int>& order = graph_.layers[layer];
    const std::vector<int> nodes = order;
    std::int64_t saved = 0;
    for (const int v : nodes) {
        const std::size_t old = at(graph_.position[at(v)]);
        const std::int64_t gain = sift(order, old, reach);
        if (gain > 0) {
            saved += gain;
            graph_.renumber(layer);
            work_ += order.size();
        }
        watch.work(work_, done, total);
        work_ = 0;
    }
    return saved;
}

std::int64_t Sifting::round(int reach, Watch& watch, std::size_t done, std::size_t total) {
    std::int64_t saved = 0;
    for (std::size_t layer = 0; layer < graph_.layers.size(); ++layer)
        saved += siftLayer(layer, reach, watch, done, total);
    return saved;
}

}  // namespace quorel::diagram::layout
