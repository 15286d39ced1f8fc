#include "frame/hex_codec.h"

#include <gtest/gtest.h>

#include <cstring>
#include <numeric>

namespace quorel::frame {
namespace {

constexpr std::size_t kUnits = 0x10000;

std::vector<HexCode> available() {
    std::vector<HexCode> codes;
    for (const HexCode code : {HexCode::Plain, HexCode::Ssse3, HexCode::Avx2, HexCode::Avx512})
        if (isAvailable(code))
            codes.push_back(code);
    return codes;
}

/// The values of digits; -1 for all other units.
const std::int8_t* digits() {
    static const auto table = [] {
        std::vector<std::int8_t> values(kUnits, -1);
        for (const std::u16string_view text : {u"0123456789ABCDEF", u"0123456789abcdef"})
            for (std::size_t i = 0; i < text.size(); ++i)
                values[text[i]] = static_cast<std::int8_t>(i);
        return values;
    }();
    return table.data();
}

/// As the rule says it: a unit that is no digit counts as the digit before it in its pair.
std::uint8_t byRule(const std::int8_t* digit, char16_t high, char16_t low) {
    const int first = digit[high] < 0 ? 0 : digit[high];
    const int second = digit[low] < 0 ? first : digit[low];
    return static_cast<std::uint8_t>(first * 16 + second);
}

std::vector<std::uint8_t> decoded(std::u16string_view text, HexCode code) {
    std::vector<std::uint8_t> bytes((text.size() + 1) / 2 + 1, 0xEE);
    decodeHex(text, bytes.data(), code);
    EXPECT_EQ(bytes.back(), 0xEE) << "wrote beyond its bytes";
    bytes.pop_back();
    return bytes;
}

TEST(HexCodec, EveryByteIsTwoUpperCaseDigits) {
    std::vector<std::uint8_t> bytes(256);
    std::iota(bytes.begin(), bytes.end(), std::uint8_t{0});
    std::u16string expected;
    for (const char16_t high : std::u16string_view(u"0123456789ABCDEF"))
        for (const char16_t low : std::u16string_view(u"0123456789ABCDEF"))
            expected.append({high, low});
    for (const HexCode code : available()) {
        std::u16string text(512, u'?');
        encodeHex(bytes, text.data(), code);
        EXPECT_EQ(text, expected) << static_cast<int>(code);
    }
}

TEST(HexCodec, AllWaysAgreeOnEveryLengthAndAtEveryAddress) {
    std::vector<std::uint8_t> source(700);
    std::iota(source.begin(), source.end(), std::uint8_t{7});
    for (const HexCode code : available())
        for (std::size_t count = 0; count <= 600; ++count)
            for (std::size_t shift = 0; shift<33; shift += count> 130 ? 11 : 1) {
                const std::span<const std::uint8_t> bytes(source.data() + shift, count);
                std::u16string text(2 * count + shift + 1, u'?'), plain(2 * count, u'!');
                encodeHex(bytes, text.data() + shift, code);
                encodeHex(bytes, plain.data(), HexCode::Plain);
                ASSERT_EQ(text.substr(shift, 2 * count), plain) << count << ' ' << shift;
                ASSERT_EQ(text.back(), u'?');
                const auto back = decoded(std::u16string_view(text).substr(shift, 2 * count), code);
                ASSERT_TRUE(std::equal(back.begin(), back.end(), bytes.begin(), bytes.end()))
                    << count << ' ' << shift;
            }
}

TEST(HexCodec, EveryUnitAtEveryPositionAmongDigitsFollowsTheRule) {
    const std::int8_t* const digit = digits();
    for (const HexCode code : available()) {
        const std::size_t length = (code == HexCode::Avx512 ? 512 : 128) + 34;
        std::u16string text(length, u'7');
        std::vector<std::uint8_t> bytes(length / 2), expected(length / 2, 0x77);
        std::size_t wrong = 0;
        // The plain code does one pair after the other.
        const std::size_t positions = code == HexCode::Plain ? 4 : length;
        for (std::size_t position = 0; position < positions; ++position) {
            const std::size_t pair = position / 2;
            for (std::size_t unit = 0; unit < kUnits; ++unit) {
                text[position] = static_cast<char16_t>(unit);
                expected[pair] = byRule(digit, text[2 * pair], text[2 * pair + 1]);
                decodeHex(text, bytes.data(), code);
                wrong += std::memcmp(bytes.data(), expected.data(), bytes.size()) != 0 ? 1 : 0;
                text[position] = u'7';
            }
            expected[pair] = 0x77;
        }
        EXPECT_EQ(wrong, 0U) << static_cast<int>(code);
    }
}

TEST(HexCodec, EveryUnitAtEveryPositionAmongAllOthersFollowsTheRule) {
    constexpr std::size_t kLength = 2 * 256 + 2 * 64 + 2 * 16 + 3;
    const std::int8_t* const digit = digits();
    for (const std::size_t stride : {1U, 0x8007U}) {
        std::size_t wrong = 0;
        for (std::size_t first = 0; first < kUnits; ++first) {
            std::u16string text(kLength, u' ');
            for (std::size_t i = 0; i < kLength; ++i)
                text[i] = static_cast<char16_t>(first + i * stride);
            std::vector<std::uint8_t> expected((kLength + 1) / 2);
            for (std::size_t i = 0; i + 1 < kLength; i += 2)
                expected[i / 2] = byRule(digit, text[i], text[i + 1]);
            expected.back() = byRule(digit, u'0', text.back());
            for (const HexCode code : available())
                wrong += decoded(text, code) != expected ? 1 : 0;
        }
        EXPECT_EQ(wrong, 0U) << stride;
    }
}

TEST(HexCodec, AUnitLeftOverIsALowDigit) {
    for (const HexCode code : available()) {
        EXPECT_EQ(decoded(u"", code), std::vector<std::uint8_t>{});
        EXPECT_EQ(decoded(u"a", code), std::vector<std::uint8_t>{0x0A});
        EXPECT_EQ(decoded(u"FFz", code), (std::vector<std::uint8_t>{0xFF, 0x00}));
        EXPECT_EQ(decoded(u"1GG1GGz", code), (std::vector<std::uint8_t>{0x11, 0x01, 0x00, 0x00}));
    }
}

TEST(HexCodec, TheFastestWayIsAvailable) {
    EXPECT_TRUE(isAvailable(fastestHexCode()));
    EXPECT_TRUE(isAvailable(HexCode::Plain));
}

}  // namespace
}  // namespace quorel::frame
