#pragma once

#include <windows.h>

#include "platform/ui/canvas.h"
#include "platform/ui/canvas_mapping.h"
#include "platform/win32/ui/canvas_tools.h"

namespace quorel::win32 {

/// Draws by the system's commands, for metafiles and paper: texts stay texts. The device context maps one
/// twip of the canvas to one of its units; what it has selected is as before at the end.
class GdiCanvas final : public ui::Canvas {
  public:
    GdiCanvas(HDC dc, CanvasTools& tools);
    ~GdiCanvas() override;
    GdiCanvas(const GdiCanvas&) = delete;
    GdiCanvas& operator=(const GdiCanvas&) = delete;

    void setView(const ui::CanvasView& view) override;
    void fillRectangle(const ui::Rect& place, ui::Colour colour) override;
    void drawRectangle(const ui::Rect& place, const ui::Pen& pen) override;
    void drawLines(std::span<const ui::Point> points, const ui::Pen& pen) override;
    void drawPolygon(std::span<const ui::Point> points, ui::Colour fill, const ui::Pen& outline) override;
    void drawText(ui::Point place, std::u16string_view line, const ui::Font& font,
                  ui::Colour colour) override;
    void drawPicture(const ui::Rect& place, const std::shared_ptr<const ui::Picture>& picture) override;

  private:
    /// Pens and brushes that were used, which a drawing has few of.
    [[nodiscard]] HPEN pen(const ui::Pen& wanted);
    [[nodiscard]] HBRUSH brush(ui::Colour colour);
    [[nodiscard]] const std::vector<POINT>& mapped(std::span<const ui::Point> points);

    HDC dc_;
    CanvasTools& tools_;
    ui::CanvasMapping mapping_;
    int saved_;
    std::map<std::tuple<COLORREF, int, bool>, CountedPen> pens_;
    std::map<COLORREF, CountedBrush> brushes_;
    std::vector<POINT> mapped_;
};

}  // namespace quorel::win32
