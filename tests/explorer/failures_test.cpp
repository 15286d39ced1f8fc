#include "platform/ui/plain_controls.h"
#include "tests/explorer/destroy_inside.h"
#include "tests/explorer/explorer_fixture.h"
#include "tests/explorer/window_walk.h"

namespace quorel::explorer {
namespace {

struct ExplorerFailures : ExplorerTest {
    std::u16string placeOfFailure(const std::u16string& call, const std::function<void()>& action) {
        return testing::placeOfFailure(world, *model.script, call, action);
    }
};

TEST_F(ExplorerFailures, EveryProcedureReportsUnderItsLabel) {
    open();
    EXPECT_EQ(placeOfFailure(u"Person.Extension", [this] { expand({u"Everybody"}); }),
              u"frmExplorer/TreeView1_Expand");
    expand({u"Everybody"});
    EXPECT_EQ(placeOfFailure(u"id1.name", [this] { static_cast<void>(world.user.look(tree())); }),
              u"frmExplorer/TreeView1_Expand")
        << "a name that cannot be read when it is seen";
    form().TreeView1().refresh();
    for (const char16_t* call : {u"id1.Outgoing_", u"id1.Outgoing_.Count", u"id1.Outgoing_.Item",
                                 u"id5.target", u"repository.MetaLinks", u"WorksFor.name", u"id1.Incoming_"})
        EXPECT_EQ(placeOfFailure(call,
                                 [this] {
                                     click({u"Everybody", u"Anna"});
                                 }),
                  u"frmExplorer/ActivatePane")
            << automation::toUtf8(call);
    EXPECT_FALSE(pane(u"person").Active());
    click({u"Everybody", u"Anna"});
    EXPECT_TRUE(pane(u"person").Active()) << "the entry that failed can be clicked again";
    EXPECT_EQ(placeOfFailure(u"id5.target",
                             [this] {
                                 world.user.clickTab(form().tabs(), 1);
                                 static_cast<void>(firstColumn(u"ListView1(1)"));
                             }),
              u"frmExplorer/ActivatePane")
        << "a cell that cannot be read";
    world.user.clickTab(form().tabs(), 0);
    EXPECT_EQ(placeOfFailure(u"Company.Extension", [this] { world.user.click(combo().box()); }),
              u"frmExplorer/Combo1_Click");
    EXPECT_EQ(placeOfFailure(u"id1.GetProperty",
                             [this] {
                                 form().TreeView1().refresh();
                                 click({u"Everybody", u"Ben"});
                                 click({u"Everybody", u"Anna"});
                                 static_cast<void>(world.user.look(property(u"Property1(1)").list(), 0, 10));
                             }),
              u"frmExplorer/Property1");
}

TEST_F(ExplorerFailures, APaneThatFailedIsNotSeenBesideTheNextOne) {
    open();
    expand({u"Everybody"});
    static_cast<void>(placeOfFailure(u"id1.Outgoing_", [this] { click({u"Everybody", u"Anna"}); }));
    EXPECT_EQ(visiblePages(), Texts{u"person/Data"}) << "as far as it came";
    world.user.clickTab(form().tabs(), 1);
    EXPECT_EQ(visiblePages(), Texts{u"person/Links"});
    click({u"Companies"});
    EXPECT_EQ(visiblePages(), Texts{u"companies/All"});
}

/// Everything that a host and a user do with an explorer; one call of the repository fails on demand.
class FailureSweep {
  public:
    FailureSweep() {
        server::registerPublicClasses(world_.environment);
        // The double makes a collection of links when it is first asked for it.
        run(0);
        model_.script->onFailure = [this] {
            // Described wrongly, a pane is the host's affair; anything else is shown.
            if (!describing_)
                world_.expectBox();
        };
    }

    /// Runs with the `failing`th call refused (none when 0): then the host hears of it or exactly one box
    /// comes, the rest goes on, and nothing is left. True if that call was reached.
    bool run(int failing) {
        const std::int64_t before = automation::NativeObject::liveCount();
        const std::size_t boxesBefore = world_.boxes().size();
        model_.script->restart(failing);
        hostErrors_ = 0;
        browse();
        world_.desktop.verify();
        const bool failed = failing != 0 && model_.script->calls() >= failing;
        EXPECT_EQ(world_.boxes().size() - boxesBefore + hostErrors_, failed ? 1U : 0U) << "call " << failing;
        if (warm_) {
            EXPECT_EQ(automation::NativeObject::liveCount(), before) << "call " << failing;
        }
        warm_ = true;
        EXPECT_EQ(world_.desktop.livePeers(), 0U) << "call " << failing;
        return failed;
    }

  private:
    void browse() {
        const auto explorer = make<OpenExplorer>(world_.environment);
        explorer->Create();
        explorer->setRepository(model_.repository);
        explorer->Init();
        describing_ = true;
        try {
            describePeople(*explorer);
        } catch (const automation::Error&) {
            ++hostErrors_;
        }
        describing_ = false;
        world_.desktop.expectModal(u"frmExplorer", [&](ui::Form& window) {
            use(*explorer->form());
            window.hide();
        });
        explorer->PopUp();
        explorer->Deinit();
        explorer->Destroy();
    }

