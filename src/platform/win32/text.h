#pragma once

#include <windows.h>

#include <string>
#include <string_view>

namespace quorel::win32 {

static_assert(sizeof(wchar_t) == sizeof(char16_t), "the platform's wide characters are UTF-16 code units");

/// The platform's view of a string of ours; it lives as long as the string.
[[nodiscard]] inline const wchar_t* wide(const std::u16string& text) noexcept {
    return reinterpret_cast<const wchar_t*>(text.c_str());
}
/// Not terminated: for functions that take a length too.
[[nodiscard]] inline const wchar_t* wide(std::u16string_view text) noexcept {
    return reinterpret_cast<const wchar_t*>(text.data());
}
[[nodiscard]] inline wchar_t* wideBuffer(std::u16string& text) noexcept {
    return reinterpret_cast<wchar_t*>(text.data());
}
[[nodiscard]] inline std::u16string_view narrowView(const wchar_t* text, std::size_t length) noexcept {
    return {reinterpret_cast<const char16_t*>(text), length};
}
[[nodiscard]] inline std::u16string_view narrowView(const wchar_t* text) noexcept {
    return text == nullptr ? std::u16string_view{}
                           : std::u16string_view(reinterpret_cast<const char16_t*>(text));
}

}  // namespace quorel::win32
