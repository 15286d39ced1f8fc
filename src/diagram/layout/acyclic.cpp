#include "diagram/layout/acyclic.h"

#include <algorithm>

#include "diagram/layout/adjacency.h"

namespace quorel::diagram::layout {
namespace {

/// Takes the nodes one by one: sinks to the end of a sequence, sources to its front, and when neither is left
/// the node that has the most more outgoing than incoming edges. Nodes that wait are kept in lists by that
/// difference.
class Sequence {
  public:
    Sequence(int nodes, const std::vector<Edge>& edges)
        : edges_(edges),
          out_(nodes, edges.size(), [&](std::size_t e) { return edges[e].from; }),
          in_(nodes, edges.size(), [&](std::size_t e) { return edges[e].to; }),
          outDegree_(size(nodes)),
          inDegree_(size(nodes)),
          place_(size(nodes), kWaiting),
          next_(size(nodes)),
          previous_(size(nodes)) {
        int largest = 0;
        for (std::size_t v = 0; v < size(nodes); ++v) {
            outDegree_[v] = static_cast<int>(out_[v].size()), inDegree_[v] = static_cast<int>(in_[v].size());
            largest = std::max({largest, outDegree_[v], inDegree_[v]});
        }
        offset_ = largest + 1;
        heads_.assign(size(2 * largest + 3), kNone);
        highest_ = size(2 * largest + 1);
        for (int v = nodes - 1; v >= 0; --v)
            insert(v);
        int front = 0, back = nodes - 1;
        for (int left = nodes; left > 0; --left) {
            bool sink = false;
            const int v = take(sink);
            place_[size(v)] = sink ? back-- : front++;
            release(v);
        }
    }

    [[nodiscard]] int placeOf(int node) const { return place_[size(node)]; }

  private:
    static constexpr int kNone = -1, kWaiting = -1;

    static std::size_t size(int number) { return static_cast<std::size_t>(number); }

    /// The lists' ends hold the sinks (0) and the sources (last); a node without edges is a sink.
    [[nodiscard]] std::size_t listOf(int v) const {
        if (outDegree_[size(v)] == 0)
            return 0;
        if (inDegree_[size(v)] == 0)
            return heads_.size() - 1;
        return size(outDegree_[size(v)] - inDegree_[size(v)] + offset_);
    }

    void insert(int v) {
        const std::size_t list = listOf(v);
        next_[size(v)] = heads_[list], previous_[size(v)] = kNone;
        if (heads_[list] != kNone)
            previous_[size(heads_[list])] = v;
        heads_[list] = v;
        if (list < heads_.size() - 1)
            highest_ = std::max(highest_, list);
    }

    void remove(int v) {
        const int next = next_[size(v)], previous = previous_[size(v)];
        if (next != kNone)
            previous_[size(next)] = previous;
        if (previous != kNone)
            next_[size(previous)] = next;
        else
            heads_[listOf(v)] = next;
    }

    int take(bool& sink) {
        std::size_t list = 0;
        sink = heads_[list] != kNone;
        if (!sink) {
            list = heads_.size() - 1;
            if (heads_[list] == kNone) {
                while (heads_[highest_] == kNone)
                    --highest_;
                list = highest_;
            }
        }
        const int v = heads_[list];
        remove(v);
        return v;
    }

    void release(int v) {
        for (const int e : out_[size(v)])
            lessen(edges_[size(e)].to, inDegree_);
        for (const int e : in_[size(v)])
            lessen(edges_[size(e)].from, outDegree_);
    }

    void lessen(int v, std::vector<int>& degrees) {
        if (place_[size(v)] != kWaiting)
            return;
        remove(v);
        --degrees[size(v)];
        insert(v);
    }

    const std::vector<Edge>& edges_;
    Adjacency out_, in_;
    std::vector<int> outDegree_, inDegree_, place_, next_, previous_, heads_;
    int offset_ = 0;
    std::size_t highest_ = 0;
};

}  // namespace

std::vector<bool> edgesToReverse(int nodes, const std::vector<Edge>& edges) {
    const Sequence sequence(nodes, edges);
    std::vector<bool> reversed(edges.size());
    for (std::size_t e = 0; e < edges.size(); ++e)
        reversed[e] = sequence.placeOf(edges[e].from) > sequence.placeOf(edges[e].to);
    return reversed;
}

std::vector<bool> edgesToReverseInDepth(int nodes, const std::vector<Edge>& edges) {
    enum class State { New, Open, Done };
    const auto at = [](int number) { return static_cast<std::size_t>(number); };
    const Adjacency out(nodes, edges.size(), [&](std::size_t e) { return edges[e].from; });
    std::vector<State> states(at(nodes), State::New);
    std::vector<std::size_t> next(at(nodes));
    std::vector<bool> reversed(edges.size());
    std::vector<int> way;
    const auto enter = [&](int v) { states[at(v)] = State::Open, way.push_back(v); };
    for (int start = 0; start < nodes; ++start) {
        if (states[at(start)] == State::New)
            enter(start);
        while (!way.empty()) {
            const int v = way.back();
            if (next[at(v)] == out[at(v)].size()) {
                states[at(v)] = State::Done, way.pop_back();
                continue;
            }
            const int e = out[at(v)][next[at(v)]++], to = edges[at(e)].to;
            if (states[at(to)] == State::New)
                enter(to);
            else
                reversed[at(e)] = states[at(to)] == State::Open;
        }
    }
    return reversed;
}

}  // namespace quorel::diagram::layout
