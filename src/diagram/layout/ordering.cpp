#include "diagram/layout/ordering.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <span>
#include <utility>

#include "diagram/layout/crossings.h"
#include "diagram/layout/index.h"
#include "diagram/layout/sifting.h"

namespace quorel::diagram::layout {
namespace {

/// A walk over the graph from its top or its bottom layer on.
struct Start {
    bool inDepth, fromTop;
};
constexpr std::array<Start, 3> kStarts{{{true, true}, {false, true}, {true, false}}};

class Ordering {
  public:
    Ordering(Layered& graph, Watch& watch) : graph_(graph), watch_(watch), sifting_(graph) {}

    void run() {
        // Sifting decides much, so where that is quick it follows on every start, not on the best one only.
        const bool isSmall = graph_.segments.size() <= kSmall;
        const auto starts = std::span(kStarts).first(isSmall ? kStarts.size() : 2);
        total_ = starts.size() * kSweeps + (isSmall ? starts.size() : 1) * kSiftings;
        keepIfBest();
        std::vector<Order> orders;
        for (const Start& start : starts) {
            startFrom(start);
            keepIfBest();
            sweep();
            if (isSmall)
                orders.push_back(std::exchange(best_, {}));
        }
        if (!isSmall)
            orders.push_back(std::exchange(best_, {}));
        for (const Order& order : orders) {
            take(order);
            siftAll(order.crossings);
            keepIfBest();
        }
        take(best_);
    }

  private:
    struct Order {
        std::vector<std::vector<int>> layers;
        std::int64_t crossings = 0;
    };

    static constexpr std::size_t kSweeps = 40, kPatience = 10, kSiftings = 12;
    static constexpr std::size_t kSmall = 650;  ///< segments

    void keepIfBest() {
        const std::int64_t crossings = counter_.count(graph_);
        watch_.work(8 * graph_.segments.size(), done_, total_);
        if (best_.layers.empty() || crossings < best_.crossings)
            best_ = {graph_.layers, crossings};
    }

    /// Nodes in the order in which a walk over the whole graph meets them, so that what is joined stands
    /// together.
    void startFrom(const Start& start) {
        std::vector<std::vector<int>> layers(graph_.layers.size());
        std::vector<bool> met(graph_.rank.size());
        std::vector<int> waiting;
        const Layered& graph = graph_;
        const auto meet = [&](int v) {
            if (!met[at(v)])
                met[at(v)] = true, waiting.push_back(v), layers[at(graph.rank[at(v)])].push_back(v);
        };
        const auto meetAll = [&](std::span<const int> nodes) {
            for (const int w : nodes)
                meet(w);
        };
        for (std::size_t i = 0; i < layers.size(); ++i) {
            for (const int first : graph_.layers[start.fromTop ? i : layers.size() - 1 - i]) {
                meet(first);
                for (std::size_t next = 0; next < waiting.size();) {
                    int v = 0;
                    if (start.inDepth)
                        v = waiting.back(), waiting.pop_back();
                    else
                        v = waiting[next++];
                    meetAll(graph.below[at(v)]);
                    meetAll(graph.above[at(v)]);
                }
                waiting.clear();
            }
        }
        for (std::size_t layer = 0; layer < layers.size(); ++layer)
            graph_.place(layer, std::move(layers[layer]));
    }

    void sweep() {
        const std::size_t end = done_ + kSweeps;
        for (std::size_t idle = 0; done_ < end && idle < kPatience; ++done_) {
            const std::int64_t before = best_.crossings;
            const bool down = done_ % 2 == 0;
            const bool median = done_ / 2 % 2 == 1;
            for (std::size_t i = 1; i < graph_.layers.size(); ++i)
                orderByNeighbours(down ? i : graph_.layers.size() - 1 - i, down, median);
            keepIfBest();
            idle = best_.crossings < before ? 0 : idle + 1;
        }
        done_ = end;
    }

    /// Sorts a layer by where the neighbours on the layer above (or below) stand, in 1/65536 of a place;
    /// nodes without neighbours keep their places.
    void orderByNeighbours(std::size_t layer, bool down, bool median) {
        std::vector<int>& order = graph_.layers[layer];
        keys_.clear();
        for (const int v : order) {
            const std::span<const int> neighbours = std::as_const(down ? graph_.above : graph_.below)[at(v)];
            if (!neighbours.empty())
                keys_.push_back(
                    {median ? medianOf(neighbours) : meanOf(neighbours), graph_.position[at(v)], v});
        }
        std::sort(keys_.begin(), keys_.end());
        std::size_t next = 0;
        for (int& v : order)
            if (!std::as_const(down ? graph_.above : graph_.below)[at(v)].empty())
                v = keys_[next++].node;
        graph_.renumber(layer);
        watch_.work(8 * order.size(), done_, total_);
    }

    [[nodiscard]] std::int64_t meanOf(std::span<const int> neighbours) const {
        std::int64_t sum = 0;
        for (const int w : neighbours)
            sum += graph_.position[at(w)];
        return sum * 65536 / static_cast<std::int64_t>(neighbours.size());
    }

    [[nodiscard]] std::int64_t medianOf(std::span<const int> neighbours) {
        places_.clear();
        for (const int w : neighbours)
            places_.push_back(graph_.position[at(w)]);
        std::sort(places_.begin(), places_.end());
        const std::size_t middle = places_.size() / 2;
        const std::int64_t upper = places_[middle];
        return places_.size() % 2 == 1 ? upper * 65536 : (upper + places_[middle - 1]) * 32768;
    }

    void take(const Order& order) {
        for (std::size_t layer = 0; layer < order.layers.size(); ++layer)
            graph_.place(layer, order.layers[layer]);
    }

    void siftAll(std::int64_t crossings) {
        for (std::size_t i = 0; i < kSiftings; ++i, ++done_) {
            const std::int64_t saved = sifting_.round(kReach, watch_, done_, total_);
            crossings -= saved;
            if (saved * 200 < crossings || saved == 0)
                break;
        }
    }

    static constexpr int kReach = 100;

    struct Key {
        std::int64_t key;
        int position, node;
        auto operator<=>(const Key&) const = default;
    };

    Layered& graph_;
    Watch& watch_;
    Sifting sifting_;
    CrossingCounter counter_;
    Order best_;
    std::vector<Key> keys_;
    std::vector<int> places_;
    std::size_t done_ = 0, total_ = 1;
};

}  // namespace

void orderLayers(Layered& graph, Watch& watch) {
    if (graph.layers.size() > 1)
        Ordering(graph, watch).run();
}

}  // namespace quorel::diagram::layout
