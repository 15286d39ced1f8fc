#include "frame/uuid_generator.h"

#include <gtest/gtest.h>

#include <cmath>
#include <unordered_set>

#include "platform/automation/calls.h"
#include "platform/automation/error.h"
#include "platform/shell/system_clock.h"
#include "tests/support/test_world.h"

namespace quorel::frame {
namespace {

using automation::make;
using automation::Object;
using automation::Ref;

struct UuidGeneratorTest : ::testing::Test {
    testing::ManualClock clock;
    Ref<UUIDGenerator> generator = make<UUIDGenerator>(clock);
};

bool isDigits(std::u16string_view text) {
    return text.find_first_not_of(u"0123456789") == std::u16string_view::npos;
}

TEST_F(UuidGeneratorTest, FirstIdentifierAfterInitBearsTwo) {
    generator->Create();
    generator->Init(u"SixPane");
    const std::u16string id = generator->GetUUID();
    EXPECT_EQ(id.substr(0, 3), u"ID:");
    EXPECT_TRUE(isDigits(id.substr(3, 5)));
    EXPECT_EQ(id.substr(8), u":SixPane::20020303::140509::0000000002");
    EXPECT_EQ(generator->GetUUID().substr(8), u":SixPane::20020303::140509::0000000003");
}

TEST_F(UuidGeneratorTest, EmptyNamespaceLeavesTheTimeRightBehindTheTag) {
    generator->Create();
    generator->Init();
    EXPECT_EQ(generator->GetUUID().substr(8), u":20020303::140509::0000000002");
}

TEST_F(UuidGeneratorTest, WithoutInitTagAndPrefixAreEmpty) {
    EXPECT_EQ(generator->GetUUID(), u"ID::20020303::140509::0000000001");
    generator->Create();
    EXPECT_EQ(generator->GetUUID(), u"ID::20020303::140509::0000000002");
}

TEST_F(UuidGeneratorTest, DeinitCountsFromZeroAndKeepsTagAndPrefix) {
    generator->Create();
    generator->Init(u"NS");
    const std::u16string before = generator->GetUUID();
    generator->Deinit();
    const std::u16string after = generator->GetUUID();
    EXPECT_EQ(after.substr(0, after.size() - 10), before.substr(0, before.size() - 10));
    EXPECT_EQ(after.substr(after.size() - 10), u"0000000001");
    generator->Destroy();
    EXPECT_EQ(generator->GetUUID().substr(after.size() - 10), u"0000000002");
}

TEST_F(UuidGeneratorTest, InitDrawsANewTag) {
    generator->Create();
    std::unordered_set<std::u16string> tags;
    for (int i = 0; i < 20; ++i) {
        generator->Init(u"NS");
        tags.insert(generator->GetUUID().substr(3, 5));
    }
    EXPECT_GT(tags.size(), 15U);
}

TEST_F(UuidGeneratorTest, TagFollowsTheTimeOfDay) {
    const auto tagAt = [this](double timer) {
        clock.timer = timer;
        generator->Create();
        generator->Init();
        return generator->GetUUID().substr(3, 5);
    };
    EXPECT_EQ(tagAt(100), tagAt(100));
    EXPECT_NE(tagAt(100), tagAt(100.5));
}

TEST_F(UuidGeneratorTest, TwoGeneratorsOfOneSecondDifferOnlyInTheirTags) {
    const auto other = make<UUIDGenerator>(clock);
    generator->Create();
    clock.timer += 0.25;
    other->Create();
    generator->Init(u"NS");
    other->Init(u"NS");
    const std::u16string a = generator->GetUUID(), b = other->GetUUID();
    EXPECT_NE(a, b);
    EXPECT_EQ(a.substr(8), b.substr(8));
}

TEST_F(UuidGeneratorTest, TimeIsThatOfTheCall) {
    generator->Init();
    static_cast<void>(generator->GetUUID());
    clock.now += 1;
    clock.fields = {2002, 12, 31, 23, 59, 59};
    EXPECT_EQ(generator->GetUUID().substr(8), u":20021231::235959::0000000003");
    clock.now -= 10;
    clock.fields = {33, 1, 2, 3, 4, 5};
    EXPECT_EQ(generator->GetUUID().substr(8), u":00330102::030405::0000000004");
}

TEST_F(UuidGeneratorTest, CalendarIsReadOncePerSecond) {
    generator->Init();
    for (int i = 0; i < 1000; ++i)
        static_cast<void>(generator->GetUUID());
    EXPECT_EQ(clock.calendarReadings, 1);
}

TEST_F(UuidGeneratorTest, CountingPastTheLargestNumberIsError6) {
    const auto full = make<UUIDGenerator>(clock, 2147483646);
    EXPECT_EQ(full->GetUUID(), u"ID::20020303::140509::2147483647");
    EXPECT_EQ(testing::errorNumber([&] { static_cast<void>(full->GetUUID()); }), 6);
    EXPECT_EQ(testing::errorNumber([&] { static_cast<void>(full->GetUUID()); }), 6);
    full->Deinit();
    EXPECT_EQ(full->GetUUID(), u"ID::20020303::140509::0000000001");
}

TEST_F(UuidGeneratorTest, HostileNamespacesAreKept) {
    const std::u16string hostile(u"a\0\xDC00\u202E::", 6);
    generator->Init(hostile);
    EXPECT_EQ(generator->GetUUID().substr(9, 8), hostile + u"::");
    const std::u16string huge(1 << 20, u'n');
    generator->Init(huge);
    EXPECT_EQ(generator->GetUUID().size(), huge.size() + 9 + 2 + 16 + 2 + 10);
}

TEST_F(UuidGeneratorTest, MembersAreCalledByName) {
    const Object object = generator;
    EXPECT_TRUE(object.call(u"Create").isEmpty());
    EXPECT_TRUE(object.call(u"Init", u"NS").isEmpty());
    EXPECT_EQ(object.call(u"GetUUID").toString().substr(8, 5), u":NS::");
    EXPECT_TRUE(object.call(u"Init").isEmpty());
    EXPECT_TRUE(object.call(u"Deinit").isEmpty());
    EXPECT_TRUE(object.call(u"Destroy").isEmpty());
    EXPECT_EQ(testing::errorNumber([&] { object.call(u"Init", u"a", u"b"); }), 450);
    std::vector<std::u16string> names;
    for (const automation::MemberInfo& member : generator->classTable().members())
        names.push_back(member.name);
    EXPECT_EQ(names, (std::vector<std::u16string>{u"Create", u"Init", u"GetUUID", u"Deinit", u"Destroy"}));
}

TEST(RandomTag, KeepsTheLastFiveCharactersOfTheRoundedNumber) {
    EXPECT_EQ(randomTag(0.0F), u"00000");
    EXPECT_EQ(randomTag(0.04217F), u"04217");
    EXPECT_EQ(randomTag(0.5F), u"50000");
    EXPECT_EQ(randomTag(0.000004F), u"00000");
    EXPECT_EQ(randomTag(0.000006F), u"00001");
    EXPECT_EQ(randomTag(0.99999F), u"99999");
    EXPECT_EQ(randomTag(std::nextafter(1.0F, 0.0F)), u"00000");
}

TEST(Counter, HasAtLeastTenDigits) {
    const auto text = [](std::int64_t counter) {
        std::u16string out;
        appendCounter(out, counter);
        return out;
    };
    EXPECT_EQ(text(0), u"0000000000");
    EXPECT_EQ(text(9999999999), u"9999999999");
    EXPECT_EQ(text(12345678901), u"12345678901");
}

TEST(UuidGenerator, NoDuplicatesInAMillion) {
    shell::SystemClock clock;
    const auto generator = make<UUIDGenerator>(clock);
    generator->Create();
    generator->Init(u"SixPane");
    std::unordered_set<std::u16string> seen;
    seen.reserve(1000000);
    for (int i = 0; i < 1000000; ++i)
        ASSERT_TRUE(seen.insert(generator->GetUUID()).second);
}

}  // namespace
}  // namespace quorel::frame
