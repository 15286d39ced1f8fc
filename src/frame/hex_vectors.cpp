#include "frame/hex_vectors.h"

#if defined(__x86_64__)
#include <immintrin.h>
#endif

namespace quorel::frame {

#if defined(__x86_64__)

namespace {

// Helpers must melt into their callers: GCC does not align the stack of Windows for registers of 32 bytes.

/// Four blocks of output at a time. Their bytes lie beside each other in double words, so that one step makes
/// digits of all of them: byte n of double word m is byte m of block n.
[[gnu::target("avx2"), gnu::always_inline]] inline void encodeBlocks(__m256i blocks, __m256i* out) noexcept {
    const __m256i digits = _mm256_broadcastsi128_si256(
        _mm_setr_epi8('0', '1', '2', '3', '4', '5', '6', '7', '8', '9', 'A', 'B', 'C', 'D', 'E', 'F'));
    const __m256i low = _mm256_set1_epi8(0x0F), unit = _mm256_set1_epi32(0x00FF00FF);
    const __m256i first = _mm256_shuffle_epi8(digits, _mm256_and_si256(_mm256_srli_epi16(blocks, 4), low));
    const __m256i second = _mm256_shuffle_epi8(digits, _mm256_and_si256(blocks, low));
    const __m256i a = _mm256_blend_epi16(first, _mm256_slli_epi32(second, 16), 0xAA);
    const __m256i b = _mm256_blend_epi16(_mm256_srli_epi32(first, 16), second, 0xAA);
    _mm256_storeu_si256(out, _mm256_and_si256(a, unit));
    _mm256_storeu_si256(out + 1, _mm256_srli_epi16(a, 8));
    _mm256_storeu_si256(out + 2, _mm256_and_si256(b, unit));
    _mm256_storeu_si256(out + 3, _mm256_srli_epi16(b, 8));
}

[[gnu::target("ssse3"), gnu::always_inline]] inline void encodeBlocks(__m128i blocks, __m128i* out) noexcept {
    const __m128i digits =
        _mm_setr_epi8('0', '1', '2', '3', '4', '5', '6', '7', '8', '9', 'A', 'B', 'C', 'D', 'E', 'F');
    const __m128i low = _mm_set1_epi8(0x0F), unit = _mm_set1_epi32(0x00FF00FF);
    const __m128i evenUnits = _mm_set1_epi32(0x0000FFFF);
    const __m128i first = _mm_shuffle_epi8(digits, _mm_and_si128(_mm_srli_epi16(blocks, 4), low));
    const __m128i second = _mm_shuffle_epi8(digits, _mm_and_si128(blocks, low));
    const __m128i a = _mm_or_si128(_mm_and_si128(first, evenUnits), _mm_slli_epi32(second, 16));
    const __m128i b = _mm_or_si128(_mm_srli_epi32(first, 16), _mm_andnot_si128(evenUnits, second));
    _mm_storeu_si128(out, _mm_and_si128(a, unit));
    _mm_storeu_si128(out + 1, _mm_srli_epi16(a, 8));
    _mm_storeu_si128(out + 2, _mm_and_si128(b, unit));
    _mm_storeu_si128(out + 3, _mm_srli_epi16(b, 8));
}

/// The values of digits; 16 and more for what is none.
[[gnu::target("avx2"), gnu::always_inline]] inline __m256i valuesOf(__m256i units) noexcept {
    const __m256i decimal = _mm256_sub_epi8(
        _mm256_subs_epu8(_mm256_add_epi8(units, _mm256_set1_epi8(static_cast<char>(0xFF - 0x39))),
                         _mm256_set1_epi8(6)),
        _mm256_set1_epi8(static_cast<char>(0xF0)));
    const __m256i letter =
        _mm256_adds_epu8(_mm256_sub_epi8(_mm256_and_si256(units, _mm256_set1_epi8(static_cast<char>(0xDF))),
                                         _mm256_set1_epi8('A')),
                         _mm256_set1_epi8(10));
    return _mm256_min_epu8(decimal, letter);
}

[[gnu::target("ssse3"), gnu::always_inline]] inline __m128i valuesOf(__m128i units) noexcept {
    const __m128i decimal = _mm_sub_epi8(
        _mm_subs_epu8(_mm_add_epi8(units, _mm_set1_epi8(static_cast<char>(0xFF - 0x39))), _mm_set1_epi8(6)),
        _mm_set1_epi8(static_cast<char>(0xF0)));
    const __m128i letter = _mm_adds_epu8(
        _mm_sub_epi8(_mm_and_si128(units, _mm_set1_epi8(static_cast<char>(0xDF))), _mm_set1_epi8('A')),
        _mm_set1_epi8(10));
    return _mm_min_epu8(decimal, letter);
}

/// What is no digit takes on the value before it in its pair, or 0.
[[gnu::target("avx2"), gnu::always_inline]] inline __m256i carried(__m256i values) noexcept {
    const __m256i isDigit = _mm256_cmpeq_epi8(_mm256_min_epu8(values, _mm256_set1_epi8(15)), values);
    const __m256i digits = _mm256_and_si256(values, isDigit);
    return _mm256_or_si256(digits, _mm256_andnot_si256(isDigit, _mm256_slli_epi16(digits, 8)));
}

[[gnu::target("ssse3"), gnu::always_inline]] inline __m128i carried(__m128i values) noexcept {
    const __m128i isDigit = _mm_cmpeq_epi8(_mm_min_epu8(values, _mm_set1_epi8(15)), values);
    const __m128i digits = _mm_and_si128(values, isDigit);
    return _mm_or_si128(digits, _mm_andnot_si128(isDigit, _mm_slli_epi16(digits, 8)));
}

/// Bytes of text as units of one byte; saturation makes every unit above 0xFF one that is no digit.
[[gnu::target("avx2"), gnu::always_inline]] inline __m256i packed64(const char16_t* text) noexcept {
    const auto* const place = reinterpret_cast<const __m256i*>(text);
    return _mm256_packus_epi16(_mm256_loadu_si256(place), _mm256_loadu_si256(place + 1));
}

[[gnu::target("ssse3"), gnu::always_inline]] inline __m128i packed32(const char16_t* text) noexcept {
    const auto* const place = reinterpret_cast<const __m128i*>(text);
    return _mm_packus_epi16(_mm_loadu_si128(place), _mm_loadu_si128(place + 1));
}

[[gnu::target("avx512bw"), gnu::always_inline]] inline __m512i packed128(const char16_t* text) noexcept {
    return _mm512_packus_epi16(_mm512_loadu_si512(text), _mm512_loadu_si512(text + 32));
}

/// The values of upper-case digits. `others` gets bits where a unit is none.
[[gnu::target("avx512bw"), gnu::always_inline]] inline __m512i upperCaseValuesOf(__m512i units,
                                                                                 __m512i& others) noexcept {
    constexpr int kOrDifference = 0xF6;  // a | (b ^ c)
    const __m512i digits = _mm512_broadcast_i32x4(
        _mm_setr_epi8('0', '1', '2', '3', '4', '5', '6', '7', '8', '9', 'A', 'B', 'C', 'D', 'E', 'F'));
    const __mmask64 letters = _mm512_test_epi8_mask(units, _mm512_set1_epi8(0x40));
    const __m512i values = _mm512_and_si512(_mm512_mask_add_epi8(units, letters, units, _mm512_set1_epi8(9)),
                                            _mm512_set1_epi8(0x0F));
    others = _mm512_ternarylogic_epi32(others, _mm512_shuffle_epi8(digits, values), units, kOrDifference);
    return values;
}

/// Two vectors of values, a digit's in a byte, as the bytes they make.
[[gnu::target("avx512bw"), gnu::always_inline]] inline __m512i joined(__m512i low, __m512i high) noexcept {
    const __m512i weights = _mm512_set1_epi16(0x0110);
    const __m512i order = _mm512_setr_epi32(0, 4, 8, 12, 1, 5, 9, 13, 2, 6, 10, 14, 3, 7, 11, 15);
    const __m512i both =
        _mm512_packus_epi16(_mm512_maddubs_epi16(low, weights), _mm512_maddubs_epi16(high, weights));
    return _mm512_permutexvar_epi32(order, both);
}

[[gnu::target("ssse3"), gnu::always_inline]] inline void encodeBlock16(const std::uint8_t* bytes,
                                                                       char16_t* text) noexcept {
    const __m128i order = _mm_setr_epi8(0, 4, 8, 12, 1, 5, 9, 13, 2, 6, 10, 14, 3, 7, 11, 15);
    const __m128i block = _mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes));
    encodeBlocks(_mm_shuffle_epi8(block, order), reinterpret_cast<__m128i*>(text));
}

