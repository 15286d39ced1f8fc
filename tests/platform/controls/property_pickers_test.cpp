#include "tests/platform/controls/property_fixture.h"

namespace quorel::controls {
namespace {

using ui::Key;
using ui::Modifiers;

/// Answers with what a test has put there, and keeps what was proposed.
class PickersDouble final : public shell::ValuePickers {
  public:
    std::optional<std::int32_t> colour;
    std::optional<shell::Day> day;
    std::vector<std::int32_t> colours;
    std::vector<std::optional<shell::Day>> days;
    std::function<void()> meanwhile;

    std::optional<std::int32_t> pickColour(std::int32_t proposed) override {
        colours.push_back(proposed);
        return colour;
    }
    std::optional<shell::Day> pickDay(std::optional<shell::Day> proposed) override {
        days.push_back(proposed);
        if (meanwhile)
            meanwhile();
        return day;
    }
};

struct PropertyPickers : PropertyTest {
    PickersDouble pickers;

    PropertyPickers() {
        form = std::make_shared<ui::Form>(world.desktop, u"frmTest");
        grid = &form->add<Property>(u"Property1", world.desktop, nullptr, &pickers);
        grid->setBounds({{}, {}, ui::Twips{6000}, ui::Twips{5400}});
    }
    [[nodiscard]] ui::Button& button() { return headless::get<ui::Button>(*form, u"Property1.Browse"); }
};

TEST_F(PropertyPickers, AColourIsPickedFromTheOneThatIsThere) {
    add(u"Cover", u"Colour", 0x0000FF);
    add(u"Spine", u"Colour");
    open();
    edit(0);
    EXPECT_TRUE(button().isVisible());
    world.user.click(button());
    EXPECT_TRUE(grid->isEditing()) << "cancelled";
    pickers.colour = 0xFF8000;
    world.user.click(button());
    EXPECT_EQ(cell(0), u"#0080FF");
    EXPECT_FALSE(grid->isEditing());
    edit(1);
    world.user.click(button());
    EXPECT_EQ(pickers.colours, (std::vector<std::int32_t>{0xFF, 0xFF, 0}));
    grid->apply();
    EXPECT_EQ(node->values[u"Cover"].toInteger(), 0xFF8000);
    EXPECT_EQ(node->values[u"Spine"].toInteger(), 0xFF8000);
}

TEST_F(PropertyPickers, ADayIsPickedAndTheTimeOfDayStays) {
    add(u"Printed", u"Date", *automation::parseDate(u"1815-12-23"));
    add(u"Lent", u"DateTime", *automation::parseDate(u"2002-03-03 14:05:09"));
    add(u"Returned", u"Date");
    open();
    pickers.day = shell::Day{2024, 2, 29};
    for (const std::size_t line : {0U, 1U, 2U}) {
        edit(line);
        world.user.click(button());
    }
    EXPECT_EQ(cell(0), u"2024-02-29");
    EXPECT_EQ(cell(1), u"2024-02-29 14:05:09");
    EXPECT_EQ(cell(2), u"2024-02-29");
    EXPECT_EQ(pickers.days, (std::vector<std::optional<shell::Day>>{shell::Day{1815, 12, 23},
                                                                    shell::Day{2002, 3, 3}, std::nullopt}));
}

TEST_F(PropertyPickers, F4AndAltDownOpenThemFromTheTextAndFromTheLine) {
    add(u"Cover", u"Colour", 0);
    add(u"Printed", u"Date");
    open();
    edit(0);
    press(Key::F4);
    press(Key::Down, Modifiers::Alt);
    press(Key::Escape);
    EXPECT_EQ(pickers.colours.size(), 2U);
    world.user.selectRow(grid->list(), 1);
    pickers.day = shell::Day{2002, 3, 3};
    press(Key::F4);
    EXPECT_EQ(cell(1), u"2002-03-03");
    press(Key::Down, Modifiers::Alt);
    EXPECT_EQ(pickers.days.size(), 2U);
}

TEST_F(PropertyPickers, WhatCannotBePickedHasNoButton) {
    add(u"Title", u"String", u"Emma");
    add(u"Opens", u"Time");
    add(u"Icon", u"File");
    open();
    for (const std::size_t line : {0U, 1U, 2U}) {
        edit(line);
        EXPECT_FALSE(button().isVisible()) << line;
        press(Key::F4);
        press(Key::Escape);
    }
    EXPECT_TRUE(pickers.days.empty());
    EXPECT_TRUE(failures.empty());
}

TEST_F(PropertyPickers, ReadOnlyValuesOpenNothing) {
    add(u"Cover", u"Colour", 0);
    open();
    grid->setReadOnly(true);
    world.user.selectRow(grid->list(), 0);
    press(Key::F4);
    EXPECT_TRUE(pickers.colours.empty());
}

TEST_F(PropertyPickers, AChoiceForAnEditorThatIsGoneIsDropped) {
    add(u"Printed", u"Date");
    open();
    pickers.day = shell::Day{2002, 3, 3};
    pickers.meanwhile = [this] { grid->cancelEdit(); };
    edit(0);
    press(Key::F4);
    EXPECT_EQ(cell(0), u"");
    pickers.meanwhile = [this] { std::exchange(form, nullptr)->unload(); };
    const auto window = form;
    edit(0);
    world.user.press(*window, {Key::F4});
    EXPECT_EQ(world.desktop.livePeers(), 0U);
}

TEST(PropertyDays, AreTakenFromAndPutIntoTexts) {
    EXPECT_EQ(dayOf(u" 2002-03-04 "), (shell::Day{2002, 3, 4}));
    EXPECT_EQ(dayOf(u"2002-03-04T10:00:00"), (shell::Day{2002, 3, 4}));
    EXPECT_EQ(dayOf(u"10:00:00"), std::nullopt);
    EXPECT_EQ(dayOf(u"soon"), std::nullopt);
    EXPECT_EQ(withDay(u"soon", {312, 1, 9}), u"0312-01-09");
    EXPECT_EQ(withDay(u"10:00:00", {2002, 3, 4}), u"2002-03-04 10:00:00");
}

}  // namespace
}  // namespace quorel::controls
