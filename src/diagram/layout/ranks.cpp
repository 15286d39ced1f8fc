#include "diagram/layout/ranks.h"

#include <algorithm>
#include <limits>

#include "diagram/layout/adjacency.h"
#include "diagram/layout/index.h"
#include "diagram/layout/rank_tree.h"

namespace quorel::diagram::layout {
namespace {

/// Ranks that are feasible, and a spanning tree of edges that are as short as they may be, improved edge by
/// edge.
class NetworkSimplex {
  public:
    NetworkSimplex(int nodes, const std::vector<Edge>& edges, Watch& watch)
        : nodes_(nodes),
          edges_(edges),
          out_(nodes, edges.size(), [&](std::size_t e) { return edges[e].from; }),
          in_(nodes, edges.size(), [&](std::size_t e) { return edges[e].to; }),
          rank_(at(nodes)),
          tree_(nodes),
          watch_(watch) {}

    std::vector<int> run() {
        rankByLongestPaths();
        growTightTree();
        tree_.number(supplies());
        // Steps that shorten nothing could follow each other for ever; the ranks are feasible whenever one
        // stops.
        for (std::size_t steps = 20 * at(nodes_) + 100; steps > 0; --steps) {
            const int leaving = leavingNode();
            if (leaving < 0)
                break;
            exchange(leaving);
        }
        balance();
        return std::move(rank_);
    }

  private:
    [[nodiscard]] int slack(int e) const {
        return rank_[at(edges_[at(e)].to)] - rank_[at(edges_[at(e)].from)] - 1;
    }

    /// What leaves a node less what enters it.
    [[nodiscard]] std::vector<int> supplies() const {
        std::vector<int> supply(at(nodes_));
        for (const Edge& edge : edges_) {
            ++supply[at(edge.from)];
            --supply[at(edge.to)];
        }
        return supply;
    }

    void rankByLongestPaths() {
        std::vector<int> waiting(at(nodes_)), ready;
        for (std::size_t v = 0; v < at(nodes_); ++v)
            if ((waiting[v] = static_cast<int>(in_[v].size())) == 0)
                ready.push_back(static_cast<int>(v));
        for (std::size_t i = 0; i < ready.size(); ++i) {
            for (const int e : out_[at(ready[i])]) {
                const std::size_t to = at(edges_[at(e)].to);
                rank_[to] = std::max(rank_[to], rank_[at(ready[i])] + 1);
                if (--waiting[to] == 0)
                    ready.push_back(static_cast<int>(to));
            }
        }
    }

    void growTightTree() {
        std::vector<int> inTree{0};
        std::vector<bool> reached(at(nodes_));
        reached[0] = true;
        for (std::size_t grown = 0;;) {
            for (; grown < inTree.size(); ++grown)
                joinTightNeighbours(inTree[grown], reached, inTree);
            if (inTree.size() == at(nodes_))
                return;
            const int nearest = nearestOutside(reached);
            const bool toReached = reached[at(edges_[at(nearest)].to)];
            const int shift = toReached ? -slack(nearest) : slack(nearest);
            for (const int v : inTree)
                rank_[at(v)] += shift;
            // The end in the tree is looked at again: the edge is tight now, and others of it may be.
            const int inside = toReached ? edges_[at(nearest)].to : edges_[at(nearest)].from;
            joinTightNeighbours(inside, reached, inTree);
        }
    }

    void joinTightNeighbours(int v, std::vector<bool>& reached, std::vector<int>& inTree) {
        const auto join = [&](int e, int other) {
            if (reached[at(other)] || slack(e) != 0)
                return;
            reached[at(other)] = true;
            tree_.attach(other, v, e, edges_[at(e)].from == other);
            inTree.push_back(other);
        };
        for (const int e : out_[at(v)])
            join(e, edges_[at(e)].to);
        for (const int e : in_[at(v)])
            join(e, edges_[at(e)].from);
    }

