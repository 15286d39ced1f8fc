#include "platform/headless/recording_canvas.h"

#include <algorithm>
#include <cmath>

namespace quorel::headless {

namespace {

[[nodiscard]] ui::Rect around(std::span<const ui::Point> points) {
    if (points.empty())
        return {};
    ui::Point least = points.front(), most = points.front();
    for (const ui::Point& point : points) {
        least = {std::min(least.x, point.x), std::min(least.y, point.y)};
        most = {std::max(most.x, point.x), std::max(most.y, point.y)};
    }
    return {least.x, least.y, most.x - least.x, most.y - least.y};
}

[[nodiscard]] ui::Twips scaled(ui::Twips length, double scale) {
    return {static_cast<std::int32_t>(std::lround(length.value * scale))};
}

}  // namespace

std::vector<std::u16string> RecordingCanvas::texts() const {
    std::vector<std::u16string> result;
    for (const DrawnItem& item : items_)
        if (item.kind == DrawnItem::Kind::Text)
            result.push_back(item.text);
    return result;
}

const DrawnItem* RecordingCanvas::findText(std::u16string_view text) const noexcept {
    const auto found = std::find_if(items_.begin(), items_.end(), [text](const DrawnItem& item) {
        return item.kind == DrawnItem::Kind::Text && item.text == text;
    });
    return found != items_.end() ? &*found : nullptr;
}

ui::Rect RecordingCanvas::onCanvas(const DrawnItem& item) const noexcept {
    const ui::CanvasView& view = views_[item.view];
    return {view.clip.left + scaled(item.place.left - view.origin.x, view.scale),
            view.clip.top + scaled(item.place.top - view.origin.y, view.scale),
            scaled(item.place.width, view.scale), scaled(item.place.height, view.scale)};
}

bool RecordingCanvas::isSeen(const DrawnItem& item) const noexcept {
    const ui::Rect place = onCanvas(item);
    const ui::Rect& clip = views_[item.view].clip;
    return place.left < clip.right() && place.right() >= clip.left && place.top < clip.bottom() &&
           place.bottom() >= clip.top;
}

DrawnItem& RecordingCanvas::add(DrawnItem::Kind kind, const ui::Rect& place) {
    return items_.emplace_back(DrawnItem{.kind = kind, .place = place, .view = views_.size() - 1});
}

void RecordingCanvas::fillRectangle(const ui::Rect& place, ui::Colour colour) {
    add(DrawnItem::Kind::Filled, place).colour = colour;
}

void RecordingCanvas::drawRectangle(const ui::Rect& place, const ui::Pen& pen) {
    add(DrawnItem::Kind::Outline, place).pen = pen;
}

void RecordingCanvas::drawLines(std::span<const ui::Point> points, const ui::Pen& pen) {
    DrawnItem& item = add(DrawnItem::Kind::Lines, around(points));
    item.points.assign(points.begin(), points.end());
    item.pen = pen;
}

void RecordingCanvas::drawPolygon(std::span<const ui::Point> points, ui::Colour fill,
                                  const ui::Pen& outline) {
    DrawnItem& item = add(DrawnItem::Kind::Polygon, around(points));
    item.points.assign(points.begin(), points.end());
    item.colour = fill;
    item.pen = outline;
}

void RecordingCanvas::drawText(ui::Point place, std::u16string_view line, const ui::Font& font,
                               ui::Colour colour) {
    DrawnItem& item = add(DrawnItem::Kind::Text, {place.x, place.y, {}, {}});
    item.text = line;
    item.font = font;
    item.colour = colour;
}

void RecordingCanvas::drawPicture(const ui::Rect& place, const std::shared_ptr<const ui::Picture>& picture) {
    add(DrawnItem::Kind::Picture, place).picture = picture;
}

}  // namespace quorel::headless
