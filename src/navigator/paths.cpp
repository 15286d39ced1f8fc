#include "navigator/paths.h"

#include <filesystem>

#include "platform/automation/text.h"
#include "repository/sqlite/file_check.h"

namespace quorel::navigator {

using repository::sqlite::pathOf;

namespace {

[[nodiscard]] std::size_t lastSeparator(const std::u16string& path) noexcept {
    return path.find_last_of(u"\\/");
}

/// The length of the path without its extension.
[[nodiscard]] std::size_t lengthOfStem(const std::u16string& path) noexcept {
    const std::size_t separator = lastSeparator(path);
    const std::size_t begin = separator == std::u16string::npos ? 0 : separator + 1;
    const std::size_t dot = path.rfind(u'.');
    return dot == std::u16string::npos || dot <= begin ? path.size() : dot;
}

}  // namespace

std::u16string joinPath(const std::u16string& folder, std::u16string_view name) {
    return (pathOf(folder) / pathOf(std::u16string(name))).u16string();
}

std::u16string fileNameOf(const std::u16string& path) {
    const std::size_t at = lastSeparator(path);
    return at == std::u16string::npos ? path : path.substr(at + 1);
}

std::u16string folderOf(const std::u16string& path) {
    const std::size_t at = lastSeparator(path);
    return at == std::u16string::npos ? std::u16string() : path.substr(0, at);
}

std::u16string withExtension(const std::u16string& path, std::u16string_view extension) {
    return path.substr(0, lengthOfStem(path)).append(extension);
}

bool hasExtension(const std::u16string& path, std::u16string_view extension) {
    return automation::equalsIgnoringCase(std::u16string_view(path).substr(lengthOfStem(path)), extension);
}

bool fileExists(const std::u16string& path) {
    std::error_code ignored;
    return !path.empty() && std::filesystem::exists(pathOf(path), ignored);
}

bool isSameFile(const std::u16string& a, const std::u16string& b) {
    std::error_code failed;
    const bool same = std::filesystem::equivalent(pathOf(a), pathOf(b), failed);
    return failed ? automation::equalsIgnoringCase(a, b) : same;
}

}  // namespace quorel::navigator
