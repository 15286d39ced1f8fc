#include "frame/hex_codec.h"

#include <algorithm>

#include "frame/hex_vectors.h"

namespace quorel::frame {

namespace {

constexpr char16_t kDigits[] = u"0123456789ABCDEF";

constexpr std::size_t kUnitsOfByte = 2;

void encodePlain(std::span<const std::uint8_t> bytes, char16_t* text) noexcept {
    for (const std::uint8_t byte : bytes) {
        *text++ = kDigits[byte >> 4U];
        *text++ = kDigits[byte & 0xFU];
    }
}

[[nodiscard]] std::uint8_t decodePair(char16_t high, char16_t low) noexcept {
    const int first = std::max(hexDigit(high), 0);
    const int second = hexDigit(low);
    return static_cast<std::uint8_t>(first * 16 + (second < 0 ? first : second));
}

void decodePlain(std::u16string_view text, std::uint8_t* bytes) noexcept {
    std::size_t at = 0;
    for (; at + 1 < text.size(); at += kUnitsOfByte)
        *bytes++ = decodePair(text[at], text[at + 1]);
    if (at < text.size())
        *bytes = static_cast<std::uint8_t>(std::max(hexDigit(text[at]), 0));
}

[[nodiscard]] HexCode detect() noexcept {
#if defined(__x86_64__)
    __builtin_cpu_init();
    if (__builtin_cpu_supports("avx512bw"))
        return HexCode::Avx512;
    if (__builtin_cpu_supports("avx2"))
        return HexCode::Avx2;
    if (__builtin_cpu_supports("ssse3"))
        return HexCode::Ssse3;
#endif
    return HexCode::Plain;
}

}  // namespace

bool isAvailable(HexCode code) noexcept {
    return code <= fastestHexCode();
}

HexCode fastestHexCode() noexcept {
    static const HexCode fastest = detect();
    return fastest;
}

void encodeHex(std::span<const std::uint8_t> bytes, char16_t* text, HexCode code) noexcept {
    const std::size_t count = bytes.size();
    if constexpr (kHasHexVectors) {
        if (code >= HexCode::Avx512 && count >= kHexBlockAvx512)
            return encodeHexAvx512(bytes.data(), count, text);
        if (code >= HexCode::Avx2 && count >= kHexBlockAvx2)
            return encodeHexAvx2(bytes.data(), count, text);
        if (code >= HexCode::Ssse3 && count >= kHexBlockSsse3)
            return encodeHexSsse3(bytes.data(), count, text);
    }
    encodePlain(bytes, text);
}

void decodeHex(std::u16string_view text, std::uint8_t* bytes, HexCode code) noexcept {
    const std::size_t pairs = text.size() / kUnitsOfByte;
    if constexpr (kHasHexVectors) {
        const auto vectors = code >= HexCode::Avx512 && pairs >= kHexBlockAvx512 ? decodeHexAvx512
                             : code >= HexCode::Avx2 && pairs >= kHexBlockAvx2   ? decodeHexAvx2
                             : code >= HexCode::Ssse3 && pairs >= kHexBlockSsse3 ? decodeHexSsse3
                                                                                 : nullptr;
        if (vectors != nullptr) {
            vectors(text.data(), bytes, pairs);
            text.remove_prefix(pairs * kUnitsOfByte);
            bytes += pairs;
        }
    }
    decodePlain(text, bytes);
}

}  // namespace quorel::frame
