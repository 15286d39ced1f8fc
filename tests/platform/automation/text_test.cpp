#include "platform/automation/text.h"

#include <gtest/gtest.h>

namespace quorel::automation {
namespace {

TEST(Text, Utf8RoundTripIsExactEvenForLoneSurrogates) {
    for (const std::u16string& text :
         {std::u16string(), std::u16string(u"plain"), std::u16string(u"\u00E4\u20AC\U0001F600"),
          std::u16string(u"a\0b", 3), std::u16string(u"\xD800"), std::u16string(u"\xDC00\xD800"),
          std::u16string(u"\xD83Dx"), std::u16string(u"\u202E\uFFFF")})
        EXPECT_EQ(fromUtf8(toUtf8(text)), text);
    EXPECT_EQ(toUtf8(u"\U0001F600"), "\xF0\x9F\x98\x80");
}

TEST(Text, EveryMalformedByteBecomesOneReplacementCharacter) {
    EXPECT_EQ(fromUtf8("\x80"), u"\uFFFD");
    EXPECT_EQ(fromUtf8("\xC0\x80"), u"\uFFFD\uFFFD");
    EXPECT_EQ(fromUtf8("\xE2\x82"), u"\uFFFD\uFFFD");
    EXPECT_EQ(fromUtf8("a\xFFz"), u"a\uFFFDz");
    EXPECT_EQ(fromUtf8("\xF4\x90\x80\x80"), u"\uFFFD\uFFFD\uFFFD\uFFFD");
}

TEST(Text, NamesIgnoreTheCaseOfLetters) {
    EXPECT_TRUE(equalsIgnoringCase(u"GetUUID", u"getuuid"));
    EXPECT_TRUE(equalsIgnoringCase(u"\u00C4\u00D6\u0178", u"\u00E4\u00F6\u00FF"));
    EXPECT_TRUE(equalsIgnoringCase(u"\u0410\u042F\u0401", u"\u0430\u044F\u0451"));
    EXPECT_TRUE(equalsIgnoringCase(u"\u0391\u03A9", u"\u03B1\u03C9"));
    EXPECT_FALSE(equalsIgnoringCase(u"\u00D7", u"\u00F7"));
    EXPECT_FALSE(equalsIgnoringCase(u"a", u"ab"));
    EXPECT_FALSE(equalsIgnoringCase(u"@", u"`"));
    EXPECT_EQ(foldCase(u"\u0139\u013A\u0150Z["), u"\u013A\u013A\u0151z[");
}

TEST(Text, UpperCaseIsTheWayBackOfFolding) {
    std::u16string text = u"abz{\u00E4\u00F7\u00FF\u0430\u03C9\u00DFAZ";
    makeUpperCase(text);
    EXPECT_EQ(text, u"ABZ{\u00C4\u00F7\u0178\u0410\u03A9\u00DFAZ");
    for (std::uint32_t unit = 0; unit <= 0xFFFF; ++unit) {
        const std::u16string given(1, static_cast<char16_t>(unit));
        std::u16string upper = given;
        makeUpperCase(upper);
        ASSERT_EQ(foldCase(upper), foldCase(given)) << unit;
        ASSERT_TRUE(upper[0] >= 0x80 || unit < 0x80) << unit;
        std::u16string again = upper;
        makeUpperCase(again);
        ASSERT_EQ(again, upper) << unit;
    }
}

TEST(Text, FoldedHashAgreesWithEquality) {
    const FoldedHash hash;
    EXPECT_EQ(hash(u"Extension"), hash(u"EXTENSION"));
    EXPECT_NE(hash(u"Extension"), hash(u"Extensions"));
}

TEST(Text, DecimalTextOfTheExtremes) {
    EXPECT_EQ(decimal(0), u"0");
    EXPECT_EQ(decimal(INT64_MIN), u"-9223372036854775808");
}

}  // namespace
}  // namespace quorel::automation
