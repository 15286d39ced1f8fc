// The menus Tools and Help.

#include "platform/ui/check_box.h"
#include "tests/navigator/navigator_fixture.h"

namespace quorel::navigator {
namespace {

using repository::testing::contentsOf;
using repository::testing::writeFile;

struct Tools : NavigatorTest {
    /// The sample with a property of bytes, which an author has.
    std::u16string withPortraits() const {
        const std::u16string file = sample();
        const auto repository = make<repository::Repository>();
        repository->open(file);
        Object(repository)
            .get(u"MetaNodes", u"Author")
            .toObject()
            .call(u"MakeMetaProperty", u"Portrait", u"Binary", u"Binary PNG");
        repository->close();
        return file;
    }
    void chooseItem(std::size_t row) {
        world.desktop.expectModal(u"frmSelectItem", [this, row](ui::Form& dialog) {
            world.user.selectRow(headless::get<ui::VirtualList>(dialog, u"ListView"), row);
            world.user.press(dialog, {ui::Key::Enter});
        });
    }
};

TEST_F(Tools, PropertiesAreEditedAndTheRowIsReadAnew) {
    open(sample());
    selectNamed(u"Types", u"Shelf");
    world.user.selectRow(list(u"Instances"), 0);
    const std::u16string shelf = names(u"Instances").front();
    world.desktop.expectModal(u"frmPropertyEditor", [&](ui::Form& editor) {
        EXPECT_EQ(editor.text(), shelf + u" - Properties");
        auto& grid = headless::get<ui::VirtualList>(editor, u"Property1");
        world.user.selectRow(grid, 0);
        world.user.press(editor, {ui::Key::F2});
        world.user.enterText(headless::get<ui::TextBox>(editor, u"Property1.Text"), u"77");
        world.user.press(editor, {ui::Key::Enter});
        world.user.click(editor, u"ButtonOK");
    });
    world.user.press(*form, {ui::Key::Enter, ui::Modifiers::Alt});
    EXPECT_EQ(world.boxes(), Texts{});
    EXPECT_EQ(world.user.look(list(u"Instances"), 0, 1).front().at(1), u"77");
}

TEST_F(Tools, ADoubleClickAndEnterOnAnInstanceEditItsProperties) {
    open(sample());
    int shown = 0;
    for (int i = 0; i < 2; ++i)
        world.desktop.expectModal(u"frmPropertyEditor", [&](ui::Form& editor) {
            ++shown;
            editor.hide();
        });
    world.user.doubleClickRow(list(u"Instances"), 1);
    world.user.press(*form, {ui::Key::Enter});
    EXPECT_EQ(shown, 2);
    EXPECT_EQ(world.boxes(), Texts{});
}

TEST_F(Tools, TheEditorMayCloseTheNavigator) {
    open(sample());
    world.desktop.expectModal(u"frmPropertyEditor", [this](ui::Form& editor) {
        form->unload();
        editor.hide();
    });
    world.user.doubleClickRow(list(u"Instances"), 1);
    EXPECT_FALSE(form->isLoaded());
    EXPECT_EQ(folder.count(), 1U);
}

TEST_F(Tools, TheMetamodelIsDrawn) {
    open(sample());
    bool shown = false;
    world.desktop.expectModal(u"frmDiagram", [&](ui::Form& diagram) {
        shown = true;
        world.user.closeBox(diagram);
    });
    choose(u"mnuDiagram");
    EXPECT_TRUE(shown);
}

TEST_F(Tools, BinaryPropertiesAreOfferedForTypesThatHaveThem) {
    open(withPortraits());
    world.user.selectRow(list(u"Instances"), 0);
    EXPECT_FALSE(entry(u"mnuLoadBinary").isEnabled()) << "a book has none";
    selectNamed(u"Types", u"Author");
    EXPECT_FALSE(entry(u"mnuLoadBinary").isEnabled()) << "nobody is selected";
    world.user.selectRow(list(u"Instances"), 0);
    EXPECT_TRUE(entry(u"mnuLoadBinary").isEnabled());
    EXPECT_TRUE(entry(u"mnuStoreBinary").isEnabled());
}

TEST_F(Tools, ABinaryPropertyIsLoadedFromAFileAndStoredInOne) {
    open(withPortraits());
    writeFile(folder.path() / "in.png", std::string("\x89PNG\0bytes", 10));
    selectNamed(u"Types", u"Author");
    world.user.selectRow(list(u"Instances"), 2);
    files.answers = {folder.file("in.png"), folder.file("out.png")};
    chooseItem(0);
    choose(u"mnuLoadBinary");
    chooseItem(0);
    choose(u"mnuStoreBinary");
    EXPECT_EQ(world.boxes(), Texts{});
    EXPECT_EQ(contentsOf(folder.path() / "out.png"), contentsOf(folder.path() / "in.png"));
}

TEST_F(Tools, AFileThatCannotBeLoadedIsReported) {
    open(withPortraits());
    selectNamed(u"Types", u"Author");
    world.user.selectRow(list(u"Instances"), 2);
    files.answers = {folder.file("gone.png")};
    chooseItem(0);
    const std::u16string text = messageOf([this] { choose(u"mnuLoadBinary"); });
    EXPECT_TRUE(contains(text, u"gone.png"));
    EXPECT_TRUE(contains(text, u"(Module 'Navigator' Function 'mnuLoadBinary_Click()')"));
}

TEST_F(Tools, RepositoriesInAFolderAreOffered) {
    start();
    sample("a.quorel");
    sample("b.quorel");
    writeFile(folder.path() / "c.txt", "no repository");
    world.folderBrowser.expect([this](const auto&) { return folder.path().u16string(); });
    world.desktop.expectModal(u"frmSelectItem", [this](ui::Form& dialog) {
        EXPECT_EQ(dialog.text(), u"Repositories in a folder");
        auto& rows = headless::get<ui::VirtualList>(dialog, u"ListView");
        const auto cells = world.user.look(rows, 0, 9);
        ASSERT_EQ(cells.size(), 2U);
        EXPECT_EQ(cells[1].front(), u"b.quorel");
        world.user.doubleClickRow(rows, 1);
    });
    choose(u"mnuFolder");
    EXPECT_EQ(form->text(), u"b.quorel - Navigator");
}

TEST_F(Tools, AFolderWithoutRepositoriesSaysSo) {
    start();
    world.folderBrowser.expect([this](const auto&) { return folder.path().u16string(); });
    const std::u16string text = messageOf([this] { choose(u"mnuFolder"); });
    EXPECT_TRUE(contains(text, u"There is no repository (*.quorel) in '"));
    world.folderBrowser.expect([](const auto&) { return std::nullopt; });
    choose(u"mnuFolder");
}

TEST_F(Tools, OptionsHaveEffect) {
    open(sample("a.quorel"));
    open(sample("b.quorel"));
    EXPECT_EQ(captions(u"mnuRecent").size(), 2U);
    world.desktop.expectModal(u"frmOptions", [this](ui::Form& dialog) {
        std::vector<ui::CheckBox*> checks;
        std::vector<ui::TextBox*> texts;
        const std::function<void(ui::Container&)> collect = [&](ui::Container& container) {
            for (const auto& child : container.children()) {
                if (auto* const check = dynamic_cast<ui::CheckBox*>(child.get()); check && check->isShown())
                    checks.push_back(check);
                if (auto* const text = dynamic_cast<ui::TextBox*>(child.get());
                    text && text->isShown() && text->text() == u"10")
                    texts.push_back(text);
                if (auto* const inner = dynamic_cast<ui::Container*>(child.get()))
                    collect(*inner);
            }
        };
        collect(dialog);
        ASSERT_EQ(checks.size(), 2U);
        ASSERT_EQ(texts.size(), 1U);
        for (ui::CheckBox* const check : checks)
            world.user.click(*check);
        world.user.enterText(*texts.front(), u"1");
        world.user.click(dialog, u"cmdOK");
    });
    choose(u"mnuOptions");
    EXPECT_EQ(readPreferences(world.settings), (Preferences{true, true, 1}));
    EXPECT_EQ(captions(u"mnuRecent").size(), 1U);
    EXPECT_TRUE(fileExists(joinPath(services->userFolder, u"settings.quorel")));
    EXPECT_EQ(form->text(), u"b.quorel - Navigator");
    world.user.closeBox(*form);
    form.reset();
    start();
    EXPECT_EQ(form->text(), u"b.quorel - Navigator") << "the last file is open again";
}

TEST_F(Tools, ARepositoryThatWasClosedIsNotOpenedAgainAtStart) {
    world.settings.write(u"Quorel Navigator", u"Options", u"ReopenLast", u"1");
    open(sample());
    choose(u"mnuClose");
    world.user.closeBox(*form);
    form.reset();
    start();
    EXPECT_EQ(form->text(), u"Navigator");
}

TEST_F(Tools, TheFileOfTheCommandLineWinsOverTheLastOne) {
    world.settings.write(u"Quorel Navigator", u"Options", u"ReopenLast", u"1");
    open(sample("a.quorel"));
    world.user.closeBox(*form);
    form = std::make_shared<frmNavigator>(*services);
    form->show(ui::Modality::Modeless);
    form->openFile(sample("b.quorel"));
    world.desktop.runPosted();
    EXPECT_EQ(form->text(), u"b.quorel - Navigator");
}

TEST_F(Tools, AUserFolderThatCannotBeMadeIsNamed) {
    writeFile(folder.path() / "user", "a file");
    start();
    const std::u16string text = messageOf([this] { choose(u"mnuOptions"); });
    EXPECT_TRUE(contains(text, u"The folder '" + services->userFolder + u"' cannot be made."));
}

TEST_F(Tools, OptionsThatMakeNoSenseAreTheDefaults) {
    for (const std::u16string_view limit : {u"0", u"21", u"2.5", u"many", u""}) {
        world.settings.write(u"Quorel Navigator", u"Options", u"RecentFiles", limit);
        EXPECT_EQ(readPreferences(world.settings), Preferences{});
    }
}

TEST_F(Tools, HelpTellsTheVersionAndWhereTheDocumentationIs) {
    start();
    EXPECT_TRUE(contains(messageOf([this] { choose(u"mnuAbout"); }), u"Quorel Navigator 0."));
    EXPECT_TRUE(
        contains(messageOf([this] { world.user.press(*form, {ui::Key::F1}); }), u"docs'; begin with"));
}

TEST_F(Tools, EveryEntryHasAnAccessKeyOfItsOwnInItsMenu) {
    start();
    const std::function<void(const ui::MenuItem&)> check = [&](const ui::MenuItem& menu) {
        std::u16string taken;
        for (const auto& item : menu.items()) {
            if (item->isSeparator() || item->caption().empty())
                continue;
            const std::size_t mark = item->caption().find(u'&');
            ASSERT_NE(mark, std::u16string::npos) << automation::toUtf8(item->caption());
            const char16_t key = automation::foldCase(item->caption().substr(mark + 1, 1)).front();
            EXPECT_EQ(taken.find(key), std::u16string::npos) << automation::toUtf8(item->caption());
            taken.push_back(key);
            check(*item);
        }
    };
    check(form->menuBar());
}

}  // namespace
}  // namespace quorel::navigator
