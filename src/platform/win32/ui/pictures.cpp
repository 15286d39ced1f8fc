#include "platform/win32/ui/pictures.h"

#include <cstddef>

namespace quorel::win32 {

namespace {

[[nodiscard]] BITMAPINFO topDown32(LONG width, LONG height) noexcept {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof(info.bmiHeader);
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = -height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    return info;
}

/// Icons take plain alpha, blending takes premultiplied.
[[nodiscard]] CountedBitmap make(const ui::Picture& picture, bool premultiply) {
    if (!isWhole(picture))
        return {};
    const BITMAPINFO info = topDown32(picture.width, picture.height);
    void* bits = nullptr;
    auto bitmap = counted<CountedBitmap>(
        ::CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0), Counted::GdiObject);
    if (!bitmap)
        return {};
    auto* to = static_cast<std::uint8_t*>(bits);
    for (std::size_t i = 0; i < picture.rgba.size(); i += 4) {
        const unsigned alpha = picture.rgba[i + 3];
        for (std::size_t channel = 0; channel < 3; ++channel) {
            const unsigned value = picture.rgba[i + 2 - channel];
            to[i + channel] = static_cast<std::uint8_t>(premultiply ? (value * alpha + 127) / 255 : value);
        }
        to[i + 3] = static_cast<std::uint8_t>(alpha);
    }
    return bitmap;
}

}  // namespace

CountedBitmap makeBitmap(const ui::Picture& picture) {
    return make(picture, true);
}

CountedIcon makeIcon(const ui::Picture& picture) {
    const CountedBitmap colour = make(picture, false);
    if (!colour)
        return {};
    const std::vector<std::uint8_t> nothing(static_cast<std::size_t>((picture.width + 15) / 16 * 2) *
                                            static_cast<std::size_t>(picture.height));
    const auto mask = counted<CountedBitmap>(
        ::CreateBitmap(picture.width, picture.height, 1, 1, nothing.data()), Counted::GdiObject);
    ICONINFO info{};
    info.fIcon = TRUE;
    info.hbmColor = colour.get();
    info.hbmMask = mask.get();
    return counted<CountedIcon>(::CreateIconIndirect(&info), Counted::GdiObject);
}

void blend(HDC dc, HBITMAP bitmap, SIZE size, POINT at) noexcept {
    const MemoryDc memory(::CreateCompatibleDC(dc));
    const SelectScope selected(memory.get(), bitmap);
    const BLENDFUNCTION over{AC_SRC_OVER, 0, 255, AC_SRC_ALPHA};
    ::AlphaBlend(dc, at.x, at.y, size.cx, size.cy, memory.get(), 0, 0, size.cx, size.cy, over);
}

OffScreen::OffScreen(HDC target, const RECT& area)
    : target_(target),
      area_(area),
      dc_(::CreateCompatibleDC(target)),
      bitmap_(counted<CountedBitmap>(
          ::CreateCompatibleBitmap(target, area.right - area.left, area.bottom - area.top),
          Counted::GdiObject)),
      before_(::SelectObject(dc_.get(), bitmap_.get())) {
    ::SetViewportOrgEx(dc_.get(), -area.left, -area.top, nullptr);
}

OffScreen::~OffScreen() {
    ::BitBlt(target_, area_.left, area_.top, area_.right - area_.left, area_.bottom - area_.top, dc_.get(),
             area_.left, area_.top, SRCCOPY);
    ::SelectObject(dc_.get(), before_);
}

}  // namespace quorel::win32
