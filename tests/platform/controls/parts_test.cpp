// The parts a list view is made of.

#include <gtest/gtest.h>

#include <algorithm>

#include "platform/controls/cell_cache.h"
#include "platform/controls/cell_text.h"
#include "platform/controls/list_view_layout.h"
#include "platform/controls/row_store.h"
#include "platform/controls/row_view.h"
#include "platform/controls/sort_key.h"
#include "tests/platform/controls/model_double.h"

namespace quorel::controls::testing {

namespace {

[[nodiscard]] bool before(const Value& a, const Value& b) {
    return compare(SortKey(a), SortKey(b)) < 0;
}

[[nodiscard]] std::vector<std::size_t> shownRows(const RowView& view) {
    std::vector<std::size_t> rows;
    for (std::size_t i = 0; i < view.size(); ++i)
        rows.push_back(view.rowAt(i));
    return rows;
}

using Numbers = std::vector<std::size_t>;

}  // namespace

TEST(CellText, HoldsWhatAValueSays) {
    EXPECT_EQ(valueText(Value()), u"");
    EXPECT_EQ(valueText(Value::null()), u"");
    EXPECT_EQ(valueText(Value(12)), u"12");
    EXPECT_EQ(valueText(Value(true)), u"True");
    EXPECT_EQ(valueText(Value::nothing()), u"");
    EXPECT_EQ(valueText(Value(automation::Bytes{{1, 2, 3}, 0})), u"3 bytes");
    EXPECT_EQ(valueText(Value(automation::Array{{Value(1)}, 0})), u"1 items");
}

TEST(CellText, ShowsTheFirstLineUpToItsLimitWithoutSplittingAPair) {
    EXPECT_EQ(displayText(u"one\ntwo"), u"one\u2026");
    EXPECT_EQ(displayText(u"one"), u"one");
    EXPECT_EQ(displayText(u""), u"");
    EXPECT_EQ(displayText(std::u16string(4096, u'x')).size(), 4096U);
    std::u16string pairs = u"x";
    for (int i = 0; i < 4096; ++i)
        pairs += u"\U0001F600";
    const std::u16string shown = displayText(pairs);
    EXPECT_EQ(shown.size(), 4096U);
    EXPECT_EQ(shown[4094], u"\U0001F600"[1]);
    EXPECT_EQ(shown.back(), u'\u2026');
}

TEST(CellText, KeepsLoneSurrogates) {
    const std::u16string lone = {u'a', char16_t{0xD800}, u'b'};
    EXPECT_EQ(displayText(lone), lone);
    EXPECT_EQ(clipboardField(lone), lone);
}

TEST(SortKey, NumbersComeBeforeTextsAndByValue) {
    EXPECT_TRUE(before(Value(9), Value(10)));
    EXPECT_TRUE(before(Value(u"9"), Value(u"10")));
    EXPECT_TRUE(before(Value(u"-2.5"), Value(1)));
    EXPECT_TRUE(before(Value(10), Value(u"abc")));
    EXPECT_TRUE(before(Value(10), Value(u"")));
    EXPECT_TRUE(before(Value(automation::Date{1}), Value(automation::Date{2})));
    EXPECT_FALSE(before(Value(u"1.2.3"), Value(u"1.2")));
}

TEST(SortKey, TextsIgnoreCaseAndTakeTheirNumbersByValue) {
    EXPECT_TRUE(before(Value(u"item 9"), Value(u"Item 10")));
    EXPECT_FALSE(before(Value(u"ABC"), Value(u"abc")));
    EXPECT_FALSE(before(Value(u"abc"), Value(u"ABC")));
    EXPECT_TRUE(before(Value(u"a"), Value(u"ab")));
    EXPECT_TRUE(before(Value(u"v1.9.0"), Value(u"v1.10.0")));
    EXPECT_TRUE(before(Value(u"x99999999999999999999998"), Value(u"x99999999999999999999999")));
    EXPECT_FALSE(before(Value(u"a007"), Value(u"a7")));
}

TEST(RowView, SortsAndFiltersTogether) {
    RowView view;
    view.reset(5);
    EXPECT_EQ(shownRows(view), (Numbers{0, 1, 2, 3, 4}));
    view.setOrder({4, 3, 2, 1, 0});
    view.setMatches({4, 2, 0});
    EXPECT_EQ(view.viewRowOf(2), 1U);
    EXPECT_EQ(view.viewRowOf(3), std::nullopt);
    view.clearOrder();
    EXPECT_EQ(shownRows(view), (Numbers{0, 2, 4}));
    view.setOrder({1, 2, 0, 4, 3});
    EXPECT_EQ(shownRows(view), (Numbers{2, 0, 4}));
    view.clearFilter();
    EXPECT_EQ(shownRows(view), (Numbers{1, 2, 0, 4, 3}));
}

TEST(RowView, AddsAndRemovesRows) {
    RowView view;
    view.reset(3);
    view.setOrder({2, 1, 0});
    view.setMatches({2, 0});
    view.add(1, true);
    EXPECT_EQ(shownRows(view), (Numbers{2, 3, 0}));
    view.remove(2);
    EXPECT_EQ(shownRows(view), (Numbers{2, 0}));
    view.clearFilter();
    EXPECT_EQ(shownRows(view), (Numbers{2, 1, 0}));
    EXPECT_EQ(view.count(), 3U);
}

TEST(RowStore, GrowsFindsAndRemovesAcrossItsBlocks) {
    Calls calls;
    const std::int64_t before = automation::NativeObject::liveCount();
    {
        RowStore rows;
        std::vector<Object> objects;
        for (int i = 0; i < 10'000; ++i) {
            objects.emplace_back(automation::make<Thing>(calls));
            rows.push(Object(objects.back()));
        }
        EXPECT_EQ(rows.size(), 10'000U);
        EXPECT_EQ(rows.find(objects[9'999]), 9'999U);
        rows.remove(0);
        EXPECT_EQ(rows.find(objects[9'999]), 9'998U);
        EXPECT_EQ(rows.find(objects[0]), rows.size());
        while (rows.size() > 0)
            rows.remove(rows.size() - 1);
        rows.push(Object(objects[5]));
        EXPECT_TRUE(rows[0] == objects[5]);
    }
    EXPECT_EQ(automation::NativeObject::liveCount(), before);
}

TEST(RowStore, TakesManyAndLeavesTheEmptyOut) {
    Calls calls;
    const std::int64_t before = automation::NativeObject::liveCount();
    {
        const Object thing = automation::make<Thing>(calls);
        const Object last = automation::make<Thing>(calls);
        RowStore rows;
        for (int i = 0; i < 300'000 / 1'000; ++i) {
            std::vector<Object> batch(1'000, thing);
            batch[i].reset();
            rows.append(batch);
        }
        EXPECT_EQ(rows.size(), 299'700U);
        rows.push(Object(last));
        EXPECT_EQ(rows.find(last), 299'700U);
        EXPECT_TRUE(rows[262'144] == thing);
        const RowStore moved = std::move(rows);
        EXPECT_TRUE(moved[299'700] == last);
    }
    EXPECT_EQ(automation::NativeObject::liveCount(), before);
}

TEST(CellCache, RemembersAPageAndForgetsWhatIsFar) {
    CellCache cache;
    EXPECT_FALSE(cache.find(0, 0));
    for (std::size_t row = 1000; row < 1200; ++row)
        cache.store(row, 1, numbered(u"r", row));
    for (std::size_t row = 1000; row < 1200; ++row) {
        ASSERT_TRUE(cache.find(row, 1));
        EXPECT_EQ(*cache.find(row, 1), numbered(u"r", row));
        EXPECT_FALSE(cache.find(row, 0));
    }
    cache.reserveRows(1'000'000);
    cache.store(0, 0, u"near");
    cache.store(4096, 0, u"far");
    EXPECT_FALSE(cache.find(0, 0));
    ASSERT_TRUE(cache.find(4096, 0));
    cache.clear();
    EXPECT_FALSE(cache.find(4096, 0));
}

TEST(ListViewLayout, TheFilterTakesALineAboveTheList) {
    const ui::Size size{{9000}, {6000}};
    EXPECT_EQ(layoutListView(size, false).list, (ui::Rect{{0}, {0}, {9000}, {6000}}));
    const ListViewLayout open = layoutListView(size, true);
    EXPECT_GT(open.list.top, open.filterBox.bottom());
    EXPECT_EQ(open.list.bottom(), size.height);
    EXPECT_LT(open.filterBox.right(), open.shownLabel.left);
    EXPECT_EQ(open.shownLabel.right(), size.width);
}

TEST(ListViewLayout, NothingBecomesNegativeHoweverSmallItIs) {
    for (const std::int32_t side : {-100, 0, 10, 100, 320, 400}) {
        const ListViewLayout layout = layoutListView({{side}, {side}}, true);
        for (const ui::Rect& rect : {layout.filterBox, layout.shownLabel, layout.list}) {
            EXPECT_GE(rect.width.value, 0);
            EXPECT_GE(rect.height.value, 0);
        }
    }
}

}  // namespace quorel::controls::testing
