#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "diagram/diagram_model.h"
#include "platform/ui/units.h"

/// How large boxes and labels are and where their texts stand. Pure functions of what they hold and of the
/// sizes of texts; linear in the number of properties, however long names are.
namespace quorel::diagram {

/// The size of one line of text in a font, in twips; at most `kLongestText` units and an ellipsis are asked.
using Measure = std::function<ui::Size(std::u16string_view line, const ui::Font& font)>;

/// A longer text is cut here and ends in an ellipsis.
inline constexpr std::size_t kLongestText = 80;
/// A name of more lines shows the first ones and the last.
inline constexpr std::size_t kMostHeaderLines = 8;

/// A section of more lines shows that many and an ellipsis.
inline constexpr std::size_t kMostPropertyLines = 100'000;

/// What a text is, and so its font and colour.
enum class TextRole : std::uint8_t { Stereotype, Name, Label, Property, Type };

struct TextPiece {
    std::u16string text;  ///< as it is drawn: cut, without control characters and lone surrogates
    TextRole role{};
    ui::Point place;  ///< left top corner, from that of the box or label
};

/// What a box or a label looks like inside.
struct Shape {
    ui::Size size;
    ui::Twips header;               ///< its height; that of the whole where there is no section
    ui::Twips tallest;              ///< of the lines' heights
    ui::Rect picture;               ///< of no size if there is none
    std::vector<TextPiece> pieces;  ///< from top to bottom
};

[[nodiscard]] ui::Font fontOf(const DiagramModel& model, TextRole role);
/// A font's size; of one that has that of the windows, what is usual there.
[[nodiscard]] std::int32_t pointsOf(const ui::Font& font) noexcept;

/// A box aligned to its text is as large as that needs. Another keeps its size: texts are cut at its edge,
/// lines that find no room are left out.
[[nodiscard]] Shape boxShape(const DiagramModel& model, const Box& box, const Measure& measure);

/// A label without text and shown properties is of no size. Properties are shown where the connection is
/// aligned to text.
[[nodiscard]] Shape labelShape(const DiagramModel& model, const Connection& connection,
                               const Measure& measure);

/// Gives boxes that are aligned to text their size and every connection's label its own.
void fitSizes(DiagramModel& model, const Measure& measure);

/// The text as it is shown on one line: cut at `kLongestText`, control characters and lone surrogates
/// replaced.
[[nodiscard]] std::u16string shownLine(std::u16string_view text);

/// One line of a box's or a connection's text.
struct HeaderLine {
    std::u16string text;
    bool isStereotype = false;
};

/// The lines of a text as they are shown. All but the last are stereotypes, and so is a "<<x>>" that the last
/// begins with; they are shown in guillemets. Empty lines are left out.
[[nodiscard]] std::vector<HeaderLine> headerLines(std::u16string_view text);

}  // namespace quorel::diagram
