#include "platform/win32/ui/drawing_tools.h"

#include "platform/win32/text.h"
#include "platform/win32/ui/native_scope.h"
#include "platform/win32/ui/pictures.h"

namespace quorel::win32 {

namespace {
constexpr int kPointsPerInch = 72;
}

int lineHeight(HFONT font) noexcept {
    const MemoryDc dc(::CreateCompatibleDC(nullptr));
    const SelectScope selected(dc.get(), font);
    TEXTMETRICW metrics{};
    ::GetTextMetricsW(dc.get(), &metrics);
    return metrics.tmHeight;
}

HFONT DrawingTools::font(std::int32_t dpi, bool bold) {
    LOGFONTW wanted = messageFont(dpi);
    if (bold)
        wanted.lfWeight = FW_BOLD;
    return made(wanted);
}

HFONT DrawingTools::font(std::int32_t dpi, const ui::Font& wanted) {
    LOGFONTW font = messageFont(dpi);
    if (wanted.bold)
        font.lfWeight = FW_BOLD;
    if (wanted.points > 0)
        font.lfHeight = -::MulDiv(wanted.points, dpi, kPointsPerInch);
    if (!wanted.family.empty())
        ::lstrcpynW(font.lfFaceName, wide(wanted.family), LF_FACESIZE);
    return made(font);
}

HFONT DrawingTools::made(const LOGFONTW& wanted) {
    const std::string key(reinterpret_cast<const char*>(&wanted), sizeof(wanted));
    const std::lock_guard lock(mutex_);
    CountedFont& font = fonts_[key];
    if (!font)
        font = counted<CountedFont>(::CreateFontIndirectW(&wanted), Counted::GdiObject);
    return font.get();
}

HBRUSH DrawingTools::brush(ui::Colour colour) {
    const COLORREF wanted = toColorRef(colour);
    const std::lock_guard lock(mutex_);
    CountedBrush& brush = brushes_[wanted];
    if (!brush)
        brush = counted<CountedBrush>(::CreateSolidBrush(wanted), Counted::GdiObject);
    return brush.get();
}

}  // namespace quorel::win32
