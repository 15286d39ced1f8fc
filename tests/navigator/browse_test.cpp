// The windows on a repository: opened, known to the session, brought to front, ended.

#include <array>

#include "navigator/frm_search.h"
#include "tests/navigator/navigator_fixture.h"

namespace quorel::navigator {
namespace {

/// Whatever the navigator opens is written down, and can be looked at.
struct Browse : NavigatorTest {
    std::vector<Ref<SeenSixPane>> sixPanes;

    Browse() {
        world.classes.add(u"QuorelUtility.SixPane", [this] {
            sixPanes.push_back(make<SeenSixPane>(world.environment));
            return Object(sixPanes.back());
        });
    }
    ~Browse() override { sixPanes.clear(); }
    ui::Form& window(std::size_t index) { return *sixPanes.at(index)->form(); }
    std::u16string selectedIn(ui::Form& browser, std::u16string_view name) {
        const Object object = headless::get<controls::ListView>(browser, name).selectedObject();
        return object ? object.get(u"name").toString() : std::u16string();
    }
};

TEST_F(Browse, EachWindowIsModelessAndKnownByANameOfItsOwn) {
    open(sample());
    EXPECT_EQ(captions(u"mnuWindow"), Texts{u"Close &All"});
    for (const std::u16string_view name : {u"mnuSixPane", u"mnuMatrix", u"mnuHierarchy", u"mnuExplorer"})
        choose(name);
    choose(u"mnuSixPane");
    EXPECT_EQ(captions(u"mnuWindow"), (Texts{u"Close &All", u"&1 Six-Pane 1", u"&2 Matrix 1",
                                             u"&3 Hierarchy 1", u"&4 Explorer 1", u"&5 Six-Pane 2"}));
    EXPECT_EQ(world.boxes(), Texts{});
}

TEST_F(Browse, KeysOpenTheWindows) {
    open(sample());
    for (const char digit : {'1', '2', '3', '4'})
        world.user.press(*form, {ui::key(digit), ui::Modifiers::Control});
    EXPECT_EQ(captions(u"mnuWindow").size(), 5U);
}

TEST_F(Browse, ClosingAWindowDeregistersIt) {
    open(sample());
    choose(u"mnuSixPane");
    choose(u"mnuMatrix");
    const auto browser = sixPanes.at(0)->form();
    world.user.closeBox(*browser);
    EXPECT_FALSE(browser->isLoaded());
    EXPECT_EQ(captions(u"mnuWindow"), (Texts{u"Close &All", u"&1 Matrix 1"}));
    EXPECT_EQ(quorel::testing::errorNumber([this] { static_cast<void>(sixPanes[0]->Repository()); }), 91);
}

TEST_F(Browse, TheSelectedObjectIsShown) {
    open(sample());
    selectNamed(u"Types", u"Author");
    selectNamed(u"Instances", u"Mary Shelley");
    choose(u"mnuSixPane");
    EXPECT_EQ(selectedIn(window(0), u"SourceMetaNode.View"), u"Author");
    EXPECT_EQ(selectedIn(window(0), u"SourceNode.View"), u"Mary Shelley");
    choose(u"mnuMatrix");
    EXPECT_EQ(world.boxes(), Texts{});
}

TEST_F(Browse, WithoutAnInstanceTheSelectedTypeIsShown) {
    open(sample());
    selectNamed(u"Types", u"Author.Wrote.Book");
    choose(u"mnuSixPane");
    EXPECT_EQ(selectedIn(window(0), u"MetaLink.View"), u"Author.Wrote.Book");
    choose(u"mnuMatrix");
    EXPECT_EQ(world.boxes(), Texts{}) << "the matrix browser is not asked for a meta link";
}

TEST_F(Browse, AWindowIsBroughtToFrontFromTheMenu) {
    open(sample());
    choose(u"mnuSixPane");
    sixPanes[0]->Conceal();
    EXPECT_FALSE(window(0).isVisible());
    choose(u"mnuWindow(0)");
    EXPECT_TRUE(window(0).isVisible());
}

TEST_F(Browse, AnExplorerIsBroughtBackAndNotMadeTwice) {
    open(sample());
    choose(u"mnuExplorer");
    choose(u"mnuExplorer");
    EXPECT_EQ(captions(u"mnuWindow"), (Texts{u"Close &All", u"&1 Explorer 1"}));
}

TEST_F(Browse, CloseAllEndsEveryWindowAndKeepsTheRepository) {
    open(sample());
    for (const std::u16string_view name : {u"mnuSixPane", u"mnuMatrix", u"mnuHierarchy", u"mnuExplorer"})
        choose(name);
    choose(u"mnuCloseAll");
    EXPECT_EQ(captions(u"mnuWindow"), Texts{u"Close &All"});
    EXPECT_FALSE(entry(u"mnuCloseAll").isEnabled());
    EXPECT_EQ(quorel::testing::errorNumber([this] { static_cast<void>(sixPanes[0]->Repository()); }), 91);
    selectNamed(u"Types", u"Author");
    EXPECT_GT(list(u"Instances").rowCount(), 5U);
}

TEST_F(Browse, ClosingTheRepositoryEndsTheWindowsBeforeIt) {
    open(sample());
    choose(u"mnuSixPane");
    const auto browser = sixPanes[0]->form();
    choose(u"mnuClose");
    EXPECT_FALSE(browser->isLoaded());
    EXPECT_EQ(world.boxes(), Texts{}) << "nothing has asked a repository that is closed";
    EXPECT_EQ(folder.count(), 1U);
}

TEST_F(Browse, ClosingTheNavigatorEndsTheWindows) {
    open(sample());
    choose(u"mnuSixPane");
    choose(u"mnuHierarchy");
    const auto browser = sixPanes[0]->form();
    world.user.closeBox(*form);
    EXPECT_FALSE(browser->isLoaded());
    EXPECT_EQ(folder.count(), 1U);
    EXPECT_EQ(world.boxes(), Texts{});
}

TEST_F(Browse, RevealUsesAnOpenWindow) {
    open(sample());
    form->reveal(control<controls::ListView>(u"Instances.View").objectAt(2));
    form->reveal(control<controls::ListView>(u"Instances.View").objectAt(3));
    ASSERT_EQ(sixPanes.size(), 1U);
    EXPECT_EQ(selectedIn(window(0), u"SourceNode.View"), names(u"Instances")[3]);
}

TEST_F(Browse, RevealUsesTheMatrixBrowserForNodesIfTheUserPrefersIt) {
    world.settings.write(u"Quorel Navigator", u"Options", u"RevealInMatrix", u"1");
    open(sample());
    form->reveal(control<controls::ListView>(u"Instances.View").objectAt(2));
    EXPECT_EQ(captions(u"mnuWindow"), (Texts{u"Close &All", u"&1 Matrix 1"}));
    selectNamed(u"Types", u"Author.Wrote.Book");
    form->reveal(control<controls::ListView>(u"Instances.View").objectAt(0));
    EXPECT_EQ(captions(u"mnuWindow"), (Texts{u"Close &All", u"&1 Matrix 1", u"&2 Six-Pane 1"}));
}

TEST_F(Browse, WhatASearchFindsIsRevealed) {
    open(sample());
    world.user.press(*form, {ui::key('K'), ui::Modifiers::Control});
    const auto window = form->searchWindow();
    ASSERT_NE(window, nullptr);
    world.user.enterText(headless::get<ui::TextBox>(*window, u"Query"), u"Shelley");
    world.user.press(*window, {ui::Key::Enter});
    EXPECT_EQ(world.boxes(), Texts{});
    ASSERT_EQ(sixPanes.size(), 1U);
    EXPECT_EQ(selectedIn(this->window(0), u"SourceNode.View"), u"Mary Shelley");
}

TEST_F(Browse, AnOpenSearchIsShownAgainAndEndsWithTheRepository) {
    open(sample());
    choose(u"mnuSearch");
    const auto window = form->searchWindow();
    choose(u"mnuSearch");
    EXPECT_EQ(form->searchWindow(), window);
    choose(u"mnuClose");
    EXPECT_FALSE(window->isLoaded());
    EXPECT_EQ(form->searchWindow(), nullptr);
    EXPECT_EQ(world.boxes(), Texts{});
}

/// A window of any class that answers every member and fails on demand.
class ScriptedWindow final : public automation::NativeObject {
  public:
    explicit ScriptedWindow(quorel::testing::ScriptRef script) : script_(std::move(script)) {}
    [[nodiscard]] const automation::ClassTable& classTable() const override {
        static const automation::ClassTable table =
            automation::ClassTable::of<ScriptedWindow>(u"ScriptedWindow");
        return table;
    }
    std::optional<automation::MemberId> resolveExtra(std::u16string_view name) override {
        const auto known = std::find(names().begin(), names().end(), name);
        const auto index = known - names().begin();
        if (known == names().end())
            names().emplace_back(name);
        return static_cast<automation::MemberId>(0x10000 + index);
    }
    automation::Value invokeExtra(automation::MemberId id, automation::InvokeKind,
                                  std::span<automation::Argument>) override {
        script_->step(names()[static_cast<std::size_t>(id) - 0x10000]);
        return {};
    }

