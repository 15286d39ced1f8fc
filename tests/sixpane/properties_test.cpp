#include "sixpane/frm_object_properties.h"
#include "tests/sixpane/six_pane_fixture.h"

namespace quorel::sixpane {
namespace {

using Cells = std::vector<std::vector<std::u16string>>;

struct PropertiesTest : SixPaneTest {
    /// Expects the window in which a node or link is edited, keeps what it shows and lets the user act.
    void expectNodeEdit(std::function<void(ui::Form&)> user = {}) {
        world.desktop.expectModal(u"NodeEdit", [this, user = std::move(user)](ui::Form& window) {
            auto& list = headless::get<ui::VirtualList>(window, u"Property1");
            shown = world.user.look(list, 0, list.rowCount());
            title = window.text();
            if (user)
                user(window);
            else
                world.user.click(window, u"OK");
        });
    }
    /// Edits the name, which is the first line.
    void rename(ui::Form& window, std::u16string_view name) {
        world.user.selectRow(headless::get<ui::VirtualList>(window, u"Property1"), 0);
        world.user.press(window, {ui::Key::F2});
        world.user.enterText(headless::get<ui::TextBox>(window, u"Property1.Text"), name);
        world.user.press(window, {ui::Key::Enter});
    }
    /// Expects the window that tells of a type, keeps what it shows and lets the user close it.
    void expectProperties(std::function<void(ui::Form&)> user = {}) {
        world.desktop.expectModal(u"frmObjectProperties", [this, user = std::move(user)](ui::Form& window) {
            auto& list = headless::get<ui::VirtualList>(window, u"PropertyList");
            shown = world.user.look(list, 0, list.rowCount());
            title = window.text();
            if (user)
                user(window);
            else
                world.user.click(window, u"CloseButton");
        });
    }
    Cells shown;
    std::u16string title;
};

TEST_F(PropertiesTest, DoubleClickShowsANodesProperties) {
    open();
    click(u"SourceMetaNode", kFirst);
    expectNodeEdit();
    doubleClick(u"SourceNode", kFirst);
    world.desktop.verify();
    EXPECT_EQ(shown, (Cells{{u"name", u"Anna"}, {u"Identifier", u"id1"}, {u"Age", u"40"}}));
    EXPECT_EQ(title, u"Anna - Properties");
}

TEST_F(PropertiesTest, DoubleClickShowsALinksProperties) {
    open();
    click(u"MetaLink", kFirst);
    expectNodeEdit();
    doubleClick(u"Link", kFirst);
    world.desktop.verify();
    EXPECT_EQ(shown, (Cells{{u"name", u"a"},
                            {u"Identifier", u"id6"},
                            {u"source", u"Anna"},
                            {u"target", u"Acme"},
                            {u"Since", u"1999"}}));
}

TEST_F(PropertiesTest, EndsOfALinkAreOnlyShown) {
    open();
    click(u"MetaLink", kFirst);
    expectNodeEdit([this](ui::Form& window) {
        for (const std::size_t line : {1U, 2U, 3U}) {
            world.user.selectRow(headless::get<ui::VirtualList>(window, u"Property1"), line);
            world.user.press(window, {ui::Key::F2});
            EXPECT_FALSE(headless::get<ui::TextBox>(window, u"Property1.Text").isVisible()) << line;
        }
        window.hide();
    });
    doubleClick(u"Link", kFirst);
    world.desktop.verify();
}

TEST_F(PropertiesTest, UnchangedNodeLeavesThePaneAsItIs) {
    open();
    click(u"TargetMetaNode", kFirst);
    expectNodeEdit();
    model.script->restart();
    doubleClick(u"TargetNode", kFirst);
    const auto& log = model.script->log;
    EXPECT_EQ(std::count(log.begin(), log.end(), u"Person.Extension"), 0);
    EXPECT_EQ(selected(u"TargetNode"), Object(model.anna));
    world.desktop.verify();
}

TEST_F(PropertiesTest, EditedNodeIsRefilledAndSelectedAgain) {
    open();
    for (const auto& [metaPane, nodePane] :
         {std::pair{u"SourceMetaNode", u"SourceNode"}, std::pair{u"TargetMetaNode", u"TargetNode"}}) {
        click(metaPane, kFirst);
        click(metaPane == std::u16string_view(u"SourceMetaNode") ? u"TargetMetaNode" : u"SourceMetaNode",
              kSecond);
        expectNodeEdit([&](ui::Form& window) {
            rename(window, model.ben->shownName + u" the second");
            world.user.press(window, {ui::Key::Enter});
        });
        model.script->restart();
        doubleClick(nodePane, kSecond);
        const auto& log = model.script->log;
        EXPECT_EQ(std::count(log.begin(), log.end(), u"Person.Extension"), 1);
        EXPECT_EQ(std::count(log.begin(), log.end(), u"Company.Extension"), 0);
        EXPECT_EQ(selected(nodePane), Object(model.ben));
    }
    EXPECT_EQ(world.user.look(pane(u"TargetNode").list(), 1, 1)[0][0], u"Ben the second the second");
    world.desktop.verify();
}

TEST_F(PropertiesTest, CancelledEditWritesNothing) {
    open();
    click(u"SourceMetaNode", kFirst);
    expectNodeEdit([&](ui::Form& window) {
        rename(window, u"Anne");
        world.user.press(window, {ui::Key::Escape});
    });
    doubleClick(u"SourceNode", kFirst);
    EXPECT_EQ(model.anna->shownName, u"Anna");
    EXPECT_EQ(selected(u"SourceNode"), Object(model.anna));
    world.desktop.verify();
}

TEST_F(PropertiesTest, RefillShowsTheNodesTypeEvenIfAnotherWasSelectedMeanwhile) {
    open();
    click(u"SourceMetaNode", kFirst);
    expectNodeEdit([&](ui::Form& window) {
        rename(window, u"Anne");
        pane(u"SourceMetaNode").setSelectedObject(model.city);
        world.user.click(window, u"OK");
    });
    doubleClick(u"SourceNode", kFirst);
    EXPECT_EQ(selected(u"SourceMetaNode"), Object(model.person));
    EXPECT_EQ(selected(u"SourceNode"), Object(model.anna));
    world.desktop.verify();
}

TEST_F(PropertiesTest, EnterOpensThePropertiesOfTheSelectedRow) {
    open();
    click(u"SourceMetaNode", kFirst);
    click(u"SourceNode", kSecond);
    expectNodeEdit();
    pane(u"SourceNode").list().focus();
    world.user.press(*form, {ui::Key::Enter});
    EXPECT_EQ(shown.at(0).at(1), u"Ben");
    world.desktop.verify();
}

TEST_F(PropertiesTest, MenuShowsTheTypeThatIsSelected) {
    open();
    click(u"MetaLink", kFirst);
    pane(u"MetaLink").list().focus();
    expectProperties();
    world.user.chooseMenu(*form, u"mnuProperties");
    EXPECT_EQ(
        shown,
        (Cells{
            {u"Name", u"WorksFor"}, {u"Source", u"Person"}, {u"Target", u"Company"}, {u"Since", u"String"}}));
    pane(u"SourceMetaNode").list().focus();
    expectProperties();
    world.user.press(*form, {ui::Key::Enter, ui::Modifiers::Alt});
    EXPECT_EQ(shown, (Cells{{u"Name", u"Person"}, {u"Age", u"Integer"}}));
    world.desktop.verify();
}

TEST_F(PropertiesTest, MenuDoesNothingWhereNothingIsSelected) {
    open();
    pane(u"Link").list().focus();
    world.user.chooseMenu(*form, u"mnuProperties");
    world.desktop.verify();
}

TEST_F(PropertiesTest, WhatIsToldOfATypeIsCopied) {
    open();
    click(u"MetaLink", kFirst);
    pane(u"MetaLink").list().focus();
    expectProperties([&](ui::Form& window) {
        auto& list = headless::get<ui::VirtualList>(window, u"PropertyList");
        world.user.press(window, {ui::key('C'), ui::Modifiers::Control});
        EXPECT_EQ(
            world.desktop.clipboardText(),
            u"Property\tValue\r\nName\tWorksFor\r\nSource\tPerson\r\nTarget\tCompany\r\nSince\tString\r\n");
        world.user.selectRow(list, 3);
        world.user.chooseContextMenu(list, u"Copy");
        EXPECT_EQ(world.desktop.clipboardText(), u"Property\tValue\r\nSince\tString\r\n");
        world.user.resize(window, {ui::Twips{9000}, ui::Twips{6000}});
        EXPECT_LT(list.bounds().right(), ui::Twips{9000});
        world.user.press(window, {ui::Key::Enter});
    });
    world.user.chooseMenu(*form, u"mnuProperties");
    world.desktop.verify();
}

TEST_F(PropertiesTest, UnreadablePropertyIsReportedAndTheRestCanBeEdited) {
    open();
    click(u"SourceMetaNode", kFirst);
    model.script->onCall = [](const std::u16string& call) {
        if (call == u"id1.GetProperty")
            throw automation::Error(1001, u"Locked", u"Repository");
    };
    expectNodeEdit([&](ui::Form& window) {
        EXPECT_EQ(shown.at(2).at(1), u"#Error");
        rename(window, u"Anne");
        world.user.click(window, u"OK");
    });
    world.expectBox();
    doubleClick(u"SourceNode", kFirst);
    world.desktop.verify();
    EXPECT_EQ(model.anna->shownName, u"Anne");
}

TEST_F(PropertiesTest, TypeThatCannotTellItsPropertiesIsReported) {
    open();
    click(u"SourceMetaNode", kFirst);
    model.script->onCall = [](const std::u16string& call) {
        if (call == u"Person.Properties")
            throw automation::Error(1001, u"Locked", u"Repository");
    };
    world.expectBox();
    doubleClick(u"SourceNode", kFirst);
    world.desktop.verify();
    EXPECT_EQ(lastPlace(), u"SixPane/DisplayObject");
    model.script->onCall = {};
    expectNodeEdit();
    doubleClick(u"SourceNode", kFirst);
    world.desktop.verify();
}

TEST_F(PropertiesTest, BrowserThatIsUnloadedTakesThePropertiesWithIt) {
    open();
    click(u"SourceMetaNode", kFirst);
    expectNodeEdit([this](ui::Form& window) {
        form->unload();
        EXPECT_FALSE(window.isVisible());
    });
    doubleClick(u"SourceNode", kFirst);
    world.desktop.verify();
    EXPECT_EQ(world.desktop.livePeers(), 0U);
}

}  // namespace
}  // namespace quorel::sixpane
