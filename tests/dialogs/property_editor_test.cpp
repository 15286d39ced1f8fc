#include "tests/dialogs/property_editor_fixture.h"

namespace quorel::dialogs {
namespace {

using Cells = std::vector<std::vector<std::u16string>>;

TEST_F(PropertyEditorTest, EveryMemberButCreateAndDestroyNeedsTheForm) {
    const auto check = [this] {
        EXPECT_EQ(errorNumber([&] { editor->Init(person); }), 91);
        EXPECT_EQ(errorNumber([&] { editor->Deinit(); }), 91);
        EXPECT_EQ(errorNumber([&] { editor->PopUp(); }), 91);
        EXPECT_EQ(errorNumber([&] { editor->Conceal(); }), 91);
        EXPECT_EQ(errorNumber([&] { static_cast<void>(editor->repObject()); }), 91);
        EXPECT_EQ(errorNumber([&] { editor->setRepObject(anna); }), 91);
        EXPECT_EQ(errorNumber([&] { static_cast<void>(editor->OK()); }), 91);
        EXPECT_EQ(errorNumber([&] { static_cast<void>(editor->Cancelled()); }), 91);
        EXPECT_EQ(errorNumber([&] { static_cast<void>(editor->CallbackObject()); }), 91);
        EXPECT_EQ(errorNumber([&] { editor->setCallbackObject({}); }), 91);
        EXPECT_EQ(errorNumber([&] { static_cast<void>(editor->Caption()); }), 91);
        EXPECT_EQ(errorNumber([&] { editor->setCaption(u"c"); }), 91);
        EXPECT_EQ(errorNumber([&] { static_cast<void>(editor->ReadOnly()); }), 91);
        EXPECT_EQ(errorNumber([&] { editor->setReadOnly(true); }), 91);
        editor->Destroy();
        editor->Destroy();
    };
    check();
    editor->Create(u"");
    editor->Destroy();
    check();
    EXPECT_TRUE(world.boxes().empty());
}

TEST_F(PropertyEditorTest, MembersStandInPublishedOrder) {
    std::vector<std::u16string> names;
    for (const automation::MemberInfo& member : editor->classTable().members())
        names.push_back(member.name);
    EXPECT_EQ(names, (std::vector<std::u16string>{u"Create", u"Destroy", u"Init", u"Deinit", u"PopUp",
                                                  u"Conceal", u"repObject", u"OK", u"Cancelled",
                                                  u"CallbackObject", u"Caption", u"ReadOnly"}));
}

TEST_F(PropertyEditorTest, CancelledUntilOk) {
    prepare();
    EXPECT_FALSE(editor->OK());
    EXPECT_TRUE(editor->Cancelled());
    popUp([this](ui::Form& form) { world.user.click(form, u"ButtonCancel"); });
    EXPECT_TRUE(editor->Cancelled());
    popUp([this](ui::Form& form) { world.user.click(form, u"ButtonOK"); });
    EXPECT_TRUE(editor->OK());
    EXPECT_FALSE(editor->Cancelled());
    popUp([this](ui::Form& form) {
        EXPECT_TRUE(editor->OK()) << "until the next answer";
        world.user.click(form, u"ButtonCancel");
    });
    EXPECT_FALSE(editor->OK());
}

TEST_F(PropertyEditorTest, UnloadingResetsTheFlag) {
    prepare();
    popUp([this](ui::Form& form) { world.user.click(form, u"ButtonOK"); });
    popUp([this](ui::Form& form) { world.user.closeBox(form); });
    EXPECT_FALSE(editor->OK());
    EXPECT_TRUE(editor->Cancelled());
}

TEST_F(PropertyEditorTest, ShowsTheObjectUnderItsCaption) {
    prepare();
    EXPECT_EQ(editor->Caption(), u"Property Editor");
    EXPECT_EQ(editor->repObject(), Object(anna));
    popUp([this](ui::Form& form) {
        EXPECT_EQ(form.text(), u"Property Editor");
        EXPECT_EQ(world.user.look(list(form), 0, 3),
                  (Cells{{u"Nick", u"Ann"}, {u"Age", u"40"}, {u"Note", u""}}));
        EXPECT_TRUE(list(form).hasFocus());
        EXPECT_EQ(headless::get<ui::Button>(form, u"ButtonOK").toolTip(), u"OK");
        EXPECT_NE(headless::get<ui::Button>(form, u"ButtonCancel").glyph(), nullptr);
        form.hide();
    });
    editor->setCaption(u"Anna");
    EXPECT_EQ(editor->Caption(), u"Anna");
}

TEST_F(PropertyEditorTest, EnterIsOkAndEscIsCancel) {
    prepare();
    popUp([this](ui::Form& form) { world.user.press(form, {ui::Key::Enter}); });
    EXPECT_TRUE(editor->OK());
    popUp([this](ui::Form& form) { world.user.press(form, {ui::Key::Escape}); });
    EXPECT_FALSE(editor->OK());
}

TEST_F(PropertyEditorTest, OkWritesExactlyWhatWasChanged) {
    prepare();
    popUp([this](ui::Form& form) {
        enter(form, 1, u"41");
        script->restart();
        world.user.press(form, {ui::Key::Enter});
    });
    EXPECT_EQ(script->log, std::vector<std::u16string>{u"id1.SetProperty"});
    EXPECT_EQ(*anna->values[u"Age"].getIf<std::int32_t>(), 41);
}

TEST_F(PropertyEditorTest, CancelWritesNothingAndKeepsTheEdits) {
    prepare();
    popUp([this](ui::Form& form) {
        enter(form, 1, u"41");
        world.user.press(form, {ui::Key::Escape});
    });
    EXPECT_EQ(anna->values[u"Age"].toInteger(), 40);
    popUp([this](ui::Form& form) {
        EXPECT_EQ(cell(form, 1), u"41");
        form.hide();
    });
    editor->setRepObject(anna);
    popUp([this](ui::Form& form) {
        EXPECT_EQ(cell(form, 1), u"40");
        form.hide();
    });
}

TEST_F(PropertyEditorTest, ObjectMayBeSetBeforeInit) {
    editor->Create(u"");
    editor->setRepObject(anna);
    editor->Init(person);
    popUp([this](ui::Form& form) {
        EXPECT_EQ(cell(form, 1), u"40");
        form.hide();
    });
}

TEST_F(PropertyEditorTest, InitWithoutMetaObjectComesBackToTheHost) {
    editor->Create(u"");
    EXPECT_EQ(errorNumber([&] { editor->Init({}); }), 91);
    EXPECT_EQ(
        errorNumber([&] { editor->Init(anna->classTable().className() == u"x" ? Object() : callback); }),
        438);
    EXPECT_TRUE(world.boxes().empty());
}

TEST_F(PropertyEditorTest, DeinitEmptiesAndTheEditorCanBeUsedAgain) {
    prepare();
    editor->Deinit();
    EXPECT_FALSE(editor->repObject());
    editor->Deinit();
    editor->Init(person);
    editor->setRepObject(anna);
    popUp([this](ui::Form& form) {
        EXPECT_EQ(cell(form, 1), u"40");
        form.hide();
    });
}

TEST_F(PropertyEditorTest, ReadOnlyLetsNothingBeEdited) {
    prepare();
    EXPECT_FALSE(editor->ReadOnly());
    editor->setReadOnly(true);
    EXPECT_TRUE(editor->ReadOnly());
    popUp([this](ui::Form& form) {
        world.user.selectRow(list(form), 1);
        world.user.press(form, {ui::Key::F2});
        EXPECT_FALSE(headless::get<ui::TextBox>(form, u"Property1.Text").isVisible());
        world.user.press(form, {ui::Key::Enter});
    });
    EXPECT_TRUE(editor->OK());
}

TEST_F(PropertyEditorTest, ModelessReturnsAtOnce) {
    prepare();
    editor->PopUp(false);
    EXPECT_EQ(world.desktop.livePeers() > 0, true);
    editor->Conceal();
    editor->PopUp(false);
    editor->Destroy();
    EXPECT_EQ(world.desktop.livePeers(), 0U);
}

TEST_F(PropertyEditorTest, ShowingItModallyTwiceIsReported) {
    prepare();
    editor->PopUp(false);
    world.expectBox();
    editor->PopUp();
    EXPECT_TRUE(lastBox().starts_with(u"Error No: 400"));
    EXPECT_TRUE(lastBox().ends_with(u"(Module 'PropertyEditor' Function 'Popup()')"));
}

TEST_F(PropertyEditorTest, PartsFollowTheWindow) {
    prepare();
    popUp([this](ui::Form& form) {
        for (const std::int32_t size : {4500, 6000, 12000}) {
            world.user.resize(form, {ui::Twips{size}, ui::Twips{size}});
            const ui::Rect grid = headless::get<ui::Control>(form, u"Property1.View").bounds();
            const ui::Rect row = headless::get<ui::Control>(form, u"Buttons").bounds();
            EXPECT_EQ(grid.width, ui::Twips{size});
            EXPECT_EQ(grid.height, ui::Twips{size} - row.height);
            EXPECT_EQ(row.top, grid.bottom());
        }
        form.hide();
    });
}

TEST_F(PropertyEditorTest, ThousandLifetimesLeaveNothing) {
    const std::int64_t before = automation::NativeObject::liveCount();
    for (int i = 0; i < 1000; ++i) {
        const auto each = make<PropertyEditor>(world.environment);
        each->Create(u"");
        each->Init(person);
        each->setRepObject(anna);
        each->setCallbackObject(callback);
        world.desktop.expectModal(u"frmPropertyEditor", [&](ui::Form& form) {
            static_cast<void>(cell(form, 0));
            form.hide();
        });
        each->PopUp();
        each->Destroy();
    }
    EXPECT_EQ(automation::NativeObject::liveCount(), before);
    EXPECT_EQ(world.desktop.livePeers(), 0U);
}

}  // namespace
}  // namespace quorel::dialogs
