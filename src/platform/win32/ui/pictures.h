#pragma once

#include <windows.h>

#include "platform/ui/picture.h"
#include "platform/win32/ui/live_counts.h"

namespace quorel::win32 {

/// A bitmap with premultiplied alpha, for `blend`. Empty when the picture is empty or its bytes do not fit
/// its size.
[[nodiscard]] CountedBitmap makeBitmap(const ui::Picture& picture);
/// An icon with the picture's transparency, under the same terms.
[[nodiscard]] CountedIcon makeIcon(const ui::Picture& picture);

/// Draws a bitmap of `makeBitmap` over what is there.
void blend(HDC dc, HBITMAP bitmap, SIZE size, POINT at) noexcept;

inline void deleteMetafile(HENHMETAFILE file) noexcept {
    ::DeleteEnhMetaFile(file);
}
using EnhancedMetafile = Unique<HENHMETAFILE, deleteMetafile>;

/// BeginPaint and EndPaint.
class PaintScope {
  public:
    explicit PaintScope(HWND window) noexcept : window_(window), dc_(::BeginPaint(window, &paint_)) {}
    ~PaintScope() { ::EndPaint(window_, &paint_); }
    PaintScope(const PaintScope&) = delete;
    PaintScope& operator=(const PaintScope&) = delete;
    [[nodiscard]] HDC dc() const noexcept { return dc_; }
    [[nodiscard]] const RECT& dirty() const noexcept { return paint_.rcPaint; }

  private:
    HWND window_;
    PAINTSTRUCT paint_{};
    HDC dc_;
};

/// Selects an object and restores what was there.
class SelectScope {
  public:
    SelectScope(HDC dc, HGDIOBJ object) noexcept : dc_(dc), before_(::SelectObject(dc, object)) {}
    ~SelectScope() { ::SelectObject(dc_, before_); }
    SelectScope(const SelectScope&) = delete;
    SelectScope& operator=(const SelectScope&) = delete;

  private:
    HDC dc_;
    HGDIOBJ before_;
};

inline void deleteDc(HDC dc) noexcept {
    ::DeleteDC(dc);
}
using MemoryDc = Unique<HDC, deleteDc>;

/// A drawing surface in memory that is copied to `target` at the end, so that nothing flickers.
class OffScreen {
  public:
    OffScreen(HDC target, const RECT& area);
    ~OffScreen();
    OffScreen(const OffScreen&) = delete;
    OffScreen& operator=(const OffScreen&) = delete;
    [[nodiscard]] HDC dc() const noexcept { return dc_.get(); }

  private:
    HDC target_;
    RECT area_;
    MemoryDc dc_;
    CountedBitmap bitmap_;
    HGDIOBJ before_;
};

}  // namespace quorel::win32
