// Modal windows and message boxes among the windows of a thread.

#include "platform/ui/desktop.h"
#include "platform/win32/text.h"
#include "platform/win32/ui/open_file_dialog.h"
#include "tests/platform/win32/ui/windows_fixture.h"

namespace quorel::win32::testing {

using Modal = WindowsTest;

TEST_F(Modal, OtherWindowsOfTheThreadTakeNoInputMeanwhile) {
    const HWND host = ::CreateWindowExW(0, L"STATIC", L"host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 200,
                                        100, nullptr, nullptr, nullptr, nullptr);
    const HWND off = ::CreateWindowExW(0, L"STATIC", L"off", WS_OVERLAPPEDWINDOW | WS_VISIBLE | WS_DISABLED,
                                       0, 0, 200, 100, nullptr, nullptr, nullptr, nullptr);
    ::SetActiveWindow(host);
    Gallery gallery(*desktop);
    bool disabled = false;
    Errand errand([&] {
        disabled = ::IsWindowEnabled(host) == FALSE && ::GetActiveWindow() == windowFor(*gallery.form);
        gallery.form->hide();
    });
    gallery.form->show(ui::Modality::Modal);
    EXPECT_TRUE(errand.isDone());
    EXPECT_TRUE(disabled);
    EXPECT_NE(::IsWindowEnabled(host), FALSE);
    EXPECT_EQ(::IsWindowEnabled(off), FALSE);
    EXPECT_EQ(::GetActiveWindow(), host);
    ::DestroyWindow(off);
    ::DestroyWindow(host);
}

TEST_F(Modal, AFormEnabledMeanwhileStaysLockedUntilTheEnd) {
    Gallery other(*desktop);
    other.form->setEnabled(false);
    other.form->show(ui::Modality::Modeless);
    Gallery gallery(*desktop);
    bool locked = false;
    other.form->setEnabled(true);
    Errand errand([&] {
        other.form->setEnabled(false);
        other.form->setEnabled(true);
        locked = ::IsWindowEnabled(windowFor(*other.form)) == FALSE;
        gallery.form->unload();
    });
    gallery.form->show(ui::Modality::Modal);
    EXPECT_TRUE(locked);
    EXPECT_NE(::IsWindowEnabled(windowFor(*other.form)), FALSE);
}

TEST_F(Modal, AQuitMessageEndsTheShowAndIsPassedOn) {
    Gallery gallery(*desktop);
    Errand errand([] { ::PostQuitMessage(7); });
    gallery.form->show(ui::Modality::Modal);
    EXPECT_FALSE(gallery.form->isVisible());
    MSG message{};
    ASSERT_NE(::PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE), FALSE);
    EXPECT_EQ(message.wParam, 7U);
}

TEST_F(Modal, AMessageBoxShowsItsTextLocksTheOthersAndGivesTheAnswer) {
    Gallery gallery(*desktop);
    Gallery other(*desktop);
    gallery.form->show(ui::Modality::Modeless);
    other.form->show(ui::Modality::Modeless);
    pump();
    FoundBox box;
    bool locked = false;
    Errand errand([&] {
        box = openBox(L"QuorelUtility");
        locked = ::IsWindowEnabled(windowFor(*other.form)) == FALSE &&
                 ::IsWindowEnabled(windowFor(*gallery.form)) == FALSE;
        ::PostMessageW(box.window, WM_COMMAND, IDNO, 0);
    });
    const ui::MessageAnswer answer =
        desktop->showMessage({u"Error No: 91  'text'", u"QuorelUtility", 4 | 16}, gallery.form.get());
    EXPECT_EQ(answer, ui::MessageAnswer::No);
    EXPECT_EQ(box.text, u"Error No: 91  'text'");
    EXPECT_TRUE(locked);
    EXPECT_NE(::IsWindowEnabled(windowFor(*other.form)), FALSE);
    EXPECT_NE(::IsWindowEnabled(windowFor(*gallery.form)), FALSE);
}

TEST_F(Modal, ACancelledFileDialogGivesNothing) {
    Gallery gallery(*desktop);
    gallery.form->show(ui::Modality::Modeless);
    pump();
    bool locked = false;
    Errand errand([&] {
        locked = ::IsWindowEnabled(windowFor(*gallery.form)) == FALSE;
        ::PostMessageW(::FindWindowW(L"#32770", L"Open a repository"), WM_COMMAND, IDCANCEL, 0);
    });
    EXPECT_EQ(
        openFileDialog(*desktop, {u"Open a repository", {{u"Repositories", u"*.qrep"}}, u"C:\\", false}),
        std::nullopt);
    EXPECT_TRUE(errand.isDone());
    EXPECT_TRUE(locked);
    EXPECT_NE(::IsWindowEnabled(windowFor(*gallery.form)), FALSE);
}

TEST_F(Modal, AMessageBoxOfAHugeHostileTextStillOpens) {
    std::u16string text(1'000'000, u'x');
    text[3] = u'\0';
    text[4] = 0xD800;
    Errand errand([] { ::PostMessageW(::FindWindowW(L"#32770", L"huge"), WM_COMMAND, IDOK, 0); });
    EXPECT_EQ(desktop->showMessage({text, u"huge", 0}, nullptr), ui::MessageAnswer::Ok);
    EXPECT_TRUE(errand.isDone());
}

}  // namespace quorel::win32::testing
