#pragma once

#include <windows.h>

#include <cstdint>

#include "platform/win32/unique.h"

namespace quorel::win32 {

/// The activation context made from the manifest in the module's resource 2, which asks for the themed common
/// controls. A host's process may have no such manifest, so the module brings its own. Without the resource
/// the process's own controls are used.
class ControlsContext {
  public:
    explicit ControlsContext(HINSTANCE module);
    ~ControlsContext();
    ControlsContext(const ControlsContext&) = delete;
    ControlsContext& operator=(const ControlsContext&) = delete;

    [[nodiscard]] bool isThemed() const noexcept { return handle_ != nullptr; }

  private:
    friend class NativeScope;
    HANDLE handle_ = nullptr;
};

/// Held while windows are made, changed or served from the outside: the thread is per-monitor DPI aware and
/// the module's controls are in force. What the caller had comes back at the end.
class NativeScope {
  public:
    explicit NativeScope(const ControlsContext& controls) noexcept;
    ~NativeScope();
    NativeScope(const NativeScope&) = delete;
    NativeScope& operator=(const NativeScope&) = delete;

  private:
    HANDLE dpiBefore_ = nullptr;
    ULONG_PTR cookie_ = 0;
    bool active_ = false;
};

/// Dots per inch of the window's monitor as the window sees it.
[[nodiscard]] std::int32_t dpiOf(HWND window) noexcept;
/// Dots per inch of the primary screen, which positions on the desktop are measured by.
[[nodiscard]] std::int32_t primaryDpi() noexcept;
/// The outer rectangle of a window whose client area is `client`.
void growToWindow(RECT& client, DWORD style, DWORD extendedStyle, bool menu, std::int32_t dpi) noexcept;
/// The font of message boxes at that resolution.
[[nodiscard]] LOGFONTW messageFont(std::int32_t dpi) noexcept;

}  // namespace quorel::win32
