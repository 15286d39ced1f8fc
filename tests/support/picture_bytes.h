#pragma once

// Picture files made in memory, for those who read them.

#include <cstdint>
#include <filesystem>
#include <string_view>
#include <vector>

namespace quorel::testing {

using Bytes = std::vector<std::uint8_t>;

/// Opaque pictures of one colour.
[[nodiscard]] Bytes pngBytes(std::uint32_t width, std::uint32_t height, std::uint8_t red, std::uint8_t green,
                             std::uint8_t blue);
[[nodiscard]] Bytes bmpBytes(std::int32_t width, std::int32_t height, std::uint8_t red, std::uint8_t green,
                             std::uint8_t blue);
/// As near to the colour as the format comes.
[[nodiscard]] Bytes jpegBytes(std::uint32_t width, std::uint32_t height, std::uint8_t red, std::uint8_t green,
                              std::uint8_t blue);
/// Two pixels: a black one and a white one.
[[nodiscard]] Bytes gifBytes();
/// A square of 16 pixels in red and, as a PNG inside, one of 32 in green.
[[nodiscard]] Bytes iconBytes();
/// A placeable metafile of 48 by 32 pixels: its left half is a red rectangle without an edge.
[[nodiscard]] Bytes metafileBytes();
/// An enhanced metafile of 96 by 96 pixels: a green square.
[[nodiscard]] Bytes enhancedMetafileBytes();

/// Overwrites four bytes, the lowest first.
void poke(Bytes& bytes, std::size_t at, std::uint32_t value);

/// A file in the folder for such, gone at the end.
class PictureOnDisk {
  public:
    PictureOnDisk(std::string_view name, const Bytes& bytes);
    ~PictureOnDisk();
    PictureOnDisk(const PictureOnDisk&) = delete;
    PictureOnDisk& operator=(const PictureOnDisk&) = delete;
    [[nodiscard]] std::u16string path() const { return file_.u16string(); }

  private:
    std::filesystem::path file_;
};

}  // namespace quorel::testing