  private:
    static std::vector<std::u16string>& names() {
        static std::vector<std::u16string> known;
        return known;
    }
    quorel::testing::ScriptRef script_;
};

struct FailingBrowse : Browse {
    quorel::testing::ScriptRef script = std::make_shared<quorel::testing::Script>();
    void scriptClass(std::u16string_view progId) {
        world.classes.add(progId, [this] { return Object(make<ScriptedWindow>(script)); });
    }
};

TEST_F(FailingBrowse, WhateverCallOfANewWindowFailsIsReportedOnceAndNothingStaysBehind) {
    constexpr std::array<std::pair<std::u16string_view, std::u16string_view>, 4> kWindows{
        {{u"QuorelUtility.SixPane", u"mnuSixPane"},
         {u"QuorelUtility.MatrixBrowser", u"mnuMatrix"},
         {u"QuorelUtility.HTExplorer", u"mnuHierarchy"},
         {u"QuorelUtility.Explorer", u"mnuExplorer"}}};
    open(sample());
    for (const auto& [progId, command] : kWindows) {
        scriptClass(progId);
        script->restart();
        choose(command);
        const int calls = script->calls();
        ASSERT_GE(calls, 4);
        choose(u"mnuCloseAll");
        for (int failing = 1; failing <= std::min(calls, 12); ++failing) {
            script->restart(failing);
            const std::u16string text = messageOf([&, name = command] { choose(name); });
            EXPECT_EQ(quorel::testing::placeIn(text), u"Navigator/" + std::u16string(command) + u"_Click");
            EXPECT_EQ(captions(u"mnuWindow"), Texts{u"Close &All"}) << failing;
        }
    }
    selectNamed(u"Types", u"Author");
    EXPECT_GT(list(u"Instances").rowCount(), 5U);
}

TEST_F(FailingBrowse, AWindowThatFailsToEndDoesNotKeepTheOthersOpen) {
    const std::u16string file = sample();
    for (int failing = 1; failing <= 3; ++failing) {
        scriptClass(u"QuorelUtility.MatrixBrowser");
        open(file);
        choose(u"mnuMatrix");
        choose(u"mnuSixPane");
        const auto browser = sixPanes.back()->form();
        script->restart(failing);
        choose(u"mnuClose");
        EXPECT_FALSE(browser->isLoaded());
        EXPECT_FALSE(entry(u"mnuCloseAll").isEnabled());
    }
    EXPECT_EQ(folder.count(), 1U) << "the repository is closed all the same";
    EXPECT_EQ(world.boxes(), Texts{});
}

TEST_F(FailingBrowse, AWindowMayCloseTheNavigatorWhileItOpens) {
    open(sample());
    scriptClass(u"QuorelUtility.MatrixBrowser");
    script->onCall = [this](const std::u16string& call) {
        if (call == u"Populate")
            form->unload();
    };
    // Nothing is open any more, so what the window was about to show is refused.
    choose(u"mnuMatrix");
    script->onCall = {};
    EXPECT_FALSE(form->isLoaded());
    EXPECT_EQ(folder.count(), 1U);
}

}  // namespace
}  // namespace quorel::navigator
