#include "diagram/line_shapes.h"

#include <algorithm>
#include <cmath>

#include "diagram/spot.h"

namespace quorel::diagram {

using ui::Point;

namespace {

constexpr double kRadius = 180;
constexpr int kSteps = 5;
constexpr double kHeadLength = 165, kHeadHalf = 68, kHeadNotch = 120;

[[nodiscard]] Spot towards(Spot from, Spot to, double length) noexcept {
    const double all = distance(from, to);
    return all == 0 ? from
                    : Spot{from.x + (to.x - from.x) / all * length, from.y + (to.y - from.y) / all * length};
}

void appendCorner(std::vector<Point>& line, Spot before, Spot corner, Spot after) {
    const double room = std::min({kRadius, distance(before, corner) / 2, distance(corner, after) / 2});
    const Spot begin = towards(corner, before, room), end = towards(corner, after, room);
    for (int step = 0; step <= kSteps; ++step) {
        const double t = static_cast<double>(step) / kSteps, s = 1 - t;
        line.push_back(rounded({s * s * begin.x + 2 * s * t * corner.x + t * t * end.x,
                                s * s * begin.y + 2 * s * t * corner.y + t * t * end.y}));
    }
}

}  // namespace

std::vector<Point> roundedLine(const std::vector<Point>& line) {
    if (line.size() < 3)
        return line;
    std::vector<Point> round{line.front()};
    for (std::size_t at = 1; at + 1 < line.size(); ++at)
        appendCorner(round, spot(line[at - 1]), spot(line[at]), spot(line[at + 1]));
    round.push_back(line.back());
    round.erase(std::unique(round.begin(), round.end()), round.end());
    return round;
}

std::array<Point, 4> arrowHead(Point from, Point tip) {
    const Spot end = spot(tip);
    const double length = distance(spot(from), end);
    const Spot back =
        length == 0 ? Spot{0, -1} : Spot{(spot(from).x - end.x) / length, (spot(from).y - end.y) / length};
    const Spot base{end.x + back.x * kHeadLength, end.y + back.y * kHeadLength};
    return {tip, rounded({base.x - back.y * kHeadHalf, base.y + back.x * kHeadHalf}),
            rounded({end.x + back.x * kHeadNotch, end.y + back.y * kHeadNotch}),
            rounded({base.x + back.y * kHeadHalf, base.y - back.x * kHeadHalf})};
}

}  // namespace quorel::diagram
