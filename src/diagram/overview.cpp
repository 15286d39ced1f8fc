#include "diagram/overview.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <utility>

#include "diagram/palette.h"

namespace quorel::diagram {

namespace {

using ui::Rect;
using ui::Twips;
using namespace ui::literals;

constexpr ui::Size kLargest{3000_tw, 2400_tw};
constexpr Twips kSmallest = 450_tw;
constexpr Twips kFromCorner = 150_tw;

[[nodiscard]] std::int64_t length(Twips twips) noexcept {
    return twips.value;
}

}  // namespace

Rect placeOverview(ui::Size window, ui::Size drawing) noexcept {
    const std::int64_t mostWidth = std::min(length(kLargest.width), length(window.width) / 3);
    const std::int64_t mostHeight = std::min(length(kLargest.height), length(window.height) / 3);
    if (drawing.width <= 0_tw || drawing.height <= 0_tw || std::min(mostWidth, mostHeight) < kSmallest.value)
        return {};
    const std::int64_t height =
        std::min(mostHeight, mostWidth * length(drawing.height) / length(drawing.width));
    const std::int64_t width =
        std::min(mostWidth, mostHeight * length(drawing.width) / length(drawing.height));
    const auto least = static_cast<std::int64_t>(kSmallest.value);
    const Twips right{static_cast<std::int32_t>(std::max(width, least))};
    const Twips bottom{static_cast<std::int32_t>(std::max(height, least))};
    return {window.width - kFromCorner - right, window.height - kFromCorner - bottom, right, bottom};
}

Overview::Overview(std::u16string_view name) : DrawingArea(name) {
    setText(u"Overview");
    setTabStop(false);
    setRaised(true);
    setBackground(palette::kPaper);
    setPointerShape(ui::PointerShape::Hand);
    setPainter([this](ui::Canvas& canvas, const Rect& dirty) { paint(canvas, dirty); });
    onMouseDown.connect([this](const ui::MouseEvent& event) {
        if (event.button == ui::MouseButton::Left)
            mouseIsAt(event.at);
    });
    onMouseMove.connect([this](const ui::MouseEvent& event) {
        if (holdsMouse() && event.button == ui::MouseButton::Left)
            mouseIsAt(event.at);
    });
}

void Overview::show(const Rect& extent, const Rect& seen) {
    const Rect before = frame();
    const bool isOther = std::exchange(extent_, extent) != extent;
    seen_ = seen;
    if (isOther)
        return invalidate();
    for (Rect each : {before, frame()}) {
        each = {each.left - palette::kPixel * 2, each.top - palette::kPixel * 2,
                each.width + palette::kPixel * 4, each.height + palette::kPixel * 4};
        invalidate(each);
    }
}

ViewState Overview::whole() const noexcept {
    ViewState view;
    view.setExtent(extent_);
    view.setWindow(bounds().size());
    view.fit();
    return view;
}

Rect Overview::frame() const noexcept {
    if (std::min(bounds().width, bounds().height) < kSmallest)
        return {};
    const Rect all = whole().toWindow(seen_);
    // Its edges stay in sight.
    const Twips left = std::clamp(all.left, 0_tw, bounds().width - palette::kPixel * 3);
    const Twips top = std::clamp(all.top, 0_tw, bounds().height - palette::kPixel * 3);
    const Twips right = std::clamp(all.right(), left + palette::kPixel * 2, bounds().width - palette::kPixel);
    const Twips bottom =
        std::clamp(all.bottom(), top + palette::kPixel * 2, bounds().height - palette::kPixel);
    return {left, top, right - left, bottom - top};
}

void Overview::paint(ui::Canvas& canvas, const Rect& dirty) const {
    canvas.fillRectangle(dirty, palette::kPaper);
    if (paintBoxes_) {
        const ui::CanvasView view = whole().canvasView(dirty);
        canvas.setView(view);
        paintBoxes_(canvas, {static_cast<std::int32_t>(std::ceil(palette::kPixel.value / view.scale))});
    }
    canvas.setView({dirty, {dirty.left, dirty.top}, 1});
    canvas.drawRectangle({0_tw, 0_tw, bounds().width - palette::kPixel, bounds().height - palette::kPixel},
                         {palette::kBorder, palette::kPixel});
    canvas.drawRectangle(frame(), {palette::kAccent, palette::kPixel * 2});
}

void Overview::mouseIsAt(ui::Point at) {
    onWanted.raise(toDrawing(at));
}

}  // namespace quorel::diagram
