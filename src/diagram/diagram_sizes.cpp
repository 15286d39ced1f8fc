#include "diagram/diagram_sizes.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "diagram/clean_text.h"

namespace quorel::diagram {

using ui::Twips;
using namespace ui::literals;

namespace {

constexpr Twips kPaddingAside = 135_tw;
constexpr Twips kPaddingHeader = 90_tw;
constexpr Twips kPaddingSection = 75_tw;
constexpr Twips kBetweenLines = 15_tw;
constexpr Twips kBeforeType = 75_tw;
constexpr Twips kAfterPicture = 105_tw;
constexpr Twips kTallestPicture = 540_tw;
constexpr Twips kNarrowestBox = 1500_tw;
constexpr Twips kLabelPadding = 60_tw;
constexpr std::int32_t kSmallestPoints = 7;
constexpr std::int32_t kWindowPoints = 9;
constexpr std::u16string_view kLineBreak = u"\r\n";
constexpr char16_t kEllipsis = u'…';

[[nodiscard]] std::u16string_view trimmed(std::u16string_view text) noexcept {
    while (!text.empty() && text.front() == u' ')
        text.remove_prefix(1);
    while (!text.empty() && text.back() == u' ')
        text.remove_suffix(1);
    return text;
}

/// Short of a surrogate pair's second half.
[[nodiscard]] std::u16string_view prefix(std::u16string_view text, std::size_t length) noexcept {
    if (length > 0 && length < text.size() && (text[length - 1] & 0xFC00) == 0xD800)
        --length;
    return text.substr(0, length);
}

void appendLine(std::vector<HeaderLine>& lines, std::u16string_view line, bool isLast) {
    line = trimmed(line);
    const std::size_t end = line.starts_with(u"<<") ? line.find(u">>") : std::u16string_view::npos;
    const bool marked = end != std::u16string_view::npos;
    if (marked) {
        std::u16string stereotype(1, u'«');
        stereotype.append(shownLine(trimmed(line.substr(2, end - 2)))).append(1, u'»');
        lines.push_back({std::move(stereotype), true});
        line = trimmed(line.substr(end + 2));
    }
    if (!line.empty())
        lines.push_back({shownLine(line), !isLast});
}

/// Puts lines under each other. With limits texts are cut at the right one, and lines below the lower one
/// left out.
class Column {
  public:
    Column(const DiagramModel& model, const Measure& measure, Shape& shape, std::optional<ui::Size> limits)
        : model_(model), measure_(measure), shape_(shape), limits_(limits) {}

    Twips left, top, right;  ///< right and top of what comes next; the rightmost edge so far

    /// False when there is no room.
    bool add(const std::u16string& text, TextRole role) { return addPair(text, role, {}, role); }

    /// A line of two texts.
    bool addPair(std::u16string first, TextRole firstRole, std::u16string second, TextRole secondRole) {
        const ui::Font font = fontOf(model_, firstRole);
        ui::Size size = measure_(first, font);
        if (limits_ && top + size.height > limits_->height)
            return false;
        shape_.tallest = std::max(shape_.tallest, size.height);
        place(std::move(first), firstRole, left, size);
        if (const Twips next = left + size.width + kBeforeType; !second.empty() && hasRoomAt(next)) {
            ui::Size secondSize = measure_(second, fontOf(model_, secondRole));
            place(std::move(second), secondRole, next, secondSize);
        }
        top += size.height + kBetweenLines;
        return true;
    }

  private:
    [[nodiscard]] bool hasRoomAt(Twips x) const noexcept { return !limits_ || x < limits_->width; }

    void place(std::u16string text, TextRole role, Twips x, ui::Size& size) {
        if (limits_ && x + size.width > limits_->width)
            cut(text, role, limits_->width - x, size);
        right = std::max(right, x + size.width);
        if (!text.empty())
            shape_.pieces.push_back({std::move(text), role, {x, top}});
    }

    /// The longest beginning that fits, with an ellipsis; nothing if not even that does.
    void cut(std::u16string& text, TextRole role, Twips room, ui::Size& size) const {
        const ui::Font font = fontOf(model_, role);
        std::size_t fits = 0, tooLong = text.size();
        while (fits + 1 < tooLong) {
            const std::size_t middle = fits + (tooLong - fits) / 2;
            const std::u16string tried = std::u16string(prefix(text, middle)) + kEllipsis;
            (measure_(tried, font).width <= room ? fits : tooLong) = middle;
        }
        text = std::u16string(prefix(text, fits));
        if (fits > 0)
            text += kEllipsis;
        size.width = measure_(text, font).width;
    }