    void use(frmExplorer& form) {
        ui::Tree& tree = form.TreeView1().tree();
        click(tree, {u"Information"});
        for (const auto& path : {TreePath{u"Everybody"}, TreePath{u"Everybody", u"Anna"},
                                 TreePath{u"Everybody", u"Anna", u"Jobs"}})
            open(tree, path);
        for (const auto& path :
             {TreePath{u"Everybody"}, TreePath{u"Everybody", u"Anna"}, TreePath{u"Everybody", u"Anna"},
              TreePath{u"Everybody", u"Anna", u"Jobs"}, TreePath{u"Everybody", u"Anna", u"Jobs", u"Acme"},
              TreePath{u"Companies"}, TreePath{u"Everybody", u"Ben"}, TreePath{u"Information"}}) {
            click(tree, path);
            static_cast<void>(world_.user.look(tree));
            lookAtTabs(world_, form.tabs());
        }
        form.TreeView1().refresh();
        world_.user.resize(form, {Twips{12000}, Twips{9000}});
    }

    void open(ui::Tree& tree, const TreePath& path) {
        const TreeItemId item = findItem(tree, path);
        if (item != TreeItemId::None && tree.isItemShown(item) && !tree.isExpanded(item) &&
            tree.mayHaveChildren(item))
            world_.user.clickItemButton(tree, item);
    }
    void click(ui::Tree& tree, const TreePath& path) {
        const TreeItemId item = findItem(tree, path);
        if (item != TreeItemId::None && tree.isItemShown(item))
            world_.user.clickItem(tree, item);
    }
    PeopleWorld model_;
    testing::TestWorld world_;
    bool describing_ = false;
    bool warm_ = false;
    std::size_t hostErrors_ = 0;
};

TEST(ExplorerSweep, EveryRepositoryCallMayFailOnceAndIsReportedOnce) {
    FailureSweep sweep;
    EXPECT_FALSE(sweep.run(0));
    int call = 1;
    while (sweep.run(call))
        ++call;
    EXPECT_GT(call, 120) << "the sweep ended early";
    EXPECT_FALSE(sweep.run(0)) << "a clean run after all failures";
}

// Hosts that come back.
// ------------------------------------------------------------------------

class ExplorerDestroyInside : public DestroyInside<ExplorerTest> {
  protected:
    /// With an opened explorer.
    void everyCallOf(const std::function<void()>& prepare, const std::function<void()>& action) {
        DestroyInside::everyCallOf(
            [&] {
                open();
                prepare();
            },
            action);
    }
    static constexpr auto kNothing = [] {};
};

TEST_F(ExplorerDestroyInside, EveryCallOfInit) {
    int call = 1;
    for (;; ++call) {
        create();
        int calls = 0;
        model.script->onCall = [&](const std::u16string&) {
            if (++calls == call)
                explorer->Destroy();
        };
        explorer->Init();
        model.script->onCall = {};
        if (calls < call)
            break;
        ASSERT_LT(call, 100);
    }
    EXPECT_GT(call, 10);
    EXPECT_TRUE(world.boxes().empty());
}

TEST_F(ExplorerDestroyInside, EveryCallOfAnExpansion) {
    everyCallOf(kNothing, [this] { expand({u"Everybody"}); });
}

TEST_F(ExplorerDestroyInside, EveryCallOfAnActivation) {
    everyCallOf(
        [this] {
            expand({u"Everybody"});
            static_cast<void>(world.user.look(tree()));
        },
        [this] {
            click({u"Everybody", u"Anna"});
        });
}

TEST_F(ExplorerDestroyInside, EveryCallOfLookingAtTheTree) {
    everyCallOf([this] { expand({u"Everybody"}); }, [this] { static_cast<void>(world.user.look(tree())); });
}

TEST_F(ExplorerDestroyInside, EveryCallOfLeavingAChangedPane) {
    everyCallOf(
        [this] {
            clickAnna();
            property(u"Property1(1)").beginEdit(0);
            world.user.enterText(get<ui::TextBox>(u"Property1(1).Text"), u"41");
        },
        [this] { click({u"Companies"}); });
}

TEST_F(ExplorerDestroyInside, EveryCallOfLookingAtAList) {
    everyCallOf([this] { click({u"Companies"}); },
                [this] {
                    auto& rows = list(u"ListView1(4)").list();
                    static_cast<void>(world.user.look(rows, 0, 2));
                });
}

TEST_F(ExplorerDestroyInside, EveryCallOfReplacingATarget) {
    everyCallOf(
        [this] {
            clickAnna();
            world.user.click(combo().box());
        },
        [this] { world.user.choose(combo().box(), combo().box().listIndex() == 0U ? 1 : 0); });
}

TEST_F(ExplorerDestroyInside, EveryCallOfRefreshing) {
    everyCallOf([this] { click({u"Companies"}); },
                [this] { world.user.click(form(), u"EditToolbar1(2).Refresh"); });
}

TEST_F(ExplorerDestroyInside, EveryCallOfEditing) {
    everyCallOf(
        [this] {
            click({u"Companies"});
            world.user.selectRow(list(u"ListView1(4)").list(), 1);
        },
        [this] {
            bool came = false;
            world.desktop.expectModal(u"NodeEdit", [&came](ui::Form& dialog) {
                came = true;
                dialog.hide();
            });
            world.user.click(form(), u"EditToolbar1(2).Edit");
            if (!came) {
                EXPECT_THROW(world.desktop.verify(), std::logic_error) << "it is not asked for any more";
            }
        });
}

TEST_F(ExplorerDestroyInside, EveryCallOfFinding) {
    everyCallOf(kNothing, [this] { form().TreeView1().find(u"Zenith"); });
}

}  // namespace
}  // namespace quorel::explorer
