#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "platform/ui/picture_file.h"

namespace quorel::ui {

/// Reads what picture files say of themselves. Nothing in them is believed: whatever leads outside the
/// content is refused by `refusePicture`.
class PictureBytes {
  public:
    /// Both must outlive it; `path` is for descriptions.
    PictureBytes(const std::vector<std::uint8_t>& bytes, std::u16string_view path)
        : bytes_(bytes), path_(path) {}

    /// None when the beginning is that of no known kind.
    [[nodiscard]] std::optional<PictureKind> kind() const;
    /// The sizes of the pictures in it, not yet judged.
    [[nodiscard]] std::vector<PixelSize> frames(PictureKind kind) const;

  private:
    [[nodiscard]] bool startsWith(std::size_t at, std::string_view magic) const noexcept;
    [[nodiscard]] std::uint64_t number(std::size_t at, std::size_t size) const;
    [[nodiscard]] std::uint32_t word(std::size_t at) const {
        return static_cast<std::uint32_t>(number(at, 4));
    }
    [[nodiscard]] std::uint32_t half(std::size_t at) const {
        return static_cast<std::uint32_t>(number(at, 2));
    }
    [[nodiscard]] std::int64_t signedWord(std::size_t at) const {
        return static_cast<std::int32_t>(word(at));
    }
    [[nodiscard]] std::uint32_t networkWord(std::size_t at) const;
    [[nodiscard]] std::uint32_t networkHalf(std::size_t at) const;
    void require(bool sound) const;
    [[nodiscard]] PixelSize png(std::size_t begin, std::size_t end) const;
    [[nodiscard]] PixelSize bitmap(std::size_t header, std::size_t pixels, std::size_t end, bool icon) const;
    [[nodiscard]] std::vector<PixelSize> icons() const;
    [[nodiscard]] PixelSize gif() const;
    [[nodiscard]] PixelSize jpeg() const;
    [[nodiscard]] PixelSize metafile() const;
    [[nodiscard]] PixelSize enhancedMetafile() const;

    const std::vector<std::uint8_t>& bytes_;
    std::u16string_view path_;
};

}  // namespace quorel::ui
