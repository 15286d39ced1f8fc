#include "platform/ui/plain_controls.h"
#include "tests/explorer/ht_explorer_fixture.h"

namespace quorel::explorer {
namespace {

using HTSetup = HTExplorerTest;

// Panes and entries.
// ------------------------------------------------------------------------

TEST_F(HTSetup, EveryTypeHasItsPanes) {
    open();
    EXPECT_EQ(form().paneCount(), 6U);
    for (const char16_t* id : {u"Person", u"0 Person", u"Company", u"0 Company", u"2 WorksFor", u"2 Knows"}) {
        const ExplorerPane& pane = form().Panes(id);
        EXPECT_EQ(pane.key, id);
        EXPECT_EQ(pane.Caption, pane.key.substr(pane.key.find(u' ') + 1));
    }
    EXPECT_EQ(form().Panes(u"Person").icon, u"Person");
}

TEST_F(HTSetup, PanesHoldWhatTheirKindShows) {
    open();
    const auto controls = [this](std::u16string_view pane, std::size_t page) {
        Texts texts;
        for (const ExplorerControl& control : form().Panes(pane).Panes()[page]->Controls)
            texts.push_back(control.typ + u" " + control.view + u" " + control.metatype);
        return texts;
    };
    EXPECT_EQ(controls(u"Person", 0), Texts{u"Property  Person"});
    EXPECT_EQ(controls(u"0 Person", 0), Texts{u"ListView Extension Person"});
    EXPECT_EQ(controls(u"2 WorksFor", 0), (Texts{u"Property  WorksFor", u"ListView Link-Target WorksFor",
                                                 u"ListView Link-Source WorksFor"}));
    for (const char16_t* pane : {u"Person", u"0 Person", u"2 WorksFor", u"2 Knows"})
        EXPECT_EQ(form().Panes(pane).Panes().size(), 1U);
}

TEST_F(HTSetup, EveryMetaNodeIsAnEntryAtTheTop) {
    open();
    EXPECT_EQ(below(TreeItemId::Root), (Texts{u"Person", u"Company"}));
    EXPECT_TRUE(tree().mayHaveChildren(at({u"Person"})));
    EXPECT_EQ(tree().itemPicture(at({u"Person"})), u"Node");
    EXPECT_TRUE(hierarchy().followsLinks());
}

TEST_F(HTSetup, TheTypesOfTheMetamodelItselfHavePanesAndNoEntries) {
    const auto meta = make<RepositoryDouble>(model.script);
    for (const char16_t* name : {u"MetaLink", u"MetaNode", u"MetaProperty"})
        static_cast<void>(meta->addMetaNode(name));
    create();
    explorer->setRepository(meta);
    explorer->SetupTree();
    explorer->PopUp(false);
    for (const char16_t* id :
         {u"MetaLink", u"0 MetaLink", u"MetaNode", u"0 MetaNode", u"MetaProperty", u"0 MetaProperty"})
        EXPECT_EQ(form().Panes(id).key, id);
    EXPECT_EQ(tree().itemCount(), 0U);
    explorer->Destroy();
    meta->clear();
}

TEST_F(HTSetup, ThereIsNoInformationPane) {
    create();
    EXPECT_EQ(form().paneCount(), 0U);
    EXPECT_EQ(hierarchy().repository(), Object()) << "the tree gets it when it is set up";
    EXPECT_FALSE(hierarchy().followsLinks());
}

TEST_F(HTSetup, AnEmptyMetamodelIsSetUp) {
    const auto empty = make<RepositoryDouble>(model.script);
    watchProgress();
    create();
    explorer->setRepository(empty);
    explorer->SetupTree();
    explorer->PopUp(false);
    EXPECT_EQ(tree().itemCount(), 0U);
    EXPECT_EQ(progress.back(), u"Destroy");
    explorer->Destroy();
    empty->clear();
}

TEST_F(HTSetup, PopulateReadsTheTreeAnew) {
    open();
    expand({u"Person"});
    static_cast<void>(model.repository->addNode(model.person, u"Carl"));
    explorer->Populate();
    EXPECT_EQ(below(at({u"Person"})), (Texts{u"Anna", u"Ben", u"Carl"}));
    EXPECT_TRUE(tree().isExpanded(at({u"Person"})));
}

TEST_F(HTSetup, AShownWindowFollowsItsSetup) {
    create();
    explorer->PopUp(false);
    EXPECT_EQ(tree().itemCount(), 0U);
    explorer->SetupTree();
    world.desktop.runPosted();
    EXPECT_EQ(below(TreeItemId::Root), (Texts{u"Person", u"Company"}));
}

// The progress window and the pointer.
// ------------------------------------------------------------------------

TEST_F(HTSetup, TheProgressReachesExactlyItsMaximum) {
    watchProgress();
    create();
    explorer->SetupTree();
    EXPECT_EQ(progress,
              (Texts{u"Create", u"PopUp", u"newTitle Setup explorer", u"newText Exploring People",
                     u"Init 0 6 0", u"newText MetaClass:Person", u"newText MetaClass:Company",
                     u"newText MetaAssoc:WorksFor", u"newText MetaAssoc:Knows", u"newText Extension: Person",
                     u"newText Extension: Company", u"Conceal at 6 of 6, beyond 0", u"Destroy"}));
    EXPECT_EQ(world.desktop.livePeers(), 0U);
}

TEST_F(HTSetup, ThePointerIsAnHourglassMeanwhile) {
    create();
    std::size_t waiting = 0;
    model.script->onCall = [&](const std::u16string& call) {
        if (call == u"Person.Properties" || call == u"WorksFor.source")
            waiting += world.desktop.pointer() == ui::Pointer::Wait ? 1U : 0U;
    };
    explorer->SetupTree();
    EXPECT_GE(waiting, 2U);
    EXPECT_EQ(world.desktop.pointer(), ui::Pointer::Default);
}

TEST_F(HTSetup, TheProgressIsPaintedNoMoreOftenThanItIsSeen) {
    for (int i = 0; i < 100; ++i)
        static_cast<void>(model.repository->addMetaNode(u"Type" + automation::decimal(i)));
    create();
    const std::size_t before = world.desktop.refreshes();
    explorer->SetupTree();
    const std::size_t painted = world.desktop.refreshes() - before;
    EXPECT_LE(painted, 8U) << "the clock stands still";
    explorer->Create({}, {});
    explorer->setRepository(model.repository);
    explorer->Init();
    const std::size_t again = world.desktop.refreshes();
    const double start = world.clock.timer;
    // Some seconds go by in the course of the types.
    model.script->onCall = [&](const std::u16string& call) {
        if (call.ends_with(u".Properties"))
            world.clock.timer += 0.01;
    };
    explorer->SetupTree();
    const auto most = static_cast<std::size_t>((world.clock.timer - start) * 30) + painted;
    EXPECT_GT(world.desktop.refreshes() - again, most / 2);
    EXPECT_LE(world.desktop.refreshes() - again, most);
}

TEST_F(HTSetup, NothingIsMadeOfAPaneThatNobodySees) {
    open();
    const std::size_t few = world.desktop.livePeers();
    explorer->Destroy();
    for (int i = 0; i < 50; ++i)
        static_cast<void>(model.repository->addMetaNode(u"Type" + automation::decimal(i)));
    open();
    EXPECT_EQ(world.desktop.livePeers(), few);
}

// Pictures.
// ------------------------------------------------------------------------

TEST_F(HTSetup, NodesAndLinksHaveTheLibrarysPictures) {
    open();
    const auto widthOf = [](const ui::ImageList& images, std::u16string_view key) {
        const auto place = images.placeOf(key);
        return place ? images.frames(*place).front().width : 0;
    };
    for (const ui::ImageList* images :
         {form().smallImages().get(), form().bigImages().get(), tree().images().get()}) {
        EXPECT_EQ(widthOf(*images, u"Node"), 17);
        EXPECT_EQ(widthOf(*images, u"Link"), 16);
    }
    EXPECT_TRUE(form().bigImages()->placeOf(u"QuorelExplorer").has_value());
    EXPECT_EQ(list(1).icon(), u"Node");
    EXPECT_EQ(list(3).icon(), u"Link");
}

TEST_F(HTSetup, AMissingPictureIsReportedAndLeavesAWindow) {
    world.environment.libraryFolder = u"/nowhere";
    world.expectBox();
    world.expectBox();
    create();
    world.desktop.verify();
    EXPECT_EQ(lastPlace(), u"frmHTExplorer/Create");
    EXPECT_TRUE(world.boxes().front().starts_with(u"Error No: 53 "));
    EXPECT_NE(world.boxes().front().find(u"/nowhere\\Node.ico"), std::u16string::npos);
    explorer->SetupTree();
    explorer->PopUp(false);
    EXPECT_EQ(tree().itemCount(), 2U);
}

// Failures.
// ------------------------------------------------------------------------

struct HTSetupFailure : HTExplorerTest {
    void expectOneBoxFor(const std::u16string& call, const std::u16string& place) {
        watchProgress();
        create();
        EXPECT_EQ(testing::placeOfFailure(world, *model.script, call, [this] { explorer->SetupTree(); }),
                  place)
            << automation::toUtf8(call);
        EXPECT_EQ(progress.back(), u"Destroy") << automation::toUtf8(call);
        EXPECT_EQ(world.desktop.pointer(), ui::Pointer::Default);
        EXPECT_EQ(world.desktop.livePeers(), 0U);
        explorer->PopUp(false);
        explorer->Destroy();
    }
};

TEST_F(HTSetupFailure, IsReportedOnceAndEndsTheProgress) {
    for (const char16_t* call :
         {u"repository.name", u"repository.MetaNodes", u"MetaNodes.Count", u"repository.MetaLinks",
          u"MetaLinks.Count", u"MetaNodes.enumerate", u"MetaNodes.next", u"Person.name", u"Person.Properties",
          u"Company.Extension", u"MetaLinks.enumerate", u"WorksFor.name", u"WorksFor.source",
          u"WorksFor.target", u"WorksFor.Properties", u"Knows.name"})
        expectOneBoxFor(call, u"frmHTExplorer/SetupTree");
}

TEST_F(HTSetupFailure, ThePointerAndTheProgressAreGoneWhenTheBoxComes) {
    watchProgress();
    create();
    model.script->onCall = [](const std::u16string& call) {
        if (call == u"WorksFor.Properties")
            throw automation::Error(1000, u"Refused", u"Repository");
    };
    bool came = false;
    world.desktop.expectMessage([&](const ui::Message&) {
        came = true;
        EXPECT_EQ(world.desktop.pointer(), ui::Pointer::Default);
        EXPECT_EQ(progress.back(), u"Destroy");
    });
    explorer->SetupTree();
    model.script->onCall = {};
    world.desktop.verify();
    EXPECT_TRUE(came);
}

TEST_F(HTSetupFailure, WithoutARepositoryIsReported) {
    create();
    explorer->setRepository({});
    world.expectBox();
    explorer->SetupTree();
    world.desktop.verify();
    EXPECT_EQ(lastPlace(), u"frmHTExplorer/SetupTree");
    EXPECT_TRUE(world.boxes().back().starts_with(u"Error No: 91 "));
}

TEST_F(HTSetupFailure, TheSecondTimeIsReportedOnce) {
    watchProgress();
    open();
    world.expectBox();
    explorer->SetupTree();
    world.desktop.verify();
    EXPECT_EQ(world.boxes().size(), 1U);
    EXPECT_EQ(lastPlace(), u"frmHTExplorer/AddPane");
    EXPECT_TRUE(world.boxes().back().starts_with(u"Error No: 457 "));
    EXPECT_EQ(progress.back(), u"Destroy");
    world.desktop.runPosted();
    EXPECT_EQ(below(TreeItemId::Root), (Texts{u"Person", u"Company"}));
}

TEST_F(HTSetupFailure, WithoutAProgressWindowNothingIsMade) {
    world.classes.add(u"QuorelUtility.Progress", []() -> Object { throw automation::Error(429); });
    create();
    world.expectBox();
    explorer->SetupTree();
    world.desktop.verify();
    EXPECT_EQ(form().paneCount(), 0U);
}

TEST_F(HTSetupFailure, ARepositoryThatAsksForAnotherSetupGetsOne) {
    watchProgress();
    create();
    model.script->onCall = [this](const std::u16string& call) {
        if (call == u"Person.Properties")
            explorer->SetupTree();
    };
    explorer->SetupTree();
    model.script->onCall = {};
    EXPECT_EQ(form().paneCount(), 6U);
    EXPECT_TRUE(world.boxes().empty());
}

}  // namespace
}  // namespace quorel::explorer
