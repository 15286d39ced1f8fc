// The mouse over drawing areas.

#include <algorithm>

#include "platform/headless/user.h"

namespace quorel::headless {

using ui::MouseButton;

namespace {

/// Without looking at the control, which may be gone.
[[nodiscard]] bool holds(const ui::Container& container, const ui::Control* control) {
    return std::any_of(container.children().begin(), container.children().end(), [&](const auto& child) {
        const auto* const inner = dynamic_cast<const ui::Container*>(child.get());
        return child.get() == control || (inner != nullptr && holds(*inner, control));
    });
}

/// After a handler has run.
[[nodiscard]] bool isStillUsable(const ui::Form& form, const ui::DrawingArea& area) {
    return holds(form, &area) && area.isUsable();
}

[[nodiscard]] bool stillHoldsMouse(const ui::Form& form, const ui::DrawingArea& area) {
    return isStillUsable(form, area) && area.holdsMouse();
}

}  // namespace

void User::checkMouse(const ui::DrawingArea& area, ui::Point at) const {
    const ui::Rect& bounds = area.bounds();
    if (!area.holdsMouse() &&
        (at.x.value < 0 || at.y.value < 0 || at.x >= bounds.width || at.y >= bounds.height))
        throw CannotDo("the mouse is not over the drawing");
}

void User::moveMouse(ui::DrawingArea& area, ui::Point at, ui::Modifiers modifiers) {
    const auto form = reach(area);
    checkMouse(area, at);
    area.userMouseMove({at, area.heldButton(), modifiers});
    desktop_.runPosted();
}

void User::pressMouse(ui::DrawingArea& area, ui::Point at, MouseButton button, ui::Modifiers modifiers) {
    const auto form = reach(area);
    checkMouse(area, at);
    if (area.holdsMouse())
        throw CannotDo("a button is down already");
    if (area.isTabStop())
        form->userFocused(&area);
    if (isStillUsable(*form, area))
        area.userMouseDown({at, button, modifiers});
    desktop_.runPosted();
}

void User::releaseMouse(ui::DrawingArea& area, ui::Point at, ui::Modifiers modifiers) {
    const auto form = reach(area);
    if (!area.holdsMouse())
        throw CannotDo("no button is down");
    area.userMouseUp({at, area.heldButton(), modifiers});
    desktop_.runPosted();
}

void User::clickAt(ui::DrawingArea& area, ui::Point at, MouseButton button, ui::Modifiers modifiers) {
    const auto form = reach(area);
    pressMouse(area, at, button, modifiers);
    if (stillHoldsMouse(*form, area))
        releaseMouse(area, at, modifiers);
}

void User::doubleClickAt(ui::DrawingArea& area, ui::Point at) {
    const auto form = reach(area);
    clickAt(area, at);
    if (!isStillUsable(*form, area))
        return;
    area.userDoubleClicked({at, MouseButton::Left});
    desktop_.runPosted();
    if (stillHoldsMouse(*form, area))
        releaseMouse(area, at);
}

void User::drag(ui::DrawingArea& area, ui::Point from, ui::Point to, MouseButton button) {
    const auto form = reach(area);
    pressMouse(area, from, button);
    for (const ui::Point at : {ui::Point{(from.x + to.x) / 2, (from.y + to.y) / 2}, to})
        if (stillHoldsMouse(*form, area))
            moveMouse(area, at);
    if (stillHoldsMouse(*form, area))
        releaseMouse(area, to);
}

void User::turnWheel(ui::DrawingArea& area, ui::Point at, std::int32_t wheel, ui::Modifiers modifiers) {
    const auto form = reach(area);
    checkMouse(area, at);
    static_cast<void>(area.userTurnedWheel({at, MouseButton::None, modifiers, wheel}));
    desktop_.runPosted();
}

void User::leaveMouse(ui::DrawingArea& area) {
    const auto form = reach(area);
    area.userMouseLeft();
    desktop_.runPosted();
}

void User::loseMouse(ui::DrawingArea& area) {
    const auto form = reach(area);
    area.userMouseLost();
    desktop_.runPosted();
}

RecordingCanvas User::look(ui::DrawingArea& area) {
    const auto form = reach(area);
    const ui::Size size = area.bounds().size();
    RecordingCanvas canvas(wholeView(size));
    if (auto* const peer = dynamic_cast<HeadlessPeer*>(area.peer()))
        static_cast<void>(peer->takeInvalid());
    area.userPaints(canvas, {{}, {}, size.width, size.height});
    desktop_.runPosted();
    return canvas;
}

RecordingCanvas User::lookAtChanges(ui::DrawingArea& area) {
    const auto form = reach(area);
    RecordingCanvas canvas(wholeView(area.bounds().size()));
    auto* const peer = dynamic_cast<HeadlessPeer*>(area.peer());
    const std::optional<ui::Rect> dirty = peer != nullptr ? peer->takeInvalid() : std::nullopt;
    if (dirty)
        area.userPaints(canvas, *dirty);
    desktop_.runPosted();
    return canvas;
}

}  // namespace quorel::headless
