#include <filesystem>

#include "platform/controls/property_file.h"
#include "tests/platform/controls/property_fixture.h"

namespace quorel::controls {
namespace {

using automation::Object;
using automation::Value;
using quorel::testing::errorNumber;
using ui::Key;
using ui::Modifiers;
using Log = std::vector<std::u16string>;

TEST_F(PropertyTest, F2EditsEnterTakesAndMarks) {
    addEveryKind();
    open();
    edit(1);
    EXPECT_TRUE(box().hasFocus());
    EXPECT_TRUE(box().isAllSelected());
    EXPECT_EQ(box().text(), u"474");
    world.user.type(*form, u"475");
    press(Key::Enter);
    EXPECT_FALSE(grid->isEditing());
    EXPECT_TRUE(grid->list().hasFocus());
    EXPECT_EQ(look()[1], (std::vector<std::u16string>{u"Pages *", u"475"}));
    EXPECT_EQ(okClicks, 0);
    press(Key::Enter);
    EXPECT_EQ(okClicks, 1) << "Enter on a line is the default button";
    grid->apply();
    EXPECT_EQ(*node->values[u"Pages"].getIf<std::int32_t>(), 475);
    EXPECT_EQ(look()[1], (std::vector<std::u16string>{u"Pages", u"475"}));
}

TEST_F(PropertyTest, ClickOnTheValueOfTheSelectedLineEdits) {
    addEveryKind();
    open();
    world.user.clickCell(grid->list(), {1, 1});
    EXPECT_FALSE(grid->isEditing()) << "the first click selects";
    world.user.clickCell(grid->list(), {1, 0});
    EXPECT_FALSE(grid->isEditing()) << "names are not edited";
    world.user.clickCell(grid->list(), {1, 1});
    EXPECT_TRUE(grid->isEditing());
    press(Key::Escape);
    world.user.doubleClickRow(grid->list(), 2);
    EXPECT_EQ(box().text(), u"0.5");
}

TEST_F(PropertyTest, EditorStandsOverItsCellAndGoesWithIt) {
    for (int i = 0; i < 100; ++i)
        add(automation::decimal(i), u"Integer", i);
    open();
    edit(3);
    EXPECT_EQ(box().bounds(), grid->list().cellBounds({3, 1}));
    world.user.scrollTo(grid->list(), 2);
    EXPECT_EQ(box().bounds(), grid->list().cellBounds({3, 1}));
    world.user.type(*form, u"77");
    world.user.scrollTo(grid->list(), 50);
    EXPECT_FALSE(box().isVisible()) << "out of sight";
    EXPECT_TRUE(grid->isEditing());
    world.user.scrollTo(grid->list(), 0);
    EXPECT_EQ(box().text(), u"77") << "the text waits";
    edit(99);
    EXPECT_TRUE(box().isVisible()) << "brought into view";
    EXPECT_EQ(grid->model().items()[3]->value().toInteger(), 77);
}

TEST_F(PropertyTest, EscTakesBackWhatWasTyped) {
    addEveryKind();
    open();
    edit(1);
    world.user.type(*form, u"9");
    press(Key::Escape);
    EXPECT_FALSE(grid->isEditing());
    EXPECT_EQ(cell(1), u"474");
    EXPECT_FALSE(grid->model().isChanged());
}

TEST_F(PropertyTest, TabGoesOnToTheNextValueAndShiftTabBack) {
    addEveryKind();
    type->items[1]->texts.readOnly = true;
    open();
    edit(0);
    world.user.enterText(box(), u"Persuasion");
    press(Key::Tab);
    EXPECT_EQ(grid->list().selectedRow(), 2U) << "what is read-only is passed over";
    EXPECT_EQ(box().text(), u"0.5");
    EXPECT_EQ(cell(0), u"Persuasion");
    EXPECT_EQ(headless::get<ui::Label>(*form, u"Property1.Title").text(), u"Weight (Double)");
    press(Key::Tab, Modifiers::Shift);
    EXPECT_EQ(box().text(), u"Persuasion");
    press(Key::Tab, Modifiers::Shift);
    EXPECT_FALSE(grid->isEditing()) << "there is none before";
    edit(4);
    press(Key::Tab);
    EXPECT_FALSE(grid->isEditing()) << "there is none after";
    EXPECT_TRUE(grid->list().hasFocus());
}

TEST_F(PropertyTest, ProblemIsShownWhileTyping) {
    addEveryKind();
    open();
    edit(1);
    EXPECT_EQ(problem(), u"");
    world.user.type(*form, u"4x");
    EXPECT_EQ(problem(), u"Enter a whole number from -2147483648 to 2147483647.");
    EXPECT_TRUE(headless::get<ui::Label>(*form, u"Property1.Message").isVisible());
    press(Key::Enter);
    EXPECT_TRUE(grid->isEditing()) << "a refused text keeps the editor";
    press(Key::Tab);
    EXPECT_TRUE(grid->isEditing());
    press(Key::Backspace);
    EXPECT_EQ(problem(), u"");
    press(Key::Enter);
    EXPECT_FALSE(grid->isEditing());
    EXPECT_EQ(cell(1), u"4");
}

TEST_F(PropertyTest, RefusedTextStaysInItsCellWithTheReason) {
    addEveryKind();
    open();
    edit(1);
    world.user.type(*form, u"old");
    world.user.selectRow(grid->list(), 0);
    EXPECT_FALSE(grid->isEditing());
    EXPECT_EQ(cell(1), u"old   ! Enter a whole number from -2147483648 to 2147483647.");
    EXPECT_EQ(errorNumber([&] { grid->apply(); }), 13);
    edit(1);
    EXPECT_EQ(box().text(), u"old");
    EXPECT_NE(problem(), u"");
    press(Key::Escape);
    EXPECT_EQ(cell(1), u"474");
    grid->apply();
    EXPECT_EQ(std::count(node->log.begin(), node->log.end(), u"set Pages"), 0);
}

TEST_F(PropertyTest, LeavingTheEditorTakesTheText) {
    addEveryKind();
    open();
    edit(0);
    world.user.type(*form, u"Sanditon");
    world.user.click(*ok);
    EXPECT_FALSE(grid->isEditing());
    EXPECT_EQ(cell(0), u"Sanditon");
    EXPECT_TRUE(ok->hasFocus()) << "the focus stays where the user put it";
}

TEST_F(PropertyTest, ApplyTakesTheTextThatIsBeingEdited) {
    addEveryKind();
    open();
    edit(1);
    world.user.type(*form, u"7");
    grid->apply();
    EXPECT_EQ(node->values[u"Pages"].toInteger(), 7);
    EXPECT_FALSE(grid->isEditing());
}

TEST_F(PropertyTest, EachValueIsRevertedByItself) {
    addEveryKind();
    open();
    enter(0, u"Persuasion");
    enter(1, u"1");
    world.user.selectRow(grid->list(), 0);
    press(ui::key('Z'), Modifiers::Control);
    EXPECT_EQ(cell(0), u"Emma");
    EXPECT_EQ(cell(1), u"1");
    enter(0, u"Persuasion");
    world.user.chooseContextMenu(grid->list(), 0, u"RevertAll");
    EXPECT_FALSE(grid->model().isChanged());
    EXPECT_THROW(world.user.chooseContextMenu(grid->list(), 0, u"Revert"), headless::CannotDo)
        << "there is nothing to revert";
}

TEST_F(PropertyTest, DeleteUnsets) {
    addEveryKind();
    open();
    world.user.selectRow(grid->list(), 1);
    press(Key::Delete);
    EXPECT_EQ(look()[1], (std::vector<std::u16string>{u"Pages *", u""}));
    grid->apply();
    EXPECT_TRUE(node->values[u"Pages"].isEmpty());
}

TEST_F(PropertyTest, BooleansAreTickedOrTurnedOver) {
    addEveryKind();
    open();
    edit(3);
    auto& check = headless::get<ui::CheckBox>(*form, u"Property1.Check");
    EXPECT_TRUE(check.isVisible());
    EXPECT_TRUE(check.isChecked());
    world.user.click(check);
    EXPECT_EQ(cell(3), u"False");
    EXPECT_TRUE(grid->isEditing());
    press(Key::Enter);
    EXPECT_FALSE(check.isVisible());
    press(Key::Space);
    EXPECT_EQ(cell(3), u"True");
    EXPECT_FALSE(grid->model().isChanged());
    node->values[u"Bound"] = Value();
    grid->setRepObject(node);
    world.user.selectRow(grid->list(), 3);
    press(Key::Space);
    EXPECT_EQ(cell(3), u"True") << "what is unset becomes true first";
}

TEST_F(PropertyTest, EnumerationsAreChosenFromTheirValues) {
    type->add({.name = u"Genre",
               .datatype = u"Enumeration",
               .values = automation::Array{{u"Novel", u"Play", u"Poem"}, 0}});
    node->values[u"Genre"] = u"Play";
    open();
    edit(0);
    auto& choice = headless::get<ui::ComboBox>(*form, u"Property1.Choice");
    EXPECT_TRUE(choice.hasFocus());
    EXPECT_EQ(choice.text(), u"Play");
    EXPECT_EQ(choice.items().size(), 3U);
    world.user.choose(choice, 2);
    EXPECT_EQ(cell(0), u"Play") << "not taken yet";
    press(Key::Enter);
    EXPECT_EQ(cell(0), u"Poem");
    edit(0);
    world.user.choose(choice, 0);
    press(Key::Escape);
    EXPECT_EQ(cell(0), u"Poem");
    grid->apply();
    EXPECT_EQ(node->values[u"Genre"].toString(), u"Poem");
}

TEST_F(PropertyTest, EnumerationWithoutValuesIsText) {
    add(u"Genre", u"Enumeration", u"any");
    open();
    enter(0, u"other");
    EXPECT_EQ(cell(0), u"other");
}

TEST_F(PropertyTest, TextWithLinesIsEditedInLines) {
    add(u"Memo", u"MultiLine", u"one");
    add(u"Text", u"String", u"a\nb");
    open();
    edit(0);
    EXPECT_TRUE(lines().hasFocus());
    world.user.enterText(lines(), u"one");
    press(Key::Enter);
    EXPECT_TRUE(grid->isEditing()) << "Enter breaks the line";
    world.user.type(*form, u"two");
    press(Key::Enter, Modifiers::Control);
    EXPECT_FALSE(grid->isEditing());
    EXPECT_EQ(cell(0), u"one\u2026");
    edit(1);
    EXPECT_EQ(lines().text(), u"a\r\nb");
    press(Key::Enter, Modifiers::Control);
    EXPECT_FALSE(grid->model().items()[1]->isChanged()) << "line breaks of another kind are no change";
    grid->apply();
    EXPECT_EQ(node->values[u"Memo"].toString(), u"one\r\ntwo");
}

TEST_F(PropertyTest, ReadOnlyShowsAndCopiesOnly) {
    addEveryKind();
    open();
    edit(0);
    grid->setReadOnly(true);
    EXPECT_FALSE(grid->isEditing());
    for (std::size_t line = 0; line < 5; ++line) {
        edit(line);
        EXPECT_FALSE(grid->isEditing());
        press(Key::Delete);
        press(Key::Space);
    }
    EXPECT_FALSE(grid->model().isChanged());
    EXPECT_THROW(world.user.chooseContextMenu(grid->list(), 1, u"Edit"), headless::CannotDo);
    grid->setReadOnly(false);
    edit(0);
    EXPECT_TRUE(grid->isEditing());
}

TEST_F(PropertyTest, FilesAndFoldersAreBrowsedFor) {
    add(u"Icon", u"File", u"a.png");
    add(u"Home", u"Directory", u"/home");
    open();
    auto& browse = headless::get<ui::Button>(*form, u"Property1.Browse");
    edit(0);
    EXPECT_TRUE(browse.isVisible());
    world.user.click(browse);
    EXPECT_TRUE(grid->isEditing()) << "cancelled";
    files.answer = u"/models/b.png";
    world.user.click(browse);
    EXPECT_EQ(cell(0), u"/models/b.png");
    edit(1);
    files.answer = u"/tmp";
    world.user.click(browse);
    EXPECT_EQ(cell(1), u"/tmp");
    EXPECT_EQ(files.log,
              (Log{u"open Icon in /models a.png", u"open Icon in /models a.png", u"folder Home in /home "}));
    EXPECT_FALSE(browse.isVisible());
}

TEST_F(PropertyTest, BytesAreLoadedAndSaved) {
    const auto file = std::filesystem::temp_directory_path() / "quorel_property_bytes.bin";
    writeFile(file.u16string(), {0, 1, 255});
    add(u"Cover", u"Binary");
    open();
    files.answer = file.u16string();
    edit(0);
    EXPECT_TRUE(box().isReadOnly());
    world.user.click(*form, u"Property1.Browse");
    EXPECT_EQ(cell(0), u"3 bytes");
    files.answer = file.u16string() + u".copy";
    world.user.chooseContextMenu(grid->list(), 0, u"Save");
    EXPECT_EQ(readFile(file.u16string() + u".copy"), (std::vector<std::uint8_t>{0, 1, 255}));
    files.answer = u"/nowhere/at/all";
    world.user.chooseContextMenu(grid->list(), 0, u"Load");
    ASSERT_EQ(failures.size(), 1U);
    EXPECT_EQ(failures[0].number(), 53);
    world.user.chooseContextMenu(grid->list(), 0, u"Save");
    EXPECT_EQ(failures.back().number(), 75);
    grid->apply();
    EXPECT_EQ(node->values[u"Cover"].getIf<automation::Bytes>()->data.size(), 3U);
    std::filesystem::remove(file);
    std::filesystem::remove(std::filesystem::path(file.u16string() + u".copy"));
}

TEST_F(PropertyTest, EditorIsHandedToTheHost) {
    addEveryKind();
    open();
    Object control;
    grid->events().onPropertyControlCreated.connect([&](Object& property, const Object& given) {
        control = given;
        EXPECT_EQ(property.get(u"name").toString(), u"Pages");
        EXPECT_EQ(given.get(u"Text").toString(), u"474");
        given.put(u"Text", u"500");
        given.put(u"ToolTipText", u"How many");
        property = Object();
    });
    edit(1);
    EXPECT_EQ(box().text(), u"500");
    EXPECT_EQ(box().toolTip(), u"How many");
    EXPECT_EQ(control.get(u"name").toString(), u"Property1.Text");
    press(Key::Enter);
    EXPECT_EQ(cell(1), u"500") << "what the host sets counts as typed";
    EXPECT_EQ(errorNumber([&] { static_cast<void>(control.get(u"Text")); }), 91);
    EXPECT_EQ(errorNumber([&] { control.put(u"Text", u"1"); }), 91);
}

TEST_F(PropertyTest, HostEditsByItselfWhenItSaysSo) {
    addEveryKind();
    open();
    int created = 0;
    grid->events().onPropertyControlCreated.connect([&](Object&, const Object&) { ++created; });
    grid->events().onCreatePropertyControl.connect([](Object& property, bool& handled) {
        property.put(u"Value", 12);
        handled = true;
    });
    edit(1);
    EXPECT_FALSE(grid->isEditing());
    EXPECT_EQ(created, 0);
    EXPECT_EQ(cell(1), u"12");
}

TEST_F(PropertyTest, HandlersMayEndTheWindowInEveryEvent) {
    addEveryKind();
    add(u"Unset", u"String");
    for (int event = 0; event < 5; ++event) {
        form = std::make_shared<ui::Form>(world.desktop, u"frmTest");
        grid = &form->add<Property>(u"Property1", world.desktop, &files);
        grid->setBounds({{}, {}, ui::Twips{6000}, ui::Twips{5400}});
        open();
        auto& events = grid->events();
        const auto end = [this] {
            if (const auto gone = std::exchange(form, nullptr))
                gone->unload();
        };
        const std::shared_ptr<ui::Form> window = form;
        auto& text = box();
        if (event == 0)
            events.onCreatePropertyControl.connect([end](Object&, bool&) { end(); });
        if (event == 1)
            events.onPropertyControlCreated.connect([end](Object&, const Object&) { end(); });
        if (event == 2)
            events.onPropertyValidate.connect([end](Object&, const Value&, const Value&, bool&) { end(); });
        if (event == 3)
            events.onPropertyChanged.connect(
                [end](Object&, std::u16string&, std::u16string&, const Value&, bool&) { end(); });
        if (event == 4)
            events.onNewProperty.connect([end](Object&) { end(); });
        edit(5);
        if (event >= 2) {
            world.user.enterText(text, u"set");
            world.user.press(*window, {Key::Enter});
        }
        EXPECT_FALSE(form) << event;
        EXPECT_EQ(world.desktop.livePeers(), 0U) << event;
    }
}

TEST_F(PropertyTest, HandlersMayReleaseTheGridWhileEditing) {
    addEveryKind();
    open();
    grid->events().onPropertyChanged.connect(
        [this](Object&, std::u16string&, std::u16string&, const Value&, bool&) { grid->release(); });
    enter(0, u"x");
    EXPECT_FALSE(grid->isEditing());
    EXPECT_EQ(grid->list().rowCount(), 0U);
    EXPECT_TRUE(failures.empty());
}

}  // namespace
}  // namespace quorel::controls
