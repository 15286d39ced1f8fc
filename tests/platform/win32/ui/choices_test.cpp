// The native combo box, check box and progress bar where the portable suite cannot look.

#include "platform/win32/ui/system_headers.h"
#include "tests/platform/win32/ui/windows_fixture.h"

namespace quorel::win32::testing {

using namespace ui::literals;
using Choices = GalleryTest;
using ui::Key;

TEST_F(Choices, EscInAnOpenListTakesTheChoiceBackInSilence) {
    int clicks = 0, cancels = 0;
    gallery->kind->onClick.connect([&] { ++clicks; });
    gallery->cancel->onClick.connect([&] { ++cancels; });
    const HWND box = window(*gallery->kind);
    gallery->kind->focus();
    press(form(), {Key::F4});
    EXPECT_NE(::SendMessageW(box, CB_GETDROPPEDSTATE, 0, 0), 0);
    press(form(), {Key::Down});
    press(form(), {Key::Escape});
    EXPECT_EQ(::SendMessageW(box, CB_GETDROPPEDSTATE, 0, 0), 0);
    EXPECT_EQ(clicks, 0);
    EXPECT_EQ(cancels, 0);
    EXPECT_EQ(gallery->kind->listIndex(), 0U);
    EXPECT_EQ(::SendMessageW(box, CB_GETCURSEL, 0, 0), 0);
    press(form(), {Key::Escape});
    EXPECT_EQ(cancels, 1);
}

TEST_F(Choices, WalkingThroughAnOpenListChoosesOnceAtTheEnd) {
    std::vector<std::u16string> chosen;
    gallery->kind->onClick.connect([&] { chosen.push_back(gallery->kind->text()); });
    gallery->kind->focus();
    press(form(), {Key::F4});
    press(form(), {Key::Down});
    press(form(), {Key::Down});
    EXPECT_TRUE(chosen.empty());
    press(form(), {Key::Enter});
    EXPECT_EQ(chosen, std::vector<std::u16string>{u"Conflicts with"});
}

TEST_F(Choices, AClickIntoTheLineOfAnEditableBoxMovesTheFocusThere) {
    gallery->ok->focus();
    COMBOBOXINFO info{};
    info.cbSize = sizeof(info);
    ASSERT_NE(::GetComboBoxInfo(window(*gallery->edited), &info), FALSE);
    click(info.hwndItem, {4, 4});
    EXPECT_EQ(gallery->form->focusedControl(), gallery->edited);
    press(form(), {Key::Tab});
    EXPECT_NE(gallery->form->focusedControl(), gallery->edited);
}

TEST_F(Choices, HostileItemsAreShownAndChosen) {
    const std::u16string nul(u"a\0b", 3);
    gallery->edited->setItems({nul, u"\U0001F600", std::u16string(5'000, u'x')});
    gallery->edited->focus();
    press(form(), {Key::Down});
    EXPECT_EQ(gallery->edited->text(), nul);
    EXPECT_EQ(textOf(window(*gallery->edited)), u"a\u2400b");
    gallery->edited->setText(nul);
    EXPECT_EQ(gallery->edited->listIndex(), 0U);
}

TEST_F(Choices, TheOpenListIsNoPartOfThePlaceOfTheBox) {
    gallery->kind->setBounds({150_tw, 150_tw, 1500_tw, 375_tw});
    RECT outer{};
    ::GetWindowRect(window(*gallery->kind), &outer);
    EXPECT_EQ(outer.right - outer.left, 100);
    EXPECT_EQ(outer.bottom - outer.top, 25);
    RECT dropped{};
    ::SendMessageW(window(*gallery->kind), CB_GETDROPPEDCONTROLRECT, 0, reinterpret_cast<LPARAM>(&dropped));
    EXPECT_GT(dropped.bottom - dropped.top, 60);
}

}  // namespace quorel::win32::testing
