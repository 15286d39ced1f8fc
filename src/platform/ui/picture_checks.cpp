#include "platform/ui/picture_checks.h"

#include <algorithm>
#include <limits>

namespace quorel::ui {

namespace {

constexpr std::string_view kPngMagic("\x89PNG\r\n\x1a\n", 8);
constexpr std::string_view kIconMagic("\0\0\1\0", 4);
constexpr std::string_view kCursorMagic("\0\0\2\0", 4);
constexpr std::string_view kJpegMagic("\xff\xd8\xff", 3);
constexpr std::string_view kPlaceableMagic("\xd7\xcd\xc6\x9a", 4);
constexpr std::string_view kMetafileMagic("\1\0\x09\0", 4);
constexpr std::size_t kPlaceableHeader = 22;
constexpr std::size_t kMetafileHeader = 18;
constexpr std::int64_t kDotsPerInch = 96;
constexpr PixelSize kUnknownSize{64, 64};  ///< of a metafile that does not tell

/// A length that is beyond every limit stays so.
[[nodiscard]] std::int32_t limited(std::int64_t length) noexcept {
    return static_cast<std::int32_t>(
        std::clamp<std::int64_t>(length, 0, std::numeric_limits<std::int32_t>::max()));
}

}  // namespace

bool PictureBytes::startsWith(std::size_t at, std::string_view magic) const noexcept {
    return at <= bytes_.size() && bytes_.size() - at >= magic.size() &&
           std::equal(magic.begin(), magic.end(), bytes_.begin() + static_cast<std::ptrdiff_t>(at),
                      [](char a, std::uint8_t b) { return static_cast<std::uint8_t>(a) == b; });
}

void PictureBytes::require(bool sound) const {
    if (!sound)
        refusePicture(path_, u"the file is damaged");
}

/// The lowest byte first.
std::uint64_t PictureBytes::number(std::size_t at, std::size_t size) const {
    require(at <= bytes_.size() && bytes_.size() - at >= size);
    std::uint64_t value = 0;
    for (std::size_t i = size; i-- > 0;)
        value = value << 8 | bytes_[at + i];
    return value;
}

std::uint32_t PictureBytes::networkWord(std::size_t at) const {
    const std::uint32_t little = word(at);
    return little << 24 | (little & 0xFF00U) << 8 | (little >> 8 & 0xFF00U) | little >> 24;
}

std::uint32_t PictureBytes::networkHalf(std::size_t at) const {
    const std::uint32_t little = half(at);
    return (little << 8 & 0xFF00U) | little >> 8;
}

std::optional<PictureKind> PictureBytes::kind() const {
    if (startsWith(0, kPngMagic))
        return PictureKind::Png;
    if (startsWith(0, "BM"))
        return PictureKind::Bitmap;
    if (startsWith(0, "GIF87a") || startsWith(0, "GIF89a"))
        return PictureKind::Gif;
    if (startsWith(0, kJpegMagic))
        return PictureKind::Jpeg;
    if (startsWith(0, kIconMagic) || startsWith(0, kCursorMagic))
        return PictureKind::Icon;
    if (startsWith(40, " EMF"))
        return PictureKind::EnhancedMetafile;
    if (startsWith(0, kPlaceableMagic) || startsWith(0, kMetafileMagic))
        return PictureKind::Metafile;
    return std::nullopt;
}

std::vector<PixelSize> PictureBytes::frames(PictureKind kind) const {
    switch (kind) {
        case PictureKind::Png:
            return {png(0, bytes_.size())};
        case PictureKind::Bitmap:
            return {bitmap(14, word(10), bytes_.size(), false)};
        case PictureKind::Icon:
            return icons();
        case PictureKind::Gif:
            return {gif()};
        case PictureKind::Jpeg:
            return {jpeg()};
        case PictureKind::Metafile:
            return {metafile()};
        case PictureKind::EnhancedMetafile:
            return {enhancedMetafile()};
    }
    return {};
}

/// Chunk after chunk to the last.
PixelSize PictureBytes::png(std::size_t begin, std::size_t end) const {
    constexpr std::size_t kAround = 12;  // length, name, checksum
    require(startsWith(begin + kPngMagic.size() + 4, "IHDR"));
    std::size_t at = begin + kPngMagic.size();
    while (!startsWith(at + 4, "IEND")) {
        const std::size_t length = networkWord(at);
        require(length <= end && at + length + kAround <= end);
        at += length + kAround;
    }
    require(at + kAround <= end);
    return {limited(networkWord(begin + 16)), limited(networkWord(begin + 20))};
}

/// Of an icon the header tells the height of colours and mask together, and the pixels follow it.
PixelSize PictureBytes::bitmap(std::size_t header, std::size_t pixels, std::size_t end, bool icon) const {
    constexpr std::uint32_t kOldHeader = 12, kHeader = 40;
    const std::uint32_t size = word(header);
    require((size == kOldHeader && !icon) || (size >= kHeader && size <= 1024));
    const bool old = size == kOldHeader;
    const std::int64_t width = old ? half(header + 4) : signedWord(header + 4);
    const std::int64_t tall = old ? half(header + 6) : signedWord(header + 8);
    const std::int64_t height = icon ? tall / 2 : tall < 0 ? -tall : tall;
    const std::uint32_t bits = half(header + (old ? 10 : 14));
    const std::uint32_t packing = old ? 0 : word(header + 16);
    require(bits == 1 || bits == 4 || bits == 8 || bits == 16 || bits == 24 || bits == 32);
    require(packing <= 3 && pixels <= end);
    const bool run = packing == 1 || packing == 2;
    const std::int64_t line = (width * bits + 31) / 32 * 4;
    if (width > 0 && height > 0 && !run && width <= kLongestPictureSide && height <= kLongestPictureSide)
        require(line * height <= static_cast<std::int64_t>(end - pixels));
    return {limited(width), limited(height)};
}

std::vector<PixelSize> PictureBytes::icons() const {
    constexpr std::size_t kHeader = 6, kEntry = 16;
    std::vector<PixelSize> sizes;
    const std::size_t count = half(4);
    require(count > 0);
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t entry = kHeader + i * kEntry;
        const std::size_t length = word(entry + 8), begin = word(entry + 12);
        require(begin <= bytes_.size() && length <= bytes_.size() - begin && length > 0);
        if (startsWith(begin, kPngMagic)) {
            sizes.push_back(png(begin, begin + length));
            continue;
        }
        const std::size_t bits = half(begin + 14);
        const std::size_t colours = bits <= 8 ? (word(begin + 32) != 0 ? word(begin + 32) : 1U << bits) : 0;
        require(colours <= 256);
        sizes.push_back(bitmap(begin, begin + word(begin) + colours * 4, begin + length, true));
    }
    return sizes;
}

