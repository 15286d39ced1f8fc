// Lists of what leaves and enters: meta links of a meta node, links of a node, with columns of their owner's.

#include "tests/platform/controls/list_view_fixture.h"

namespace quorel::controls::testing {
namespace {

class ListViewNavigationTest : public ListViewTest {
  protected:
    ListViewNavigationTest() {
        needs->with(u"name", Value(u"Needs")).with(u"source", model.metaNode).with(u"target", model.metaNode);
        model.metaNode->with(u"outgoing", list({needs})).with(u"incoming", list({}));
        // The node in the middle needs the next one and is needed by the one before.
        node->with(u"Outgoing_", Thing::Member([this](std::span<Argument> arguments) {
                       asked.push_back(u"out " + arguments[0].value().toString());
                       return list({model.links[10]});
                   }))
            .with(u"Incoming_", Thing::Member([this](std::span<Argument> arguments) {
                      asked.push_back(u"in " + arguments[0].value().toString());
                      return list({model.links[9]});
                  }));
    }
    ~ListViewNavigationTest() override {
        // The type and its meta link hold each other.
        needs->without(u"source");
        needs->without(u"target");
    }
    [[nodiscard]] static Value list(std::vector<Value> items) {
        return Value(Object(automation::make<Collection>(std::move(items))));
    }
    void addNameColumns() {
        view.addColumn(u"Source", u"SourceName", {1000});
        view.addColumn(u"Link", u"LinkName", {1000});
        view.addColumn(u"Target", u"TargetName", {1000});
    }
    [[nodiscard]] std::vector<std::int32_t> widths() {
        std::vector<std::int32_t> all;
        for (const ui::Column& each : view.list().columns())
            all.push_back(each.width.value);
        return all;
    }

