#include <gtest/gtest.h>

#include "platform/automation/error.h"
#include "platform/headless/drawing_export.h"
#include "platform/headless/user.h"

namespace quorel::headless {

namespace {

using namespace ui::literals;

struct World {
    HeadlessDesktop desktop;
    User user{desktop};
    std::shared_ptr<ui::Form> form = std::make_shared<ui::Form>(desktop, u"frm");
    ui::DrawingArea& area = form->add<ui::DrawingArea>(u"Area");

    World() {
        area.setBounds({150_tw, 150_tw, 3000_tw, 1500_tw});
        form->show(ui::Modality::Modeless);
    }
};

}  // namespace

TEST(RecordingCanvas, TellsWhereThingsAreOnTheCanvasAndWhetherTheyAreSeen) {
    RecordingCanvas canvas(wholeView({3000_tw, 1500_tw}));
    canvas.fillRectangle({100_tw, 100_tw, 200_tw, 50_tw}, {1, 2, 3});
    canvas.setView({{300_tw, 0_tw, 1000_tw, 1000_tw}, {600_tw, 600_tw}, 2});
    canvas.drawText({700_tw, 650_tw}, u"seen", {}, {});
    canvas.drawText({1200_tw, 650_tw}, u"beyond", {}, {});
    EXPECT_EQ(canvas.texts(), (std::vector<std::u16string>{u"seen", u"beyond"}));
    EXPECT_EQ(canvas.onCanvas(canvas.items()[0]), (ui::Rect{100_tw, 100_tw, 200_tw, 50_tw}));
    EXPECT_EQ(canvas.onCanvas(*canvas.findText(u"seen")), (ui::Rect{500_tw, 100_tw, 0_tw, 0_tw}));
    EXPECT_TRUE(canvas.isSeen(*canvas.findText(u"seen")));
    EXPECT_FALSE(canvas.isSeen(*canvas.findText(u"beyond")));
    EXPECT_EQ(canvas.findText(u"other"), nullptr);
}

TEST(DrawingUser, SeesWhatIsPaintedAndWhatIsToBePaintedAnew) {
    World world;
    std::vector<ui::Rect> painted;
    world.area.setPainter([&](ui::Canvas& canvas, const ui::Rect& dirty) {
        painted.push_back(dirty);
        canvas.drawText({}, u"drawn", {}, {});
    });
    EXPECT_EQ(world.user.look(world.area).texts(), std::vector<std::u16string>{u"drawn"});
    EXPECT_TRUE(world.user.lookAtChanges(world.area).items().empty());
    world.area.invalidate({100_tw, 100_tw, 100_tw, 100_tw});
    world.area.invalidate({2900_tw, 50_tw, 900_tw, 100_tw});
    static_cast<void>(world.user.lookAtChanges(world.area));
    EXPECT_EQ(painted,
              (std::vector<ui::Rect>{{0_tw, 0_tw, 3000_tw, 1500_tw}, {100_tw, 50_tw, 2900_tw, 150_tw}}));
}

TEST(DrawingUser, CannotDoWhatNoMouseCan) {
    World world;
    EXPECT_THROW(world.user.clickAt(world.area, {3000_tw, 0_tw}), CannotDo);
    EXPECT_THROW(world.user.releaseMouse(world.area, {}), CannotDo);
    world.user.pressMouse(world.area, {10_tw, 10_tw});
    EXPECT_THROW(world.user.pressMouse(world.area, {10_tw, 10_tw}), CannotDo);
    world.user.moveMouse(world.area, {-10_tw, 9000_tw});
    world.user.releaseMouse(world.area, {-10_tw, 9000_tw});
    world.area.setEnabled(false);
    EXPECT_THROW(world.user.clickAt(world.area, {}), CannotDo);
}

TEST(HeadlessDrawingExport, KeepsWhatItWasAsked) {
    DrawingExport service;
    const auto painter = [](ui::Canvas& canvas) { canvas.drawText({}, u"text", {}, {}); };
    EXPECT_DOUBLE_EQ(service.writePng(u"a.png", {3000_tw, 1500_tw}, 192, painter), 192);
    service.writeEmf(u"b.emf", {30_tw, 15_tw}, painter);
    service.setCancels(true);
    EXPECT_FALSE(service.print(u"Title", {30_tw, 15_tw}, painter, nullptr));
    service.setCancels(false);
    EXPECT_TRUE(service.print(u"Title", {30_tw, 15_tw}, painter, nullptr));
    ASSERT_EQ(service.jobs().size(), 3U);
    EXPECT_EQ(service.jobs()[0].target, u"a.png");
    EXPECT_EQ(service.jobs()[2].kind, DrawingExport::Kind::Print);
    EXPECT_EQ(service.jobs()[2].canvas.texts(), std::vector<std::u16string>{u"text"});
    service.setFails(true);
    EXPECT_THROW(service.writeEmf(u"c.emf", {}, painter), automation::Error);
}

TEST(ExportResolution, IsWhatIsAskedUntilThereWouldBeTooManyPixels) {
    EXPECT_DOUBLE_EQ(ui::exportResolution({14'400_tw, 14'400_tw}, 192), 192);
    EXPECT_DOUBLE_EQ(ui::exportResolution({1'440'000_tw, 1440_tw}, 96), 32);
    EXPECT_NEAR(ui::exportResolution({1'440'000_tw, 1'440'000_tw}, 96), 10, 1e-9);
    EXPECT_DOUBLE_EQ(ui::exportResolution({}, 96), 96);
}

}  // namespace quorel::headless
