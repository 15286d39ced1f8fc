// The keyboard in modeless windows whose messages a host pumps with its own loop.

#include <array>

#include "tests/platform/win32/ui/windows_fixture.h"

namespace quorel::win32::testing {

using ui::Key;
using ui::Modifiers;

namespace {

/// A host's window with an edit control and an accelerator table that it applies to every message, as hosts
/// do.
class Host {
  public:
    Host()
        : window_(::CreateWindowExW(0, L"STATIC", L"host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 300, 200,
                                    nullptr, nullptr, nullptr, nullptr)),
          edit_(::CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_VISIBLE | ES_MULTILINE, 0, 0, 200, 100,
                                  window_, nullptr, nullptr, nullptr)) {
        std::array<ACCEL, 2> keys{{{FVIRTKEY, VK_F5, 1}, {FVIRTKEY, VK_RETURN, 2}}};
        accelerators_ = ::CreateAcceleratorTableW(keys.data(), static_cast<int>(keys.size()));
    }
    ~Host() {
        ::DestroyAcceleratorTable(accelerators_);
        ::DestroyWindow(window_);
    }
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;

    [[nodiscard]] HWND edit() const noexcept { return edit_; }

    /// Counts what the accelerators took.
    int pumpWithAccelerators() {
        int taken = 0;
        MSG message{};
        while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
            if (::TranslateAcceleratorW(window_, accelerators_, &message) != 0) {
                ++taken;
                continue;
            }
            ::TranslateMessage(&message);
            ::DispatchMessageW(&message);
        }
        return taken;
    }

  private:
    HWND window_;
    HWND edit_;
    HACCEL accelerators_ = nullptr;
};

}  // namespace

using ForeignLoop = GalleryTest;

TEST_F(ForeignLoop, TabEnterAndEscWorkAsInADialog) {
    int ok = 0, cancel = 0;
    gallery->ok->onClick.connect([&] { ++ok; });
    gallery->cancel->onClick.connect([&] { ++cancel; });
    EXPECT_EQ(::GetFocus(), window(*gallery->box));
    press(form(), {Key::Enter});
    press(form(), {Key::Escape});
    EXPECT_EQ(ok, 1);
    EXPECT_EQ(cancel, 1);
    press(form(), {Key::Tab});
    EXPECT_EQ(::GetFocus(), window(*gallery->notes));
    press(form(), {Key::Tab, Modifiers::Shift});
    EXPECT_EQ(::GetFocus(), window(*gallery->box));
    EXPECT_EQ(gallery->box->text(), u"libquorel0");
}

TEST_F(ForeignLoop, TypedCharactersArriveOnce) {
    std::u16string changes;
    gallery->box->onChange.connect([&] { changes += u'.'; });
    type(form(), u"ab");
    EXPECT_EQ(gallery->box->text(), u"ab");
    EXPECT_EQ(changes, u"..");
}

TEST_F(ForeignLoop, EnterMakesALineInABoxOfSeveral) {
    int ok = 0;
    gallery->ok->onClick.connect([&] { ++ok; });
    gallery->notes->setText(u"");
    gallery->notes->focus();
    type(form(), u"a");
    press(form(), {Key::Enter});
    type(form(), u"b");
    EXPECT_EQ(gallery->notes->text(), u"a\r\nb");
    EXPECT_EQ(ok, 0);
}

TEST_F(ForeignLoop, TheHostsAcceleratorsDoNotTakeKeysOfOurWindows) {
    Host host;
    int keys = 0, ok = 0;
    gallery->form->onKeyDown.connect([&](ui::KeyEvent& event) { keys += event.chord.key == Key::F5; });
    gallery->ok->onClick.connect([&] { ++ok; });
    ::SetActiveWindow(form());
    pump();
    ::PostMessageW(window(*gallery->box), WM_KEYDOWN, VK_F5, 1);
    ::PostMessageW(window(*gallery->box), WM_KEYDOWN, VK_RETURN, 1);
    EXPECT_EQ(host.pumpWithAccelerators(), 0);
    EXPECT_EQ(keys, 1);
    EXPECT_EQ(ok, 1);
}

