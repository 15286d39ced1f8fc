#include "tests/repository/library_fixture.h"

namespace quorel::repository::testing {
namespace {

class HostileText : public LibraryTest, public ::testing::WithParamInterface<std::u16string> {};

TEST_P(HostileText, TravelsUnharmedThroughEveryPlaceThatHoldsText) {
    const std::u16string& text = GetParam();
    const std::u16string identifier = u"id" + text;
    const std::u16string typeName = u"T" + text;
    repository_.call(u"MakeMetaNode", typeName, text)
        .toObject()
        .call(u"MakeMetaProperty", u"P" + text, u"String", text);
    const Object node = repository_.call(u"MakeNode", typeName, text, identifier).toObject();
    node.call(u"SetProperty", u"P" + text, text);
    repository_.call(u"SetProperty", u"R" + text, text);
    reopen();
    const Object type = repository_.get(u"MetaNodes", typeName).toObject();
    EXPECT_TRUE(type.get(u"name").toString() == typeName);
    EXPECT_TRUE(type.get(u"Description").toString() == text);
    EXPECT_TRUE(type.get(u"Properties", 1).toObject().get(u"Description").toString() == text);
    const Object found = type.get(u"Extension", identifier).toObject();
    EXPECT_TRUE(found.get(u"name").toString() == text);
    EXPECT_TRUE(found.get(u"Identifier").toString() == identifier);
    EXPECT_TRUE(found.call(u"GetProperty", u"P" + text).toString() == text);
    EXPECT_TRUE(repository_.call(u"GetProperty", u"R" + text).toString() == text);
    EXPECT_EQ(type.get(u"Extension").toObject().call(u"FindByName", text).toObject(), found);
    Value removed;
    type.get(u"Extension").toObject().call(u"Remove", identifier, automation::byRef(removed));
    EXPECT_TRUE(removed.toBoolean());
}

using HostileNames = LibraryTest;

INSTANTIATE_TEST_SUITE_P(
    Texts, HostileText,
    ::testing::Values(std::u16string(), std::u16string(1U << 20, u'x'), std::u16string(u"a\0b\0", 4),
                      std::u16string(1, u'\0'), std::u16string{0xD800}, std::u16string{0xDC00, 0xD800, u'x'},
                      std::u16string(u"\u202Eשלום\u202C"), std::u16string(u"👩‍👩‍👧‍👦"),
                      std::u16string(u"'; DROP TABLE node; --"), std::u16string(u"\r\n\t\u0001\uFEFF\uFFFF")),
    [](const auto& parameter) { return "Text" + std::to_string(parameter.index); });

TEST_F(HostileNames, NamesThatDifferOnlyBehindANullAreDifferent) {
    repository_.call(u"MakeMetaNode", std::u16string(u"A\0B", 3));
    repository_.call(u"MakeMetaNode", std::u16string(u"A\0C", 3));
    EXPECT_EQ(repository_.get(u"MetaNodes").toObject().get(u"Count").toInteger(), 4);
    EXPECT_TRUE(
        repository_.get(u"MetaNodes", std::u16string(u"A\0C", 3)).toObject().get(u"name").toString() ==
        std::u16string(u"A\0C", 3));
}

TEST_F(HostileNames, ALongNameIsCutInMessages) {
    const auto error = errorOf([&] { repository_.call(u"MetaNodes", std::u16string(1U << 20, u'x')); });
    EXPECT_EQ(error.number(), 9);
    EXPECT_LT(error.description().size(), 200U);
}

TEST_F(HostileNames, AComposedNameOfPointsAloneIsRefusedAtOnce) {
    EXPECT_EQ(errorOf([&] {
                  repository_.call(u"MakeDynamicMetaAssoc", std::u16string(1U << 20, u'.'), u"");
              }).number(),
              5);
}

}  // namespace
}  // namespace quorel::repository::testing
