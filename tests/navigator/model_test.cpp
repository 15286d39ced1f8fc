// The types and instances of the repository that is open, and files that cannot be opened.

#include "repository/sqlite/database.h"
#include "tests/navigator/navigator_fixture.h"

namespace quorel::navigator {
namespace {

using Model = NavigatorTest;
using repository::testing::writeFile;

TEST_F(Model, TypesAreListedWithTheirKindAndNumberOfInstances) {
    open(sample());
    const auto rows = world.user.look(list(u"Types"), 0, 9);
    ASSERT_EQ(rows.size(), 9U);
    EXPECT_EQ(rows[1].front(), u"Author");
    EXPECT_EQ(rows[1][1], u"Meta node");
    EXPECT_EQ(rows[4].front(), u"Author.Wrote.Book");
    EXPECT_EQ(rows[4][1], u"Meta link");
    selectNamed(u"Types", u"Author");
    EXPECT_EQ(rows[1][2], automation::decimal(static_cast<std::int64_t>(list(u"Instances").rowCount())));
}

TEST_F(Model, TheFirstTypesInstancesAreShownAtOnceWithTheirProperties) {
    open(sample());
    EXPECT_EQ(list(u"Types").selectedRow(), 0U);
    std::vector<std::u16string> titles;
    for (const ui::Column& column : list(u"Instances").columns())
        titles.push_back(column.title);
    EXPECT_EQ(titles, (Texts{u"Name", u"Genre", u"Published", u"Pages", u"Rating", u"Available", u"Note"}));
    EXPECT_EQ(panel(0), u"Types: 9");
    EXPECT_EQ(panel(1),
              u"Instances: " + automation::decimal(static_cast<std::int64_t>(list(u"Instances").rowCount())));
    EXPECT_TRUE(list(u"Types").hasFocus());
}

TEST_F(Model, LinksAreShownWithTheirEnds) {
    open(sample());
    selectNamed(u"Types", u"Author.Wrote.Book");
    const auto rows = world.user.look(list(u"Instances"), 0, 1);
    EXPECT_EQ(rows.front()[1], u"Jane Austen");
}

TEST_F(Model, AFilterIsCountedInTheStatusLine) {
    open(sample());
    selectNamed(u"Types", u"Author");
    list(u"Instances").focus();
    world.user.press(*form, {ui::key('F'), ui::Modifiers::Control});
    world.user.type(*form, u"Bront");
    const std::size_t all = control<controls::ListView>(u"Instances.View").count();
    EXPECT_EQ(panel(1), u"Instances: 2 of " + automation::decimal(static_cast<std::int64_t>(all)));
}

TEST_F(Model, RefreshReadsAnewAndKeepsWhatIsSelected) {
    const std::u16string file = sample();
    open(file);
    selectNamed(u"Types", u"Author");
    selectNamed(u"Instances", u"Mary Shelley");
    const std::size_t before = list(u"Instances").rowCount();
    const auto elsewhere = make<repository::Repository>();
    elsewhere->open(file);
    Object(elsewhere).call(u"MakeNode", u"Author", u"Somebody New", u"author:new");
    world.user.press(*form, {ui::Key::F5});
    EXPECT_EQ(list(u"Instances").rowCount(), before + 1);
    EXPECT_EQ(list(u"Instances").selectedRow(), 1U);
    elsewhere->close();
}

TEST_F(Model, AFileThatIsMissingLeavesWhatIsOpen) {
    open(sample());
    const std::u16string text = messageOf([this] { open(folder.file("gone.quorel")); });
    EXPECT_TRUE(contains(text, u"Error No: 53  'There is no repository file '" + folder.file("gone.quorel") +
                                   u"'. Look whether it was moved, or its drive is not connected.'"));
    EXPECT_TRUE(contains(text, u"(Module 'Navigator' Function 'openFile()')"));
    EXPECT_EQ(form->text(), u"books.quorel - Navigator");
    EXPECT_EQ(recents(), Texts{folder.file("books.quorel")});
    selectNamed(u"Types", u"Author");
    EXPECT_GT(list(u"Instances").rowCount(), 5U);
}

TEST_F(Model, AFileOfAnotherKindIsRefusedWithWhatToDo) {
    start();
    writeFile(folder.path() / "letter.quorel", std::string(200, 'x'));
    const std::u16string text = messageOf([this] { open(folder.file("letter.quorel")); });
    EXPECT_TRUE(
        contains(text, u"is no repository. Choose a repository (*.quorel), or take other files over by"));
    EXPECT_TRUE(form->find(u"WelcomePage")->isVisible());
    EXPECT_EQ(recents(), Texts{});
}

TEST_F(Model, AFileThatIsLockedIsReportedWithWhatToDo) {
    const std::u16string file = sample();
    repository::sqlite::Database holder(file, repository::sqlite::Database::Mode::OpenExisting);
    holder.run("PRAGMA locking_mode = EXCLUSIVE; BEGIN EXCLUSIVE");
    start();
    const std::u16string text = messageOf([&] { open(file); });
    EXPECT_TRUE(
        contains(text, u"'" + file + u"' is locked by another program. Close it in the other program"))
        << automation::toUtf8(text);
    EXPECT_TRUE(form->find(u"WelcomePage")->isVisible());
    holder.run("COMMIT");
}

TEST_F(Model, OpeningAnotherRepositoryClosesTheFirst) {
    const std::u16string a = sample("a.quorel");
    open(a);
    const Object held = control<controls::ListView>(u"Instances.View").objectAt(0);
    open(sample("b.quorel"));
    EXPECT_NE(quorel::testing::errorNumber([&] { static_cast<void>(held.get(u"name")); }), 0);
    EXPECT_EQ(form->text(), u"b.quorel - Navigator");
}

TEST_F(Model, OpeningTheSameFileAgainReadsItAnew) {
    const std::u16string a = sample("a.quorel");
    open(a);
    selectNamed(u"Types", u"Author");
    open(a);
    EXPECT_EQ(list(u"Types").selectedRow(), 1U);
    EXPECT_GT(list(u"Instances").rowCount(), 5U);
    EXPECT_EQ(recents(), Texts{a});
}

TEST_F(Model, CloseGoesBackToTheWelcomePage) {
    open(sample());
    world.user.press(*form, {ui::key('W'), ui::Modifiers::Control});
    EXPECT_TRUE(form->find(u"WelcomePage")->isVisible());
    EXPECT_EQ(form->text(), u"Navigator");
    EXPECT_EQ(panel(2), u"No repository is open");
    EXPECT_FALSE(entry(u"mnuClose").isEnabled());
    EXPECT_EQ(list(u"Types").rowCount(), 0U);
}

TEST_F(Model, ExitClosesTheWindowAndTheFile) {
    const std::u16string a = sample("a.quorel");
    open(a);
    choose(u"mnuExit");
    EXPECT_FALSE(form->isLoaded());
    EXPECT_EQ(folder.count(), 1U) << "no log is left beside a file that was closed";
}

TEST_F(Model, PlaceAndSplitterAreRemembered) {
    open(sample());
    world.user.resize(*form, {{12000}, {9000}});
    world.user.dragSplitter(control<ui::Splitter>(u"TypesSplitter"), {5000});
    const ui::Rect types = form->find(u"Types.View")->bounds();
    world.user.closeBox(*form);
    open(sample());
    form.reset();
    open(sample());
    EXPECT_EQ(form->clientSize(), (ui::Size{{12000}, {9000}}));
    EXPECT_EQ(form->find(u"Types.View")->bounds(), types);
    EXPECT_NEAR(types.right().value, 5000, 2);
}

TEST_F(Model, TabsLeadFromTheTypesToTheInstances) {
    open(sample());
    world.user.press(*form, {ui::Key::Tab});
    world.user.press(*form, {ui::Key::Tab});
    EXPECT_TRUE(list(u"Instances").hasFocus());
}

}  // namespace
}  // namespace quorel::navigator
