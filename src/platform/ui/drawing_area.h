#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string_view>

#include "platform/ui/canvas.h"
#include "platform/ui/control.h"
#include "platform/ui/keys.h"

namespace quorel::ui {

enum class MouseButton : std::uint8_t { None, Left, Middle, Right };

/// What the mouse does over a control. `at` is in twips of its client area, and outside of it while a button
/// holds the mouse.
struct MouseEvent {
    Point at;
    MouseButton button = MouseButton::None;  ///< the one that it is about; of a move one that is down
    Modifiers modifiers = Modifiers::None;
    std::int32_t wheel = 0;  ///< 120 a notch, upwards; smooth wheels report parts of a notch
};

/// What the mouse looks like over a drawing area.
enum class PointerShape : std::uint8_t { Arrow, Hand, Move };

/// A control that the program draws. Its text is its name for screen readers.
///
/// A click gives it the focus. While a button is down, all the mouse does comes here, wherever it is. Every
/// key goes to `onKeyDown`; what is not handled there is left to the dialog keyboard (Tab, Enter, Esc).
class DrawingArea : public Control {
  public:
    /// Draws what stands in `dirty`; the rest has been drawn before and is not touched. The canvas begins
    /// with the view of the whole client area at its own size, in which `dirty` is given, on the background.
    using Painter = std::function<void(Canvas& canvas, const Rect& dirty)>;

    explicit DrawingArea(std::u16string_view name) : Control(name) {}
    void accept(ControlVisitor& visitor) override;

    void setPainter(Painter painter);
    /// All of it, or some, is painted anew, soon: several of these are one painting.
    void invalidate();
    void invalidate(const Rect& area);

    [[nodiscard]] PointerShape pointerShape() const noexcept { return shape_; }
    void setPointerShape(PointerShape shape);
    /// A button went down here and is still down. Another one is not heard before that is up.
    [[nodiscard]] bool holdsMouse() const noexcept { return held_ != MouseButton::None; }
    [[nodiscard]] MouseButton heldButton() const noexcept { return held_; }

    Event<const MouseEvent&> onMouseDown;
    Event<const MouseEvent&> onMouseMove;
    Event<const MouseEvent&> onMouseUp;
    /// Of the left button, in the place of the second `onMouseDown`; `onMouseUp` follows.
    Event<const MouseEvent&> onDoubleClick;
    /// With nobody connected the wheel is left to what the control stands in.
    Event<const MouseEvent&> onWheel;
    Event<> onMouseLeave;
    /// The mouse was taken away while a button was down: no `onMouseUp` will come.
    Event<> onMouseLost;

    // For peers.
    // --------------------------------------------------------------------
    void userPaints(Canvas& canvas, const Rect& dirty);
    void userMouseDown(const MouseEvent& event);
    void userMouseMove(const MouseEvent& event);
    void userMouseUp(const MouseEvent& event);
    void userDoubleClicked(const MouseEvent& event);
    /// True if somebody listens.
    [[nodiscard]] bool userTurnedWheel(const MouseEvent& event);
    void userMouseLeft();
    void userMouseLost();

  private:
    std::shared_ptr<const Painter> painter_;  ///< held while it runs
    PointerShape shape_ = PointerShape::Arrow;
    MouseButton held_ = MouseButton::None;
};

}  // namespace quorel::ui
