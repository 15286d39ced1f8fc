#include "platform/win32/ui/canvas_tools.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "platform/win32/text.h"
#include "platform/win32/ui/native_scope.h"
#include "platform/win32/ui/native_text.h"
#include "platform/win32/ui/pictures.h"

namespace quorel::win32 {

namespace {

constexpr std::size_t kMostFonts = 128, kMostPictures = 32, kMostUnits = 4000;
/// In units of the device; a line is no higher than a mountain and no lower than a grain.
constexpr int kLowest = 2, kHighest = 20'000;
constexpr double kTwips = ui::kTwipsPerInch;

[[nodiscard]] bool isPlain(std::u16string_view line) noexcept {
    return line.size() <= kMostUnits &&
           std::all_of(line.begin(), line.end(), [](char16_t unit) { return unit >= u' '; });
}

}  // namespace

const CanvasTools::Measured& CanvasTools::measured(const ui::Font& font) {
    const auto [entry, isNew] = measured_.try_emplace({font.family, font.points, font.bold});
    Measured& found = entry->second;
    if (isNew) {
        found.dpi = primaryDpi();
        const HFONT handle = tools_.font(found.dpi, font);
        ::GetObjectW(handle, sizeof(found.font), &found.font);
        const MemoryDc dc(::CreateCompatibleDC(nullptr));
        const SelectScope selected(dc.get(), handle);
        ::GetCharWidth32W(dc.get(), kFirstKnown, kAfterKnown - 1, found.widths.data());
    }
    return found;
}

HFONT CanvasTools::fontAt(const Measured& measured, int height) {
    if (fonts_.size() >= kMostFonts && !fonts_.contains({&measured, height}))
        fonts_.clear();
    CountedFont& font = fonts_[{&measured, height}];
    if (!font) {
        LOGFONTW wanted = measured.font;
        if (height != std::abs(wanted.lfHeight))
            wanted.lfQuality = ANTIALIASED_QUALITY;
        wanted.lfHeight = -height;
        font = counted<CountedFont>(::CreateFontIndirectW(&wanted), Counted::GdiObject);
    }
    return font.get();
}

const std::vector<INT>& CanvasTools::distances(const Measured& measured, std::u16string_view line,
                                               double ratio) {
    distances_.clear();
    const bool known = std::all_of(line.begin(), line.end(), [](char16_t c) { return c < kAfterKnown; });
    if (!known || std::abs(ratio - 1) < 1e-6)
        return distances_;
    std::int64_t measuredEnd = 0;
    INT end = 0;
    for (const char16_t unit : line) {
        measuredEnd += measured.widths[static_cast<std::size_t>(unit - kFirstKnown)];
        const INT next = static_cast<INT>(std::floor(static_cast<double>(measuredEnd) * ratio + 0.5));
        distances_.push_back(next - end);
        end = next;
    }
    return distances_;
}

void CanvasTools::drawText(HDC dc, POINT at, std::u16string_view line, const ui::Font& font,
                           double unitsPerTwip, ui::Colour colour, const RECT* clip) {
    const Measured& reference = measured(font);
    const double ratio = unitsPerTwip * kTwips / reference.dpi;
    const double height = std::abs(reference.font.lfHeight) * ratio;
    if (height < kLowest || height > kHighest)
        return;
    std::u16string cleaned;
    if (!isPlain(line))
        line = cleaned = shownLine(line, kMostUnits);
    // Lone control characters that are no line ends have no width of their own.
    for (char16_t& unit : cleaned)
        unit = unit < u' ' ? u' ' : unit;
    const std::vector<INT>& apart = distances(reference, line, ratio);
    const SelectScope selected(dc, fontAt(reference, static_cast<int>(height + 0.5)));
    ::SetBkMode(dc, TRANSPARENT);
    ::SetTextColor(dc, toColorRef(colour));
    ::ExtTextOutW(dc, at.x, at.y, clip != nullptr ? ETO_CLIPPED : 0U, clip, wide(line),
                  static_cast<UINT>(line.size()), apart.empty() ? nullptr : apart.data());
}

const ui::Picture& CanvasTools::sized(const std::shared_ptr<const ui::Picture>& picture, std::int32_t width,
                                      std::int32_t height) {
    if (pictures_.size() >= kMostPictures && !pictures_.contains({picture.get(), width, height}))
        pictures_.clear();
    SizedPicture& found = pictures_[{picture.get(), width, height}];
    if (!found.original)
        found = {picture, ui::scaled(*picture, width, height)};
    return found.picture;
}

}  // namespace quorel::win32
