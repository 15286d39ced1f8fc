#include "platform/win32/ui/native_images.h"

#include <algorithm>

#include "platform/win32/ui/pictures.h"

namespace quorel::win32 {

namespace {

constexpr int kGrowth = 16;

[[nodiscard]] std::size_t bytesOf(std::int32_t width, std::int32_t height) noexcept {
    return static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 4;
}

/// In the middle of an area of that size.
[[nodiscard]] ui::Picture framed(const ui::Picture& picture, SIZE size) {
    ui::Picture whole{size.cx, size.cy, std::vector<std::uint8_t>(bytesOf(size.cx, size.cy))};
    const auto above = bytesOf(size.cx, (size.cy - picture.height) / 2);
    if (picture.width == size.cx && picture.height <= size.cy)
        std::copy(picture.rgba.begin(), picture.rgba.end(),
                  whole.rgba.begin() + static_cast<std::ptrdiff_t>(above));
    return whole;
}

}  // namespace

NativeImages makeNativeImages(const ui::ImageList& images, std::int32_t dpi, int height) {
    const SIZE size{std::max(1, toPixels(images.size().width, dpi)),
                    std::max({1, toPixels(images.size().height, dpi), height})};
    auto made = counted<NativeImages>(::ImageList_Create(size.cx, size.cy, ILC_COLOR32 | ILC_MASK,
                                                         static_cast<int>(images.count()), kGrowth),
                                      Counted::GdiObject);
    for (std::size_t place = 0; place < images.count(); ++place)
        ::ImageList_ReplaceIcon(made.get(), -1, makeIcon(framed(images.at(place, dpi), size)).get());
    return made;
}

NativeImages makeSpacer(int height) {
    return counted<NativeImages>(::ImageList_Create(1, height, ILC_COLOR, 0, 0), Counted::GdiObject);
}

}  // namespace quorel::win32
