#include <algorithm>
#include <cstdlib>

#include "platform/win32/ui/picture_decoder.h"
#include "platform/win32/ui/pictures.h"

namespace quorel::win32 {

namespace {

constexpr std::size_t kPlaceableHeader = 22;
constexpr std::uint8_t kPlaceableMagic = 0xD7;

/// An old one becomes a new one of that size.
[[nodiscard]] EnhancedMetafile opened(const ui::PictureFile& file, ui::PixelSize size) {
    const auto length = static_cast<UINT>(file.bytes.size());
    if (file.kind == ui::PictureKind::EnhancedMetafile)
        return EnhancedMetafile(::SetEnhMetaFileBits(length, file.bytes.data()));
    const std::size_t header = file.bytes[0] == kPlaceableMagic ? kPlaceableHeader : 0;
    METAFILEPICT place{};
    place.mm = MM_ANISOTROPIC;
    place.xExt = ::MulDiv(size.width, 2540, 96);
    place.yExt = ::MulDiv(size.height, 2540, 96);
    const HDC screen = ::GetDC(nullptr);
    EnhancedMetafile made(
        ::SetWinMetaFileBits(length - static_cast<UINT>(header), file.bytes.data() + header, screen, &place));
    ::ReleaseDC(nullptr, screen);
    return made;
}

/// A surface to draw on, and its pixels.
class Canvas {
  public:
    Canvas(ui::PixelSize size, std::uint8_t ground) : size_(size), dc_(::CreateCompatibleDC(nullptr)) {
        BITMAPINFO info{};
        info.bmiHeader.biSize = sizeof(info.bmiHeader);
        info.bmiHeader.biWidth = size.width;
        info.bmiHeader.biHeight = -size.height;
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = 32;
        void* bits = nullptr;
        bitmap_ = counted<CountedBitmap>(
            ::CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0), Counted::GdiObject);
        pixels_ = static_cast<std::uint8_t*>(bits);
        if (pixels_ != nullptr)
            std::fill_n(pixels_, length(), ground);
    }
    /// False when the system cannot play it.
    [[nodiscard]] bool play(HENHMETAFILE file) const {
        if (pixels_ == nullptr)
            return false;
        const SelectScope selected(dc_.get(), bitmap_.get());
        const RECT area{0, 0, size_.width, size_.height};
        const bool played = ::PlayEnhMetaFile(dc_.get(), file, &area) != FALSE;
        ::GdiFlush();
        return played;
    }
    [[nodiscard]] std::size_t length() const noexcept {
        return static_cast<std::size_t>(size_.width) * static_cast<std::size_t>(size_.height) * 4;
    }
    [[nodiscard]] std::uint8_t at(std::size_t index) const noexcept { return pixels_[index]; }

  private:
    ui::PixelSize size_;
    MemoryDc dc_;
    CountedBitmap bitmap_;
    std::uint8_t* pixels_ = nullptr;
};

}  // namespace

/// Drawn on black and on white: where both come out alike it covers the ground, where they differ by all
/// there is, it does not.
ui::Picture drawMetafile(const ui::PictureFile& file, ui::PixelSize size) {
    const EnhancedMetafile metafile = opened(file, size);
    const Canvas black(size, 0), white(size, 255);
    if (!metafile || !black.play(metafile.get()) || !white.play(metafile.get()))
        return {};
    ui::Picture picture{size.width, size.height, {}};
    picture.rgba.resize(black.length());
    for (std::size_t i = 0; i < picture.rgba.size(); i += 4) {
        int alpha = 255;
        for (std::size_t channel = 0; channel < 3; ++channel)
            alpha = std::min(alpha, 255 - std::abs(white.at(i + channel) - black.at(i + channel)));
        for (std::size_t channel = 0; channel < 3; ++channel)
            picture.rgba[i + channel] =
                alpha == 0
                    ? std::uint8_t{0}
                    : static_cast<std::uint8_t>(std::min(255, black.at(i + 2 - channel) * 255 / alpha));
        picture.rgba[i + 3] = static_cast<std::uint8_t>(alpha);
    }
    return picture;
}

}  // namespace quorel::win32
