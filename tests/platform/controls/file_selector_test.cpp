#include "platform/controls/file_selector.h"

#include <gtest/gtest.h>

#include "platform/automation/calls.h"
#include "platform/controls/file_types.h"
#include "platform/headless/user.h"
#include "platform/ui/form.h"
#include "tests/support/test_world.h"

namespace quorel::controls {
namespace {

using automation::make;
using automation::Object;
using automation::Ref;
using automation::Value;
using quorel::testing::errorNumber;

/// Answers what a test has put there and keeps what it was asked.
class DialogsDouble final : public shell::FileDialogs {
  public:
    std::optional<std::u16string> answer;
    std::function<void()> during;
    Request asked;
    std::u16string kind;
    bool fails = false;

    std::optional<std::u16string> openFile(const Request& request) override { return note(u"open", request); }
    std::optional<std::u16string> saveFile(const Request& request) override { return note(u"save", request); }
    std::optional<std::u16string> chooseFolder(const Request& request) override {
        return note(u"folder", request);
    }

  private:
    std::optional<std::u16string> note(const char16_t* what, const Request& request) {
        kind = what;
        asked = request;
        if (during)
            during();
        if (fails)
            throw automation::Error(75);
        return answer;
    }
};

struct FileSelectorTest : ::testing::Test {
    quorel::testing::TestWorld world;
    DialogsDouble dialogs;
    std::shared_ptr<ui::Form> form = std::make_shared<ui::Form>(world.desktop, u"frmTest");
    FileSelector* selector = &form->add<FileSelector>(u"FileSelector(1)", world.desktop, &dialogs);
    ui::Button* other = &form->add<ui::Button>(u"Other");
    int changes = 0, entered = 0;
    std::vector<std::int32_t> failures;

