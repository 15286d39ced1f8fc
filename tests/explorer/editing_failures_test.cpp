#include <algorithm>

#include "platform/ui/plain_controls.h"
#include "tests/explorer/explorer_fixture.h"

namespace quorel::explorer {
namespace {

struct EditingRun;
using Act = std::function<void(EditingRun&)>;

struct Scenario {
    std::string_view name;
    Act choose;                     ///< what it is done to
    Act act;                        ///< asks nothing of the repository but by the command
    Act expectDialog;               ///< what the user does in the window that the command shows, if any
    std::u16string_view label;      ///< of its failures
    std::u16string_view list{};     ///< follows what it does
    std::u16string_view refresh{};  ///< the button that reads that list anew
};

/// One command of one explorer on a repository of its own; the instances end with the scope.
struct EditingRun : ExplorerTest {
    explicit EditingRun(const Scenario& given) : scenario(given) {
        model.repository->addNode(model.company, u"Spare");
        model.repository->addNode(model.person, u"Cleo");
        open();
        for (const char16_t* const tab : {u"Commands", u"Target"})
            explorer->AddSubPane(u"person", tab);
        explorer->AddToolbar(u"person", u"Commands");
        explorer->AddListView(u"person", u"Extension", u"Person", u"", u"Target");
        expandIfClosed({u"Everybody"});
        scenario.choose(*this);
        world.desktop.verify();
    }
    void TestBody() override {}

    void expectDialogIfAny(const std::function<void()>& look) {
        if (!scenario.expectDialog)
            return;
        noteDialog = look;
        scenario.expectDialog(*this);
    }
    /// The window is painted.
    void look() {
        static_cast<void>(world.user.look(tree()));
        if (!scenario.list.empty() && list(scenario.list).list().isShown())
            static_cast<void>(firstColumn(scenario.list));
    }
    void readAnew() {
        form().TreeView1().refresh();
        expandIfClosed({u"Everybody"});
        scenario.choose(*this);
        if (scenario.refresh.empty())
            return;
        if (scenario.list == u"ListView1(1)")
            world.user.clickTab(form().tabs(), 1);
        world.user.click(form(), scenario.refresh);
    }
    /// The list shows what the repository holds now.
    void expectTruth(const std::string& place) {
        if (scenario.list.empty())
            return;
        auto& shown = list(scenario.list);
        const auto& truth = truthOf(scenario.list);
        EXPECT_EQ(shown.count(), truth.items.size()) << place;
        for (const auto& [key, object] : truth.items) {
            shown.setSelectedObject(object);
            EXPECT_EQ(shown.selectedObject(), object) << place;
        }
    }
    [[nodiscard]] std::size_t errorBoxes() const {
        const auto boxes = world.boxes();
        return static_cast<std::size_t>(std::count_if(
            boxes.begin(), boxes.end(), [](const auto& text) { return text.starts_with(u"Error No:"); }));
    }

    const Scenario& scenario;
    std::function<void()> noteDialog;

