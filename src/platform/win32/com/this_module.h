#pragma once

#include <windows.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace quorel::win32 {

/// The DLL or program that this code is linked into.
[[nodiscard]] HMODULE thisModule() noexcept;
struct ImageRange {
    std::uintptr_t start;
    std::uintptr_t size;
};
/// Where its image lies.
extern const ImageRange thisImage;
/// Whether an address lies in its image. Asked for every object of a collection.
[[nodiscard]] inline bool isInThisModule(const void* address) noexcept {
    return reinterpret_cast<std::uintptr_t>(address) - thisImage.start < thisImage.size;
}
/// Its file name without folder and extension, e.g. u"QuorelUtility".
[[nodiscard]] std::u16string_view thisModuleName();
/// The folder that it lies in, without a separator at the end.
[[nodiscard]] std::u16string thisModuleFolder();
/// Its whole path.
[[nodiscard]] std::wstring thisModulePath();

}  // namespace quorel::win32