    int nearestOutside(const std::vector<bool>& reached) {
        int best = -1;
        for (std::size_t e = 0; e < edges_.size(); ++e)
            if (reached[at(edges_[e].from)] != reached[at(edges_[e].to)] &&
                (best < 0 || slack(static_cast<int>(e)) < slack(best)))
                best = static_cast<int>(e);
        watch_.work(edges_.size());
        return best;
    }

    /// The lower end, in the tree, of a tree edge that all would be shorter without; -1 if there is none.
    /// Looks for the worst of a few, going round.
    int leavingNode() {
        constexpr int kCandidates = 30;
        int best = -1, seen = 0;
        for (int i = 0; i < nodes_ && seen < kCandidates; ++i) {
            const int v = searchFrom_;
            searchFrom_ = (searchFrom_ + 1) % nodes_;
            if (tree_.isRoot(v) || tree_.cutValue(v) >= 0)
                continue;
            ++seen;
            if (best < 0 || tree_.cutValue(v) < tree_.cutValue(best))
                best = v;
        }
        watch_.work(64);
        return best;
    }

    void exchange(int v) {
        const bool upwards = tree_.edgeLeaves(v);
        const int entering = enteringEdge(v, upwards);
        const int shift = upwards ? -slack(entering) : slack(entering);
        const auto branch = tree_.branch(v);
        if (shift != 0)
            for (const int u : branch)
                rank_[at(u)] += shift;
        const Edge edge = edges_[at(entering)];
        const bool fromInside = tree_.isInBranch(edge.from, v);
        const std::size_t work = tree_.move(v, fromInside ? edge.from : edge.to,
                                            fromInside ? edge.to : edge.from, entering, fromInside);
        watch_.work(2 * (branch.size() + work));
    }

    /// The shortest edge that leads into the branch at `v` (`upwards`) or out of it. There is one, since the
    /// tree edge's cut value is negative.
    int enteringEdge(int v, bool upwards) {
        int best = -1;
        const Adjacency& leading = upwards ? in_ : out_;
        std::size_t work = 0;
        for (const int u : tree_.branch(v)) {
            for (const int e : leading[at(u)]) {
                const int other = upwards ? edges_[at(e)].from : edges_[at(e)].to;
                if (!tree_.isInBranch(other, v) && (best < 0 || slack(e) < slack(best)))
                    best = e;
            }
            work += leading[at(u)].size();
        }
        watch_.work(2 * work);
        return best;
    }

    /// Ranks from 0, and nodes that may as well stand elsewhere where the fewest stand.
    void balance() {
        const int lowest = *std::min_element(rank_.begin(), rank_.end());
        for (int& rank : rank_)
            rank -= lowest;
        std::vector<int> population(at(*std::max_element(rank_.begin(), rank_.end()) + 1));
        for (const int rank : rank_)
            ++population[at(rank)];
        for (std::size_t v = 0; v < at(nodes_); ++v) {
            if (in_[v].size() != out_[v].size() || in_[v].empty())
                continue;
            int first = 0, last = std::numeric_limits<int>::max();
            for (const int e : in_[v])
                first = std::max(first, rank_[at(edges_[at(e)].from)] + 1);
            for (const int e : out_[v])
                last = std::min(last, rank_[at(edges_[at(e)].to)] - 1);
            --population[at(rank_[v])];
            for (int rank = first; rank <= last; ++rank)
                if (population[at(rank)] < population[at(rank_[v])])
                    rank_[v] = rank;
            ++population[at(rank_[v])];
        }
    }

    int nodes_;
    const std::vector<Edge>& edges_;
    Adjacency out_, in_;
    std::vector<int> rank_;
    RankTree tree_;
    int searchFrom_ = 0;
    Watch& watch_;
};

}  // namespace

std::vector<int> assignRanks(int nodes, const std::vector<Edge>& edges, Watch& watch) {
    return NetworkSimplex(nodes, edges, watch).run();
}

}  // namespace quorel::diagram::layout
