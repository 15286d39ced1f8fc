// The window that searches everywhere.

#include <gtest/gtest.h>

#include "navigator/frm_search.h"
#include "navigator/search_layout.h"
#include "platform/ui/plain_controls.h"
#include "repository/repository.h"
#include "tests/repository/temporary_folder.h"
#include "tests/support/failures.h"

namespace quorel::navigator {
namespace {

using automation::make;
using automation::Object;
using automation::Ref;
using automation::Value;
using testing::CollectionDouble;
using testing::Script;
using testing::ScriptRef;
using Texts = std::vector<std::u16string>;

/// Something that was found, as a foreign repository answers it.
class ResultDouble final : public automation::NativeObject {
  public:
    ResultDouble(ScriptRef script, std::u16string name, std::u16string property)
        : script_(std::move(script)), name_(std::move(name)), property_(std::move(property)) {}
    [[nodiscard]] const automation::ClassTable& classTable() const override {
        static const automation::ClassTable table =
            automation::ClassTable::of<ResultDouble>(u"ResultDouble")
                .readOnly(u"Object", &ResultDouble::object)
                .readOnly(u"Kind", &ResultDouble::kind)
                .readOnly(u"name", &ResultDouble::name)
                .readOnly(u"TypeName", &ResultDouble::typeName)
                .readOnly(u"PropertyName", &ResultDouble::propertyName)
                .readOnly(u"Text", &ResultDouble::text);
        return table;
    }

  private:
    Object object() {
        script_->step(u"result.Object");
        return Object(Ref<ResultDouble>(this));
    }
    std::u16string kind() { return answer(u"Kind", u"Node"); }
    std::u16string name() { return answer(u"name", name_); }
    std::u16string typeName() { return answer(u"TypeName", u"Book"); }
    std::u16string propertyName() { return answer(u"PropertyName", property_); }
    std::u16string text() { return answer(u"Text", u"the value"); }
    std::u16string answer(const std::u16string& member, std::u16string value) {
        script_->step(u"result." + member);
        return value;
    }

    ScriptRef script_;
    std::u16string name_, property_;
};

/// A repository that finds what a test has put there, and indexes as slowly as it says.
class SearchedDouble final : public automation::NativeObject {
  public:
    explicit SearchedDouble(ScriptRef script) : script_(std::move(script)) {}
    [[nodiscard]] const automation::ClassTable& classTable() const override {
        using automation::param;
        static const automation::ClassTable table =
            automation::ClassTable::of<SearchedDouble>(u"SearchedDouble")
                .method(u"Search", &SearchedDouble::search, {param(u"text"), param(u"limit", 100)})
                .method(u"PrepareSearch", &SearchedDouble::prepare, {param(u"milliseconds", 50)});
        return table;
    }
    std::function<int(const std::u16string&)> found = [](const std::u16string&) { return 3; };
    std::vector<int> slices{100};

  private:
    Object search(const std::u16string& text, std::int32_t limit) {
        script_->step(u"Search " + text);
        const auto results = make<CollectionDouble>(script_, u"results");
        const int count = std::min(found(text), limit);
        for (int i = 1; i <= count; ++i)
            results->add(u"r" + automation::decimal(i),
                         make<ResultDouble>(script_, text + u" " + automation::decimal(i),
                                            i % 2 == 0 ? u"Subtitle" : u""));
        return Object(results);
    }
    std::int32_t prepare(std::int32_t) {
        script_->step(u"PrepareSearch");
        const int percent = slices.front();
        if (slices.size() > 1)
            slices.erase(slices.begin());
        return percent;
    }

    ScriptRef script_;
};

struct SearchWindow : ::testing::Test {
    ScriptRef script = std::make_shared<Script>();
    Ref<SearchedDouble> repository = make<SearchedDouble>(script);
    testing::TestWorld world;
    std::shared_ptr<frmSearch> form;
    std::vector<Object> revealed;