[[gnu::target("avx2"), gnu::always_inline]] inline void encodeBlock32(const std::uint8_t* bytes,
                                                                      char16_t* text) noexcept {
    const __m256i halves = _mm256_setr_epi32(0, 2, 4, 6, 1, 3, 5, 7);
    const __m256i order =
        _mm256_broadcastsi128_si256(_mm_setr_epi8(0, 4, 8, 12, 1, 5, 9, 13, 2, 6, 10, 14, 3, 7, 11, 15));
    const __m256i block = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(bytes));
    encodeBlocks(_mm256_shuffle_epi8(_mm256_permutevar8x32_epi32(block, halves), order),
                 reinterpret_cast<__m256i*>(text));
}

/// The text of two blocks of 16 bytes. A word of `pairs` holds a byte of the one below a byte of the other,
/// each word twice, for its two digits.
[[gnu::target("avx512bw"), gnu::always_inline]] inline void encodePairs(__m512i pairs,
                                                                        char16_t* text) noexcept {
    const __m512i digits = _mm512_broadcast_i32x4(
        _mm_setr_epi8('0', '1', '2', '3', '4', '5', '6', '7', '8', '9', 'A', 'B', 'C', 'D', 'E', 'F'));
    const __m512i nibbles =
        _mm512_and_si512(_mm512_srlv_epi16(pairs, _mm512_set1_epi32(4)), _mm512_set1_epi8(0x0F));
    const __m512i both = _mm512_shuffle_epi8(digits, nibbles);
    _mm512_storeu_si512(text, _mm512_and_si512(both, _mm512_set1_epi16(0x00FF)));
    _mm512_storeu_si512(text + 32, _mm512_srli_epi16(both, 8));
}