    automation::Ref<Thing> needs = automation::make<Thing>(model.calls);
    automation::Ref<Thing> node = model.nodes[10];
    Texts asked;
};

TEST_F(ListViewNavigationTest, MetaLinksOfAMetaNodeKeepTheColumnsThatTheOwnerGave) {
    addNameColumns();
    view.fillWithOutgoingMetaLinks(model.metaNode, false);
    EXPECT_EQ(titles(), (Texts{u"Source", u"Link", u"Target"}));
    EXPECT_EQ(widths(), (std::vector<std::int32_t>{1000, 1000, 1000}));
    EXPECT_EQ(look(), (Rows{{u"Package", u"Needs", u"Package"}}));
    view.fillWithIncomingMetaLinks(model.metaNode, false);
    EXPECT_EQ(view.count(), 0U);
    EXPECT_EQ(titles(), (Texts{u"Source", u"Link", u"Target"}));
}

TEST_F(ListViewNavigationTest, MetaLinksWithColumnsHaveTheUsualOne) {
    addNameColumns();
    view.fillWithOutgoingMetaLinks(model.metaNode, true);
    EXPECT_EQ(titles(), Texts{u"Name"});
    EXPECT_EQ(look(), (Rows{{u"Needs"}}));
}

TEST_F(ListViewNavigationTest, AKeyThatIsThereAlreadyMakesNoSecondColumn) {
    addNameColumns();
    addNameColumns();
    EXPECT_EQ(titles(), (Texts{u"Source", u"Link", u"Target"}));
    view.addColumn(u"From", u"SourceName", {1200});
    EXPECT_EQ(titles(), (Texts{u"From", u"Link", u"Target"}));
    EXPECT_EQ(widths(), (std::vector<std::int32_t>{1200, 1000, 1000}));
}

TEST_F(ListViewNavigationTest, AnyOtherKeyIsTheNameOfAProperty) {
    view.addColumn(u"Strength", u"Kind", {900});
    view.fillWithOutgoingLinks(node, needs);
    EXPECT_EQ(titles(), (Texts{u"Name", u"Strength"}));
    EXPECT_EQ(look(), (Rows{{u"node11", u"strong"}}));
}

TEST_F(ListViewNavigationTest, LinksOfANodeShowTheOtherEndAndItsProperties) {
    view.addPropertyColumn(u"Version", u"Version", LinkEnd::Target, {1000});
    view.addPropertyColumn(u"Size", u"Size", LinkEnd::Target, {1000});
    view.fillWithOutgoingLinks(node, needs);
    EXPECT_EQ(asked, Texts{u"out Needs"});
    EXPECT_EQ(titles(), (Texts{u"Name", u"Version", u"Size"}));
    EXPECT_EQ(look(), (Rows{{u"node11", u"v11", u"0"}}));
    EXPECT_TRUE(view.selectedObject() == Object());
}

TEST_F(ListViewNavigationTest, SideCodesSayWhichEndIsRead) {
    EXPECT_EQ(static_cast<int>(LinkEnd::Target), 2);
    EXPECT_EQ(static_cast<int>(LinkEnd::Source), 0);
    view.addPropertyColumn(u"Of source", u"Version", LinkEnd::Source, {1000});
    view.fillWithIncomingLinks(node, needs);
    EXPECT_EQ(asked, Texts{u"in Needs"});
    EXPECT_EQ(look(), (Rows{{u"node9", u"v9"}}));
}

TEST_F(ListViewNavigationTest, TheNameInFrontFollowsTheDirectionOfTheFill) {
    view.addPropertyColumn(u"Size", u"Size", LinkEnd::Source, {1000});
    view.fillWithIncomingLinks(node, needs);
    EXPECT_EQ(column(0), Texts{u"node9"});
    view.fillWithOutgoingLinks(node, needs);
    EXPECT_EQ(titles(), (Texts{u"Name", u"Size"}));
    EXPECT_EQ(look(), (Rows{{u"node11", u"4"}}));
}

TEST_F(ListViewNavigationTest, AnEndWithoutThePropertyOrNoEndShowsNothing) {
    model.nodes[11]->with(u"Prop_", Thing::Member([](std::span<Argument>) -> Value {
                              throw automation::Error(438, u"There is no such property");
                          }));
    view.addPropertyColumn(u"Other", u"Other", LinkEnd::Target, {1000});
    view.fillWithOutgoingLinks(node, needs);
    EXPECT_EQ(look(), (Rows{{u"node11", u""}}));
    model.links[10]->with(u"target", Value::nothing());
    view.fillWithOutgoingLinks(node, needs);
    EXPECT_EQ(look(), (Rows{{u"", u""}}));
    desktop.runPosted();
    EXPECT_TRUE(cellErrors.empty());
}

TEST_F(ListViewNavigationTest, AnyOtherFailureOfAnEndIsAFailedCell) {
    model.nodes[11]->with(u"Prop_", Thing::Member([](std::span<Argument>) -> Value {
                              throw automation::Error(70, u"Permission denied");
                          }));
    view.addPropertyColumn(u"Size", u"Size", LinkEnd::Target, {1000});
    view.fillWithOutgoingLinks(node, needs);
    EXPECT_EQ(look(), (Rows{{u"node11", u"#Error"}}));
    desktop.runPosted();
    ASSERT_EQ(cellErrors.size(), 1U);
    EXPECT_EQ(cellErrors[0].number(), 70);
}

TEST_F(ListViewNavigationTest, EndsThatKnowNoPropAreReadByGetProperty) {
    for (const auto& each : model.nodes) {
        each->without(u"Prop_");
        each->with(u"GetProperty", Value(u"got"));
    }
    view.addPropertyColumn(u"Size", u"Size", LinkEnd::Target, {1000});
    view.fillWithOutgoingLinks(node, needs);
    EXPECT_EQ(look(), (Rows{{u"node11", u"got"}}));
}

TEST_F(ListViewNavigationTest, NoRowIsAskedBeforeItIsSeen) {
    view.addPropertyColumn(u"Size", u"Size", LinkEnd::Target, {1000});
    model.calls.count = 0;
    view.fillWithOutgoingLinks(node, needs);
    // The meta link's name and the node's links.
    EXPECT_EQ(model.calls.count, 2U);
}

TEST_F(ListViewNavigationTest, AFillThatKeepsColumnsEndsSortingAndFilter) {
    view.addPropertyColumn(u"Size", u"Size", LinkEnd::Target, {1000});
    view.fillWithOutgoingLinks(node, needs);
    view.sortBy(1, ui::SortOrder::Descending);
    view.openFilter();
    user.enterText(view.filterBox(), u"nothing like it");
    EXPECT_EQ(view.shownCount(), 0U);
    view.fillWithOutgoingLinks(node, needs);
    EXPECT_EQ(view.shownCount(), 1U);
    EXPECT_EQ(view.list().columns()[1].sort, ui::SortOrder::None);
}

TEST_F(ListViewNavigationTest, LinksAreFoundAgainByTheirIdentifier) {
    view.fillWithOutgoingLinks(node, needs);
    const auto copy = automation::make<Thing>(model.calls);
    copy->with(u"Identifier", Value(u"LK:10"));
    view.setSelectedObject(copy);
    EXPECT_EQ(view.selectedObject(), Object(model.links[10]));
}

TEST_F(ListViewNavigationTest, WithoutNodeOrMetaLinkTheFillIsError91) {
    EXPECT_EQ(errorOf([&] { view.fillWithOutgoingLinks(Object(), needs); }), 91);
    EXPECT_EQ(errorOf([&] { view.fillWithIncomingLinks(node, Object()); }), 91);
    EXPECT_EQ(errorOf([&] { view.fillWithIncomingMetaLinks(Object(), false); }), 91);
    EXPECT_EQ(view.count(), 0U);
}

TEST_F(ListViewNavigationTest, ARefreshedRowIsReadAnewAndTheOthersAreNot) {
    fill();
    static_cast<void>(look());
    user.selectRow(view.list(), 3);
    model.nodes[3]->with(u"name", Value(u"renamed"));
    EXPECT_EQ(look(3, 1)[0][0], u"node3");
    view.refreshObject(model.nodes[3]);
    model.calls.count = 0;
    EXPECT_EQ(look()[3][0], u"renamed");
    EXPECT_EQ(model.calls.count, 3U);
    EXPECT_EQ(view.selectedObject(), Object(model.nodes[3]));
}

TEST_F(ListViewNavigationTest, RefreshingWhatHasNoRowDoesNothing) {
    fill();
    static_cast<void>(look());
    model.calls.count = 0;
    view.refreshObject(Object());
    EXPECT_EQ(model.calls.count, 0U);
    view.refreshObject(model.links[0]);
    const std::size_t forKeys = model.calls.count;
    static_cast<void>(look());
    EXPECT_EQ(model.calls.count, forKeys);
}

TEST_F(ListViewNavigationTest, TheHostMayEmptyTheListWhileItIsAskedForLinks) {
    node->with(u"Outgoing_", Thing::Member([this](std::span<Argument>) {
                   view.empty();
                   return list({model.links[10]});
               }));
    view.fillWithOutgoingLinks(node, needs);
    EXPECT_EQ(view.count(), 0U);
    EXPECT_TRUE(titles().empty());
}

}  // namespace
}  // namespace quorel::controls::testing
