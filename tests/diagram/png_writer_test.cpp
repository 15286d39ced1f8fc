#include "diagram/png_writer.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>

namespace quorel::diagram {
namespace {

using Bytes = std::vector<std::uint8_t>;

std::uint32_t numberAt(const Bytes& bytes, std::size_t at) {
    return static_cast<std::uint32_t>(bytes.at(at)) << 24 |
           static_cast<std::uint32_t>(bytes.at(at + 1)) << 16 |
           static_cast<std::uint32_t>(bytes.at(at + 2)) << 8 | bytes.at(at + 3);
}

/// Bit by bit, as the format describes it.
std::uint32_t crcOf(const Bytes& bytes, std::size_t begin, std::size_t end) {
    std::uint32_t crc = 0xFFFFFFFF;
    for (std::size_t at = begin; at < end; ++at) {
        crc ^= bytes[at];
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc >> 1) ^ ((crc & 1) != 0 ? 0xEDB88320 : 0);
    }
    return crc ^ 0xFFFFFFFF;
}

/// The contents of the chunks of that name; every chunk's sum is checked.
Bytes contentsOf(const Bytes& file, const std::string& wanted) {
    Bytes contents;
    for (std::size_t at = 8; at < file.size();) {
        const std::size_t length = numberAt(file, at);
        const std::string name(file.begin() + static_cast<std::ptrdiff_t>(at + 4),
                               file.begin() + static_cast<std::ptrdiff_t>(at + 8));
        EXPECT_EQ(numberAt(file, at + 8 + length), crcOf(file, at + 4, at + 8 + length)) << name;
        if (name == wanted)
            contents.insert(contents.end(), file.begin() + static_cast<std::ptrdiff_t>(at + 8),
                            file.begin() + static_cast<std::ptrdiff_t>(at + 8 + length));
        at += 12 + length;
    }
    return contents;
}

/// Of blocks that are stored as they are.
Bytes unpacked(const Bytes& stream) {
    EXPECT_EQ((stream.at(0) * 256 + stream.at(1)) % 31, 0);
    Bytes bytes;
    std::size_t at = 2;
    for (bool last = false; !last;) {
        last = (stream.at(at) & 1) != 0;
        EXPECT_EQ(stream.at(at) & 6, 0);
        const std::size_t length = stream.at(at + 1) + stream.at(at + 2) * 256U;
        EXPECT_EQ(length ^ 0xFFFF, stream.at(at + 3) + stream.at(at + 4) * 256U);
        for (std::size_t each = 0; each < length; ++each)
            bytes.push_back(stream.at(at + 5 + each));
        at += 5 + length;
    }
    std::uint32_t a = 1, b = 0;
    for (const std::uint8_t byte : bytes) {
        a = (a + byte) % 65521;
        b = (b + a) % 65521;
    }
    EXPECT_EQ(numberAt(stream, at), b * 65536 + a);
    EXPECT_EQ(at + 4, stream.size());
    return bytes;
}

TEST(PngFile, HoldsThePixelsAsTheyAre) {
    // More than one stored block.
    ui::Picture picture{150, 120, {}};
    for (int byte = 0; byte < 150 * 120 * 4; ++byte)
        picture.rgba.push_back(static_cast<std::uint8_t>(byte * 7 + byte / 251));
    const Bytes file = pngFile(picture);
    EXPECT_EQ(Bytes(file.begin(), file.begin() + 8), (Bytes{0x89, 'P', 'N', 'G', 13, 10, 26, 10}));
    EXPECT_EQ(contentsOf(file, "IHDR"), (Bytes{0, 0, 0, 150, 0, 0, 0, 120, 8, 6, 0, 0, 0}));
    const Bytes lines = unpacked(contentsOf(file, "IDAT"));
    ASSERT_EQ(lines.size(), 120U * 601U);
    for (std::size_t row = 0; row < 120; ++row) {
        EXPECT_EQ(lines[row * 601], 0);
        for (std::size_t byte = 0; byte < 600; ++byte)
            ASSERT_EQ(lines[row * 601 + 1 + byte], picture.rgba[row * 600 + byte]);
    }
    EXPECT_EQ(Bytes(file.end() - 12, file.end()),
              (Bytes{0, 0, 0, 0, 'I', 'E', 'N', 'D', 0xAE, 0x42, 0x60, 0x82}));
}

TEST(PngFile, OfABrokenPictureIsEmpty) {
    EXPECT_TRUE(pngFile({}).empty());
    EXPECT_TRUE(pngFile({2, 2, {1, 2, 3}}).empty());
}

}  // namespace
}  // namespace quorel::diagram