[[gnu::target("avx512bw"), gnu::always_inline]] inline void encodeBlock64(const std::uint8_t* bytes,
                                                                          char16_t* text) noexcept {
    const __m512i quarters = _mm512_setr_epi32(0, 4, 8, 12, 1, 5, 9, 13, 2, 6, 10, 14, 3, 7, 11, 15);
    const __m512i lower =
        _mm512_broadcast_i32x4(_mm_setr_epi8(0, 4, 0, 4, 1, 5, 1, 5, 2, 6, 2, 6, 3, 7, 3, 7));
    const __m512i upper =
        _mm512_broadcast_i32x4(_mm_setr_epi8(8, 12, 8, 12, 9, 13, 9, 13, 10, 14, 10, 14, 11, 15, 11, 15));
    const __m512i block = _mm512_permutexvar_epi32(quarters, _mm512_loadu_si512(bytes));
    encodePairs(_mm512_shuffle_epi8(block, lower), text);
    encodePairs(_mm512_shuffle_epi8(block, upper), text + 64);
}

[[gnu::target("avx512bw"), gnu::always_inline]] inline void encodeVector16(const std::uint8_t* bytes,
                                                                           char16_t* text) noexcept {
    constexpr int kOrAnd = 0xA8;  // (a | b) & c
    constexpr __mmask64 kEvenBytes = 0x5555555555555555;
    const __m512i digits = _mm512_broadcast_i32x4(
        _mm_setr_epi8('0', '1', '2', '3', '4', '5', '6', '7', '8', '9', 'A', 'B', 'C', 'D', 'E', 'F'));
    const __m512i block = _mm512_cvtepu8_epi32(_mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes)));
    const __m512i nibbles = _mm512_ternarylogic_epi32(
        _mm512_srli_epi32(block, 4), _mm512_slli_epi32(block, 16), _mm512_set1_epi8(0x0F), kOrAnd);
    _mm512_storeu_si512(text, _mm512_maskz_shuffle_epi8(kEvenBytes, digits, nibbles));
}

[[gnu::target("ssse3"), gnu::always_inline]] inline void decodeBlock16(const char16_t* text,
                                                                       std::uint8_t* bytes) noexcept {
    const __m128i weights = _mm_set1_epi16(0x0110);
    __m128i low = valuesOf(packed32(text));
    __m128i high = valuesOf(packed32(text + 16));
    const __m128i beyond = _mm_andnot_si128(_mm_set1_epi8(0x0F), _mm_or_si128(low, high));
    if (_mm_movemask_epi8(_mm_cmpeq_epi8(beyond, _mm_setzero_si128())) != 0xFFFF) {
        low = carried(low);
        high = carried(high);
    }
    _mm_storeu_si128(reinterpret_cast<__m128i*>(bytes),
                     _mm_packus_epi16(_mm_maddubs_epi16(low, weights), _mm_maddubs_epi16(high, weights)));
}

[[gnu::target("avx2"), gnu::always_inline]] inline void decodeBlock32(const char16_t* text,
                                                                      std::uint8_t* bytes) noexcept {
    const __m256i weights = _mm256_set1_epi16(0x0110);
    const __m256i order = _mm256_setr_epi32(0, 4, 1, 5, 2, 6, 3, 7);
    __m256i low = valuesOf(packed64(text));
    __m256i high = valuesOf(packed64(text + 32));
    if (_mm256_testz_si256(_mm256_or_si256(low, high), _mm256_set1_epi8(static_cast<char>(0xF0))) == 0) {
        low = carried(low);
        high = carried(high);
    }
    const __m256i both =
        _mm256_packus_epi16(_mm256_maddubs_epi16(low, weights), _mm256_maddubs_epi16(high, weights));
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(bytes), _mm256_permutevar8x32_epi32(both, order));
}

