#include "platform/win32/ui/gdi_canvas.h"

#include <algorithm>

#include "platform/win32/ui/pictures.h"

namespace quorel::win32 {

namespace {

/// The thinnest line of all would be lost on a printer.
constexpr int kHairLine = 8;

}  // namespace

GdiCanvas::GdiCanvas(HDC dc, CanvasTools& tools) : dc_(dc), tools_(tools), mapping_(1), saved_(::SaveDC(dc)) {
    ::SelectObject(dc_, ::GetStockObject(NULL_PEN));
    ::SelectObject(dc_, ::GetStockObject(NULL_BRUSH));
    ::SetPolyFillMode(dc_, ALTERNATE);
}

GdiCanvas::~GdiCanvas() {
    ::RestoreDC(dc_, saved_);
}

void GdiCanvas::setView(const ui::CanvasView& view) {
    mapping_.setView(view);
    const ui::PixelRect clip = mapping_.canvasPixels(view.clip);
    ::SelectClipRgn(dc_, nullptr);
    ::IntersectClipRect(dc_, clip.left, clip.top, clip.right, clip.bottom);
}

HPEN GdiCanvas::pen(const ui::Pen& wanted) {
    const int width = std::max(kHairLine, ui::CanvasMapping::rounded(wanted.width.value * mapping_.scale()));
    CountedPen& pen = pens_[{toColorRef(wanted.colour), width, wanted.dashed}];
    if (!pen) {
        const LOGBRUSH brush{BS_SOLID, toColorRef(wanted.colour), 0};
        const DWORD style = PS_GEOMETRIC | PS_ENDCAP_ROUND | PS_JOIN_ROUND;
        pen = counted<CountedPen>(::ExtCreatePen(style | (wanted.dashed ? PS_DASH : PS_SOLID),
                                                 static_cast<DWORD>(width), &brush, 0, nullptr),
                                  Counted::GdiObject);
    }
    return pen.get();
}

HBRUSH GdiCanvas::brush(ui::Colour colour) {
    CountedBrush& brush = brushes_[toColorRef(colour)];
    if (!brush)
        brush = counted<CountedBrush>(::CreateSolidBrush(toColorRef(colour)), Counted::GdiObject);
    return brush.get();
}

const std::vector<POINT>& GdiCanvas::mapped(std::span<const ui::Point> points) {
    mapped_.clear();
    for (const ui::Point& point : points) {
        const ui::RasterPoint at = mapping_.at(point);
        mapped_.push_back({ui::CanvasMapping::rounded(at.x), ui::CanvasMapping::rounded(at.y)});
    }
    return mapped_;
}

void GdiCanvas::fillRectangle(const ui::Rect& place, ui::Colour colour) {
    const ui::PixelRect area = mapping_.pixels(place);
    const RECT rectangle{area.left, area.top, area.right, area.bottom};
    ::FillRect(dc_, &rectangle, brush(colour));
}

void GdiCanvas::drawRectangle(const ui::Rect& place, const ui::Pen& pen) {
    const ui::Point first{place.left, place.top}, last{place.right(), place.bottom()};
    const std::array<ui::Point, 5> corners = {first, {last.x, first.y}, last, {first.x, last.y}, first};
    drawLines(corners, pen);
}

void GdiCanvas::drawLines(std::span<const ui::Point> points, const ui::Pen& pen) {
    const SelectScope selected(dc_, this->pen(pen));
    ::Polyline(dc_, mapped(points).data(), static_cast<int>(points.size()));
}

void GdiCanvas::drawPolygon(std::span<const ui::Point> points, ui::Colour fill, const ui::Pen& outline) {
    const SelectScope edge(dc_, pen(outline));
    const SelectScope inside(dc_, brush(fill));
    ::Polygon(dc_, mapped(points).data(), static_cast<int>(points.size()));
}

void GdiCanvas::drawText(ui::Point place, std::u16string_view line, const ui::Font& font, ui::Colour colour) {
    const ui::RasterPoint at = mapping_.at(place);
    tools_.drawText(dc_, {ui::CanvasMapping::rounded(at.x), ui::CanvasMapping::rounded(at.y)}, line, font,
                    mapping_.scale(), colour, nullptr);
}

void GdiCanvas::drawPicture(const ui::Rect& place, const std::shared_ptr<const ui::Picture>& picture) {
    const CountedBitmap bitmap = picture ? makeBitmap(*picture) : CountedBitmap();
    if (!bitmap)
        return;
    const ui::PixelRect area = mapping_.pixels(place);
    const MemoryDc memory(::CreateCompatibleDC(nullptr));
    const SelectScope selected(memory.get(), bitmap.get());
    ::AlphaBlend(dc_, area.left, area.top, area.right - area.left, area.bottom - area.top, memory.get(), 0, 0,
                 picture->width, picture->height, {AC_SRC_OVER, 0, 255, AC_SRC_ALPHA});
}

}  // namespace quorel::win32
