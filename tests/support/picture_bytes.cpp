#include "tests/support/picture_bytes.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <utility>

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

/// A part of a JPEG file with its length in front.
void segment(Bytes& out, std::uint8_t marker, const Bytes& content) {
    append(out, {0xFF, marker, 0, static_cast<std::uint8_t>(content.size() + 2)});
    append(out, content);
}

/// The bits of a JPEG file's pixels, the highest first.
class BitWriter {
  public:
    void put(std::uint32_t bits, int count) {
        while (count-- > 0) {
            byte_ = byte_ << 1 | (bits >> count & 1U);
            if (++filled_ == 8)
                flush();
        }
    }
    /// The last byte is filled with ones.
    [[nodiscard]] Bytes take() {
        while (filled_ != 0)
            put(1, 1);
        return std::move(bytes_);
    }

  private:
    void flush() {
        bytes_.push_back(static_cast<std::uint8_t>(byte_));
        if (bytes_.back() == 0xFF)
            bytes_.push_back(0);
        byte_ = 0;
        filled_ = 0;
    }
    Bytes bytes_;
    std::uint32_t byte_ = 0;
    int filled_ = 0;
};

/// A block of one value, told by what it has more than the one before.
void putBlock(BitWriter& out, int more) {
    int size = 0;
    while (std::abs(more) >> size != 0)
        ++size;
    out.put(static_cast<std::uint32_t>(size), 4);
    out.put(static_cast<std::uint32_t>(more < 0 ? more + (1 << size) - 1 : more), size);
    out.put(0, 1);
}

/// The means of blocks take four bits for their size, in order; whatever varies within a block is always
/// none.
[[nodiscard]] Bytes jpegHead(std::uint32_t width, std::uint32_t height) {
    Bytes out{0xFF, 0xD8};
    segment(out, 0xE0, {'J', 'F', 'I', 'F', 0, 1, 1, 1, 0, 96, 0, 96, 0, 0});
    Bytes steps(65, 8);
    steps[0] = 0;
    segment(out, 0xDB, steps);
    Bytes frame{8};
    for (const std::uint32_t side : {height, width})
        append(frame, {static_cast<std::uint8_t>(side >> 8), static_cast<std::uint8_t>(side)});
    append(frame, {3, 1, 0x11, 0, 2, 0x11, 0, 3, 0x11, 0});
    segment(out, 0xC0, frame);
    segment(out, 0xC4, {0, 0, 0, 0, 9, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 2, 3, 4, 5, 6, 7, 8});
    segment(out, 0xC4, {0x10, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0});
    segment(out, 0xDA, {3, 1, 0, 2, 0, 3, 0, 0, 63, 0});
    return out;
}

}  // namespace

Bytes jpegBytes(std::uint32_t width, std::uint32_t height, std::uint8_t red, std::uint8_t green,
                std::uint8_t blue) {
    const double luma = 0.299 * red + 0.587 * green + 0.114 * blue;
    const std::array<double, 3> values{luma - 128, (blue - luma) * 0.564, (red - luma) * 0.713};
    BitWriter pixels;
    for (std::uint32_t block = 0; block < (width + 7) / 8 * ((height + 7) / 8); ++block)
        for (const double value : values)
            putBlock(pixels, block == 0 ? static_cast<int>(std::lround(value)) : 0);
    Bytes out = jpegHead(width, height);
    append(out, pixels.take());
    append(out, {0xFF, 0xD9});
    return out;
}

Bytes gifBytes() {
    return {'G', 'I',  'F', '8', '9', 'a', 2, 0, 1, 0, 0x80, 0, 0, 0,    0,    0, 255, 255,
            255, 0x2C, 0,   0,   0,   0,   2, 0, 1, 0, 0,    2, 2, 0x44, 0x0A, 0, 0x3B};
}

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

// The device is one of 960 by 960 pixels and 254 by 254 millimetres.
Bytes enhancedMetafileBytes() {
    const std::vector<std::vector<std::uint32_t>> records{
        {39, 24, 1, 0, 0x0000FF00, 0},  // a green brush becomes object 1
        {37, 12, 1},                    // is taken
        {37, 12, 0x80000008},           // no pen
        {43, 24, 0, 0, 96, 96},         // the rectangle: left, top, right, bottom
        {14, 20, 0, 16, 20},            // the end
    };
    std::uint32_t size = 88;
    for (const auto& record : records)
        size += record[1];
    Bytes out;
    for (const std::uint32_t value : {1U,       88U,  0U, 0U, 95U, 95U, 0U, 0U,   2540U, 2540U, 0x464D4520U,
                                      0x10000U, size, 6U, 2U, 0U,  0U,  0U, 960U, 960U,  254U,  254U})
        little(out, value, 4);
    for (const auto& record : records)
        for (const std::uint32_t value : record)
            little(out, value, 4);
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
