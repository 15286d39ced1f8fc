#pragma once

// Diagrams from seeds: the same on every machine.

#include <cstddef>
#include <cstdint>

#include "diagram/layout/layout.h"

namespace quorel::diagram::layout::tests {

class Random {
  public:
    explicit Random(std::uint64_t seed) : state_(seed * 2685821657736338717U + 88172645463325252U) {}

    /// In [0, limit); limit is at least 1.
    [[nodiscard]] std::size_t below(std::size_t limit) {
        state_ ^= state_ << 13U, state_ ^= state_ >> 7U, state_ ^= state_ << 17U;
        return static_cast<std::size_t>((state_ >> 20U) % limit);
    }

  private:
    std::uint64_t state_;
};

enum class Labels { None, All };

inline Extent randomExtent(Random& random, std::size_t least, std::size_t most) {
    return {static_cast<Length>(least + random.below(most - least)),
            static_cast<Length>(least + random.below(most - least))};
}

/// As class diagrams are: packages of about 25 boxes; of every ten connections six lead from a class to its
/// supertype or to another class within the package, two to one of the few types that all refer to, two
/// anywhere; one in fifty is a loop, one in fifty goes back, one in twenty is another of the pair before it.
inline Diagram classDiagram(std::size_t boxes, std::size_t connections, std::uint64_t seed,
                            Labels labels = Labels::None) {
    constexpr std::size_t kPackage = 25;
    Random random(seed);
    Diagram diagram;
    for (std::size_t i = 0; i < boxes; ++i)
        diagram.boxes.push_back(randomExtent(random, 900, 3600));
    // Low numbers are likelier: the older a class is the more lead to it.
    const auto old = [&random](std::size_t limit) { return random.below(random.below(limit) + 1); };
    while (diagram.connections.size() < connections) {
        const std::size_t from = random.below(boxes), package = from / kPackage * kPackage;
        const std::size_t kind = random.below(100), place = random.below(10);
        Connection connection{from, 0, {}};
        if (place < 6)
            connection.to = package + old(from - package + 1);
        else if (place < 8)
            connection.to = old(boxes / 20 + 1);
        else
            connection.to = old(from + 1);
        if (kind < 2)
            connection.to = from;
        else if (kind < 4)
            std::swap(connection.from, connection.to);
        else if (kind < 9 && !diagram.connections.empty())
            connection = diagram.connections.back();
        if (connection.from == connection.to && kind >= 2)
            continue;
        connection.label = labels == Labels::All ? randomExtent(random, 200, 1500) : Extent{};
        diagram.connections.push_back(connection);
    }
    return diagram;
}

/// Anything goes: loops, several of one pair, cycles, parts apart, labels here and there, boxes of no extent.
inline Diagram anyDiagram(std::uint64_t seed) {
    Random random(seed);
    Diagram diagram;
    const std::size_t boxes = 1 + random.below(40), connections = random.below(3 * boxes);
    for (std::size_t i = 0; i < boxes; ++i)
        diagram.boxes.push_back(random.below(20) == 0 ? Extent{} : randomExtent(random, 1, 4000));
    for (std::size_t i = 0; i < connections; ++i)
        diagram.connections.push_back({random.below(boxes), random.below(boxes),
                                       random.below(3) == 0 ? randomExtent(random, 1, 3000) : Extent{}});
    return diagram;
}

}  // namespace quorel::diagram::layout::tests
