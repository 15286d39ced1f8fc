#include "diagram/layout/rank_tree.h"

#include <utility>

namespace quorel::diagram::layout {

RankTree::RankTree(int nodes) : nodes_(index(nodes)), order_(index(nodes)) {}

void RankTree::link(int node, int parent) {
    Node& n = nodes_[index(node)];
    n.parent = parent, n.previous = -1, n.next = nodes_[index(parent)].child;
    if (n.next >= 0)
        nodes_[index(n.next)].previous = node;
    nodes_[index(parent)].child = node;
}

void RankTree::unlink(int node) {
    const Node& n = nodes_[index(node)];
    if (n.next >= 0)
        nodes_[index(n.next)].previous = n.previous;
    if (n.previous >= 0)
        nodes_[index(n.previous)].next = n.next;
    else
        nodes_[index(n.parent)].child = n.next;
}

void RankTree::attach(int node, int parent, int edge, bool leaves) {
    link(node, parent);
    nodes_[index(node)].edge = edge, nodes_[index(node)].leaves = leaves;
}

void RankTree::numberBranch(int top) {
    int number = nodes_[index(top)].first;
    for (int v = top;;) {
        nodes_[index(v)].first = number;
        order_[index(number++)] = v;
        if (nodes_[index(v)].child >= 0) {
            v = nodes_[index(v)].child;
            continue;
        }
        while (true) {
            nodes_[index(v)].end = number;
            if (v == top)
                return;
            if (nodes_[index(v)].next >= 0)
                break;
            v = nodes_[index(v)].parent;
        }
        v = nodes_[index(v)].next;
    }
}

void RankTree::number(std::vector<int> supplies) {
    numberBranch(0);
    for (std::size_t i = order_.size(); i-- > 0;) {
        Node& n = nodes_[index(order_[i])];
        n.flow = supplies[index(order_[i])];
        if (n.parent >= 0)
            supplies[index(n.parent)] += n.flow;
    }
}

int RankTree::commonAncestor(int a, int b) const {
    while (!isInBranch(b, a))
        a = nodes_[index(a)].parent;
    return a;
}

std::size_t RankTree::move(int top, int inside, int outside, int edge, bool leaves) {
    const int ancestor = commonAncestor(nodes_[index(top)].parent, outside);
    const int spare = nodes_[index(top)].flow;
    for (int v = nodes_[index(top)].parent; v != ancestor; v = nodes_[index(v)].parent)
        nodes_[index(v)].flow -= spare;
    for (int v = outside; v != ancestor; v = nodes_[index(v)].parent)
        nodes_[index(v)].flow += spare;

    // Turns the way from `inside` up to `top` round.
    int node = inside, parent = outside, flow = spare;
    while (true) {
        Node& n = nodes_[index(node)];
        const int oldParent = n.parent;
        unlink(node);
        link(node, parent);
        std::swap(n.edge, edge);
        std::swap(n.leaves, leaves);
        std::swap(n.flow, flow);
        if (node == top)
            break;
        parent = node, node = oldParent;
        flow = spare - flow;
        leaves = !leaves;
    }
    numberBranch(ancestor);
    return branch(ancestor).size();
}

}  // namespace quorel::diagram::layout