  private:
    [[nodiscard]] const testing::CollectionDouble& truthOf(std::u16string_view name) {
        if (name == u"ListView1(4)")
            return *model.company->extension;
        if (name == u"ListView1(5)")
            return *model.person->extension;
        auto& links = model.anna->outgoingLinks[u"WorksFor"];
        return *links;
    }
};

// What the user does.
// ------------------------------------------------------------------------

/// Anna on the tab of that number, with a row of a list selected, if there is one.
Act onAnna(std::size_t tab, std::u16string_view list = {}) {
    return [=](EditingRun& run) {
        // By then she may have got another name.
        run.world.user.clickItem(run.tree(), run.tree().firstChild(run.at({u"Everybody"})));
        run.world.user.clickTab(run.form().tabs(), tab);
        if (!list.empty() && run.list(list).shownCount() != 0)
            run.world.user.selectRow(run.list(list).list(), 0);
    };
}

/// A person without links.
void onTheLast(EditingRun& run) {
    run.world.user.clickItem(run.tree(), run.tree().lastChild(run.at({u"Everybody"})));
    run.world.user.clickTab(run.form().tabs(), 2);
}

void onCompanies(EditingRun& run) {
    run.click({u"Companies"});
    const std::size_t rows = run.list(u"ListView1(4)").shownCount();
    if (rows != 0)
        run.world.user.selectRow(run.list(u"ListView1(4)").list(), rows - 1);
}

Act pressing(std::u16string_view button) {
    return [button](EditingRun& run) { run.world.user.click(run.form(), button); };
}

/// Goes into the combo and chooses another company, as far as any is offered.
void chooseAnother(EditingRun& run) {
    ui::ComboBox& box = run.combo().box();
    run.world.user.click(box);
    if (box.items().size() > 1)
        run.world.user.choose(box, box.listIndex() == 0U ? 1 : 0);
}

void expectQuestion(EditingRun& run) {
    run.world.desktop.expectMessage([&run](const ui::Message&) { run.noteDialog(); }, ui::MessageAnswer::Yes);
}

void expectName(EditingRun& run) {
    run.world.desktop.expectModal(u"frmNameEdit", [&run](ui::Form& dialog) {
        run.noteDialog();
        run.world.user.enterText(headless::get<ui::TextBox>(dialog, u"NameBox"), u"new");
        run.world.user.click(dialog, u"OK");
    });
}

void expectChoice(EditingRun& run) {
    run.world.desktop.expectModal(u"frmChooseNode", [&run](ui::Form& dialog) {
        run.noteDialog();
        auto& nodes = headless::get<ui::VirtualList>(dialog, u"Nodes");
        static_cast<void>(run.world.user.look(nodes, 0, nodes.rowCount()));
        run.world.user.selectRow(nodes, 1);
        run.world.user.click(dialog, u"OK");
    });
}

/// Gives another name. A dialog that could not write it is closed.
void expectEdit(EditingRun& run) {
    run.world.desktop.expectModal(u"NodeEdit", [&run](ui::Form& dialog) {
        run.noteDialog();
        auto& grid = headless::get<controls::Property>(dialog, u"Property1.View");
        static_cast<void>(run.world.user.look(grid.list(), 0, grid.list().rowCount()));
        grid.beginEdit(0);
        if (auto& box = headless::get<ui::TextBox>(dialog, u"Property1.Text"); box.isUsable())
            run.world.user.enterText(box, u"renamed");
        run.world.user.click(dialog, u"OK");
        if (dialog.isVisible())
            dialog.hide();
    });
}

const std::vector<Scenario>& scenarios() {
    constexpr std::u16string_view kToolbar = u"EditToolbar1_Click";
    static const std::vector<Scenario> all{
        {"Combo", onAnna(0), chooseAnother, {}, u"Combo1_Click", u"ListView1(1)", u"EditToolbar1(1).Refresh"},
        {"NewNode", onCompanies, pressing(u"EditToolbar1(2).New"), expectName, kToolbar, u"ListView1(4)",
         u"EditToolbar1(2).Refresh"},
        {"DeleteNode", onCompanies, pressing(u"EditToolbar1(2).Delete"), expectQuestion, kToolbar,
         u"ListView1(4)", u"EditToolbar1(2).Refresh"},
        {"EditNode", onCompanies, pressing(u"EditToolbar1(2).Edit"), expectEdit, kToolbar, u"ListView1(4)",
         u"EditToolbar1(2).Refresh"},
        {"RefreshNodes",
         onCompanies,
         pressing(u"EditToolbar1(2).Refresh"),
         {},
         kToolbar,
         u"ListView1(4)",
         u"EditToolbar1(2).Refresh"},
        {"NewLink", onAnna(1), pressing(u"EditToolbar1(1).New"), expectChoice, kToolbar, u"ListView1(1)",
         u"EditToolbar1(1).Refresh"},
        {"DeleteLink", onAnna(1, u"ListView1(1)"), pressing(u"EditToolbar1(1).Delete"), expectQuestion,
         kToolbar, u"ListView1(1)", u"EditToolbar1(1).Refresh"},
        {"EditLink", onAnna(1, u"ListView1(1)"), pressing(u"EditToolbar1(1).Edit"), expectEdit, kToolbar,
         u"ListView1(1)", u"EditToolbar1(1).Refresh"},
        {"RefreshLinks",
         onAnna(1),
         pressing(u"EditToolbar1(1).Refresh"),
         {},
         kToolbar,
         u"ListView1(1)",
         u"EditToolbar1(1).Refresh"},
        {"NewObject", onAnna(2), pressing(u"EditToolbar1(3).New"), expectName, kToolbar},
        {"DeleteObject", onTheLast, pressing(u"EditToolbar1(3).Delete"), expectQuestion, kToolbar},
        {"EditObject", onAnna(2), pressing(u"EditToolbar1(3).Edit"), expectEdit, kToolbar},
        {"RefreshObject", onAnna(2), pressing(u"EditToolbar1(3).Refresh"), {}, kToolbar},
    };
    return all;
}

// The sweep.
// ------------------------------------------------------------------------

struct CleanRun {
    std::vector<std::u16string> calls;
    std::size_t callsBeforeDialog = 0;
};

CleanRun runClean(const Scenario& scenario) {
    EditingRun run(scenario);
    CleanRun clean;
    run.model.script->restart();
    run.expectDialogIfAny([&] { clean.callsBeforeDialog = run.model.script->log.size(); });
    scenario.act(run);
    run.look();
    run.world.desktop.verify();
    EXPECT_EQ(run.errorBoxes(), 0U) << scenario.name;
    clean.calls = run.model.script->log;
    EXPECT_FALSE(clean.calls.empty()) << scenario.name;
    run.expectTruth(std::string(scenario.name));
    return clean;
}

/// Whether the command goes on as if nothing had happened: the name of a link is only proposed, and who
/// cannot tell the tree who it is was not there before.
bool failsQuietly(const CleanRun& clean, std::size_t failing) {
    const auto positionOf = [&clean](std::u16string_view call) {
        return static_cast<std::size_t>(std::find(clean.calls.begin(), clean.calls.end(), call) -
                                        clean.calls.begin());
    };
    const std::size_t made = positionOf(u"repository.MakeLink");
    if (made < clean.calls.size() && (failing == made || failing + 1 == made))
        return true;
    return failing > positionOf(u"Person.Extension.Remove") &&
           clean.calls[failing - 1].ends_with(u".Identifier");
}

void expectLabel(const EditingRun& run, const std::string& place) {
    const std::u16string label = run.lastPlace();
    if (label == u"frmExplorer/" + std::u16string(run.scenario.label))
        return;
    // What the command shows and what follows it report under their own.
    static constexpr std::u16string_view kOthers[]{u"frmExplorer/TreeView1_Expand",
                                                   u"frmExplorer/ActivatePane", u"MatrixBrowser/Ok_Click",
                                                   u"NodeEdit/Property1"};
    EXPECT_NE(std::find(std::begin(kOthers), std::end(kOthers), label), std::end(kOthers))
        << place << " reported as " << automation::toUtf8(label);
}

void failOnce(const Scenario& scenario, const CleanRun& clean, std::size_t failing) {
    const std::string place = std::string(scenario.name) + " call " + std::to_string(failing) + " " +
                              automation::toUtf8(clean.calls[failing - 1]);
    EditingRun run(scenario);
    run.model.script->restart(static_cast<int>(failing));
    const bool isQuiet = failsQuietly(clean, failing);
    if (!isQuiet)
        run.model.script->onFailure = [&run] { run.world.expectBox(); };
    if (failing > clean.callsBeforeDialog)
        run.expectDialogIfAny([] {});
    scenario.act(run);
    run.look();
    EXPECT_NO_THROW(run.world.desktop.verify()) << place;
    EXPECT_TRUE(run.model.script->hasFailed()) << place;
    EXPECT_EQ(run.errorBoxes(), isQuiet ? 0U : 1U) << place;
    if (!isQuiet)
        expectLabel(run, place);
    run.model.script->restart();
    run.readAnew();
    run.expectTruth(place);
}

TEST(ExplorerEditingSweep, EveryRepositoryCallOfEveryCommandMayFail) {
    for (const Scenario& scenario : scenarios()) {
        const CleanRun clean = runClean(scenario);
        for (std::size_t failing = 1; failing <= clean.calls.size(); ++failing) {
            const std::int64_t before = automation::NativeObject::liveCount();
            failOnce(scenario, clean, failing);
            EXPECT_EQ(automation::NativeObject::liveCount(), before) << scenario.name << " call " << failing;
        }
    }
}

}  // namespace
}  // namespace quorel::explorer