/// Several blocks, of which the rare ones with other units than upper-case digits are done again.
template <std::size_t Blocks>
[[gnu::target("avx512bw"), gnu::always_inline]] inline void decodeBlocks64(const char16_t* text,
                                                                           std::uint8_t* bytes) noexcept {
    __m512i others = _mm512_setzero_si512();
#pragma GCC unroll 4
    for (std::size_t block = 0; block < Blocks; ++block) {
        const __m512i low = upperCaseValuesOf(packed128(text + 128 * block), others);
        const __m512i high = upperCaseValuesOf(packed128(text + 128 * block + 64), others);
        _mm512_storeu_si512(bytes + 64 * block, joined(low, high));
    }
    if (_mm512_test_epi32_mask(others, others) != 0) [[unlikely]] {
        for (std::size_t done = 0; done < Blocks * 64; done += 32)
            decodeBlock32(text + done * 2, bytes + done);
    }
}

/// How many bytes' text comes before a place that a vector reaches without touching two lines of the cache;
/// none if there is no such place.
[[nodiscard]] std::size_t bytesUntilAligned(const char16_t* text) noexcept {
    constexpr std::uintptr_t kLine = 64, kTextOfByte = 4;
    const std::uintptr_t past = reinterpret_cast<std::uintptr_t>(text) % kLine;
    return past % kTextOfByte == 0 ? (kLine - past) % kLine / kTextOfByte : 0;
}

}  // namespace

[[gnu::target("ssse3")]] void encodeHexSsse3(const std::uint8_t* bytes, std::size_t count,
                                             char16_t* text) noexcept {
    std::size_t done = bytesUntilAligned(text);
    if (done != 0)
        encodeBlock16(bytes, text);
    for (; done + 16 <= count; done += 16)
        encodeBlock16(bytes + done, text + done * 2);
    if (done < count)
        encodeBlock16(bytes + count - 16, text + (count - 16) * 2);
}

[[gnu::target("ssse3")]] void decodeHexSsse3(const char16_t* text, std::uint8_t* bytes,
                                             std::size_t count) noexcept {
    std::size_t done = bytesUntilAligned(text);
    if (done != 0)
        decodeBlock16(text, bytes);
    for (; done + 16 <= count; done += 16)
        decodeBlock16(text + done * 2, bytes + done);
    if (done < count)
        decodeBlock16(text + (count - 16) * 2, bytes + count - 16);
}

[[gnu::target("avx2")]] void encodeHexAvx2(const std::uint8_t* bytes, std::size_t count,
                                           char16_t* text) noexcept {
    std::size_t done = bytesUntilAligned(text);
    if (done != 0)
        encodeBlock16(bytes, text);
    for (; done + 32 <= count; done += 32)
        encodeBlock32(bytes + done, text + done * 2);
    if (done < count)
        encodeBlock32(bytes + count - 32, text + (count - 32) * 2);
}

[[gnu::target("avx2")]] void decodeHexAvx2(const char16_t* text, std::uint8_t* bytes,
                                           std::size_t count) noexcept {
    std::size_t done = bytesUntilAligned(text);
    if (done != 0)
        decodeBlock16(text, bytes);
    for (; done + 32 <= count; done += 32)
        decodeBlock32(text + done * 2, bytes + done);
    if (done < count)
        decodeBlock32(text + (count - 32) * 2, bytes + count - 32);
}

[[gnu::target("avx512bw")]] void encodeHexAvx512(const std::uint8_t* bytes, std::size_t count,
                                                 char16_t* text) noexcept {
    std::size_t done = bytesUntilAligned(text);
    if (done != 0)
        encodeVector16(bytes, text);
    for (; done + 128 <= count; done += 128) {
        encodeBlock64(bytes + done, text + done * 2);
        encodeBlock64(bytes + done + 64, text + done * 2 + 128);
    }
    if (done + 64 <= count) {
        encodeBlock64(bytes + done, text + done * 2);
        done += 64;
    }
    if (done < count)
        encodeBlock64(bytes + count - 64, text + (count - 64) * 2);
}

// Loads that touch two lines of the cache cost less than a step of their own that avoids them.
[[gnu::target("avx512bw")]] void decodeHexAvx512(const char16_t* text, std::uint8_t* bytes,
                                                 std::size_t count) noexcept {
    std::size_t done = 0;
    for (; done + 256 <= count; done += 256)
        decodeBlocks64<4>(text + done * 2, bytes + done);
    for (; done + 64 <= count; done += 64)
        decodeBlocks64<1>(text + done * 2, bytes + done);
    if (done < count)
        decodeBlocks64<1>(text + (count - 64) * 2, bytes + count - 64);
}

#endif

}  // namespace quorel::frame
