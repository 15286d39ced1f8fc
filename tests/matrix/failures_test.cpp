#include <functional>
#include <limits>

#include "platform/ui/menu.h"
#include "tests/matrix/matrix_fixture.h"

namespace quorel::matrix {
namespace {

struct MatrixFailures : MatrixTest {
    std::u16string placeOfFailure(const std::u16string& call, const std::function<void()>& action) {
        return testing::placeOfFailure(world, *model.script, call, action);
    }
};

TEST_F(MatrixFailures, EveryProcedureReportsUnderItsLabel) {
    open();
    const auto place = [this](const char16_t* call, const std::function<void()>& action) {
        return placeOfFailure(call, action);
    };
    EXPECT_EQ(place(u"repository.MetaNodes", [this] { form->SetRepository(model.repository); }),
              u"MatrixBrowser/Init_lists");
    form->SetRepository(model.repository);
    for (const char16_t* call : {u"Person.Extension", u"Person.incoming", u"Person.outgoing"})
        EXPECT_EQ(place(call, [this] { clickType(kPerson); }), u"MatrixBrowser/SourceMetaNodeList_Click");
    clickType(kPerson);
    clickInstance(kAnna);
    EXPECT_EQ(place(u"id1.Incoming_", [this] { clickIncoming(kFirst); }),
              u"MatrixBrowser/MetaLinkListIncoming_Click");
    EXPECT_EQ(place(u"id1.Outgoing_", [this] { clickOutgoing(kWorksFor); }),
              u"MatrixBrowser/MetaLinkListOutgoing_Click");
    EXPECT_EQ(place(u"WorksFor.target", [this] { clickOutgoing(kWorksFor); }),
              u"MatrixBrowser/SetTargetColumns");
    EXPECT_EQ(list(u"TargetInstanceList").count(), 1U) << "the links are there without their columns";
    EXPECT_EQ(place(u"id2.Outgoing_", [this] { clickInstance(kBen); }),
              u"MatrixBrowser/SourceInstanceList_Click");
    EXPECT_EQ(place(u"id1.Parent", [this] { form->SetSelection(model.anna); }),
              u"MatrixBrowser/SetSelection");
    EXPECT_EQ(place(u"id1.Parent", [this] { doubleClick(u"SourceInstanceList", kAnna); }),
              u"MatrixBrowser/EditSourceNode");
    clickInstance(kAnna);
    clickOutgoing(kWorksFor);
    EXPECT_EQ(place(u"id7.target", [this] { doubleClick(u"TargetInstanceList", kFirst); }),
              u"MatrixBrowser/TargetInstanceList_DblClick");
    EXPECT_EQ(place(u"repository.MetaNodes", [this] { form->Populate(); }), u"MatrixBrowser/Populate");
    form->setRepositoryManager(manager);
    form->menuBar().find(u"mnuSelect")->setVisible(true);
    EXPECT_EQ(place(u"manager.SelectDialog", [this] { world.user.chooseMenu(*form, u"mnuSelect"); }),
              u"MatrixBrowser/mnuSelect_Click");
}

TEST_F(MatrixFailures, SelectingReportsUnderItsOwnNames) {
    open();
    EXPECT_EQ(placeOfFailure(u"MetaNodes.Item", [this] { form->SelectSourceMetaNode(u"Person"); }),
              u"MatrixBrowser/SelectSourceMetaNode");
    clickType(kPerson);
    EXPECT_EQ(placeOfFailure(u"Person.Extension.Item", [this] { form->SelectSourceInstance(u"id1"); }),
              u"MatrixBrowser/SelectSourceInstance");
    EXPECT_EQ(placeOfFailure(u"MetaLinks.Item", [this] { form->SelectMetaLink(u"Knows", true); }),
              u"MatrixBrowser/SelectMetaLink");
    world.expectBox();
    form->SelectMetaLink(u"Unknown", false);
    EXPECT_TRUE(world.boxes().back().starts_with(u"Error No: 9 "));
    // A selection that failed has not turned the direction.
    clickIncoming(kFirst);
    clickInstance(kBen);
    EXPECT_EQ(names(u"TargetInstanceList"), Texts{u"Anna"});
}

TEST_F(MatrixFailures, AnInstanceThatIsGoneAfterEditingIsReportedAsTheClick) {
    open();
    clickType(kPerson);
    world.desktop.expectModal(u"NodeEdit", [this](ui::Form& window) {
        auto& items = model.person->extension->items;
        items.erase(items.begin());
        window.hide();
    });
    EXPECT_EQ(placeOfFailure(u"id1.Identifier", [this] { doubleClick(u"SourceInstanceList", kAnna); }),
              u"MatrixBrowser/SourceInstanceList_Click");
}

TEST_F(MatrixFailures, CellsThatCannotBeReadAreReportedUnderTheFillingProcedure) {
    open();
    const auto looking = [this](const char16_t* name) {
        return [this, name] { static_cast<void>(look(name)); };
    };
    EXPECT_EQ(placeOfFailure(u"Person.name", looking(u"SourceMetaNodeList")), u"MatrixBrowser/Init_lists");
    clickType(kPerson);
    EXPECT_EQ(placeOfFailure(u"id1.name", looking(u"SourceInstanceList")),
              u"MatrixBrowser/SourceMetaNodeList_Click");
    EXPECT_EQ(placeOfFailure(u"Knows.source", looking(u"MetaLinkListIncoming")),
              u"MatrixBrowser/SourceMetaNodeList_Click");
    clickInstance(kAnna);
    clickOutgoing(kWorksFor);
    EXPECT_EQ(placeOfFailure(u"id7.target", looking(u"TargetInstanceList")),
              u"MatrixBrowser/MetaLinkListOutgoing_Click");
    clickInstance(kBen);
    EXPECT_EQ(placeOfFailure(u"id8.target", looking(u"TargetInstanceList")),
              u"MatrixBrowser/SourceInstanceList_Click");
}

TEST_F(MatrixFailures, ProgressBeyondTheNumbersIsError6) {
    open();
    world.expectBox();
    form->InitProgressBar(0, std::numeric_limits<std::int32_t>::max(), 0);
    EXPECT_EQ(lastPlace(), u"MatrixBrowser/InitProgressBar");
    EXPECT_TRUE(world.boxes().back().starts_with(u"Error No: 6 "));
    form->InitProgressBar(0, 100, 100);
    world.expectBox();
    form->ProgressBarStep(std::numeric_limits<std::int32_t>::max());
    EXPECT_EQ(lastPlace(), u"MatrixBrowser/ProgressBarStep");
    world.desktop.verify();
}

TEST_F(MatrixFailures, NothingAsRepositoryOrSelectionIsError91) {
    open();
    world.expectBox();
    form->SetRepository({});
    EXPECT_EQ(lastPlace(), u"MatrixBrowser/Init_lists");
    EXPECT_TRUE(world.boxes().back().starts_with(u"Error No: 91 "));
    EXPECT_EQ(counts(), (Counts{0, 0, 0, 0, 0}));
    world.expectBox();
    form->SetSelection({});
    EXPECT_EQ(lastPlace(), u"MatrixBrowser/SetSelection");
    world.desktop.verify();
}

TEST_F(MatrixFailures, ANodeOfAnUnknownTypeSelectsNothing) {
    open();
    PeopleWorld other;
    const auto stranger = other.repository->addNode(other.repository->addMetaNode(u"Planet"), u"Mars");
    form->SetSelection(stranger);
    EXPECT_EQ(selected(u"SourceMetaNodeList"), Object());
    EXPECT_EQ(counts(), (Counts{3, 0, 0, 0, 0}));
    world.desktop.verify();
}

/// Everything that a host and a user do with the browser; one call of the repository fails on demand.
class FailureSweep {
  public:
    FailureSweep() : manager_(make<testing::RepositoryManagerDouble>(model_.script)) {
        server::registerPublicClasses(world_.environment);
        session_->manager = manager_;
        // The double makes a collection of links when it is first asked for it.
        browse();
        model_.script->onFailure = [this] { world_.expectBox(); };
    }

