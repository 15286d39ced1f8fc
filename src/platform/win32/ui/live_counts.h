#pragma once

#include <windows.h>

#include <cstdint>

#include "platform/win32/unique.h"

namespace quorel::win32 {

/// What this module holds of the system at this moment: made and not yet destroyed. The system's own figures
/// are not available everywhere, so everything that is made here is counted here.
struct LiveCounts {
    std::int64_t windows = 0;
    std::int64_t gdiObjects = 0;
    std::int64_t menus = 0;
    std::int64_t hooks = 0;
    friend constexpr bool operator==(const LiveCounts&, const LiveCounts&) = default;
};

enum class Counted : std::uint8_t { Window, GdiObject, Menu, Hook };

[[nodiscard]] LiveCounts liveCounts() noexcept;
void countMade(Counted kind) noexcept;
void countGone(Counted kind) noexcept;

/// C++ exceptions that reached a window procedure since the module was loaded; none are expected to.
[[nodiscard]] std::int64_t strayExceptions() noexcept;
void countStrayException() noexcept;

inline void closeCountedGdi(HGDIOBJ object) noexcept {
    ::DeleteObject(object);
    countGone(Counted::GdiObject);
}
inline void closeCountedIcon(HICON icon) noexcept {
    ::DestroyIcon(icon);
    countGone(Counted::GdiObject);
}
inline void closeCountedMenu(HMENU menu) noexcept {
    ::DestroyMenu(menu);
    countGone(Counted::Menu);
}
inline void closeCountedHook(HHOOK hook) noexcept {
    ::UnhookWindowsHookEx(hook);
    countGone(Counted::Hook);
}

using CountedFont = Unique<HFONT, closeCountedGdi>;
using CountedPen = Unique<HPEN, closeCountedGdi>;
using CountedBrush = Unique<HBRUSH, closeCountedGdi>;
using CountedBitmap = Unique<HBITMAP, closeCountedGdi>;
using CountedIcon = Unique<HICON, closeCountedIcon>;
using CountedMenu = Unique<HMENU, closeCountedMenu>;
using CountedHook = Unique<HHOOK, closeCountedHook>;

/// Takes over a handle that was just made and counts it: `counted<CountedFont>(CreateFont…,
/// Counted::GdiObject)`.
template <class Owner, class Handle>
[[nodiscard]] Owner counted(Handle handle, Counted kind) noexcept {
    if (handle != Handle{})
        countMade(kind);
    return Owner(handle);
}

}  // namespace quorel::win32
