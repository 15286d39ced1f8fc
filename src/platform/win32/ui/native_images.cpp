#include "platform/win32/ui/native_images.h"

#include <vssym32.h>

#include <algorithm>

#include "platform/win32/ui/pictures.h"
#include "platform/win32/ui/window_scopes.h"

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

NativeImages makeCheckImages(HWND window, std::int32_t dpi, COLORREF ground) {
    constexpr int kSide = 16, kEdge = 1;  // pixels at 96 dots per inch
    const int side = ::MulDiv(kSide, dpi, USER_DEFAULT_SCREEN_DPI);
    const int edge = ::MulDiv(kEdge, dpi, USER_DEFAULT_SCREEN_DPI);
    auto made = counted<NativeImages>(::ImageList_Create(side, side, ILC_COLOR24, 2, 0), Counted::GdiObject);
    const Unique<HDC, [](HDC dc) { ::ReleaseDC(nullptr, dc); }> screen(::GetDC(nullptr));
    const MemoryDc dc(::CreateCompatibleDC(screen.get()));
    const HTHEME theme = ::OpenThemeData(window, L"BUTTON");
    for (const bool checked : {false, true}) {
        const Unique<HBITMAP, deleteObject> bitmap(::CreateCompatibleBitmap(screen.get(), side, side));
        {
            const SelectScope selected(dc.get(), bitmap.get());
            const RECT whole{0, 0, side, side};
            const RECT box{edge, edge, side - edge, side - edge};
            const Unique<HBRUSH, deleteObject> brush(::CreateSolidBrush(ground));
            ::FillRect(dc.get(), &whole, brush.get());
            RECT place = box;
            if (theme != nullptr)
                ::DrawThemeBackground(theme, dc.get(), BP_CHECKBOX,
                                      checked ? CBS_CHECKEDNORMAL : CBS_UNCHECKEDNORMAL, &box, nullptr);
            else
                ::DrawFrameControl(dc.get(), &place, DFC_BUTTON,
                                   DFCS_BUTTONCHECK | DFCS_FLAT | (checked ? DFCS_CHECKED : 0U));
        }
        ::ImageList_Add(made.get(), bitmap.get(), nullptr);
    }
    if (theme != nullptr)
        ::CloseThemeData(theme);
    return made;
}

NativeImages makeSpacer(int height) {
    return counted<NativeImages>(::ImageList_Create(1, height, ILC_COLOR, 0, 0), Counted::GdiObject);
}

}  // namespace quorel::win32
