#include "tests/explorer/destroy_inside.h"
#include "tests/explorer/ht_explorer_fixture.h"
#include "tests/explorer/window_walk.h"

namespace quorel::explorer {
namespace {

struct HTFailures : HTExplorerTest {
    std::u16string placeOfFailure(const std::u16string& call, const std::function<void()>& action) {
        return testing::placeOfFailure(world, *model.script, call, action);
    }
};

TEST_F(HTFailures, EveryProcedureReportsUnderItsLabel) {
    open();
    EXPECT_EQ(placeOfFailure(u"Person.Extension", [this] { expand({u"Person"}); }),
              u"frmHTExplorer/HierarchyTreeView1_Expand");
    expand({u"Person"});
    expand({u"Person", u"Anna"});
    EXPECT_EQ(placeOfFailure(u"id1.Outgoing_",
                             [this] {
                                 expand({u"Person", u"Anna", u"WorksFor"});
                             }),
              u"frmHTExplorer/HierarchyTreeView1_Expand");
    expand({u"Person", u"Anna", u"WorksFor"});
    for (const char16_t* call : {u"id5.target", u"id3.Parent", u"Company.name"})
        EXPECT_EQ(placeOfFailure(call,
                                 [this] {
                                     expand({u"Person", u"Anna", u"WorksFor", u"a"});
                                 }),
                  u"frmHTExplorer/HierarchyTreeView1_Expand")
            << automation::toUtf8(call);
    expand({u"Person", u"Anna", u"WorksFor", u"a"});
    EXPECT_EQ(below(at({u"Person", u"Anna", u"WorksFor", u"a"})), Texts{u"Acme"}) << "it can be tried again";
    for (const char16_t* call :
         {u"repository.MetaLinks", u"WorksFor.name", u"id1.Outgoing_", u"id3.Incoming_",
          u"WorksFor.Extension", u"WorksFor.Extension.Count", u"id5.source"})
        EXPECT_EQ(placeOfFailure(call,
                                 [this] {
                                     click({u"Person", u"Anna", u"WorksFor", u"a"});
                                 }),
                  u"frmHTExplorer/ActivatePane")
            << automation::toUtf8(call);
    EXPECT_FALSE(form().Panes(u"2 WorksFor").Active());
    click({u"Person", u"Anna", u"WorksFor", u"a"});
    EXPECT_TRUE(form().Panes(u"2 WorksFor").Active()) << "the entry that failed can be clicked again";
}

TEST_F(HTFailures, APopUpThatCannotBeIsReported) {
    open();
    world.expectBox();
    explorer->PopUp(true);
    world.desktop.verify();
    EXPECT_EQ(lastPlace(), u"frmHTExplorer/PopUp");
}

// One call of the repository after the other fails.
// ------------------------------------------------------------------------

class HTSweep {
  public:
    HTSweep() {
        world_.environment.libraryFolder = u"library";
        HTExplorerTest::setPictures(world_.desktop);
        server::registerPublicClasses(world_.environment);
        // The double makes a collection of links when it is first asked for it.
        run(0);
        model_.script->onFailure = [this] { world_.expectBox(); };
    }

    /// Runs with the `failing`th call refused (none when 0): exactly one box comes, the rest goes on, and
    /// nothing is left. True if that call was reached.
    bool run(int failing) {
        const std::int64_t before = automation::NativeObject::liveCount();
        const std::size_t boxesBefore = world_.boxes().size();
        model_.script->restart(failing);
        browse();
        world_.desktop.verify();
        const bool failed = failing != 0 && model_.script->calls() >= failing;
        EXPECT_EQ(world_.boxes().size() - boxesBefore, failed ? 1U : 0U) << "call " << failing;
        if (std::exchange(warm_, true)) {
            EXPECT_EQ(automation::NativeObject::liveCount(), before) << "call " << failing;
        }
        EXPECT_EQ(world_.desktop.livePeers(), 0U) << "call " << failing;
        EXPECT_EQ(world_.desktop.pointer(), ui::Pointer::Default) << "call " << failing;
        return failed;
    }
    [[nodiscard]] int callsOfCleanRun() {
        run(0);
        return model_.script->calls();
    }