/// Block after block to the last, or to where the file ends; as large as the largest picture in it reaches.
PixelSize PictureBytes::gif() const {
    constexpr std::size_t kHeader = 13, kImage = 10;
    constexpr std::uint64_t kTable = 0x80, kEnd = 0x3B, kExtension = 0x21, kPicture = 0x2C;
    const auto tableSize = [](std::uint64_t flags) {
        return (flags & kTable) != 0 ? std::size_t{3} << ((flags & 7U) + 1) : 0;
    };
    PixelSize size{limited(half(6)), limited(half(8))};
    std::size_t at = kHeader + tableSize(number(10, 1));
    bool hasPicture = false;
    while (at < bytes_.size() && number(at, 1) != kEnd) {
        const std::uint64_t block = number(at, 1);
        require(block == kExtension || block == kPicture);
        if (block == kPicture) {
            hasPicture = true;
            size.width = std::max(size.width, limited(std::int64_t{half(at + 1)} + half(at + 5)));
            size.height = std::max(size.height, limited(std::int64_t{half(at + 3)} + half(at + 7)));
            at += kImage + tableSize(number(at + 9, 1)) + 1;
        } else {
            at += 2;
        }
        for (std::size_t length = 1; length != 0; at += length + 1)
            length = number(at, 1);
    }
    require(hasPicture);
    return size;
}

/// Segment after segment to the one that the pixels follow.
PixelSize PictureBytes::jpeg() const {
    constexpr std::uint64_t kMarker = 0xFF, kScan = 0xDA;
    const auto beginsFrame = [](std::uint64_t marker) {
        return marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
    };
    PixelSize size;
    for (std::size_t at = 2;;) {
        require(number(at, 1) == kMarker);
        const std::uint64_t marker = number(at + 1, 1);
        if (marker == kMarker) {
            ++at;
            continue;
        }
        const std::size_t length = networkHalf(at + 2);
        require(length >= 2);
        if (beginsFrame(marker))
            size = {limited(networkHalf(at + 7)), limited(networkHalf(at + 5))};
        at += length + 2;
        if (marker == kScan) {
            require(at <= bytes_.size());
            return size;
        }
    }
}

/// Record after record to the last. A placeable one has its size before the header.
PixelSize PictureBytes::metafile() const {
    const bool placeable = startsWith(0, kPlaceableMagic);
    const std::size_t header = placeable ? kPlaceableHeader : 0;
    require(startsWith(header, kMetafileMagic));
    for (std::size_t at = header + kMetafileHeader; half(at + 4) != 0;) {
        const std::size_t length = std::size_t{word(at)} * 2;
        require(length >= 6 && length <= bytes_.size() - at);
        at += length;
    }
    if (!placeable)
        return kUnknownSize;
    const auto edge = [this](std::size_t at) { return std::int64_t{static_cast<std::int16_t>(half(at))}; };
    const std::int64_t inch = half(14);
    require(inch > 0);
    const auto pixels = [inch](std::int64_t length) { return limited(length * kDotsPerInch / inch); };
    return {pixels(edge(10) - edge(6)), pixels(edge(12) - edge(8))};
}

PixelSize PictureBytes::enhancedMetafile() const {
    constexpr std::int64_t kPerInch = 2540;  // the frame is in hundredths of a millimetre
    constexpr std::uint32_t kEnd = 14;
    require(word(0) == 1);
    std::size_t at = 0;
    while (word(at) != kEnd) {
        const std::size_t length = word(at + 4);
        require(length >= 8 && length % 4 == 0 && length <= bytes_.size() - at);
        at += length;
    }
    const auto pixels = [](std::int64_t length) { return limited(length * kDotsPerInch / kPerInch); };
    return {pixels(signedWord(32) - signedWord(24)), pixels(signedWord(36) - signedWord(28))};
}

}  // namespace quorel::ui
