// What only the portable state knows: the conformance suite has the rest.

#include "platform/ui/form.h"

#include <gtest/gtest.h>

#include "platform/headless/user.h"
#include "platform/ui/menu.h"
#include "platform/ui/tab_order.h"

namespace quorel::ui {

using headless::HeadlessDesktop;
using headless::HeadlessPeer;
using headless::User;

class FormTest : public ::testing::Test {
  protected:
    void TearDown() override { EXPECT_NO_THROW(desktop.verify()); }

    [[nodiscard]] static Change applied(Control& control) {
        return static_cast<HeadlessPeer*>(control.peer())->takeChanges();
    }

    HeadlessDesktop desktop;
    User user{desktop};
    std::shared_ptr<Form> form = std::make_shared<Form>(desktop, u"frmTest");
};

TEST_F(FormTest, SettersTellThePeerWhatHasChangedAndOnlyThen) {
    auto& box = form->add<TextBox>(u"Box");
    form->show(Modality::Modeless);
    static_cast<void>(applied(box));
    box.setText(u"x");
    EXPECT_EQ(applied(box), Change::Text);
    box.setText(u"x");
    EXPECT_EQ(applied(box), Change::None);
    box.setBounds({{0}, {0}, {10}, {10}});
    box.setToolTip(u"tip");
    box.setEnabled(false);
    EXPECT_EQ(applied(box), Change::Bounds | Change::ToolTip | Change::Enabled);
    box.setReadOnly(true);
    box.selectAll();
    EXPECT_EQ(applied(box), Change::Style | Change::Selection);
}

TEST_F(FormTest, WhatTheUserDoesIsNotToldBackToThePeer) {
    auto& box = form->add<TextBox>(u"Box");
    auto& list = form->add<VirtualList>(u"List");
    list.setColumns({{u"a", {100}}});
    form->show(Modality::Modeless);
    static_cast<void>(applied(box));
    static_cast<void>(applied(list));
    user.enterText(box, u"typed");
    user.resizeColumn(list, 0, {300});
    EXPECT_EQ(applied(box), Change::None);
    EXPECT_EQ(applied(list), Change::None);
    EXPECT_EQ(list.columns()[0].width, Twips{300});
}

TEST_F(FormTest, TenThousandControlsOfAHiddenPanelCostNoPeer) {
    auto& page = form->add<Panel>(u"Page");
    page.setVisible(false);
    for (int i = 0; i < 10'000; ++i)
        page.add<Button>(u"Button");
    form->show(Modality::Modeless);
    EXPECT_EQ(desktop.livePeers(), 1U);
    page.setVisible(true);
    EXPECT_EQ(desktop.livePeers(), 10'002U);
}

TEST_F(FormTest, NamesAreFoundDepthFirst) {
    auto& panel = form->add<Panel>(u"Panel");
    auto& inner = panel.add<Label>(u"Twin");
    form->add<Label>(u"Twin");
    EXPECT_EQ(form->find(u"Twin"), &inner);
    EXPECT_EQ(form->find(u"twin"), nullptr);
    EXPECT_EQ(inner.form(), form.get());
    EXPECT_EQ(inner.parent(), &panel);
}

TEST_F(FormTest, ShownAndUsableFollowTheAncestors) {
    auto& panel = form->add<Panel>(u"Panel");
    auto& button = panel.add<Button>(u"Button");
    EXPECT_FALSE(button.isShown());
    form->show(Modality::Modeless);
    EXPECT_TRUE(button.isUsable());
    panel.setEnabled(false);
    EXPECT_TRUE(button.isShown());
    EXPECT_FALSE(button.isUsable());
    panel.setVisible(false);
    EXPECT_FALSE(button.isShown());
    form->hide();
    panel.setVisible(true);
    EXPECT_FALSE(button.isShown());
}

TEST_F(FormTest, AFormThatIsDestroyedWhileShownDropsItsPeersInSilence) {
    auto& box = form->add<TextBox>(u"Box");
    int events = 0;
    form->onUnload.connect([&] { ++events; });
    box.onLostFocus.connect([&] { ++events; });
    form->show(Modality::Modeless);
    form.reset();
    EXPECT_EQ(desktop.livePeers(), 0U);
    EXPECT_EQ(events, 0);
}

TEST_F(FormTest, AMinimumEnlargesTheFormAndHoldsWhenSet) {
    form->setClientSize({{100}, {5000}});
    int resizes = 0;
    form->onResize.connect([&] { ++resizes; });
    form->setMinimumClientSize({{3000}, {3000}});
    EXPECT_EQ(form->clientSize(), (Size{{3000}, {5000}}));
    form->setClientSize({{1}, {1}});
    EXPECT_EQ(form->clientSize(), (Size{{3000}, {3000}}));
    EXPECT_EQ(resizes, 2);
}

TEST_F(FormTest, TheUsersPlaceIsRemembered) {
    EXPECT_FALSE(form->hasPosition());
    form->show(Modality::Modeless);
    form->userMoved({{300}, {450}}, true);
    EXPECT_TRUE(form->hasPosition());
    EXPECT_TRUE(form->isMaximized());
    EXPECT_EQ(form->bounds().left, Twips{300});
    EXPECT_EQ(form->bounds().top, Twips{450});
}

TEST_F(FormTest, ChangingTheDefaultButtonRedrawsBoth) {
    auto& first = form->add<Button>(u"First");
    auto& second = form->add<Button>(u"Second");
    form->setDefaultButton(&first);
    form->show(Modality::Modeless);
    static_cast<void>(applied(first));
    static_cast<void>(applied(second));
    form->setDefaultButton(&second);
    EXPECT_EQ(applied(first), Change::Style);
    EXPECT_EQ(applied(second), Change::Style);
}

TEST_F(FormTest, MenuChangesReachTheForm) {
    MenuItem& entry = form->menuBar().add(u"mnuFile", u"&File").add(u"mnuNew", u"&New");
    form->show(Modality::Modeless);
    static_cast<void>(applied(*form));
    entry.setChecked(true);
    EXPECT_EQ(applied(*form), Change::Menu);
    EXPECT_EQ(form->menuBar().find(u"mnuNew"), &entry);
    form->menuBar().find(u"mnuFile")->setEnabled(false);
    EXPECT_FALSE(entry.isChoosable());
    int clicks = 0;
    entry.onClick.connect([&] { ++clicks; });
    entry.userClicked();
    EXPECT_EQ(clicks, 0);
}

TEST_F(FormTest, AFormWithoutAStopHasNoNextOne) {
    form->add<Label>(u"Label");
    EXPECT_EQ(nextTabStop(*form, nullptr), nullptr);
    EXPECT_EQ(previousTabStop(*form, nullptr), nullptr);
    auto& only = form->add<TextBox>(u"Box");
    form->show(Modality::Modeless);
    EXPECT_EQ(nextTabStop(*form, &only), &only);
    EXPECT_EQ(previousTabStop(*form, &only), &only);
    EXPECT_EQ(nextTabStop(*form, form->find(u"Label")), &only);
}

TEST_F(FormTest, AnOnlyStopThatBecomesUnusableLeavesNoFocus) {
    auto& only = form->add<TextBox>(u"Box");
    form->show(Modality::Modeless);
    EXPECT_TRUE(only.hasFocus());
    only.setEnabled(false);
    EXPECT_EQ(form->focusedControl(), nullptr);
}

TEST_F(FormTest, AListHoldsNoMoreRowsThanThePlatformShows) {
    class Rows final : public RowSource {
      public:
        [[nodiscard]] std::size_t rowCount() const override { return 5'000'000'000; }
        [[nodiscard]] std::u16string cellText(std::size_t, std::size_t) override { return {}; }
    };
    Rows rows;
    auto& list = form->add<VirtualList>(u"List");
    list.setSource(&rows);
    EXPECT_EQ(list.rowCount(), VirtualList::kMostRows);
    list.selectRow(VirtualList::kMostRows);
    EXPECT_EQ(list.selectedRow(), std::nullopt);
    list.setSource(nullptr);
    EXPECT_EQ(list.rowCount(), 0U);
}

}  // namespace quorel::ui
