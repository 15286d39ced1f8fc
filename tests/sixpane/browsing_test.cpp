#include <algorithm>

#include "tests/sixpane/six_pane_fixture.h"

namespace quorel::sixpane {
namespace {

TEST_F(SixPaneTest, PanesBearTheirNamesAndColours) {
    create();
    const auto colour = [this](std::u16string_view name) { return pane(name).list().background(); };
    EXPECT_EQ(colour(u"SourceMetaNode"), (ui::Colour{210, 210, 255}));
    EXPECT_EQ(colour(u"SourceNode"), (ui::Colour{235, 235, 255}));
    EXPECT_EQ(colour(u"MetaLink"), (ui::Colour{210, 255, 210}));
    EXPECT_EQ(colour(u"Link"), (ui::Colour{235, 255, 235}));
    EXPECT_EQ(colour(u"TargetMetaNode"), (ui::Colour{255, 255, 210}));
    EXPECT_EQ(colour(u"TargetNode"), (ui::Colour{255, 255, 235}));
    EXPECT_EQ(form->name(), u"frmSixPane");
    EXPECT_EQ(headless::get<ui::VirtualList>(*form, u"MetaLink").name(), u"MetaLink");
}

TEST_F(SixPaneTest, PopulateFillsTheTypePanesAlone) {
    create();
    form->setRepository(model.repository);
    form->Init();
    EXPECT_EQ(counts(), (Counts{0, 0, 0, 0, 0, 0}));
    model.script->restart();
    form->Populate();
    EXPECT_EQ(counts(), (Counts{3, 0, 2, 0, 3, 0}));
    EXPECT_EQ(model.script->log, (Log{u"repository.MetaNodes", u"MetaNodes.enumerate", u"MetaNodes.next",
                                      u"repository.MetaNodes", u"MetaNodes.enumerate", u"MetaNodes.next",
                                      u"repository.MetaLinks", u"MetaLinks.enumerate", u"MetaLinks.next"}));
    world.desktop.verify();
}

TEST_F(SixPaneTest, MetaNodeClickFillsTheNodesBesideIt) {
    open();
    click(u"SourceMetaNode", kFirst);
    EXPECT_EQ(counts(), (Counts{3, 2, 2, 0, 3, 0}));
    click(u"TargetMetaNode", kThird);
    EXPECT_EQ(counts(), (Counts{3, 2, 2, 0, 3, 1}));
    click(u"SourceMetaNode", kThird);
    EXPECT_EQ(counts(), (Counts{3, 1, 2, 0, 3, 1}));
    EXPECT_EQ(world.user.look(pane(u"SourceNode").list(), 0, 1)[0][0], u"Paris");
    world.desktop.verify();
}

TEST_F(SixPaneTest, ColumnsShowThePropertiesOfTheType) {
    open();
    click(u"SourceMetaNode", kFirst);
    const auto& columns = pane(u"SourceNode").list().columns();
    ASSERT_EQ(columns.size(), 2U);
    EXPECT_EQ(columns[1].title, u"Age");
    EXPECT_EQ(world.user.look(pane(u"SourceNode").list(), 0, 2),
              (std::vector<std::vector<std::u16string>>{{u"Anna", u"40"}, {u"Ben", u""}}));
    click(u"MetaLink", kFirst);
    EXPECT_EQ(world.user.look(pane(u"Link").list(), 0, 1)[0],
              (std::vector<std::u16string>{u"a", u"Anna", u"Acme", u"1999"}));
}

TEST_F(SixPaneTest, MetaLinkClickShowsItsLinksAndBothEnds) {
    open();
    click(u"MetaLink", kFirst);
    EXPECT_EQ(counts(), (Counts{3, 2, 2, 2, 3, 2}));
    EXPECT_EQ(selected(u"SourceMetaNode"), Object(model.person));
    EXPECT_EQ(selected(u"TargetMetaNode"), Object(model.company));
    click(u"MetaLink", kSecond);
    EXPECT_EQ(counts(), (Counts{3, 2, 2, 1, 3, 1}));
    EXPECT_EQ(selected(u"TargetMetaNode"), Object(model.city));
    world.desktop.verify();
}

TEST_F(SixPaneTest, MetaLinkClickFillsTheTargetSideBeforeTheSourceSide) {
    open();
    click(u"MetaLink", kFirst);
    const auto& log = model.script->log;
    const auto position = [&log](const char16_t* call) { return std::find(log.begin(), log.end(), call); };
    EXPECT_LT(position(u"WorksFor.Extension"), position(u"WorksFor.source"));
    EXPECT_LT(position(u"WorksFor.source"), position(u"WorksFor.target"));
    EXPECT_LT(position(u"WorksFor.target"), position(u"Company.Extension"));
    EXPECT_LT(position(u"Company.Extension"), position(u"Person.Extension"));
    EXPECT_NE(position(u"Person.Extension"), log.end());
}

TEST_F(SixPaneTest, LinkClickSelectsBothItsEnds) {
    open();
    click(u"MetaLink", kFirst);
    click(u"Link", kSecond);
    EXPECT_EQ(selected(u"SourceNode"), Object(model.ben));
    EXPECT_EQ(selected(u"TargetNode"), Object(model.zenith));
    click(u"Link", kFirst);
    EXPECT_EQ(selected(u"SourceNode"), Object(model.anna));
    EXPECT_EQ(selected(u"TargetNode"), Object(model.acme));
    world.desktop.verify();
}

TEST_F(SixPaneTest, LinkWithOtherEndTypesSelectsNothing) {
    open();
    click(u"MetaLink", kFirst);
    click(u"Link", kFirst);
    click(u"TargetMetaNode", kThird);
    click(u"TargetNode", kFirst);
    click(u"Link", kSecond);
    EXPECT_EQ(selected(u"SourceNode"), Object(model.anna)) << "stays as it was";
    EXPECT_EQ(selected(u"TargetNode"), Object(model.paris));
    click(u"TargetMetaNode", kSecond);
    click(u"SourceMetaNode", kThird);
    click(u"Link", kFirst);
    EXPECT_FALSE(selected(u"SourceNode"));
    EXPECT_FALSE(selected(u"TargetNode"));
    world.desktop.verify();
}

TEST_F(SixPaneTest, TypeThatTheHostGivesAsAnotherReferenceIsStillTheSame) {
    open();
    click(u"MetaLink", kFirst);
    const auto twin = make<MetaDouble>(model.script, u"Person");
    const auto stranger = make<InstanceDouble>(model.script, twin, u"Anna", model.anna->identifier);
    const auto link = make<InstanceDouble>(model.script, model.worksFor, u"x", u"x", stranger, model.acme);
    pane(u"Link").addObject(link);
    click(u"Link", kThird);
    EXPECT_EQ(selected(u"SourceNode"), Object(model.anna)) << "found by its identifier";
    EXPECT_EQ(selected(u"TargetNode"), Object(model.acme));
}

TEST_F(SixPaneTest, ClickBelowTheRowsTakesTheSelectionAwayAndNothingElse) {
    open();
    click(u"MetaLink", kFirst);
    click(u"Link", kFirst);
    const Counts before = counts();
    model.script->restart();
    for (const PaneTraits& traits : kPanes) {
        world.user.clickBelowRows(pane(traits.name).list());
        EXPECT_FALSE(selected(traits.name));
    }
    EXPECT_EQ(counts(), before);
    EXPECT_TRUE(model.script->log.empty());
    world.user.press(*form, {ui::Key::F5});
    EXPECT_EQ(counts(), (Counts{3, 0, 2, 0, 3, 0})) << "a refill shows the instances of what is selected";
    world.desktop.verify();
}

TEST_F(SixPaneTest, WaitPointerShowsWhileAPaneIsFilled) {
    open();
    const std::size_t before = world.desktop.waits();
    click(u"MetaLink", kFirst);
    EXPECT_GT(world.desktop.waits(), before);
    EXPECT_EQ(world.desktop.pointer(), ui::Pointer::Default);
}

TEST_F(SixPaneTest, NoRowIsAskedForAnythingBeforeItIsSeen) {
    open();
    click(u"MetaLink", kFirst);
    for (const std::u16string& call : model.script->log)
        EXPECT_NE(call.substr(0, 2), u"id") << "an instance was asked";
}

TEST_F(SixPaneTest, StatusLineCountsEveryPane) {
    open();
    const auto& panels = headless::get<ui::StatusBar>(*form, u"StatusBar").panels();
    const auto texts = [&panels] {
        Log all;
        for (const auto& panel : panels)
            all.push_back(panel.text);
        return all;
    };
    EXPECT_EQ(texts(), (Log{u"Source meta nodes: 3", u"Source nodes: 0", u"Meta links: 2", u"Links: 0",
                            u"Target meta nodes: 3", u"Target nodes: 0"}));
    click(u"MetaLink", kFirst);
    pane(u"SourceNode").openFilter();
    world.user.enterText(pane(u"SourceNode").filterBox(), u"ann");
    EXPECT_EQ(texts(), (Log{u"Source meta nodes: 3", u"Source nodes: 1 of 2", u"Meta links: 2", u"Links: 2",
                            u"Target meta nodes: 3", u"Target nodes: 2"}));
}

TEST_F(SixPaneTest, AccessKeysLeadToThePanes) {
    open();
    const std::pair<char, std::u16string_view> keys[] = {{'S', u"SourceMetaNode"}, {'O', u"SourceNode"},
                                                         {'M', u"MetaLink"},       {'L', u"Link"},
                                                         {'T', u"TargetMetaNode"}, {'A', u"TargetNode"}};
    for (const auto& [key, name] : keys) {
        world.user.press(*form, {ui::key(key), ui::Modifiers::Alt});
        EXPECT_TRUE(pane(name).list().hasFocus()) << key;
    }
}

TEST_F(SixPaneTest, KeyboardBrowsesAsTheMouseDoes) {
    open();
    pane(u"SourceMetaNode").list().focus();
    world.user.press(*form, {ui::Key::Down});
    world.user.press(*form, {ui::Key::Down});
    EXPECT_TRUE(selected(u"SourceMetaNode"));
    EXPECT_GT(pane(u"SourceNode").count(), 0U);
}

TEST_F(SixPaneTest, HostileNamesTravelUnharmed) {
    const std::u16string hostile(u"a\0b\xD800\u202E\U0001F600", 8);
    const std::u16string huge(1 << 20, u'x');
    for (const std::u16string& name : {std::u16string(), hostile, huge}) {
        const auto type = model.repository->addMetaNode(name);
        model.repository->addNode(type, name);
    }
    open();
    for (const std::size_t row : {3U, 4U, 5U}) {
        click(u"SourceMetaNode", row);
        ASSERT_EQ(pane(u"SourceNode").count(), 1U);
        static_cast<void>(world.user.look(pane(u"SourceNode").list(), 0, 1));
    }
    click(u"SourceNode", kFirst);
    EXPECT_EQ(selected(u"SourceNode").get(u"name").toString(), huge);
    world.desktop.verify();
}

}  // namespace
}  // namespace quorel::sixpane