  private:
    void browse() {
        const auto explorer = make<OpenHTExplorer>(world_.environment);
        explorer->Create(u"", {});
        explorer->setRepository(model_.repository);
        explorer->Init();
        explorer->SetupTree();
        world_.desktop.expectModal(u"frmHTExplorer", [&](ui::Form& window) {
            use(*explorer->form());
            window.hide();
        });
        explorer->PopUp();
        explorer->Deinit();
        explorer->Destroy();
    }
    void use(frmHTExplorer& form) {
        for (const TreePath& path :
             {TreePath{u"Person"}, TreePath{u"Person", u"Anna"}, TreePath{u"Person", u"Anna", u"WorksFor"},
              TreePath{u"Person", u"Anna", u"WorksFor", u"a"},
              TreePath{u"Person", u"Anna", u"WorksFor", u"a", u"Acme"},
              TreePath{u"Person", u"Anna", u"WorksFor", u"a", u"Acme", u"WorksFor (incoming)"},
              TreePath{u"Company"}, TreePath{u"Person", u"Anna", u"Knows"},
              TreePath{u"Person", u"Anna", u"Knows", u"b"}}) {
            visit(form, path);
            world_.desktop.runPosted();
        }
        form.HierarchyTreeView1().refresh();
        world_.desktop.runPosted();
        world_.user.resize(form, {Twips{12000}, Twips{9000}});
    }
    /// A click on the entry, a look at its tabs, and a click on the button before it.
    void visit(frmHTExplorer& form, const TreePath& path) {
        ui::Tree& tree = form.HierarchyTreeView1().tree();
        const TreeItemId at = findItem(tree, path);
        if (at == TreeItemId::None || !tree.isItemShown(at))
            return;
        world_.user.clickItem(tree, at);
        lookAtTabs(world_, form.tabs());
        if (!tree.isExpanded(at) && tree.mayHaveChildren(at))
            world_.user.clickItemButton(tree, at);
    }

    PeopleWorld model_;
    testing::TestWorld world_;
    bool warm_ = false;
};

TEST(HTExplorerSweep, EveryRepositoryCallMayFailOnceAndIsReportedOnce) {
    HTSweep sweep;
    const int calls = sweep.callsOfCleanRun();
    EXPECT_GT(calls, 150);
    int call = 1;
    while (sweep.run(call))
        ++call;
    EXPECT_GE(call, calls) << "the sweep ended early";
    EXPECT_FALSE(sweep.run(0)) << "a clean run after all failures";
}

// Hosts that come back.
// ------------------------------------------------------------------------

using HTDestroyInside = DestroyInside<HTExplorerTest>;

TEST_F(HTDestroyInside, EveryCallOfASetup) {
    everyCallOf([this] { create(); }, [this] { explorer->SetupTree(); });
}

TEST_F(HTDestroyInside, EveryCallOfAnExpansion) {
    everyCallOf([this] { open(); }, [this] { world.user.clickItemButton(tree(), at({u"Person"})); });
    everyCallOf(
        [this] {
            open();
            reach({u"Person", u"Anna", u"WorksFor", u"a"});
        },
        [this, item = TreeItemId::None]() mutable {
            item = tree().lastShown();
            while (tree().itemPicture(item) != u"Link" || tree().isExpanded(item) ||
                   tree().parentOf(tree().parentOf(tree().parentOf(item))) == TreeItemId::Root)
                item = tree().shownBefore(item);
            world.user.clickItemButton(tree(), item);
        });
}

TEST_F(HTDestroyInside, EveryCallOfAnActivation) {
    for (const Path path :
         {Path{u"Person", u"Anna", u"WorksFor"}, Path{u"Person", u"Anna", u"WorksFor", u"a"}}) {
        TreeItemId item = TreeItemId::None;
        everyCallOf(
            [&] {
                open();
                reach(path);
                item = at(path);
            },
            [&] { world.user.clickItem(tree(), item); });
    }
}

TEST_F(HTDestroyInside, EveryCallOfARefresh) {
    everyCallOf(
        [this] {
            open();
            click({u"Person", u"Anna", u"WorksFor", u"a", u"Acme"});
        },
        [this] { explorer->Populate(); });
}

}  // namespace
}  // namespace quorel::explorer
