#pragma once

#include <windows.h>

#include <utility>

namespace quorel::win32 {

/// Owns one handle and closes it with `Close`, a function that takes a `Handle`. A value-initialised handle
/// (null, 0) means "none". Handles whose "none" is INVALID_HANDLE_VALUE go through `fromFile`.
template <class Handle, auto Close>
class Unique {
  public:
    Unique() noexcept = default;
    explicit Unique(Handle handle) noexcept : handle_(handle) {}
    Unique(Unique&& other) noexcept : handle_(other.release()) {}
    Unique& operator=(Unique&& other) noexcept {
        if (this != &other)
            reset(other.release());
        return *this;
    }
    Unique(const Unique&) = delete;
    Unique& operator=(const Unique&) = delete;
    ~Unique() { reset(); }

    [[nodiscard]] Handle get() const noexcept { return handle_; }
    [[nodiscard]] explicit operator bool() const noexcept { return handle_ != Handle{}; }
    [[nodiscard]] Handle operator->() const noexcept { return handle_; }
    [[nodiscard]] Handle release() noexcept { return std::exchange(handle_, Handle{}); }
    void reset(Handle handle = Handle{}) noexcept {
        if (const Handle old = std::exchange(handle_, handle); old != Handle{})
            Close(old);
    }
    /// For functions that return a handle through a pointer; closes what is held first.
    [[nodiscard]] Handle* out() noexcept {
        reset();
        return &handle_;
    }

  private:
    Handle handle_{};
};

inline void closeKernelHandle(HANDLE handle) noexcept {
    ::CloseHandle(handle);
}
inline void freeModule(HMODULE module) noexcept {
    ::FreeLibrary(module);
}
inline void closeKey(HKEY key) noexcept {
    ::RegCloseKey(key);
}
inline void freeGlobal(HGLOBAL memory) noexcept {
    ::GlobalFree(memory);
}
inline void deleteObject(HGDIOBJ object) noexcept {
    ::DeleteObject(object);
}
inline void destroyMenu(HMENU menu) noexcept {
    ::DestroyMenu(menu);
}

/// A kernel handle from a function that reports failure as INVALID_HANDLE_VALUE.
[[nodiscard]] inline HANDLE fromFile(HANDLE handle) noexcept {
    return handle == INVALID_HANDLE_VALUE ? nullptr : handle;
}

using KernelHandle = Unique<HANDLE, closeKernelHandle>;
using ModuleHandle = Unique<HMODULE, freeModule>;
using RegistryKey = Unique<HKEY, closeKey>;
using BitmapHandle = Unique<HBITMAP, deleteObject>;
using BrushHandle = Unique<HBRUSH, deleteObject>;
using FontHandle = Unique<HFONT, deleteObject>;
using MenuHandle = Unique<HMENU, destroyMenu>;
using GlobalMemory = Unique<HGLOBAL, freeGlobal>;

}  // namespace quorel::win32
