#include "platform/automation/class_table.h"

#include <gtest/gtest.h>

#include "tests/platform/automation/sample_double.h"

namespace quorel::automation {
namespace {

using testing::errorNumber;
using testing::ListDouble;
using testing::SampleDouble;

TEST(ClassTable, IdsCountFromOneInPublishedOrder) {
    const auto sample = make<SampleDouble>();
    const ClassTable& table = sample->classTable();
    EXPECT_EQ(table.className(), u"SampleDouble");
    EXPECT_EQ(table.members()[0].id, MemberId::Default);
    EXPECT_EQ(table.members()[1].name, u"Label");
    EXPECT_EQ(table.members()[1].id, static_cast<MemberId>(2));
    EXPECT_EQ(table.find(u"held")->id, static_cast<MemberId>(3));
    EXPECT_EQ(table.find(static_cast<MemberId>(3))->name, u"Held");
    EXPECT_EQ(table.find(static_cast<MemberId>(1)), nullptr) << "the renumbered member lost its old id";
    EXPECT_EQ(table.find(u"Helt"), nullptr);
}

TEST(ClassTable, NamesIgnoreCase) {
    const Object object = make<SampleDouble>();
    EXPECT_EQ(object.get(u"LABEL").toString(), u"sample");
    EXPECT_EQ(object.get(u"label").toString(), u"sample");
}

TEST(ClassTable, UnknownMemberIsError438) {
    const Object object = make<SampleDouble>();
    EXPECT_EQ(errorNumber([&] { object.call(u"Nonsense"); }), 438);
    EXPECT_EQ(errorNumber([&] { object.put(u"Nonsense", 1); }), 438);
    EXPECT_EQ(errorNumber([&] { object.invoke(static_cast<MemberId>(99), InvokeKind::Call, {}); }), 438);
}

TEST(ClassTable, DefaultsFillOmittedAndSkippedArguments) {
    const Object object = make<SampleDouble>();
    EXPECT_EQ(object.call(u"Join", u"a").toString(), u"a/two/three");
    EXPECT_EQ(object.call(u"Join", u"a", u"b").toString(), u"a/b/three");
    EXPECT_EQ(object.call(u"Join", u"a", Value::missing(), u"c").toString(), u"a/two/c");
    EXPECT_EQ(object.call(u"Join", u"a", u"b", u"c").toString(), u"a/b/c");
}

TEST(ClassTable, OptionalObjectDefaultsToNothing) {
    const Object object = make<SampleDouble>();
    EXPECT_FALSE(object.call(u"HasObject").toBoolean());
    EXPECT_TRUE(object.call(u"HasObject", object).toBoolean());
    EXPECT_EQ(errorNumber([&] { object.call(u"HasObject", u"text"); }), 13);
}

TEST(ClassTable, TooFewArgumentsAreError450AndASkippedOneIs449) {
    const Object object = make<SampleDouble>();
    EXPECT_EQ(errorNumber([&] { object.call(u"Join"); }), 450);
    EXPECT_EQ(errorNumber([&] { object.call(u"Swap", u"a"); }), 450);
    EXPECT_EQ(errorNumber([&] { object.call(u"Join", Value::missing(), u"b"); }), 449);
}

TEST(ClassTable, TooManyArgumentsOfAMethodAreError450) {
    const Object object = make<SampleDouble>();
    EXPECT_EQ(errorNumber([&] { object.call(u"Join", u"a", u"b", u"c", u"d"); }), 450);
}

TEST(ClassTable, SurplusArgumentsOfAPropertyReadGoToTheDefaultMemberOfItsResult) {
    const auto sample = make<SampleDouble>();
    sample->held = make<ListDouble>(std::vector<Value>{u"first", u"second"});
    const Object object = sample;
    EXPECT_EQ(object.get(u"Held", 2).toString(), u"second");
    EXPECT_EQ(errorNumber([&] { static_cast<void>(object.get(u"Held", 3)); }), 9);
    EXPECT_EQ(errorNumber([&] { static_cast<void>(object.get(u"Label", 1)); }), 450);
    sample->held.reset();
    EXPECT_EQ(errorNumber([&] { static_cast<void>(object.get(u"Held", 1)); }), 91);
}

TEST(ClassTable, IndexedPropertiesTakeTheirIndexBeforeTheValue) {
    const Object object = make<SampleDouble>();
    const MemberId slot = object.resolve(u"Slot");
    std::array<Argument, 2> indexed{Argument(3), Argument(u"three")};
    object.invoke(slot, InvokeKind::Put, indexed);
    object.put(u"Slot", u"seven");
    EXPECT_EQ(object.get(u"Slot", 3).toString(), u"three");
    EXPECT_EQ(object.get(u"Slot").toString(), u"seven");
    std::array<Argument, 3> surplus{Argument(3), Argument(4), Argument(u"x")};
    EXPECT_EQ(errorNumber([&] { object.invoke(slot, InvokeKind::Put, surplus); }), 450);
    EXPECT_EQ(errorNumber([&] { object.invoke(slot, InvokeKind::Put, {}); }), 450);
    EXPECT_EQ(errorNumber([&] { object.put(u"Slot", Value::missing()); }), 449);
}

TEST(ClassTable, ReferencesAreWrittenBack) {
    const Object object = make<SampleDouble>();
    Value a(u"left"), b(u"right");
    object.call(u"Swap", byRef(a), byRef(b));
    EXPECT_EQ(a.toString(), u"right");
    EXPECT_EQ(b.toString(), u"left");
}

TEST(ClassTable, ReferenceIsConvertedAndComesBackInTheParametersType) {
    const Object object = make<SampleDouble>();
    Value number(u"21");
    EXPECT_EQ(object.call(u"Double", byRef(number)).toInteger(), 42);
    EXPECT_EQ(number.kind(), ValueKind::Integer);
    EXPECT_EQ(number.toInteger(), 42);
    Value word(u"word");
    EXPECT_EQ(errorNumber([&] { object.call(u"Double", byRef(word)); }), 13);
    EXPECT_EQ(word.toString(), u"word");
    Value large(2147483648.0);
    EXPECT_EQ(errorNumber([&] { object.call(u"Double", byRef(large)); }), 6);
    Value none = Value::null();
    EXPECT_EQ(errorNumber([&] { object.call(u"Double", byRef(none)); }), 94);
}

TEST(ClassTable, PropertiesAreAssignedInTheWaysTheyHave) {
    const Object object = make<SampleDouble>();
    object.put(u"Label", u"new");
    EXPECT_EQ(object.get(u"Label").toString(), u"new");
    EXPECT_EQ(errorNumber([&] { object.putRef(u"Label", object); }), 438);
    EXPECT_EQ(errorNumber([&] { object.put(u"Value", 1); }), 438);
    EXPECT_EQ(errorNumber([&] { static_cast<void>(object.get(u"Sink")); }), 438);
    object.put(u"Sink", u"sunk");
    EXPECT_EQ(object.get(u"Label").toString(), u"sunk");
}

TEST(ClassTable, ObjectPropertiesTakeSetAndPlainAssignment) {
    const auto held = make<SampleDouble>();
    const Object object = make<SampleDouble>();
    object.putRef(u"Held", held);
    EXPECT_TRUE(object.get(u"Held").toObject() == Object(held));
    object.put(u"Held", Value::nothing());
    EXPECT_FALSE(IsObjectSet(object.get(u"Held").toObject()));
    const auto both =
        static_cast<InvokeKind>(static_cast<int>(InvokeKind::Put) | static_cast<int>(InvokeKind::PutRef));
    std::array<Argument, 1> arguments{Argument(Object(held))};
    object.invoke(object.resolve(u"Held"), both, arguments);
    EXPECT_TRUE(object.get(u"Held").toObject() == Object(held));
}

TEST(ClassTable, ReadsAreNoMethodsAndMethodsAreNoReads) {
    const Object object = make<SampleDouble>();
    EXPECT_EQ(errorNumber([&] { object.invoke(object.resolve(u"Label"), InvokeKind::Method, {}); }), 438);
    EXPECT_EQ(errorNumber([&] { object.invoke(object.resolve(u"Fail"), InvokeKind::Get, {}); }), 438);
}

TEST(ClassTable, ErrorsOfAMemberReachTheCallerWhole) {
    const Object object = make<SampleDouble>();
    try {
        object.call(u"Fail");
        FAIL() << "did not fail";
    } catch (const Error& error) {
        EXPECT_EQ(error.number(), 1234);
        EXPECT_EQ(error.description(), u"No luck");
        EXPECT_EQ(error.source(), u"Sample");
    }
}

TEST(ClassTable, MembersBeyondTheTableAreCalledByName) {
    const Object object = make<SampleDouble>();
    object.put(u"colour", u"red");
    EXPECT_EQ(object.get(u"Colour").toString(), u"red");
    EXPECT_EQ(errorNumber([&] { object.invoke(static_cast<MemberId>(0x10001), InvokeKind::Call, {}); }), 438);
}

}  // namespace
}  // namespace quorel::automation
