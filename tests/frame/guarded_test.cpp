#include "frame/guarded.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "platform/ui/plain_controls.h"
#include "tests/support/test_world.h"

namespace quorel::frame {
namespace {

struct GuardedTest : ::testing::Test {
    testing::TestWorld world;
    std::shared_ptr<ui::Form> form = std::make_shared<ui::Form>(world.desktop, u"frmTest");
};

TEST_F(GuardedTest, ResultPassesWhenNothingFails) {
    EXPECT_EQ(guarded(*form, u"M", u"F", [] { return 7; }), 7);
    guarded(*form, u"M", u"F", [] {});
    world.desktop.verify();
}

TEST_F(GuardedTest, FailureShowsOneBoxAndGivesTheDefault) {
    world.expectBox();
    EXPECT_EQ(guarded(*form, u"M", u"F", []() -> int { throw automation::Error(9); }), 0);
    world.desktop.verify();
    EXPECT_EQ(world.boxes().back(),
              u"Error No: 9  'Subscript out of range'\r\n  'QuorelUtility'\r\n(Module 'M' Function 'F()')");
}

TEST_F(GuardedTest, SourceOfAHostsErrorIsKept) {
    world.expectBox();
    guarded(*form, u"M", u"F", [] { throw automation::Error(70, u"No", u"Host.Thing"); });
    EXPECT_EQ(world.boxes().back(), u"Error No: 70  'No'\r\n  'Host.Thing'\r\n(Module 'M' Function 'F()')");
}

TEST_F(GuardedTest, AnyExceptionIsReported) {
    world.expectBox();
    guarded(*form, u"M", u"F", [] { throw std::runtime_error("odd"); });
    EXPECT_EQ(world.boxes().back(),
              u"Error No: 51  'odd'\r\n  'QuorelUtility'\r\n(Module 'M' Function 'F()')");
}

TEST_F(GuardedTest, FormOutlivesTheProcedureThatDropsIt) {
    const std::weak_ptr<ui::Form> watch = form;
    ui::Form& reference = *form;
    world.desktop.expectMessage([&](const ui::Message&) { EXPECT_FALSE(watch.expired()); });
    guarded(reference, u"M", u"F", [this] {
        form.reset();
        throw automation::Error(5);
    });
    EXPECT_TRUE(watch.expired());
    world.desktop.verify();
}

}  // namespace
}  // namespace quorel::frame
