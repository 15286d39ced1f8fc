#include "platform/ui/plain_controls.h"
#include "tests/explorer/explorer_fixture.h"

namespace quorel::explorer {
namespace {

using namespace ui::literals;

struct ExplorerActivation : ExplorerTest {
    ExplorerActivation() { open(); }
};

TEST_F(ExplorerActivation, NothingIsShownBeforeAClick) {
    EXPECT_EQ(visibleTabs(), Texts{});
    EXPECT_EQ(visiblePages(), Texts{});
    EXPECT_EQ(caption(), u"");
}

TEST_F(ExplorerActivation, TheInformationPaneIsShownByItsEntry) {
    click({u"Information"});
    EXPECT_EQ(visibleTabs(), Texts{u"Info"});
    EXPECT_EQ(visiblePages(), Texts{u"ID:1/Info"});
    EXPECT_EQ(caption(), u"QuorelExplorer");
    EXPECT_TRUE(isWhole(get<ui::PictureBox>(u"CaptionBox").pictureAt(96)));
    EXPECT_EQ(get<ui::Label>(u"Label1(1)").text(), u"  Here is the QUOREL Explorer 1.0");
    EXPECT_EQ(get<ui::Label>(u"Label1(1)").font(), (ui::Font{u"", 15, true}));
    EXPECT_EQ(get<ui::Label>(u"Label1(2)").font(), (ui::Font{u"", 10, true}));
}

TEST_F(ExplorerActivation, AClickShowsThePaneOfTheEntry) {
    clickAnna();
    EXPECT_EQ(visibleTabs(), (Texts{u"Data", u"Links"}));
    EXPECT_EQ(visiblePages(), Texts{u"person/Data"});
    EXPECT_EQ(caption(), u"A person");
    EXPECT_TRUE(pane(u"person").Active());
    EXPECT_EQ(property(u"Property1(1)").repObject(), Object(model.anna));
    EXPECT_EQ(combo().selection(), Object(model.acme));
    EXPECT_EQ(combo().box().text(), u"Acme");
}

TEST_F(ExplorerActivation, ListsOfLinksShowTheLinksOfTheNode) {
    clickAnna();
    world.user.clickTab(form().tabs(), 1);
    EXPECT_EQ(visiblePages(), Texts{u"person/Links"});
    EXPECT_EQ(firstColumn(u"ListView1(1)"), Texts{u"Acme"});
    EXPECT_EQ(firstColumn(u"ListView1(2)"), Texts{}) << "nobody knows Anna";
    click({u"Everybody", u"Ben"});
    world.user.clickTab(form().tabs(), 1);
    EXPECT_EQ(firstColumn(u"ListView1(1)"), Texts{});
    EXPECT_EQ(firstColumn(u"ListView1(2)"), Texts{u"Anna"}) << "the source of a link that reaches Ben";
}

TEST_F(ExplorerActivation, AnEntryOfALinkShowsItsTarget) {
    clickAcme();
    EXPECT_EQ(visiblePages(), Texts{u"company/Data"});
    EXPECT_EQ(property(u"Property1(2)").repObject(), Object(model.acme));
}

TEST_F(ExplorerActivation, AFolderShowsTheNodeThatItBelongsTo) {
    clickAnna();
    expand({u"Everybody", u"Anna"});
    click({u"Everybody", u"Anna", u"Jobs"});
    EXPECT_EQ(visiblePages(), Texts{u"jobs/"});
    EXPECT_EQ(firstColumn(u"ListView1(3)"), Texts{u"Acme"});
}

TEST_F(ExplorerActivation, AWholeExtensionStaysAsItIs) {
    click({u"Companies"});
    EXPECT_EQ(firstColumn(u"ListView1(4)"), (Texts{u"Acme", u"Zenith"}));
    static_cast<void>(model.repository->addNode(model.company, u"New"));
    clickAnna();
    click({u"Companies"});
    EXPECT_EQ(list(u"ListView1(4)").count(), 2U) << "fixed when it was described";
}

TEST_F(ExplorerActivation, LeftOverTabsAreHidden) {
    clickAnna();
    click({u"Companies"});
    EXPECT_EQ(visibleTabs(), Texts{u"All"});
    EXPECT_EQ(form().tabs().tabs().size(), 2U);
}

TEST_F(ExplorerActivation, EveryClickGoesToTheFirstTab) {
    clickAnna();
    world.user.clickTab(form().tabs(), 1);
    click({u"Everybody", u"Anna"});
    EXPECT_EQ(form().tabs().selected(), 0U);
    EXPECT_EQ(visiblePages(), Texts{u"person/Data"});
    world.user.clickTab(form().tabs(), 1);
    click({u"Everybody", u"Ben"});
    EXPECT_EQ(form().tabs().selected(), 0U);
    EXPECT_EQ(visiblePages(), Texts{u"person/Data"});
}

TEST_F(ExplorerActivation, TheSameEntryAgainActivatesNothing) {
    clickAnna();
    model.script->restart();
    click({u"Everybody", u"Anna"});
    EXPECT_EQ(model.script->calls(), 0);
    EXPECT_TRUE(pane(u"person").Active());
}

TEST_F(ExplorerActivation, AnEntryWithoutAPaneShowsNothing) {
    clickAnna();
    click({u"Everybody"});
    EXPECT_EQ(visiblePages(), Texts{});
    EXPECT_EQ(visibleTabs(), Texts{});
    EXPECT_EQ(caption(), u"");
    EXPECT_FALSE(pane(u"person").Active());
    click({u"Everybody", u"Anna"});
    EXPECT_EQ(visiblePages(), Texts{u"person/Data"}) << "and the way back is open";
}

TEST_F(ExplorerActivation, KeysInTheTreeShowPanesAsClicksDo) {
    expand({u"Everybody"});
    tree().focus();
    world.user.press(form(), {ui::Key::Home});
    EXPECT_EQ(visiblePages(), Texts{u"ID:1/Info"});
    world.user.press(form(), {ui::Key::Down});
    world.user.press(form(), {ui::Key::Down});
    EXPECT_EQ(visiblePages(), Texts{u"person/Data"});
}

TEST_F(ExplorerActivation, AComboWithoutALinkShowsNothing) {
    expand({u"Everybody"});
    click({u"Everybody", u"Ben"});
    EXPECT_EQ(combo().selection(), Object());
    EXPECT_EQ(combo().box().text(), u"");
}

TEST_F(ExplorerActivation, APaneOfAnEntryWithoutAnObjectIsReported) {
    explorer->AddTreeDesc(u"", u"Group", u"", u"Nobody", u"", u"person");
    world.desktop.runPosted();
    world.expectBox();
    click({u"Nobody"});
    world.desktop.verify();
    EXPECT_EQ(lastPlace(), u"frmExplorer/ActivatePane");
    EXPECT_TRUE(world.boxes().back().starts_with(u"Error No: 91 ")) << "the combo has nobody to ask";
    EXPECT_EQ(property(u"Property1(1)").repObject(), Object());
    clickAnna();
    EXPECT_EQ(visiblePages(), Texts{u"person/Data"});
}

// Leaving a pane.
// ------------------------------------------------------------------------

TEST_F(ExplorerActivation, LeavingAPaneWritesWhatWasChanged) {
    clickAnna();
    controls::Property& grid = property(u"Property1(1)");
    grid.beginEdit(0);
    world.user.enterText(get<ui::TextBox>(u"Property1(1).Text"), u"41");
    EXPECT_EQ(model.anna->values[u"Age"].toInteger(), 40);
    click({u"Companies"});
    EXPECT_EQ(model.anna->values[u"Age"].toInteger(), 41);
    EXPECT_FALSE(pane(u"person").Active());
}

TEST_F(ExplorerActivation, GoingToAnotherObjectOfTheSamePaneWritesToo) {
    clickAnna();
    property(u"Property1(1)").beginEdit(0);
    world.user.enterText(get<ui::TextBox>(u"Property1(1).Text"), u"41");
    click({u"Everybody", u"Ben"});
    EXPECT_EQ(model.anna->values[u"Age"].toInteger(), 41);
    EXPECT_EQ(model.ben->values[u"Age"].toInteger(), 50);
    EXPECT_EQ(property(u"Property1(1)").repObject(), Object(model.ben));
}

TEST_F(ExplorerActivation, AClosedWindowWritesWhatWasChanged) {
    clickAnna();
    property(u"Property1(1)").beginEdit(0);
    world.user.enterText(get<ui::TextBox>(u"Property1(1).Text"), u"41");
    world.user.closeBox(form());
    EXPECT_EQ(model.anna->values[u"Age"].toInteger(), 41);
}

TEST_F(ExplorerActivation, APaneThatCannotBeWrittenIsNotLeft) {
    clickAnna();
    property(u"Property1(1)").beginEdit(0);
    world.user.enterText(get<ui::TextBox>(u"Property1(1).Text"), u"41");
    model.script->onCall = [](const std::u16string& call) {
        if (call == u"id1.SetProperty" || call == u"id1.Age")
            throw automation::Error(1000, u"Refused", u"Repository");
    };
    world.expectBox();
    click({u"Companies"});
    world.desktop.verify();
    model.script->onCall = {};
    EXPECT_EQ(lastPlace(), u"frmExplorer/ActivatePane");
    EXPECT_EQ(visiblePages(), Texts{u"person/Data"});
    EXPECT_EQ(tree().itemText(tree().selected()), u"Anna") << "the tree agrees with what is shown";
    click({u"Companies"});
    EXPECT_EQ(visiblePages(), Texts{u"companies/All"});
    EXPECT_EQ(model.anna->values[u"Age"].toInteger(), 41) << "what was typed was kept";
}

// Layout and windows.
// ------------------------------------------------------------------------

TEST_F(ExplorerActivation, TheLastControlStretchesToTheMarginWhateverItsKind) {
    const auto checkAll = [this] {
        for (const char16_t* id : {u"ID:1", u"person", u"jobs", u"company", u"companies"})
            for (const auto& page : pane(id).Panes()) {
                const ui::Rect last = page->Controls.back().Control->bounds();
                EXPECT_EQ(last.bottom(), page->Pane->bounds().height - 200_tw);
                for (const ExplorerControl& control : page->Controls)
                    EXPECT_EQ(control.Control->bounds().width, page->Pane->bounds().width);
            }
    };
    world.user.resize(form(), {18000_tw, 14000_tw});
    checkAll();
    auto& splitter = get<ui::Splitter>(u"Splitter");
    world.user.dragSplitter(splitter, splitter.bounds().left + 1500_tw);
    checkAll();
    EXPECT_EQ(get<ui::Label>(u"Label1(3)").parent(), pane(u"person").Pane(u"Data").Pane) << "a label, too";
}

TEST_F(ExplorerActivation, OnlyThePaneThatIsShownHasWindows) {
    const std::size_t bare = world.desktop.livePeers();
    click({u"Companies"});
    const std::size_t withCompanies = world.desktop.livePeers();
    EXPECT_GT(withCompanies, bare);
    clickAnna();
    EXPECT_EQ(list(u"ListView1(4)").peer(), nullptr) << "the pane before has none any more";
    EXPECT_EQ(list(u"ListView1(1)").peer(), nullptr) << "nor has a tab that was not shown yet";
    world.user.clickTab(form().tabs(), 1);
    EXPECT_NE(list(u"ListView1(1)").peer(), nullptr);
    click({u"Companies"});
    EXPECT_EQ(world.desktop.livePeers(), withCompanies);
    EXPECT_NE(list(u"ListView1(4)").peer(), nullptr);
}

TEST_F(ExplorerActivation, AClickOnThePictureHidesIt) {
    click({u"Information"});
    auto& box = get<ui::PictureBox>(u"CaptionBox");
    world.user.click(box);
    EXPECT_FALSE(box.isVisible());
}

TEST_F(ExplorerActivation, AnUnknownPictureIsNone) {
    click({u"Information"});
    clickAnna();
    EXPECT_FALSE(isWhole(get<ui::PictureBox>(u"CaptionBox").pictureAt(96)));
}

}  // namespace
}  // namespace quorel::explorer
