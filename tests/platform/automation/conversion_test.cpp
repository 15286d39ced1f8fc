#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "platform/automation/text.h"
#include "tests/platform/automation/sample_double.h"

namespace quorel::automation {
namespace {

using testing::errorNumber;
using testing::SampleDouble;

TEST(Conversion, KindsFollowWhatAValueIsMadeOf) {
    EXPECT_EQ(Value().kind(), ValueKind::Empty);
    EXPECT_EQ(Value(true).kind(), ValueKind::Boolean);
    EXPECT_EQ(Value(1).kind(), ValueKind::Integer);
    EXPECT_EQ(Value(1.0).kind(), ValueKind::Double);
    EXPECT_EQ(Value(u"x").kind(), ValueKind::String);
    EXPECT_EQ(Value(Date{1}).kind(), ValueKind::Date);
    EXPECT_EQ(Value::nothing().kind(), ValueKind::Object);
    EXPECT_EQ(Value(Bytes{}).kind(), ValueKind::Bytes);
    EXPECT_EQ(Value(Array{}).kind(), ValueKind::Array);
    EXPECT_EQ(Value::null().kind(), ValueKind::Null);
    EXPECT_EQ(Value::missing().kind(), ValueKind::Missing);
    EXPECT_EQ(Value::error(9).kind(), ValueKind::Error);
}

TEST(Conversion, RefObjectsBecomeObjects) {
    const auto sample = make<SampleDouble>();
    const Value value = sample;
    EXPECT_TRUE(value.toObject() == Object(sample));
}

TEST(Conversion, NullIsError94EverywhereButAsObject13) {
    const Value none = Value::null();
    EXPECT_EQ(errorNumber([&] { static_cast<void>(none.toBoolean()); }), 94);
    EXPECT_EQ(errorNumber([&] { static_cast<void>(none.toInteger()); }), 94);
    EXPECT_EQ(errorNumber([&] { static_cast<void>(none.toDouble()); }), 94);
    EXPECT_EQ(errorNumber([&] { static_cast<void>(none.toString()); }), 94);
    EXPECT_EQ(errorNumber([&] { static_cast<void>(none.toDate()); }), 94);
    EXPECT_EQ(errorNumber([&] { static_cast<void>(none.toObject()); }), 13);
}

TEST(Conversion, MissingIsError449ButNothingAsObject) {
    const Value missing = Value::missing();
    EXPECT_EQ(errorNumber([&] { static_cast<void>(missing.toInteger()); }), 449);
    EXPECT_EQ(errorNumber([&] { static_cast<void>(missing.toString()); }), 449);
    EXPECT_FALSE(IsObjectSet(missing.toObject()));
}

TEST(Conversion, EmptyIsFalseZeroAndTheEmptyText) {
    const Value empty;
    EXPECT_FALSE(empty.toBoolean());
    EXPECT_EQ(empty.toInteger(), 0);
    EXPECT_EQ(empty.toDouble(), 0);
    EXPECT_EQ(empty.toString(), u"");
    EXPECT_EQ(empty.toDate().serial, 0);
    EXPECT_FALSE(IsObjectSet(empty.toObject()));
}

TEST(Conversion, TrueIsMinusOne) {
    EXPECT_EQ(Value(true).toInteger(), -1);
    EXPECT_EQ(Value(true).toDouble(), -1);
    EXPECT_EQ(Value(true).toString(), u"True");
    EXPECT_EQ(Value(false).toString(), u"False");
}

TEST(Conversion, BooleansComeFromNumbersAndWords) {
    EXPECT_TRUE(Value(2).toBoolean());
    EXPECT_FALSE(Value(0.0).toBoolean());
    EXPECT_TRUE(Value(0.1).toBoolean());
    EXPECT_TRUE(Value(u"tRUE").toBoolean());
    EXPECT_FALSE(Value(u"False").toBoolean());
    EXPECT_TRUE(Value(u"-1").toBoolean());
    EXPECT_FALSE(Value(u"0.0").toBoolean());
    EXPECT_EQ(errorNumber([] { static_cast<void>(Value(u"yes").toBoolean()); }), 13);
    EXPECT_EQ(errorNumber([] { static_cast<void>(Value(u"").toBoolean()); }), 13);
}

TEST(Conversion, IntegersRoundHalvesToEven) {
    EXPECT_EQ(Value(0.5).toInteger(), 0);
    EXPECT_EQ(Value(1.5).toInteger(), 2);
    EXPECT_EQ(Value(2.5).toInteger(), 2);
    EXPECT_EQ(Value(-0.5).toInteger(), 0);
    EXPECT_EQ(Value(-1.5).toInteger(), -2);
    EXPECT_EQ(Value(-2.5).toInteger(), -2);
    EXPECT_EQ(Value(2.51).toInteger(), 3);
    EXPECT_EQ(Value(u"3.5").toInteger(), 4);
}

TEST(Conversion, IntegersOutOfRangeAreError6) {
    EXPECT_EQ(Value(2147483647.4).toInteger(), 2147483647);
    EXPECT_EQ(Value(-2147483648.5).toInteger(), std::numeric_limits<std::int32_t>::min());
    for (const double number : {2147483647.5, -2147483648.6, 1e300, std::nan("")})
        EXPECT_EQ(errorNumber([&] { static_cast<void>(Value(number).toInteger()); }), 6) << number;
    EXPECT_EQ(errorNumber([] { static_cast<void>(Value(u"99999999999").toInteger()); }), 6);
    EXPECT_EQ(errorNumber([] { static_cast<void>(Value(u"1e999").toDouble()); }), 6);
}

TEST(Conversion, NumbersAreReadFromText) {
    EXPECT_EQ(Value(u"  -12.25\t").toDouble(), -12.25);
    EXPECT_EQ(Value(u"+.5").toDouble(), 0.5);
    EXPECT_EQ(Value(u"5.").toDouble(), 5);
    EXPECT_EQ(Value(u"1E3").toDouble(), 1000);
    EXPECT_EQ(Value(u"1e-400").toDouble(), 0);
    EXPECT_EQ(Value(u"&H1F").toInteger(), 31);
    EXPECT_EQ(Value(u"&hFFFFFFFF").toInteger(), -1);
    EXPECT_EQ(Value(u"&O17").toInteger(), 15);
}

TEST(Conversion, TextThatIsNoNumberIsError13) {
    for (const char16_t* text : {u"", u" ", u"x", u"1x", u"1 2", u".", u"e5", u"inf", u"nan", u"0x10", u"&H",
                                 u"&HG", u"--1", u"1e", u"\u0661"})
        EXPECT_EQ(errorNumber([&] { static_cast<void>(Value(text).toDouble()); }), 13) << toUtf8(text);
}

TEST(Conversion, NumbersAreWrittenWithFifteenDigits) {
    EXPECT_EQ(Value(0.1).toString(), u"0.1");
    EXPECT_EQ(Value(-0.0).toString(), u"0");
    EXPECT_EQ(Value(1.0 / 3).toString(), u"0.333333333333333");
    EXPECT_EQ(Value(123456789012345.0).toString(), u"123456789012345");
    EXPECT_EQ(Value(1e15).toString(), u"1E+15");
    EXPECT_EQ(Value(1e-5).toString(), u"1E-05");
    EXPECT_EQ(Value(-2.5).toString(), u"-2.5");
    EXPECT_EQ(Value(std::numeric_limits<std::int32_t>::min()).toString(), u"-2147483648");
    EXPECT_EQ(Value(HUGE_VAL).toString(), u"1.#INF");
}

TEST(Conversion, DatesAreDaysSinceTheEndOf1899) {
    EXPECT_EQ(Value(Date{0}).toString(), u"1899-12-30");
    EXPECT_EQ(Value(Date{37318 + 50709.0 / 86400}).toString(), u"2002-03-03 14:05:09");
    EXPECT_EQ(Value(Date{0.5}).toString(), u"12:00:00");
    EXPECT_EQ(Value(Date{-1.25}).toString(), u"1899-12-29 06:00:00");
    EXPECT_EQ(Value(Date{1.9999999}).toString(), u"1900-01-01");
    EXPECT_EQ(Value(Date{2.5}).toInteger(), 2);
    EXPECT_TRUE(Value(Date{2.5}).toBoolean());
    EXPECT_EQ(Value(2.5).toDate().serial, 2.5);
}

TEST(Conversion, DatesAreReadAsTheyAreWritten) {
    for (const double serial : {0.0, 37318.25, -1.25, 0.5, 2958465.75})
        EXPECT_DOUBLE_EQ(Value(Value(Date{serial}).toString()).toDate().serial, serial);
    EXPECT_EQ(Value(u"2002-03-03T06:00:00").toDate().serial, 37318.25);
    EXPECT_EQ(Value(u"37318.25").toDate().serial, 37318.25);
    for (const char16_t* text : {u"2002-02-30", u"2002-03-03 24:00:00", u"2002-03-03 1", u"today"})
        EXPECT_EQ(errorNumber([&] { static_cast<void>(Value(text).toDate()); }), 13) << toUtf8(text);
    EXPECT_EQ(errorNumber([] { static_cast<void>(Value(3000000.0).toDate()); }), 6);
}

TEST(Conversion, ObjectsAnswerWithTheirDefaultMember) {
    const Value value = make<SampleDouble>();
    EXPECT_EQ(value.toInteger(), 42);
    EXPECT_EQ(value.toString(), u"42");
    EXPECT_TRUE(value.toBoolean());
    EXPECT_EQ(value.toDate().serial, 42);
    EXPECT_EQ(errorNumber([] { static_cast<void>(Value::nothing().toString()); }), 91);
}

/// Its default member is itself.
class CircleDouble : public NativeObject {
  public:
    const ClassTable& classTable() const override {
        static const ClassTable table = ClassTable::of<CircleDouble>(u"CircleDouble")
                                            .readOnly(u"Self", &CircleDouble::self)
                                            .withId(MemberId::Default);
        return table;
    }

  private:
    Object self() { return this; }
};

TEST(Conversion, DefaultMembersInACircleAreError13) {
    EXPECT_EQ(errorNumber([] { static_cast<void>(Value(make<CircleDouble>()).toInteger()); }), 13);
}

TEST(Conversion, BytesArraysAndErrorsConvertToNothing) {
    for (const Value& value : {Value(Bytes{{1}, 0}), Value(Array{{Value(1)}, 0}), Value::error(5)}) {
        EXPECT_EQ(errorNumber([&] { static_cast<void>(value.toInteger()); }), 13);
        EXPECT_EQ(errorNumber([&] { static_cast<void>(value.toString()); }), 13);
        EXPECT_EQ(errorNumber([&] { static_cast<void>(value.toBoolean()); }), 13);
        EXPECT_EQ(errorNumber([&] { static_cast<void>(value.toObject()); }), 13);
    }
}

TEST(Conversion, StringsTravelUnharmed) {
    std::u16string odd(u"a\0b\xD800 \xDC00\u202E\U0001F600", 9);
    odd += std::u16string(1 << 20, u'x');
    EXPECT_EQ(Value(odd).toString(), odd);
}

}  // namespace
}  // namespace quorel::automation
