// Clicks, texts, menus: the same events in the same order, and none that no user caused.

#include <algorithm>
#include <stdexcept>

#include "tests/conformance/window.h"

namespace quorel::conformance {

using namespace ui::literals;
using ui::Modality;

TEST_F(Conformance, SettersRaiseNothing) {
    Window window(backend->desktop());
    window.form->show(Modality::Modeless);
    backend->settle();
    window.logEvents();
    window.box.setText(u"set");
    window.box.selectAll();
    window.ok.focus();
    window.box.focus();
    window.ok.setEnabled(false);
    window.ok.setEnabled(true);
    window.list.selectRow(2);
    window.list.rowsChanged();
    window.list.setColumns({{u"only", 1000_tw}});
    window.box.setVisible(false);
    window.box.setVisible(true);
    window.label.setBackground(ui::Colour{255, 0, 0});
    window.create.setChecked(true);
    window.form->setText(u"other");
    backend->settle();
    EXPECT_EQ(window.log, Log{});
}

TEST_F(Conformance, AClickMovesTheFocusBeforeItClicks) {
    Window window(backend->desktop());
    window.form->show(Modality::Modeless);
    backend->click(window.box);
    window.logEvents();
    backend->click(window.ok);
    EXPECT_EQ(window.log, (Log{"box lost", "ok got", "ok click"}));
    EXPECT_EQ(window.form->focusedControl(), &window.ok);
}

TEST_F(Conformance, APictureBoxIsClickedWithoutTakingTheFocus) {
    Window window(backend->desktop());
    window.form->show(Modality::Modeless);
    backend->click(window.box);
    window.logEvents();
    backend->click(window.picture);
    EXPECT_EQ(window.log, Log{"picture click"});
    EXPECT_EQ(window.form->focusedControl(), &window.box);
}

TEST_F(Conformance, WhatIsHiddenOrDisabledCannotBeUsed) {
    Window window(backend->desktop());
    window.form->show(Modality::Modeless);
    window.logEvents();
    window.ok.setEnabled(false);
    EXPECT_THROW(backend->click(window.ok), std::runtime_error);
    window.ok.setEnabled(true);
    window.ok.setVisible(false);
    EXPECT_THROW(backend->click(window.ok), std::runtime_error);
    window.panel.setEnabled(false);
    EXPECT_THROW(backend->enterText(window.inner, u"x"), std::runtime_error);
    window.panel.setEnabled(true);
    backend->enterText(window.inner, u"x");
    EXPECT_EQ(window.inner.text(), u"x");
    EXPECT_EQ(window.log.end(), std::find(window.log.begin(), window.log.end(), "ok click"));
}

TEST_F(Conformance, TypedTextIsChangedOnceAndKept) {
    Window window(backend->desktop());
    window.form->show(Modality::Modeless);
    backend->click(window.box);
    window.logEvents();
    backend->enterText(window.box, u"Grüße, 漢字 \U0001F600");
    EXPECT_EQ(window.log, Log{"box change"});
    EXPECT_EQ(window.box.text(), u"Grüße, 漢字 \U0001F600");
    EXPECT_EQ(backend->seenText(window.box), window.box.text());
}

TEST_F(Conformance, AReadOnlyBoxCannotBeEdited) {
    Window window(backend->desktop());
    window.box.setText(u"fixed");
    window.box.setReadOnly(true);
    window.form->show(Modality::Modeless);
    EXPECT_THROW(backend->enterText(window.box, u"x"), std::runtime_error);
    EXPECT_EQ(window.box.text(), u"fixed");
}

TEST_F(Conformance, HostileTextsAreShownAndKeptUnharmed) {
    const std::vector<std::u16string> texts = {
        u"",
        u"plain",
        u"\u05E9\u05DC\u05D5\u05DD \u0645\u0631\u062D\u0628\u0627",
        u"\U0001F468\u200D\U0001F469",
        std::u16string(u"lone ") + char16_t{0xD800} + u" and " + char16_t{0xDC00},
        std::u16string(u"before\0after", 12),
        std::u16string(20'000, u'x')};
    Window window(backend->desktop());
    window.form->show(Modality::Modeless);
    for (const std::u16string& text : texts) {
        for (ui::Control* const control :
             {static_cast<ui::Control*>(&window.label), static_cast<ui::Control*>(&window.box),
              static_cast<ui::Control*>(&window.ok), static_cast<ui::Control*>(window.form.get())}) {
            control->setText(text);
            backend->settle();
            EXPECT_EQ(control->text(), text);
            std::u16string shown = text;
            std::replace(shown.begin(), shown.end(), u'\0', u'\u2400');
            EXPECT_TRUE(backend->seenText(*control) == shown) << "a text of " << text.size() << " units";
        }
    }
    backend->click(window.box);
    backend->click(window.cancel);
    EXPECT_EQ(window.box.text().size(), 20'000U);
}

TEST_F(Conformance, AMenuEntryIsChosenAndRefusedWhenDisabledOrHidden) {
    Window window(backend->desktop());
    window.form->show(Modality::Modeless);
    window.logEvents();
    backend->chooseMenu(*window.form, u"mnuNew");
    EXPECT_EQ(window.log, Log{"new"});
    window.create.setEnabled(false);
    EXPECT_THROW(backend->chooseMenu(*window.form, u"mnuNew"), std::runtime_error);
    window.create.setEnabled(true);
    window.file.setVisible(false);
    EXPECT_THROW(backend->chooseMenu(*window.form, u"mnuNew"), std::runtime_error);
    window.file.setVisible(true);
    backend->chooseMenu(*window.form, u"mnuNew");
    EXPECT_EQ(window.log, (Log{"new", "new"}));
}

TEST_F(Conformance, MenuEntriesAddedLaterCanBeChosen) {
    Window window(backend->desktop());
    window.form->show(Modality::Modeless);
    int chosen = 0;
    window.file.add(u"mnuLate", u"&Late").onClick.connect([&] { ++chosen; });
    backend->chooseMenu(*window.form, u"mnuLate");
    EXPECT_EQ(chosen, 1);
}

TEST_F(Conformance, AContextMenuIsPreparedThenChosenFrom) {
    Window window(backend->desktop());
    window.form->show(Modality::Modeless);
    window.logEvents();
    window.list.onContextMenu.connect([&] { window.list.contextMenu().find(u"mnuCopy")->setEnabled(true); });
    window.list.contextMenu().find(u"mnuCopy")->setEnabled(false);
    backend->chooseContextMenu(window.list, u"mnuCopy");
    ASSERT_GE(window.log.size(), 2U);
    EXPECT_EQ(window.log[window.log.size() - 2], "context menu");
    EXPECT_EQ(window.log.back(), "copy");
}

TEST_F(Conformance, ASplitterOnlyReportsWhereItIsWanted) {
    Window window(backend->desktop());
    window.form->show(Modality::Modeless);
    const ui::Rect before = window.splitter.bounds();
    ui::Twips wanted{};
    window.splitter.onMove.connect([&](ui::Twips position) { wanted = position; });
    backend->dragSplitter(window.splitter, 3000_tw);
    EXPECT_EQ(wanted, 3000_tw);
    EXPECT_EQ(window.splitter.bounds(), before);
}

TEST_F(Conformance, TheClipboardHoldsWhatWasPutThere) {
    const std::u16string text = std::u16string(u"a\tb\r\n\U0001F600 ") + char16_t{0xDFFF};
    backend->desktop().setClipboardText(text);
    EXPECT_EQ(backend->desktop().clipboardText(), text);
}

}  // namespace quorel::conformance
