#include "tests/platform/controls/list_view_fixture.h"

namespace quorel::controls::testing {

TEST_F(ListViewTest, TheNativeCentreBearsTheNameAndTheOthersNamesOfTheirOwn) {
    EXPECT_EQ(view.name(), u"SourceNode.View");
    EXPECT_EQ(form->find(u"SourceNode"), &view.list());
    EXPECT_NE(form->find(u"SourceNode.Filter"), nullptr);
    EXPECT_FALSE(form->find(u"SourceNode.Filter")->isVisible());
    EXPECT_FALSE(form->find(u"SourceNode.Shown")->isVisible());
    EXPECT_EQ(view.list().bounds(), (ui::Rect{{0}, {0}, {9000}, {6000}}));
}

TEST_F(ListViewTest, MetaNodesShowTheirNames) {
    view.fillWithMetaNodes(model.repository, true);
    EXPECT_EQ(titles(), Texts{u"Name"});
    EXPECT_EQ(look(), (Rows{{u"Package"}, {u"Section"}, {u"Person"}}));
    EXPECT_EQ(view.count(), 3U);
}

TEST_F(ListViewTest, MetaLinksShowTheirNames) {
    view.fillWithMetaLinks(model.repository, true);
    EXPECT_EQ(look(), (Rows{{u"Needs"}}));
}

TEST_F(ListViewTest, InstancesShowNameAndMetaProperties) {
    fill();
    EXPECT_EQ(titles(), (Texts{u"Name", u"Version", u"Size"}));
    EXPECT_EQ(look(2, 2), (Rows{{u"node2", u"v2", u"3"}, {u"node3", u"v3", u"10"}}));
}

TEST_F(ListViewTest, WithoutColumnsInstancesShowTheirNameOnly) {
    view.fillWithExtension(model.metaNode, false);
    EXPECT_EQ(titles(), Texts{u"Name"});
    EXPECT_EQ(view.count(), 20U);
}

TEST_F(ListViewTest, LinksShowNameEndsAndMetaProperties) {
    view.fillWithLinks(model.metaLink, true);
    EXPECT_EQ(titles(), (Texts{u"Name", u"Source", u"Target", u"Kind"}));
    EXPECT_EQ(look(4, 1), (Rows{{u"link4", u"node4", u"node5", u"strong"}}));
}

TEST_F(ListViewTest, ALinkWithoutAnEndShowsNoNameForIt) {
    model.links[0]->with(u"source", Value::nothing());
    view.fillWithLinks(model.metaLink, true);
    EXPECT_EQ(look(0, 1), (Rows{{u"link0", u"", u"node1", u"strong"}}));
    EXPECT_TRUE(cellErrors.empty());
}

TEST_F(ListViewTest, NoMemberOfARowIsCalledBeforeItsRowIsSeen) {
    fill();
    // Extension, Properties and the names of the two meta properties.
    EXPECT_EQ(model.calls.count, 4U);
    static_cast<void>(view.selectedObject());
    view.setSelectedObject(model.nodes[7]);
    EXPECT_EQ(model.calls.count, 4U);
}

TEST_F(ListViewTest, ACellThatIsSeenCostsOneCallHoweverOftenItIsPainted) {
    fill();
    model.calls.count = 0;
    for (int repaint = 0; repaint < 5; ++repaint)
        static_cast<void>(look(0, 10));
    EXPECT_EQ(model.calls.count, 30U);
    static_cast<void>(look(5, 10));
    EXPECT_EQ(model.calls.count, 45U);
}

TEST_F(ListViewTest, PropertiesAreReadByGetPropertyWhereRowsKnowNoProp) {
    for (const auto& node : model.nodes) {
        node->without(u"Prop_");
        node->with(u"GetProperty", Value(u"got"));
    }
    fill();
    model.calls.count = 0;
    EXPECT_EQ(look(0, 1), (Rows{{u"node0", u"got", u"got"}}));
    EXPECT_EQ(model.calls.count, 3U);
}

TEST_F(ListViewTest, AFillReplacesRowsSortingAndFilter) {
    fill();
    view.sortBy(0, ui::SortOrder::Descending);
    view.openFilter();
    user.enterText(view.filterBox(), u"node1");
    view.fillWithMetaNodes(model.repository, true);
    EXPECT_EQ(view.count(), 3U);
    EXPECT_EQ(view.shownCount(), 3U);
    EXPECT_EQ(view.filterBox().text(), u"");
    EXPECT_EQ(view.list().columns()[0].sort, ui::SortOrder::None);
    EXPECT_EQ(column(0), (Texts{u"Package", u"Section", u"Person"}));
}

TEST_F(ListViewTest, ElementsThatAreNothingAreLeftOutAndNonObjectsAreError13) {
    model.nodeExtension->items = {Value(model.nodes[0]), Value::nothing(), Value(model.nodes[1])};
    fill();
    EXPECT_EQ(view.count(), 2U);
    model.nodeExtension->items = {Value(model.nodes[0]), Value(u"text"), Value(model.nodes[1])};
    EXPECT_EQ(errorOf([&] { fill(); }), 13);
    EXPECT_EQ(view.count(), 1U);
}

TEST_F(ListViewTest, AnEmptyReferenceIsError91) {
    EXPECT_EQ(errorOf([&] { view.fillWithMetaNodes(Object(), true); }), 91);
    EXPECT_EQ(errorOf([&] { view.addObject(Object()); }), 91);
    EXPECT_EQ(view.count(), 0U);
}

TEST_F(ListViewTest, AFailingEnumerationLeavesTheRowsReadSoFar) {
    Model large(1000);
    large.nodeExtension->whenEnumerated = [](std::size_t given) {
        if (given >= 512)
            throw automation::Error(1001, u"the line was cut");
    };
    EXPECT_EQ(errorOf([&] { view.fillWithExtension(large.metaNode, true); }), 1001);
    EXPECT_EQ(view.count(), 512U);
    EXPECT_EQ(look(511, 1), (Rows{{u"node511", u"v511", u"2"}}));
    user.selectRow(view.list(), 3);
    EXPECT_TRUE(view.selectedObject() == Object(large.nodes[3]));
    view.empty();
}

TEST_F(ListViewTest, WhicheverCallFailsTheListStaysUsable) {
    for (std::size_t failing = 1;; ++failing) {
        SCOPED_TRACE(failing);
        model.calls = {.count = 0, .failAt = failing};
        const std::int32_t number = errorOf([&] { view.fillWithLinks(model.metaLink, true); });
        model.calls = {};
        EXPECT_EQ(view.list().rowCount(), view.count());
        EXPECT_EQ(look().size(), view.count());
        fill();
        EXPECT_EQ(view.count(), 20U);
        if (number == 0)
            break;
        EXPECT_EQ(number, 1000);
        ASSERT_LT(failing, 50U);
    }
}

TEST_F(ListViewTest, EmptyDropsEveryReference) {
    const std::int64_t before = automation::NativeObject::liveCount();
    {
        Model other(50);
        view.fillWithLinks(other.metaLink, true);
        static_cast<void>(look());
        view.setSelectedObject(other.links[3]);
        view.sortBy(1, ui::SortOrder::Ascending);
        view.empty();
    }
    EXPECT_EQ(automation::NativeObject::liveCount(), before);
    EXPECT_TRUE(view.list().columns().empty());
    EXPECT_EQ(view.count(), 0U);
    EXPECT_FALSE(view.selectedObject());
}

TEST_F(ListViewTest, ClearRowsKeepsTheColumnsResetColumnsKeepsTheRows) {
    fill();
    view.clearRows();
    EXPECT_EQ(titles().size(), 3U);
    EXPECT_EQ(view.count(), 0U);
    fill();
    view.resetColumns();
    EXPECT_TRUE(titles().empty());
    EXPECT_EQ(view.count(), 20U);
}

TEST_F(ListViewTest, EveryChangeOfTheCountIsTold) {
    fill();
    EXPECT_EQ(countChanges, 1);
    view.removeObject(model.nodes[0]);
    view.addObject(model.nodes[0]);
    EXPECT_EQ(countChanges, 3);
    view.clearRows();
    EXPECT_EQ(countChanges, 4);
}

TEST_F(ListViewTest, SortedAndFilteredRowsTakeAtMostSixteenBytesBesideTheReference) {
    Model large(10'000);
    view.fillWithExtension(large.metaNode, false);
    EXPECT_EQ(view.bookkeepingBytes(), 0U);
    view.sortBy(0, ui::SortOrder::Ascending);
    view.openFilter();
    user.enterText(view.filterBox(), u"node");
    EXPECT_EQ(view.shownCount(), 10'000U);
    EXPECT_LE(view.bookkeepingBytes(), 16U * 10'000U);
    view.empty();
}

}  // namespace quorel::controls::testing
