#pragma once

#include <oaidl.h>
#include <windows.h>

#include <string_view>
#include <utility>

#include "platform/win32/text.h"
#include "platform/win32/unique.h"

namespace quorel::win32 {

/// A counting pointer to an interface.
template <class Interface>
class ComPtr {
  public:
    ComPtr() noexcept = default;
    ComPtr(std::nullptr_t) noexcept {}  // NOLINT(google-explicit-constructor)
    /// Adds a count.
    explicit ComPtr(Interface* pointer) noexcept : pointer_(pointer) {
        if (pointer_ != nullptr)
            pointer_->AddRef();
    }
    ComPtr(const ComPtr& other) noexcept : ComPtr(other.pointer_) {}
    ComPtr(ComPtr&& other) noexcept : pointer_(other.detach()) {}
    ComPtr& operator=(ComPtr other) noexcept {
        std::swap(pointer_, other.pointer_);
        return *this;
    }
    ~ComPtr() { reset(); }

    /// Takes over a count that the caller holds.
    [[nodiscard]] static ComPtr adopt(Interface* pointer) noexcept {
        ComPtr result;
        result.pointer_ = pointer;
        return result;
    }
    void reset() noexcept {
        if (Interface* pointer = std::exchange(pointer_, nullptr))
            pointer->Release();
    }
    [[nodiscard]] Interface* get() const noexcept { return pointer_; }
    [[nodiscard]] Interface* detach() noexcept { return std::exchange(pointer_, nullptr); }
    /// For functions that return an interface through a pointer; drops what is held first.
    [[nodiscard]] Interface** out() noexcept {
        reset();
        return &pointer_;
    }
    [[nodiscard]] void** outVoid() noexcept { return reinterpret_cast<void**>(out()); }
    Interface* operator->() const noexcept { return pointer_; }
    explicit operator bool() const noexcept { return pointer_ != nullptr; }

    /// Null when the object does not have the interface.
    template <class Other>
    [[nodiscard]] ComPtr<Other> as() const noexcept {
        ComPtr<Other> result;
        if (pointer_ != nullptr && FAILED(pointer_->QueryInterface(__uuidof(Other), result.outVoid())))
            return {};
        return result;
    }

  private:
    Interface* pointer_ = nullptr;
};

inline void freeBstr(BSTR text) noexcept {
    ::SysFreeString(text);
}
using Bstr = Unique<BSTR, freeBstr>;

/// Throws std::bad_alloc when there is no memory.
[[nodiscard]] Bstr makeBstr(std::u16string_view text);

/// Empty for a null string. The size in bytes stands before the characters, as it is documented for every
/// such string; reading it here spares a call for each cell of a list.
[[nodiscard]] inline std::u16string_view viewOf(BSTR text) noexcept {
    if (text == nullptr)
        return {};
    return narrowView(text, reinterpret_cast<const UINT*>(text)[-1] / sizeof(wchar_t));
}

/// A VARIANT that frees what it holds.
class Variant {
  public:
    Variant() noexcept = default;
    Variant(Variant&& other) noexcept : variant_(other.release()) {}
    Variant& operator=(Variant&& other) noexcept {
        std::swap(variant_, other.variant_);
        return *this;
    }
    Variant(const Variant&) = delete;
    Variant& operator=(const Variant&) = delete;
    ~Variant() { clear(); }

    void clear() noexcept {
        if (V_VT(&variant_) == VT_BSTR)
            ::SysFreeString(V_BSTR(&variant_));
        else if (V_VT(&variant_) > VT_BSTR)
            ::VariantClear(&variant_);
        V_VT(&variant_) = VT_EMPTY;
    }
    [[nodiscard]] VARIANT* get() noexcept { return &variant_; }
    [[nodiscard]] const VARIANT& operator*() const noexcept { return variant_; }
    [[nodiscard]] VARIANT& operator*() noexcept { return variant_; }
    [[nodiscard]] VARIANT* out() noexcept {
        clear();
        return &variant_;
    }
    [[nodiscard]] VARIANT release() noexcept {
        const VARIANT variant = variant_;
        V_VT(&variant_) = VT_EMPTY;
        return variant;
    }

  private:
    VARIANT variant_{};
};

}  // namespace quorel::win32
