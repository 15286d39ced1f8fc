#pragma once

#include <windows.h>

#include <limits>
#include <memory>
#include <vector>

#include "platform/ui/canvas.h"
#include "platform/ui/canvas_mapping.h"
#include "platform/ui/raster.h"
#include "platform/win32/ui/canvas_tools.h"
#include "platform/win32/ui/pictures.h"

namespace quorel::win32 {

/// Pixels in memory that both we and the system draw on.
class DrawingSurface {
  public:
    /// Throws automation::Error 7 when there is no memory for so many.
    DrawingSurface(std::int32_t width, std::int32_t height);
    ~DrawingSurface();
    DrawingSurface(const DrawingSurface&) = delete;
    DrawingSurface& operator=(const DrawingSurface&) = delete;

    [[nodiscard]] HDC dc() const noexcept { return dc_.get(); }
    [[nodiscard]] const ui::PixelSurface& pixels() const noexcept { return pixels_; }

  private:
    MemoryDc dc_;
    CountedBitmap bitmap_;
    HGDIOBJ before_ = nullptr;
    ui::PixelSurface pixels_;
};

/// Draws on pixels: shapes by ourselves, smoothly; texts by the system.
class SurfaceCanvas final : public ui::Canvas {
  public:
    /// Begins with the view of the canvas at its own size. Nothing outside of `bounds` is touched. Thinnest
    /// lines are smooth until so many pixels of them are drawn: thousands of them all over the place cannot
    /// be told apart anyway.
    SurfaceCanvas(DrawingSurface& surface, CanvasTools& tools, const ui::CanvasMapping& mapping,
                  const ui::PixelRect& bounds,
                  double mostSmoothPixels = std::numeric_limits<double>::infinity())
        : surface_(surface),
          tools_(tools),
          mapping_(mapping),
          bounds_(bounds),
          clip_(bounds),
          smoothPixels_(mostSmoothPixels) {}

    void setView(const ui::CanvasView& view) override;
    void fillRectangle(const ui::Rect& place, ui::Colour colour) override;
    void drawRectangle(const ui::Rect& place, const ui::Pen& pen) override;
    void drawLines(std::span<const ui::Point> points, const ui::Pen& pen) override;
    void drawPolygon(std::span<const ui::Point> points, ui::Colour fill, const ui::Pen& outline) override;
    void drawText(ui::Point place, std::u16string_view line, const ui::Font& font,
                  ui::Colour colour) override;
    void drawPicture(const ui::Rect& place, const std::shared_ptr<const ui::Picture>& picture) override;

  private:
    /// What the system has drawn so far is in the pixels.
    const ui::PixelSurface& settled() noexcept;
    [[nodiscard]] double widthOf(const ui::Pen& pen) const noexcept {
        return pen.width.value * mapping_.scale();
    }
    /// Of the lines that were mapped.
    [[nodiscard]] bool areStillSmooth();
    void map(std::span<const ui::Point> points);

    DrawingSurface& surface_;
    CanvasTools& tools_;
    ui::CanvasMapping mapping_;
    ui::PixelRect bounds_, clip_;
    double smoothPixels_;  ///< still to be had
    bool systemDraws_ = false;
    std::vector<ui::RasterPoint> mapped_;
};

}  // namespace quorel::win32
