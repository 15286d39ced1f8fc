// Focus, tab order, access keys, shortcuts, default and cancel buttons.

#include "tests/conformance/window.h"

namespace quorel::conformance {

using ui::Key;
using ui::KeyChord;
using ui::Modality;
using ui::Modifiers;

namespace {
constexpr KeyChord kTab{Key::Tab};
constexpr KeyChord kBackTab{Key::Tab, Modifiers::Shift};
constexpr KeyChord kEnter{Key::Enter};
constexpr KeyChord kEscape{Key::Escape};
}  // namespace

TEST_F(Conformance, TheFocusBeginsAtTheFirstTabStopOrWhereItWasPut) {
    Window window(backend->desktop());
    window.form->show(Modality::Modeless);
    backend->settle();
    EXPECT_EQ(window.form->focusedControl(), &window.box);
    Window other(backend->desktop());
    other.cancel.focus();
    other.form->show(Modality::Modeless);
    backend->settle();
    EXPECT_EQ(other.form->focusedControl(), &other.cancel);
}

TEST_F(Conformance, TabGoesRoundInTheOrderOfAdding) {
    Window window(backend->desktop());
    window.form->show(Modality::Modeless);
    backend->click(window.box);
    const std::vector<ui::Control*> order = {&window.ok,    &window.cancel,   &window.list,
                                             &window.inner, &window.splitter, &window.box};
    for (ui::Control* const next : order) {
        backend->press(*window.form, kTab);
        EXPECT_EQ(window.form->focusedControl(), next);
    }
    backend->press(*window.form, kBackTab);
    EXPECT_EQ(window.form->focusedControl(), &window.splitter);
}

TEST_F(Conformance, TabPassesOverWhatCannotBeUsed) {
    Window window(backend->desktop());
    window.ok.setEnabled(false);
    window.cancel.setVisible(false);
    window.list.setTabStop(false);
    window.panel.setEnabled(false);
    window.form->show(Modality::Modeless);
    backend->click(window.box);
    backend->press(*window.form, kTab);
    EXPECT_EQ(window.form->focusedControl(), &window.splitter);
    backend->press(*window.form, kTab);
    EXPECT_EQ(window.form->focusedControl(), &window.box);
}

TEST_F(Conformance, TheFocusMovesOnFromWhatIsDisabledOrHidden) {
    Window window(backend->desktop());
    window.form->show(Modality::Modeless);
    backend->click(window.box);
    window.box.setEnabled(false);
    backend->settle();
    EXPECT_EQ(window.form->focusedControl(), &window.ok);
    window.ok.setVisible(false);
    backend->settle();
    EXPECT_EQ(window.form->focusedControl(), &window.cancel);
    window.logEvents();
    backend->press(*window.form, {Key::Space});
    EXPECT_EQ(window.log, Log{"cancel click"});
}

TEST_F(Conformance, EnterPressesTheDefaultButtonEscTheCancelButton) {
    Window window(backend->desktop());
    window.form->setDefaultButton(&window.ok);
    window.form->setCancelButton(&window.cancel);
    window.form->show(Modality::Modeless);
    backend->click(window.box);
    window.logEvents();
    backend->press(*window.form, kEnter);
    backend->press(*window.form, kEscape);
    EXPECT_EQ(window.log, (Log{"ok click", "cancel click"}));
    EXPECT_EQ(window.form->focusedControl(), &window.box);
    window.ok.setEnabled(false);
    backend->press(*window.form, kEnter);
    EXPECT_EQ(window.log, (Log{"ok click", "cancel click"}));
}

TEST_F(Conformance, EnterPressesTheButtonThatHasTheFocus) {
    Window window(backend->desktop());
    window.form->setDefaultButton(&window.ok);
    window.form->show(Modality::Modeless);
    window.cancel.focus();
    window.logEvents();
    backend->press(*window.form, kEnter);
    backend->press(*window.form, {Key::Space});
    EXPECT_EQ(window.log, (Log{"cancel click", "cancel click"}));
}

TEST_F(Conformance, AHandlerMayTakeAKey) {
    Window window(backend->desktop());
    window.form->setDefaultButton(&window.ok);
    window.form->show(Modality::Modeless);
    backend->click(window.box);
    window.logEvents();
    KeyChord seen;
    window.box.onKeyDown.connect([&](ui::KeyEvent& event) {
        seen = event.chord;
        event.handled = true;
    });
    backend->press(*window.form, kEnter);
    EXPECT_EQ(seen, kEnter);
    EXPECT_EQ(window.log, Log{});
}

TEST_F(Conformance, TheFormHearsTheKeysThatTheControlLeaves) {
    Window window(backend->desktop());
    window.form->show(Modality::Modeless);
    backend->click(window.box);
    Log order;
    window.box.onKeyDown.connect([&](ui::KeyEvent&) { order.emplace_back("box"); });
    window.form->onKeyDown.connect([&](ui::KeyEvent& event) {
        order.emplace_back("form");
        event.handled = true;
    });
    backend->press(*window.form, {Key::F5});
    EXPECT_EQ(order, (Log{"box", "form"}));
}

TEST_F(Conformance, AccessKeysClickButtonsAndGoPastLabels) {
    Window window(backend->desktop());
    window.form->show(Modality::Modeless);
    backend->click(window.inner);
    window.logEvents();
    backend->press(*window.form, {ui::key('N'), Modifiers::Alt});
    EXPECT_EQ(window.form->focusedControl(), &window.box);
    EXPECT_EQ(window.log, Log{"box got"});
    backend->press(*window.form, {ui::key('C'), Modifiers::Alt});
    EXPECT_EQ(window.form->focusedControl(), &window.cancel);
    EXPECT_EQ(window.log, (Log{"box got", "box lost", "cancel click"}));
}

TEST_F(Conformance, ShortcutsChooseMenuEntriesBeforeAnyHandler) {
    Window window(backend->desktop());
    window.form->show(Modality::Modeless);
    backend->click(window.box);
    int keys = 0;
    window.box.onKeyDown.connect([&](ui::KeyEvent&) { ++keys; });
    window.logEvents();
    backend->press(*window.form, {ui::key('N'), Modifiers::Control});
    EXPECT_EQ(window.log, Log{"new"});
    EXPECT_EQ(keys, 0);
    window.create.setEnabled(false);
    backend->press(*window.form, {ui::key('N'), Modifiers::Control});
    EXPECT_EQ(window.log, Log{"new"});
    EXPECT_EQ(keys, 1);
}

}  // namespace quorel::conformance
