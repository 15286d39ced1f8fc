#include "tests/dialogs/property_editor_fixture.h"

namespace quorel::dialogs {
namespace {

using Arguments = CallbackDouble::Arguments;
using Log = std::vector<std::u16string>;

TEST_F(PropertyEditorTest, EventsReachTheCallbackUnderTheirNames) {
    prepareWithCallback();
    callback->onAll();
    popUp([this](ui::Form& form) {
        enter(form, 1, u"41");
        enter(form, 2, u"new");
        world.user.press(form, {ui::Key::Delete});
        form.hide();
    });
    EXPECT_EQ(callback->log,
              (Log{u"CreatePropertyControl/2", u"PropertyControlCreated/2", u"PropertyValidate/4",
                   u"PropertyChanged/5", u"CreatePropertyControl/2", u"PropertyControlCreated/2",
                   u"PropertyValidate/4", u"PropertyChanged/5", u"NewProperty/1", u"PropertyValidate/4",
                   u"PropertyChanged/5", u"PropertyDeleted/1"}));
}

TEST_F(PropertyEditorTest, WithoutCallbackEventsPassWithoutEffect) {
    prepareWithCallback();
    editor->setCallbackObject({});
    popUp([this](ui::Form& form) {
        enter(form, 1, u"41");
        enter(form, 2, u"new");
        world.user.press(form, {ui::Key::Delete});
        EXPECT_EQ(cell(form, 1), u"41");
        form.hide();
    });
    EXPECT_TRUE(callback->log.empty());
    EXPECT_TRUE(world.boxes().empty());
}

TEST_F(PropertyEditorTest, ArgumentsComeInTheirOrderAndByReference) {
    prepareWithCallback();
    const auto nameOf = [](const automation::Argument& argument) {
        return argument.value().toObject().get(u"name").toString();
    };
    callback->on(u"PropertyValidate", [&](Arguments a) {
        EXPECT_EQ(nameOf(a[0]), u"Age");
        EXPECT_EQ(*a[1].value().getIf<std::int32_t>(), 40);
        EXPECT_EQ(*a[2].value().getIf<std::int32_t>(), 41);
        EXPECT_TRUE(*a[3].value().getIf<bool>());
        EXPECT_TRUE(a[0].isReference() && a[3].isReference());
        EXPECT_FALSE(a[1].isReference() || a[2].isReference());
    });
    callback->on(u"PropertyChanged", [&](Arguments a) {
        EXPECT_EQ(nameOf(a[0]), u"Age");
        EXPECT_EQ(a[1].value().toString(), u"40");
        EXPECT_EQ(a[2].value().toString(), u"41");
        EXPECT_EQ(*a[3].value().getIf<std::int32_t>(), 41);
        EXPECT_FALSE(*a[4].value().getIf<bool>());
        EXPECT_TRUE(a[0].isReference() && a[1].isReference() && a[2].isReference() && a[4].isReference());
        EXPECT_FALSE(a[3].isReference());
    });
    callback->on(u"CreatePropertyControl", [&](Arguments a) {
        EXPECT_EQ(nameOf(a[0]), u"Age");
        EXPECT_FALSE(*a[1].value().getIf<bool>());
        EXPECT_TRUE(a[0].isReference() && a[1].isReference());
    });
    callback->on(u"PropertyControlCreated", [&](Arguments a) {
        EXPECT_EQ(nameOf(a[0]), u"Age");
        EXPECT_EQ(a[1].value().toObject().get(u"Text").toString(), u"40");
        EXPECT_TRUE(a[0].isReference());
        EXPECT_FALSE(a[1].isReference());
    });
    popUp([this](ui::Form& form) {
        enter(form, 1, u"41");
        form.hide();
    });
    EXPECT_EQ(callback->log.size(), 4U);
}

TEST_F(PropertyEditorTest, ValidateFlagRefusesTheValue) {
    prepareWithCallback();
    callback->on(u"CreatePropertyControl", [](Arguments) {});
    callback->on(u"PropertyControlCreated", [](Arguments) {});
    callback->on(u"PropertyValidate", [](Arguments a) {
        a[0].value().toObject().put(u"Message", u"Nobody is that old.");
        a[3].value() = Value(false);
    });
    popUp([this](ui::Form& form) {
        enter(form, 1, u"400");
        EXPECT_TRUE(headless::get<ui::TextBox>(form, u"Property1.Text").isVisible());
        EXPECT_EQ(headless::get<ui::Label>(form, u"Property1.Message").text(), u"Nobody is that old.");
        world.expectBox();
        world.user.click(form, u"ButtonOK");
        EXPECT_TRUE(form.isVisible()) << "what is refused is not saved";
        world.user.click(form, u"ButtonCancel");
    });
    EXPECT_TRUE(lastBox().starts_with(u"Error No: 13  'The property \"Age\" cannot be saved. Nobody is"));
    EXPECT_TRUE(lastBox().ends_with(u"(Module 'PropertyEditor' Function 'Ok()')"));
    EXPECT_EQ(anna->values[u"Age"].toInteger(), 40);
}

TEST_F(PropertyEditorTest, CreateFlagLeavesTheEditorToTheHost) {
    prepareWithCallback();
    callback->on(u"CreatePropertyControl", [](Arguments a) {
        a[0].value().toObject().put(u"Value", 7);
        a[1].value() = Value(true);
    });
    callback->on(u"PropertyControlCreated", [](Arguments) {});
    callback->on(u"PropertyValidate", [](Arguments) {});
    callback->on(u"PropertyChanged", [](Arguments) {});
    popUp([this](ui::Form& form) {
        world.user.selectRow(list(form), 1);
        world.user.press(form, {ui::Key::F2});
        EXPECT_FALSE(headless::get<ui::TextBox>(form, u"Property1.Text").isVisible());
        EXPECT_EQ(cell(form, 1), u"7");
        world.user.press(form, {ui::Key::Enter});
    });
    EXPECT_EQ(anna->values[u"Age"].toInteger(), 7);
    EXPECT_EQ(callback->log, (Log{u"CreatePropertyControl/2", u"PropertyValidate/4", u"PropertyChanged/5"}));
}

TEST_F(PropertyEditorTest, NothingForThePropertyPreventsItsEditing) {
    prepareWithCallback();
    callback->on(u"CreatePropertyControl", [](Arguments a) { a[0].value() = Value::nothing(); });
    popUp([this](ui::Form& form) {
        world.user.selectRow(list(form), 1);
        world.user.press(form, {ui::Key::F2});
        EXPECT_FALSE(headless::get<ui::TextBox>(form, u"Property1.Text").isVisible());
        form.hide();
    });
}

TEST_F(PropertyEditorTest, ChangedTextsAndFlagAreTakenOver) {
    prepareWithCallback();
    std::function<void(Arguments)> change;
    callback->on(u"PropertyChanged", [&](Arguments a) { change(a); });
    for (const char16_t* name : {u"CreatePropertyControl", u"PropertyControlCreated", u"PropertyValidate",
                                 u"NewProperty", u"PropertyDeleted"})
        callback->on(name, [](Arguments) {});
    popUp([&](ui::Form& form) {
        change = [](Arguments a) { a[2].value() = Value(50); };
        enter(form, 1, u"41");
        EXPECT_EQ(cell(form, 1), u"50") << "the new text, given as a number";
        change = [](Arguments a) {
            a[1].value() = Value(u"30");
            a[4].value() = Value(true);
        };
        enter(form, 1, u"41");
        EXPECT_EQ(cell(form, 1), u"30") << "the old text, for the change was cancelled";
        change = [](Arguments a) { a[0].value() = Value::nothing(); };
        enter(form, 1, u"33");
        EXPECT_EQ(cell(form, 1), u"33") << "what is put for the property does not count here";
        form.hide();
    });
}

TEST_F(PropertyEditorTest, PropertiesPutInPlaceElsewhereDoNotCount) {
    prepareWithCallback();
    for (const char16_t* name : {u"PropertyControlCreated", u"PropertyValidate", u"NewProperty",
                                 u"PropertyDeleted", u"PropertyChanged"})
        callback->on(name, [](Arguments a) { a[0].value() = Value::nothing(); });
    callback->on(u"CreatePropertyControl", [](Arguments) {});
    popUp([this](ui::Form& form) {
        enter(form, 2, u"new");
        EXPECT_EQ(cell(form, 2), u"new");
        world.user.press(form, {ui::Key::Delete});
        EXPECT_EQ(cell(form, 2), u"");
        form.hide();
    });
}

TEST_F(PropertyEditorTest, MissingMemberIsReportedUnderTheEventsName) {
    prepareWithCallback();
    const std::vector<std::u16string> names{u"CreatePropertyControl", u"PropertyControlCreated",
                                            u"PropertyValidate", u"PropertyChanged", u"NewProperty"};
    popUp([&](ui::Form& form) {
        for (std::size_t i = 0; i < names.size(); ++i)
            world.expectBox();
        enter(form, 2, u"new");
        world.desktop.verify();
        EXPECT_EQ(cell(form, 2), u"new") << "flags keep what they were";
        for (int i = 0; i < 3; ++i)
            world.expectBox();
        world.user.press(form, {ui::Key::Delete});
        form.hide();
    });
    const auto boxes = world.boxes();
    ASSERT_EQ(boxes.size(), 8U);
    for (std::size_t i = 0; i < names.size(); ++i) {
        EXPECT_TRUE(boxes[i].starts_with(u"Error No: 438"));
        EXPECT_TRUE(boxes[i].ends_with(u"(Module 'PropertyEditor' Function '" + names[i] + u"()')"));
    }
    EXPECT_TRUE(boxes.back().ends_with(u"Function 'PropertyDeleted()')"));
}

TEST_F(PropertyEditorTest, CallbackThatThrowsIsReportedAndTheWindowGoesOn) {
    prepareWithCallback();
    callback->onAll();
    for (std::size_t throwing = 0; throwing < callback->members.size(); ++throwing) {
        auto& member = callback->members[throwing];
        member.second = [&member](Arguments a) {
            a[0].value() = Value::nothing();
            a.back().value() = Value(false);
            throw automation::Error(1234, u"Not now: " + member.first, u"Host");
        };
        // Entering and unsetting are validated and told as changes both times.
        const bool twice = member.first == u"PropertyValidate" || member.first == u"PropertyChanged";
        const std::size_t before = world.boxes().size();
        popUp([&](ui::Form& form) {
            for (int box = 0; box < (twice ? 2 : 1); ++box)
                world.expectBox();
            enter(form, 2, u"new");
            EXPECT_EQ(cell(form, 2), u"new") << "what a failed callback left behind does not count";
            world.user.press(form, {ui::Key::Delete});
            form.hide();
        });
        EXPECT_EQ(world.boxes().size() - before, twice ? 2U : 1U);
        EXPECT_TRUE(lastBox().starts_with(u"Error No: 1234  'Not now: ")) << throwing;
        member.second = [](Arguments) {};
        editor->setRepObject(anna);
    }
}

TEST_F(PropertyEditorTest, FlagOfTheWrongTypeIsReportedAndNothingIsTakenOver) {
    prepareWithCallback();
    callback->onAll();
    callback->members.pop_back();
    callback->on(u"PropertyValidate", [](Arguments a) { a[3].value() = Value(u"perhaps"); });
    popUp([this](ui::Form& form) {
        world.expectBox();
        enter(form, 1, u"41");
        EXPECT_EQ(cell(form, 1), u"41");
        form.hide();
    });
    EXPECT_TRUE(lastBox().starts_with(u"Error No: 13"));
}

TEST_F(PropertyEditorTest, CallbackMayDestroyTheEditorInEveryEvent) {
    for (const char16_t* event : {u"CreatePropertyControl", u"PropertyControlCreated", u"PropertyValidate",
                                  u"PropertyChanged", u"NewProperty"}) {
        callback = make<CallbackDouble>();
        callback->on(event, [this](Arguments) { editor->Destroy(); });
        callback->onAll();
        prepareWithCallback();
        popUp([&](ui::Form& form) {
            auto& box = headless::get<ui::TextBox>(form, u"Property1.Text");
            world.user.selectRow(list(form), 2);
            world.user.press(form, {ui::Key::F2});
            if (!box.isUsable())
                return;
            world.user.enterText(box, u"new");
            world.user.press(form, {ui::Key::Enter});
        });
        EXPECT_EQ(world.desktop.livePeers(), 0U);
        EXPECT_EQ(errorNumber([&] { static_cast<void>(editor->OK()); }), 91);
    }
    EXPECT_TRUE(world.boxes().empty());
}

TEST_F(PropertyEditorTest, ObjectMayDestroyTheEditorWhileItIsWritten) {
    prepareWithCallback();
    popUp([this](ui::Form& form) {
        editor->setCallbackObject({});
        enter(form, 1, u"41");
        script->onCall = [this](const std::u16string&) { editor->Destroy(); };
        world.user.click(form, u"ButtonOK");
        script->onCall = {};
    });
    EXPECT_EQ(anna->values[u"Age"].toInteger(), 41);
    EXPECT_EQ(world.desktop.livePeers(), 0U);
}

TEST_F(PropertyEditorTest, RefusedWriteKeepsTheWindowOpenAndShowsWhy) {
    prepareWithCallback();
    editor->setCallbackObject({});
    popUp([this](ui::Form& form) {
        enter(form, 1, u"41");
        script->onCall = [](const std::u16string& call) {
            if (call == u"id1.SetProperty")
                throw automation::Error(1000, u"Locked by Ben", u"Repository");
        };
        world.expectBox();
        world.user.click(form, u"ButtonOK");
        EXPECT_TRUE(form.isVisible());
        EXPECT_FALSE(editor->OK());
        EXPECT_EQ(cell(form, 1), u"41   ! Not saved: Locked by Ben");
        script->onCall = {};
        world.user.click(form, u"ButtonOK");
    });
    EXPECT_TRUE(
        lastBox().starts_with(u"Error No: 1000  'The property \"Age\" was not saved: Locked by Ben'"));
    EXPECT_TRUE(editor->OK());
    EXPECT_EQ(anna->values[u"Age"].toInteger(), 41);
}

TEST_F(PropertyEditorTest, UnreadableValueIsReportedUnderRepObject) {
    prepareWithCallback();
    script->onCall = [](const std::u16string& call) {
        if (call == u"id1.GetProperty")
            throw automation::Error(1001, u"Locked", u"Repository");
    };
    popUp([this](ui::Form& form) {
        world.expectBox();
        EXPECT_EQ(cell(form, 0), u"#Error");
        EXPECT_EQ(cell(form, 1), u"#Error");
        world.desktop.runPosted();
        form.hide();
    });
    EXPECT_TRUE(lastBox().ends_with(u"(Module 'PropertyEditor' Function 'RepObject()')"));
}

/// Everything that a host and a user do with the editor; one call of the repository fails on demand.
TEST(PropertyEditorSweep, EveryRepositoryCallMayFailOnceAndIsReportedOnce) {
    testing::TestWorld world;
    const auto script = std::make_shared<testing::Script>();
    const auto repository = make<testing::RepositoryDouble>(script);
    const auto person = repository->addMetaNode(u"Person");
    person->withProperty(u"Nick", u"String").withProperty(u"Age", u"Integer");
    const auto anna = repository->addNode(person, u"Anna");
    int hostErrors = 0;
    script->onFailure = [&] { world.expectBox(); };
    const auto host = [&](auto&& step) {
        // What fails in Init comes back to the host instead of a box.
        script->onFailure = {};
        hostErrors += errorNumber(step) != 0 ? 1 : 0;
        script->onFailure = [&] { world.expectBox(); };
    };
    const auto use = [&](ui::Form& form) {
        auto& list = headless::get<ui::VirtualList>(form, u"Property1");
        static_cast<void>(world.user.look(list, 0, list.rowCount()));
        world.desktop.runPosted();
        for (std::size_t line = 0; line < list.rowCount(); ++line) {
            world.user.selectRow(list, line);
            world.user.press(form, {ui::Key::F2});
            auto& box = headless::get<ui::TextBox>(form, u"Property1.Text");
            if (!box.isUsable())
                continue;
            world.user.enterText(box, u"7");
            world.user.press(form, {ui::Key::Enter});
        }
        world.user.click(form, u"ButtonOK");
        if (form.isVisible())
            world.user.click(form, u"ButtonOK");
        if (form.isVisible())
            form.hide();
    };
    const auto run = [&](int failing) {
        anna->values = {{u"Nick", u"Ann"}, {u"Age", 40}};
        const std::int64_t before = automation::NativeObject::liveCount();
        const std::size_t boxes = world.boxes().size();
        hostErrors = 0;
        script->restart(failing);
        {
            const auto editor = make<PropertyEditor>(world.environment);
            editor->Create(u"");
            host([&] { editor->Init(person); });
            editor->setRepObject(anna);
            world.desktop.expectModal(u"frmPropertyEditor", use);
            editor->PopUp();
            editor->Deinit();
            editor->Destroy();
        }
        world.desktop.verify();
        const bool failed = failing != 0 && script->calls() >= failing;
        EXPECT_EQ(world.boxes().size() - boxes + static_cast<std::size_t>(hostErrors), failed ? 1U : 0U)
            << "call " << failing << ": " << automation::toUtf8(script->log.back());
        EXPECT_EQ(automation::NativeObject::liveCount(), before) << "call " << failing;
        EXPECT_EQ(world.desktop.livePeers(), 0U) << "call " << failing;
        return failed;
    };
    EXPECT_FALSE(run(0));
    EXPECT_EQ(anna->values[u"Age"].toInteger(), 7);
    int call = 1;
    while (run(call))
        ++call;
    EXPECT_GT(call, 9) << "the sweep ended early";
    repository->clear();
}

}  // namespace
}  // namespace quorel::dialogs
