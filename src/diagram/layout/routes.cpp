#include "diagram/layout/routes.h"

#include <algorithm>

#include "diagram/layout/index.h"

namespace quorel::diagram::layout {
namespace {

/// Where the lines of one side of a box end: as near to where they lead as can be, in order, and `gap` apart
/// if the box is wide enough.
std::vector<Length> spread(const std::vector<Length>& wanted, const Placed& box, Length gap) {
    const auto count = static_cast<Length>(wanted.size());
    const Length step = std::min(gap, (box.right - box.left) / (count + 1));
    std::vector<Length> ends(wanted.size());
    Length low = box.left + step, high = box.right - count * step;
    for (std::size_t i = 0; i < wanted.size(); ++i) {
        ends[i] = std::clamp(wanted[i], low, high);
        low = ends[i] + step, high += step;
    }
    return ends;
}

class Router {
  public:
    Router(const Layered& graph, const std::vector<Edge>& edges, const std::vector<Length>& x,
           const std::vector<Placed>& boxes, Length gap)
        : graph_(graph),
          edges_(edges),
          x_(x),
          boxes_(boxes),
          gap_(gap),
          upper_(edges.size()),
          lower_(edges.size()) {
        const Adjacency below(graph.boxes, edges.size(), [&](std::size_t e) { return edges[e].from; });
        const Adjacency above(graph.boxes, edges.size(), [&](std::size_t e) { return edges[e].to; });
        for (int box = 0; box < graph.boxes; ++box)
            endLines(box, below[at(box)], true);
        for (int box = 0; box < graph.boxes; ++box)
            endLines(box, above[at(box)], false);
    }

    [[nodiscard]] std::vector<Place> route(std::size_t e, const std::vector<Band>& bands) const {
        const Edge edge = edges_[e];
        std::vector<Place> points;
        const auto down = [&](Length x, Length top, Length bottom) {
            add(points, {x, top});
            add(points, {x, bottom});
        };
        down(upper_[e], boxes_[at(edge.from)].bottom, bands[at(graph_.rank[at(edge.from)])].bottom);
        const Layered::Chain chain = graph_.chains[e];
        for (int v = chain.first; v < chain.first + chain.count; ++v)
            down(x_[at(v)], bands[at(graph_.rank[at(v)])].top, bands[at(graph_.rank[at(v)])].bottom);
        down(lower_[e], bands[at(graph_.rank[at(edge.to)])].top, boxes_[at(edge.to)].top);
        return points;
    }

  private:
    /// Leaves out what repeats a point or lies within a straight vertical line.
    static void add(std::vector<Place>& points, Place point) {
        if (!points.empty() && points.back() == point)
            return;
        if (points.size() >= 2 && points.back().x == point.x && points[points.size() - 2].x == point.x)
            points.back() = point;
        else
            points.push_back(point);
    }

    /// The node to which an edge leads first from its upper (or lower) end.
    [[nodiscard]] int neighbour(int e, bool below) const {
        const Layered::Chain chain = graph_.chains[at(e)];
        if (chain.count > 0)
            return below ? chain.first : chain.first + chain.count - 1;
        return below ? edges_[at(e)].to : edges_[at(e)].from;
    }

    void endLines(int box, std::span<const int> lines, bool below) {
        if (lines.empty())
            return;
        std::vector<int> order(lines.begin(), lines.end());
        std::sort(order.begin(), order.end(), [&](int a, int b) {
            return std::pair(graph_.position[at(neighbour(a, below))], a) <
                   std::pair(graph_.position[at(neighbour(b, below))], b);
        });
        std::vector<Length> wanted;
        for (const int e : order)
            wanted.push_back(!below && graph_.chains[at(e)].count == 0 ? upper_[at(e)]
                                                                       : x_[at(neighbour(e, below))]);
        const std::vector<Length> ends = spread(wanted, boxes_[at(box)], gap_);
        for (std::size_t i = 0; i < order.size(); ++i)
            (below ? upper_ : lower_)[at(order[i])] = ends[i];
    }

    const Layered& graph_;
    const std::vector<Edge>& edges_;
    const std::vector<Length>& x_;
    const std::vector<Placed>& boxes_;
    Length gap_;
    std::vector<Length> upper_, lower_;  ///< x of every edge's ends
};

}  // namespace

std::vector<std::vector<Place>> routeEdges(const Layered& graph, const std::vector<Edge>& edges,
                                           const std::vector<Length>& x, const std::vector<Band>& bands,
                                           const std::vector<Placed>& boxes, Length gap) {
    const Router router(graph, edges, x, boxes, gap);
    std::vector<std::vector<Place>> routes(edges.size());
    for (std::size_t e = 0; e < edges.size(); ++e)
        routes[e] = router.route(e, bands);
    return routes;
}

}  // namespace quorel::diagram::layout
