// Bytes as text and back, and the numbers that Dec reads.

#include "frame/blob_text.h"

#include <gtest/gtest.h>

#include "frame/blob.h"
#include "platform/automation/error.h"
#include "tests/support/test_world.h"

namespace quorel::frame {
namespace {

using automation::Array;
using automation::byRef;
using automation::Bytes;
using automation::Object;
using automation::Value;
using testing::errorNumber;

class BlobText : public ::testing::Test {
  protected:
    [[nodiscard]] std::u16string textOf(const Value& value) {
        return blob_.call(u"getAsString", value).toString();
    }
    /// What the host's variable holds afterwards.
    [[nodiscard]] Value bytesOf(std::u16string_view text, Value before = {}) {
        blob_.call(u"setAsString", byRef(before), text);
        return before;
    }
    [[nodiscard]] static Value bytes(std::vector<std::uint8_t> data, std::int32_t lowerBound = 0) {
        return Bytes{std::move(data), lowerBound};
    }

    Object blob_ = automation::make<Blob>(nullptr);
};

TEST_F(BlobText, EveryByteIsTwoUpperCaseDigits) {
    EXPECT_EQ(textOf(bytes({0x00, 0x0F, 0xA0})), u"000FA0");
    EXPECT_EQ(textOf(bytes({})), u"");
}

TEST_F(BlobText, WhatIsNoArrayHasNoText) {
    for (const Value& value : {Value(), Value::null(), Value(u"0F"), Value(15), Value(blob_)})
        EXPECT_EQ(textOf(value), u"");
}

TEST_F(BlobText, TheLowerBoundIsTakenToBeZero) {
    EXPECT_EQ(textOf(bytes({0xAB, 0xCD}, 2)), u"ABCD    ");
    EXPECT_EQ(textOf(bytes({}, 3)), u"      ");
    EXPECT_EQ(errorNumber([&] { static_cast<void>(textOf(bytes({1, 2}, -1))); }), 5);
    EXPECT_EQ(errorNumber([&] { static_cast<void>(textOf(bytes({1}, 0x7FFFFFFF))); }), 6);
}

TEST_F(BlobText, ElementsOfOtherArraysAreNumbersOfWhichTwoDigitsAreWritten) {
    EXPECT_EQ(textOf(Array{{1, 15, 16, 255, 300, 0x12345, -1}, 0}),
              u"010F10FF121"
              u"20F");
    EXPECT_EQ(textOf(Array{{u"10", 2.5, Value(), true}, 0}), u"0A02000F");
    EXPECT_EQ(textOf(Array{}), u"");
    EXPECT_EQ(errorNumber([&] { static_cast<void>(textOf(Array{{u"G"}, 0})); }), 13);
    EXPECT_EQ(errorNumber([&] { static_cast<void>(textOf(Array{{Value::null()}, 0})); }), 94);
}

TEST_F(BlobText, AnEmptyTextLeavesTheVariable) {
    EXPECT_EQ(bytesOf(u"", Value(7)).toInteger(), 7);
    EXPECT_TRUE(bytesOf(u"").isEmpty());
}

TEST_F(BlobText, TextsOfEveryLength) {
    EXPECT_EQ(*bytesOf(u"000FA0").getIf<Bytes>(), (Bytes{{0x00, 0x0F, 0xA0}}));
    EXPECT_EQ(*bytesOf(u"B").getIf<Bytes>(), (Bytes{{0x0B}}));
    EXPECT_EQ(*bytesOf(u"0102A").getIf<Bytes>(), (Bytes{{0x01, 0x02, 0x0A}}));
    EXPECT_EQ(bytesOf(u"010203040").getIf<Bytes>()->data.size(), 5U);
    for (const std::size_t length : {3U, 7U, 11U, 15U}) {
        Value variable(u"before");
        const std::u16string text(length, u'1');
        EXPECT_EQ(errorNumber([&] { blob_.call(u"setAsString", byRef(variable), text); }), 9) << length;
        EXPECT_EQ(variable.toString(), u"before") << length;
    }
}

TEST_F(BlobText, ADigitIsCarriedWithinItsPairOnly) {
    EXPECT_EQ(*bytesOf(u"1GGF5\u00E4G\u3042").getIf<Bytes>(), (Bytes{{0x11, 0x0F, 0x55, 0x00}}));
    EXPECT_EQ(*bytesOf(u"ffaB").getIf<Bytes>(), (Bytes{{0xFF, 0xAB}}));
}

TEST_F(BlobText, TheTextIsOnlyRead) {
    Value text(u"ff"), variable;
    blob_.call(u"setAsString", byRef(variable), byRef(text));
    EXPECT_EQ(text.toString(), u"ff");
}

TEST_F(BlobText, DecReadsANumberAndPutsItInUpperCase) {
    const auto dec = [&](std::u16string_view given, std::u16string_view changed) {
        Value text(given);
        const std::int32_t number = blob_.call(u"Dec", byRef(text)).toInteger();
        EXPECT_EQ(text.toString(), changed);
        return number;
    };
    EXPECT_EQ(dec(u"ff", u"FF"), 255);
    EXPECT_EQ(dec(u"1G", u"1G"), 17);
    EXPECT_EQ(dec(u"", u""), 0);
    EXPECT_EQ(dec(u"g", u"G"), 0);
    EXPECT_EQ(dec(u"g1x", u"G1X"), 0x011);
    EXPECT_EQ(dec(u"7fffffff", u"7FFFFFFF"), 0x7FFFFFFF);
    EXPECT_EQ(dec(u"00000000001", u"00000000001"), 1);
    EXPECT_EQ(dec(u"\u00E4b\u00FF\u0131\uFF41", u"\u00C4B\u0178\u0131\uFF21"), 0xBBBB);
    EXPECT_EQ(blob_.call(u"Dec", u"ff").toInteger(), 255);
    EXPECT_EQ(blob_.call(u"Dec", 10).toInteger(), 16);
}

TEST_F(BlobText, DecOverflowsAndLeavesTheTextInUpperCase) {
    for (const char16_t* const given : {u"80000000", u"ffffffff", u"100000000", u"8xxxxxxx"}) {
        Value text{std::u16string(given)};
        EXPECT_EQ(errorNumber([&] { blob_.call(u"Dec", byRef(text)); }), 6);
        std::u16string upper(given);
        automation::makeUpperCase(upper);
        EXPECT_EQ(text.toString(), upper);
    }
}

TEST_F(BlobText, EverythingComesBackFromItsText) {
    std::vector<std::uint8_t> data;
    for (std::size_t size = 0; size < 300; ++size) {
        const Value given = bytes(data);
        const Value back = bytesOf(textOf(given), bytes({}));
        EXPECT_EQ(*back.getIf<Bytes>(), *given.getIf<Bytes>());
        data.push_back(static_cast<std::uint8_t>(size * 37));
    }
}

}  // namespace
}  // namespace quorel::frame
