#include "diagram/layout/component.h"

#include <algorithm>
#include <utility>

#include "diagram/layout/coordinates.h"
#include "diagram/layout/crossings.h"
#include "diagram/layout/index.h"
#include "diagram/layout/ordering.h"
#include "diagram/layout/ranks.h"
#include "diagram/layout/routes.h"

namespace quorel::diagram::layout {
namespace {

bool isEmpty(const Extent& extent) {
    return extent.width <= 0 && extent.height <= 0;
}

Extent positive(const Extent& extent) {
    return {std::max<Length>(extent.width, 0), std::max<Length>(extent.height, 0)};
}

/// The loops of one box: nested lines along its right side, their labels in a column to the right of all.
struct Loops {
    std::vector<int> connections;
    Extent labels;
};

class ComponentLayout {
  public:
    ComponentLayout(const Diagram& diagram, const Component& component, const Gaps& gaps, Arrangement& result)
        : diagram_(diagram),
          component_(component),
          gaps_(gaps),
          result_(result),
          loops_(component.boxes.size()) {
        for (const int c : component.connections)
            read(c);
    }

    Extent run(Watch& watch, int from, int to) {
        const int width = to - from;
        const int boxes = static_cast<int>(component_.boxes.size());
        // Which connections are turned round decides more about crossings than all that follows; where that
        // is quick both ways are gone to the end.
        const bool both = edges_.size() <= kSmall;
        const int middle = from + width * (both ? 45 : 90) / 100, last = from + width * 9 / 10;
        Candidate best = order(edgesToReverse(boxes, edges_), watch, from, middle);
        if (both)
            if (Candidate other = order(edgesToReverseInDepth(boxes, edges_), watch, middle, last);
                other.crossings < best.crossings)
                best = std::move(other);
        edges_ = std::move(best.edges);
        for (std::size_t e = 0; e < edges_.size(); ++e)
            result_.reversed[at(lines_[e])] = best.reversed[e];
        for (std::size_t i = 0; i < best.ranks.size(); ++i)
            result_.ranks[at(component_.boxes[i])] = best.ranks[i];
        watch.enter(last, to);
        measure(best.graph);
        x_ = assignCoordinates(best.graph, reaches_, watch);
        placeBands(best.graph);
        write(best.graph);
        return size_;
    }

  private:
    static constexpr std::size_t kSmall = 500;

    /// The component once it is known which edges are turned round.
    struct Candidate {
        std::vector<bool> reversed;
        std::vector<Edge> edges;
        std::vector<int> ranks;
        Layered graph;
        std::int64_t crossings;
    };

    [[nodiscard]] Candidate order(std::vector<bool> reversed, Watch& watch, int from, int to) const {
        watch.enter(from, from + (to - from) / 10);
        std::vector<Edge> edges = edges_;
        for (std::size_t e = 0; e < edges.size(); ++e)
            if (reversed[e])
                std::swap(edges[e].from, edges[e].to);
        const std::vector<int> ranks = assignRanks(static_cast<int>(component_.boxes.size()), edges, watch);
        std::vector<int> layers = ranks;
        // A rank between any two, for labels.
        if (labelled_)
            for (int& layer : layers)
                layer *= 2;
        Layered graph(std::move(layers), edges);
        watch.enter(from + (to - from) / 10, to);
        orderLayers(graph, watch);
        const std::int64_t crossings = CrossingCounter().count(graph);
        return {std::move(reversed), std::move(edges), ranks, std::move(graph), crossings};
    }

    void read(int c) {
        const Connection& connection = diagram_.connections[at(c)];
        const auto local = [this](std::size_t box) {
            const auto found =
                std::lower_bound(component_.boxes.begin(), component_.boxes.end(), static_cast<int>(box));
            return static_cast<int>(found - component_.boxes.begin());
        };
        if (connection.from == connection.to) {
            Loops& loops = loops_[at(local(connection.from))];
            loops.connections.push_back(c);
            if (const Extent label = positive(connection.label); !isEmpty(label)) {
                loops.labels.width = std::max(loops.labels.width, label.width);
                loops.labels.height += label.height + (loops.labels.height > 0 ? gaps_.connections : 0);
            }
            return;
        }
        edges_.push_back({local(connection.from), local(connection.to)});
        lines_.push_back(c);
        labelled_ = labelled_ || !isEmpty(connection.label);
    }

    [[nodiscard]] Extent box(int v) const { return positive(diagram_.boxes[at(component_.boxes[at(v)])]); }

    /// What the loops of a box need on its right.
    [[nodiscard]] Length loopsWidth(int v) const {
        const Loops& loops = loops_[at(v)];
        const Length lines = static_cast<Length>(loops.connections.size()) * gaps_.connections;
        return lines + (isEmpty(loops.labels) ? 0 : gaps_.connections + loops.labels.width);
    }

    [[nodiscard]] static int labelNode(const Layered::Chain& chain) { return chain.first + chain.count / 2; }

