#include "dialogs/progress.h"

#include <gtest/gtest.h>

#include <limits>

#include "dialogs/progress_bar.h"
#include "platform/automation/calls.h"
#include "platform/ui/plain_controls.h"
#include "platform/ui/progress_bar.h"
#include "tests/support/test_world.h"

namespace quorel::dialogs {
namespace {

using automation::make;
using automation::Object;
using automation::Ref;
using testing::errorNumber;

constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();

struct ProgressTest : ::testing::Test {
    testing::TestWorld world;
    Ref<Progress> progress = make<Progress>(world.environment);

    ui::Form& form() { return *progress->form(); }
    ui::ProgressBar& bar() { return headless::get<ui::ProgressBar>(form(), u"pgBar"); }
    const std::u16string& percentage() { return headless::get<ui::Label>(form(), u"lblPg").text(); }
    ProgressRange shown() { return {bar().value(), bar().minimum(), bar().maximum()}; }
    void open(std::int32_t start, std::int32_t most, std::int32_t least = 0) {
        progress->Create();
        progress->Init(start, most, least);
        progress->PopUp();
    }
};

TEST(ProgressRange, AStartOfOneOrMoreIsKept) {
    EXPECT_EQ(progressRange(3, 10, 0), (ProgressRange{3, 0, 10}));
    EXPECT_EQ(progressRange(3, 10, 2), (ProgressRange{3, 2, 10}));
}

TEST(ProgressRange, AStartBelowOneShortensTheBar) {
    EXPECT_EQ(progressRange(0, 10, 0), (ProgressRange{0, 0, 10}));
    EXPECT_EQ(progressRange(-4, 10, 0), (ProgressRange{0, 0, 6}));
}

TEST(ProgressRange, AMinimumAboveTheMaximumGivesWay) {
    EXPECT_EQ(progressRange(3, 10, 11), (ProgressRange{3, 0, 10}));
    EXPECT_EQ(progressRange(1, -5, 0), (ProgressRange{-5, -5, -5}));
}

TEST(ProgressRange, EveryCombinationKeepsTheOrder) {
    const std::int32_t numbers[] = {kLeast, kLeast + 1, -100, -1, 0, 1, 2, 100, kMost - 1, kMost};
    for (const std::int32_t start : numbers)
        for (const std::int32_t most : numbers)
            for (const std::int32_t least : numbers) {
                const ProgressRange range = progressRange(start, most, least);
                EXPECT_LE(range.minimum, range.value) << start << ' ' << most << ' ' << least;
                EXPECT_LE(range.value, range.maximum) << start << ' ' << most << ' ' << least;
                for (const std::int32_t by : numbers) {
                    const std::int32_t after = advanced(range, by);
                    EXPECT_TRUE(range.minimum <= after && after <= range.maximum);
                }
            }
}

TEST(ProgressRange, PercentagesAreRoundedHalvesToEven) {
    EXPECT_EQ(percentageOf(0, 4), 0);
    EXPECT_EQ(percentageOf(1, 3), 33);
    EXPECT_EQ(percentageOf(2, 3), 67);
    EXPECT_EQ(percentageOf(1, 200), 0);
    EXPECT_EQ(percentageOf(3, 200), 2);
    EXPECT_EQ(percentageOf(5, 200), 2);
    EXPECT_EQ(percentageOf(kMost, kMost), 100);
    EXPECT_EQ(percentageOf(-1, 200), 0);
    EXPECT_EQ(percentageOf(-3, 200), -2);
    EXPECT_EQ(percentageOf(kLeast, 1), std::int64_t{kLeast} * 100);
    EXPECT_EQ(percentageOf(7, 0), 0);
}

TEST_F(ProgressTest, MembersThatNeedTheWindowAreError91WithoutIt) {
    const auto check = [this] {
        EXPECT_EQ(errorNumber([&] { progress->Init(0, 4, 0); }), 91);
        EXPECT_EQ(errorNumber([&] { progress->setText(u"t"); }), 91);
        EXPECT_EQ(errorNumber([&] { progress->setTitle(u"t"); }), 91);
        EXPECT_EQ(errorNumber([&] { progress->setCaption(u"t"); }), 91);
        EXPECT_EQ(errorNumber([&] { progress->incValue(0); }), 91);
        EXPECT_EQ(errorNumber([&] { progress->PopUp(); }), 91);
        progress->Conceal();
        progress->Destroy();
    };
    check();
    progress->Create();
    progress->Destroy();
    check();
}

TEST_F(ProgressTest, TheLabelLagsOneStepBehindTheBar) {
    open(0, 4);
    EXPECT_EQ(percentage(), u"");
    progress->incValue(0);
    EXPECT_EQ(bar().value(), 1);
    EXPECT_EQ(percentage(), u"0%");
    progress->incValue(0);
    EXPECT_EQ(percentage(), u"25%");
}

TEST_F(ProgressTest, AdvancesByOneForNothingAndByTheNumberGiven) {
    open(0, 100);
    const Object host = progress;
    host.call(u"incValue");
    EXPECT_EQ(bar().value(), 1);
    host.call(u"incValue", 0);
    EXPECT_EQ(bar().value(), 2);
    host.call(u"incValue", 5);
    EXPECT_EQ(bar().value(), 7);
}

TEST_F(ProgressTest, AFullBarStaysAndCountsTheOverflow) {
    open(0, 2);
    progress->incValue(2);
    EXPECT_EQ(percentage(), u"0%");
    EXPECT_EQ(progress->getOverflow(), 0);
    progress->incValue(1);
    progress->incValue(7);
    EXPECT_EQ(bar().value(), 2);
    EXPECT_EQ(percentage(), u"0%");
    EXPECT_EQ(progress->getOverflow(), 2);
    progress->Init(0, 3, 0);
    EXPECT_EQ(progress->getOverflow(), 0);
    EXPECT_EQ(shown(), (ProgressRange{0, 0, 3}));
}

TEST_F(ProgressTest, AnAdvanceBeyondTheEndFillsTheBar) {
    open(1, 10);
    progress->incValue(1000);
    EXPECT_EQ(bar().value(), 10);
    EXPECT_EQ(progress->getOverflow(), 0);
}

TEST_F(ProgressTest, EachLetAndItsTwinSetTheSameText) {
    open(0, 4);
    const Object host = progress;
    auto& status = headless::get<ui::StatusBar>(form(), u"stdBar");
    const auto& title = headless::get<ui::Label>(form(), u"lblProgress");
    host.put(u"text", u"one");
    EXPECT_EQ(status.panels()[0].text, u"one");
    host.call(u"newText", u"two");
    EXPECT_EQ(status.panels()[0].text, u"two");
    host.put(u"Title", u"one");
    EXPECT_EQ(title.text(), u"one");
    host.call(u"newTitle", u"two");
    EXPECT_EQ(title.text(), u"two");
    host.put(u"Caption", u"one");
    EXPECT_EQ(form().text(), u"one");
    host.call(u"newCaption", u"two");
    EXPECT_EQ(form().text(), u"two");
}

TEST_F(ProgressTest, IsModelessAndPaintsWhileTheHostWorks) {
    open(0, 1'000'000);
    EXPECT_TRUE(form().isVisible());
    EXPECT_FALSE(form().isModal());
    const std::size_t before = world.desktop.refreshes();
    for (int i = 0; i < 100'000; ++i) {
        world.clock.timer += 0.00001;
        progress->incValue(0);
    }
    EXPECT_GE(world.desktop.refreshes() - before, 25U);
    EXPECT_LE(world.desktop.refreshes() - before, 31U);
    EXPECT_NEAR(*form().progress(), 0.1, 1e-9);
}

TEST_F(ProgressTest, TheLastStepIsPaintedHoweverSoonItComes) {
    open(0, 2);
    progress->incValue(0);
    const std::size_t before = world.desktop.refreshes();
    progress->incValue(0);
    EXPECT_EQ(world.desktop.refreshes(), before + 1);
}

TEST_F(ProgressTest, PaintsOnAfterMidnight) {
    open(0, 100);
    world.clock.timer = 86'399.9;
    progress->incValue(0);
    world.clock.timer = 0.0;
    const std::size_t before = world.desktop.refreshes();
    progress->incValue(0);
    EXPECT_EQ(world.desktop.refreshes(), before + 1);
}

TEST_F(ProgressTest, ConcealedItKeepsItsState) {
    open(2, 8);
    progress->Conceal();
    EXPECT_FALSE(form().isVisible());
    progress->incValue(0);
    progress->PopUp();
    EXPECT_EQ(shown(), (ProgressRange{3, 0, 8}));
}

struct ProgressBarTest : ::testing::Test {
    testing::TestWorld world;
    Ref<ProgressBar> progress = make<ProgressBar>(world.environment);
    ui::Form& form() { return *progress->form(); }
    ui::ProgressBar& bar() { return headless::get<ui::ProgressBar>(form(), u"Bar"); }
};

TEST_F(ProgressBarTest, MembersAreError91WithoutTheWindow) {
    EXPECT_EQ(errorNumber([&] { progress->Information(u"i"); }), 91);
    EXPECT_EQ(errorNumber([&] { progress->min(0); }), 91);
    EXPECT_EQ(errorNumber([&] { progress->max(0); }), 91);
    EXPECT_EQ(errorNumber([&] { progress->Value(0); }), 91);
    EXPECT_EQ(errorNumber([&] { progress->PopUp(); }), 91);
    EXPECT_EQ(errorNumber([&] { progress->Conceal(); }), 91);
    progress->Destroy();
}

TEST_F(ProgressBarTest, TakesItsNumbersInAnyOrder) {
    progress->Create();
    progress->Value(7);
    progress->max(10);
    progress->min(4);
    progress->PopUp();
    EXPECT_EQ(bar().value(), 7);
    EXPECT_DOUBLE_EQ(bar().filled(), 0.5);
    progress->min(kMost);
    progress->max(kLeast);
    EXPECT_DOUBLE_EQ(bar().filled(), 0);
}

TEST_F(ProgressBarTest, ShowsTheInformationAndHides) {
    progress->Create();
    progress->PopUp();
    EXPECT_FALSE(form().isModal());
    progress->Information(u"Reading files");
    EXPECT_EQ(headless::get<ui::Label>(form(), u"Information").text(), u"Reading files");
    progress->Conceal();
    EXPECT_FALSE(form().isVisible());
}

}  // namespace
}  // namespace quorel::dialogs
