#pragma once

#include <cstdint>

#include "platform/ui/image_list.h"
#include "platform/win32/ui/live_counts.h"
#include "platform/win32/ui/system_headers.h"

namespace quorel::win32 {

inline void destroyImageList(HIMAGELIST list) noexcept {
    ::ImageList_Destroy(list);
    countGone(Counted::GdiObject);
}
using NativeImages = Unique<HIMAGELIST, destroyImageList>;

/// The pictures of `images` at that resolution, each at its place; one without pixels shows nothing. They are
/// at least `height` pixels high, with the picture in the middle.
[[nodiscard]] NativeImages makeNativeImages(const ui::ImageList& images, std::int32_t dpi, int height = 0);

/// A box and a checked one, as they look on that ground.
[[nodiscard]] NativeImages makeCheckImages(HWND window, std::int32_t dpi, COLORREF ground);

/// Of no picture, to give lines that height.
[[nodiscard]] NativeImages makeSpacer(int height);

}  // namespace quorel::win32
