#include <gtest/gtest.h>

#include "tests/platform/automation/sample_double.h"

namespace quorel::automation {
namespace {

using testing::errorNumber;
using testing::ListDouble;
using testing::SampleDouble;

std::vector<Value> samples(std::size_t count) {
    std::vector<Value> items;
    for (std::size_t i = 0; i < count; ++i)
        items.emplace_back(make<SampleDouble>());
    return items;
}

TEST(Enumeration, GivesEveryElementOnceInOrder) {
    for (const std::size_t count : {0U, 1U, 63U, 64U, 65U, 128U, 1000U}) {
        const std::vector<Value> items = samples(count);
        const Object list = make<ListDouble>(items);
        std::size_t seen = 0;
        for (const Object& element : each(list)) {
            ASSERT_LT(seen, items.size());
            EXPECT_TRUE(element == items[seen].toObject());
            ++seen;
        }
        EXPECT_EQ(seen, count);
    }
}

TEST(Enumeration, AnElementThatIsNoObjectIsError13AndNothingIsPassedOn) {
    const Object mixed = make<ListDouble>(std::vector<Value>{Value::nothing(), Value(7)});
    int seen = 0;
    EXPECT_EQ(errorNumber([&] {
                  for (const Object& element : each(mixed)) {
                      EXPECT_FALSE(IsObjectSet(element));
                      ++seen;
                  }
              }),
              13);
    EXPECT_EQ(seen, 1);
}

TEST(Enumeration, ObjectsAreReadInBatchesOfAnySize) {
    const std::vector<Value> items = samples(200);
    for (const std::size_t batch : {1U, 63U, 64U, 65U, 256U}) {
        const Object list = make<ListDouble>(items);
        const auto source = list.enumerate();
        std::size_t seen = 0;
        std::size_t filled = batch;
        while (filled == batch) {
            std::vector<Object> read(batch);
            source->nextObjects(read, filled);
            for (std::size_t i = 0; i < filled; ++i)
                EXPECT_TRUE(read[i] == items[seen++].toObject());
        }
        EXPECT_EQ(seen, items.size());
    }
}

TEST(Enumeration, ObjectsBeforeAnElementThatIsNoneAreInPlace) {
    std::vector<Value> mixed = samples(70);
    mixed[66] = Value(7);
    const Object list = make<ListDouble>(mixed);
    std::vector<Object> read(70);
    std::size_t filled = 0;
    EXPECT_EQ(errorNumber([&] { list.enumerate()->nextObjects(read, filled); }), 13);
    EXPECT_EQ(filled, 66U);
    EXPECT_TRUE(read[65] == mixed[65].toObject());
}

TEST(Enumeration, AnObjectThatIsNoCollectionIsError451) {
    const Object object = make<SampleDouble>();
    EXPECT_EQ(errorNumber([&] { static_cast<void>(each(object)); }), 451);
}

TEST(Enumeration, AnEmptyReferenceIsError91) {
    EXPECT_EQ(errorNumber([] { static_cast<void>(each(Object())); }), 91);
}

TEST(Enumeration, KeepsTheCollectionAliveAndLeavesNothingBehind) {
    const std::int64_t before = NativeObject::liveCount();
    {
        Object list = make<ListDouble>(samples(100));
        int seen = 0;
        for (const Object& element : each(list)) {
            list.reset();
            EXPECT_TRUE(IsObjectSet(element));
            ++seen;
        }
        EXPECT_EQ(seen, 100);
    }
    EXPECT_EQ(NativeObject::liveCount(), before);
}

}  // namespace
}  // namespace quorel::automation
