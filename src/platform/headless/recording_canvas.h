#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/ui/canvas.h"

namespace quorel::headless {

/// One thing that was drawn, in twips of the drawing.
struct DrawnItem {
    enum class Kind : std::uint8_t { Filled, Outline, Lines, Polygon, Text, Picture };
    Kind kind = Kind::Filled;
    ui::Rect place{};                 ///< what surrounds it; of a text its left top corner alone
    std::vector<ui::Point> points{};  ///< of lines and polygons
    std::u16string text{};
    ui::Font font{};
    ui::Colour colour{};  ///< of the filling or the text
    ui::Pen pen{};
    std::shared_ptr<const ui::Picture> picture{};
    std::size_t view = 0;  ///< which of the canvas's views was in force
};

/// Keeps what is drawn, for tests to read.
class RecordingCanvas final : public ui::Canvas {
  public:
    /// With that first view.
    explicit RecordingCanvas(const ui::CanvasView& view) : views_{view} {}

    [[nodiscard]] const std::vector<DrawnItem>& items() const noexcept { return items_; }
    /// In the order in which they were drawn.
    [[nodiscard]] std::vector<std::u16string> texts() const;
    /// The first text that reads so; null when there is none.
    [[nodiscard]] const DrawnItem* findText(std::u16string_view text) const noexcept;
    /// Where the item is in twips of the canvas, not cut by the clip.
    [[nodiscard]] ui::Rect onCanvas(const DrawnItem& item) const noexcept;
    /// True if some of it is inside the clip; of a text if its corner is.
    [[nodiscard]] bool isSeen(const DrawnItem& item) const noexcept;

    void setView(const ui::CanvasView& view) override { views_.push_back(view); }
    void fillRectangle(const ui::Rect& place, ui::Colour colour) override;
    void drawRectangle(const ui::Rect& place, const ui::Pen& pen) override;
    void drawLines(std::span<const ui::Point> points, const ui::Pen& pen) override;
    void drawPolygon(std::span<const ui::Point> points, ui::Colour fill, const ui::Pen& outline) override;
    void drawText(ui::Point place, std::u16string_view line, const ui::Font& font,
                  ui::Colour colour) override;
    void drawPicture(const ui::Rect& place, const std::shared_ptr<const ui::Picture>& picture) override;

  private:
    DrawnItem& add(DrawnItem::Kind kind, const ui::Rect& place);

    std::vector<ui::CanvasView> views_;
    std::vector<DrawnItem> items_;
};

/// The view of a whole area at its own size.
[[nodiscard]] constexpr ui::CanvasView wholeView(ui::Size area) noexcept {
    return {{{}, {}, area.width, area.height}, {}, 1};
}

}  // namespace quorel::headless
