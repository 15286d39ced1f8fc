#pragma once

#include <cstddef>

#include "platform/ui/colour.h"
#include "platform/win32/ui/drawing_tools.h"
#include "platform/win32/ui/pictures.h"
#include "platform/win32/ui/system_headers.h"

namespace quorel::win32::testing {

/// What a window paints, without a screen.
class Snapshot {
  public:
    explicit Snapshot(HWND window) : dc_(::CreateCompatibleDC(nullptr)) {
        ::GetClientRect(window, &client_);
        BITMAPINFO info{};
        info.bmiHeader.biSize = sizeof(info.bmiHeader);
        info.bmiHeader.biWidth = client_.right;
        info.bmiHeader.biHeight = -client_.bottom;
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = 32;
        void* bits = nullptr;
        bitmap_ = counted<CountedBitmap>(
            ::CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0), Counted::GdiObject);
        selected_ = ::SelectObject(dc_.get(), bitmap_.get());
        ::SendMessageW(window, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(dc_.get()), PRF_CLIENT);
        ::GdiFlush();
    }
    ~Snapshot() { ::SelectObject(dc_.get(), selected_); }
    Snapshot(const Snapshot&) = delete;
    Snapshot& operator=(const Snapshot&) = delete;

    [[nodiscard]] ui::Colour at(LONG x, LONG y) const { return toColour(::GetPixel(dc_.get(), x, y)); }
    [[nodiscard]] std::size_t count(ui::Colour colour) const { return count(colour, client_); }
    [[nodiscard]] std::size_t count(ui::Colour colour, const RECT& area) const {
        std::size_t found = 0;
        for (LONG y = area.top; y < area.bottom; ++y)
            for (LONG x = area.left; x < area.right; ++x)
                found += at(x, y) == colour ? 1U : 0U;
        return found;
    }

  private:
    MemoryDc dc_;
    CountedBitmap bitmap_;
    HGDIOBJ selected_ = nullptr;
    RECT client_{};
};

}  // namespace quorel::win32::testing
