#include "platform/ui/picture_file.h"

#include <filesystem>
#include <fstream>
#include <string>
#include <system_error>

#include "platform/automation/error.h"
#include "platform/ui/picture_checks.h"

namespace quorel::ui {

namespace {

constexpr std::int32_t kInvalidPicture = 481;
constexpr const char16_t* kSource = u"QuorelUtility";

[[noreturn]] void fail(std::int32_t number, std::u16string_view what, std::u16string_view path) {
    std::u16string description(what);
    description += u": ";
    description += path;
    throw automation::Error(number, description, kSource);
}

/// Nothing but a plain file: a device might never end.
[[nodiscard]] std::uint64_t sizeOf(const std::filesystem::path& file, std::u16string_view path) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(file, error))
        fail(automation::error_number::kFileNotFound, u"File not found", path);
    const std::uint64_t size = std::filesystem::file_size(file, error);
    if (error)
        fail(automation::error_number::kPathFileAccess, u"Path/File access error", path);
    if (size > kLongestPictureFile)
        refusePicture(path, u"the file is too large");
    return size;
}

}  // namespace

void refusePicture(std::u16string_view path, std::u16string_view why) {
    std::u16string description = u"Invalid picture: ";
    description += path;
    description += u" (";
    description += why;
    description += u")";
    throw automation::Error(kInvalidPicture, description, kSource);
}

PictureFile readPictureFile(std::u16string_view path) {
    if (path.empty() || path.find(u'\0') != std::u16string_view::npos)
        fail(automation::error_number::kFileNotFound, u"File not found", path);
    const std::filesystem::path file{std::u16string(path)};
    std::vector<std::uint8_t> bytes(sizeOf(file, path));
    std::ifstream stream(file, std::ios::binary);
    if (!stream.is_open() ||
        !stream.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(bytes.size())))
        fail(automation::error_number::kPathFileAccess, u"Path/File access error", path);
    return checkPictureFile(std::move(bytes), path);
}

PictureFile checkPictureFile(std::vector<std::uint8_t> bytes, std::u16string_view path) {
    const PictureBytes content(bytes, path);
    PictureFile file;
    if (const auto kind = content.kind())
        file.kind = *kind;
    else
        refusePicture(path, u"the file is of no known kind");
    file.frames = content.frames(file.kind);
    for (const PixelSize size : file.frames) {
        if (size.width <= 0 || size.height <= 0)
            refusePicture(path, u"the picture is empty");
        if (size.width > kLongestPictureSide || size.height > kLongestPictureSide ||
            std::int64_t{size.width} * size.height > kMostPicturePixels)
            refusePicture(path, u"the picture is too large");
    }
    file.bytes = std::move(bytes);
    return file;
}

}  // namespace quorel::ui
