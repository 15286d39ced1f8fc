#include "platform/ui/menu.h"
#include "tests/sixpane/six_pane_fixture.h"

namespace quorel::sixpane {
namespace {

struct FailuresTest : SixPaneTest {
    /// Gives what is shown another name and chooses OK; a refusal is answered by Cancel.
    void renameAndConfirm(ui::Form& window) {
        auto& list = headless::get<ui::VirtualList>(window, u"Property1");
        static_cast<void>(world.user.look(list, 0, list.rowCount()));
        world.desktop.runPosted();
        world.user.selectRow(list, 0);
        world.user.press(window, {ui::Key::F2});
        auto& box = headless::get<ui::TextBox>(window, u"Property1.Text");
        if (box.isUsable()) {
            world.user.enterText(box, box.text() + u"!");
            world.user.press(window, {ui::Key::Enter});
        }
        world.user.click(window, u"OK");
        if (window.isVisible())
            world.user.click(window, u"Cancel");
    }
    std::u16string placeOfFailure(const std::u16string& call, const std::function<void()>& action) {
        return testing::placeOfFailure(world, *model.script, call, action);
    }
};

TEST_F(FailuresTest, EveryHandlerReportsUnderItsLabel) {
    open();
    EXPECT_EQ(placeOfFailure(u"Person.Extension", [this] { click(u"SourceMetaNode", kFirst); }),
              u"SixPane/SourceMetaNode_Click");
    EXPECT_EQ(placeOfFailure(u"Person.Extension", [this] { click(u"TargetMetaNode", kFirst); }),
              u"SixPane/TargetMetaNode_Click");
    EXPECT_EQ(placeOfFailure(u"WorksFor.Extension", [this] { click(u"MetaLink", kFirst); }),
              u"SixPane/MetaLink_Click");
    EXPECT_EQ(placeOfFailure(u"WorksFor.source", [this] { click(u"MetaLink", kFirst); }),
              u"SixPane/MetaLink_Click");
    EXPECT_EQ(placeOfFailure(u"Company.Extension", [this] { click(u"MetaLink", kFirst); }),
              u"SixPane/TargetMetaNode_Click");
    click(u"MetaLink", kFirst);
    EXPECT_EQ(placeOfFailure(u"id6.source", [this] { click(u"Link", kFirst); }), u"SixPane/Link_Click");
    EXPECT_EQ(placeOfFailure(u"id1.Parent", [this] { click(u"Link", kFirst); }), u"SixPane/Link_Click");
    EXPECT_EQ(placeOfFailure(u"repository.MetaLinks", [this] { form->Populate(); }), u"SixPane/Populate");
    EXPECT_EQ(placeOfFailure(u"repository.MetaNodes", [this] { world.user.press(*form, {ui::Key::F5}); }),
              u"SixPane/mnuRefresh_Click");
    form->menuBar().find(u"mnuSelect")->setVisible(true);
    EXPECT_EQ(placeOfFailure(u"manager.SelectDialog", [this] { world.user.chooseMenu(*form, u"mnuSelect"); }),
              u"SixPane/mnuSelect_Click");
}

TEST_F(FailuresTest, DoubleClicksReportUnderTheProcedureThatFailed) {
    open();
    click(u"MetaLink", kFirst);
    EXPECT_EQ(placeOfFailure(u"id6.Parent", [this] { doubleClick(u"Link", kFirst); }),
              u"SixPane/DisplayObject");
    // The second question for the type comes after the window was closed, from the handler itself.
    for (const auto& [node, pane, place] :
         {std::tuple{u"id1.Parent", u"SourceNode", u"SixPane/SourceNode_DblClick"},
          std::tuple{u"id3.Parent", u"TargetNode", u"SixPane/TargetNode_DblClick"}}) {
        int asked = 0;
        model.script->onCall = [&asked, node = node](const std::u16string& call) {
            if (call == node && ++asked == 2)
                throw automation::Error(1000, u"Refused", u"Repository");
        };
        world.desktop.expectModal(u"NodeEdit", [this](ui::Form& window) { renameAndConfirm(window); });
        world.expectBox();
        doubleClick(pane, kFirst);
        model.script->onCall = {};
        world.desktop.verify();
        EXPECT_EQ(lastPlace(), place);
    }
}

TEST_F(FailuresTest, CellsThatCannotBeReadAreReportedOnceUnderTheFillingProcedure) {
    open();
    click(u"SourceMetaNode", kFirst);
    EXPECT_EQ(
        placeOfFailure(u"id1.name",
                       [this] { static_cast<void>(world.user.look(pane(u"SourceNode").list(), 0, 2)); }),
        u"SixPane/SourceMetaNode_Click");
    EXPECT_EQ(
        placeOfFailure(u"Person.name",
                       [this] { static_cast<void>(world.user.look(pane(u"TargetMetaNode").list(), 0, 2)); }),
        u"SixPane/Populate");
}

TEST_F(FailuresTest, InitWithAForeignSessionIsReported) {
    form = std::make_shared<frmSixPane>(world.environment);
    form->load();
    form->Create(u"Browser", model.repository);
    form->CreatePanes();
    world.expectBox();
    form->Init();
    world.desktop.verify();
    EXPECT_EQ(lastPlace(), u"SixPane/Init");
    EXPECT_TRUE(world.boxes().back().starts_with(u"Error No: 438"));
}

TEST_F(FailuresTest, PopulateWithoutRepositoryIsReportedAsError91) {
    create();
    form->Init();
    world.expectBox();
    form->Populate();
    world.desktop.verify();
    EXPECT_EQ(lastPlace(), u"SixPane/Populate");
    EXPECT_TRUE(world.boxes().back().starts_with(u"Error No: 91"));
}

TEST_F(FailuresTest, MissingGeneratorClassIsReported) {
    automation::ClassRegistry none;
    const frame::Environment environment{world.desktop, none, world.clock, world.settings};
    form = std::make_shared<frmSixPane>(environment);
    form->load();
    world.expectBox();
    form->Create(u"Browser", session);
    world.desktop.verify();
    EXPECT_EQ(lastPlace(), u"SixPane/Create");
    EXPECT_TRUE(world.boxes().back().starts_with(u"Error No: 429"));
}

/// Everything that a host and a user do with the browser; one call of the repository fails on demand.
class FailureSweep {
  public:
    FailureSweep() : manager_(make<testing::RepositoryManagerDouble>(model_.script)) {
        server::registerPublicClasses(world_.environment);
        session_->manager = manager_;
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
        const auto browser = make<SixPane>(world_.environment);
        browser->Create(u"Browser", session_);
        browser->setPackageObject(make<testing::RepositoryHolderDouble>(model_.script, model_.repository));
        // A package that could not tell its repository is replaced by the repository, as a host would.
        browser->setRepository(model_.repository);
        browser->Init();
        browser->Populate();
        world_.desktop.expectModal(u"frmSixPane", [this](ui::Form& window) { use(window); });
        browser->PopUp();
        browser->SetSelection(model_.anna);
        browser->SetSelection(model_.annaAtAcme);
        browser->Deinit();
        browser->Destroy();
    }
    void use(ui::Form& window) {
        for (const std::u16string_view name : {u"SourceMetaNode", u"TargetMetaNode", u"MetaLink", u"Link"}) {
            auto& list = headless::get<ui::VirtualList>(window, name);
            static_cast<void>(world_.user.look(list, 0, list.rowCount()));
            world_.desktop.runPosted();
            if (list.rowCount() > 0)
                world_.user.selectRow(list, 0);
        }
        world_.user.press(window, {ui::Key::F5});
        window.hide();
    }

