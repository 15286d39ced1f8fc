#include <algorithm>

#include "tests/sixpane/editing_fixture.h"

namespace quorel::sixpane {
namespace {

using Stock = std::function<void(SmallWorld&)>;
using Act = std::function<void(EditingTest&)>;

struct Scenario {
    std::string_view name;
    std::vector<std::u16string_view> labels;  ///< that may report a failure of it
    std::u16string_view dialog;               ///< that it shows, if any
    Stock stock;                              ///< enough for doing it twice
    Act choose;                               ///< what it is done to
    Act act;
};

void nothing(SmallWorld&) {}

void spareNodes(SmallWorld& model) {
    model.repository->addNode(model.person, u"Spare");
    model.repository->addNode(model.person, u"Another");
}

void dynamicTypes(SmallWorld& model) {
    for (const char16_t* const name : {u"Tool", u"Other"})
        model.repository->addMetaNode(name)->isDynamicNow = true;
    for (const char16_t* const name : {u"Person.Uses.City", u"Person.Has.City"})
        model.repository->addMetaLink(name, model.person, model.city)->isDynamicNow = true;
}

/// Clicks rows of lists, one after the other.
Act clicking(std::vector<std::pair<std::u16string_view, std::size_t>> rows) {
    return [rows](EditingTest& test) {
        for (const auto& [list, row] : rows)
            test.click(list, row);
    };
}

Act pressing(std::u16string_view button) {
    return [button](EditingTest& test) { test.press(button); };
}

Act choosing(std::u16string_view entry) {
    return [entry](EditingTest& test) { test.world.user.chooseMenu(*test.form, entry); };
}

const std::vector<Scenario>& scenarios() {
    constexpr std::size_t kFourth = 3;
    constexpr std::u16string_view kName = u"frmNameEdit";
    constexpr std::u16string_view kMeta = u"frmDynMetaObject";
    static const std::vector<Scenario> all{
        {"NewSourceNode",
         {u"NewSourceNode_Click", u"MakeNode"},
         kName,
         nothing,
         clicking({{u"SourceMetaNode", kFirst}}),
         pressing(u"NewSourceNode")},
        {"NewTargetNode",
         {u"NewTargetNode_Click", u"MakeNode"},
         kName,
         nothing,
         clicking({{u"TargetMetaNode", kFirst}}),
         pressing(u"NewTargetNode")},
        {"NewLink",
         {u"DeleteLink_Click", u"MakeLink"},
         kName,
         nothing,
         clicking({{u"MetaLink", kFirst}, {u"SourceNode", kFirst}, {u"TargetNode", kSecond}}),
         pressing(u"NewLink")},
        {"DeleteLink",
         {u"DeleteLink_Click"},
         {},
         nothing,
         clicking({{u"MetaLink", kFirst}, {u"Link", kFirst}}),
         pressing(u"DeleteLink")},
        {"DeleteSourceNode",
         {u"DeleteSourceNode_Click"},
         {},
         spareNodes,
         clicking({{u"MetaLink", kFirst}, {u"SourceNode", kThird}}),
         pressing(u"DeleteSourceNode")},
        {"DeleteTargetNode",
         {u"DeleteTargetNode_Click"},
         {},
         spareNodes,
         clicking({{u"MetaLink", kFirst}, {u"TargetMetaNode", kFirst}, {u"TargetNode", kThird}}),
         pressing(u"DeleteTargetNode")},
        {"Dynamic(0)",
         {u"Dynamic_Click"},
         kMeta,
         nothing,
         clicking({{u"MetaLink", kFirst}}),
         choosing(u"Dynamic(0)")},
        {"Dynamic(1)",
         {u"Dynamic_Click", u"Populate"},
         {},
         dynamicTypes,
         clicking({{u"SourceMetaNode", kFourth}}),
         choosing(u"Dynamic(1)")},
        {"Dynamic(2)",
         {u"Dynamic_Click"},
         kMeta,
         nothing,
         clicking({{u"MetaLink", kFirst}}),
         choosing(u"Dynamic(2)")},
        {"Dynamic(3)",
         {u"Dynamic_Click", u"Populate"},
         {},
         dynamicTypes,
         clicking({{u"MetaLink", kThird}}),
         choosing(u"Dynamic(3)")},
        {"Dynamic(4)",
         {u"Dynamic_Click"},
         kMeta,
         nothing,
         clicking({{u"MetaLink", kFirst}}),
         choosing(u"Dynamic(4)")},
        {"Dynamic(5)",
         {u"Dynamic_Click", u"Populate"},
         {},
         dynamicTypes,
         clicking({{u"TargetMetaNode", kFourth}}),
         choosing(u"Dynamic(5)")},
    };
    return all;
}

/// One command of one browser on a repository of its own; the instances end with the scope.
struct EditingRun : EditingTest {
    explicit EditingRun(const Scenario& given) : scenario(given) {
        scenario.stock(model);
        open();
        world.user.chooseMenu(*form, u"mnuEditDynamic");
        scenario.choose(*this);
        world.desktop.verify();
    }
    void TestBody() override {}

