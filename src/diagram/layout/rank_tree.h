#pragma once

#include <span>
#include <vector>

namespace quorel::diagram::layout {

/// The spanning tree of a network simplex, rooted at node 0. A branch, a node with all below it, lies side by
/// side in the tree's order. The edge from a node to its parent carries what the branch has to spare; its cut
/// value is that, signed by the edge's direction.
class RankTree {
  public:
    explicit RankTree(int nodes);

    /// Before `number`: makes `node` a child of `parent` by the edge; `leaves` tells that the edge runs from
    /// node to parent.
    void attach(int node, int parent, int edge, bool leaves);
    /// Numbers all and sums the supplies up.
    void number(std::vector<int> supplies);

    [[nodiscard]] bool isRoot(int node) const { return nodes_[index(node)].parent < 0; }
    [[nodiscard]] bool edgeLeaves(int node) const { return nodes_[index(node)].leaves; }
    [[nodiscard]] int cutValue(int node) const {
        const Node& n = nodes_[index(node)];
        return n.leaves ? n.flow : -n.flow;
    }
    [[nodiscard]] std::span<const int> branch(int node) const {
        const Node& n = nodes_[index(node)];
        return {order_.data() + n.first, static_cast<std::size_t>(n.end - n.first)};
    }
    [[nodiscard]] bool isInBranch(int node, int top) const {
        const int number = nodes_[index(node)].first;
        return number >= nodes_[index(top)].first && number < nodes_[index(top)].end;
    }

    /// Cuts the branch at `top` off and hangs it by its node `inside` under `outside`. Returns how many nodes
    /// got new numbers.
    std::size_t move(int top, int inside, int outside, int edge, bool leaves);

  private:
    struct Node {
        int parent = -1, child = -1, next = -1, previous = -1;
        int first = 0, end = 0;  ///< the branch's places in the order
        int flow = 0;
        int edge = -1;
        bool leaves = false;
    };

    static std::size_t index(int node) { return static_cast<std::size_t>(node); }
    void link(int node, int parent);
    void unlink(int node);
    [[nodiscard]] int commonAncestor(int a, int b) const;
    void numberBranch(int top);

    std::vector<Node> nodes_;
    std::vector<int> order_;
};

}  // namespace quorel::diagram::layout
