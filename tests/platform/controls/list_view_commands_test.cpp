// Sorting, filtering, finding, copying, column widths.

#include <algorithm>

#include "platform/ui/menu.h"
#include "platform/ui/plain_controls.h"
#include "tests/platform/controls/list_view_fixture.h"

namespace quorel::controls::testing {

using ui::Key;
using ui::Modifiers;
using ui::SortOrder;

TEST_F(ListViewTest, HeaderClicksSortUpThenDownThenAsFilled) {
    fill();
    user.clickColumn(view.list(), 2);
    EXPECT_EQ(view.list().columns()[2].sort, SortOrder::Ascending);
    const Texts sizes = column(2);
    EXPECT_EQ(sizes.front(), u"0");
    EXPECT_EQ(sizes[2], u"1");
    EXPECT_EQ(sizes.back(), u"10");
    user.clickColumn(view.list(), 2);
    EXPECT_EQ(view.list().columns()[2].sort, SortOrder::Descending);
    EXPECT_EQ(column(2).front(), u"10");
    user.clickColumn(view.list(), 2);
    EXPECT_EQ(view.list().columns()[2].sort, SortOrder::None);
    EXPECT_EQ(column(0)[1], u"node1");
    user.clickColumn(view.list(), 2);
    user.clickColumn(view.list(), 0);
    EXPECT_EQ(view.list().columns()[0].sort, SortOrder::Ascending);
    EXPECT_EQ(view.list().columns()[2].sort, SortOrder::None);
}

TEST_F(ListViewTest, SortingKeepsEqualsInTheirOrderInBothDirections) {
    for (const auto& node : model.nodes)
        node->with(u"Prop_", Value(u"same"));
    fill();
    view.sortBy(1, SortOrder::Descending);
    EXPECT_EQ(column(0)[0], u"node0");
    EXPECT_EQ(column(0)[19], u"node19");
    view.sortBy(1, SortOrder::Ascending);
    EXPECT_EQ(column(0)[0], u"node0");
}

TEST_F(ListViewTest, SortingTakesNumbersInTextsByValue) {
    fill();
    view.sortBy(0, SortOrder::Ascending);
    const Texts names = column(0);
    EXPECT_EQ(names[2], u"node2");
    EXPECT_EQ(names[10], u"node10");
}

TEST_F(ListViewTest, RowsThatCannotBeReadComeLastInBothDirections) {
    model.nodes[4]->with(u"name",
                         Thing::Member([](std::span<Argument>) -> Value { throw automation::Error(5); }));
    fill();
    view.sortBy(0, SortOrder::Ascending);
    EXPECT_EQ(column(0).back(), u"#Error");
    view.sortBy(0, SortOrder::Descending);
    EXPECT_EQ(column(0).back(), u"#Error");
}

TEST_F(ListViewTest, TheSelectionFollowsItsRowWhenSorted) {
    fill();
    user.selectRow(view.list(), 0);
    user.clickColumn(view.list(), 0);
    user.clickColumn(view.list(), 0);
    EXPECT_EQ(view.list().selectedRow(), 19U);
    EXPECT_TRUE(view.selectedObject() == Object(model.nodes[0]));
    EXPECT_EQ(clicks, 1);
}

TEST_F(ListViewTest, CtrlFFiltersAndTellsHowManyAreShown) {
    fill();
    user.selectRow(view.list(), 12);
    press(ui::key('F'), Modifiers::Control);
    EXPECT_TRUE(view.filterBox().hasFocus());
    EXPECT_GT(view.list().bounds().top, ui::Twips{0});
    countChanges = 0;
    user.type(*form, u"NODE1");
    EXPECT_EQ(view.shownCount(), 11U);
    EXPECT_EQ(view.count(), 20U);
    EXPECT_EQ(form->find(u"SourceNode.Shown")->text(), u"11 of 20");
    EXPECT_EQ(countChanges, 5);
    EXPECT_TRUE(view.selectedObject() == Object(model.nodes[12]));
    press(Key::Escape);
    EXPECT_EQ(view.shownCount(), 20U);
    EXPECT_FALSE(view.filterBox().isVisible());
    EXPECT_TRUE(view.list().hasFocus());
    EXPECT_EQ(view.list().bounds().top, ui::Twips{0});
    EXPECT_TRUE(view.selectedObject() == Object(model.nodes[12]));
}

TEST_F(ListViewTest, TheFilterLooksIntoTheColumnThatTheListIsSortedByAndKeepsTheSorting) {
    fill();
    view.sortBy(1, SortOrder::Descending);
    view.openFilter();
    EXPECT_EQ(view.filterBox().cueText(), u"Filter by Version");
    view.sortBy(0, SortOrder::Descending);
    user.enterText(view.filterBox(), u"v1");
    EXPECT_EQ(column(0).front(), u"node19");
    EXPECT_EQ(view.shownCount(), 11U);
    view.sortBy(0, SortOrder::Ascending);
    EXPECT_EQ(column(0), (Texts{u"node1", u"node10", u"node11", u"node12", u"node13", u"node14", u"node15",
                                u"node16", u"node17", u"node18", u"node19"}));
    user.enterText(view.filterBox(), u"");
    EXPECT_EQ(view.shownCount(), 20U);
}

TEST_F(ListViewTest, ALongerFilterAsksOnlyTheRowsThatAreShown) {
    fill();
    view.openFilter();
    user.enterText(view.filterBox(), u"node1");
    model.calls.count = 0;
    user.enterText(view.filterBox(), u"node19");
    EXPECT_EQ(model.calls.count, 11U);
    EXPECT_EQ(view.shownCount(), 1U);
    user.enterText(view.filterBox(), u"node2");
    EXPECT_EQ(view.shownCount(), 1U);
    EXPECT_EQ(column(0), Texts{u"node2"});
}

TEST_F(ListViewTest, EnterAndDownLeadFromTheFilterToTheList) {
    fill();
    view.openFilter();
    press(Key::Down);
    EXPECT_TRUE(view.list().hasFocus());
    EXPECT_TRUE(view.filterBox().isVisible());
    press(ui::key('F'), Modifiers::Control);
    EXPECT_TRUE(view.filterBox().hasFocus());
    press(Key::Enter);
    EXPECT_TRUE(view.list().hasFocus());
    press(Key::Escape);
    EXPECT_FALSE(view.filterBox().isVisible());
}

TEST_F(ListViewTest, EscWithoutAFilterIsTheCancelButtons) {
    auto& cancel = form->add<ui::Button>(u"Cancel");
    int pressed = 0;
    cancel.onClick.connect([&] { ++pressed; });
    form->setCancelButton(&cancel);
    fill();
    user.selectRow(view.list(), 0);
    view.openFilter();
    press(Key::Escape);
    EXPECT_EQ(pressed, 0);
    press(Key::Escape);
    EXPECT_EQ(pressed, 1);
}

TEST_F(ListViewTest, TypingFindsTheNextRowThatBeginsSo) {
    fill();
    user.selectRow(view.list(), 0);
    user.type(*form, u"Node7");
    EXPECT_TRUE(view.selectedObject() == Object(model.nodes[7]));
    user.type(*form, u"node3");
    EXPECT_TRUE(view.selectedObject() == Object(model.nodes[3]));
    user.type(*form, u"nothing");
    EXPECT_TRUE(view.selectedObject() == Object(model.nodes[3]));
}

TEST_F(ListViewTest, TypingFindsInTheSortedColumn) {
    fill();
    view.sortBy(1, SortOrder::Descending);
    user.selectRow(view.list(), 0);
    user.type(*form, u"v5");
    EXPECT_TRUE(view.selectedObject() == Object(model.nodes[5]));
}

TEST_F(ListViewTest, CtrlCCopiesTheSelectedRowWithHeaders) {
    fill();
    user.selectRow(view.list(), 2);
    press(ui::key('C'), Modifiers::Control);
    EXPECT_EQ(desktop.clipboardText(), u"Name\tVersion\tSize\r\nnode2\tv2\t3\r\n");
}

TEST_F(ListViewTest, CtrlCWithoutASelectionLeavesTheClipboardAlone) {
    fill();
    desktop.setClipboardText(u"mine");
    view.list().focus();
    press(ui::key('C'), Modifiers::Control);
    EXPECT_EQ(desktop.clipboardText(), u"mine");
}

TEST_F(ListViewTest, CopiedFieldsKeepTheirLineBreaksInQuotes) {
    model.nodes[0]->with(u"name", Value(u"a\tb \"c\"\nd"));
    view.fillWithExtension(model.metaNode, false);
    user.selectRow(view.list(), 0);
    view.copySelectedRow();
    EXPECT_EQ(desktop.clipboardText(), u"Name\r\n\"a\tb \"\"c\"\"\nd\"\r\n");
}

TEST_F(ListViewTest, TheContextMenuCopiesFiltersAndSorts) {
    fill();
    view.openFilter();
    user.enterText(view.filterBox(), u"node1");
    user.chooseContextMenu(view.list(), 0, u"SortDescending");
    EXPECT_EQ(column(0).front(), u"node19");
    user.chooseContextMenu(view.list(), u"CopyAll");
    const std::u16string text = desktop.clipboardText();
    EXPECT_EQ(std::count(text.begin(), text.end(), u'\n'), 12);
    EXPECT_TRUE(view.list().contextMenu().find(u"SortDescending")->isChecked());
    user.chooseContextMenu(view.list(), u"SortNone");
    view.closeFilter();
    user.chooseContextMenu(view.list(), u"Filter");
    EXPECT_TRUE(view.filterBox().isVisible());
}

TEST_F(ListViewTest, AnEmptyListOffersNothingToCopy) {
    EXPECT_THROW(user.chooseContextMenu(view.list(), u"Copy"), headless::CannotDo);
    EXPECT_THROW(user.chooseContextMenu(view.list(), u"CopyAll"), headless::CannotDo);
}

TEST_F(ListViewTest, WidthsThatTheUserGaveComeBackWithTheirColumns) {
    fill();
    user.resizeColumn(view.list(), 1, {777});
    view.empty();
    fill();
    EXPECT_EQ(view.list().columns()[1].width, ui::Twips{777});
    EXPECT_NE(view.list().columns()[2].width, ui::Twips{777});
}

TEST_F(ListViewTest, AnOnlyColumnTakesTheRoomThereIs) {
    view.fillWithMetaNodes(model.repository, true);
    const ui::Twips before = view.list().columns()[0].width;
    view.setBounds({{0}, {0}, {12000}, {6000}});
    EXPECT_EQ(view.list().columns()[0].width - before, ui::Twips{3000});
}

TEST_F(ListViewTest, ThePaneColourIsTheBackgroundOfTheRows) {
    view.setPaneColour({210, 210, 255});
    EXPECT_EQ(view.list().background(), (ui::Colour{210, 210, 255}));
}

}  // namespace quorel::controls::testing
