#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "diagram/diagram_model.h"

/// Ways from box to box that do not need the mouse.
namespace quorel::diagram {

enum class Direction : std::uint8_t { Left, Right, Up, Down };

/// The box beside that one: of those whose middle lies further that way, the one with the shortest way, where
/// a way aside counts three times. Of several as near, the one that stands straighter, then the first. None
/// where there is none.
[[nodiscard]] std::optional<std::size_t> boxBeside(const std::vector<Box>& boxes, std::size_t from,
                                                   Direction direction);

/// The box whose middle is nearest to the point; none when there are no boxes.
[[nodiscard]] std::optional<std::size_t> boxNearest(const std::vector<Box>& boxes, ui::Point to);

/// The last line of a box's text.
[[nodiscard]] std::u16string_view nameOf(const Box& box) noexcept;

/// The boxes whose names contain the text, whatever the case of its letters, then those of which only names
/// of properties do; each once, in the diagram's order. An empty text is found nowhere.
[[nodiscard]] std::vector<std::size_t> boxesWith(const DiagramModel& model, std::u16string_view text);

}  // namespace quorel::diagram
