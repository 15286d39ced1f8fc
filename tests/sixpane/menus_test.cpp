#include "platform/ui/menu.h"
#include "tests/sixpane/six_pane_fixture.h"

namespace quorel::sixpane {
namespace {

struct MenusTest : SixPaneTest {
    void showSelect() { form->menuBar().find(u"mnuSelect")->setVisible(true); }
    void choose(std::u16string_view entry) { world.user.chooseMenu(*form, entry); }
};

TEST_F(MenusTest, SelectIsInvisible) {
    open();
    EXPECT_FALSE(form->menuBar().find(u"mnuSelect")->isVisible());
    EXPECT_NE(form->menuBar().find(u"mnuRepository"), nullptr);
}

TEST_F(MenusTest, SelectWithoutManagerDoesNothing) {
    open();
    form->setRepositoryManager({});
    showSelect();
    choose(u"mnuSelect");
    EXPECT_EQ(counts(), (Counts{3, 0, 2, 0, 3, 0}));
    EXPECT_TRUE(model.script->log.empty());
    world.desktop.verify();
}

TEST_F(MenusTest, CancelledSelectDoesNothing) {
    open();
    showSelect();
    choose(u"mnuSelect");
    EXPECT_EQ(counts(), (Counts{3, 0, 2, 0, 3, 0}));
    EXPECT_EQ(model.script->log, (Log{u"manager.SelectDialog"}));
    world.desktop.verify();
}

TEST_F(MenusTest, SelectEmptiesThePanesAndKeepsTheRepository) {
    open();
    click(u"MetaLink", kFirst);
    const auto other = make<RepositoryDouble>(model.script);
    manager->chosen = make<testing::RepositoryHolderDouble>(model.script, other);
    showSelect();
    model.script->restart();
    choose(u"mnuSelect");
    EXPECT_EQ(counts(), (Counts{0, 0, 0, 0, 0, 0}));
    EXPECT_EQ(model.script->log, (Log{u"manager.SelectDialog"}))
        << "nothing is populated and nothing is asked of what was chosen";
    EXPECT_EQ(form->Repository(), Object(model.repository));
    form->Populate();
    EXPECT_EQ(counts(), (Counts{3, 0, 2, 0, 3, 0}));
    world.desktop.verify();
}

TEST_F(MenusTest, ShowMetamodelDoesNothing) {
    open();
    choose(u"mnuShowMetamodel");
    EXPECT_TRUE(model.script->log.empty());
    world.desktop.verify();
}

TEST_F(MenusTest, RefreshShowsWhatIsNewAndKeepsTheSelection) {
    open();
    click(u"MetaLink", kFirst);
    click(u"Link", kSecond);
    model.repository->addMetaNode(u"Country");
    model.repository->addNode(model.person, u"Cleo");
    model.repository->addLink(model.worksFor, u"d", model.anna, model.zenith);
    world.user.press(*form, {ui::Key::F5});
    EXPECT_EQ(counts(), (Counts{4, 3, 2, 3, 4, 2}));
    EXPECT_EQ(selected(u"SourceMetaNode"), Object(model.person));
    EXPECT_EQ(selected(u"SourceNode"), Object(model.ben));
    EXPECT_EQ(selected(u"MetaLink"), Object(model.worksFor));
    EXPECT_EQ(selected(u"Link"), Object(model.benAtZenith));
    EXPECT_EQ(selected(u"TargetNode"), Object(model.zenith));
    world.desktop.verify();
}

TEST_F(MenusTest, RefreshPassesOverWhatIsGone) {
    open();
    click(u"MetaLink", kFirst);
    click(u"Link", kSecond);
    model.person->extension->items.pop_back();
    model.script->onCall = [](const std::u16string& call) {
        if (call.starts_with(u"id2."))
            throw automation::Error(1002, u"This node was removed", u"Repository");
    };
    choose(u"mnuRefresh");
    EXPECT_EQ(pane(u"SourceNode").count(), 1U);
    EXPECT_FALSE(selected(u"SourceNode"));
    EXPECT_EQ(selected(u"TargetNode"), Object(model.zenith));
    world.desktop.verify();
}

TEST_F(MenusTest, CloseIsTheCloseBox) {
    open();
    choose(u"mnuClose");
    EXPECT_FALSE(form->isLoaded());
}

TEST_F(MenusTest, ResetLayoutPutsTheSplittersBack) {
    open();
    const ui::Rect before = pane(u"Link").bounds();
    auto& splitter = headless::get<ui::Splitter>(*form, u"SourceSplitter");
    world.user.dragSplitter(splitter, splitter.bounds().left - ui::Twips{1500});
    EXPECT_NE(pane(u"Link").bounds(), before);
    choose(u"mnuResetLayout");
    EXPECT_EQ(pane(u"Link").bounds(), before);
}

}  // namespace
}  // namespace quorel::sixpane