    SmallWorld model_;
    testing::TestWorld world_;
    Ref<testing::SessionDouble> session_ = make<testing::SessionDouble>();
    Ref<testing::RepositoryManagerDouble> manager_;
};

TEST(SixPaneSweep, EveryRepositoryCallMayFailOnceAndIsReportedOnce) {
    FailureSweep sweep;
    EXPECT_FALSE(sweep.run(0));
    int call = 1;
    while (sweep.run(call))
        ++call;
    EXPECT_GT(call, 60) << "the sweep ended early";
    EXPECT_FALSE(sweep.run(0)) << "a clean run after all failures";
}

TEST_F(FailuresTest, EveryCallOfADoubleClickMayFailOnce) {
    open();
    click(u"MetaLink", kFirst);
    static_cast<void>(world.user.look(pane(u"SourceNode").list(), 0, 2));
    int callsAtShow = 0;
    const auto use = [&](ui::Form& window) {
        callsAtShow = model.script->calls();
        renameAndConfirm(window);
    };
    model.script->restart();
    world.desktop.expectModal(u"NodeEdit", use);
    doubleClick(u"SourceNode", kFirst);
    world.desktop.verify();
    const int calls = model.script->calls();
    const int before = callsAtShow;
    ASSERT_GT(calls, before);
    for (int failing = 1; failing <= calls; ++failing) {
        model.script->restart(failing);
        model.script->onFailure = [this] { world.expectBox(); };
        if (failing > before)
            world.desktop.expectModal(u"NodeEdit", use);
        doubleClick(u"SourceNode", kFirst);
        world.desktop.verify();
        EXPECT_TRUE(model.script->hasFailed()) << failing;
        model.script->restart();
        click(u"MetaLink", kFirst);
        EXPECT_EQ(pane(u"SourceNode").count(), 2U) << "usable after call " << failing;
    }
    EXPECT_EQ(world.boxes().size(), static_cast<std::size_t>(calls));
}

}  // namespace
}  // namespace quorel::sixpane
