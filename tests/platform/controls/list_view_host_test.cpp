// Hosts that do anything while they are asked.

#include "tests/platform/controls/list_view_fixture.h"

namespace quorel::controls::testing {

using Member = Thing::Member;

TEST_F(ListViewTest, ACellThatCannotBeReadShowsAMarkAndIsToldOnceAFill) {
    const auto failing = [](std::span<Argument>) -> Value { throw automation::Error(1002, u"no such name"); };
    model.nodes[1]->with(u"name", Member(failing));
    model.nodes[2]->with(u"name", Member(failing));
    fill();
    const Rows rows = look(0, 5);
    EXPECT_EQ(rows[1][0], u"#Error");
    EXPECT_EQ(rows[2][0], u"#Error");
    EXPECT_EQ(rows[1][1], u"v1");
    ASSERT_EQ(cellErrors.size(), 1U);
    EXPECT_EQ(cellErrors[0].number(), 1002);
    user.selectRow(view.list(), 1);
    EXPECT_TRUE(view.selectedObject() == Object(model.nodes[1]));
    fill();
    static_cast<void>(look(0, 5));
    EXPECT_EQ(cellErrors.size(), 2U);
}

TEST_F(ListViewTest, ACellErrorIsNotToldWhenTheListWasEmptiedMeanwhile) {
    model.nodes[0]->with(u"name", Member([](std::span<Argument>) -> Value { throw automation::Error(5); }));
    fill();
    EXPECT_EQ(view.list().cellText(0, 0), u"#Error");
    view.empty();
    desktop.runPosted();
    EXPECT_TRUE(cellErrors.empty());
}

TEST_F(ListViewTest, ACellErrorIsNotToldWhenTheFormIsGone) {
    model.nodes[0]->with(u"name", Member([](std::span<Argument>) -> Value { throw automation::Error(5); }));
    fill();
    EXPECT_EQ(view.list().cellText(0, 0), u"#Error");
    form.reset();
    desktop.runPosted();
    EXPECT_TRUE(cellErrors.empty());
}

TEST_F(ListViewTest, AHostMayEmptyTheListWhileACellIsRead) {
    model.nodes[0]->with(u"name", Member([this](std::span<Argument>) {
                             view.empty();
                             return Value(u"late");
                         }));
    fill();
    EXPECT_EQ(view.list().cellText(0, 0), u"late");
    EXPECT_EQ(view.count(), 0U);
    EXPECT_TRUE(look().empty());
}

TEST_F(ListViewTest, AHostMayRefillTheListWhileACellIsRead) {
    model.nodes[0]->with(u"name", Member([this](std::span<Argument>) {
                             view.fillWithMetaNodes(model.repository, true);
                             return Value(u"late");
                         }));
    fill();
    static_cast<void>(view.list().cellText(0, 0));
    EXPECT_EQ(look(), (Rows{{u"Package"}, {u"Section"}, {u"Person"}}));
}

TEST_F(ListViewTest, AHostMayDestroyTheFormWhileACellIsRead) {
    model.nodes[0]->with(u"name", Member([this](std::span<Argument>) {
                             form->unload();
                             form.reset();
                             return Value(u"late");
                         }));
    fill();
    static_cast<void>(look(0, 3));
    EXPECT_EQ(form, nullptr);
    EXPECT_EQ(desktop.livePeers(), 0U);
}

TEST_F(ListViewTest, AHostMayDestroyTheFormDuringAFill) {
    Model large(1000);
    large.nodeExtension->whenEnumerated = [this](std::size_t given) {
        if (given >= 256)
            form.reset();
    };
    const std::weak_ptr<ui::Form> watch = form;
    view.fillWithExtension(large.metaNode, true);
    EXPECT_TRUE(watch.expired());
}

TEST_F(ListViewTest, AFillThatWasOvertakenByEmptyDropsWhatItRead) {
    Model large(1000);
    large.nodeExtension->whenEnumerated = [this](std::size_t given) {
        if (given == 256)
            view.empty();
    };
    view.fillWithExtension(large.metaNode, true);
    EXPECT_EQ(view.count(), 0U);
    EXPECT_TRUE(titles().empty());
}

TEST_F(ListViewTest, AFillThatWasOvertakenByAnotherLeavesTheOther) {
    Model large(1000);
    large.nodeExtension->whenEnumerated = [this](std::size_t given) {
        if (given == 256)
            fill();
    };
    view.fillWithExtension(large.metaNode, true);
    EXPECT_EQ(view.count(), 20U);
    EXPECT_EQ(column(0).front(), u"node0");
}

TEST_F(ListViewTest, AFillThatWasOvertakenWhileItReadTheColumnsLeavesTheOther) {
    model.metaLink->with(u"Properties", Member([this](std::span<Argument>) -> Value {
                             fill();
                             return model.metaNode;
                         }));
    EXPECT_EQ(errorOf([&] { view.fillWithLinks(model.metaLink, true); }), 451);
    EXPECT_EQ(view.count(), 20U);
    EXPECT_EQ(titles(), (Texts{u"Name", u"Version", u"Size"}));
}

TEST_F(ListViewTest, AHostMayRearrangeTheListWhileItIsSortedFilteredSearchedOrCopied) {
    bool armed = false;
    model.nodes[5]->with(u"name", Member([&](std::span<Argument>) {
                             if (std::exchange(armed, false))
                                 view.empty();
                             return Value(u"node5");
                         }));
    const auto overtaken = [&](auto&& action) {
        fill();
        armed = true;
        action();
        EXPECT_FALSE(armed);
        EXPECT_EQ(view.count(), 0U);
        EXPECT_EQ(view.shownCount(), 0U);
        view.closeFilter();
    };
    overtaken([&] { view.sortBy(0, ui::SortOrder::Ascending); });
    overtaken([&] {
        view.openFilter();
        user.enterText(view.filterBox(), u"zzz");
    });
    overtaken([&] {
        view.list().focus();
        user.type(*form, u"z");
    });
    overtaken([&] { view.copyAllRows(); });
    EXPECT_EQ(desktop.clipboardText(), u"");
}

TEST_F(ListViewTest, AHostMayEmptyTheListWhileAnObjectIsLookedFor) {
    model.nodes[5]->with(u"Identifier", Member([this](std::span<Argument>) {
                             view.empty();
                             return Value(u"LK:0");
                         }));
    fill();
    view.setSelectedObject(model.links[0]);
    EXPECT_EQ(view.count(), 0U);
    EXPECT_FALSE(view.selectedObject());
}

TEST_F(ListViewTest, AHostMayRefillTheListWithMoreWhileItIsSorted) {
    Model larger(500);
    model.nodes[5]->with(u"name", Member([&](std::span<Argument>) {
                             view.fillWithExtension(larger.metaNode, true);
                             return Value(u"node5");
                         }));
    fill();
    user.clickColumn(view.list(), 0);
    EXPECT_EQ(view.count(), 500U);
    EXPECT_EQ(look(498, 2), (Rows{{u"node498", u"v498", u"10"}, {u"node499", u"v499", u"6"}}));
    EXPECT_EQ(view.list().columns()[0].sort, ui::SortOrder::None);
    view.empty();
}

TEST_F(ListViewTest, AHostMayDestroyTheFormWhileItIsSorted) {
    model.nodes[5]->with(u"name", Member([this](std::span<Argument>) {
                             form.reset();
                             return Value(u"node5");
                         }));
    fill();
    user.clickColumn(view.list(), 0);
    EXPECT_EQ(form, nullptr);
}

TEST_F(ListViewTest, LongAndHostileTextsAreCutForDisplayOnly) {
    const std::u16string text = std::u16string(1'000'000, u'x') + u"\nsecond";
    model.nodes[0]->with(u"name", Value(text));
    model.nodes[1]->with(u"name", Value(std::u16string(u"a\tb\0c\r\nd", 8)));
    fill();
    const Texts names = column(0);
    EXPECT_EQ(names[0].size(), 4097U);
    EXPECT_EQ(names[1], u"a b\u2400c\u2026");
    user.selectRow(view.list(), 0);
    view.copySelectedRow();
    EXPECT_GT(desktop.clipboardText().size(), 1'000'000U);
}

}  // namespace quorel::controls::testing
