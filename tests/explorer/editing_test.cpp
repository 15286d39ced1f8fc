#include "platform/controls/edit_toolbar.h"
#include "platform/ui/plain_controls.h"
#include "tests/explorer/explorer_fixture.h"

namespace quorel::explorer {
namespace {

using controls::EditCommand;

struct ExplorerEditing : ExplorerTest {
    ExplorerEditing() { open(); }

    [[nodiscard]] controls::EditToolbar& toolbar(std::u16string_view name) {
        return get<controls::EditToolbar>(name);
    }
    void chooseTarget(std::size_t index) {
        world.user.click(combo().box());
        world.user.choose(combo().box(), index);
    }
    void showAnnasLinks() {
        clickAnna();
        world.user.clickTab(form().tabs(), 1);
    }
    [[nodiscard]] std::vector<Object> targetsOfAnna() {
        std::vector<Object> targets;
        for (const auto& [key, link] : model.anna->outgoingLinks[u"WorksFor"]->items)
            targets.push_back(link.get(u"target").toObject());
        return targets;
    }
    [[nodiscard]] std::size_t linksInAll() { return model.worksFor->extension->items.size(); }
    void typeName(std::u16string_view name) {
        world.desktop.expectModal(u"frmNameEdit", [this, name](ui::Form& dialog) {
            world.user.enterText(headless::get<ui::TextBox>(dialog, u"NameBox"), name);
            world.user.click(dialog, u"OK");
        });
    }
};

// The combo.
// ------------------------------------------------------------------------

TEST_F(ExplorerEditing, ChoosingAnotherTargetReplacesTheLink) {
    clickAnna();
    chooseTarget(1);  // Zenith
    EXPECT_EQ(targetsOfAnna(), std::vector<Object>{model.zenith});
    EXPECT_EQ(linksInAll(), 1U);
    EXPECT_TRUE(model.acme->incomingLinks[u"WorksFor"]->items.empty());
    EXPECT_EQ(combo().selection(), Object(model.zenith));
    EXPECT_EQ(combo().box().text(), u"Zenith");
    const Object link = model.worksFor->extension->items[0].second;
    EXPECT_EQ(link.get(u"name").toString(), u"Anna->Zenith");
    EXPECT_TRUE(link.get(u"Identifier").toString().find(u":Explorer::") != std::u16string::npos);
    world.user.clickTab(form().tabs(), 1);
    EXPECT_EQ(firstColumn(u"ListView1(1)"), Texts{u"Zenith"}) << "lists of the same links follow";
}

TEST_F(ExplorerEditing, TheTreeFollowsAReplacedLink) {
    clickAcme();
    clickAnna();
    chooseTarget(1);
    EXPECT_NE(at({u"Everybody", u"Anna", u"Jobs", u"Zenith"}), TreeItemId::None);
    EXPECT_EQ(tree().itemText(tree().selected()), u"Anna");
}

TEST_F(ExplorerEditing, ChoosingATargetWhereThereWasNoneMakesTheLink) {
    expand({u"Everybody"});
    click({u"Everybody", u"Ben"});
    chooseTarget(0);
    EXPECT_EQ(linksInAll(), 2U);
    EXPECT_EQ(model.ben->outgoingLinks[u"WorksFor"]->items.size(), 1U);
    EXPECT_EQ(combo().selection(), Object(model.acme));
}

TEST_F(ExplorerEditing, AReplacementThatFailsLeavesTheOldLink) {
    clickAnna();
    model.script->onCall = [](const std::u16string& call) {
        if (call == u"repository.MakeLink")
            throw automation::Error(1000, u"Refused", u"Repository");
    };
    world.expectBox();
    chooseTarget(1);
    world.desktop.verify();
    EXPECT_EQ(lastPlace(), u"frmExplorer/Combo1_Click");
    EXPECT_EQ(targetsOfAnna(), std::vector<Object>{model.acme});
    EXPECT_EQ(combo().box().text(), u"Acme") << "shows what is";
}

// The toolbar of an extension.
// ------------------------------------------------------------------------

TEST_F(ExplorerEditing, CommandsFollowTheSelection) {
    click({u"Companies"});
    controls::EditToolbar& bar = toolbar(u"EditToolbar1(2)");
    EXPECT_TRUE(bar.isCommandEnabled(EditCommand::New));
    EXPECT_FALSE(bar.isCommandEnabled(EditCommand::Delete));
    EXPECT_FALSE(bar.isCommandEnabled(EditCommand::Edit));
    EXPECT_TRUE(bar.isCommandEnabled(EditCommand::Refresh));
    world.user.selectRow(list(u"ListView1(4)").list(), 0);
    EXPECT_TRUE(bar.isCommandEnabled(EditCommand::Delete));
    EXPECT_TRUE(bar.isCommandEnabled(EditCommand::Edit));
}

TEST_F(ExplorerEditing, NewMakesANodeOfTheListsType) {
    click({u"Companies"});
    typeName(u"Initech");
    world.user.click(form(), u"EditToolbar1(2).New");
    EXPECT_EQ(firstColumn(u"ListView1(4)"), (Texts{u"Acme", u"Zenith", u"Initech"}));
    EXPECT_EQ(list(u"ListView1(4)").selectedObject(), model.company->extension->items.back().second);
    world.desktop.verify();
}

TEST_F(ExplorerEditing, ANameThatIsNotConfirmedMakesNothing) {
    click({u"Companies"});
    world.desktop.expectModal(u"frmNameEdit",
                              [this](ui::Form& dialog) { world.user.click(dialog, u"Cancel"); });
    world.user.click(form(), u"EditToolbar1(2).New");
    EXPECT_EQ(model.company->extension->items.size(), 2U);
}

TEST_F(ExplorerEditing, KeysInTheListRunTheCommands) {
    click({u"Companies"});
    world.user.selectRow(list(u"ListView1(4)").list(), 1);
    typeName(u"Initech");
    world.user.press(form(), {ui::Key::Insert});
    EXPECT_EQ(list(u"ListView1(4)").count(), 3U);
    world.desktop.expectMessage({}, ui::MessageAnswer::No);
    world.user.press(form(), {ui::Key::Delete});
    EXPECT_EQ(list(u"ListView1(4)").count(), 3U);
    world.desktop.verify();
}

TEST_F(ExplorerEditing, DeleteAsksAndTakesTheNodeOut) {
    click({u"Companies"});
    world.user.selectRow(list(u"ListView1(4)").list(), 1);
    world.desktop.expectMessage(
        [](const ui::Message& message) {
            EXPECT_EQ(message.text, u"Delete 'Zenith'?");
            EXPECT_EQ(message.style, 36);
        },
        ui::MessageAnswer::Yes);
    world.user.click(form(), u"EditToolbar1(2).Delete");
    EXPECT_EQ(firstColumn(u"ListView1(4)"), Texts{u"Acme"});
    EXPECT_EQ(model.company->extension->items.size(), 1U);
    world.desktop.verify();
}

TEST_F(ExplorerEditing, ANodeWithLinksStaysAndItIsSaid) {
    click({u"Companies"});
    world.user.selectRow(list(u"ListView1(4)").list(), 0);
    world.desktop.expectMessage({}, ui::MessageAnswer::Yes);
    world.desktop.expectMessage(
        [](const ui::Message& message) { EXPECT_EQ(message.text, u"'Acme' has links and stays."); });
    world.user.click(form(), u"EditToolbar1(2).Delete");
    EXPECT_EQ(list(u"ListView1(4)").count(), 2U);
    world.desktop.verify();
}

TEST_F(ExplorerEditing, EditShowsThePropertiesAndTheListFollows) {
    click({u"Companies"});
    world.user.selectRow(list(u"ListView1(4)").list(), 0);
    const auto rename = [this](ui::Form& dialog) {
        auto& grid = headless::get<controls::Property>(dialog, u"Property1.View");
        grid.beginEdit(0);
        world.user.enterText(headless::get<ui::TextBox>(dialog, u"Property1.Text"), u"Ajax");
        world.user.click(dialog, u"OK");
    };
    world.desktop.expectModal(u"NodeEdit", rename);
    world.user.click(form(), u"EditToolbar1(2).Edit");
    EXPECT_EQ(model.acme->shownName, u"Ajax");
    EXPECT_EQ(firstColumn(u"ListView1(4)"), (Texts{u"Ajax", u"Zenith"}));
    world.desktop.expectModal(u"NodeEdit", [](ui::Form& dialog) { dialog.hide(); });
    world.user.doubleClickRow(list(u"ListView1(4)").list(), 0);
    world.desktop.verify();
}

TEST_F(ExplorerEditing, RefreshReadsTheExtensionAnew) {
    click({u"Companies"});
    static_cast<void>(model.repository->addNode(model.company, u"New"));
    world.user.click(form(), u"EditToolbar1(2).Refresh");
    EXPECT_EQ(list(u"ListView1(4)").count(), 3U);
}

// The toolbar of lists of links.
// ------------------------------------------------------------------------

TEST_F(ExplorerEditing, NewInAListOfLinksChoosesTheOtherEnd) {
    showAnnasLinks();
    world.desktop.expectModal(u"frmChooseNode", [this](ui::Form& dialog) {
        EXPECT_EQ(dialog.text(), u"New link of type WorksFor");
        EXPECT_FALSE(headless::get<ui::Button>(dialog, u"OK").isEnabled());
        auto& nodes = headless::get<ui::VirtualList>(dialog, u"Nodes");
        world.user.selectRow(nodes, 1);
        world.user.click(dialog, u"OK");
    });
    world.user.click(form(), u"EditToolbar1(1).New");
    EXPECT_EQ(firstColumn(u"ListView1(1)"), (Texts{u"Acme", u"Zenith"}));
    EXPECT_EQ(targetsOfAnna(), (std::vector<Object>{model.acme, model.zenith}));
    world.desktop.verify();
}

TEST_F(ExplorerEditing, TheListThatTheUserWasInIsServed) {
    expand({u"Everybody"});
    click({u"Everybody", u"Ben"});
    world.user.clickTab(form().tabs(), 1);
    world.user.selectRow(list(u"ListView1(2)").list(), 0);
    EXPECT_TRUE(toolbar(u"EditToolbar1(1)").isCommandEnabled(EditCommand::Delete));
    world.desktop.expectMessage({}, ui::MessageAnswer::Yes);
    world.user.click(form(), u"EditToolbar1(1).Delete");
    EXPECT_EQ(list(u"ListView1(2)").count(), 0U);
    EXPECT_TRUE(model.knows->extension->items.empty());
    EXPECT_TRUE(model.ben->incomingLinks[u"Knows"]->items.empty());
    world.desktop.expectModal(u"frmChooseNode", [this](ui::Form& dialog) {
        world.user.doubleClickRow(headless::get<ui::VirtualList>(dialog, u"Nodes"), 0);
    });
    world.user.click(form(), u"EditToolbar1(1).New");
    EXPECT_EQ(firstColumn(u"ListView1(2)"), Texts{u"Anna"}) << "Anna, who was chosen, knows Ben";
    world.desktop.verify();
}

// A toolbar without a list serves the object.
// ------------------------------------------------------------------------

TEST_F(ExplorerEditing, AToolbarWithoutAListServesTheObject) {
    explorer->AddSubPane(u"person", u"Commands");
    explorer->AddToolbar(u"person", u"Commands");
    expand({u"Everybody"});
    click({u"Everybody", u"Ben"});
    world.user.clickTab(form().tabs(), 2);
    typeName(u"Cleo");
    world.user.click(form(), u"EditToolbar1(3).New");
    EXPECT_NE(at({u"Everybody", u"Cleo"}), TreeItemId::None);
    world.desktop.expectModal(u"NodeEdit", [](ui::Form& dialog) {
        EXPECT_EQ(dialog.text(), u"Ben - Properties");
        dialog.hide();
    });
    world.user.click(form(), u"EditToolbar1(3).Edit");
    click({u"Everybody", u"Cleo"});
    world.user.clickTab(form().tabs(), 2);
    world.desktop.expectMessage({}, ui::MessageAnswer::Yes);
    world.user.click(form(), u"EditToolbar1(3).Delete");
    EXPECT_EQ(model.person->extension->items.size(), 2U);
    EXPECT_EQ(tree().itemText(tree().selected()), u"Everybody") << "what was above is selected";
    world.desktop.verify();
}

TEST_F(ExplorerEditing, AFailedCommandIsReported) {
    click({u"Companies"});
    typeName(u"Initech");
    model.script->onCall = [](const std::u16string& call) {
        if (call == u"repository.MakeNode")
            throw automation::Error(1000);
    };
    world.expectBox();
    world.user.click(form(), u"EditToolbar1(2).New");
    EXPECT_EQ(lastPlace(), u"frmExplorer/EditToolbar1_Click");
    world.desktop.verify();
}

}  // namespace
}  // namespace quorel::explorer
