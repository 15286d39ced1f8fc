#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/ui/font.h"
#include "platform/ui/picture.h"
#include "platform/ui/units.h"

/// Diagrams of boxes and connections: what they hold, how they are drawn and where they are shown.
namespace quorel::diagram {

/// One line of a section: `name : type`.
struct PropertyLine {
    std::u16string name, type;
};

struct Box {
    std::u16string key;
    std::u16string text;  ///< lines parted by CR LF; all but the last are stereotypes
    ui::Rect place;       ///< in twips of the drawing
    std::vector<PropertyLine> properties;
    bool alignedToText = false;  ///< its size follows from what it holds
};

struct Connection {
    std::u16string key;
    std::u16string text;
    std::size_t from = 0, to = 0;  ///< indices of boxes
    std::vector<PropertyLine> properties;
    bool alignedToText = false;   ///< its label has room for its properties
    std::vector<ui::Point> line;  ///< from `from` to `to`; before a layout straight between the boxes
    ui::Rect label;               ///< of no size if there is none
};

/// A diagram's content and places. Boxes and connections are found by their keys; a second one of a key hides
/// the first from `findBox` and stands beside it.
class DiagramModel {
  public:
    std::size_t addBox(Box box);
    /// Throws std::out_of_range when an end is no box.
    std::size_t addConnection(Connection connection);
    /// Index of the newest one of that key; -1 when there is none.
    [[nodiscard]] std::ptrdiff_t findBox(std::u16string_view key) const;
    [[nodiscard]] std::ptrdiff_t findConnection(std::u16string_view key) const;

    std::vector<Box> boxes;
    std::vector<Connection> connections;
    ui::Font labelFont, sectionFont;
    std::shared_ptr<const ui::Picture> headerPicture;  ///< drawn in the header of every box; null for none

  private:
    std::unordered_map<std::u16string, std::size_t> boxByKey_, connectionByKey_;
};

}  // namespace quorel::diagram
