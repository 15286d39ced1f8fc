// Texts between the portable state and native windows.

#include "platform/ui/shown_text.h"
#include "platform/win32/ui/menus.h"
#include "platform/win32/ui/native_text.h"
#include "platform/win32/ui/system_headers.h"
#include "tests/platform/win32/ui/windows_fixture.h"

namespace quorel::win32::testing {

using namespace std::string_view_literals;

TEST(EditedText, KeepsNullsOutsideTheEditedStretch) {
    EXPECT_EQ(editedText(u"a\0b"sv, u"a\u2400bc"), u"a\0bc"sv);
    EXPECT_EQ(editedText(u"a\0b"sv, u"xa\u2400b"), u"xa\0b"sv);
    EXPECT_EQ(editedText(u"a\0b\0c"sv, u"a\u2400X\u2400c"), u"a\0X\0c"sv);
    EXPECT_EQ(editedText(u"a\0b"sv, u"ab"), u"ab"sv);
    EXPECT_EQ(editedText(u"a\u2400b"sv, u"a\u2400bc"), u"a\u2400bc"sv);
    EXPECT_EQ(editedText(u"aaa"sv, u"aa"), u"aa"sv);
    EXPECT_EQ(editedText(u""sv, u"new"), u"new"sv);
    EXPECT_EQ(editedText(u"old"sv, u""), u""sv);
}

TEST(ShownLine, IsOneLineCutBetweenCharacters) {
    EXPECT_EQ(shownLine(u"a\tb\r\nc\0d"sv, 100), u"a b  c\u2400d");
    EXPECT_EQ(shownLine(u"ab\U0001F600", 3), u"ab");
    EXPECT_EQ(shownLine(u"ab\U0001F600", 4), u"ab\U0001F600");
}

using Texts = GalleryTest;

TEST_F(Texts, AnEditKeepsTheNullsThatTheUserLeft) {
    gallery->box->setText(u"one\0two"sv);
    gallery->box->focus();
    pump();
    ::SendMessageW(window(*gallery->box), EM_SETSEL, 0, 0);
    type(form(), u"x");
    EXPECT_EQ(gallery->box->text(), u"xone\0two"sv);
}

TEST_F(Texts, OnlyTheUsersEditsAreReported) {
    int changes = 0;
    gallery->box->onChange.connect([&] { ++changes; });
    gallery->notes->onChange.connect([&] { ++changes; });
    gallery->box->setText(u"by program");
    gallery->notes->setText(u"by program\r\ntoo");
    gallery->box->setReadOnly(true);
    gallery->box->selectAll();
    pump();
    EXPECT_EQ(changes, 0);
}

TEST_F(Texts, AMegabyteIsShownAndKept) {
    std::u16string text;
    while (text.size() < 500'000)
        text += u"A line of text that is neither long nor short.\r\n";
    gallery->notes->setText(text);
    pump();
    EXPECT_TRUE(textOf(window(*gallery->notes)) == text);
    gallery->notes->focus();
    ::SendMessageW(window(*gallery->notes), EM_SETSEL, 0, 0);
    type(form(), u"x");
    EXPECT_EQ(gallery->notes->text().size(), text.size() + 1);
    gallery->label->setText(text);
    gallery->form->setText(text);
    gallery->ok->setText(text);
    pump();
    EXPECT_TRUE(gallery->form->text() == text);
}

TEST_F(Texts, ALongTextTypedIntoABoxHasNoLimit) {
    const std::u16string text(40'000, u'y');
    gallery->box->setText(text);
    gallery->box->focus();
    ::SendMessageW(window(*gallery->box), EM_SETSEL, 40'000, 40'000);
    type(form(), u"z");
    EXPECT_EQ(gallery->box->text().size(), 40'001U);
}

TEST_F(Texts, CtrlASelectsAll) {
    gallery->notes->focus();
    press(form(), {ui::key('A'), ui::Modifiers::Control});
    DWORD first = 1, last = 0;
    ::SendMessageW(window(*gallery->notes), EM_GETSEL, reinterpret_cast<WPARAM>(&first),
                   reinterpret_cast<LPARAM>(&last));
    EXPECT_EQ(first, 0U);
    EXPECT_GE(last, gallery->notes->text().size());
}

TEST_F(Texts, ToolTipsComeAndGo) {
    const auto tools = [this] {
        int count = 0;
        ::EnumThreadWindows(
            ::GetCurrentThreadId(),
            [](HWND tip, LPARAM sum) -> BOOL {
                if (::GetWindow(tip, GW_OWNER) != nullptr)
                    *reinterpret_cast<int*>(sum) +=
                        static_cast<int>(::SendMessageW(tip, TTM_GETTOOLCOUNT, 0, 0));
                return TRUE;
            },
            reinterpret_cast<LPARAM>(&count));
        return count;
    };
    const int before = tools();
    EXPECT_GE(before, 1);
    gallery->ok->setToolTip(std::u16string(1'000'000, u't'));
    EXPECT_EQ(tools(), before + 1);
    gallery->box->setToolTip(u"");
    gallery->ok->setToolTip(u"");
    EXPECT_EQ(tools(), before - 1);
}

TEST(MenuTexts, ShortcutsReadAsOnMenus) {
    using ui::Key;
    using ui::Modifiers;
    EXPECT_EQ(shortcutText({}), u"");
    EXPECT_EQ(shortcutText({ui::key('C'), Modifiers::Control}), u"Ctrl+C");
    EXPECT_EQ(shortcutText({Key::F5, Modifiers::Control | Modifiers::Shift}), u"Ctrl+Shift+F5");
    EXPECT_EQ(shortcutText({Key::F10, Modifiers::Alt}), u"Alt+F10");
    EXPECT_EQ(shortcutText({Key::Delete}), u"Del");
}

TEST_F(Texts, MenusLeaveOutWhatIsHiddenAndIdleSeparators) {
    ui::Menu menu(*gallery->list);
    menu.addSeparator();
    menu.add(u"one", u"One");
    menu.addSeparator();
    menu.add(u"two", u"Two").setVisible(false);
    menu.addSeparator();
    ui::MenuItem& more = menu.add(u"more", u"More");
    more.add(u"three", u"Three");
    menu.addSeparator();
    const NativeMenu native = buildMenu(menu, false);
    EXPECT_EQ(::GetMenuItemCount(native.handle.get()), 3);
    ASSERT_EQ(native.commands.size(), 2U);
    EXPECT_EQ(resolve(menu, native.commands[1])->name(), u"three");
    EXPECT_EQ(commandPath(native, kFirstCommand + 2), std::nullopt);
    EXPECT_EQ(resolve(menu, {99}), nullptr);
    ui::Menu empty(*gallery->list);
    EXPECT_FALSE(buildMenu(empty, false).handle);
}

}  // namespace quorel::win32::testing
