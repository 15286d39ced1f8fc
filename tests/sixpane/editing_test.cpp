#include <algorithm>

#include "tests/sixpane/editing_fixture.h"

namespace quorel::sixpane {
namespace {

TEST_F(EditingTest, ANewNodeIsAskedForMadeAndShown) {
    open();
    click(u"SourceMetaNode", kFirst);
    model.script->restart();
    expectDialog([this](ui::Form& dialog) {
        EXPECT_EQ(dialog.text(), u"New node of type Person");
        EXPECT_EQ(headless::get<ui::Label>(dialog, u"lblName").text(), u"Name of node:");
        EXPECT_EQ(headless::get<ui::TextBox>(dialog, u"NameBox").text(), u"");
        world.user.type(dialog, u"Carla");
        world.user.press(dialog, {ui::Key::Enter});
    });
    press(u"NewSourceNode");
    world.desktop.verify();
    EXPECT_EQ(names(u"SourceNode"), (Names{u"Anna", u"Ben", u"Carla"}));
    EXPECT_EQ(counts(), (Counts{3, 3, 2, 0, 3, 0}));
    EXPECT_EQ(selected(u"SourceNode"), model.person->extension->items.back().second);
    EXPECT_EQ(model.person->extension->items.back().first.substr(0, 3), u"ID:");
}

TEST_F(EditingTest, TheIdentifierIsTheBrowsersOwn) {
    open();
    std::vector<std::u16string> asked;
    const std::u16string identifier = [&] {
        click(u"TargetMetaNode", kSecond);
        expectName(u"Nova");
        press(u"NewTargetNode");
        return model.company->extension->items.back().first;
    }();
    EXPECT_NE(identifier.find(u"SixPane"), std::u16string::npos) << "the namespace of the window";
    EXPECT_EQ(names(u"TargetNode"), (Names{u"Acme", u"Zenith", u"Nova"}));
    EXPECT_EQ(counts()[indexOf(Pane::SourceNode)], 0U);
}

TEST_F(EditingTest, CancellingTheNameCreatesNothing) {
    open();
    click(u"SourceMetaNode", kFirst);
    const auto before = counts();
    for (const bool byBox : {false, true}) {
        expectDialog([&](ui::Form& dialog) {
            world.user.type(dialog, u"Carla");
            if (byBox)
                world.user.closeBox(dialog);
            else
                world.user.press(dialog, {ui::Key::Escape});
        });
        press(u"NewSourceNode");
        world.desktop.verify();
    }
    EXPECT_EQ(counts(), before);
    EXPECT_EQ(model.person->extension->items.size(), 2U);
}

TEST_F(EditingTest, AnEmptyNameIsPassedAsItIs) {
    open();
    click(u"SourceMetaNode", kFirst);
    expectName(u"");
    press(u"NewSourceNode");
    EXPECT_EQ(names(u"SourceNode"), (Names{u"Anna", u"Ben", u""}));
}

TEST_F(EditingTest, HostileNamesTravelUnharmed) {
    open();
    click(u"SourceMetaNode", kFirst);
    for (const std::u16string& name : {std::u16string(u"nul\0inside", 10), std::u16string(u"\xDC00\xD800"),
                                       std::u16string(1 << 20, u'x')}) {
        world.desktop.expectModal(u"frmNameEdit", [this, &name](ui::Form& dialog) {
            headless::get<ui::TextBox>(dialog, u"NameBox").setText(name);
            world.user.click(dialog, u"OK");
        });
        press(u"NewSourceNode");
        EXPECT_EQ(model.person->extension->items.back().second.get(u"name").toString(), name);
    }
}

TEST_F(EditingTest, ANewNodeIsShownAtBothEndsWhereItsTypeIs) {
    open();
    click(u"SourceMetaNode", kFirst);
    click(u"TargetMetaNode", kFirst);
    expectName(u"Carla");
    press(u"NewTargetNode");
    EXPECT_EQ(names(u"SourceNode"), (Names{u"Anna", u"Ben", u"Carla"}));
    EXPECT_EQ(names(u"TargetNode"), (Names{u"Anna", u"Ben", u"Carla"}));
    EXPECT_TRUE(selected(u"TargetNode"));
    EXPECT_FALSE(selected(u"SourceNode"));
}

TEST_F(EditingTest, ANewLinkIsProposedANameFromItsEnds) {
    open();
    chooseAnnaAndZenith();
    expectDialog([this](ui::Form& dialog) {
        EXPECT_EQ(dialog.text(), u"New link of type WorksFor");
        EXPECT_EQ(headless::get<ui::Label>(dialog, u"lblName").text(), u"Name of link:");
        EXPECT_EQ(headless::get<ui::TextBox>(dialog, u"NameBox").text(), u"Anna->Zenith");
        world.user.click(dialog, u"OK");
    });
    press(u"NewLink");
    world.desktop.verify();
    ASSERT_EQ(names(u"Link"), (Names{u"a", u"b", u"Anna->Zenith"}));
    const Object link = selected(u"Link");
    EXPECT_EQ(link.get(u"source").toObject(), Object(model.anna));
    EXPECT_EQ(link.get(u"target").toObject(), Object(model.zenith));
    EXPECT_TRUE(selected(u"SourceNode"));
    EXPECT_TRUE(selected(u"TargetNode"));
}

TEST_F(EditingTest, EndsWithoutANameAreProposedByIdentifier) {
    for (const std::u16string_view broken : {u"id1.name", u"id4.name"}) {
        create();
        form->setRepository(model.repository);
        form->Init();
        form->Populate();
        form->PopUp(false);
        chooseAnnaAndZenith();
        model.script->onCall = [broken](const std::u16string& call) {
            if (call == broken)
                throw automation::Error(1000, u"Refused", u"Repository");
        };
        expectDialog([this](ui::Form& dialog) {
            EXPECT_EQ(headless::get<ui::TextBox>(dialog, u"NameBox").text(), u"id1->id4");
            world.user.click(dialog, u"Cancel");
        });
        press(u"NewLink");
        world.desktop.verify();
        model.script->onCall = {};
        form->unload();
    }
    EXPECT_TRUE(world.boxes().empty());
}

TEST_F(EditingTest, MembersGetTheirArgumentsInTheRepositorysOrder) {
    open();
    chooseAnnaAndZenith();
    expectName(u"joined");
    press(u"NewLink");
    const Object link = model.worksFor->extension->items.back().second;
    EXPECT_EQ(link.get(u"name").toString(), u"joined");
    EXPECT_EQ(link.get(u"Parent").toObject(), Object(model.worksFor));
    expectName(u"Carla");
    press(u"NewSourceNode");
    EXPECT_EQ(model.person->extension->items.back().second.get(u"name").toString(), u"Carla");
}

TEST_F(EditingTest, ANewLinkNeedsMetaLinkSourceAndTarget) {
    for (const std::u16string_view missing : {u"MetaLink", u"SourceNode", u"TargetNode"}) {
        create();
        form->setRepository(model.repository);
        form->Init();
        form->Populate();
        form->PopUp(false);
        chooseAnnaAndZenith();
        EXPECT_TRUE(isEnabled(u"NewLink"));
        pane(missing).setSelectedObject({});
        EXPECT_FALSE(isEnabled(u"NewLink"));
        force(u"NewLink");
        world.desktop.verify();
        EXPECT_TRUE(model.script->log.empty());
        form->unload();
    }
    EXPECT_EQ(model.worksFor->extension->items.size(), 2U);
}

TEST_F(EditingTest, ALinkIsDeletedFromBothEndsAndItsType) {
    open();
    click(u"MetaLink", kFirst);
    click(u"Link", kFirst);
    model.script->restart();
    press(u"DeleteLink");
    world.desktop.verify();
    EXPECT_EQ(names(u"Link"), (Names{u"b"}));
    EXPECT_TRUE(model.anna->outgoingLinks[u"WorksFor"]->items.empty());
    EXPECT_TRUE(model.acme->incomingLinks[u"WorksFor"]->items.empty());
    EXPECT_EQ(model.worksFor->extension->items.size(), 1U);
    std::vector<std::u16string> removals;
    std::copy_if(model.script->log.begin(), model.script->log.end(), std::back_inserter(removals),
                 [](const std::u16string& call) { return call.ends_with(u".Remove"); });
    EXPECT_EQ(removals,
              (Log{u"id1.Outgoing_.Remove", u"id3.Incoming_.Remove", u"WorksFor.Extension.Remove"}));
}

TEST_F(EditingTest, ANodeWithALinkStaysSilently) {
    open();
    click(u"TargetMetaNode", kSecond);
    click(u"TargetNode", kFirst);
    press(u"DeleteTargetNode");
    world.desktop.verify();
    EXPECT_EQ(names(u"TargetNode"), (Names{u"Acme", u"Zenith"}));
    EXPECT_EQ(selected(u"TargetNode"), Object(model.acme));
    EXPECT_EQ(std::count(model.script->log.begin(), model.script->log.end(), u"Company.Extension.Remove"), 0);
    click(u"SourceMetaNode", kFirst);
    click(u"SourceNode", kFirst);
    press(u"DeleteSourceNode");
    EXPECT_EQ(names(u"SourceNode"), (Names{u"Anna", u"Ben"}));
    EXPECT_TRUE(world.boxes().empty());
}

TEST_F(EditingTest, ANodeOfATypeThatIsShownTwiceGoesFromBothPanes) {
    model.repository->addNode(model.person, u"Carla");
    open();
    click(u"SourceMetaNode", kFirst);
    click(u"TargetMetaNode", kFirst);
    click(u"SourceNode", kThird);
    press(u"DeleteSourceNode");
    world.desktop.verify();
    EXPECT_EQ(names(u"SourceNode"), (Names{u"Anna", u"Ben"}));
    EXPECT_EQ(names(u"TargetNode"), (Names{u"Anna", u"Ben"}));
    EXPECT_EQ(counts(), (Counts{3, 2, 2, 0, 3, 2}));
    EXPECT_EQ(model.person->extension->items.size(), 2U);
}

TEST_F(EditingTest, AfterADeletedNodeTheLinksAreReadAnewAndKeepTheirSelection) {
    const auto carla = model.repository->addNode(model.person, u"Carla");
    open();
    click(u"MetaLink", kFirst);
    click(u"Link", kSecond);
    // Another program has made a link meanwhile.
    model.repository->addLink(model.worksFor, u"late", model.ben, model.acme);
    pane(u"SourceNode").setSelectedObject(carla);
    press(u"DeleteSourceNode");
    EXPECT_EQ(names(u"Link"), (Names{u"a", u"b", u"late"}));
    EXPECT_EQ(selected(u"Link"), Object(model.benAtZenith));
}

TEST_F(EditingTest, ARepositoryThatKeepsANodeKeepsItInThePaneToo) {
    model.repository->addNode(model.person, u"Carla");
    open();
    click(u"SourceMetaNode", kFirst);
    click(u"SourceNode", kThird);
    // Nothing of that identifier can be removed, and the repository says so.
    model.person->extension->items.pop_back();
    press(u"DeleteSourceNode");
    world.desktop.verify();
    EXPECT_EQ(names(u"SourceNode").size(), 3U);
}

TEST_F(EditingTest, CommandsCanBeChosenWhenTheyCanAct) {
    open();
    const auto enabled = [this] {
        std::vector<std::u16string_view> all;
        for (const CommandTraits& command : kCommands)
            if (isEnabled(command.name))
                all.push_back(command.name);
        return all;
    };
    using Buttons = std::vector<std::u16string_view>;
    EXPECT_EQ(enabled(), Buttons{});
    click(u"SourceMetaNode", kFirst);
    EXPECT_EQ(enabled(), Buttons{u"NewSourceNode"});
    click(u"SourceNode", kFirst);
    EXPECT_EQ(enabled(), (Buttons{u"NewSourceNode", u"DeleteSourceNode"}));
    click(u"MetaLink", kFirst);
    EXPECT_EQ(enabled(), (Buttons{u"NewSourceNode", u"NewTargetNode"}));
    click(u"Link", kFirst);
    EXPECT_EQ(enabled(), (Buttons{u"NewSourceNode", u"DeleteSourceNode", u"NewLink", u"DeleteLink",
                                  u"NewTargetNode", u"DeleteTargetNode"}));
    form->Deinit();
    EXPECT_EQ(enabled(), Buttons{});
}

TEST_F(EditingTest, ACallThatCannotActDoesNothing) {
    open();
    for (const CommandTraits& command : kCommands)
        force(command.name);
    world.desktop.verify();
    EXPECT_TRUE(model.script->log.empty());
}

TEST_F(EditingTest, InsertAndDeleteWorkInTheirPane) {
    open();
    click(u"MetaLink", kFirst);
    click(u"SourceNode", kFirst);
    click(u"TargetNode", kSecond);
    pane(u"Link").list().focus();
    expectName(u"new");
    world.user.press(*form, {ui::Key::Insert});
    EXPECT_EQ(pane(u"Link").count(), 3U);
    world.user.press(*form, {ui::Key::Delete});
    EXPECT_EQ(pane(u"Link").count(), 2U);
    world.user.press(*form, {ui::Key::Delete});
    EXPECT_EQ(pane(u"Link").count(), 2U) << "nothing is selected any more";
    pane(u"SourceNode").list().focus();
    expectName(u"Carla");
    world.user.press(*form, {ui::Key::Insert});
    world.user.press(*form, {ui::Key::Delete});
    EXPECT_EQ(names(u"SourceNode"), (Names{u"Anna", u"Ben"}));
    world.desktop.verify();
}

TEST_F(EditingTest, TheContextMenuOffersWhatTheButtonsDo) {
    open();
    click(u"MetaLink", kFirst);
    expectName(u"Carla");
    world.user.chooseContextMenu(pane(u"SourceNode").list(), u"NewSourceNode");
    world.user.chooseContextMenu(pane(u"SourceNode").list(), kThird, u"DeleteSourceNode");
    EXPECT_EQ(names(u"SourceNode"), (Names{u"Anna", u"Ben"}));
    world.user.chooseContextMenu(pane(u"Link").list(), kFirst, u"DeleteLink");
    EXPECT_EQ(names(u"Link"), (Names{u"b"}));
    world.desktop.verify();
}

TEST_F(EditingTest, AButtonThatCannotBePressedAnyMoreLeavesTheFocusToItsList) {
    open();
    click(u"MetaLink", kFirst);
    click(u"Link", kFirst);
    headless::get<ui::Button>(*form, u"DeleteLink").focus();
    world.user.press(*form, {ui::Key::Space});
    EXPECT_EQ(pane(u"Link").count(), 1U);
    EXPECT_TRUE(pane(u"Link").list().hasFocus());
}

TEST_F(EditingTest, ClosingTheBrowserClosesTheQuestion) {
    open();
    click(u"SourceMetaNode", kFirst);
    expectDialog([this](ui::Form& dialog) {
        form->unload();
        EXPECT_FALSE(dialog.isLoaded());
    });
    press(u"NewSourceNode");
    world.desktop.verify();
    EXPECT_EQ(model.person->extension->items.size(), 2U);
    EXPECT_EQ(world.desktop.livePeers(), 0U);
}

TEST_F(EditingTest, EmptyingTheBrowserMeanwhileLeavesItEmpty) {
    open();
    click(u"SourceMetaNode", kFirst);
    model.script->onCall = [this](const std::u16string& call) {
        if (call == u"repository.MakeNode")
            form->Deinit();
    };
    expectName(u"Carla");
    press(u"NewSourceNode");
    EXPECT_EQ(counts(), (Counts{0, 0, 0, 0, 0, 0}));
    EXPECT_EQ(model.person->extension->items.size(), 3U);
}

}  // namespace
}  // namespace quorel::sixpane
