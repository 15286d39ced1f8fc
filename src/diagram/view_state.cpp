#include "diagram/view_state.h"

#include <algorithm>
#include <cmath>

namespace quorel::diagram {

namespace {

using ui::Point;
using ui::Rect;
using ui::Twips;

/// What is further out than this is not told apart; keeps sums of two lengths within 32 bits.
constexpr double kFarthest = 1'000'000'000;

[[nodiscard]] Twips rounded(double length) noexcept {
    return {static_cast<std::int32_t>(std::lround(std::clamp(length, -kFarthest, kFarthest)))};
}

[[nodiscard]] double number(Twips length) noexcept {
    return static_cast<double>(length.value);
}

/// How far an interval has to move to lie within `room`, or to begin where that begins.
[[nodiscard]] double wayInto(double roomStart, double roomEnd, double start, double end) noexcept {
    if (start < roomStart || end - start > roomEnd - roomStart)
        return roomStart - start;
    return end > roomEnd ? roomEnd - end : 0;
}

}  // namespace

void ViewState::setExtent(const Rect& extent) {
    extent_ = extent;
    scale_ = limited(scale_);
    confine();
}

void ViewState::setWindow(ui::Size window) {
    window_ = window;
    scale_ = limited(scale_);
}

Point ViewState::middle() const noexcept {
    return {rounded(x_), rounded(y_)};
}

void ViewState::zoomAbout(Point at, double factor) {
    double wanted = scale_ * factor;
    if ((scale_ < 1 && wanted > 1) || (scale_ > 1 && wanted < 1))
        wanted = 1;
    const double before = scale_;
    scale_ = limited(wanted);
    const double shift = 1 / before - 1 / scale_;
    x_ += (number(at.x) - number(window_.width) / 2) * shift;
    y_ += (number(at.y) - number(window_.height) / 2) * shift;
    confine();
}

void ViewState::zoom(double factor) {
    zoomAbout({window_.width / 2, window_.height / 2}, factor);
}

void ViewState::setScale(double scale) {
    scale_ = limited(scale);
}

void ViewState::fit() {
    scale_ = fittingScale();
    centreOn(extent_);
}

void ViewState::panBy(Point by) {
    x_ -= number(by.x) / scale_;
    y_ -= number(by.y) / scale_;
    confine();
}

void ViewState::centreOn(Point point) {
    x_ = number(point.x);
    y_ = number(point.y);
    confine();
}

void ViewState::centreOn(const Rect& place) {
    x_ = number(place.left) + number(place.width) / 2;
    y_ = number(place.top) + number(place.height) / 2;
    confine();
}

void ViewState::reveal(const Rect& place) {
    const double halfWidth = number(window_.width) / 2 / scale_;
    const double halfHeight = number(window_.height) / 2 / scale_;
    x_ -= wayInto(x_ - halfWidth, x_ + halfWidth, number(place.left), number(place.right()));
    y_ -= wayInto(y_ - halfHeight, y_ + halfHeight, number(place.top), number(place.bottom()));
    confine();
}

Point ViewState::toDrawing(Point at) const noexcept {
    return {rounded(x_ + (number(at.x) - number(window_.width) / 2) / scale_),
            rounded(y_ + (number(at.y) - number(window_.height) / 2) / scale_)};
}

Point ViewState::toWindow(Point point) const noexcept {
    return {rounded((number(point.x) - x_) * scale_ + number(window_.width) / 2),
            rounded((number(point.y) - y_) * scale_ + number(window_.height) / 2)};
}

Rect ViewState::toWindow(const Rect& place) const noexcept {
    const Point corner = toWindow(Point{place.left, place.top});
    const Point other = toWindow(Point{place.right(), place.bottom()});
    return {corner.x, corner.y, other.x - corner.x, other.y - corner.y};
}

Rect ViewState::seen() const noexcept {
    const Point corner = toDrawing(Point{});
    const Point other = toDrawing(Point{window_.width, window_.height});
    return {corner.x, corner.y, other.x - corner.x, other.y - corner.y};
}

ui::CanvasView ViewState::canvasView(const Rect& clip) const noexcept {
    return {clip, toDrawing(Point{clip.left, clip.top}), scale_};
}

double ViewState::fittingScale() const noexcept {
    if (extent_.width <= Twips{} || extent_.height <= Twips{} || window_.width <= Twips{} ||
        window_.height <= Twips{})
        return 1;
    return std::min({1.0, number(window_.width) / number(extent_.width),
                     number(window_.height) / number(extent_.height)});
}

double ViewState::limited(double scale) const noexcept {
    return std::clamp(scale, std::min(kSmallest, fittingScale()), kLargest);
}

void ViewState::confine() noexcept {
    x_ = std::clamp(x_, number(extent_.left), number(extent_.right()));
    y_ = std::clamp(y_, number(extent_.top), number(extent_.bottom()));
}

}  // namespace quorel::diagram
