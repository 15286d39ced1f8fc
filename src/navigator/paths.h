#pragma once

#include <string>
#include <string_view>

namespace quorel::navigator {

[[nodiscard]] std::u16string joinPath(const std::u16string& folder, std::u16string_view name);
/// The last part of a path, and what is before it.
[[nodiscard]] std::u16string fileNameOf(const std::u16string& path);
[[nodiscard]] std::u16string folderOf(const std::u16string& path);
/// The path with another extension, which begins with its dot.
[[nodiscard]] std::u16string withExtension(const std::u16string& path, std::u16string_view extension);
/// Whatever the case of its letters.
[[nodiscard]] bool hasExtension(const std::u16string& path, std::u16string_view extension);
[[nodiscard]] bool fileExists(const std::u16string& path);
/// Two spellings of one file that is there, or of one path.
[[nodiscard]] bool isSameFile(const std::u16string& a, const std::u16string& b);

}  // namespace quorel::navigator
