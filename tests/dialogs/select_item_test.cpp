#include "dialogs/select_item.h"

#include <gtest/gtest.h>

#include "platform/automation/error.h"
#include "platform/ui/plain_controls.h"
#include "tests/support/repository_double.h"
#include "tests/support/test_world.h"

namespace quorel::dialogs {
namespace {

using automation::Object;
using automation::Value;
using headless::get;
using testing::errorNumber;
using ui::Key;
using ui::KeyChord;
using ui::Modifiers;
using Rows = std::vector<std::vector<std::u16string>>;

class SelectItemTest : public ::testing::Test {
  protected:
    SelectItemTest() {
        for (const char16_t* const name : {u"ash", u"Beech", u"cedar", u"10", u"9"})
            trees_.push_back(make(name));
    }

    static Object make(std::u16string_view name) {
        return automation::make<testing::CollectionDouble>(std::make_shared<testing::Script>(),
                                                           std::u16string(name));
    }
    void create() { dialog_.call(u"Create"); }
    /// A list view of the five, with a further column; checked if wanted.
    void createListView(bool checkBoxes) {
        create();
        dialog_.call(u"AsListView", checkBoxes);
        dialog_.call(u"AddColumn", u"Tree", 2000);
        dialog_.call(u"AddColumn", u"Size");
        for (const char16_t* const text : {u"ash", u"Beech", u"cedar", u"10", u"9"})
            dialog_.call(u"AddItem", text, trees_[added_++], text[0] == u'B' ? u"" : u"tall");
    }
    void addTrees() {
        for (const char16_t* const text : {u"ash", u"Beech", u"cedar", u"10", u"9"})
            dialog_.call(u"AddItem", text, trees_[added_++]);
    }
    void popUp(std::function<void(ui::Form&)> user) {
        world_.desktop.expectModal(u"frmSelectItem", std::move(user));
        dialog_.call(u"PopUp");
        world_.desktop.verify();
    }
    [[nodiscard]] Object selection() { return dialog_.get(u"Selection").toObject(); }
    [[nodiscard]] std::vector<Object> checked() {
        std::vector<Object> objects;
        for (const Object& object : automation::each(selection()))
            objects.push_back(object);
        return objects;
    }
    [[nodiscard]] bool isOk() { return dialog_.call(u"IsOk").toBoolean(); }
    static ui::VirtualList& list(ui::Form& form) { return get<ui::VirtualList>(form, u"List"); }
    static ui::VirtualList& listView(ui::Form& form) { return get<ui::VirtualList>(form, u"ListView"); }
    Rows rows(ui::VirtualList& list) { return world_.user.look(list, 0, list.rowCount()); }

