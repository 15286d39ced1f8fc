#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

/// Arranges boxes and the connections between them in ranks from top to bottom. Everything is a pure function
/// of its arguments and computed in integers, so that the same diagram is drawn alike, to the byte, on every
/// machine.
namespace quorel::diagram::layout {

/// A length in twips. Wide enough that tens of thousands of boxes side by side do not overflow.
using Length = std::int64_t;

struct Extent {
    Length width = 0, height = 0;
    friend constexpr bool operator==(const Extent&, const Extent&) = default;
};

/// x grows to the right, y downwards; the drawing's corner is 0, 0.
struct Place {
    Length x = 0, y = 0;
    friend constexpr bool operator==(const Place&, const Place&) = default;
};

/// From the box with index `from` to the one with index `to`, which may be the same. A label of no extent is
/// no label.
struct Connection {
    std::size_t from = 0, to = 0;
    Extent label;
};

struct Diagram {
    std::vector<Extent> boxes;
    std::vector<Connection> connections;
};

/// What is left free at least.
struct Gaps {
    Length boxes = 600;        ///< between boxes, and between labels and boxes, side by side
    Length ranks = 900;        ///< between the boxes of a rank and those of the next
    Length connections = 240;  ///< between lines side by side, and from a line to its label
    Length components = 900;   ///< between parts that no connection joins
};

struct Arrangement {
    std::vector<Place> boxes;               ///< the left top corner of every box
    std::vector<int> ranks;                 ///< of every box within its component, 0 being the top
    std::vector<std::vector<Place>> lines;  ///< of every connection: two points or more, from `from` to `to`
    std::vector<bool> reversed;             ///< of every connection: it runs upwards, to break a cycle
    std::vector<Place> labels;              ///< the left top corner of every label; 0, 0 where there is none
    Extent size;                            ///< of the whole drawing

    friend bool operator==(const Arrangement&, const Arrangement&) = default;
};

/// Is told, every few milliseconds, how much is done, from 0 to 1000, never less than before; false cancels.
using Progress = std::function<bool(int permille)>;

/// Returns nothing if `progress` cancelled. Negative extents count as 0. Throws std::out_of_range if a
/// connection's end is no box.
///
/// Boxes and labels do not overlap each other, and lines touch no box but those at their ends and no label
/// but, beside it, their own. A line that is not reversed leaves its box at the bottom and enters the other
/// at the top, a reversed one the other way round; a loop runs along the right side of its box.
[[nodiscard]] std::optional<Arrangement> arrange(const Diagram& diagram, const Gaps& gaps = {},
                                                 const Progress& progress = {});

}  // namespace quorel::diagram::layout