TEST_F(ForeignLoop, TheHostsOwnWindowsKeepTheirKeys) {
    Host host;
    ::SetFocus(host.edit());
    pump();
    ::PostMessageW(host.edit(), WM_KEYDOWN, VK_F5, 1);
    EXPECT_EQ(host.pumpWithAccelerators(), 1);
    ::PostMessageW(host.edit(), WM_KEYDOWN, VK_TAB, 1);
    host.pumpWithAccelerators();
    EXPECT_EQ(textOf(host.edit()), u"\t");
}

TEST_F(ForeignLoop, TheHookIsThereOnlyWhileAFormIsShown) {
    const std::int64_t shown = liveCounts().hooks;
    Gallery second(*desktop);
    second.form->show(ui::Modality::Modeless);
    EXPECT_EQ(liveCounts().hooks, shown);
    second.form->unload();
    gallery->form->hide();
    EXPECT_EQ(liveCounts().hooks, shown - 1);
    gallery->form->show(ui::Modality::Modeless);
    EXPECT_EQ(liveCounts().hooks, shown);
}

TEST_F(ForeignLoop, ShiftF10OpensTheContextMenu) {
    int asked = 0;
    gallery->side->onContextMenu.connect([&] { ++asked; });
    gallery->side->focus();
    pump();
    press(form(), {Key::F10, Modifiers::Shift});
    EXPECT_EQ(asked, 1);
}

TEST_F(ForeignLoop, TheKeyboardMakesTheFocusVisible) {
    ::SendMessageW(form(), WM_CHANGEUISTATE, MAKEWPARAM(UIS_SET, UISF_HIDEFOCUS | UISF_HIDEACCEL), 0);
    press(form(), {Key::Tab});
    EXPECT_EQ(::SendMessageW(form(), WM_QUERYUISTATE, 0, 0) & (UISF_HIDEFOCUS | UISF_HIDEACCEL), 0);
}

TEST_F(ForeignLoop, TheSplitterMovesByArrowKeys) {
    gallery->splitter->focus();
    pump();
    const ui::Twips before = gallery->split;
    press(form(), {Key::Right});
    EXPECT_GT(gallery->split, before);
    press(form(), {Key::Left});
    EXPECT_EQ(gallery->split, before);
    press(form(), {Key::Up});
    EXPECT_EQ(gallery->split, before);
}

TEST_F(ForeignLoop, EscTakesADragBackBeforeItCancelsTheWindow) {
    int cancel = 0;
    gallery->cancel->onClick.connect([&] { ++cancel; });
    const ui::Twips before = gallery->split;
    const HWND bar = window(*gallery->splitter);
    ::PostMessageW(bar, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(2, 20));
    ::PostMessageW(bar, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(42, 20));
    pump();
    EXPECT_GT(gallery->split, before);
    press(form(), {Key::Escape});
    EXPECT_EQ(gallery->split, before);
    EXPECT_EQ(cancel, 0);
    press(form(), {Key::Escape});
    EXPECT_EQ(cancel, 1);
}

TEST_F(ForeignLoop, TheDefaultLookGoesWithTheFocusedButton) {
    const auto looksDefault = [this](const ui::Button& button) {
        return (::GetWindowLongPtrW(window(button), GWL_STYLE) & BS_TYPEMASK) == BS_DEFPUSHBUTTON;
    };
    EXPECT_TRUE(looksDefault(*gallery->ok));
    gallery->cancel->focus();
    pump();
    EXPECT_FALSE(looksDefault(*gallery->ok));
    EXPECT_TRUE(looksDefault(*gallery->cancel));
    gallery->box->focus();
    pump();
    EXPECT_TRUE(looksDefault(*gallery->ok));
    EXPECT_FALSE(looksDefault(*gallery->cancel));
}

}  // namespace quorel::win32::testing
