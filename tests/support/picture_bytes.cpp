#include "tests/support/picture_bytes.h"

#include <algorithm>
#include <fstream>

namespace quorel::testing {

namespace {

void little(Bytes& out, std::uint64_t value, int size) {
    for (int i = 0; i < size; ++i, value >>= 8)
        out.push_back(static_cast<std::uint8_t>(value));
}

void big(Bytes& out, std::uint32_t value) {
    for (int shift = 24; shift >= 0; shift -= 8)
        out.push_back(static_cast<std::uint8_t>(value >> shift));
}

void append(Bytes& out, const Bytes& more) {
    out.insert(out.end(), more.begin(), more.end());
}

[[nodiscard]] std::uint32_t crc(const Bytes& bytes, std::size_t from) {
    std::uint32_t value = ~0U;
    for (std::size_t i = from; i < bytes.size(); ++i) {
        value ^= bytes[i];
        for (int bit = 0; bit < 8; ++bit)
            value = value >> 1 ^ ((value & 1U) != 0 ? 0xEDB88320U : 0U);
    }
    return ~value;
}

void chunk(Bytes& out, std::string_view name, const Bytes& content) {
    big(out, static_cast<std::uint32_t>(content.size()));
    const std::size_t from = out.size();
    out.insert(out.end(), name.begin(), name.end());
    append(out, content);
    big(out, crc(out, from));
}

/// A deflate stream that packs nothing; for less than 65,536 bytes.
[[nodiscard]] Bytes stored(const Bytes& content) {
    Bytes out{0x78, 0x01, 0x01};
    little(out, content.size(), 2);
    little(out, ~content.size(), 2);
    append(out, content);
    std::uint32_t a = 1, b = 0;
    for (const std::uint8_t byte : content) {
        a = (a + byte) % 65521;
        b = (b + a) % 65521;
    }
    big(out, b << 16 | a);
    return out;
}

/// A header of 40 bytes and the pixels, blue first.
[[nodiscard]] Bytes dib(std::int32_t width, std::int32_t height, std::int32_t told, const Bytes& pixel) {
    Bytes out;
    little(out, 40, 4);
    little(out, static_cast<std::uint32_t>(width), 4);
    little(out, static_cast<std::uint32_t>(told), 4);
    little(out, 1, 2);
    little(out, pixel.size() * 8, 2);
    little(out, 0, 24);
    for (std::int32_t i = 0; i < width * height; ++i)
        append(out, pixel);
    return out;
}

}  // namespace

Bytes pngBytes(std::uint32_t width, std::uint32_t height, std::uint8_t red, std::uint8_t green,
               std::uint8_t blue) {
    Bytes out{0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
    Bytes header;
    big(header, width);
    big(header, height);
    append(header, {8, 2, 0, 0, 0});
    chunk(out, "IHDR", header);
    Bytes lines;
    for (std::uint32_t y = 0; y < height; ++y) {
        lines.push_back(0);
        for (std::uint32_t x = 0; x < width; ++x)
            append(lines, {red, green, blue});
    }
    chunk(out, "IDAT", stored(lines));
    chunk(out, "IEND", {});
    return out;
}

/// With 32 bits a pixel, so that no line is padded.
Bytes bmpBytes(std::int32_t width, std::int32_t height, std::uint8_t red, std::uint8_t green,
               std::uint8_t blue) {
    const Bytes picture = dib(width, height, height, {blue, green, red, 0});
    Bytes out{'B', 'M'};
    little(out, 14 + picture.size(), 4);
    little(out, 0, 4);
    little(out, 54, 4);
    append(out, picture);
    return out;
}

Bytes iconBytes() {
    Bytes small = dib(16, 16, 32, {0, 0, 255, 255});
    small.resize(small.size() + 16 * 4);  // the mask: nothing is cut out
    const Bytes large = pngBytes(32, 32, 0, 255, 0);
    Bytes out{0, 0, 1, 0, 2, 0};
    std::size_t begin = 6 + 2 * 16;
    for (const auto& [side, picture] : {std::pair<std::uint8_t, const Bytes&>{16, small}, {32, large}}) {
        append(out, {side, side, 0, 0, 1, 0, 32, 0});
        little(out, picture.size(), 4);
        little(out, begin, 4);
        begin += picture.size();
    }
    append(out, small);
    append(out, large);
    return out;
}

Bytes metafileBytes() {
    Bytes out;
    little(out, 0x9AC6CDD7, 4);
    for (const std::uint32_t value : {0U, 0U, 0U, 720U, 480U, 1440U, 0U, 0U})
        little(out, value, 2);
    std::uint32_t sum = 0;
    for (std::size_t i = 0; i < out.size(); i += 2)
        sum ^= out[i] | static_cast<std::uint32_t>(out[i + 1]) << 8;
    little(out, sum, 2);
    const std::vector<std::vector<std::uint32_t>> records{
        {0x020B, 0, 0},             // the origin
        {0x020C, 480, 720},         // the extent, height first
        {0x02FC, 0, 0x00FF, 0, 0},  // a red brush
        {0x012D, 0},                // is taken
        {0x02FA, 5, 0, 0, 0, 0},    // no pen
        {0x012D, 1},                // is taken
        {0x041B, 480, 360, 0, 0},   // the rectangle: bottom, right, top, left
        {0x0000},
    };
    std::size_t words = 9, longest = 0;
    for (const auto& record : records) {
        words += record.size() + 2;
        longest = std::max(longest, record.size() + 2);
    }
    for (const std::uint32_t value : {1U, 9U, 0x0300U})
        little(out, value, 2);
    little(out, words, 4);
    little(out, 2, 2);
    little(out, longest, 4);
    little(out, 0, 2);
    for (const auto& record : records) {
        little(out, record.size() + 2, 4);
        for (const std::uint32_t value : record)
            little(out, value, 2);
    }
    return out;
}

void poke(Bytes& bytes, std::size_t at, std::uint32_t value) {
    for (std::size_t i = 0; i < 4; ++i, value >>= 8)
        bytes[at + i] = static_cast<std::uint8_t>(value);
}

PictureOnDisk::PictureOnDisk(std::string_view name, const Bytes& bytes)
    : file_(std::filesystem::temp_directory_path() / name) {
    std::ofstream(file_, std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
}

PictureOnDisk::~PictureOnDisk() {
    std::error_code ignored;
    std::filesystem::remove(file_, ignored);
}

}  // namespace quorel::testing