    FileSelectorTest() {
        form->setClientSize({{6000}, {3000}});
        selector->setBounds({{}, {}, {4500}, {600}});
        other->setBounds({{}, {900}, {900}, {300}});
        selector->onChange.connect([this] { ++changes; });
        selector->onEntered.connect([this] { ++entered; });
        selector->onFailure.connect([this](const automation::Error& e) { failures.push_back(e.number()); });
        form->show(ui::Modality::Modeless);
        other->focus();
    }
    ~FileSelectorTest() override {
        if (form)
            form->unload();
    }
    [[nodiscard]] std::u16string path() const { return selector->GetAttribute(u"FilePath").toString(); }
};

TEST_F(FileSelectorTest, AttributesAreSetAndReadByAnySpelling) {
    selector->SetAttribute(u"filepath", u"C:\\a.txt");
    selector->SetAttribute(u"Message", u"Where?");
    selector->SetAttribute(u"Colour", 5);
    EXPECT_EQ(selector->GetAttribute(u"FILEPATH").text(), u"C:\\a.txt");
    EXPECT_EQ(selector->box().text(), u"C:\\a.txt");
    EXPECT_EQ(selector->caption().text(), u"Where?");
    EXPECT_EQ(selector->GetAttribute(u"Mode").text(), u"File");
    EXPECT_EQ(selector->GetAttribute(u"colour").toInteger(), 5);
    EXPECT_TRUE(selector->GetAttribute(u"Unknown").isEmpty());
    EXPECT_EQ(changes, 0);
}

TEST_F(FileSelectorTest, WhatIsTypedIsThePath) {
    world.user.enterText(selector->box(), u"D:\\b.exe");
    EXPECT_EQ(path(), u"D:\\b.exe");
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(entered, 0);
    other->focus();
    world.user.click(*other);
    EXPECT_EQ(path(), u"D:\\b.exe");
}

TEST_F(FileSelectorTest, LeavingTheBoxEntersThePath) {
    world.user.click(selector->box());
    world.user.press(*form, {ui::Key::Tab});
    EXPECT_EQ(entered, 1);
    EXPECT_EQ(changes, 0);
}

TEST_F(FileSelectorTest, BrowsesForAFileWhereThePathIs) {
    selector->SetAttribute(u"FilePath", u"C:\\tools\\edit.exe");
    selector->SetAttribute(u"Message", u"Which editor?");
    selector->SetAttribute(u"DefaultExtension", u".exe");
    selector->SetAttribute(u"Filter", u"Executable files (*.exe)|*.exe");
    dialogs.answer = u"C:\\tools\\other.exe";
    world.user.click(selector->button());
    EXPECT_EQ(dialogs.kind, u"open");
    EXPECT_EQ(dialogs.asked.title, u"Which editor?");
    EXPECT_EQ(dialogs.asked.folder, u"C:\\tools\\");
    EXPECT_EQ(dialogs.asked.fileName, u"C:\\tools\\edit.exe");
    EXPECT_EQ(dialogs.asked.filter, u"Executable files (*.exe)|*.exe");
    EXPECT_EQ(dialogs.asked.defaultExtension, u".exe");
    EXPECT_EQ(path(), u"C:\\tools\\other.exe");
    EXPECT_EQ(selector->box().text(), u"C:\\tools\\other.exe");
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(entered, 1);
}

TEST_F(FileSelectorTest, BrowsesForAFolderInDirectoryMode) {
    selector->SetAttribute(u"Mode", u"directory");
    selector->SetAttribute(u"FilePath", u"C:\\tools");
    dialogs.answer = u"D:\\";
    world.user.click(selector->button());
    EXPECT_EQ(dialogs.kind, u"folder");
    EXPECT_EQ(dialogs.asked.folder, u"C:\\tools");
    EXPECT_EQ(path(), u"D:\\");
}

TEST_F(FileSelectorTest, CancellingChangesNothing) {
    selector->SetAttribute(u"FilePath", u"C:\\a.txt");
    world.user.click(selector->button());
    EXPECT_EQ(path(), u"C:\\a.txt");
    EXPECT_EQ(changes, 0);
    EXPECT_EQ(entered, 0);
}

TEST_F(FileSelectorTest, ADialogThatCannotBeShownIsAFailure) {
    dialogs.fails = true;
    world.user.click(selector->button());
    EXPECT_EQ(failures, std::vector<std::int32_t>{75});
    EXPECT_EQ(changes, 0);
}

TEST_F(FileSelectorTest, TheWindowMayEndWhileTheDialogIsOpen) {
    dialogs.answer = u"D:\\b.txt";
    dialogs.during = [this] {
        form->unload();
        form.reset();
    };
    world.user.click(selector->button());
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(form, nullptr);
}

TEST_F(FileSelectorTest, TheControlMayEndWhileTheDialogIsOpen) {
    dialogs.answer = u"D:\\b.txt";
    dialogs.during = [this] { form->clear(); };
    world.user.click(selector->button());
    EXPECT_EQ(changes, 0);
    EXPECT_EQ(entered, 0);
}

TEST_F(FileSelectorTest, WithoutDialogsThereIsNoButton) {
    auto& bare = form->add<FileSelector>(u"FileSelector(2)", world.desktop, nullptr);
    bare.setBounds({{}, {1500}, {4500}, {315}});
    EXPECT_FALSE(bare.button().isVisible());
    EXPECT_EQ(bare.box().bounds().right(), ui::Twips{4500});
}

TEST_F(FileSelectorTest, ThePartsShareTheWidth) {
    selector->setCaptionWidth(ui::Twips{1500});
    EXPECT_EQ(selector->box().bounds().left, ui::Twips{1500});
    EXPECT_LT(selector->caption().bounds().right(), ui::Twips{1500});
    EXPECT_LT(selector->box().bounds().right(), selector->button().bounds().left);
    EXPECT_EQ(selector->button().bounds().right(), ui::Twips{4500});
    EXPECT_EQ(selector->box().bounds().height, selector->neededHeight());
}

TEST_F(FileSelectorTest, SelectorAndTableAreMadeByIdentifier) {
    registerFileClasses(world.classes, &dialogs);
    const Object made = world.classes.createObject(u"VardekFileSelector.FileSelector");
    made.call(u"SetAttribute", u"FilePath", u"C:\\a.txt");
    EXPECT_EQ(made.call(u"GetAttribute", u"filepath").text(), u"C:\\a.txt");
    dialogs.answer = u"C:\\b.txt";
    EXPECT_TRUE(made.call(u"Browse").toBoolean());
    EXPECT_EQ(made.call(u"GetAttribute", u"FilePath").text(), u"C:\\b.txt");
    dialogs.answer.reset();
    EXPECT_FALSE(made.call(u"Browse").toBoolean());
    const Object table = world.classes.createObject(u"VardekFileAccess.c_FileType");
    table.call(u"Add", u"TXT", u".txt", u"Textfile (*.txt)|*.txt");
    EXPECT_EQ(table.item(u"TXT").toObject().get(u"Extension").text(), u".txt");
}

TEST(FileSelection, WithoutDialogsBrowsingIsError5) {
    const auto selection = make<FileSelection>(nullptr);
    EXPECT_EQ(errorNumber([&] { selection->Browse(); }), 5);
}

TEST(FileTypes, AreFoundByKeyInAnySpellingAndByPosition) {
    const auto table = make<FileTypes>();
    table->Add(u"TXT", u".txt", u"Textfile (*.txt)|*.txt");
    table->Add(u"EXE", u".exe", u"Executable files (*.exe)|*.exe");
    EXPECT_EQ(table->Count(), 2);
    EXPECT_EQ(table->Item(u"exe").get(u"Filter").text(), u"Executable files (*.exe)|*.exe");
    EXPECT_EQ(table->Item(1).get(u"Key").text(), u"TXT");
    EXPECT_EQ(table->Item(u"exe"), table->Item(2));
}

TEST(FileTypes, AnUnknownKeyIsError9AndATakenOne457) {
    const auto table = make<FileTypes>();
    table->Add(u"TXT", u".txt", u"");
    EXPECT_EQ(errorNumber([&] { static_cast<void>(table->Item(u"DOC")); }), 9);
    EXPECT_EQ(errorNumber([&] { static_cast<void>(table->Item(0)); }), 9);
    EXPECT_EQ(errorNumber([&] { static_cast<void>(table->Item(2)); }), 9);
    EXPECT_EQ(errorNumber([&] { table->Add(u"txt", u".text", u""); }), 457);
    EXPECT_EQ(table->Item(u"TXT").get(u"Extension").text(), u".txt");
    EXPECT_EQ(table->Count(), 1);
}

TEST(FileTypes, AreEnumeratedInTheirOrder) {
    const Object table = make<FileTypes>();
    std::u16string keys;
    for (const char16_t* key : {u"TXT", u"DIM", u"DGT"})
        table.call(u"Add", key, u"", u"");
    for (const Object& type : automation::each(table))
        keys += type.get(u"Key").toString() + u" ";
    EXPECT_EQ(keys, u"TXT DIM DGT ");
}

}  // namespace
}  // namespace quorel::controls
