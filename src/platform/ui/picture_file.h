#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace quorel::ui {

/// The kinds of picture files that can be shown, told by their content, whatever their name. A
/// cursor is an icon.
enum class PictureKind : std::uint8_t { Bitmap, Icon, Png, Gif, Jpeg, Metafile, EnhancedMetafile };

struct PixelSize {
    std::int32_t width = 0;
    std::int32_t height = 0;
    friend constexpr bool operator==(PixelSize, PixelSize) = default;
};

/// A file that was found sound as far as that can be told without making pixels: its kind, the sizes that it
/// announces, one for each picture in it, and its content. What a metafile measures is its size at 96 dots
/// per inch.
struct PictureFile {
    PictureKind kind = PictureKind::Bitmap;
    std::vector<PixelSize> frames;
    std::vector<std::uint8_t> bytes;
};

/// A picture that announces more pixels, or a side that is longer, is refused before memory is taken for it.
inline constexpr std::int64_t kMostPicturePixels = 64'000'000;
inline constexpr std::int32_t kLongestPictureSide = 1 << 14;
/// So is a longer file.
inline constexpr std::uint64_t kLongestPictureFile = 256U << 20U;

/// Reads a file. Throws `automation::Error` 53 when there is no such file, 75 when it cannot be read, and 481
/// when it is no picture, too large or damaged; each description names the file.
[[nodiscard]] PictureFile readPictureFile(std::u16string_view path);

/// The same for a content at hand; `path` is for descriptions.
[[nodiscard]] PictureFile checkPictureFile(std::vector<std::uint8_t> bytes, std::u16string_view path);

/// Throws `automation::Error` 481 that names the file and says what is wrong with it.
[[noreturn]] void refusePicture(std::u16string_view path, std::u16string_view why);

}  // namespace quorel::ui
