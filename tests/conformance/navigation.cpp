// Back and forward, and menus that the program pops up.

#include "tests/conformance/window.h"

namespace quorel::conformance {

using ui::Key;
using ui::KeyChord;
using ui::Modality;
using ui::Modifiers;
using ui::Navigation;

namespace {

constexpr KeyChord kAltLeft{Key::Left, Modifiers::Alt};
constexpr KeyChord kAltRight{Key::Right, Modifiers::Alt};

void logNavigation(Window& window) {
    window.form->onNavigate.connect(
        [&](Navigation where) { window.log.emplace_back(where == Navigation::Back ? "back" : "forward"); });
}

}  // namespace

TEST_F(Conformance, TheMousesOwnButtonsGoBackAndForwardWhereverTheyArePressed) {
    Window window(backend->desktop());
    window.form->show(Modality::Modeless);
    logNavigation(window);
    backend->navigate(window.list, Navigation::Back);
    backend->navigate(window.inner, Navigation::Forward);
    backend->navigate(*window.form, Navigation::Back);
    EXPECT_EQ(window.log, (Log{"back", "forward", "back"}));
}

TEST_F(Conformance, AltWithTheArrowsGoesBackAndForward) {
    Window window(backend->desktop());
    window.form->show(Modality::Modeless);
    logNavigation(window);
    for (ui::Control* const focused :
         {static_cast<ui::Control*>(&window.box), static_cast<ui::Control*>(&window.list),
          static_cast<ui::Control*>(&window.ok)}) {
        focused->focus();
        window.log.clear();
        backend->press(*window.form, kAltLeft);
        backend->press(*window.form, kAltRight);
        EXPECT_EQ(window.log, (Log{"back", "forward"}));
        EXPECT_EQ(window.form->focusedControl(), focused);
    }
}

TEST_F(Conformance, AHandlerOrAMenuMayTakeTheKeysOfNavigation) {
    Window window(backend->desktop());
    window.file.add(u"mnuBack", u"&Back", kAltLeft).onClick.connect([&] { window.log.emplace_back("menu"); });
    window.form->onKeyDown.connect([&](ui::KeyEvent& event) { event.handled = event.chord == kAltRight; });
    window.form->show(Modality::Modeless);
    logNavigation(window);
    backend->press(*window.form, kAltLeft);
    backend->press(*window.form, kAltRight);
    EXPECT_EQ(window.log, Log{"menu"});
}

TEST_F(Conformance, NavigationMayCloseItsForm) {
    Window window(backend->desktop());
    window.form->onNavigate.connect([&](Navigation) { window.form->unload(); });
    window.form->show(Modality::Modeless);
    backend->navigate(window.list, Navigation::Back);
    EXPECT_FALSE(window.form->isLoaded());
}

TEST_F(Conformance, AMenuPoppedUpByProgramIsChosenFrom) {
    Window window(backend->desktop());
    window.form->show(Modality::Modeless);
    backend->settle();
    window.logEvents();
    backend->duringMenu(*window.form, window.list.contextMenu(), u"mnuCopy");
    window.list.popUpMenu(window.list.contextMenu());
    EXPECT_EQ(window.log, Log{"copy"});
    backend->duringMenu(*window.form, window.file, u"mnuNew");
    window.ok.popUpMenu(window.file, ui::MenuPlace::Control);
    EXPECT_EQ(window.log, (Log{"copy", "new"}));
    backend->duringMenu(*window.form, window.file, u"");
    window.ok.popUpMenu(window.file, ui::MenuPlace::Control);
    EXPECT_EQ(window.log, (Log{"copy", "new"}));
}

TEST_F(Conformance, AMenuOfAnotherFormCanBePoppedUp) {
    Window window(backend->desktop());
    const auto holder = std::make_shared<ui::Form>(backend->desktop(), u"frmMenus");
    ui::MenuItem& actions = holder->menuBar().add(u"mnuActions", u"Actions");
    actions.add(u"mnuShow", u"Show");
    int chosen = 0;
    actions.add(u"mnuEdit", u"Edit").onClick.connect([&] { ++chosen; });
    window.form->show(Modality::Modeless);
    backend->settle();
    backend->duringMenu(*window.form, actions, u"mnuEdit");
    window.list.popUpMenu(actions);
    EXPECT_EQ(chosen, 1);
    EXPECT_EQ(holder->peer(), nullptr);
}

TEST_F(Conformance, NoMenuPopsUpWhereNothingCanBeSeenOrUsed) {
    Window window(backend->desktop());
    window.list.popUpMenu(window.list.contextMenu());
    window.form->show(Modality::Modeless);
    window.list.contextMenu().find(u"mnuCopy")->setVisible(false);
    window.list.popUpMenu(window.list.contextMenu());
    window.ok.setEnabled(false);
    window.ok.popUpMenu(window.file);
    backend->settle();
    EXPECT_EQ(window.log, Log{});
}

TEST_F(Conformance, AnEntryOfAPoppedUpMenuMayCloseTheForm) {
    Window window(backend->desktop());
    window.create.onClick.connect([&] { window.form->unload(); });
    window.form->show(Modality::Modeless);
    backend->settle();
    backend->duringMenu(*window.form, window.file, u"mnuNew");
    window.ok.popUpMenu(window.file, ui::MenuPlace::Control);
    EXPECT_FALSE(window.form->isLoaded());
}

}  // namespace quorel::conformance