    void expectDialogIfAny(const std::function<void()>& look) {
        if (scenario.dialog.empty())
            return;
        world.desktop.expectModal(scenario.dialog, [this, look](ui::Form& dialog) {
            look();
            for (const std::u16string_view box : {u"NameBox", u"MetaObjectName"})
                if (dialog.find(box) != nullptr)
                    world.user.enterText(headless::get<ui::TextBox>(dialog, box), u"new");
            world.user.click(dialog, u"OK");
        });
    }
    /// What a pane shows, and what the repository holds of it; nothing where no type is selected.
    void expectTruth() {
        const auto expectRows = [this](std::u16string_view name, const testing::CollectionDouble& truth) {
            std::vector<Object> shown;
            auto& list = pane(name);
            EXPECT_EQ(list.count(), truth.items.size()) << scenario.name;
            for (const auto& [key, object] : truth.items) {
                list.setSelectedObject(object);
                EXPECT_EQ(list.selectedObject(), object) << scenario.name;
            }
        };
        for (const auto& [types, instances] :
             {std::pair{u"SourceMetaNode", u"SourceNode"}, std::pair{u"MetaLink", u"Link"},
              std::pair{u"TargetMetaNode", u"TargetNode"}}) {
            const Object type = selected(types);
            if (auto* const meta = dynamic_cast<MetaDouble*>(type ? type.native() : nullptr))
                expectRows(instances, *meta->extension);
            else
                EXPECT_EQ(pane(instances).count(), 0U) << scenario.name;
        }
        // A list of types that could not be read anew is empty and says so by its count.
        for (const auto& [types, truth] : {std::pair{u"SourceMetaNode", model.repository->metaNodes},
                                           std::pair{u"TargetMetaNode", model.repository->metaNodes},
                                           std::pair{u"MetaLink", model.repository->metaLinks}})
            if (pane(types).count() != 0)
                expectRows(types, *truth);
    }

    const Scenario& scenario;
};

/// What the repository is asked when all goes well.
struct CleanRun {
    EditingRun::Log calls;
    std::size_t callsBeforeDialog = 0;
};

CleanRun runClean(const Scenario& scenario) {
    EditingRun run(scenario);
    CleanRun clean;
    run.model.script->restart();
    run.expectDialogIfAny([&] { clean.callsBeforeDialog = run.model.script->log.size(); });
    scenario.act(run);
    run.world.desktop.verify();
    EXPECT_TRUE(run.world.boxes().empty()) << scenario.name;
    clean.calls = run.model.script->log;
    EXPECT_FALSE(clean.calls.empty()) << scenario.name;
    run.expectTruth();
    return clean;
}

/// The same again after a failure: what was asked for is done in the end.
void retry(EditingRun& run) {
    run.model.script->restart();
    run.form->Populate();
    run.scenario.choose(run);
    run.expectDialogIfAny([] {});
    run.scenario.act(run);
    run.world.desktop.verify();
    run.expectTruth();
}

/// Whether the command goes on as if nothing had happened: a name that is only proposed, the links that are
/// read anew.
bool failsQuietly(const Scenario& scenario, const std::u16string& call) {
    if (scenario.name == "NewLink")
        return call == u"id1.name" || call == u"id4.name";
    const bool isRefresh = call == u"property.name" || call.starts_with(u"WorksFor.Properties") ||
                           call.starts_with(u"WorksFor.Extension");
    return scenario.name.ends_with("Node") && isRefresh;
}

void failOnce(const Scenario& scenario, const CleanRun& clean, std::size_t failing) {
    const std::string place = std::string(scenario.name) + " call " + std::to_string(failing);
    const bool isQuiet = failsQuietly(scenario, clean.calls[failing - 1]);
    EditingRun run(scenario);
    run.model.script->restart(static_cast<int>(failing));
    if (!isQuiet)
        run.model.script->onFailure = [&run] { run.world.expectBox(); };
    if (isQuiet || failing > clean.callsBeforeDialog)
        run.expectDialogIfAny([] {});
    scenario.act(run);
    EXPECT_NO_THROW(run.world.desktop.verify()) << place;
    EXPECT_TRUE(run.model.script->hasFailed()) << place;
    EXPECT_EQ(run.world.boxes().size(), isQuiet ? 0U : 1U) << place;
    if (!isQuiet) {
        const std::u16string label = run.lastPlace().substr(std::u16string_view(u"SixPane/").size());
        EXPECT_NE(std::find(scenario.labels.begin(), scenario.labels.end(), label), scenario.labels.end())
            << place;
    }
    run.model.script->restart();
    run.expectTruth();
    retry(run);
}

TEST(SixPaneEditingSweep, EveryRepositoryCallOfEveryCommandMayFail) {
    for (const Scenario& scenario : scenarios()) {
        const CleanRun clean = runClean(scenario);
        for (std::size_t failing = 1; failing <= clean.calls.size(); ++failing) {
            const std::int64_t before = automation::NativeObject::liveCount();
            failOnce(scenario, clean, failing);
            EXPECT_EQ(automation::NativeObject::liveCount(), before) << scenario.name << " call " << failing;
        }
    }
}

TEST(SixPaneEditingSweep, AHostMayDestroyTheBrowserInsideEveryCallOfEveryCommand) {
    for (const Scenario& scenario : scenarios()) {
        const CleanRun clean = runClean(scenario);
        for (std::size_t fatal = 1; fatal <= clean.calls.size(); ++fatal) {
            const std::string place = std::string(scenario.name) + " call " + std::to_string(fatal);
            EditingRun run(scenario);
            run.model.script->restart();
            run.model.script->onCall = [&](const std::u16string&) {
                if (run.model.script->log.size() != fatal)
                    return;
                run.form->hide();
                run.form->unload();
                run.form->Destroy();
            };
            if (fatal > clean.callsBeforeDialog)
                run.expectDialogIfAny([] {});
            scenario.act(run);
            run.model.script->onCall = {};
            EXPECT_NO_THROW(run.world.desktop.verify()) << place;
            EXPECT_TRUE(run.world.boxes().empty()) << place;
            EXPECT_EQ(run.world.desktop.livePeers(), 0U) << place;
            EXPECT_EQ(run.counts(), (EditingRun::Counts{0, 0, 0, 0, 0, 0})) << place;
        }
    }
}

}  // namespace
}  // namespace quorel::sixpane
