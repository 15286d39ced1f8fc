#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>

#include "diagram/box_drag.h"
#include "diagram/box_finder.h"
#include "diagram/diagram_drawing.h"
#include "diagram/diagram_model.h"
#include "diagram/overview.h"
#include "diagram/view_state.h"
#include "platform/ui/control.h"
#include "platform/ui/desktop.h"
#include "platform/ui/drawing_area.h"

namespace quorel::diagram {

/// Shows a diagram and lets the user go about in it. Made of two plain controls: the drawing area, which
/// bears the name, and "<name>.Overview" in its corner while the drawing is larger than the window.
///
/// Mouse: the wheel makes what is under it larger or smaller, with Shift it moves the drawing sideways; a
/// drag of the ground moves the drawing, a drag of a box moves that, its connections following; a click
/// chooses a box or none; a double click brings what is there into the middle. The box under the mouse, else
/// the one chosen, is shown with its neighbours.
///
/// Keys: the arrows go from box to box, with Ctrl they move the drawing; Home and End choose the first and
/// the last box, Enter brings the one chosen into the middle; + and - change the scale, Ctrl+0 is the
/// drawing's own size, Ctrl+9 and F show all of it; Page Up and Page Down move by a window, with Shift
/// sideways. Esc takes a drag back, then the choice; with nothing to take back it is left to the window.
class DiagramView : public ui::Panel {
  public:
    /// The desktop outlives the control.
    DiagramView(std::u16string_view name, ui::Desktop& desktop);

    /// Shows that diagram, as a whole if its boxes can then be told apart; null for none. The view moves its
    /// boxes.
    void setModel(std::shared_ptr<DiagramModel> model);
    [[nodiscard]] const std::shared_ptr<DiagramModel>& model() const noexcept { return model_; }
    /// Null without a diagram.
    [[nodiscard]] const DiagramDrawing* drawing() const noexcept { return drawing_.get(); }
    [[nodiscard]] const ViewState& view() const noexcept { return view_; }

    void zoomIn();
    void zoomOut();
    void fit();
    void actualSize();

    [[nodiscard]] std::optional<std::size_t> selected() const noexcept { return selected_; }
    /// Chooses a box, or none, without moving the drawing.
    void select(std::optional<std::size_t> box);
    /// Chooses a box and brings it into the middle, large enough to be read.
    void show(std::size_t box);
    [[nodiscard]] std::optional<std::size_t> hovered() const noexcept { return hovered_; }

    /// Does what the key is for, as if the drawing had the focus; false if it is for nothing here.
    bool runKey(ui::KeyChord chord);

    [[nodiscard]] ui::DrawingArea& area() noexcept { return area_; }
    [[nodiscard]] Overview& overview() noexcept { return overview_; }

    ui::Event<> onViewChanged;  ///< the scale, or which part is seen
    ui::Event<> onSelect;       ///< the user, or `show`, has chosen another box, or none

  private:
    void boundsChanged() override;
    void connectMouse();
    void paint(ui::Canvas& canvas, const ui::Rect& dirty) const;
    void paintNothing(ui::Canvas& canvas) const;
    void lookFirst();
    void viewChanged();
    void place();
    void choose(std::optional<std::size_t> box, bool hasMoved);
    void describe();

    void mouseDown(const ui::MouseEvent& event);
    void mouseMoved(const ui::MouseEvent& event);
    void mouseUp(const ui::MouseEvent& event);
    void mouseLost();
    void doubleClicked(const ui::MouseEvent& event);
    void wheelTurned(const ui::MouseEvent& event);
    void hover(std::optional<ui::Point> at);
    void dragTo(ui::Point at);
    void boxMoved();
    void endGesture();

    [[nodiscard]] bool runViewKey(ui::KeyChord chord);
    [[nodiscard]] bool runBoxKey(ui::KeyChord chord);
    [[nodiscard]] bool escape();
    void goTo(Direction direction);
    void goToBox(std::size_t box);

    [[nodiscard]] std::optional<std::size_t> boxUnder(ui::Point at) const;

    /// What the mouse does since a button went down.
    struct Gesture {
        ui::Point start, last;
        std::optional<std::size_t> box;  ///< under the mouse at first; none when the ground is moved
        std::optional<BoxDrag> drag;     ///< once the box has moved
        bool moved = false;
        bool ofLeftButton = false;
    };

    ui::Desktop& desktop_;
    ui::DrawingArea& area_;
    Overview& overview_;
    std::shared_ptr<DiagramModel> model_;
    std::unique_ptr<DiagramDrawing> drawing_;
    ViewState view_;
    /// What is kept in sight when the window changes: what was seen first, all, or just what is in the
    /// middle.
    enum class Shown : std::uint8_t { First, Whole, Part };
    Shown shown_ = Shown::First;
    std::optional<std::size_t> selected_, hovered_;
    std::optional<Gesture> gesture_;
};

}  // namespace quorel::diagram
