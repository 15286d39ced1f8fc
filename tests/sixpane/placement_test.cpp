#include "platform/automation/text.h"
#include "sixpane/six_pane_placement.h"
#include "tests/sixpane/six_pane_fixture.h"

namespace quorel::sixpane {
namespace {

using ui::Rect;
using ui::Twips;
using namespace ui::literals;

TEST(Placement, ComesBackAsItWasWritten) {
    shell::MemorySettingsStore settings;
    EXPECT_EQ(readPlacement(settings), std::nullopt);
    const Placement placement{
        ui::Point{-300_tw, 450_tw}, {12000_tw, 8000_tw}, true, {{2000, 7000}, {1000, 5000, 9000}}};
    writePlacement(settings, placement);
    EXPECT_EQ(readPlacement(settings), placement);
    EXPECT_EQ(settings.read(u"QuorelUtility", u"frmSixPane", u"Width"), u"12000");
}

TEST(Placement, NonsenseIsIgnored) {
    for (const auto& [key, value] :
         {std::pair{u"Width", u"0"}, std::pair{u"Height", u"-5"}, std::pair{u"FirstColumn", u"10001"},
          std::pair{u"LinkRow", u"-1"}, std::pair{u"TargetRow", u""}}) {
        shell::MemorySettingsStore settings;
        writePlacement(settings, {ui::Point{0_tw, 0_tw}, {12000_tw, 8000_tw}, false, {}});
        settings.write(u"QuorelUtility", u"frmSixPane", key, value);
        EXPECT_EQ(readPlacement(settings), std::nullopt) << automation::toUtf8(key);
    }
}

TEST(Placement, PositionIsOptional) {
    shell::MemorySettingsStore settings;
    const Placement placement{std::nullopt, {12000_tw, 8000_tw}, false, {}};
    writePlacement(settings, placement);
    EXPECT_EQ(readPlacement(settings), placement);
    settings.write(u"QuorelUtility", u"frmSixPane", u"Left", u"150");
    for (const char16_t* top : {u"top", u"1e300", u""}) {
        settings.write(u"QuorelUtility", u"frmSixPane", u"Top", top);
        EXPECT_EQ(readPlacement(settings), placement);
    }
}

TEST_F(SixPaneTest, WindowOpensWhereTheUserLeftIt) {
    open();
    world.user.resize(*form, {13000_tw, 8500_tw});
    form->userMoved({600_tw, 700_tw}, false);
    auto& splitter = headless::get<ui::Splitter>(*form, u"TargetSplitter");
    world.user.dragSplitter(splitter, splitter.bounds().left + 900_tw);
    auto& rowSplitter = headless::get<ui::Splitter>(*form, u"LinkRowSplitter");
    world.user.dragSplitter(rowSplitter, rowSplitter.bounds().top - 600_tw);
    const Rect link = pane(u"Link").bounds();
    form->userClosed();
    open();
    EXPECT_EQ(form->clientSize(), (ui::Size{13000_tw, 8500_tw}));
    EXPECT_EQ(form->bounds().left, 600_tw);
    EXPECT_EQ(form->bounds().top, 700_tw);
    EXPECT_EQ(pane(u"Link").bounds(), link);
    world.desktop.verify();
}

TEST_F(SixPaneTest, MaximizedWindowRemembersWhatItGoesBackTo) {
    open();
    world.user.resize(*form, {13000_tw, 8500_tw});
    form->Conceal();
    form->PopUp(false);
    form->userMoved({0_tw, 0_tw}, true);
    world.user.resize(*form, {19000_tw, 14000_tw});
    form->userClosed();
    const auto placement = readPlacement(world.settings);
    ASSERT_TRUE(placement.has_value());
    EXPECT_TRUE(placement->window.maximized);
    EXPECT_EQ(placement->window.size, (ui::Size{13000_tw, 8500_tw}));
    open();
    EXPECT_TRUE(form->isMaximized());
}

TEST_F(SixPaneTest, WindowThatWasOnlyEverMaximizedGoesBackToItsFirstSize) {
    open();
    const ui::Size first = form->clientSize();
    form->userMoved({0_tw, 0_tw}, true);
    world.user.resize(*form, {19000_tw, 14000_tw});
    form->userClosed();
    const auto placement = readPlacement(world.settings);
    ASSERT_TRUE(placement.has_value());
    EXPECT_EQ(placement->window.size, first);
    EXPECT_EQ(placement->window.position, std::nullopt);
}

TEST_F(SixPaneTest, WindowThatWasNeverMovedOpensInTheMiddleAgain) {
    open();
    world.user.resize(*form, {13000_tw, 8500_tw});
    form->userClosed();
    open();
    EXPECT_FALSE(form->hasPosition());
    EXPECT_EQ(form->clientSize(), (ui::Size{13000_tw, 8500_tw}));
}

TEST_F(SixPaneTest, WindowThatWasNeverShownWritesNothing) {
    create();
    form->unload();
    EXPECT_EQ(readPlacement(world.settings), std::nullopt);
}

TEST_F(SixPaneTest, ResizingMovesThePanesAlong) {
    open();
    const Rect before = pane(u"TargetNode").bounds();
    const ui::Size client = form->clientSize();
    world.user.resize(*form, {client.width + 3000_tw, client.height + 1500_tw});
    EXPECT_GT(pane(u"TargetNode").bounds().right(), before.right() + 2900_tw);
    EXPECT_GT(pane(u"TargetNode").bounds().bottom(), before.bottom() + 1400_tw);
}

TEST_F(SixPaneTest, BrokenSettingsAreReportedAndTheWindowWorks) {
    testing::BrokenSettings broken;
    const frame::Environment environment{world.desktop, world.classes, world.clock, broken};
    form = std::make_shared<frmSixPane>(environment);
    world.expectBox();
    form->load();
    EXPECT_EQ(lastPlace(), u"SixPane/Form_Load");
    form->Create(u"Browser", session);
    form->CreatePanes();
    form->setRepository(model.repository);
    form->Populate();
    form->PopUp(false);
    click(u"MetaLink", kFirst);
    EXPECT_EQ(pane(u"Link").count(), 2U);
    world.expectBox();
    form->userClosed();
    EXPECT_EQ(lastPlace(), u"SixPane/Form_Unload");
    EXPECT_EQ(components->log.back(), u"GetComponent Browser") << "the registration ends all the same";
    world.desktop.verify();
}

}  // namespace
}  // namespace quorel::sixpane
