// The hexadecimal codec beside memcpy of the encoded text, and, in the same runs, the codecs that others
// write: with a table, and digit by digit.

#include <array>
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include "frame/hex_codec.h"
#include "ratio.h"

namespace {

using quorel::frame::HexCode;

constexpr std::size_t kSmallest = 4U << 10U;  // bytes of text
constexpr std::size_t kLargest = 32U << 20U;
/// Short enough that most runs are not interrupted.
constexpr std::size_t kPerRun = 4U << 20U;

struct Buffers {
    std::vector<std::uint8_t> bytes;
    std::u16string text;
    std::u16string copy;
    std::vector<std::uint8_t> decoded;

    explicit Buffers(std::size_t textBytes)
        : bytes(textBytes / 4), text(textBytes / 2, u' '), copy(textBytes / 2, u' '), decoded(textBytes / 4) {
        std::uint32_t state = 1;
        for (std::uint8_t& byte : bytes)
            byte = static_cast<std::uint8_t>((state = state * 1664525U + 1013904223U) >> 24U);
        quorel::frame::encodeHex(bytes, text.data());
    }
};

/// The peers are to be called, as the codec is, and to do all they are asked for.
template <class Type>
void keep(Type& value) {
    asm volatile("" : : "r"(&value) : "memory");
}

void encodeByTable(const std::vector<std::uint8_t>& bytes, std::u16string& text) {
    static const auto table = [] {
        std::array<std::array<char16_t, 2>, 256> pairs{};
        for (std::size_t i = 0; i < pairs.size(); ++i)
            pairs[i] = {u"0123456789ABCDEF"[i / 16], u"0123456789ABCDEF"[i % 16]};
        return pairs;
    }();
    for (std::size_t i = 0; i < bytes.size(); ++i)
        std::memcpy(&text[2 * i], table[bytes[i]].data(), 4);
}

void decodeByTable(const std::u16string& text, std::vector<std::uint8_t>& bytes) {
    static const auto table = [] {
        std::vector<std::int8_t> values(0x10000);
        for (std::size_t i = 0; i < values.size(); ++i)
            values[i] = static_cast<std::int8_t>(quorel::frame::hexDigit(static_cast<char16_t>(i)));
        return values;
    }();
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const int high = std::max<int>(table[text[2 * i]], 0), low = table[text[2 * i + 1]];
        bytes[i] = static_cast<std::uint8_t>(high * 16 + (low < 0 ? high : low));
    }
}

void encodeByDigits(const std::vector<std::uint8_t>& bytes, std::u16string& text) {
    const auto digit = [](int value) {
        return static_cast<char16_t>(value < 10 ? u'0' + value : u'A' + value - 10);
    };
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        text[2 * i] = digit(bytes[i] / 16);
        text[2 * i + 1] = digit(bytes[i] % 16);
    }
}

void decodeByDigits(const std::u16string& text, std::vector<std::uint8_t>& bytes) {
    quorel::frame::decodeHex(text, bytes.data(), HexCode::Plain);
}

template <class Step>
auto often(std::size_t textBytes, Step step) {
    return [times = std::max<std::size_t>(kPerRun / textBytes, 1), step] {
        for (std::size_t i = 0; i < times; ++i)
            step();
    };
}

/// A ratio here is of speeds: how many times as fast as the copy.
template <class Subject, class Copy>
void compareSpeed(const char* name, std::size_t size, double aim, Subject subject, Copy copy) {
    const int runs = size > kPerRun ? 25 : 151;
    const std::size_t done = std::max(kPerRun / size, std::size_t{1}) * size;
    static_cast<void>(quorel::bench::seconds(subject));
    static_cast<void>(quorel::bench::seconds(copy));
    std::vector<double> ratios, times;
    for (int run = 0; run < runs; ++run) {
        times.push_back(quorel::bench::seconds(subject));
        ratios.push_back(quorel::bench::seconds(copy) / times.back());
    }
    std::printf("%-26s %6zu KB: %6.2f GB/s, %5.2f of memcpy", name, size >> 10U,
                static_cast<double>(done) / quorel::bench::median(times) / 1e9,
                quorel::bench::median(ratios));
    std::printf(aim > 0 ? " (aim: %.2f)\n" : "\n", aim);
    std::fflush(stdout);
}

void compareAt(std::size_t size) {
    Buffers buffers(size);
    const auto copy = often(size, [&] {
        std::memcpy(buffers.copy.data(), buffers.text.data(), size);
        keep(buffers.copy);
    });
    const auto encode = [&](HexCode code) {
        return often(size, [&buffers, code] {
            quorel::frame::encodeHex(buffers.bytes, buffers.text.data(), code);
            keep(buffers.text);
        });
    };
    const auto decode = [&](HexCode code) {
        return often(size, [&buffers, code] {
            quorel::frame::decodeHex(buffers.text, buffers.decoded.data(), code);
            keep(buffers.decoded);
        });
    };
    const HexCode fastest = quorel::frame::fastestHexCode();
    compareSpeed("encode", size, 1.0, encode(fastest), copy);
    compareSpeed("  AVX2", size, 0, encode(std::min(fastest, HexCode::Avx2)), copy);
    compareSpeed("  SSSE3", size, 0, encode(std::min(fastest, HexCode::Ssse3)), copy);
    compareSpeed("  table", size, 0, often(size, [&] { encodeByTable(buffers.bytes, buffers.text); }), copy);
    compareSpeed("  digit by digit", size, 0,
                 often(size, [&] { encodeByDigits(buffers.bytes, buffers.text); }), copy);
    compareSpeed("decode", size, 0.75, decode(fastest), copy);
    compareSpeed("  AVX2", size, 0, decode(std::min(fastest, HexCode::Avx2)), copy);
    compareSpeed("  SSSE3", size, 0, decode(std::min(fastest, HexCode::Ssse3)), copy);
    compareSpeed("  table", size, 0, often(size, [&] { decodeByTable(buffers.text, buffers.decoded); }),
                 copy);
    compareSpeed("  digit by digit", size, 0,
                 often(size, [&] { decodeByDigits(buffers.text, buffers.decoded); }), copy);
}

}  // namespace

int main() {
    for (std::size_t size = kSmallest; size <= kLargest; size *= 8)
        compareAt(size);
    compareAt(kLargest);
}
