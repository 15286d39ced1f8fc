// The browser on a repository that is stored in a file.

#include "repository/repository.h"
#include "tests/repository/temporary_folder.h"
#include "tests/sixpane/editing_fixture.h"

namespace quorel::sixpane {
namespace {

struct ReferenceRepositoryTest : EditingTest {
    repository::testing::TemporaryFolder folder;
    Ref<repository::Repository> native = make<repository::Repository>();

    ReferenceRepositoryTest() {
        native->create(folder.file());
        const Object stored = native;
        stored.call(u"MakeMetaNode", u"Shelf");
        stored.call(u"MakeMetaNode", u"Book");
        stored.call(u"MakeMetaLink", u"Shelf.Holds.Book", u"Shelf", u"Book");
        show();
    }

    void show() {
        create();
        form->setRepository(native);
        form->Init();
        form->Populate();
        form->PopUp(false);
        choose(u"mnuEditDynamic");
    }
    /// Ends the session and opens the file in the next one.
    void reopen() {
        form->unload();
        form->Destroy();
        native->close();
        native = make<repository::Repository>();
        native->open(folder.file());
        show();
    }
    void choose(std::u16string_view entry) { world.user.chooseMenu(*form, entry); }
    void answerMeta(std::u16string_view name, bool persistent = true) {
        world.desktop.expectModal(u"frmDynMetaObject", [=, this](ui::Form& dialog) {
            world.user.enterText(headless::get<ui::TextBox>(dialog, u"MetaObjectName"), name);
            if (!persistent)
                world.user.click(dialog, u"Persistent");
            world.user.click(dialog, u"OK");
        });
    }
    void makeMeta(std::u16string_view entry, std::u16string_view name, bool persistent = true) {
        answerMeta(name, persistent);
        choose(entry);
    }
    void select(std::u16string_view list, std::u16string_view name) {
        const Names all = names(list);
        const auto found = std::find(all.begin(), all.end(), name);
        ASSERT_NE(found, all.end());
        click(list, static_cast<std::size_t>(found - all.begin()));
    }
    /// The one box that comes when the entry is chosen holds the text.
    void expectRefusal(std::u16string_view text, std::u16string_view entry) {
        const std::size_t before = world.boxes().size();
        world.expectBox();
        choose(entry);
        world.desktop.verify();
        ASSERT_EQ(world.boxes().size(), before + 1);
        EXPECT_NE(world.boxes().back().find(text), std::u16string::npos);
    }
    void makeNode(std::u16string_view button, std::u16string_view name) {
        expectName(name);
        press(button);
    }
};

TEST_F(ReferenceRepositoryTest, NodesAndLinksAreMadeDeletedAndStored) {
    click(u"MetaLink", kFirst);
    makeNode(u"NewSourceNode", u"Top");
    makeNode(u"NewTargetNode", u"Atlas");
    makeNode(u"NewTargetNode", u"Poems");
    makeNode(u"NewLink", u"Top->Poems");
    EXPECT_EQ(names(u"Link"), Names{u"Top->Poems"});
    press(u"DeleteSourceNode");
    EXPECT_EQ(names(u"SourceNode"), Names{u"Top"}) << "it has a link";
    reopen();
    click(u"MetaLink", kFirst);
    EXPECT_EQ(counts(), (Counts{2, 1, 1, 1, 2, 2}));
    click(u"Link", kFirst);
    EXPECT_EQ(selected(u"TargetNode").get(u"name").toString(), u"Poems");
    press(u"DeleteLink");
    press(u"DeleteSourceNode");
    press(u"DeleteTargetNode");
    EXPECT_EQ(counts(), (Counts{2, 0, 1, 0, 2, 1}));
    reopen();
    click(u"MetaLink", kFirst);
    EXPECT_EQ(counts(), (Counts{2, 0, 1, 0, 2, 1}));
    EXPECT_TRUE(world.boxes().empty());
}

TEST_F(ReferenceRepositoryTest, DynamicTypesStayOrVanishByTheirPersistence) {
    makeMeta(u"Dynamic(0)", u"Kept");
    makeMeta(u"Dynamic(4)", u"Passing", false);
    select(u"SourceMetaNode", u"Kept");
    select(u"TargetMetaNode", u"Book");
    makeMeta(u"Dynamic(2)", u"Has");
    makeMeta(u"Dynamic(2)", u"Had", false);
    EXPECT_EQ(names(u"MetaLink"), (Names{u"Shelf.Holds.Book", u"Kept.Has.Book", u"Kept.Had.Book"}));
    makeNode(u"NewSourceNode", u"of a new type");
    reopen();
    EXPECT_EQ(names(u"SourceMetaNode"), (Names{u"Shelf", u"Book", u"Kept"}));
    EXPECT_EQ(names(u"MetaLink"), (Names{u"Shelf.Holds.Book", u"Kept.Has.Book"}));
    select(u"SourceMetaNode", u"Kept");
    EXPECT_EQ(names(u"SourceNode"), Names{u"of a new type"});
    EXPECT_TRUE(world.boxes().empty());
}

TEST_F(ReferenceRepositoryTest, NamesThatClashOrAreEmptyAreRefusedWithTheReason) {
    const auto refuse = [this](std::u16string_view entry, std::u16string_view name,
                               std::u16string_view text) {
        answerMeta(name);
        expectRefusal(text, entry);
    };
    refuse(u"Dynamic(0)", u"Book", u"There is already a meta node named 'Book'");
    refuse(u"Dynamic(0)", u"", u"A meta node needs a name");
    select(u"SourceMetaNode", u"Shelf");
    select(u"TargetMetaNode", u"Book");
    refuse(u"Dynamic(2)", u"Holds", u"There is already a meta link named 'Shelf.Holds.Book'");
    refuse(u"Dynamic(2)", u"", u"is not of the form");
    EXPECT_EQ(counts(), (Counts{2, 0, 1, 0, 2, 0}));
}

TEST_F(ReferenceRepositoryTest, TypesInUseAreKeptWithTheReason) {
    makeMeta(u"Dynamic(0)", u"Person");
    select(u"SourceMetaNode", u"Person");
    makeNode(u"NewSourceNode", u"Anna");
    expectRefusal(u"still has 1 instance", u"Dynamic(1)");
    EXPECT_EQ(names(u"SourceNode"), Names{u"Anna"});
    select(u"TargetMetaNode", u"Book");
    makeMeta(u"Dynamic(2)", u"Reads");
    press(u"DeleteSourceNode");
    expectRefusal(u"still has 1 meta link", u"Dynamic(1)");
    select(u"MetaLink", u"Person.Reads.Book");
    choose(u"Dynamic(3)");
    select(u"SourceMetaNode", u"Person");
    choose(u"Dynamic(1)");
    EXPECT_EQ(counts(), (Counts{2, 0, 1, 0, 2, 0}));
}

TEST_F(ReferenceRepositoryTest, StoredTypesAreNotDeletedAndAllSelectionsAreLost) {
    click(u"MetaLink", kFirst);
    choose(u"Dynamic(1)");
    EXPECT_EQ(counts(), (Counts{2, 0, 1, 0, 2, 0}));
    EXPECT_FALSE(selected(u"MetaLink"));
    EXPECT_TRUE(world.boxes().empty());
}

}  // namespace
}  // namespace quorel::sixpane
