#include "platform/ui/access_key.h"

#include <gtest/gtest.h>

#include "platform/ui/shown_text.h"

namespace quorel::ui {

TEST(AccessKey, IsTheCharacterBehindTheMarkInUpperCase) {
    EXPECT_EQ(accessKey(u"&Name"), u'N');
    EXPECT_EQ(accessKey(u"Sa&ve"), u'V');
    EXPECT_EQ(accessKey(u"&7"), u'7');
}

TEST(AccessKey, ADoubledMarkIsAnAmpersand) {
    EXPECT_EQ(accessKey(u"Black && white"), std::nullopt);
    EXPECT_EQ(accessKey(u"&&&x"), u'X');
    EXPECT_EQ(withoutAccessKey(u"Black && &white"), u"Black & white");
}

TEST(AccessKey, NothingToMarkIsNoKey) {
    EXPECT_EQ(accessKey(u""), std::nullopt);
    EXPECT_EQ(accessKey(u"plain"), std::nullopt);
    EXPECT_EQ(accessKey(u"end&"), std::nullopt);
    EXPECT_EQ(withoutAccessKey(u"end&"), u"end");
}

TEST(AccessKey, TheLastMarkCounts) {
    EXPECT_EQ(accessKey(u"&a &b"), u'B');
}

TEST(AccessKey, AnEscapedTextReadsAsItStands) {
    for (const std::u16string_view text : {u"", u"&", u"&&", u"A&B && C&", u"plain"}) {
        EXPECT_EQ(withoutAccessKey(escapedForCaption(text)), text);
        EXPECT_EQ(accessKey(escapedForCaption(text)), std::nullopt);
    }
}

TEST(ShownText, ShowsANullAsItsSymbolAndLeavesTheRest) {
    EXPECT_EQ(shownText(std::u16string_view(u"a\0b", 3)), u"a\u2400b");
    const std::u16string lone = {char16_t{0xDC00}, u'x', char16_t{0xD800}};
    EXPECT_EQ(shownText(lone), lone);
}

}  // namespace quorel::ui
