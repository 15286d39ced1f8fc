#include "tests/platform/controls/property_fixture.h"

namespace quorel::controls {
namespace {

using automation::Value;
using quorel::testing::errorNumber;
using ui::Key;
using ui::Modifiers;

TEST_F(PropertyTest, ShowsNamesAndValues) {
    addEveryKind();
    add(u"Cover", u"Binary", automation::Bytes{{1, 2}, 0});
    add(u"Colour", u"Colour", 0x0080FF);
    add(u"Genre", u"Enumeration");
    open();
    EXPECT_EQ(look(), (Cells{{u"Title", u"Emma"},
                             {u"Pages", u"474"},
                             {u"Weight", u"0.5"},
                             {u"Bound", u"True"},
                             {u"Printed", u"1815-12-23"},
                             {u"Cover", u"2 bytes"},
                             {u"Colour", u"#FF8000"},
                             {u"Genre", u""}}));
    EXPECT_EQ(grid->list().columns()[0].title, u"Property");
    EXPECT_TRUE(failures.empty());
}

TEST_F(PropertyTest, OnlySeenRowsAreAsked) {
    for (int i = 0; i < 200; ++i)
        add(automation::decimal(i), u"Integer", i);
    open();
    static_cast<void>(world.user.look(grid->list(), 10, 5));
    EXPECT_EQ(node->log.size(), 5U);
    int asked = 0;
    for (const auto& definition : type->items)
        asked += definition->asked > 0 ? 1 : 0;
    EXPECT_EQ(asked, 5);
    static_cast<void>(world.user.look(grid->list(), 10, 5));
    EXPECT_EQ(node->log.size(), 5U) << "read once";
}

TEST_F(PropertyTest, WithoutObjectThereAreNamesOnly) {
    addEveryKind();
    open();
    grid->setRepObject({});
    EXPECT_EQ(look()[1], (std::vector<std::u16string>{u"Pages", u""}));
    edit(1);
    EXPECT_FALSE(grid->isEditing());
}

TEST_F(PropertyTest, CategoriesAreHeadingsThatFold) {
    type->add({.name = u"Zip", .category = u"Address"});
    type->add({.name = u"Loose"});
    type->add({.name = u"Age", .category = u"Person"});
    type->add({.name = u"Town", .category = u"Address"});
    open();
    EXPECT_EQ(look(), (Cells{{u"\u2212 Address", u""},
                             {u"Zip", u""},
                             {u"Town", u""},
                             {u"\u2212 Person", u""},
                             {u"Age", u""},
                             {u"\u2212 Other", u""},
                             {u"Loose", u""}}));
    EXPECT_TRUE(grid->list().isGroup(0));
    world.user.doubleClickRow(grid->list(), 0);
    EXPECT_EQ(look()[0][0], u"+ Address");
    EXPECT_EQ(grid->list().rowCount(), 5U);
    world.user.selectRow(grid->list(), 0);
    press(Key::Left);
    EXPECT_EQ(grid->list().rowCount(), 5U) << "folded already";
    press(Key::Right);
    EXPECT_EQ(grid->list().rowCount(), 7U);
    EXPECT_EQ(grid->list().selectedRow(), 0U);
}

TEST_F(PropertyTest, LooksTellChangedRefusedAndLockedValues) {
    addEveryKind();
    type->items[2]->texts.readOnly = true;
    open();
    enter(0, u"Persuasion");
    enter(1, u"old");
    press(Key::Escape);
    enter(1, u"x");
    world.user.selectRow(grid->list(), 3);
    const auto look = [this](std::size_t row) { return grid->list().cellLook({row, 1}); };
    EXPECT_TRUE(look(0).bold);
    EXPECT_EQ(grid->list().cellToolTip({0, 1}), u"Was: Emma");
    EXPECT_EQ(look(1).text, (ui::Colour{176, 0, 0}));
    EXPECT_EQ(grid->list().cellToolTip({1, 1}), u"Enter a whole number from -2147483648 to 2147483647.");
    EXPECT_EQ(look(2).text, (ui::Colour{96, 96, 96}));
    EXPECT_FALSE(look(3).bold);
    EXPECT_FALSE(look(3).text);
    EXPECT_FALSE(grid->list().isGroup(0));
}

TEST_F(PropertyTest, ColoursAreShownAsThemselves) {
    add(u"Back", u"Colour", 0x0080FF);
    add(u"Text", u"Colour", u"#000040");
    add(u"System", u"Colour", static_cast<std::int32_t>(0x8000000F));
    open();
    static_cast<void>(look());
    const auto looks = [this](std::size_t row) { return grid->list().cellLook({row, 1}); };
    EXPECT_EQ(looks(0).background, (ui::Colour{255, 128, 0}));
    EXPECT_EQ(looks(0).text, (ui::Colour{0, 0, 0}));
    EXPECT_EQ(looks(1).background, (ui::Colour{0, 0, 64}));
    EXPECT_EQ(looks(1).text, (ui::Colour{255, 255, 255}));
    EXPECT_FALSE(looks(2).background);
    EXPECT_FALSE(grid->list().cellLook({0, 0}).background);
}

TEST_F(PropertyTest, SearchLooksIntoNamesAndDescriptions) {
    type->add({.name = u"Zip", .category = u"Address"});
    type->add({.name = u"Age", .category = u"Person", .description = u"Years of the ZIPPER"});
    type->add({.name = u"Name"});
    open();
    world.user.doubleClickRow(grid->list(), 0);
    press(ui::key('F'), Modifiers::Control);
    EXPECT_TRUE(grid->searchBox().hasFocus());
    world.user.type(*form, u"zip");
    EXPECT_EQ(look(),
              (Cells{{u"\u2212 Address", u""}, {u"Zip", u""}, {u"\u2212 Person", u""}, {u"Age", u""}}));
    press(Key::Down);
    EXPECT_TRUE(grid->list().hasFocus());
    world.user.selectRow(grid->list(), 3);
    press(ui::key('F'), Modifiers::Control);
    press(Key::Escape);
    EXPECT_EQ(grid->searchBox().text(), u"");
    EXPECT_EQ(grid->list().rowCount(), 5U) << "the address is folded again";
    EXPECT_EQ(look()[*grid->list().selectedRow()][0], u"Age") << "the selection stays";
}

TEST_F(PropertyTest, TypingFindsByName) {
    addEveryKind();
    open();
    world.user.type(*form, u"pr");
    EXPECT_EQ(grid->list().selectedRow(), 4U);
}

TEST_F(PropertyTest, DescriptionFollowsTheSelection) {
    type->add({.name = u"Age", .datatype = u"Integer", .description = u"In years"});
    type->add({.name = u"Name"});
    open();
    world.user.selectRow(grid->list(), 0);
    const auto& title = headless::get<ui::Label>(*form, u"Property1.Title");
    const auto& text = headless::get<ui::Label>(*form, u"Property1.Description");
    EXPECT_EQ(title.text(), u"Age (Integer)");
    EXPECT_EQ(text.text(), u"In years");
    enter(0, u"old");
    press(Key::Down);
    press(Key::Up);
    EXPECT_EQ(text.text(), u"Enter a whole number from -2147483648 to 2147483647.");
}

TEST_F(PropertyTest, UnreadableValueShowsAMarkAndIsReportedOnce) {
    addEveryKind();
    node->unreadable = {u"Pages", u"Weight"};
    open();
    EXPECT_EQ(cell(1), u"#Error");
    EXPECT_EQ(cell(2), u"#Error");
    world.desktop.runPosted();
    ASSERT_EQ(failures.size(), 1U);
    EXPECT_EQ(failures[0].description(), u"Locked");
    edit(1);
    EXPECT_FALSE(grid->isEditing());
    EXPECT_EQ(failures.size(), 2U) << "what the user does fails by itself";
    node->unreadable.clear();
    EXPECT_EQ(cell(1), u"474");
}

TEST_F(PropertyTest, CopyTakesARowOrAllWithTheirHeader) {
    addEveryKind();
    node->values[u"Title"] = u"two\nlines";
    open();
    world.user.selectRow(grid->list(), 1);
    press(ui::key('C'), Modifiers::Control);
    EXPECT_EQ(world.desktop.clipboardText(), u"Property\tValue\r\nPages\t474\r\n");
    world.user.chooseContextMenu(grid->list(), 1, u"CopyAll");
    EXPECT_EQ(world.desktop.clipboardText(),
              u"Property\tValue\r\nTitle\t\"two\nlines\"\r\nPages\t474\r\n"
              u"Weight\t0.5\r\nBound\tTrue\r\nPrinted\t1815-12-23\r\n");
}

TEST_F(PropertyTest, ReleaseDropsEverything) {
    addEveryKind();
    open();
    grid->release();
    EXPECT_EQ(grid->list().rowCount(), 0U);
    EXPECT_FALSE(grid->repObject());
    EXPECT_FALSE(grid->metaObject());
    EXPECT_EQ(grid->path(), u"/models");
    EXPECT_EQ(errorNumber([&] { grid->build(); }), 91);
    grid->close();
    EXPECT_EQ(grid->path(), u"");
}

TEST_F(PropertyTest, GridMayBeReleasedOrDestroyedWhileACellIsRead) {
    for (const bool destroyed : {false, true}) {
        addEveryKind();
        open();
        node->onCall = [&](const std::u16string&) {
            if (destroyed && form)
                form->unload();
            else
                grid->release();
        };
        static_cast<void>(world.user.look(grid->list(), 0, 1));
        node->onCall = {};
        grid->release();
        type->items.clear();
    }
    EXPECT_EQ(world.desktop.livePeers(), 0U);
}

TEST_F(PropertyTest, ColumnsKeepTheUsersWidthAndFillTheRoom) {
    addEveryKind();
    open();
    const auto room = grid->list().columns()[0].width + grid->list().columns()[1].width;
    world.user.resizeColumn(grid->list(), 0, ui::Twips{1500});
    grid->setBounds({{}, {}, ui::Twips{7500}, ui::Twips{5400}});
    EXPECT_EQ(grid->list().columns()[0].width, ui::Twips{1500});
    EXPECT_EQ(grid->list().columns()[1].width, room + ui::Twips{1500} - ui::Twips{1500});
}

}  // namespace
}  // namespace quorel::controls
