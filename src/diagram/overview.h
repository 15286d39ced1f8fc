#pragma once

#include <functional>
#include <string_view>
#include <utility>

#include "diagram/view_state.h"
#include "platform/ui/drawing_area.h"

namespace quorel::diagram {

/// Where the overview stands in a window: in the right lower corner, in the proportions of the drawing, at
/// most a third of the window either way. Of no size where there is no room for one that could be read.
[[nodiscard]] ui::Rect placeOverview(ui::Size window, ui::Size drawing) noexcept;

/// The whole drawing, small, and a frame round the part that is seen. A click or a drag in it asks for what
/// is there to be seen.
class Overview : public ui::DrawingArea {
  public:
    explicit Overview(std::u16string_view name);

    /// Draws every box and nothing else; the canvas has its view already, in which a pixel is that long.
    using PainterOfBoxes = std::function<void(ui::Canvas& canvas, ui::Twips pixel)>;
    void setPainterOfBoxes(PainterOfBoxes painter) { paintBoxes_ = std::move(painter); }
    /// `extent` is the whole drawing, `seen` the part of it in the window.
    void show(const ui::Rect& extent, const ui::Rect& seen);

    ui::Event<ui::Point> onWanted;  ///< a point of the drawing is to be in the middle

    /// Of the drawing, under that point of the overview.
    [[nodiscard]] ui::Point toDrawing(ui::Point at) const noexcept { return whole().toDrawing(at); }
    [[nodiscard]] ui::Rect frame() const noexcept;

  private:
    [[nodiscard]] ViewState whole() const noexcept;
    void paint(ui::Canvas& canvas, const ui::Rect& dirty) const;
    void mouseIsAt(ui::Point at);

    PainterOfBoxes paintBoxes_;
    ui::Rect extent_, seen_;
};

}  // namespace quorel::diagram
