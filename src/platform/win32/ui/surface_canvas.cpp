#include "platform/win32/ui/surface_canvas.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "platform/automation/error.h"

namespace quorel::win32 {

DrawingSurface::DrawingSurface(std::int32_t width, std::int32_t height) : dc_(::CreateCompatibleDC(nullptr)) {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof(info.bmiHeader);
    info.bmiHeader.biWidth = std::max(1, width);
    info.bmiHeader.biHeight = -std::max(1, height);
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void* bits = nullptr;
    bitmap_ = counted<CountedBitmap>(::CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0),
                                     Counted::GdiObject);
    if (!dc_ || !bitmap_)
        throw automation::Error(automation::error_number::kOutOfMemory);
    before_ = ::SelectObject(dc_.get(), bitmap_.get());
    pixels_ = {static_cast<std::uint32_t*>(bits), std::max(1, width), std::max(1, height)};
}

DrawingSurface::~DrawingSurface() {
    ::SelectObject(dc_.get(), before_);
}

void SurfaceCanvas::setView(const ui::CanvasView& view) {
    mapping_.setView(view);
    const ui::PixelRect seen = mapping_.canvasPixels(view.clip);
    clip_ = {std::max(seen.left, bounds_.left), std::max(seen.top, bounds_.top),
             std::min(seen.right, bounds_.right), std::min(seen.bottom, bounds_.bottom)};
}

const ui::PixelSurface& SurfaceCanvas::settled() noexcept {
    if (std::exchange(systemDraws_, false))
        ::GdiFlush();
    return surface_.pixels();
}

void SurfaceCanvas::map(std::span<const ui::Point> points) {
    mapped_.clear();
    for (const ui::Point& point : points)
        mapped_.push_back(mapping_.at(point));
}

void SurfaceCanvas::fillRectangle(const ui::Rect& place, ui::Colour colour) {
    ui::fillArea(settled(), clip_, mapping_.pixels(place), colour);
}

void SurfaceCanvas::drawRectangle(const ui::Rect& place, const ui::Pen& pen) {
    const ui::RasterPoint first = mapping_.at({place.left, place.top});
    const ui::RasterPoint last = mapping_.at({place.right(), place.bottom()});
    const std::array<ui::RasterPoint, 5> corners = {first, {last.x, first.y}, last, {first.x, last.y}, first};
    ui::drawStrokes(settled(), clip_, corners, widthOf(pen), pen.dashed, pen.colour);
}

void SurfaceCanvas::drawLines(std::span<const ui::Point> points, const ui::Pen& pen) {
    map(points);
    if (pen.width.value > 0 || pen.dashed || areStillSmooth())
        ui::drawStrokes(settled(), clip_, mapped_, widthOf(pen), pen.dashed, pen.colour);
    else
        ui::drawCoarseStrokes(settled(), clip_, mapped_, pen.colour);
}

bool SurfaceCanvas::areStillSmooth() {
    const double most = clip_.right - clip_.left + clip_.bottom - clip_.top;
    for (std::size_t i = 0; i + 1 < mapped_.size() && smoothPixels_ >= 0; ++i)
        smoothPixels_ -= std::min(most, std::max(std::abs(mapped_[i + 1].x - mapped_[i].x),
                                                 std::abs(mapped_[i + 1].y - mapped_[i].y)));
    return smoothPixels_ >= 0;
}

void SurfaceCanvas::drawPolygon(std::span<const ui::Point> points, ui::Colour fill, const ui::Pen& outline) {
    if (points.empty())
        return;
    map(points);
    ui::fillPolygon(settled(), clip_, mapped_, fill);
    mapped_.push_back(mapped_.front());
    ui::drawStrokes(settled(), clip_, mapped_, widthOf(outline), outline.dashed, outline.colour);
}

void SurfaceCanvas::drawText(ui::Point place, std::u16string_view line, const ui::Font& font,
                             ui::Colour colour) {
    const ui::RasterPoint at = mapping_.at(place);
    if (clip_.left >= clip_.right || clip_.top >= clip_.bottom || at.x >= clip_.right || at.y >= clip_.bottom)
        return;
    const RECT clip{clip_.left, clip_.top, clip_.right, clip_.bottom};
    tools_.drawText(surface_.dc(), {ui::CanvasMapping::rounded(at.x), ui::CanvasMapping::rounded(at.y)}, line,
                    font, mapping_.scale(), colour, &clip);
    systemDraws_ = true;
}

void SurfaceCanvas::drawPicture(const ui::Rect& place, const std::shared_ptr<const ui::Picture>& picture) {
    constexpr std::int32_t kLongestSide = 4096;
    const ui::PixelRect pixels = mapping_.pixels(place);
    const std::int32_t width = pixels.right - pixels.left, height = pixels.bottom - pixels.top;
    const bool seen = pixels.left < clip_.right && pixels.right > clip_.left && pixels.top < clip_.bottom &&
                      pixels.bottom > clip_.top;
    if (picture && seen && width > 0 && height > 0 && width <= kLongestSide && height <= kLongestSide)
        ui::blendPicture(settled(), clip_, pixels.left, pixels.top, tools_.sized(picture, width, height));
}

}  // namespace quorel::win32
