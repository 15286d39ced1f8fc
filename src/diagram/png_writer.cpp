#include "diagram/png_writer.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>
#include <string_view>

namespace quorel::diagram {

namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr std::size_t kLargestBlock = 0xFFFF;

constexpr std::array<std::uint32_t, 256> kCrcTable = [] {
    std::array<std::uint32_t, 256> table{};
    for (std::uint32_t byte = 0; byte < table.size(); ++byte) {
        std::uint32_t crc = byte;
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc & 1) != 0 ? 0xEDB88320U ^ (crc >> 1) : crc >> 1;
        table[byte] = crc;
    }
    return table;
}();

[[nodiscard]] std::uint32_t crcOf(std::span<const std::uint8_t> bytes) noexcept {
    std::uint32_t crc = ~0U;
    for (const std::uint8_t byte : bytes)
        crc = kCrcTable[(crc ^ byte) & 0xFF] ^ (crc >> 8);
    return ~crc;
}

[[nodiscard]] std::uint32_t adlerOf(const Bytes& bytes) noexcept {
    constexpr std::uint32_t kModulus = 65521;
    std::uint32_t sum = 1, sums = 0;
    for (const std::uint8_t byte : bytes) {
        sum = (sum + byte) % kModulus;
        sums = (sums + sum) % kModulus;
    }
    return sums << 16 | sum;
}

void appendNumber(Bytes& to, std::uint32_t number) {
    for (int shift = 24; shift >= 0; shift -= 8)
        to.push_back(static_cast<std::uint8_t>(number >> shift));
}

void appendChunk(Bytes& file, std::string_view name, const Bytes& content) {
    appendNumber(file, static_cast<std::uint32_t>(content.size()));
    const std::size_t begin = file.size();
    file.insert(file.end(), name.begin(), name.end());
    file.insert(file.end(), content.begin(), content.end());
    appendNumber(file, crcOf(std::span(file).subspan(begin)));
}

/// A compressed stream of blocks that are stored as they are.
[[nodiscard]] Bytes stored(const Bytes& bytes) {
    Bytes stream{0x78, 0x01};
    for (std::size_t at = 0; at < bytes.size(); at += kLargestBlock) {
        const std::size_t length = std::min(kLargestBlock, bytes.size() - at);
        const auto low = static_cast<std::uint8_t>(length), high = static_cast<std::uint8_t>(length >> 8);
        const bool isLast = at + length == bytes.size();
        const std::array<std::uint8_t, 5> head{static_cast<std::uint8_t>(isLast ? 1 : 0), low, high,
                                               static_cast<std::uint8_t>(~low),
                                               static_cast<std::uint8_t>(~high)};
        stream.insert(stream.end(), head.begin(), head.end());
        const auto from = bytes.begin() + static_cast<std::ptrdiff_t>(at);
        stream.insert(stream.end(), from, from + static_cast<std::ptrdiff_t>(length));
    }
    appendNumber(stream, adlerOf(bytes));
    return stream;
}

}  // namespace

Bytes pngFile(const ui::Picture& picture) {
    if (!ui::isWhole(picture) || picture.width <= 0 || picture.height <= 0)
        return {};
    const std::size_t row = static_cast<std::size_t>(picture.width) * 4;
    Bytes lines;
    lines.reserve((row + 1) * static_cast<std::size_t>(picture.height));
    for (std::size_t at = 0; at < picture.rgba.size(); at += row) {
        lines.push_back(0);  // the row as it is, not by its neighbours
        const auto from = picture.rgba.begin() + static_cast<std::ptrdiff_t>(at);
        lines.insert(lines.end(), from, from + static_cast<std::ptrdiff_t>(row));
    }
    Bytes header;
    appendNumber(header, static_cast<std::uint32_t>(picture.width));
    appendNumber(header, static_cast<std::uint32_t>(picture.height));
    // Eight bits a channel, red, green, blue and alpha, the only ways of compressing and filtering, all rows
    // in order.
    header.insert(header.end(), {8, 6, 0, 0, 0});
    Bytes file{0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
    appendChunk(file, "IHDR", header);
    appendChunk(file, "IDAT", stored(lines));
    appendChunk(file, "IEND", {});
    return file;
}

}  // namespace quorel::diagram
