#include <gtest/gtest.h>

#include "tests/platform/automation/sample_double.h"

namespace quorel::automation {
namespace {

using testing::SampleDouble;

TEST(VariantEquality, NumbersAndBooleansCompareByValue) {
    EXPECT_TRUE(Value::equal(1, 1.0));
    EXPECT_TRUE(Value::equal(true, -1));
    EXPECT_FALSE(Value::equal(true, 1));
    EXPECT_TRUE(Value::equal(false, 0.0));
    EXPECT_TRUE(Value::equal(Date{2}, 2));
    EXPECT_FALSE(Value::equal(1, 2));
}

TEST(VariantEquality, StringsCompareOrdinallyWithCase) {
    EXPECT_TRUE(Value::equal(u"abc", u"abc"));
    EXPECT_FALSE(Value::equal(u"abc", u"ABC"));
    EXPECT_FALSE(Value::equal(u"1", 1));
    EXPECT_FALSE(Value::equal(u"True", true));
}

TEST(VariantEquality, EmptyEqualsTheEmptyTextAndZero) {
    EXPECT_TRUE(Value::equal(Value(), Value()));
    EXPECT_TRUE(Value::equal(Value(), u""));
    EXPECT_TRUE(Value::equal(u"", Value()));
    EXPECT_TRUE(Value::equal(Value(), 0));
    EXPECT_TRUE(Value::equal(false, Value()));
    EXPECT_FALSE(Value::equal(Value(), u"0"));
    EXPECT_FALSE(Value::equal(Value(), Value::nothing()));
}

TEST(VariantEquality, NullEqualsNothingAtAll) {
    EXPECT_FALSE(Value::equal(Value::null(), Value::null()));
    EXPECT_FALSE(Value::equal(Value::null(), Value()));
    EXPECT_FALSE(Value::equal(u"", Value::null()));
}

TEST(VariantEquality, ObjectsCompareByIdentity) {
    const auto a = make<SampleDouble>();
    const auto b = make<SampleDouble>();
    EXPECT_TRUE(Value::equal(a, Object(a)));
    EXPECT_FALSE(Value::equal(a, b));
    EXPECT_FALSE(Value::equal(a, 42));
    EXPECT_TRUE(Value::equal(Value::nothing(), Value::nothing()));
}

TEST(VariantEquality, BytesAndArraysCompareByContentAndBounds) {
    EXPECT_TRUE(Value::equal(Bytes{{1, 2}, 0}, Bytes{{1, 2}, 0}));
    EXPECT_FALSE(Value::equal(Bytes{{1, 2}, 0}, Bytes{{1, 2}, 1}));
    EXPECT_TRUE(Value::equal(Array{{Value(1), Value(u"x")}, 0}, Array{{Value(1.0), Value(u"x")}, 0}));
    EXPECT_FALSE(Value::equal(Array{{Value(1)}, 0}, Array{{Value(1), Value(2)}, 0}));
    EXPECT_FALSE(Value::equal(Array{{Value::null()}, 0}, Array{{Value::null()}, 0}));
    EXPECT_TRUE(Value::equal(Value::error(5), Value::error(5)));
    EXPECT_FALSE(Value::equal(Value::error(5), Value::error(6)));
    EXPECT_TRUE(Value::equal(Value::missing(), Value::missing()));
}

}  // namespace
}  // namespace quorel::automation
