#include "platform/automation/class_registry.h"

#include <gtest/gtest.h>

#include "tests/platform/automation/sample_double.h"

namespace quorel::automation {
namespace {

using testing::errorNumber;
using testing::SampleDouble;

TEST(ClassRegistry, CreatesANewObjectEachTimeIgnoringCase) {
    ClassRegistry registry;
    registry.add(u"Sample.Thing", [] { return Object(make<SampleDouble>()); });
    const Object a = registry.createObject(u"sample.THING");
    const Object b = registry.createObject(u"Sample.Thing");
    EXPECT_TRUE(IsObjectSet(a));
    EXPECT_FALSE(a == b);
}

TEST(ClassRegistry, UnknownIdentifierIsError429ThatNamesIt) {
    const ClassRegistry registry;
    try {
        static_cast<void>(registry.createObject(u"No.Such"));
        FAIL() << "created something";
    } catch (const Error& error) {
        EXPECT_EQ(error.number(), 429);
        EXPECT_NE(error.description().find(u"No.Such"), std::u16string::npos);
    }
}

TEST(ClassRegistry, OwnClassesComeBeforeThePlatform) {
    int asked = 0;
    ClassRegistry registry([&asked](std::u16string_view progId) -> Object {
        ++asked;
        return progId == u"Platform.Thing" ? Object(make<SampleDouble>()) : Object();
    });
    registry.add(u"Own.Thing", [] { return Object(make<SampleDouble>()); });
    EXPECT_TRUE(IsObjectSet(registry.createObject(u"Own.Thing")));
    EXPECT_EQ(asked, 0);
    EXPECT_TRUE(IsObjectSet(registry.createObject(u"Platform.Thing")));
    EXPECT_EQ(errorNumber([&] { static_cast<void>(registry.createObject(u"Other.Thing")); }), 429);
    EXPECT_EQ(asked, 2);
}

TEST(ClassRegistry, PlatformErrorsPassUnchanged) {
    const ClassRegistry registry([](std::u16string_view) -> Object { throw Error(70); });
    EXPECT_EQ(errorNumber([&] { static_cast<void>(registry.createObject(u"X.Y")); }), 70);
}

}  // namespace
}  // namespace quorel::automation