    testing::TestWorld world_;
    std::vector<Object> trees_;
    std::size_t added_ = 0;
    Object dialog_ = automation::make<SelectItem>(world_.environment);
};

TEST_F(SelectItemTest, EveryMemberButDestroyNeedsAForm) {
    for (const std::u16string_view member : {u"PopUp", u"Conceal", u"Selection", u"IsOk", u"AsListView"})
        EXPECT_EQ(errorNumber([&] { dialog_.call(member); }), 91);
    EXPECT_EQ(errorNumber([&] { dialog_.put(u"Statement", u"x"); }), 91);
    EXPECT_EQ(errorNumber([&] { dialog_.put(u"Caption", u"x"); }), 91);
    EXPECT_EQ(errorNumber([&] { dialog_.call(u"AddColumn", u"x"); }), 91);
    EXPECT_EQ(errorNumber([&] { dialog_.call(u"AddItem", u"x", trees_[0]); }), 91);
    dialog_.call(u"Destroy");
    create();
    dialog_.call(u"Destroy");
    dialog_.call(u"Destroy");
    EXPECT_EQ(errorNumber([&] { dialog_.call(u"PopUp"); }), 91);
}

TEST_F(SelectItemTest, AListShowsTheItemsWithoutTitles) {
    create();
    dialog_.put(u"Caption", u"Trees");
    dialog_.put(u"Statement", u"Which one?");
    addTrees();
    EXPECT_FALSE(isOk());
    popUp([&](ui::Form& form) {
        EXPECT_EQ(form.text(), u"Trees");
        EXPECT_EQ(get<ui::Label>(form, u"Statement").text(), u"Which one?");
        EXPECT_EQ(get<ui::Label>(form, u"Count").text(), u"5 items");
        EXPECT_FALSE(list(form).isTitled());
        EXPECT_FALSE(listView(form).isShown());
        EXPECT_EQ(form.focusedControl(), &list(form));
        EXPECT_EQ(rows(list(form)), (Rows{{u"ash"}, {u"Beech"}, {u"cedar"}, {u"10"}, {u"9"}}));
        world_.user.selectRow(list(form), 2);
        world_.user.click(form, u"OK");
    });
    EXPECT_TRUE(isOk());
    EXPECT_EQ(selection(), trees_[2]);
}

TEST_F(SelectItemTest, BeforeAnythingIsSetTheDesignTextsShow) {
    create();
    popUp([&](ui::Form& form) {
        EXPECT_EQ(form.text(), u"caption");
        EXPECT_EQ(get<ui::Label>(form, u"Statement").text(), u"statement");
        EXPECT_EQ(get<ui::Label>(form, u"Count").text(), u"0 items");
        world_.user.click(form, u"OK");
    });
    EXPECT_TRUE(isOk());
    EXPECT_FALSE(selection());
}

TEST_F(SelectItemTest, OnlyOkIsOk) {
    create();
    addTrees();
    popUp([&](ui::Form& form) { world_.user.click(form, u"OK"); });
    EXPECT_TRUE(isOk());
    popUp([&](ui::Form& form) { world_.user.click(form, u"Cancel"); });
    EXPECT_FALSE(isOk());
    popUp([&](ui::Form& form) { world_.user.press(form, {Key::Enter}); });
    EXPECT_TRUE(isOk());
    popUp([&](ui::Form& form) { world_.user.press(form, {Key::Escape}); });
    EXPECT_FALSE(isOk());
    popUp([&](ui::Form& form) { world_.user.press(form, {Key::Enter}); });
    popUp([&](ui::Form& form) { world_.user.closeBox(form); });
    EXPECT_FALSE(isOk());
    EXPECT_FALSE(selection());
}

TEST_F(SelectItemTest, ADoubleClickInTheListDoesNothing) {
    create();
    addTrees();
    popUp([&](ui::Form& form) {
        world_.user.doubleClickRow(list(form), 1);
        EXPECT_TRUE(form.isVisible());
        world_.user.press(form, {Key::Enter});
    });
    EXPECT_TRUE(isOk());
    EXPECT_EQ(selection(), trees_[1]);
}

TEST_F(SelectItemTest, ADoubleClickInTheListViewIsOk) {
    createListView(false);
    popUp([&](ui::Form& form) {
        EXPECT_FALSE(list(form).isShown());
        EXPECT_FALSE(get<ui::Button>(form, u"CheckAll").isShown());
        world_.user.doubleClickRow(listView(form), 1);
        EXPECT_FALSE(form.isVisible());
    });
    EXPECT_TRUE(isOk());
    EXPECT_EQ(selection(), trees_[1]);
}

TEST_F(SelectItemTest, AListViewHasColumnsAndEmptyTextsShowEmpty) {
    createListView(false);
    popUp([&](ui::Form& form) {
        ui::VirtualList& shown = listView(form);
        ASSERT_EQ(shown.columns().size(), 2U);
        EXPECT_EQ(shown.columns()[0].title, u"Tree");
        EXPECT_EQ(shown.columns()[0].width, ui::Twips{2000});
        EXPECT_EQ(shown.columns()[1].width, ui::Twips{1000});
        EXPECT_EQ(
            rows(shown),
            (Rows{
                {u"ash", u"tall"}, {u"Beech", u""}, {u"cedar", u"tall"}, {u"10", u"tall"}, {u"9", u"tall"}}));
        world_.user.press(form, {Key::Escape});
    });
}

TEST_F(SelectItemTest, EightColumnsShowTheTextAndSevenMore) {
    create();
    dialog_.call(u"AsListView");
    for (int column = 0; column < 9; ++column)
        dialog_.call(u"AddColumn", u"Same");
    dialog_.call(u"AddItem", u"text", Object(), u"1", u"", u"3", u"4", u"5", u"6", u"7");
    popUp([&](ui::Form& form) {
        EXPECT_EQ(rows(listView(form)), (Rows{{u"text", u"1", u"", u"3", u"4", u"5", u"6", u"7", u""}}));
        world_.user.selectRow(listView(form), 0);
        world_.user.press(form, {Key::Enter});
    });
    EXPECT_TRUE(isOk());
    EXPECT_FALSE(selection()) << "there is nothing behind the item";
}

TEST_F(SelectItemTest, WithoutColumnsTheTextsHaveOneWithoutATitle) {
    create();
    dialog_.call(u"AsListView");
    addTrees();
    popUp([&](ui::Form& form) {
        EXPECT_EQ(rows(listView(form)).front(), (std::vector<std::u16string>{u"ash"}));
        world_.user.press(form, {Key::Escape});
    });
}

TEST_F(SelectItemTest, CheckedItemsAreACollectionInTheListsOrder) {
    createListView(true);
    popUp([&](ui::Form& form) {
        world_.user.clickBox(listView(form), 3);
        world_.user.clickBox(listView(form), 0);
        world_.user.clickBox(listView(form), 2);
        world_.user.clickBox(listView(form), 2);
        EXPECT_EQ(get<ui::Label>(form, u"Count").text(), u"2 of 5 checked");
        world_.user.doubleClickRow(listView(form), 1);
        EXPECT_TRUE(form.isVisible()) << "a double-click is no OK while items are checked";
        world_.user.press(form, {Key::Enter});
    });
    EXPECT_TRUE(isOk());
    EXPECT_EQ(checked(), (std::vector<Object>{trees_[0], trees_[3]}));
    const Object collection = selection();
    EXPECT_EQ(collection.get(u"Count").toInteger(), 2);
    EXPECT_EQ(collection.item(1).toObject(), trees_[0]);
    EXPECT_EQ(collection.get(u"Item", 2).toObject(), trees_[3]);
    EXPECT_EQ(errorNumber([&] { static_cast<void>(collection.item(0)); }), 9);
    EXPECT_EQ(errorNumber([&] { static_cast<void>(collection.item(3)); }), 9);
    EXPECT_NE(selection(), collection) << "each is a new one, the caller's own";
}

TEST_F(SelectItemTest, NothingCheckedIsAnEmptyCollection) {
    createListView(true);
    popUp([&](ui::Form& form) {
        world_.user.selectRow(listView(form), 1);
        world_.user.click(form, u"OK");
    });
    ASSERT_TRUE(selection());
    EXPECT_TRUE(checked().empty());
}

TEST_F(SelectItemTest, SpaceChecksTheSelectedItem) {
    createListView(true);
    popUp([&](ui::Form& form) {
        world_.user.press(form, {Key::Space});
        EXPECT_EQ(get<ui::Label>(form, u"Count").text(), u"0 of 5 checked") << "none is selected";
        world_.user.press(form, {Key::Down});
        world_.user.press(form, {Key::Space});
        world_.user.press(form, {Key::Down});
        world_.user.press(form, {Key::Space});
        world_.user.press(form, {Key::Space});
        world_.user.press(form, {Key::Enter});
    });
    EXPECT_EQ(checked(), (std::vector<Object>{trees_[0]}));
}

TEST_F(SelectItemTest, AllAndNoneOfTheShownAreChecked) {
    createListView(true);
    popUp([&](ui::Form& form) {
        world_.user.click(form, u"CheckAll");
        EXPECT_EQ(get<ui::Label>(form, u"Count").text(), u"5 of 5 checked");
        world_.user.click(listView(form));
        world_.user.press(form, {ui::key('F'), Modifiers::Control});
        world_.user.type(form, u"e");
        world_.user.chooseContextMenu(listView(form), u"CheckNone");
        EXPECT_EQ(get<ui::Label>(form, u"Count").text(), u"3 of 5 checked") << "Beech and cedar are shown";
        world_.user.press(form, {Key::Escape});
        world_.user.click(form, u"OK");
    });
    EXPECT_EQ(checked(), (std::vector<Object>{trees_[0], trees_[3], trees_[4]}));
    popUp([&](ui::Form& form) {
        listView(form).focus();
        world_.user.press(form, {ui::key('A'), Modifiers::Control});
        EXPECT_EQ(get<ui::Label>(form, u"Count").text(), u"5 of 5 checked");
        world_.user.press(form, {ui::key('A'), Modifiers::Control | Modifiers::Shift});
        world_.user.press(form, {Key::Enter});
    });
    EXPECT_TRUE(checked().empty());
}

TEST_F(SelectItemTest, WithoutBoxesNothingOffersChecks) {
    createListView(false);
    popUp([&](ui::Form& form) {
        const ui::Menu* const menu = listView(form).userContextMenu();
        ASSERT_NE(menu, nullptr);
        EXPECT_FALSE(menu->find(u"CheckAll")->isVisible());
        EXPECT_THROW(world_.user.clickBox(listView(form), 0), headless::CannotDo);
        world_.user.press(form, {Key::Escape});
    });
}

TEST_F(SelectItemTest, TheUserSortsAndTheOrderIsTheListsOrder) {
    createListView(true);
    popUp([&](ui::Form& form) {
        world_.user.clickColumn(listView(form), 0);
        EXPECT_EQ(rows(listView(form))[0][0], u"9");
        EXPECT_EQ(rows(listView(form))[1][0], u"10");
        world_.user.clickBox(listView(form), 4);
        world_.user.clickBox(listView(form), 0);
        world_.user.press(form, {Key::Enter});
    });
    EXPECT_EQ(checked(), (std::vector<Object>{trees_[4], trees_[2]}));
}

TEST_F(SelectItemTest, TheListSortsAndFiltersToo) {
    create();
    addTrees();
    popUp([&](ui::Form& form) {
        world_.user.chooseContextMenu(list(form), u"SortDescending");
        EXPECT_EQ(rows(list(form)), (Rows{{u"cedar"}, {u"Beech"}, {u"ash"}, {u"10"}, {u"9"}}));
        world_.user.press(form, {ui::key('F'), Modifiers::Control});
        world_.user.type(form, u"as");
        EXPECT_EQ(rows(list(form)), (Rows{{u"ash"}}));
        world_.user.press(form, {Key::Down});
        world_.user.selectRow(list(form), 0);
        world_.user.press(form, {Key::Enter});
    });
    EXPECT_TRUE(isOk());
    EXPECT_EQ(selection(), trees_[0]);
}

TEST_F(SelectItemTest, ItemsStayInTheListTheyWereAddedTo) {
    create();
    dialog_.call(u"AddItem", u"first", trees_[0]);
    dialog_.call(u"AsListView");
    dialog_.call(u"AddItem", u"second", trees_[1]);
    popUp([&](ui::Form& form) {
        EXPECT_EQ(rows(listView(form)), (Rows{{u"second"}}));
        world_.user.selectRow(listView(form), 0);
        world_.user.press(form, {Key::Enter});
    });
    EXPECT_EQ(selection(), trees_[1]);
}

TEST_F(SelectItemTest, KeysOnlyGrow) {
    const auto key = [](std::int32_t number) { return SelectableItem::make(number, {}, Object())->key(); };
    EXPECT_EQ(key(1), u"1ID:");
    EXPECT_EQ(key(23), u"23ID:");
}

TEST_F(SelectItemTest, AnItemKeepsItsTextsWhateverBecomesOfTheHosts) {
    std::u16string texts[] = {u"oak", u"", std::u16string(300, u'x'), u"", u"last"};
    const auto item = SelectableItem::make(1, {texts[0], texts[1], texts[2], texts[3], texts[4]}, trees_[0]);
    texts[0] = texts[2] = texts[4] = u"gone";
    EXPECT_EQ(item->name(), u"oak");
    EXPECT_EQ(item->property(u"1"), u"");
    EXPECT_EQ(item->property(u"2"), std::u16string(300, u'x'));
    EXPECT_EQ(item->property(u"4"), u"last");
    for (const std::u16string_view column : {u"", u"0", u"3", u"5", u"7", u"8", u"11"})
        EXPECT_EQ(item->property(std::u16string(column)), u"");
    EXPECT_EQ(item->object(), trees_[0]);
}

TEST_F(SelectItemTest, TextsMayBeAnythingThatConverts) {
    create();
    dialog_.call(u"AsListView");
    dialog_.call(u"AddColumn", u"A");
    dialog_.call(u"AddColumn", u"B");
    Value variable(u"variable");
    dialog_.call(u"AddItem", 7, trees_[0], true);
    dialog_.call(u"AddItem", automation::byRef(variable), trees_[1], Value());
    EXPECT_EQ(errorNumber([&] { dialog_.call(u"AddItem", Value::null(), trees_[0]); }), 94);
    EXPECT_EQ(errorNumber([&] { dialog_.call(u"AddItem", Value::missing(), trees_[0]); }), 449);
    EXPECT_EQ(*variable.text(), u"variable");
    popUp([&](ui::Form& form) {
        EXPECT_EQ(rows(listView(form)), (Rows{{u"7", u"True"}, {u"variable", u""}}));
        world_.user.press(form, {Key::Escape});
    });
}

TEST_F(SelectItemTest, ItIsShownAgainAsItWasLeft) {
    createListView(true);
    popUp([&](ui::Form& form) {
        world_.user.clickBox(listView(form), 1);
        world_.user.resize(form, {{9000}, {7000}});
        world_.user.press(form, {Key::Escape});
    });
    popUp([&](ui::Form& form) {
        EXPECT_TRUE(listView(form).isChecked(1));
        world_.user.press(form, {Key::Enter});
    });
    EXPECT_EQ(checked(), (std::vector<Object>{trees_[1]}));
    dialog_.call(u"Destroy");
    create();
    popUp([&](ui::Form& form) {
        EXPECT_EQ(form.clientSize(), (ui::Size{{9000}, {7000}})) << "the size is kept";
        EXPECT_EQ(list(form).rowCount(), 0U);
        world_.user.press(form, {Key::Escape});
    });
}

TEST_F(SelectItemTest, TheListGrowsWithTheWindow) {
    createListView(false);
    popUp([&](ui::Form& form) {
        const ui::Size before = form.clientSize();
        const ui::Control& view = get<ui::Panel>(form, u"ListView.View");
        const ui::Size list = view.bounds().size();
        world_.user.resize(form, {before.width + ui::Twips{1500}, before.height + ui::Twips{900}});
        EXPECT_EQ(view.bounds().width, list.width + ui::Twips{1500});
        EXPECT_EQ(view.bounds().height, list.height + ui::Twips{900});
        world_.user.press(form, {Key::Escape});
    });
}

TEST_F(SelectItemTest, DestroyDropsEveryReference) {
    createListView(true);
    const std::int64_t before = automation::NativeObject::liveCount();
    dialog_.call(u"Destroy");
    EXPECT_EQ(automation::NativeObject::liveCount(), before - 5) << "one for each item";
    for (Object& tree : trees_)
        tree.reset();
    EXPECT_EQ(automation::NativeObject::liveCount(), before - 10);
}

TEST_F(SelectItemTest, TheHostMayDestroyItInsideAnyEvent) {
    const auto destroy = [this] { dialog_.call(u"Destroy"); };
    const std::vector<std::function<void(ui::Form&)>> events{
        [&](ui::Form& form) {
            listView(form).onSelect.connect(destroy);
            world_.user.selectRow(listView(form), 1);
        },
        [&](ui::Form& form) {
            listView(form).onCheck.connect([&](std::size_t) { destroy(); });
            world_.user.clickBox(listView(form), 1);
        },
        [&](ui::Form& form) {
            listView(form).onColumnClick.connect([&](std::size_t) { destroy(); });
            world_.user.clickColumn(listView(form), 0);
        },
        [&](ui::Form& form) {
            listView(form).onKeyDown.connect([&](ui::KeyEvent&) { destroy(); });
            world_.user.press(form, {Key::Space});
        },
        [&](ui::Form& form) {
            form.onResize.connect(destroy);
            world_.user.resize(form, {{9000}, {9000}});
        },
        [&](ui::Form& form) {
            get<ui::Button>(form, u"OK").onClick.connect(destroy);
            world_.user.click(form, u"OK");
        },
        [&](ui::Form& form) {
            form.onUnload.connect(destroy);
            world_.user.closeBox(form);
        },
    };
    for (const auto& event : events) {
        added_ = 0;
        createListView(true);
        popUp(event);
        EXPECT_EQ(errorNumber([&] { static_cast<void>(isOk()); }), 91);
        EXPECT_EQ(world_.desktop.livePeers(), 0U);
    }
}

TEST_F(SelectItemTest, SettingsThatFailAreReportedAndTheWindowStays) {
    testing::BrokenSettings broken;
    const frame::Environment environment{world_.desktop, world_.classes, world_.clock, broken};
    dialog_ = automation::make<SelectItem>(environment);
    world_.expectBox();
    create();
    addTrees();
    world_.desktop.expectModal(u"frmSelectItem", [&](ui::Form& form) {
        world_.user.selectRow(list(form), 0);
        world_.user.click(form, u"OK");
    });
    world_.expectBox();
    dialog_.call(u"PopUp");
    EXPECT_TRUE(isOk());
    EXPECT_EQ(selection(), trees_[0]);
    world_.expectBox();
    dialog_.call(u"Destroy");
    world_.desktop.verify();
    EXPECT_NE(world_.boxes().front().find(u"(Module 'SelectItem' Function 'Form_Load()')"),
              std::u16string::npos);
}

}  // namespace
}  // namespace quorel::dialogs
