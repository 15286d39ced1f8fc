// What the user does in a diagram, by mouse and by keyboard.

#include <cmath>
#include <cstdlib>
#include <utility>

#include "diagram/diagram_view.h"

namespace quorel::diagram {

using ui::Point;
using ui::Rect;
using ui::Twips;
using namespace ui::literals;

namespace {

constexpr double kWheelStep = 1.2;
constexpr double kWheelNotch = 120;
constexpr Twips kWheelWay = 900_tw;
/// A shorter way of the mouse is a click.
constexpr std::int32_t kClickWay = 60;

[[nodiscard]] Point minus(Point a, Point b) noexcept {
    return {a.x - b.x, a.y - b.y};
}

}  // namespace

// The mouse.
// ------------------------------------------------------------------------

void DiagramView::mouseDown(const ui::MouseEvent& event) {
    if (gesture_ || event.button == ui::MouseButton::Right || event.button == ui::MouseButton::None)
        return;
    const bool isLeft = event.button == ui::MouseButton::Left;
    gesture_.emplace(
        Gesture{event.at, event.at, isLeft ? boxUnder(event.at) : std::nullopt, {}, false, isLeft});
}

void DiagramView::mouseMoved(const ui::MouseEvent& event) {
    if (!gesture_)
        return hover(event.at);
    const Point way = minus(event.at, gesture_->start);
    if (!gesture_->moved && std::abs(way.x.value) < kClickWay && std::abs(way.y.value) < kClickWay)
        return;
    if (!std::exchange(gesture_->moved, true)) {
        area_.setPointerShape(ui::PointerShape::Move);
        hovered_.reset();
        if (gesture_->box)
            gesture_->drag.emplace(*model_, *gesture_->box, drawing_->connectionsOf(*gesture_->box));
    }
    dragTo(event.at);
}

void DiagramView::dragTo(Point at) {
    const Point way = minus(at, std::exchange(gesture_->last, at));
    if (!gesture_->drag) {
        shown_ = Shown::Part;
        view_.panBy(way);
        return viewChanged();
    }
    gesture_->drag->moveBy(minus(view_.toDrawing(at), view_.toDrawing(gesture_->start)));
    boxMoved();
}

void DiagramView::boxMoved() {
    shown_ = Shown::Part;
    drawing_->boxMoved(gesture_->drag->box());
    area_.invalidate();
}

void DiagramView::mouseUp(const ui::MouseEvent& event) {
    if (!gesture_)
        return;
    const bool isClick = !gesture_->moved && gesture_->ofLeftButton;
    const std::optional<std::size_t> clicked = gesture_->box;
    endGesture();
    hover(event.at);
    if (isClick)
        choose(clicked, false);
}

/// What a drag has moved stays where it is; the drawing may be larger now.
void DiagramView::endGesture() {
    const bool boxHasMoved = gesture_->drag.has_value();
    gesture_.reset();
    area_.setPointerShape(ui::PointerShape::Arrow);
    if (!boxHasMoved)
        return;
    drawing_->refresh();
    view_.setExtent(drawing_->extent());
    viewChanged();
}

void DiagramView::mouseLost() {
    if (!gesture_)
        return;
    if (gesture_->drag)
        gesture_->drag->undo();
    endGesture();
}

void DiagramView::doubleClicked(const ui::MouseEvent& event) {
    if (!drawing_)
        return;
    const std::optional<std::size_t> box = boxUnder(event.at);
    shown_ = Shown::Part;
    if (box)
        view_.centreOn(model_->boxes[*box].place);
    else
        view_.centreOn(view_.toDrawing(event.at));
    hovered_.reset();
    choose(box, true);
}

void DiagramView::wheelTurned(const ui::MouseEvent& event) {
    const double notches = event.wheel / kWheelNotch;
    shown_ = Shown::Part;
    if (has(event.modifiers, ui::Modifiers::Shift))
        view_.panBy({Twips{static_cast<std::int32_t>(kWheelWay.value * notches)}, 0_tw});
    else
        view_.zoomAbout(event.at, std::pow(kWheelStep, notches));
    viewChanged();
}

void DiagramView::hover(std::optional<Point> at) {
    const std::optional<std::size_t> box = at ? boxUnder(*at) : std::nullopt;
    area_.setPointerShape(box ? ui::PointerShape::Hand : ui::PointerShape::Arrow);
    if (std::exchange(hovered_, box) != box)
        area_.invalidate();
}

// The keyboard.
// ------------------------------------------------------------------------

bool DiagramView::runKey(ui::KeyChord chord) {
    if (!drawing_)
        return false;
    if (chord == ui::KeyChord{ui::Key::Escape})
        return escape();
    // A drag is not disturbed.
    return gesture_.has_value() || runViewKey(chord) || runBoxKey(chord);
}

bool DiagramView::runViewKey(ui::KeyChord chord) {
    using ui::Key;
    const bool isPlain = chord.modifiers == ui::Modifiers::None;
    const bool withControl = chord.modifiers == ui::Modifiers::Control;
    const bool withShift = chord.modifiers == ui::Modifiers::Shift;
    const auto pan = [this](Twips x, Twips y) {
        shown_ = Shown::Part;
        view_.panBy({x, y});
        viewChanged();
    };
    if ((chord.key == Key::Plus || chord.key == Key::Add) && !has(chord.modifiers, ui::Modifiers::Alt))
        return zoomIn(), true;
    if ((chord.key == Key::Minus || chord.key == Key::Subtract) && !has(chord.modifiers, ui::Modifiers::Alt))
        return zoomOut(), true;
    if (withControl && chord.key == ui::key('0'))
        return actualSize(), true;
    if ((withControl && chord.key == ui::key('9')) || (isPlain && chord.key == ui::key('F')))
        return fit(), true;
    if (withControl && chord.key >= Key::Left && chord.key <= Key::Down) {
        const Twips x = chord.key == Key::Left ? kWheelWay : chord.key == Key::Right ? -kWheelWay : 0_tw;
        const Twips y = chord.key == Key::Up ? kWheelWay : chord.key == Key::Down ? -kWheelWay : 0_tw;
        return pan(x, y), true;
    }
    if ((isPlain || withShift) && (chord.key == Key::PageUp || chord.key == Key::PageDown)) {
        const std::int32_t way = chord.key == Key::PageUp ? 1 : -1;
        const ui::Size window = view_.window();
        return withShift ? pan(window.width * way, 0_tw) : pan(0_tw, window.height * way), true;
    }
    return false;
}

bool DiagramView::runBoxKey(ui::KeyChord chord) {
    using ui::Key;
    if (chord.modifiers != ui::Modifiers::None || model_->boxes.empty())
        return false;
    switch (chord.key) {
        case Key::Left:
            return goTo(Direction::Left), true;
        case Key::Right:
            return goTo(Direction::Right), true;
        case Key::Up:
            return goTo(Direction::Up), true;
        case Key::Down:
            return goTo(Direction::Down), true;
        case Key::Home:
            return goToBox(0), true;
        case Key::End:
            return goToBox(model_->boxes.size() - 1), true;
        case Key::Enter:
            if (selected_)
                show(*selected_);
            return true;
        default:
            return false;
    }
}

void DiagramView::goTo(Direction direction) {
    if (const auto next = selected_ ? boxBeside(model_->boxes, *selected_, direction)
                                    : boxNearest(model_->boxes, view_.middle()))
        goToBox(*next);
}

void DiagramView::goToBox(std::size_t box) {
    hovered_.reset();
    const Rect& place = model_->boxes[box].place;
    const Twips margin{static_cast<std::int32_t>(kWheelWay.value / 3 / view_.scale())};
    const Point before = view_.middle();
    view_.reveal(
        {place.left - margin, place.top - margin, place.width + margin * 2, place.height + margin * 2});
    const bool hasMoved = view_.middle() != before;
    if (hasMoved)
        shown_ = Shown::Part;
    choose(box, hasMoved);
}

bool DiagramView::escape() {
    if (gesture_ && gesture_->moved) {
        mouseLost();
        return true;
    }
    if (!selected_)
        return false;
    choose(std::nullopt, false);
    return true;
}

}  // namespace quorel::diagram
