#include "platform/ui/drawing_export.h"

#include <algorithm>
#include <cmath>

namespace quorel::ui {

double exportResolution(Size drawing, std::int32_t dpi) noexcept {
    const double width = std::max(drawing.width.value, 1), height = std::max(drawing.height.value, 1);
    const double bySide = DrawingExport::kMostPixelsASide / std::max(width, height);
    const double byArea = std::sqrt(static_cast<double>(DrawingExport::kMostPixels) / width / height);
    return std::min<double>(dpi, std::min(bySide, byArea) * kTwipsPerInch);
}

}  // namespace quorel::ui
