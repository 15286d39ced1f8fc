#include "platform/automation/object.h"

#include <gtest/gtest.h>

#include "tests/platform/automation/sample_double.h"

namespace quorel::automation {
namespace {

using testing::errorNumber;
using testing::ListDouble;
using testing::SampleDouble;

TEST(Object, EmptyReferenceIsError91ForEveryCall) {
    const Object empty;
    EXPECT_FALSE(IsObjectSet(empty));
    EXPECT_TRUE(empty == Object(nullptr));
    EXPECT_EQ(empty.identity(), nullptr);
    EXPECT_EQ(empty.native(), nullptr);
    EXPECT_EQ(errorNumber([&] { empty.call(u"X"); }), 91);
    EXPECT_EQ(errorNumber([&] { static_cast<void>(empty.get(u"X")); }), 91);
    EXPECT_EQ(errorNumber([&] { empty.put(u"X", 1); }), 91);
    EXPECT_EQ(errorNumber([&] { empty.putRef(u"X", empty); }), 91);
    EXPECT_EQ(errorNumber([&] { static_cast<void>(empty.item()); }), 91);
    EXPECT_EQ(errorNumber([&] { static_cast<void>(empty.enumerate()); }), 91);
}

TEST(Object, IdentityIsThatOfTheObject) {
    const auto a = make<SampleDouble>();
    const Object first = a;
    const Object second(a.get());
    EXPECT_TRUE(first == second);
    EXPECT_FALSE(first == Object(make<SampleDouble>()));
    EXPECT_FALSE(first == Object());
    EXPECT_EQ(first.native(), a.get());
}

TEST(Object, CountsAreBalanced) {
    const std::int64_t before = NativeObject::liveCount();
    {
        Object a = make<SampleDouble>();
        Object b = a;
        Object c = std::move(a);
        b = c;
        c = Object();
        const Value value = b;
        Value copy = value;
        copy = Value();
        EXPECT_EQ(NativeObject::liveCount(), before + 1);
    }
    EXPECT_EQ(NativeObject::liveCount(), before);
}

TEST(Object, DefaultMemberTakesArguments) {
    const Object list = make<ListDouble>(std::vector<Value>{u"one", u"two"});
    EXPECT_EQ(list.item(2).toString(), u"two");
    EXPECT_EQ(errorNumber([&] { static_cast<void>(list.item()); }), 450);
}

TEST(Object, MemberMayDropTheLastReferenceToItsOwnObject) {
    const std::int64_t before = NativeObject::liveCount();
    Object object = make<SampleDouble>();
    static_cast<SampleDouble*>(object.native())->forgetMe = &object;
    EXPECT_EQ(object.call(u"Forget").toString(), u"sample");
    EXPECT_FALSE(IsObjectSet(object));
    EXPECT_EQ(NativeObject::liveCount(), before);
}

TEST(Object, FailingMemberLeavesTheCountBalanced) {
    const std::int64_t before = NativeObject::liveCount();
    {
        const Object object = make<SampleDouble>();
        EXPECT_EQ(errorNumber([&] { object.call(u"Fail"); }), 1234);
        EXPECT_EQ(errorNumber([&] { object.call(u"Join"); }), 450);
        EXPECT_EQ(errorNumber([&] { static_cast<void>(object.enumerate()); }), 451);
    }
    EXPECT_EQ(NativeObject::liveCount(), before);
}

TEST(Object, ResetEmptiesTheReferenceBeforeTheObjectEnds) {
    class Watcher : public SampleDouble {
      public:
        explicit Watcher(Object& holder) : holder_(holder) {}
        ~Watcher() override { wasEmpty() = !IsObjectSet(holder_); }
        static bool& wasEmpty() {
            static bool empty = false;
            return empty;
        }

      private:
        Object& holder_;
    };
    Object holder;
    holder = make<Watcher>(holder);
    holder.reset();
    EXPECT_TRUE(Watcher::wasEmpty());
}

TEST(Object, ReferencesTakenWhileTheObjectEndsDoNotEndItTwice) {
    class Clinger : public SampleDouble {
      public:
        explicit Clinger(int& ends) : ends_(ends) {}
        ~Clinger() override {
            ++ends_;
            const Object again(this);
            const Object more = again;
        }

      private:
        int& ends_;
    };
    int ends = 0;
    Object object = make<Clinger>(ends);
    object.reset();
    EXPECT_EQ(ends, 1);
}

TEST(Object, AnswersToTheNamesItHas) {
    const Object object = make<SampleDouble>();
    EXPECT_TRUE(answersTo(object, u"label"));
    EXPECT_TRUE(answersTo(object, u"Colour"));
    EXPECT_FALSE(answersTo(object, u"Nonsense"));
    EXPECT_FALSE(answersTo(Object(), u"label"));
}

TEST(Member, KeepsItsIdForObjectsOfOneType) {
    const Member label(u"Label");
    const Object a = make<SampleDouble>();
    const Object b = make<SampleDouble>();
    const Object list = make<ListDouble>(std::vector<Value>{});
    const Member count(u"Count");
    EXPECT_EQ(label.idFor(a), label.idFor(b));
    EXPECT_EQ(a.get(label).toString(), u"sample");
    EXPECT_EQ(list.get(count).toInteger(), 0);
    EXPECT_EQ(errorNumber([&] { static_cast<void>(list.get(label)); }), 438);
    EXPECT_EQ(b.get(label).toString(), u"sample");
    EXPECT_EQ(errorNumber([&] { static_cast<void>(label.idFor(Object())); }), 91);
}

TEST(Member, ReadsThroughAProofThatWasMadeBefore) {
    const Member label(u"Label");
    const Member count(u"Count");
    const Object sample = make<SampleDouble>();
    const Object list = make<ListDouble>(std::vector<Value>{});
    EXPECT_EQ(Typed(sample).get(label).toString(), u"sample");
    EXPECT_EQ(Typed(list).get(count).toInteger(), 0);
    EXPECT_EQ(Typed(sample).idOf(label), label.idFor(sample));
    EXPECT_EQ(errorNumber([&] { static_cast<void>(Typed(list).get(label)); }), 438);
    EXPECT_EQ(errorNumber([&] { static_cast<void>(Typed(Object()).get(label)); }), 91);
}

TEST(Member, ResolvesItsNameEachTimeWhereNothingIsProven) {
    const Member label(u"Label");
    const Object sample = make<SampleDouble>();
    const Typed unproven(sample, nullptr);
    EXPECT_EQ(unproven.get(label).toString(), u"sample");
    EXPECT_EQ(unproven.idOf(label), label.idFor(sample));
}

}  // namespace
}  // namespace quorel::automation