    const DiagramModel& model_;
    const Measure& measure_;
    Shape& shape_;
    std::optional<ui::Size> limits_;
};

void addSection(Column& column, const std::vector<PropertyLine>& properties) {
    std::size_t count = 0;
    for (const PropertyLine& property : properties) {
        if (++count > kMostPropertyLines) {
            column.add(std::u16string(1, kEllipsis), TextRole::Property);
            return;
        }
        std::u16string type;
        if (!property.type.empty())
            type.append(u": ").append(shownLine(property.type));
        if (!column.addPair(shownLine(property.name), TextRole::Property, std::move(type), TextRole::Type))
            return;
    }
}

[[nodiscard]] Twips headerTextHeight(const DiagramModel& model, const std::vector<HeaderLine>& lines,
                                     const Measure& measure) {
    Twips height;
    for (const HeaderLine& line : lines)
        height += measure(line.text, fontOf(model, line.isStereotype ? TextRole::Stereotype : TextRole::Name))
                      .height +
                  kBetweenLines;
    return lines.empty() ? height : height - kBetweenLines;
}

/// Beside a text of that height; of no size without a picture.
[[nodiscard]] ui::Size pictureSize(const DiagramModel& model, Twips textHeight) {
    if (!model.headerPicture || !ui::isWhole(*model.headerPicture) || model.headerPicture->height == 0)
        return {};
    const Twips height = std::min(std::max(textHeight, 240_tw), kTallestPicture);
    const std::int64_t width =
        std::int64_t{height.value} * model.headerPicture->width / model.headerPicture->height;
    return {{static_cast<std::int32_t>(std::min<std::int64_t>(width, 2 * height.value))}, height};
}

}  // namespace

ui::Font fontOf(const DiagramModel& model, TextRole role) {
    ui::Font font =
        role == TextRole::Property || role == TextRole::Type ? model.sectionFont : model.labelFont;
    if (role == TextRole::Stereotype)
        font.points = std::max(pointsOf(font) * 2 / 3, kSmallestPoints);
    font.bold = font.bold || role == TextRole::Name;
    return font;
}

std::int32_t pointsOf(const ui::Font& font) noexcept {
    return font.points > 0 ? font.points : kWindowPoints;
}

std::u16string shownLine(std::u16string_view text) {
    if (text.size() <= kLongestText)
        return cleanText(text);
    return cleanText(prefix(text, kLongestText)) + kEllipsis;
}

std::vector<HeaderLine> headerLines(std::u16string_view text) {
    std::vector<HeaderLine> lines;
    const std::size_t lastBreak = text.rfind(kLineBreak);
    std::size_t begin = 0;
    if (lastBreak != std::u16string_view::npos) {
        for (std::size_t shown = 1; begin <= lastBreak && shown < kMostHeaderLines; ++shown) {
            const std::size_t end = text.find(kLineBreak, begin);
            appendLine(lines, text.substr(begin, end - begin), false);
            begin = end + kLineBreak.size();
        }
        begin = lastBreak + kLineBreak.size();
    }
    appendLine(lines, text.substr(begin), true);
    return lines;
}

Shape boxShape(const DiagramModel& model, const Box& box, const Measure& measure) {
    Shape shape;
    const std::vector<HeaderLine> lines = headerLines(box.text);
    const Twips textHeight = headerTextHeight(model, lines, measure);
    const ui::Size picture = pictureSize(model, textHeight);
    const Twips inner = std::max(textHeight, picture.height);

    std::optional<ui::Size> limits;
    if (!box.alignedToText)
        limits = ui::Size{box.place.width - kPaddingAside, box.place.height};
    Column column(model, measure, shape, limits);
    column.left = kPaddingAside;
    if (picture.width > 0_tw && (!limits || kPaddingAside + picture.width <= limits->width)) {
        shape.picture = {kPaddingAside, kPaddingHeader + (inner - picture.height) / 2, picture.width,
                         picture.height};
        column.left += picture.width + kAfterPicture;
        column.right = column.left;
    }
    column.top = kPaddingHeader + (inner - textHeight) / 2;
    for (const HeaderLine& line : lines)
        column.add(line.text, line.isStereotype ? TextRole::Stereotype : TextRole::Name);
    shape.header = kPaddingHeader * 2 + inner;

    Twips bottom = shape.header;
    if (!box.properties.empty()) {
        column.left = kPaddingAside;
        column.top = shape.header + kPaddingSection;
        addSection(column, box.properties);
        bottom = column.top - kBetweenLines + kPaddingSection;
    }
    shape.size = box.alignedToText ? ui::Size{std::max(column.right + kPaddingAside, kNarrowestBox), bottom}
                                   : box.place.size();
    shape.header = std::min(shape.header, shape.size.height);
    return shape;
}

Shape labelShape(const DiagramModel& model, const Connection& connection, const Measure& measure) {
    Shape shape;
    Column column(model, measure, shape, std::nullopt);
    column.left = column.top = kLabelPadding;
    for (const HeaderLine& line : headerLines(connection.text))
        column.add(line.text, line.isStereotype ? TextRole::Stereotype : TextRole::Label);
    if (!shape.pieces.empty())
        shape.header = column.top - kBetweenLines + kLabelPadding;
    Twips bottom = shape.header;
    if (connection.alignedToText && !connection.properties.empty()) {
        column.top = shape.header + kLabelPadding;
        addSection(column, connection.properties);
        bottom = column.top - kBetweenLines + kLabelPadding;
    }
    if (!shape.pieces.empty())
        shape.size = {column.right + kLabelPadding, bottom};
    return shape;
}

void fitSizes(DiagramModel& model, const Measure& measure) {
    for (Box& box : model.boxes) {
        if (!box.alignedToText)
            continue;
        const ui::Size size = boxShape(model, box, measure).size;
        box.place.width = size.width;
        box.place.height = size.height;
    }
    for (Connection& connection : model.connections) {
        const ui::Size size = labelShape(model, connection, measure).size;
        connection.label.width = size.width;
        connection.label.height = size.height;
    }
}

}  // namespace quorel::diagram
