// What is there before a repository is open, and how one comes to be.

#include "tests/navigator/navigator_fixture.h"

namespace quorel::navigator {
namespace {

using Welcome = NavigatorTest;

TEST_F(Welcome, PageIsShownAndCommandsOnARepositoryAreDisabled) {
    start();
    EXPECT_EQ(form->text(), u"Navigator");
    EXPECT_TRUE(form->find(u"WelcomePage")->isVisible());
    EXPECT_FALSE(form->find(u"ModelPage")->isVisible());
    for (const std::u16string_view name :
         {u"mnuExport", u"mnuClose", u"mnuSixPane", u"mnuMatrix", u"mnuHierarchy", u"mnuExplorer",
          u"mnuRefresh", u"mnuSearch", u"mnuProperties", u"mnuDiagram", u"mnuLoadBinary", u"mnuStoreBinary",
          u"mnuCloseAll", u"mnuRecent"})
        EXPECT_FALSE(entry(name).isEnabled()) << automation::toUtf8(name);
    for (const std::u16string_view name : {u"mnuNew", u"mnuOpen", u"mnuImport", u"mnuExit", u"mnuFolder",
                                           u"mnuOptions", u"mnuDocumentation", u"mnuAbout"})
        EXPECT_TRUE(entry(name).isEnabled()) << automation::toUtf8(name);
}

TEST_F(Welcome, WithoutFileDialogsNothingOffersThem) {
    world.environment.fileDialogs = nullptr;
    start();
    for (const std::u16string_view name : {u"mnuNew", u"mnuOpen", u"mnuImport"})
        EXPECT_FALSE(entry(name).isEnabled()) << automation::toUtf8(name);
    EXPECT_FALSE(control<ui::Button>(u"cmdOpen").isEnabled());
    world.user.click(control<ui::Button>(u"cmdSample"));
    EXPECT_TRUE(form->find(u"ModelPage")->isVisible());
}

TEST_F(Welcome, SampleIsMadeInTheUsersFolderOnceAndOpened) {
    start();
    world.user.click(control<ui::Button>(u"cmdSample"));
    const std::u16string own = joinPath(services->userFolder, u"library.quorel");
    EXPECT_TRUE(fileExists(own));
    EXPECT_EQ(form->text(), u"library.quorel - Navigator");
    EXPECT_EQ(names(u"Types").front(), u"Book");
    choose(u"mnuClose");
    world.user.click(control<ui::Button>(u"cmdSample"));
    EXPECT_EQ(form->text(), u"library.quorel - Navigator");
    EXPECT_EQ(recents(), Texts{own});
}

TEST_F(Welcome, SampleThatDoesNotShipIsReportedByItsName) {
    services->programFolder = folder.file("nowhere");
    start();
    const std::u16string text = messageOf([this] { world.user.click(control<ui::Button>(u"cmdSample")); });
    EXPECT_TRUE(contains(text, u"library.jsonl"));
    EXPECT_TRUE(contains(text, u"(Module 'Navigator' Function 'openSample()')"));
    EXPECT_FALSE(fileExists(joinPath(services->userFolder, u"library.quorel")));
}

TEST_F(Welcome, RecentFilesAreListedByNameAndFolderLatestFirst) {
    const std::u16string a = sample("a.quorel"), b = sample("b.quorel");
    open(a);
    open(b);
    choose(u"mnuClose");
    EXPECT_EQ(world.user.look(list(u"RecentFiles"), 0, 9),
              (std::vector<Texts>{{u"b.quorel", folderOf(b)}, {u"a.quorel", folderOf(a)}}));
    EXPECT_EQ(captions(u"mnuRecent"), (Texts{u"&1 " + b, u"&2 " + a}));
    world.user.doubleClickRow(list(u"RecentFiles"), 1);
    EXPECT_EQ(form->text(), u"a.quorel - Navigator");
    choose(u"mnuRecent(1)");
    EXPECT_EQ(form->text(), u"b.quorel - Navigator");
    EXPECT_EQ(recents(), (Texts{b, a}));
}

TEST_F(Welcome, EnterOpensTheSelectedRecentFile) {
    const std::u16string a = sample("a.quorel");
    open(a);
    choose(u"mnuClose");
    list(u"RecentFiles").focus();
    world.user.press(*form, {ui::Key::Enter});
    EXPECT_EQ(form->text(), u"a.quorel - Navigator");
}

TEST_F(Welcome, RecentFileThatIsMissingIsTakenOffTheListOnRequest) {
    const std::u16string a = sample("a.quorel"), b = sample("b.quorel");
    open(a);
    open(b);
    choose(u"mnuClose");
    std::filesystem::remove(repository::sqlite::pathOf(a));
    const auto activate = [this] { world.user.doubleClickRow(list(u"RecentFiles"), 1); };
    const std::u16string text = messageOf(activate, ui::MessageAnswer::No);
    EXPECT_EQ(text, u"The file '" + a + u"' is not there any more. Take it off the list?");
    EXPECT_EQ(recents(), (Texts{b, a}));
    messageOf(activate, ui::MessageAnswer::Yes);
    EXPECT_EQ(recents(), Texts{b});
    EXPECT_EQ(names(u"RecentFiles"), Texts{u"b.quorel"});
    EXPECT_TRUE(form->find(u"WelcomePage")->isVisible());
}

TEST_F(Welcome, DeleteTakesARecentFileOffTheListAndLeavesTheFile) {
    const std::u16string a = sample("a.quorel");
    open(a);
    choose(u"mnuClose");
    list(u"RecentFiles").focus();
    world.user.press(*form, {ui::Key::Delete});
    EXPECT_EQ(recents(), Texts{});
    EXPECT_FALSE(entry(u"mnuRecent").isEnabled());
    EXPECT_TRUE(fileExists(a));
}

TEST_F(Welcome, NewMakesAnEmptyRepositoryAndOpensIt) {
    start();
    files.answers = {folder.file("new.quorel")};
    world.user.click(control<ui::Button>(u"cmdNew"));
    EXPECT_EQ(form->text(), u"new.quorel - Navigator");
    EXPECT_EQ(panel(0), u"Types: 0");
    EXPECT_EQ(panel(1), u"Instances: 0");
    EXPECT_EQ(files.requests.front().defaultExtension, u".quorel");
}

TEST_F(Welcome, NewOnAnExistingFileSaysSoAndKeepsIt) {
    const std::u16string a = sample("a.quorel");
    open(sample("b.quorel"));
    files.answers = {a};
    const std::u16string text = messageOf([this] { choose(u"mnuNew"); });
    EXPECT_TRUE(contains(text, u"'" + a + u"' already exists. Choose another name, or open the file."));
    EXPECT_EQ(form->text(), u"b.quorel - Navigator");
    open(a);
    EXPECT_EQ(names(u"Types").size(), 9U);
}

TEST_F(Welcome, CancelledDialogsChangeNothing) {
    start();
    for (const std::u16string_view name : {u"mnuNew", u"mnuOpen", u"mnuImportPackages", u"mnuImportJsonLines",
                                           u"mnuImportModdle", u"mnuImportEcore"})
        choose(name);
    EXPECT_EQ(files.requests.size(), 6U);
    EXPECT_EQ(form->text(), u"Navigator");
    open(sample());
    choose(u"mnuExport");
    EXPECT_EQ(folder.count(), 3U) << "the sample with its log";
}

TEST_F(Welcome, OpenShowsTheChosenFile) {
    start();
    files.answers = {sample()};
    world.user.press(*form, {ui::key('O'), ui::Modifiers::Control});
    EXPECT_EQ(form->text(), u"books.quorel - Navigator");
    EXPECT_EQ(panel(2), folder.file("books.quorel"));
}

}  // namespace
}  // namespace quorel::navigator
