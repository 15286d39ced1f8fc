#include "tests/sixpane/six_pane_fixture.h"

namespace quorel::sixpane {
namespace {

TEST_F(SixPaneTest, SetSelectionOfANodeShowsItUnderItsType) {
    open();
    form->SetSelection(model.zenith);
    EXPECT_EQ(selected(u"SourceMetaNode"), Object(model.company));
    EXPECT_EQ(selected(u"SourceNode"), Object(model.zenith));
    EXPECT_EQ(pane(u"TargetNode").count(), 0U);
    world.desktop.verify();
}

TEST_F(SixPaneTest, SetSelectionOfALinkShowsItsTypeItsEndsAndTheirTypes) {
    open();
    form->SetSelection(model.benAtZenith);
    EXPECT_EQ(selected(u"MetaLink"), Object(model.worksFor));
    EXPECT_EQ(selected(u"Link"), Object(model.benAtZenith));
    EXPECT_EQ(selected(u"SourceMetaNode"), Object(model.person));
    EXPECT_EQ(selected(u"TargetMetaNode"), Object(model.company));
    EXPECT_EQ(selected(u"SourceNode"), Object(model.ben));
    EXPECT_EQ(selected(u"TargetNode"), Object(model.zenith));
    world.desktop.verify();
}

TEST_F(SixPaneTest, SetSelectionOfATypeIsAsGoodAsAClickOnIt) {
    open();
    form->SetSelection(model.city);
    EXPECT_EQ(selected(u"SourceMetaNode"), Object(model.city));
    EXPECT_EQ(pane(u"SourceNode").count(), 1U);
    form->SetSelection(model.livesIn);
    EXPECT_EQ(counts(), (Counts{3, 2, 2, 1, 3, 1}));
    world.desktop.verify();
}

TEST_F(SixPaneTest, SetSelectionOfNothingTakesEverySelectionAway) {
    open();
    form->SetSelection(model.benAtZenith);
    form->SetSelection({});
    for (const PaneTraits& traits : kPanes)
        EXPECT_FALSE(selected(traits.name));
    EXPECT_EQ(pane(u"Link").count(), 2U) << "the rows stay";
    world.desktop.verify();
}

TEST_F(SixPaneTest, SetSelectionOfANodeWithMisleadingPropertiesIsNotTakenIn) {
    model.acme->values[u"source"] = u"somewhere";
    model.acme->values[u"Extension"] = u".txt";
    open();
    form->SetSelection(model.acme);
    EXPECT_EQ(selected(u"SourceNode"), Object(model.acme));
    world.desktop.verify();
}

TEST_F(SixPaneTest, SetSelectionOfAStrangerIsReported) {
    open();
    world.expectBox();
    form->SetSelection(manager);
    EXPECT_EQ(lastPlace(), u"SixPane/SetSelection");
    world.desktop.verify();
}

TEST_F(SixPaneTest, PackageObjectOffersItsRepository) {
    create();
    const Object package = make<testing::RepositoryHolderDouble>(model.script, model.repository);
    form->setPackageObject(package);
    EXPECT_EQ(form->PackageObject(), package);
    EXPECT_EQ(form->Repository(), Object(model.repository));
    form->setPackageObject({});
    EXPECT_EQ(form->Repository(), Object(model.repository)) << "what was set stays";
    world.expectBox();
    form->setPackageObject(manager);
    EXPECT_EQ(lastPlace(), u"SixPane/PackageObject");
    world.desktop.verify();
}

struct FileNameTest : SixPaneTest {
    FileNameTest() {
        manager->files[u"small"] = make<testing::RepositoryHolderDouble>(model.script, model.repository);
        manager->files[u"none"] = Object();
    }
};

TEST_F(FileNameTest, FileNameIsOpenedByTheSessionsManagerDuringInit) {
    create();
    form->setRepositoryFileName(u"small");
    EXPECT_FALSE(form->Repository());
    form->Init();
    EXPECT_EQ(form->Repository(), Object(model.repository));
    form->Init();
    EXPECT_EQ(std::count(model.script->log.begin(), model.script->log.end(), u"manager.Open small"), 1);
    world.desktop.verify();
}

TEST_F(FileNameTest, FileNameIsOpenedByAManagerThatTheHostSets) {
    create();
    form->setRepositoryManager(manager);
    form->setRepositoryFileName(u"small");
    EXPECT_EQ(form->RepositoryFileName(), u"small");
    EXPECT_EQ(form->Repository(), Object(model.repository));
    form->setRepository({});
    form->setRepositoryManager({});
    form->setRepositoryManager(manager);
    EXPECT_FALSE(form->Repository()) << "opened once";
    form->setRepositoryFileName(u"small");
    EXPECT_EQ(form->Repository(), Object(model.repository));
    world.desktop.verify();
}

TEST_F(FileNameTest, FileThatCannotBeOpenedIsReportedAndChangesNothing) {
    create();
    form->setRepository(model.repository);
    form->setRepositoryManager(manager);
    world.expectBox();
    form->setRepositoryFileName(u"missing");
    EXPECT_EQ(lastPlace(), u"SixPane/RepositoryFileName");
    form->setRepositoryFileName(u"none");
    form->setRepositoryFileName(u"");
    EXPECT_EQ(form->Repository(), Object(model.repository));
    world.desktop.verify();
}

}  // namespace
}  // namespace quorel::sixpane
