#pragma once

#include <windows.h>

#include <string>
#include <string_view>

namespace quorel::win32 {

/// The DLL or program that this code is linked into.
[[nodiscard]] HMODULE thisModule() noexcept;
/// Whether an address lies in its image.
[[nodiscard]] bool isInThisModule(const void* address) noexcept;
/// Its file name without folder and extension, e.g. u"QuorelUtility".
[[nodiscard]] std::u16string_view thisModuleName();
/// Its whole path.
[[nodiscard]] std::wstring thisModulePath();

}  // namespace quorel::win32