    ~SearchWindow() override {
        form.reset();
        world.desktop.runPosted();
        EXPECT_NO_THROW(world.desktop.verify());
    }
    void start(const Object& searched) {
        form = std::make_shared<frmSearch>(world.environment, searched);
        form->onReveal.connect([this](const Object& object) { revealed.push_back(object); });
        form->show(ui::Modality::Modeless);
    }
    void start() {
        start(Object(repository));
        world.desktop.runPosted();
    }
    void type(std::u16string_view text) { world.user.type(*form, text); }
    void press(ui::Key key) { world.user.press(*form, {key}); }
    ui::TextBox& query() const { return headless::get<ui::TextBox>(*form, u"Query"); }
    ui::VirtualList& list() const { return headless::get<ui::VirtualList>(*form, u"Results"); }
    std::vector<Texts> rows() { return world.user.look(list(), 0, list().rowCount()); }
    Texts names() {
        Texts found;
        for (const Texts& cells : rows())
            found.push_back(cells.at(1));
        return found;
    }
    std::u16string status(std::size_t panel = 0) const {
        return headless::get<ui::StatusBar>(*form, u"StatusBar").panels().at(panel).text;
    }
};

TEST_F(SearchWindow, ResultsComeAsOneTypes) {
    start();
    EXPECT_TRUE(query().hasFocus());
    EXPECT_EQ(status(), u"");
    type(u"e");
    EXPECT_EQ(names(), (Texts{u"e 1", u"e 2", u"e 3"}));
    EXPECT_EQ(status(), u"3 results");
    type(u"m");
    EXPECT_EQ(rows(), (std::vector<Texts>{{u"Node", u"em 1", u"Book", u""},
                                          {u"Node", u"em 2", u"Book", u"Subtitle: the value"},
                                          {u"Node", u"em 3", u"Book", u""}}));
    EXPECT_TRUE(query().hasFocus());
    world.user.enterText(query(), u"  ");
    EXPECT_EQ(list().rowCount(), 0U);
    EXPECT_EQ(status(), u"");
}

TEST_F(SearchWindow, TheStatusTellsHowMuchWasFound) {
    start();
    const auto statusOf = [this](int count) {
        repository->found = [count](const std::u16string&) { return count; };
        type(u"x");
        return status();
    };
    EXPECT_EQ(statusOf(1), u"1 result");
    EXPECT_EQ(statusOf(37), u"37 results");
    EXPECT_EQ(statusOf(100), u"first 100");
    EXPECT_EQ(statusOf(5000), u"first 100");
    EXPECT_EQ(statusOf(0), u"Nothing found for 'xxxxx'");
    world.user.enterText(query(), std::u16string(1'000'000, u'y'));
    EXPECT_EQ(status(), u"Nothing found for '" + std::u16string(60, u'y') + u"\u2026'");
}

TEST_F(SearchWindow, NothingIsAskedOfResultsThatAreNotSeen) {
    repository->found = [](const std::u16string&) { return 90; };
    start();
    script->restart();
    type(u"e");
    for (const std::u16string& call : script->log)
        EXPECT_FALSE(call.starts_with(u"result.")) << automation::toUtf8(call);
}

TEST_F(SearchWindow, ArrowKeysMoveInTheListWhileTheBoxKeepsTheFocus) {
    repository->found = [](const std::u16string&) { return 25; };
    start();
    type(u"e");
    EXPECT_EQ(list().selectedRow(), 0U);
    const auto after = [this](ui::Key key) {
        press(key);
        EXPECT_TRUE(query().hasFocus());
        return list().selectedRow().value_or(999);
    };
    EXPECT_EQ(after(ui::Key::Up), 0U);
    EXPECT_EQ(after(ui::Key::Down), 1U);
    EXPECT_EQ(after(ui::Key::PageDown), 11U);
    EXPECT_EQ(after(ui::Key::PageDown), 21U);
    EXPECT_EQ(after(ui::Key::PageDown), 24U);
    EXPECT_EQ(after(ui::Key::PageUp), 14U);
    type(u"x");
    EXPECT_EQ(list().selectedRow(), 0U);
    EXPECT_EQ(query().text(), u"ex");
}

TEST_F(SearchWindow, EnterRevealsTheSelectedResultAndEndsTheWindow) {
    start();
    press(ui::Key::Down);
    press(ui::Key::Enter);
    EXPECT_TRUE(form->isLoaded()) << "there is nothing to reveal";
    type(u"e");
    press(ui::Key::Down);
    press(ui::Key::Enter);
    EXPECT_FALSE(form->isLoaded());
    ASSERT_EQ(revealed.size(), 1U);
    EXPECT_EQ(revealed.front().get(u"name").toString(), u"e 2");
}

TEST_F(SearchWindow, ADoubleClickRevealsAndEnterInTheListToo) {
    start();
    type(u"e");
    world.user.doubleClickRow(list(), 2);
    ASSERT_EQ(revealed.size(), 1U);
    EXPECT_EQ(revealed.front().get(u"name").toString(), u"e 3");
    form->show(ui::Modality::Modeless);
    world.desktop.runPosted();
    EXPECT_EQ(query().text(), u"e") << "what was typed stays";
    EXPECT_EQ(list().rowCount(), 3U);
    world.user.selectRow(list(), 1);
    list().focus();
    press(ui::Key::Enter);
    EXPECT_EQ(revealed.size(), 2U);
    EXPECT_FALSE(form->isLoaded());
}

TEST_F(SearchWindow, EscEndsTheWindowAndRevealsNothing) {
    start();
    type(u"e");
    press(ui::Key::Escape);
    EXPECT_FALSE(form->isLoaded());
    EXPECT_TRUE(revealed.empty());
}

TEST_F(SearchWindow, ARepositoryThatCannotBeSearchedIsSaidToBeOne) {
    start(Object(make<CollectionDouble>(script, u"no repository")));
    EXPECT_EQ(status(), u"This repository cannot be searched: it has no member 'Search'");
    EXPECT_FALSE(query().isEnabled());
    press(ui::Key::Escape);
    EXPECT_FALSE(form->isLoaded());
}

TEST_F(SearchWindow, TheIndexIsMadeInSlicesAndResultsFollow) {
    repository->slices = {15, 50, 55, 99, 100};
    int slices = 0;
    script->onCall = [&](const std::u16string& call) { slices += call == u"PrepareSearch" ? 1 : 0; };
    repository->found = [&](const std::u16string&) { return slices; };
    start(Object(repository));
    query().userTyped(u"e");
    EXPECT_EQ(status(), u"Nothing found for 'e'") << "what is indexed is found at once";
    world.desktop.runPosted();
    EXPECT_EQ(slices, 5);
    EXPECT_EQ(status(1), u"");
    EXPECT_EQ(names().size(), 5U);
    EXPECT_EQ(std::count(script->log.begin(), script->log.end(), u"Search e"), 5)
        << "at once, at 15, 50, 99 and 100 percent";
    type(u"m");
    world.desktop.runPosted();
    EXPECT_EQ(slices, 5) << "all is indexed";
}

TEST_F(SearchWindow, ProgressIsTold) {
    repository->slices = {45, 45, 100};
    std::vector<std::u16string> told;
    script->onCall = [&](const std::u16string& call) {
        if (call == u"PrepareSearch")
            world.desktop.post([&] { told.push_back(form->isLoaded() ? status(1) : u""); });
    };
    start();
    script->onCall = {};
    ASSERT_EQ(told.size(), 3U);
    EXPECT_EQ(told[0], u"Indexing 45 %");
    EXPECT_EQ(told[2], u"");
}

TEST_F(SearchWindow, WhoHasMovedInTheListKeepsTheResults) {
    repository->slices = {50, 100};
    start(Object(repository));
    type(u"e");
    press(ui::Key::Down);
    script->restart();
    world.desktop.runPosted();
    EXPECT_EQ(std::count(script->log.begin(), script->log.end(), u"Search e"), 0);
    EXPECT_EQ(list().selectedRow(), 1U);
}

TEST_F(SearchWindow, IndexingEndsWithTheWindow) {
    repository->slices = {1};
    start(Object(repository));
    press(ui::Key::Escape);
    script->restart();
    world.desktop.runPosted();
    EXPECT_TRUE(script->log.empty());
}

TEST_F(SearchWindow, AFailureIsShownAndTheNextSearchIsAsGoodAsAny) {
    start();
    EXPECT_EQ(testing::placeOfFailure(world, *script, u"Search e", [this] { type(u"e"); }),
              u"Search/Query_Change");
    EXPECT_EQ(list().rowCount(), 0U);
    type(u"m");
    EXPECT_EQ(names().size(), 3U);
    EXPECT_EQ(testing::placeOfFailure(world, *script, u"result.Object", [this] { press(ui::Key::Enter); }),
              u"Search/Query_KeyDown");
    EXPECT_TRUE(form->isLoaded());
    EXPECT_TRUE(revealed.empty());
}

TEST_F(SearchWindow, AFailedSliceSaysThatNotAllIsIndexed) {
    start(Object(repository));
    EXPECT_EQ(testing::placeOfFailure(world, *script, u"PrepareSearch", [] {}), u"Search/Index");
    EXPECT_EQ(status(1), u"Not all is indexed");
    type(u"e");
    EXPECT_EQ(names().size(), 3U);
}

TEST_F(SearchWindow, ACellThatCannotBeReadIsToldOnce) {
    start();
    type(u"e");
    EXPECT_EQ(testing::placeOfFailure(world, *script, u"result.Kind", [this] { rows(); }),
              u"Search/Results_Read");
}

/// Everything a user does; the k-th call fails.
TEST_F(SearchWindow, WhateverCallFailsOneBoxComesAndTheWindowCanBeUsed) {
    repository->slices = {50, 100};
    int failing = 1;
    for (bool hasFailed = true; hasFailed; ++failing) {
        ASSERT_LT(failing, 500);
        script->restart(failing);
        repository->slices = {50, 100};
        const std::size_t before = world.boxes().size();
        script->onFailure = [this] { world.expectBox(); };
        start();
        type(u"em");
        rows();
        world.desktop.runPosted();
        press(ui::Key::Down);
        press(ui::Key::Enter);
        world.desktop.runPosted();
        hasFailed = script->hasFailed();
        script->onFailure = {};
        EXPECT_EQ(world.boxes().size() - before, hasFailed ? 1U : 0U) << failing;
        script->restart();
        if (!form->isLoaded())
            form->show(ui::Modality::Modeless);
        world.user.enterText(query(), u"again");
        world.desktop.runPosted();
        EXPECT_EQ(names().size(), 3U) << failing;
        form.reset();
        world.desktop.runPosted();
    }
    EXPECT_GT(failing, 15);
}

TEST_F(SearchWindow, TheWindowMayEndInAnyCall) {
    script->restart();
    start();
    type(u"em");
    rows();
    press(ui::Key::Enter);
    const int calls = script->calls();
    for (int ending = 1; ending <= calls; ++ending) {
        form.reset();
        script->restart();
        script->onCall = [&](const std::u16string&) {
            if (script->calls() == ending && form) {
                form->unload();
                form.reset();
            }
        };
        start(Object(repository));
        world.desktop.runPosted();
        if (form)
            type(u"e");
        if (form)
            type(u"m");
        if (form)
            rows();
        if (form)
            press(ui::Key::Enter);
        world.desktop.runPosted();
        script->onCall = {};
    }
}

TEST_F(SearchWindow, TheReceiverOfOnRevealMayDropTheWindow) {
    start();
    form->onReveal.connect([this](const Object&) { form.reset(); });
    type(u"e");
    press(ui::Key::Enter);
    EXPECT_EQ(revealed.size(), 1U);
    EXPECT_FALSE(form);
}

TEST_F(SearchWindow, ASearchWithinASearchWins) {
    start();
    bool isNested = false;
    script->onCall = [&](const std::u16string& call) {
        if (call == u"Search e" && !std::exchange(isNested, true))
            world.user.enterText(query(), u"newer");
    };
    type(u"e");
    script->onCall = {};
    EXPECT_EQ(names(), (Texts{u"newer 1", u"newer 2", u"newer 3"}));
    EXPECT_EQ(status(), u"3 results");
}

TEST_F(SearchWindow, AFileIsSearchedEverywhere) {
    const repository::testing::TemporaryFolder folder;
    const auto file = make<repository::Repository>();
    file->create(folder.file());
    const Object books(file);
    books.call(u"MakeMetaNode", u"Novel").toObject().call(u"MakeMetaProperty", u"Subtitle");
    const Object emma = books.call(u"MakeNode", u"Novel", u"Emma", u"1").toObject();
    emma.put(u"Subtitle", u"A novel in three volumes");
    start(books);
    world.desktop.runPosted();
    type(u"nov");
    EXPECT_EQ(rows(),
              (std::vector<Texts>{{u"Meta node", u"Novel", u"", u""},
                                  {u"Node", u"Emma", u"Novel", u"Subtitle: A novel in three volumes"}}));
    world.user.enterText(query(), u"\"emma\" *");
    press(ui::Key::Enter);
    ASSERT_EQ(revealed.size(), 1U);
    EXPECT_EQ(revealed.front(), emma);
}

TEST_F(SearchWindow, HostileTextIsTypedAndSearched) {
    const repository::testing::TemporaryFolder folder;
    const auto file = make<repository::Repository>();
    file->create(folder.file());
    const Object books(file);
    const std::u16string name{u'x', char16_t{0xD800}, u'\0', char16_t{0x202E}, u'y'};
    books.call(u"MakeMetaNode", u"Novel");
    books.call(u"MakeNode", u"Novel", name, u"1");
    start(books);
    for (const std::u16string& text : {name, std::u16string(1'000'000, u'x'),
                                       std::u16string(1, char16_t{0xDC00}), std::u16string(u"\" OR *")}) {
        world.user.enterText(query(), text);
        rows();
    }
    world.user.enterText(query(), u"y");
    EXPECT_EQ(list().rowCount(), 1U);
    world.desktop.runPosted();
}

TEST_F(SearchWindow, ItsPlaceIsKept) {
    start();
    world.user.resize(*form, {ui::Twips{9000}, ui::Twips{9000}});
    press(ui::Key::Escape);
    form.reset();
    start();
    EXPECT_EQ(form->clientSize(), (ui::Size{ui::Twips{9000}, ui::Twips{9000}}));
}

TEST(SearchLayout, PartsStandApartAndInsideAtEverySize) {
    const ui::Twips line{240};
    const ui::Twips caption{900};
    const ui::Size least = leastSearchSize(line, caption);
    for (const int more : {0, 1, 777, 20'000}) {
        const ui::Size client{least.width + ui::Twips{more}, least.height + ui::Twips{more}};
        const SearchLayout layout = layoutSearch(client, line, caption);
        EXPECT_LE(layout.caption.right(), layout.query.left);
        EXPECT_LE(layout.query.right(), client.width);
        EXPECT_LE(layout.query.bottom(), layout.results.top);
        EXPECT_GE(layout.results.height, line * 6);
        EXPECT_LE(layout.results.bottom(), layout.statusBar.top);
        EXPECT_EQ(layout.statusBar.bottom(), client.height);
    }
    const SearchLayout none = layoutSearch({ui::Twips{0}, ui::Twips{0}}, line, caption);
    EXPECT_GE(none.results.height, ui::Twips{0});
    EXPECT_GE(none.query.width, ui::Twips{0});
}

}  // namespace
}  // namespace quorel::navigator
