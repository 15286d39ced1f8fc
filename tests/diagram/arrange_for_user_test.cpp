#include "diagram/arrange_for_user.h"

#include <set>

#include "tests/diagram/view_fixture.h"

namespace quorel::diagram {
namespace {

/// A user who presses Esc after some looks at the progress.
class ImpatientUser final : public ui::CancelKey {
  public:
    int patience = 1'000'000;
    bool takeCancelKey() override { return --patience < 0; }
};

/// Every reading of it costs some time.
class HastyClock final : public shell::Clock {
  public:
    double now = 50000;
    double step = 0.1;
    std::int64_t seconds() override { return 0; }
    shell::LocalTime localTime(std::int64_t) override { return {}; }
    double secondsSinceMidnight() override { return now += step; }
};

struct Arranging : public ::testing::Test {
    void TearDown() override { EXPECT_NO_THROW(desktop.verify()); }
    [[nodiscard]] bool arrange() {
        return arrangeForUser(environment, *model, [this](std::u16string_view line, const ui::Font& font) {
            EXPECT_TRUE(measured.emplace(line, std::pair(font.family, font.points * 2 + font.bold)).second);
            return ui::Size{100_tw * static_cast<std::int32_t>(line.size()), 200_tw};
        });
    }
    /// None stands on another, and all lines have two ends.
    void expectSound() {
        for (std::size_t a = 0; a < model->boxes.size(); ++a)
            for (std::size_t b = a + 1; b < model->boxes.size(); ++b)
                ASSERT_EQ(ui::intersection(model->boxes[a].place, model->boxes[b].place).width *
                              ui::intersection(model->boxes[a].place, model->boxes[b].place).height.value,
                          0_tw);
        for (const Connection& each : model->connections) {
            ASSERT_GE(each.line.size(), 2U);
            EXPECT_TRUE(touches(model->boxes[each.from].place, each.line.front()));
            EXPECT_TRUE(touches(model->boxes[each.to].place, each.line.back()));
        }
    }

    headless::HeadlessDesktop desktop;
    ImpatientUser user;
    automation::ClassRegistry classes;
    HastyClock clock;
    shell::MemorySettingsStore settings;
    frame::Environment environment{
        .desktop = desktop, .classes = classes, .clock = clock, .settings = settings, .cancelKey = &user};
    std::shared_ptr<DiagramModel> model = gridOf(300, 20);
    std::set<std::pair<std::u16string, std::pair<std::u16string, std::int32_t>>> measured;  ///< no line twice
};

TEST_F(Arranging, ShowsHowFarItIsAndGoesAway) {
    EXPECT_TRUE(arrange());
    expectSound();
    EXPECT_GT(desktop.peersMade(), 0U);
    EXPECT_GE(desktop.refreshes(), 2U);
    EXPECT_EQ(desktop.livePeers(), 0U);
    EXPECT_EQ(desktop.pointer(), ui::Pointer::Default);
}

TEST_F(Arranging, NothingAppearsForAMoment) {
    clock.step = 0;
    EXPECT_TRUE(arrange());
    EXPECT_EQ(desktop.peersMade(), 0U);
}

TEST_F(Arranging, EscLeavesTheBoxesInRows) {
    user.patience = 0;
    for (Box& box : model->boxes)
        box.alignedToText = true;
    EXPECT_FALSE(arrange());
    EXPECT_GT(measured.size(), 300U);
    expectSound();
    EXPECT_EQ(desktop.livePeers(), 0U);
    EXPECT_EQ(desktop.pointer(), ui::Pointer::Default);
}

TEST_F(Arranging, RowsAreAboutAsWideAsAllAreHigh) {
    arrangeInRows(*model, [](std::u16string_view, const ui::Font&) { return ui::Size{100_tw, 200_tw}; });
    expectSound();
    ui::Rect all = model->boxes[0].place;
    for (const Box& box : model->boxes)
        all = ui::united(all, box.place);
    EXPECT_LT(all.width, all.height * 2);
    EXPECT_LT(all.height, all.width * 2);
}

TEST_F(Arranging, NothingIsArrangedAsWell) {
    model = std::make_shared<DiagramModel>();
    EXPECT_TRUE(arrange());
    arrangeInRows(*model, [](std::u16string_view, const ui::Font&) { return ui::Size{}; });
}

}  // namespace
}  // namespace quorel::diagram
