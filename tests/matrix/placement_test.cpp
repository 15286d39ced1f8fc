#include "frame/window_placement.h"
#include "tests/matrix/matrix_fixture.h"

namespace quorel::matrix {
namespace {

using namespace ui::literals;

constexpr ui::Size kSize{13000_tw, 8500_tw};

TEST_F(MatrixTest, WindowOpensWhereTheUserLeftIt) {
    open();
    world.user.resize(*form, kSize);
    form->userMoved({600_tw, 700_tw}, false);
    form->userClosed();
    open();
    EXPECT_EQ(form->clientSize(), kSize);
    EXPECT_EQ(form->bounds().left, 600_tw);
    EXPECT_EQ(form->bounds().top, 700_tw);
    EXPECT_EQ(list(u"TargetInstanceList").bounds().right(), kSize.width) << "the lists fill it";
}

TEST_F(MatrixTest, ConcealedWindowIsRememberedToo) {
    open();
    world.user.resize(*form, kSize);
    form->Conceal();
    const auto placement = frame::readWindowPlacement(world.settings, u"frmMatrixBrowser", {});
    ASSERT_TRUE(placement.has_value());
    EXPECT_EQ(placement->size, kSize);
    EXPECT_EQ(placement->position, std::nullopt) << "it was never moved";
}

TEST_F(MatrixTest, WindowThatWasOnlyEverMaximizedGoesBackToItsFirstSize) {
    open();
    const ui::Size first = form->clientSize();
    form->userMoved({0_tw, 0_tw}, true);
    world.user.resize(*form, {19000_tw, 14000_tw});
    form->userClosed();
    const auto placement = frame::readWindowPlacement(world.settings, u"frmMatrixBrowser", {});
    ASSERT_TRUE(placement.has_value());
    EXPECT_TRUE(placement->maximized);
    EXPECT_EQ(placement->size, first);
}

TEST_F(MatrixTest, WindowThatWasNeverShownWritesNothing) {
    create();
    form->unload();
    EXPECT_EQ(frame::readWindowPlacement(world.settings, u"frmMatrixBrowser", {}), std::nullopt);
}

TEST_F(MatrixTest, BrokenSettingsAreReportedAndTheWindowWorks) {
    testing::BrokenSettings broken;
    const frame::Environment environment{world.desktop, world.classes, world.clock, broken};
    form = std::make_shared<frmMatrixBrowser>(environment);
    world.expectBox();
    form->load();
    EXPECT_EQ(lastPlace(), u"MatrixBrowser/Form_Load");
    form->Create(u"Browser", session);
    form->SetRepository(model.repository);
    form->PopUp(false);
    clickType(kPerson);
    EXPECT_EQ(list(u"SourceInstanceList").count(), 3U);
    world.expectBox();
    form->Conceal();
    EXPECT_EQ(lastPlace(), u"MatrixBrowser/Conceal");
    EXPECT_FALSE(form->isVisible());
    form->PopUp(false);
    world.expectBox();
    form->userClosed();
    EXPECT_EQ(lastPlace(), u"MatrixBrowser/Form_Unload");
    EXPECT_EQ(components->log.back(), u"GetComponent Browser") << "the registration ends all the same";
    world.desktop.verify();
}

}  // namespace
}  // namespace quorel::matrix
