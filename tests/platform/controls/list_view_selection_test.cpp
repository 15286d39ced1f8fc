#include "tests/platform/controls/list_view_fixture.h"

namespace quorel::controls::testing {

TEST_F(ListViewTest, AClickSelectsTheObjectOfTheRow) {
    fill();
    user.selectRow(view.list(), 4);
    EXPECT_EQ(clicks, 1);
    EXPECT_TRUE(view.selectedObject() == Object(model.nodes[4]));
    user.clickBelowRows(view.list());
    EXPECT_EQ(clicks, 1);
    EXPECT_FALSE(view.selectedObject());
}

TEST_F(ListViewTest, ADoubleClickAndEnterAreDoubleClicks) {
    fill();
    user.doubleClickRow(view.list(), 2);
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(doubleClicks, 1);
    press(ui::Key::Enter);
    EXPECT_EQ(doubleClicks, 2);
}

TEST_F(ListViewTest, SelectingAnObjectThatIsARowCallsNobodyAndRaisesNothing) {
    fill();
    model.calls.count = 0;
    countChanges = 0;
    view.setSelectedObject(model.nodes[19]);
    EXPECT_EQ(view.list().selectedRow(), 19U);
    EXPECT_EQ(model.calls.count, 0U);
    EXPECT_EQ(clicks, 0);
    EXPECT_EQ(countChanges, 0);
}

TEST_F(ListViewTest, EveryChangeOfTheSelectionIsTold) {
    fill();
    std::vector<bool> selected;
    view.onSelectionChanged.connect([&] { selected.push_back(static_cast<bool>(view.selectedObject())); });
    user.selectRow(view.list(), 4);
    user.clickBelowRows(view.list());
    view.setSelectedObject(model.nodes[3]);
    view.removeObject(model.nodes[3]);
    EXPECT_EQ(selected, (std::vector<bool>{true, false, true, false}));
    view.setSelectedObject(model.nodes[4]);
    selected.clear();
    view.empty();
    ASSERT_FALSE(selected.empty());
    EXPECT_FALSE(selected.back());
}

TEST_F(ListViewTest, AnotherObjectOfTheSameIdentifierSelectsItsRow) {
    fill();
    const auto twin = automation::make<Thing>(model.calls);
    twin->with(u"Identifier", Value(u"ID:12"));
    view.setSelectedObject(twin);
    EXPECT_TRUE(view.selectedObject() == Object(model.nodes[12]));
}

TEST_F(ListViewTest, MetaObjectsAreFoundByName) {
    view.fillWithMetaNodes(model.repository, true);
    const auto twin = automation::make<Thing>(model.calls);
    twin->with(u"name", Value(u"Section"));
    view.setSelectedObject(twin);
    EXPECT_EQ(view.list().selectedRow(), 1U);
}

TEST_F(ListViewTest, AnEmptyReferenceOrAStrangerTakesTheSelectionAway) {
    fill();
    view.setSelectedObject(model.nodes[1]);
    view.setSelectedObject(Object());
    EXPECT_FALSE(view.selectedObject());
    view.setSelectedObject(model.nodes[1]);
    view.setSelectedObject(model.links[0]);
    EXPECT_FALSE(view.selectedObject());
}

TEST_F(ListViewTest, RowsWithoutAnIdentifierArePassedOver) {
    model.nodes[0]->without(u"Identifier");
    model.nodes[1]->with(u"Identifier", Value(u""));
    fill();
    const auto twin = automation::make<Thing>(model.calls);
    twin->with(u"Identifier", Value(u"ID:2"));
    view.setSelectedObject(twin);
    EXPECT_EQ(view.list().selectedRow(), 2U);
    twin->with(u"Identifier", Value(u""));
    view.setSelectedObject(twin);
    EXPECT_FALSE(view.selectedObject());
    twin->without(u"Identifier");
    EXPECT_EQ(errorOf([&] { view.setSelectedObject(twin); }), 438);
}

TEST_F(ListViewTest, SelectingWhatAFilterHidesEndsTheFilter) {
    fill();
    press(ui::key('F'), ui::Modifiers::Control);
    user.type(*form, u"node3");
    EXPECT_EQ(view.shownCount(), 1U);
    view.setSelectedObject(model.nodes[3]);
    EXPECT_EQ(view.shownCount(), 1U);
    view.setSelectedObject(model.nodes[8]);
    EXPECT_EQ(view.shownCount(), 20U);
    EXPECT_FALSE(view.filterBox().isVisible());
    EXPECT_EQ(view.list().selectedRow(), 8U);
}

TEST_F(ListViewTest, AnAddedObjectIsTheLastRowAndLeavesTheSelection) {
    fill();
    view.setSelectedObject(model.nodes[3]);
    view.addObject(model.links[0]);
    EXPECT_EQ(view.count(), 21U);
    EXPECT_EQ(column(0).back(), u"link0");
    EXPECT_TRUE(view.selectedObject() == Object(model.nodes[3]));
}

TEST_F(ListViewTest, AnAddedObjectGoesWhereTheSortingPutsIt) {
    fill();
    view.sortBy(0, ui::SortOrder::Descending);
    view.removeObject(model.nodes[10]);
    EXPECT_EQ(view.count(), 19U);
    view.addObject(model.nodes[10]);
    const Texts names = column(0);
    EXPECT_EQ(names[8], u"node11");
    EXPECT_EQ(names[9], u"node10");
    EXPECT_EQ(names[10], u"node9");
}

TEST_F(ListViewTest, AnAddedObjectIsShownIfTheFilterLetsItThrough) {
    fill();
    view.openFilter();
    user.enterText(view.filterBox(), u"node1");
    EXPECT_EQ(view.shownCount(), 11U);
    view.addObject(model.nodes[1]);
    view.addObject(model.nodes[2]);
    EXPECT_EQ(view.shownCount(), 12U);
    EXPECT_EQ(view.count(), 22U);
    view.closeFilter();
    EXPECT_EQ(view.shownCount(), 22U);
}

TEST_F(ListViewTest, ARemovedObjectTakesItsRowAndNoOther) {
    fill();
    view.sortBy(0, ui::SortOrder::Descending);
    view.setSelectedObject(model.nodes[7]);
    view.removeObject(model.nodes[2]);
    EXPECT_TRUE(view.selectedObject() == Object(model.nodes[7]));
    EXPECT_EQ(view.count(), 19U);
    view.removeObject(model.nodes[7]);
    EXPECT_FALSE(view.selectedObject());
    view.removeObject(model.nodes[7]);
    EXPECT_EQ(view.count(), 18U);
    EXPECT_EQ(column(0).size(), 18U);
}

TEST_F(ListViewTest, ObjectsCanBeAddedToAListThatWasNeverFilled) {
    view.addObject(model.nodes[0]);
    EXPECT_EQ(view.count(), 1U);
    EXPECT_TRUE(titles().empty());
    EXPECT_EQ(model.calls.count, 0U);
}

}  // namespace quorel::controls::testing
