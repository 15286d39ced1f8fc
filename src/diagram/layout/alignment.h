#pragma once

#include <vector>

#include "diagram/layout/coordinates.h"

namespace quorel::diagram::layout {

/// For every node its neighbours on one side, from left to right, and whether the segment to one may not be
/// made vertical because a segment between two chain nodes crosses it.
struct Neighbours {
    Adjacency nodes;            ///< indices into the graph's segments
    std::vector<int> otherEnd;  ///< of every segment
};

/// One of the four arrangements: nodes that are to stand below each other form a block. Seen from a corner:
/// layers are taken downwards or upwards, and a layer from its left or from its right end.
class Alignment {
  public:
    Alignment(const Layered& graph, const std::vector<Reach>& reaches, bool downwards, bool fromLeft)
        : graph_(graph), reaches_(reaches), downwards_(downwards), fromLeft_(fromLeft) {}

    /// Returns x of every node. `conflicts` are the segments that stay slanted.
    std::vector<Length> place(const Neighbours& neighbours, const std::vector<bool>& conflicts, Watch& watch);

  private:
    static std::size_t at(int number) { return static_cast<std::size_t>(number); }

    void align(const Neighbours& neighbours, const std::vector<bool>& conflicts, Watch& watch);
    void alignNode(int node, const Neighbours& neighbours, const std::vector<bool>& conflicts, int& last);
    [[nodiscard]] std::vector<int> sortBlocks() const;
    /// The node that follows on the layer, seen from this corner; -1 behind the last.
    [[nodiscard]] int following(int node) const;
    [[nodiscard]] int placeOf(int node) const;
    [[nodiscard]] Length apart(int node, int next) const;

    const Layered& graph_;
    const std::vector<Reach>& reaches_;
    bool downwards_, fromLeft_;
    std::vector<int> root_, next_;  ///< the block's first node; the node below in the block, in a ring
};

}  // namespace quorel::diagram::layout
