#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "diagram/diagram_sizes.h"
#include "platform/ui/canvas.h"

namespace quorel::diagram {

/// Writes what is drawn as an SVG document in UTF-8: the same document, to the byte, for the same strokes.
/// Texts stay texts, as wide as they were measured in whatever font they are shown; what XML cannot hold
/// becomes U+FFFD. A picture is held once, as PNG, however often it is drawn.
class SvgCanvas final : public ui::Canvas {
  public:
    /// As large as `size` says; until a view is set everything is drawn where it says.
    SvgCanvas(ui::Size size, Measure measure);

    void setView(const ui::CanvasView& view) override;
    void fillRectangle(const ui::Rect& place, ui::Colour colour) override;
    void drawRectangle(const ui::Rect& place, const ui::Pen& pen) override;
    void drawLines(std::span<const ui::Point> points, const ui::Pen& pen) override;
    void drawPolygon(std::span<const ui::Point> points, ui::Colour fill, const ui::Pen& outline) override;
    void drawText(ui::Point place, std::u16string_view line, const ui::Font& font,
                  ui::Colour colour) override;
    void drawPicture(const ui::Rect& place, const std::shared_ptr<const ui::Picture>& picture) override;

    /// The document; nothing is drawn afterwards.
    [[nodiscard]] std::string finish();

  private:
    void write(std::string_view text) { content_ += text; }
    void write(std::int64_t number);
    void attribute(std::string_view name, std::int64_t number);
    void attribute(std::string_view name, ui::Colour colour);
    void attribute(std::string_view name, std::string_view text);
    void place(const ui::Rect& rect);
    void points(std::span<const ui::Point> points);
    void stroke(const ui::Pen& pen);
    void endView();
    [[nodiscard]] std::size_t numberOf(const std::shared_ptr<const ui::Picture>& picture);

    ui::Size size_;
    Measure measure_;
    std::string content_;
    bool hasView_ = false;
    std::vector<std::shared_ptr<const ui::Picture>> pictures_;
};

}  // namespace quorel::diagram
