// The layout of generated class diagrams beside Graphviz's dot (Debian's package graphviz), which is run as a
// program if it is installed. With files of repositories as arguments, the diagrams of their metamodels
// instead of generated ones, without and with the labels of their connections.
//
// Both get the same boxes, connections and gaps. The time of dot is that of its run, from the text to the
// places (-Tplain); ours is that of the call, the median of several. Crossings are counted in both drawings
// in the same way, from the points that they give: within a component, the boxes' middles make lines of
// ranks; each connection has a place on every rank line between its ends, where its line or spline meets the
// rank line (at an end, its box's middle); and two connections cross between two rank lines if they change
// sides. So neither is charged for ends that meet in one box, nor for how it routes a line between two ranks;
// dot's splines are followed in steps of a twentieth. Loops count for neither.
//
// Memory is the most that a process of its own had resident, less what it had before the layout.

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <map>
#include <optional>
#include <sstream>
#include <string>

#include "diagram/layout/component.h"
#include "diagram/layout/crossings.h"
#include "diagram/layout/layout.h"
#include "metamodel_diagram.h"
#include "platform/automation/text.h"
#include "ratio.h"
#include "tests/diagram/layout/generated_diagrams.h"

namespace {

using namespace quorel::diagram::layout;
using quorel::diagram::layout::tests::classDiagram;
using quorel::diagram::layout::tests::Labels;

constexpr double kTwipsPerInch = 1440;
constexpr const char* kSecondsForDot = "600";

struct Point {
    double x = 0, y = 0;
};

/// A drawing as far as crossings go: the middles of the boxes, and every connection's points.
struct Drawing {
    std::vector<Point> boxes;
    std::vector<std::vector<Point>> lines;
};

double placeAt(const std::vector<Point>& line, double y) {
    for (std::size_t i = 1; i < line.size(); ++i) {
        const Point a = line[i - 1], b = line[i];
        if (std::min(a.y, b.y) <= y && y <= std::max(a.y, b.y))
            return a.y == b.y ? a.x : a.x + (b.x - a.x) * (y - a.y) / (b.y - a.y);
    }
    // A spline that is cut off at the edge of a high box.
    return std::abs(line.front().y - y) < std::abs(line.back().y - y) ? line.front().x : line.back().x;
}

/// For every box the number of its rank line within the component, and the lines' heights.
std::vector<double> rankLines(const Drawing& drawing, const std::vector<int>& boxes,
                              std::vector<int>& ranks) {
    constexpr double kSame = 20;
    std::vector<int> order = boxes;
    std::sort(order.begin(), order.end(), [&](int a, int b) {
        return drawing.boxes[static_cast<std::size_t>(a)].y < drawing.boxes[static_cast<std::size_t>(b)].y;
    });
    std::vector<double> lines;
    for (const int v : order) {
        const double y = drawing.boxes[static_cast<std::size_t>(v)].y;
        if (lines.empty() || y - lines.back() > kSame)
            lines.push_back(y);
        ranks[static_cast<std::size_t>(v)] = static_cast<int>(lines.size()) - 1;
    }
    return lines;
}

/// The pairs that change sides between two rank lines.
std::int64_t changes(std::vector<std::pair<double, double>> places, InversionCounter& counter) {
    std::sort(places.begin(), places.end());
    std::vector<double> below;
    for (const auto& [top, bottom] : places)
        below.push_back(bottom);
    std::sort(below.begin(), below.end());
    below.erase(std::unique(below.begin(), below.end()), below.end());
    std::vector<int> numbers;
    for (const auto& [top, bottom] : places)
        numbers.push_back(
            static_cast<int>(std::lower_bound(below.begin(), below.end(), bottom) - below.begin()));
    return counter.count(numbers, below.size());
}

std::int64_t countCrossings(const Diagram& diagram, const Drawing& drawing) {
    std::int64_t crossings = 0;
    InversionCounter counter;
    std::vector<int> ranks(diagram.boxes.size());
    for (const Component& component : splitIntoComponents(diagram)) {
        const std::vector<double> heights = rankLines(drawing, component.boxes, ranks);
        std::vector<std::vector<std::pair<double, double>>> gaps(heights.size());
        for (const int c : component.connections) {
            const Connection& connection = diagram.connections[static_cast<std::size_t>(c)];
            const auto [upper, lower] =
                std::minmax(connection.from, connection.to,
                            [&](std::size_t a, std::size_t b) { return ranks[a] < ranks[b]; });
            const auto top = static_cast<std::size_t>(ranks[upper]),
                       bottom = static_cast<std::size_t>(ranks[lower]);
            double last = drawing.boxes[upper].x;
            for (std::size_t rank = top; rank < bottom; ++rank) {
                const double next = rank + 1 == bottom ? drawing.boxes[lower].x
                                                       : placeAt(drawing.lines[static_cast<std::size_t>(c)],
                                                                 heights[rank + 1]);
                gaps[rank].emplace_back(last, next);
                last = next;
            }
        }
        for (const auto& gap : gaps)
            crossings += changes(gap, counter);
    }
    return crossings;
}

Drawing drawingOf(const Diagram& diagram, const Arrangement& arrangement) {
    Drawing drawing;
    for (std::size_t i = 0; i < diagram.boxes.size(); ++i)
        drawing.boxes.push_back(
            {static_cast<double>(arrangement.boxes[i].x) + static_cast<double>(diagram.boxes[i].width) / 2,
             static_cast<double>(arrangement.boxes[i].y) + static_cast<double>(diagram.boxes[i].height) / 2});
    for (const auto& line : arrangement.lines) {
        auto& points = drawing.lines.emplace_back();
        for (const Place& place : line)
            points.push_back({static_cast<double>(place.x), static_cast<double>(place.y)});
    }
    return drawing;
}

void writeDot(const Diagram& diagram, const Gaps& gaps, const std::string& path) {
    std::ofstream file(path);
    const auto inches = [](Length length) { return static_cast<double>(length) / kTwipsPerInch; };
    file << "digraph g {\nnodesep=" << inches(gaps.boxes) << ";\nranksep=" << inches(gaps.ranks)
         << ";\nnode [shape=box, fixedsize=true, label=\"\"];\n";
    for (std::size_t i = 0; i < diagram.boxes.size(); ++i)
        file << i << " [width=" << inches(diagram.boxes[i].width)
             << ", height=" << inches(diagram.boxes[i].height) << "];\n";
    for (std::size_t c = 0; c < diagram.connections.size(); ++c)
        file << diagram.connections[c].from << " -> " << diagram.connections[c].to << ";\n";
    file << "}\n";
}

std::vector<Point> followSpline(const std::vector<Point>& control) {
    std::vector<Point> points{control.front()};
    for (std::size_t i = 0; i + 3 < control.size(); i += 3) {
        for (int step = 1; step <= 20; ++step) {
            const double t = step / 20.0, u = 1 - t;
            const double a = u * u * u, b = 3 * u * u * t, c = 3 * u * t * t, d = t * t * t;
            points.push_back(
                {a * control[i].x + b * control[i + 1].x + c * control[i + 2].x + d * control[i + 3].x,
                 a * control[i].y + b * control[i + 1].y + c * control[i + 2].y + d * control[i + 3].y});
        }
    }
    return points;
}

/// Reads what dot wrote; connections of one pair are taken in the order in which they come.
Drawing readPlain(const Diagram& diagram, const std::string& path) {
    Drawing drawing;
    drawing.boxes.resize(diagram.boxes.size());
    drawing.lines.resize(diagram.connections.size());
    std::map<std::pair<std::size_t, std::size_t>, std::vector<std::size_t>> open;
    for (std::size_t c = diagram.connections.size(); c-- > 0;)
        open[{diagram.connections[c].from, diagram.connections[c].to}].push_back(c);
    std::ifstream file(path);
    for (std::string text; std::getline(file, text);) {
        std::istringstream words(text);
        std::string kind;
        words >> kind;
        if (kind == "node") {
            std::size_t box = 0;
            words >> box;
            words >> drawing.boxes[box].x >> drawing.boxes[box].y;
        } else if (kind == "edge") {
            std::size_t from = 0, to = 0, count = 0;
            words >> from >> to >> count;
            std::vector<Point> control(count);
            for (Point& point : control)
                words >> point.x >> point.y;
            auto& waiting = open[{from, to}];
            drawing.lines[waiting.back()] = followSpline(control);
            waiting.pop_back();
        }
    }
    const auto scale = [](Point& point) { point.x *= kTwipsPerInch, point.y *= -kTwipsPerInch; };
    std::for_each(drawing.boxes.begin(), drawing.boxes.end(), scale);
    for (auto& line : drawing.lines)
        std::for_each(line.begin(), line.end(), scale);
    return drawing;
}

long residentKilobytes() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

/// In megabytes; negative if it could not be measured.
double memoryOf(const Diagram& diagram) {
    int ends[2];
    if (pipe(ends) != 0)
        return -1;
    const pid_t child = fork();
    if (child == 0) {
        const long before = residentKilobytes();
        const auto arrangement = arrange(diagram);
        const long used = arrangement ? residentKilobytes() - before : -1;
        _exit(write(ends[1], &used, sizeof used) == sizeof used ? 0 : 1);
    }
    close(ends[1]);
    long used = -1;
    if (read(ends[0], &used, sizeof used) != sizeof used)
        used = -1;
    close(ends[0]);
    waitpid(child, nullptr, 0);
    return static_cast<double>(used) / 1024;
}

struct Aims {
    double seconds, crossings, timeOfDot;
};

void compareWithDot(const Diagram& diagram, std::int64_t ours, double ourSeconds, const Aims& aims) {
    char folder[] = "/tmp/diagram_layout_bench.XXXXXX";
    if (mkdtemp(folder) == nullptr)
        return;
    const std::string base = folder, text = base + "/g.dot", plain = base + "/g.plain";
    writeDot(diagram, Gaps{}, text);
    int result = 0;
    const std::string command =
        std::string("timeout ") + kSecondsForDot + " dot -Tplain -o " + plain + " " + text + " 2>&1";
    const double seconds = quorel::bench::seconds([&] { result = std::system(command.c_str()); });
    if (result != 0) {
        std::printf("    dot: not done after %.0f s\n", seconds);
    } else {
        const std::int64_t theirs = countCrossings(diagram, readPlain(diagram, plain));
        std::printf("    dot: %.2f s, %lld crossings; ours %.2f times its crossings", seconds,
                    static_cast<long long>(theirs), static_cast<double>(ours) / static_cast<double>(theirs));
        if (aims.crossings > 0)
            std::printf(" (aim: %.2f)", aims.crossings);
        std::printf(", 1/%.0f of its time", seconds / ourSeconds);
        if (aims.timeOfDot > 0)
            std::printf(" (aim: 1/%.0f)", aims.timeOfDot);
        std::printf("\n");
    }
    std::remove(text.c_str());
    std::remove(plain.c_str());
    rmdir(folder);
    std::fflush(stdout);
}

void measure(const Diagram& diagram, const std::string& title, const Aims& aims, bool dot) {
    // First, while nothing of it is resident.
    const double memory = memoryOf(diagram);
    std::optional<Arrangement> arrangement;
    std::vector<double> times;
    for (int run = 0; run < 5; ++run)
        times.push_back(quorel::bench::seconds([&] { arrangement = arrange(diagram); }));
    const std::int64_t crossings = countCrossings(diagram, drawingOf(diagram, *arrangement));
    const double seconds = quorel::bench::median(times);
    std::printf("%s: %.1f ms", title.c_str(), seconds * 1e3);
    if (aims.seconds > 0)
        std::printf(" (aim: %.0f)", aims.seconds * 1e3);
    std::printf(", %lld crossings, %d ranks, %.1f MB\n", static_cast<long long>(crossings),
                *std::max_element(arrangement->ranks.begin(), arrangement->ranks.end()) + 1, memory);
    std::fflush(stdout);
    if (dot)
        compareWithDot(diagram, crossings, seconds, aims);
}

void measure(std::size_t boxes, std::size_t connections, std::uint64_t seed, Labels labels, const Aims& aims,
             bool dot) {
    std::array<char, 100> title{};
    std::snprintf(title.data(), title.size(), "%5zu/%5zu%s, seed %llu", boxes, connections,
                  labels == Labels::All ? " with labels" : "", static_cast<unsigned long long>(seed));
    measure(classDiagram(boxes, connections, seed, labels), title.data(), aims,
            dot && labels == Labels::None);
}

void measureMetamodel(const std::string& file, bool dot) {
    Diagram diagram = quorel::bench::metamodelDiagram(quorel::automation::fromUtf8(file));
    const std::string title = file.substr(file.rfind('/') + 1) + ", " + std::to_string(diagram.boxes.size()) +
                              "/" + std::to_string(diagram.connections.size());
    measure(diagram, title + " with labels", {}, false);
    for (Connection& connection : diagram.connections)
        connection.label = {};
    measure(diagram, title, {0, 1.10, 0}, dot);
}

/// Each case in a process of its own, so that none finds memory that another left.
template <class Case>
void apart(Case run) {
    std::fflush(stdout);
    const pid_t child = fork();
    if (child == 0) {
        run();
        std::fflush(stdout);
        _exit(0);
    }
    waitpid(child, nullptr, 0);
}

}  // namespace

int main(int count, char** words) {
    const bool dot = std::system("command -v dot >/dev/null 2>&1") == 0;
    if (!dot)
        std::printf("dot is not installed (package graphviz): only our own figures\n");
    for (int i = 1; i < count; ++i)
        apart([&] { measureMetamodel(words[i], dot); });
    if (count > 1)
        return 0;
    for (std::uint64_t seed = 1; seed <= 10; ++seed)
        apart([&] { measure(100, 300, seed, Labels::None, {0.05, 1.15, 0}, dot); });
    apart([] { measure(100, 300, 1, Labels::All, {0.05, 0, 0}, false); });
    apart([] { measure(3000, 9000, 1, Labels::None, {5, 0, 0}, false); });
    apart([] { measure(3000, 9000, 1, Labels::All, {5, 0, 0}, false); });
    apart([] { measure(1000, 3000, 1, Labels::All, {0, 0, 0}, false); });
    apart([&] { measure(1000, 3000, 1, Labels::None, {0, 1.10, 50}, dot); });
}
