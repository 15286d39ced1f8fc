#include <gtest/gtest.h>

#include <stdexcept>

#include "platform/automation/error.h"
#include "platform/headless/dump.h"
#include "platform/headless/user.h"
#include "platform/ui/check_box.h"
#include "platform/ui/combo_box.h"
#include "platform/ui/form.h"
#include "platform/ui/progress_bar.h"

namespace quorel::headless {

using ui::Modality;

class HeadlessTest : public ::testing::Test {
  protected:
    HeadlessTest() {
        form->setText(u"Title");
        form->setClientSize({{3000}, {1500}});
        box.setBounds({{0}, {0}, {1500}, {300}});
        ok.setText(u"&OK");
    }
    /// What `verify` complains of; "" if it does not.
    [[nodiscard]] std::string complaint() {
        try {
            desktop.verify();
            return "";
        } catch (const std::logic_error& error) {
            return error.what();
        }
    }
    /// What the user's refusal says; "" if the user could do it.
    template <class Action>
    [[nodiscard]] static std::string refusal(Action&& action) {
        try {
            action();
            return "";
        } catch (const CannotDo& error) {
            return error.what();
        }
    }

    HeadlessDesktop desktop;
    User user{desktop};
    std::shared_ptr<ui::Form> form = std::make_shared<ui::Form>(desktop, u"frmTest");
    ui::TextBox& box = form->add<ui::TextBox>(u"Box");
    ui::Button& ok = form->add<ui::Button>(u"OK");
};

TEST_F(HeadlessTest, AnUnexpectedModalFormIsAFailureAndReturnsAtOnce) {
    form->show(Modality::Modal);
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(complaint(), "unexpected modal form 'frmTest': nothing was expected");
    EXPECT_EQ(complaint(), "");
}

TEST_F(HeadlessTest, AModalFormOfAnotherNameIsAFailure) {
    desktop.expectModal(u"frmOther", {});
    form->show(Modality::Modal);
    EXPECT_EQ(complaint(),
              "unexpected modal form 'frmTest': expected was the modal form 'frmOther'\n"
              "never came: the modal form 'frmOther'");
}

TEST_F(HeadlessTest, AScriptThatLeavesTheFormOpenIsAFailure) {
    desktop.expectModal(u"frmTest", [](ui::Form&) {});
    form->show(Modality::Modal);
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(complaint(), "the modal form 'frmTest' is still open when its script has ended");
}

TEST_F(HeadlessTest, WhatAScriptCannotDoIsAFailure) {
    ok.setEnabled(false);
    desktop.expectModal(u"frmTest", [&](ui::Form& shown) { user.click(shown, u"OK"); });
    form->show(Modality::Modal);
    EXPECT_EQ(complaint().find("in the script of the modal form 'frmTest': 'OK' is disabled"), 0U);
}

TEST_F(HeadlessTest, MessagesAreAnsweredInOrderAndKept) {
    desktop.expectMessage([](const ui::Message& message) { EXPECT_EQ(message.style, 4); },
                          ui::MessageAnswer::No);
    EXPECT_EQ(desktop.showMessage({u"text", u"title", 4}, nullptr), ui::MessageAnswer::No);
    EXPECT_EQ(desktop.showMessage({u"more", u"title", 0}, nullptr), ui::MessageAnswer::Ok);
    EXPECT_EQ(desktop.messages().size(), 2U);
    EXPECT_EQ(complaint(), "unexpected message box 'title' 'more': nothing was expected");
}

TEST_F(HeadlessTest, WhatNeverCameIsAFailure) {
    desktop.expectMessage({});
    EXPECT_EQ(complaint(), "never came: a message box");
}

TEST(HeadlessDesktopDeathTest, ADesktopWithFailuresNobodySawEndsTheProcess) {
    ::testing::FLAGS_gtest_death_test_style = "threadsafe";
    EXPECT_DEATH(
        {
            HeadlessDesktop lost;
            lost.expectMessage({});
        },
        "never came: a message box");
}

TEST_F(HeadlessTest, TheUserRefusesWhatNoUserCanDo) {
    EXPECT_EQ(refusal([&] { user.click(ok); }), "'OK' is not visible");
    form->show(Modality::Modeless);
    EXPECT_EQ(refusal([&] { user.click(*form, u"Nothing"); }),
              "there is no such control 'Nothing' in 'frmTest'");
    EXPECT_EQ(refusal([&] { static_cast<void>(get<ui::TextBox>(*form, u"OK")); }),
              "there is no such control 'OK' in 'frmTest'");
    ok.setEnabled(false);
    EXPECT_EQ(refusal([&] { user.click(ok); }), "'OK' is disabled");
    box.setReadOnly(true);
    EXPECT_EQ(refusal([&] { user.type(*form, u"x"); }), "'Box' is read-only");
    EXPECT_EQ(refusal([&] { user.chooseMenu(*form, u"mnu"); }), "'frmTest' has no menu bar");
    EXPECT_EQ(refusal([&] { user.chooseContextMenu(box, u"mnu"); }), "'Box' shows no context menu");
    form->setResizable(false);
    EXPECT_EQ(refusal([&] { user.resize(*form, {{1}, {1}}); }), "'frmTest' cannot be resized");
}

TEST_F(HeadlessTest, TypingIsOneChangeACharacterAndReplacesASelection) {
    form->show(Modality::Modeless);
    int changes = 0;
    box.onChange.connect([&] { ++changes; });
    user.type(*form, u"a\U0001F600b");
    EXPECT_EQ(changes, 3);
    EXPECT_EQ(box.text(), u"a\U0001F600b");
    user.press(*form, {ui::Key::Backspace});
    user.press(*form, {ui::Key::Backspace});
    EXPECT_EQ(box.text(), u"a");
    box.selectAll();
    user.type(*form, u"new");
    EXPECT_EQ(box.text(), u"new");
    desktop.setClipboardText(u" pasted");
    user.press(*form, {ui::key('V'), ui::Modifiers::Control});
    EXPECT_EQ(box.text(), u"new pasted");
}

TEST_F(HeadlessTest, AFormThatGoesAwayUnderTheTypingIsToldToTheUser) {
    form->show(Modality::Modeless);
    box.onChange.connect([&] { form->unload(); });
    EXPECT_EQ(refusal([&] { user.type(*form, u"ab"); }), "the form went away while the user was typing");
}

TEST_F(HeadlessTest, PostedTasksRunAfterTheActionThoseTheyPostToo) {
    form->show(Modality::Modeless);
    std::string order;
    ok.onClick.connect([&] {
        desktop.post([&] {
            order += "task ";
            desktop.post([&] { order += "task of task"; });
        });
        order += "handler ";
    });
    user.click(ok);
    EXPECT_EQ(order, "handler task task of task");
    EXPECT_FALSE(desktop.hasPosted());
}

TEST_F(HeadlessTest, ThePointerIsRecorded) {
    {
        const ui::WaitPointer wait(desktop);
        EXPECT_EQ(desktop.pointer(), ui::Pointer::Wait);
        { const ui::WaitPointer inner(desktop); }
        EXPECT_EQ(desktop.pointer(), ui::Pointer::Wait);
    }
    EXPECT_EQ(desktop.pointer(), ui::Pointer::Default);
    EXPECT_EQ(desktop.waits(), 1U);
}

TEST_F(HeadlessTest, TheDumpIsStable) {
    auto& panel = form->add<ui::Panel>(u"Panel");
    auto& list = panel.add<ui::VirtualList>(u"List");
    list.setColumns({{u"name", {1000}, ui::Alignment::Left, ui::SortOrder::Descending}, {u"x", {500}}});
    form->add<ui::StatusBar>(u"Bar").setPanels({{u"ready", {100}}});
    form->menuBar().add(u"mnuFile", u"&File").addSeparator();
    form->setDefaultButton(&ok);
    box.setText(u"a\nb");
    ok.setVisible(false);
    form->show(Modality::Modeless);
    EXPECT_EQ(dump(*form),
              "Form frmTest \"Title\" 3000x1500 modeless\n"
              "  TextBox Box \"a\\x0Ab\" [0,0 1500x300] focus\n"
              "  Button OK \"&OK\" [0,0 0x0] hidden default\n"
              "  Panel Panel \"\" [0,0 0x0]\n"
              "    VirtualList List \"\" [0,0 0x0] (\"name\"v \"x\") rows 0\n"
              "  StatusBar Bar \"\" [0,0 0x0] [\"ready\"]\n"
              "  MenuItem mnuFile \"&File\"\n"
              "    ---\n");
}

TEST_F(HeadlessTest, TheDumpTellsWhatIsTickedChosenAndDone) {
    form->add<ui::CheckBox>(u"Ticked").setChecked(true);
    form->add<ui::CheckBox>(u"Grayed").setValue(ui::CheckValue::Grayed);
    form->add<ui::CheckBox>(u"Plain");
    auto& list = form->add<ui::ComboBox>(u"Kind");
    list.setItems({u"a", u"b"});
    list.setListIndex(1);
    form->add<ui::ComboBox>(u"Name", ui::ComboStyle::Editable);
    form->add<ui::ProgressBar>(u"Bar").setValue(7);
    const std::string text = dump(*form);
    for (const char* const line :
         {"  CheckBox Ticked \"\" [0,0 0x0] checked\n", "  CheckBox Grayed \"\" [0,0 0x0] grayed\n",
          "  CheckBox Plain \"\" [0,0 0x0]\n", "  ComboBox Kind \"b\" [0,0 0x0] items 2 chosen 1\n",
          "  ComboBox Name \"\" [0,0 0x0] editable items 0\n",
          "  ProgressBar Bar \"\" [0,0 0x0] 7 in 0..100\n"})
        EXPECT_NE(text.find(line), std::string::npos) << line << text;
}

TEST_F(HeadlessTest, MenusThatPopUpAreExpectedToo) {
    ui::MenuItem& copy = ok.contextMenu().add(u"mnuCopy", u"&Copy");
    form->show(Modality::Modeless);
    ok.popUpMenu(ok.contextMenu());
    EXPECT_EQ(complaint(), "unexpected menu: nothing was expected");
    desktop.expectMenu(u"mnuNone");
    ok.popUpMenu(ok.contextMenu());
    EXPECT_EQ(complaint(), "the menu has no usable entry 'mnuNone'");
    copy.setEnabled(false);
    desktop.expectMenu(u"mnuCopy");
    ok.popUpMenu(ok.contextMenu());
    EXPECT_EQ(complaint(), "the menu has no usable entry 'mnuCopy'");
    desktop.expectMenu(u"");
    EXPECT_EQ(complaint(), "never came: a menu to choose '' from");
}

TEST_F(HeadlessTest, TheUserCannotTypeIntoAListNorChooseWhatItLacks) {
    auto& list = form->add<ui::ComboBox>(u"Kind");
    list.setItems({u"Alpha", u"beta", u"Apple"});
    form->show(Modality::Modeless);
    EXPECT_EQ(refusal([&] { user.choose(list, 3); }), "'Kind' has no item 3");
    EXPECT_EQ(refusal([&] { user.enterText(list, u"x"); }), "'Kind' is only a list");
    list.focus();
    user.type(*form, u"a");
    EXPECT_EQ(list.listIndex(), 0U);
    user.type(*form, u"a");
    EXPECT_EQ(list.listIndex(), 2U);
    user.press(*form, {ui::Key::Home});
    EXPECT_EQ(list.listIndex(), 0U);
}

}  // namespace quorel::headless