    /// Reaches and heights of all nodes. Half of the gap is on either side.
    void measure(const Layered& graph) {
        const Length half = (gaps_.connections + 1) / 2, boxHalf = (gaps_.boxes + 1) / 2;
        reaches_.assign(graph.rank.size(), {half, half});
        bands_.resize(graph.layers.size());
        const auto needHeight = [&](int v, Length height) {
            Band& band = bands_[at(graph.rank[at(v)])];
            band.bottom = std::max(band.bottom, height);
        };
        for (int v = 0; v < graph.boxes; ++v) {
            const Extent extent = box(v);
            reaches_[at(v)] = {extent.width / 2 + boxHalf,
                               extent.width - extent.width / 2 + loopsWidth(v) + boxHalf};
            needHeight(v, std::max(extent.height, loops_[at(v)].labels.height));
        }
        for (std::size_t e = 0; e < edges_.size(); ++e) {
            const Extent label = positive(diagram_.connections[at(lines_[e])].label);
            if (isEmpty(label))
                continue;
            const int v = labelNode(graph.chains[e]);
            reaches_[at(v)].right = gaps_.connections + label.width + boxHalf;
            needHeight(v, label.height);
        }
    }

    /// Stacks the layers. A gap whose lines lead far to the side is higher, so that they do not lie too flat.
    void placeBands(const Layered& graph) {
        const Length gap = labelled_ ? gaps_.ranks / 2 : gaps_.ranks;
        std::vector<Length> farthest(bands_.size());
        for (const Edge& segment : graph.segments) {
            Length& most = farthest[at(graph.rank[at(segment.from)])];
            most = std::max(most, std::abs(x_[at(segment.from)] - x_[at(segment.to)]));
        }
        Length y = 0;
        for (std::size_t layer = 0; layer < bands_.size(); ++layer) {
            bands_[layer] = {y, y + bands_[layer].bottom};
            y = bands_[layer].bottom + std::clamp(farthest[layer] / 12, gap, 4 * gap);
        }
        Length left = x_[0] - reaches_[0].left, right = left;
        for (std::size_t v = 0; v < x_.size(); ++v) {
            left = std::min(left, x_[v] - reaches_[v].left);
            right = std::max(right, x_[v] + reaches_[v].right);
        }
        for (Length& x : x_)
            x -= left;
        size_ = {right - left, bands_.back().bottom};
    }

    void write(const Layered& graph) {
        std::vector<Placed> boxes;
        for (int v = 0; v < graph.boxes; ++v) {
            const Extent extent = box(v);
            const Band band = bands_[at(graph.rank[at(v)])];
            const Place corner{x_[at(v)] - extent.width / 2,
                               band.top + (band.bottom - band.top - extent.height) / 2};
            result_.boxes[at(component_.boxes[at(v)])] = corner;
            boxes.push_back({corner.x, corner.y, corner.x + extent.width, corner.y + extent.height});
            writeLoops(v, boxes.back(), band);
        }
        auto routes = routeEdges(graph, edges_, x_, bands_, boxes, gaps_.connections);
        for (std::size_t e = 0; e < edges_.size(); ++e) {
            const std::size_t c = at(lines_[e]);
            if (result_.reversed[c])
                std::reverse(routes[e].begin(), routes[e].end());
            result_.lines[c] = std::move(routes[e]);
            const Extent label = positive(diagram_.connections[c].label);
            if (isEmpty(label))
                continue;
            const int v = labelNode(graph.chains[e]);
            const Band band = bands_[at(graph.rank[at(v)])];
            result_.labels[c] = {x_[at(v)] + gaps_.connections,
                                 band.top + (band.bottom - band.top - label.height) / 2};
        }
    }

    void writeLoops(int v, const Placed& box, const Band& band) {
        const Loops& loops = loops_[at(v)];
        const auto count = static_cast<Length>(loops.connections.size());
        const Length height = box.bottom - box.top;
        const Length labelX = box.right + (count + 1) * gaps_.connections;
        Length labelY = band.top + (band.bottom - band.top - loops.labels.height) / 2;
        for (Length i = 0; i < count; ++i) {
            const std::size_t c = at(loops.connections[static_cast<std::size_t>(i)]);
            const Length x = box.right + (i + 1) * gaps_.connections;
            const Length top = box.top + height * (count - i) / (2 * count + 1);
            const Length bottom = box.top + height * (count + 1 + i) / (2 * count + 1);
            result_.lines[c] = {{box.right, top}, {x, top}, {x, bottom}, {box.right, bottom}};
            const Extent label = positive(diagram_.connections[c].label);
            if (isEmpty(label))
                continue;
            result_.labels[c] = {labelX, labelY};
            labelY += label.height + gaps_.connections;
        }
    }

    const Diagram& diagram_;
    const Component& component_;
    const Gaps& gaps_;
    Arrangement& result_;
    std::vector<Loops> loops_;  ///< of every box of the component
    std::vector<Edge>
        edges_;               ///< between the component's boxes by their numbers in it, downwards once ranked
    std::vector<int> lines_;  ///< the edges' connections
    bool labelled_ = false;
    std::vector<Reach> reaches_;
    std::vector<Length> x_;
    std::vector<Band> bands_;
    Extent size_;
};

}  // namespace

Extent arrangeComponent(const Diagram& diagram, const Component& component, const Gaps& gaps, Watch& watch,
                        int from, int to, Arrangement& result) {
    return ComponentLayout(diagram, component, gaps, result).run(watch, from, to);
}

}  // namespace quorel::diagram::layout
