// What test tools and screen readers see of the windows from outside.

#include <array>

#include "platform/win32/text.h"
#include "tests/platform/win32/ui/windows_fixture.h"

namespace quorel::win32::testing {

using ControlNames = GalleryTest;

namespace {

[[nodiscard]] std::u16string askName(HWND window) {
    std::array<wchar_t, 64> buffer{};
    const LRESULT units = ::SendMessageW(window, ::RegisterWindowMessageW(L"WM_GETCONTROLNAME"),
                                         buffer.size(), reinterpret_cast<LPARAM>(buffer.data()));
    return units > 0 ? std::u16string(narrowView(buffer.data(), static_cast<std::size_t>(units) - 1))
                     : std::u16string(u"?");
}

[[nodiscard]] std::u16string classOf(HWND window) {
    std::array<wchar_t, 64> name{};
    ::GetClassNameW(window, name.data(), static_cast<int>(name.size()));
    return std::u16string(narrowView(name.data()));
}

}  // namespace

TEST_F(ControlNames, EveryControlAnswersItsName) {
    for (const auto& child : gallery->form->children())
        EXPECT_EQ(askName(window(*child)), child->name());
    EXPECT_EQ(askName(form()), u"frmGallery");
}

TEST_F(ControlNames, TooLittleRoomCopiesNothing) {
    const UINT ask = ::RegisterWindowMessageW(L"WM_GETCONTROLNAME");
    std::array<wchar_t, 8> buffer{L'#'};
    EXPECT_EQ(::SendMessageW(window(*gallery->box), ask, 7, reinterpret_cast<LPARAM>(buffer.data())), -1);
    EXPECT_EQ(buffer[0], L'#');
    EXPECT_EQ(::SendMessageW(window(*gallery->box), ask, 8, reinterpret_cast<LPARAM>(buffer.data())), 8);
    EXPECT_EQ(::SendMessageW(window(*gallery->box), ask, 0, 0), 16);
}

TEST_F(ControlNames, AFormsClassIsItsNameAndControlsAreTheSystemsOwn) {
    EXPECT_EQ(classOf(form()), u"frmGallery");
    EXPECT_EQ(classOf(window(*gallery->list)), u"SysListView32");
    EXPECT_EQ(classOf(window(*gallery->box)), u"Edit");
    EXPECT_EQ(classOf(window(*gallery->ok)), u"Button");
    EXPECT_EQ(classOf(window(*gallery->label)), u"Static");
    EXPECT_EQ(classOf(window(*gallery->status)), u"msctls_statusbar32");
}

TEST_F(ControlNames, ChildrenStandInTabOrderEvenIfMadeLate) {
    gallery->box->setVisible(false);
    gallery->label->setVisible(false);
    gallery->form->unload();
    gallery->form->show(ui::Modality::Modeless);
    gallery->box->setVisible(true);
    gallery->label->setVisible(true);
    std::vector<HWND> expected;
    for (const auto& child : gallery->form->children())
        expected.push_back(window(*child));
    std::vector<HWND> found;
    for (HWND child = ::GetWindow(form(), GW_CHILD); child != nullptr;
         child = ::GetWindow(child, GW_HWNDNEXT))
        found.push_back(child);
    EXPECT_EQ(found, expected);
}

using WindowClassNames = WindowsTest;

TEST_F(WindowClassNames, AreGivenBackWithTheDesktop) {
    {
        Gallery gallery(*desktop, u"frmOnlyHere");
        gallery.form->show(ui::Modality::Modeless);
        pump();
    }
    WNDCLASSEXW found{};
    found.cbSize = sizeof(found);
    EXPECT_NE(::GetClassInfoExW(::GetModuleHandleW(nullptr), L"frmOnlyHere", &found), FALSE);
    desktop.reset();
    EXPECT_EQ(::GetClassInfoExW(::GetModuleHandleW(nullptr), L"frmOnlyHere", &found), FALSE);
}

TEST_F(WindowClassNames, OddFormNamesStillGiveAWindow) {
    const std::vector<std::u16string> names = {u"", u"Edit", std::u16string(5000, u'n'),
                                               std::u16string(u"a\0b\\c", 5),
                                               std::u16string(1, char16_t{0xD800})};
    for (const std::u16string& name : names) {
        Gallery gallery(*desktop, name);
        gallery.form->show(ui::Modality::Modeless);
        pump();
        EXPECT_NE(::IsWindowVisible(windowFor(*gallery.form)), FALSE);
        EXPECT_EQ(textOf(windowFor(*gallery.box)), u"libquorel0");
    }
}

TEST_F(WindowClassNames, TwoDesktopsShareThem) {
    Gallery first(*desktop);
    first.form->show(ui::Modality::Modeless);
    {
        WindowsDesktop other(::GetModuleHandleW(nullptr));
        Gallery second(other);
        second.form->show(ui::Modality::Modeless);
        pump();
    }
    first.form->unload();
    first.form->show(ui::Modality::Modeless);
    pump();
    EXPECT_NE(::IsWindowVisible(windowFor(*first.form)), FALSE);
}

}  // namespace quorel::win32::testing