    /// Runs with the `failing`th call refused (none when 0): then exactly one box must come, the rest must go
    /// on, and nothing must be left. True if that call was reached.
    bool run(int failing) {
        const std::int64_t before = automation::NativeObject::liveCount();
        const std::size_t boxesBefore = world_.boxes().size();
        model_.script->restart(failing);
        browse();
        world_.desktop.verify();
        const bool failed = failing != 0 && model_.script->calls() >= failing;
        EXPECT_EQ(world_.boxes().size() - boxesBefore, failed ? 1U : 0U) << "call " << failing;
        EXPECT_EQ(automation::NativeObject::liveCount(), before) << "call " << failing;
        EXPECT_EQ(world_.desktop.livePeers(), 0U) << "call " << failing;
        return failed;
    }

  private:
    void browse() {
        const auto browser = make<MatrixBrowser>(world_.environment);
        browser->Create(u"Browser", session_);
        browser->setRepository(model_.repository);
        browser->setRepositoryManager(manager_);
        browser->Init();
        browser->Populate();
        world_.desktop.expectModal(u"frmMatrixBrowser", [this](ui::Form& window) { use(window); });
        browser->PopUp();
        browser->SelectSourceMetaNode(u"Person");
        browser->SetSelection(model_.anna);
        browser->SelectSourceInstance(u"id2");
        browser->SelectMetaLink(u"Knows", true);
        browser->SelectMetaLink(u"Knows");
        browser->Deinit();
        browser->Destroy();
    }
    void use(ui::Form& window) {
        for (const std::u16string_view name :
             {u"SourceMetaNodeList", u"SourceInstanceList", u"MetaLinkListIncoming", u"MetaLinkListOutgoing",
              u"SourceInstanceList", u"TargetInstanceList"})
            act(window, name);
        auto& targets = headless::get<ui::VirtualList>(window, u"TargetInstanceList");
        if (targets.rowCount() > 0)
            world_.user.doubleClickRow(targets, 0);
        world_.user.press(window, {ui::Key::Left, ui::Modifiers::Alt});
        world_.user.press(window, {ui::Key::Right, ui::Modifiers::Alt});
        window.menuBar().find(u"mnuSelect")->setVisible(true);
        world_.user.chooseMenu(window, u"mnuSelect");
        window.hide();
    }
    void act(ui::Form& window, std::u16string_view name) {
        auto& list = headless::get<ui::VirtualList>(window, name);
        static_cast<void>(world_.user.look(list, 0, list.rowCount()));
        world_.desktop.runPosted();
        if (list.rowCount() > 0)
            world_.user.selectRow(list, 0);
    }

