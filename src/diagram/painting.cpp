#include "diagram/painting.h"

#include <algorithm>
#include <array>

#include "diagram/line_shapes.h"

namespace quorel::diagram {

using namespace palette;
using ui::Point;
using ui::Rect;
using ui::Twips;

namespace {

constexpr Twips kShadowStep{36};

[[nodiscard]] ui::Pen borderPen(Weight weight) noexcept {
    switch (weight) {
        case Weight::Accent:
            return {kAccent, kAccentWidth};
        case Weight::Neighbour:
            return {kNeighbour, kBorderWidth};
        default:
            return {kBorder, kBorderWidth};
    }
}

}  // namespace

ui::Colour Painting::colourOf(TextRole role) const noexcept {
    switch (role) {
        case TextRole::Stereotype:
            return kStereotype;
        case TextRole::Name:
            return kName;
        case TextRole::Label:
            return kLabel;
        case TextRole::Property:
            return kProperty;
        case TextRole::Type:
            return kType;
    }
    return kName;
}

void Painting::plainBox(const Box& box, Weight weight) {
    const ui::Colour strong = weight == Weight::Accent      ? kAccent
                              : weight == Weight::Neighbour ? kNeighbour
                                                            : kPlainBox;
    canvas_.fillRectangle(box.place, shade(strong, weight));
}

void Painting::shadow(const Box& box) {
    const Rect& place = box.place;
    canvas_.fillRectangle({place.left + kShadowStep, place.top + kShadowStep, place.width, place.height},
                          kShadow);
}

void Painting::box(const Box& box, const Shape& shape, Weight weight) {
    const Rect& place = box.place;
    canvas_.fillRectangle(place, kWhite);
    canvas_.fillRectangle({place.left, place.top, place.width, shape.header},
                          shade(weight == Weight::Accent ? kAccentHeader : kHeader, weight));
    ui::Pen pen = borderPen(weight);
    pen.colour = shade(pen.colour, weight);
    if (shape.header < place.height) {
        const Twips y = place.top + shape.header;
        const std::array<Point, 2> divider{Point{place.left, y}, Point{place.right(), y}};
        canvas_.drawLines(divider, {pen.colour, kBorderWidth});
    }
    if (detail_ != Detail::Boxes) {
        if (shape.picture.width.value > 0 && weight != Weight::Pale)
            canvas_.drawPicture({place.left + shape.picture.left, place.top + shape.picture.top,
                                 shape.picture.width, shape.picture.height},
                                model_.headerPicture);
        texts(shape, {place.left, place.top}, weight);
    }
    canvas_.drawRectangle(place, pen);
}

void Painting::line(const Connection& connection, Weight weight) {
    if (connection.line.size() < 2)
        return;
    const bool strong = weight == Weight::Accent;
    const ui::Colour colour = shade(strong ? kAccent : kLine, weight);
    if (detail_ <= Detail::Boxes) {
        canvas_.drawLines(connection.line, {colour, strong ? kAccentWidth : kHairLine});
        return;
    }
    canvas_.drawLines(roundedLine(connection.line), {colour, strong ? kAccentWidth : kLineWidth});
    const auto head = arrowHead(connection.line[connection.line.size() - 2], connection.line.back());
    canvas_.drawPolygon(head, colour, {colour, kLineWidth});
}

void Painting::label(const Connection& connection, const Shape& shape, Weight weight) {
    if (detail_ <= Detail::Boxes || connection.label.width.value <= 0)
        return;
    const bool hasSection = shape.header < shape.size.height;
    // A line may run below it where nobody has arranged the boxes.
    canvas_.fillRectangle(connection.label, hasSection ? kWhite : paper_);
    if (hasSection) {
        canvas_.drawRectangle(
            connection.label,
            {shade(weight == Weight::Accent ? kAccent : kLabelBorder, weight), kBorderWidth});
    }
    texts(shape, {connection.label.left, connection.label.top}, weight);
}

void Painting::texts(const Shape& shape, Point corner, Weight weight) {
    const Twips above = visible_.top - corner.y - shape.tallest;
    const Twips below = visible_.bottom() - corner.y;
    auto piece = std::lower_bound(shape.pieces.begin(), shape.pieces.end(), above,
                                  [](const TextPiece& each, Twips y) { return each.place.y < y; });
    for (; piece != shape.pieces.end() && piece->place.y <= below; ++piece) {
        if (detail_ != Detail::Full && (piece->role == TextRole::Property || piece->role == TextRole::Type))
            return;
        canvas_.drawText({corner.x + piece->place.x, corner.y + piece->place.y}, piece->text,
                         fontOf(model_, piece->role), shade(colourOf(piece->role), weight));
    }
}

}  // namespace quorel::diagram
