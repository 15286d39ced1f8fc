#include "frame/standard.h"

#include <gtest/gtest.h>

#include <limits>

#include "frame/cboolean.h"
#include "platform/automation/class_table.h"
#include "platform/automation/error.h"

namespace quorel::frame {
namespace {

class KeyedDouble final : public automation::NativeObject {
  public:
    [[nodiscard]] const automation::ClassTable& classTable() const override {
        static const automation::ClassTable table =
            automation::ClassTable::of<KeyedDouble>(u"KeyedDouble")
                .readOnly(u"Item", &KeyedDouble::item, {automation::param(u"key")})
                .withId(automation::MemberId::Default);
        return table;
    }

  private:
    automation::Value item(const automation::Value& key) {
        if (key.toString() != u"known")
            throw automation::Error(9);
        return {};
    }
};

TEST(Standard, CTrueIsOne) {
    EXPECT_EQ(static_cast<std::int32_t>(CBoolean::CTrue), 1);
    EXPECT_EQ(static_cast<std::int32_t>(CBoolean::CFalse), 0);
}

TEST(Standard, NewLineIsCarriageReturnAndLineFeed) {
    EXPECT_EQ(NewLine(), u"\r\n");
}

TEST(Standard, LargerOfTwo) {
    constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
    EXPECT_EQ(LargerOf(1, 2), 2);
    EXPECT_EQ(LargerOf(2, 1), 2);
    EXPECT_EQ(LargerOf(-1, -1), -1);
    EXPECT_EQ(LargerOf(kLeast, 0), 0);
}

TEST(Standard, IsObjectSetTellsNothingFromSomething) {
    EXPECT_FALSE(IsObjectSet(automation::Object()));
    EXPECT_TRUE(IsObjectSet(automation::make<KeyedDouble>()));
}

TEST(Standard, ExistsInCollectionTakesAnyErrorForNo) {
    const automation::Object keyed = automation::make<KeyedDouble>();
    EXPECT_TRUE(ExistsInCollection(keyed, u"known"));
    EXPECT_FALSE(ExistsInCollection(keyed, u"unknown"));
    EXPECT_FALSE(ExistsInCollection(keyed, automation::Value::null()));
    EXPECT_FALSE(ExistsInCollection(automation::Object(), u"known"));
}

}  // namespace
}  // namespace quorel::frame