    PeopleWorld model_;
    testing::TestWorld world_;
    Ref<testing::SessionDouble> session_ = make<testing::SessionDouble>();
    Ref<testing::RepositoryManagerDouble> manager_;
};

TEST(MatrixSweep, EveryRepositoryCallMayFailOnceAndIsReportedOnce) {
    FailureSweep sweep;
    EXPECT_FALSE(sweep.run(0));
    int call = 1;
    while (sweep.run(call))
        ++call;
    EXPECT_GT(call, 100) << "the sweep ended early";
    EXPECT_FALSE(sweep.run(0)) << "a clean run after all failures";
}

TEST_F(MatrixFailures, EveryCallOfADoubleClickOnAnInstanceMayFailOnce) {
    open();
    clickType(kPerson);
    static_cast<void>(look(u"SourceInstanceList"));
    int callsAtShow = 0;
    const auto close = [&](ui::Form& window) {
        callsAtShow = model.script->calls();
        window.hide();
    };
    model.script->restart();
    world.desktop.expectModal(u"NodeEdit", close);
    doubleClick(u"SourceInstanceList", kAnna);
    world.desktop.verify();
    const int calls = model.script->calls();
    ASSERT_GT(callsAtShow, 0);
    ASSERT_GT(calls, callsAtShow);
    const int callsBefore = callsAtShow;
    for (int failing = 1; failing <= calls; ++failing) {
        model.script->restart(failing);
        model.script->onFailure = [this] { world.expectBox(); };
        if (failing > callsBefore)
            world.desktop.expectModal(u"NodeEdit", close);
        doubleClick(u"SourceInstanceList", kAnna);
        world.desktop.verify();
        EXPECT_TRUE(model.script->hasFailed()) << failing;
        model.script->restart();
        clickType(kPerson);
        EXPECT_EQ(list(u"SourceInstanceList").count(), 3U) << "usable after call " << failing;
    }
    EXPECT_EQ(world.boxes().size(), static_cast<std::size_t>(calls));
}

}  // namespace
}  // namespace quorel::matrix
