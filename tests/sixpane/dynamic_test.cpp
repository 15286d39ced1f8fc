#include "platform/ui/check_box.h"
#include "tests/sixpane/editing_fixture.h"

namespace quorel::sixpane {
namespace {

struct DynamicTest : EditingTest {
    void openForEditing() {
        open();
        choose(u"mnuEditDynamic");
    }
    void choose(std::u16string_view entry) { world.user.chooseMenu(*form, entry); }
    /// Runs what an entry runs, whether or not it can be chosen.
    void forceEntry(std::u16string_view entry) {
        form->menuBar().find(entry)->onClick.raise();
        world.desktop.runPosted();
    }
    void expectMeta(std::u16string_view caption, std::u16string_view name,
                    std::u16string_view description = u"", bool persistent = true) {
        world.desktop.expectModal(u"frmDynMetaObject", [=, this](ui::Form& dialog) {
            EXPECT_EQ(dialog.text(), caption);
            auto& persistentBox = headless::get<ui::CheckBox>(dialog, u"Persistent");
            EXPECT_TRUE(persistentBox.isChecked());
            EXPECT_EQ(headless::get<ui::TextBox>(dialog, u"MetaObjectName").text(), u"");
            world.user.enterText(headless::get<ui::TextBox>(dialog, u"MetaObjectName"), name);
            world.user.enterText(headless::get<ui::TextBox>(dialog, u"Description"), description);
            if (!persistent)
                world.user.click(persistentBox);
            world.user.click(dialog, u"OK");
        });
    }
    Ref<MetaDouble> addDynamic(const std::u16string& name) {
        const auto made = model.repository->addMetaNode(name);
        made->isDynamicNow = true;
        return made;
    }
};

TEST_F(DynamicTest, EditingModeShowsAndHidesTheEntries) {
    open();
    const auto isShown = [this](std::u16string_view entry) {
        return form->menuBar().find(entry)->isVisible();
    };
    for (const DynamicTraits& entry : kDynamic)
        EXPECT_FALSE(isShown(entry.name));
    choose(u"mnuEditDynamic");
    EXPECT_TRUE(form->menuBar().find(u"mnuEditDynamic")->isChecked());
    for (const DynamicTraits& entry : kDynamic) {
        EXPECT_TRUE(isShown(entry.name));
        EXPECT_TRUE(
            pane(kPanes[indexOf(entry.pane)].name).list().contextMenu().find(entry.name)->isVisible());
    }
    choose(u"mnuEditDynamic");
    EXPECT_FALSE(form->menuBar().find(u"mnuEditDynamic")->isChecked());
    for (const DynamicTraits& entry : kDynamic)
        EXPECT_FALSE(isShown(entry.name));
    EXPECT_TRUE(model.script->log.empty());
}

TEST_F(DynamicTest, ANewMetaClassIsAddedToBothTypePanes) {
    openForEditing();
    for (const std::u16string_view entry : {u"Dynamic(0)", u"Dynamic(4)"}) {
        model.script->restart();
        expectMeta(u"Dynamic MetaClass", u"Tool", u"helps");
        choose(entry);
        world.desktop.verify();
        EXPECT_EQ(model.script->log[0], u"repository.MakeDynamicMetaClass");
        EXPECT_EQ(model.script->log[1], u"Tool.IsPersistent=");
    }
    EXPECT_EQ(names(u"SourceMetaNode"), (Names{u"Person", u"Company", u"City", u"Tool", u"Tool"}));
    EXPECT_EQ(names(u"TargetMetaNode"), names(u"SourceMetaNode"));
}

TEST_F(DynamicTest, DescriptionAndPersistenceArePassed) {
    openForEditing();
    expectMeta(u"Dynamic MetaClass", u"Tool", u"first\nsecond", false);
    choose(u"Dynamic(0)");
    const auto* made = dynamic_cast<MetaDouble*>(model.repository->metaNodes->items.back().second.native());
    ASSERT_NE(made, nullptr);
    EXPECT_EQ(made->description, u"first\nsecond");
    EXPECT_FALSE(made->isPersistentNow);
    expectMeta(u"Dynamic MetaClass", u"Kept", u"", true);
    choose(u"Dynamic(4)");
    made = dynamic_cast<MetaDouble*>(model.repository->metaNodes->items.back().second.native());
    EXPECT_TRUE(made->isPersistentNow);
}

TEST_F(DynamicTest, CancellingCreatesNothingAndLeavesThePanes) {
    openForEditing();
    click(u"MetaLink", kFirst);
    model.script->restart();
    const auto before = counts();
    for (const std::u16string_view entry : {u"Dynamic(0)", u"Dynamic(2)", u"Dynamic(4)"})
        for (const bool byBox : {false, true}) {
            world.desktop.expectModal(u"frmDynMetaObject", [&](ui::Form& dialog) {
                world.user.type(dialog, u"Tool");
                if (byBox)
                    world.user.closeBox(dialog);
                else
                    world.user.press(dialog, {ui::Key::Escape});
            });
            choose(entry);
            world.desktop.verify();
        }
    EXPECT_TRUE(model.script->log.empty());
    EXPECT_EQ(counts(), before);
    EXPECT_TRUE(selected(u"MetaLink"));
}

TEST_F(DynamicTest, ANewMetaAssociationIsNamedByItsEnds) {
    const auto list = model.repository->addMetaNode(u"SettingList");
    const auto setting = model.repository->addMetaNode(u"Setting");
    openForEditing();
    pane(u"SourceMetaNode").setSelectedObject(list);
    pane(u"TargetMetaNode").setSelectedObject(setting);
    expectMeta(u"Dynamic MetaAssoc", u"Has", u"", false);
    choose(u"Dynamic(2)");
    world.desktop.verify();
    EXPECT_EQ(names(u"MetaLink"), (Names{u"WorksFor", u"LivesIn", u"SettingList.Has.Setting"}));
    const Object made = model.repository->metaLinks->items.back().second;
    EXPECT_EQ(made.get(u"source").toObject(), Object(list));
    EXPECT_EQ(made.get(u"target").toObject(), Object(setting));
    EXPECT_FALSE(made.get(u"IsPersistent").toBoolean());
}

TEST_F(DynamicTest, WithoutBothEndsNoAssociationIsMade) {
    openForEditing();
    click(u"SourceMetaNode", kFirst);
    EXPECT_FALSE(form->menuBar().find(u"Dynamic(2)")->isEnabled());
    model.script->restart();
    expectMeta(u"Dynamic MetaAssoc", u"Has");
    forceEntry(u"Dynamic(2)");
    world.desktop.verify();
    EXPECT_TRUE(model.script->log.empty());
    EXPECT_EQ(pane(u"MetaLink").count(), 2U);
}

TEST_F(DynamicTest, DynamicMetaObjectsAreDeletedAndThePanesFilledAnew) {
    const auto tool = addDynamic(u"Tool");
    const auto other = addDynamic(u"Other");
    const auto uses = model.repository->addMetaLink(u"Person.Uses.Tool", model.person, model.city);
    uses->isDynamicNow = true;
    openForEditing();
    const auto expectAnew = [this](Counts expected) {
        EXPECT_EQ(counts(), expected);
        for (const PaneTraits& traits : kPanes)
            EXPECT_FALSE(selected(traits.name));
    };
    click(u"MetaLink", kThird);
    choose(u"Dynamic(3)");
    expectAnew({5, 0, 2, 0, 5, 0});
    EXPECT_EQ(model.repository->metaLinks->items.size(), 2U);
    click(u"SourceMetaNode", 3);
    choose(u"Dynamic(1)");
    expectAnew({4, 0, 2, 0, 4, 0});
    click(u"TargetMetaNode", 3);
    choose(u"Dynamic(5)");
    expectAnew({3, 0, 2, 0, 3, 0});
    EXPECT_EQ(names(u"SourceMetaNode"), (Names{u"Person", u"Company", u"City"}));
    world.desktop.verify();
}

TEST_F(DynamicTest, DeletingAPersistentTypeDeletesNothingButFillsThePanesAnew) {
    openForEditing();
    for (const auto& [list, entry] :
         {std::pair{u"SourceMetaNode", u"Dynamic(1)"}, std::pair{u"MetaLink", u"Dynamic(3)"},
          std::pair{u"TargetMetaNode", u"Dynamic(5)"}}) {
        click(u"MetaLink", kFirst);
        click(u"Link", kFirst);
        click(list, kFirst);
        choose(entry);
        world.desktop.verify();
        EXPECT_EQ(counts(), (Counts{3, 0, 2, 0, 3, 0}));
        for (const PaneTraits& traits : kPanes)
            EXPECT_FALSE(selected(traits.name));
    }
    EXPECT_TRUE(world.boxes().empty());
}

TEST_F(DynamicTest, DeletingWithNothingSelectedFillsThePanesAnewToo) {
    openForEditing();
    click(u"SourceMetaNode", kFirst);
    for (const std::u16string_view entry : {u"Dynamic(3)", u"Dynamic(5)"})
        EXPECT_FALSE(form->menuBar().find(entry)->isEnabled());
    forceEntry(u"Dynamic(5)");
    EXPECT_EQ(counts(), (Counts{3, 0, 2, 0, 3, 0}));
    EXPECT_FALSE(selected(u"SourceMetaNode"));
}

TEST_F(DynamicTest, ARefusedDeletionIsReportedAndChangesNothing) {
    addDynamic(u"Tool");
    openForEditing();
    click(u"SourceMetaNode", 3);
    model.script->onCall = [](const std::u16string& call) {
        if (call == u"repository.DeleteDynamicMetaClass")
            throw automation::Error(1000, u"Tool still has 3 instances", u"Repository");
    };
    world.expectBox();
    choose(u"Dynamic(1)");
    world.desktop.verify();
    EXPECT_EQ(lastPlace(), u"SixPane/Dynamic_Click");
    EXPECT_TRUE(selected(u"SourceMetaNode"));
    EXPECT_EQ(counts(), (Counts{4, 0, 2, 0, 4, 0}));
}

TEST_F(DynamicTest, KeysAndContextMenusServeTheTypePanesInEditingMode) {
    open();
    pane(u"SourceMetaNode").list().focus();
    world.user.press(*form, {ui::Key::Insert});
    world.desktop.verify();
    choose(u"mnuEditDynamic");
    expectMeta(u"Dynamic MetaClass", u"Tool");
    world.user.press(*form, {ui::Key::Insert});
    EXPECT_EQ(pane(u"TargetMetaNode").count(), 4U);
    click(u"SourceMetaNode", 3);
    world.user.press(*form, {ui::Key::Delete});
    EXPECT_EQ(pane(u"TargetMetaNode").count(), 3U);
    expectMeta(u"Dynamic MetaClass", u"Other");
    world.user.chooseContextMenu(pane(u"TargetMetaNode").list(), u"Dynamic(4)");
    EXPECT_EQ(pane(u"SourceMetaNode").count(), 4U);
    world.desktop.verify();
}

TEST_F(DynamicTest, ClosingTheBrowserClosesTheDialog) {
    openForEditing();
    world.desktop.expectModal(u"frmDynMetaObject", [this](ui::Form&) { form->unload(); });
    choose(u"Dynamic(0)");
    world.desktop.verify();
    EXPECT_EQ(world.desktop.livePeers(), 0U);
    EXPECT_EQ(model.repository->metaNodes->items.size(), 3U);
}

}  // namespace
}  // namespace quorel::sixpane
