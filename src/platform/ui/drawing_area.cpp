#include "platform/ui/drawing_area.h"

#include <utility>

#include "platform/ui/control_visitor.h"
#include "platform/ui/form.h"

namespace quorel::ui {

void DrawingArea::accept(ControlVisitor& visitor) {
    visitor.visit(*this);
}

void DrawingArea::setPainter(Painter painter) {
    painter_ = painter ? std::make_shared<const Painter>(std::move(painter)) : nullptr;
    invalidate();
}

void DrawingArea::invalidate() {
    invalidate({{}, {}, bounds().width, bounds().height});
}

void DrawingArea::invalidate(const Rect& area) {
    if (peer() != nullptr)
        peer()->invalidate(area);
}

void DrawingArea::setPointerShape(PointerShape shape) {
    if (std::exchange(shape_, shape) != shape)
        changed(Change::Style);
}

void DrawingArea::userPaints(Canvas& canvas, const Rect& dirty) {
    const auto alive = keepFormAlive();
    if (const auto painter = painter_)
        (*painter)(canvas, dirty);
}

void DrawingArea::userMouseDown(const MouseEvent& event) {
    const auto alive = keepFormAlive();
    held_ = event.button;
    onMouseDown.raise(event);
}

void DrawingArea::userMouseMove(const MouseEvent& event) {
    const auto alive = keepFormAlive();
    onMouseMove.raise(event);
}

void DrawingArea::userMouseUp(const MouseEvent& event) {
    const auto alive = keepFormAlive();
    held_ = MouseButton::None;
    onMouseUp.raise(event);
}

void DrawingArea::userDoubleClicked(const MouseEvent& event) {
    const auto alive = keepFormAlive();
    held_ = event.button;
    onDoubleClick.raise(event);
}

bool DrawingArea::userTurnedWheel(const MouseEvent& event) {
    const auto alive = keepFormAlive();
    const bool heard = onWheel.isConnected();
    onWheel.raise(event);
    return heard;
}

void DrawingArea::userMouseLeft() {
    const auto alive = keepFormAlive();
    onMouseLeave.raise();
}

void DrawingArea::userMouseLost() {
    if (std::exchange(held_, MouseButton::None) == MouseButton::None)
        return;
    const auto alive = keepFormAlive();
    onMouseLost.raise();
}

}  // namespace quorel::ui
