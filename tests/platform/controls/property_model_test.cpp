#include "platform/controls/property_model.h"

#include <gtest/gtest.h>

#include "tests/platform/controls/property_double.h"
#include "tests/support/test_world.h"

namespace quorel::controls {
namespace {

using automation::make;
using automation::Object;
using automation::Ref;
using automation::Value;
using quorel::testing::errorNumber;
using Outcome = PropertyModel::Outcome;
using Log = std::vector<std::u16string>;

struct PropertyModelTest : ::testing::Test {
    Ref<quorel::testing::DefinitionsDouble> type = make<quorel::testing::DefinitionsDouble>();
    Ref<quorel::testing::PropertiesDouble> node = make<quorel::testing::PropertiesDouble>();
    std::unique_ptr<PropertyModel> model = std::make_unique<PropertyModel>();
    Log events;

    PropertyModelTest() {
        type->add({u"Name", u"String"});
        type->add({u"Age", u"Integer"});
        type->add({u"Born", u"Date"});
        node->values[u"Name"] = u"Anna";
        node->values[u"Age"] = 40;
    }
    void open() {
        model->setMetaObject(type);
        model->build();
        model->setObject(node);
    }
    void logEvents() {
        PropertyEvents& all = model->events;
        all.onPropertyValidate.connect(
            [this](Object& property, const Value& before, const Value& after, bool& valid) {
                EXPECT_TRUE(valid);
                events.push_back(u"validate " + property.get(u"name").toString() + u" " + before.toString() +
                                 u" -> " + after.toString());
            });
        all.onPropertyChanged.connect([this](Object& property, std::u16string& before, std::u16string& after,
                                             const Value& value, bool& cancel) {
            EXPECT_FALSE(cancel);
            EXPECT_EQ(value.toString(), after);
            events.push_back(u"changed " + property.get(u"name").toString() + u" " + before + u" -> " +
                             after);
        });
        all.onNewProperty.connect(
            [this](Object& property) { events.push_back(u"new " + property.get(u"name").toString()); });
        all.onPropertyDeleted.connect(
            [this](Object& property) { events.push_back(u"deleted " + property.get(u"name").toString()); });
    }
    [[nodiscard]] PropertyModel::Item item(std::size_t index) { return model->items().at(index); }
};

TEST_F(PropertyModelTest, BuildWithoutMetaObjectIsError91) {
    EXPECT_EQ(errorNumber([&] { model->build(); }), 91);
}

TEST_F(PropertyModelTest, BuildAsksNoValueAndNoName) {
    open();
    EXPECT_EQ(model->items().size(), 3U);
    EXPECT_TRUE(node->log.empty());
    for (const auto& definition : type->items)
        EXPECT_EQ(definition->asked, 0);
    item(1)->load();
    item(1)->load();
    EXPECT_EQ(node->log, Log{u"get Age"});
}

TEST_F(PropertyModelTest, ObjectMayComeBeforeTheRows) {
    model->setObject(node);
    model->setMetaObject(type);
    model->build();
    item(1)->load();
    EXPECT_EQ(item(1)->value().toInteger(), 40);
}

TEST_F(PropertyModelTest, EnteredTextBecomesAValueOfTheType) {
    open();
    logEvents();
    EXPECT_EQ(model->enter(item(1), u" 41"), Outcome::Changed);
    EXPECT_EQ(*item(1)->value().getIf<std::int32_t>(), 41);
    EXPECT_TRUE(item(1)->isChanged());
    EXPECT_EQ(events, (Log{u"validate Age 40 -> 41", u"changed Age 40 -> 41"}));
    EXPECT_EQ(node->values[u"Age"].toInteger(), 40) << "nothing is written yet";
}

TEST_F(PropertyModelTest, WhatIsShownEnteredAgainChangesNothing) {
    open();
    logEvents();
    node->values[u"Name"] = u"two\nlines";
    EXPECT_EQ(model->enter(item(0), u"two\r\nlines"), Outcome::Unchanged);
    EXPECT_EQ(model->enter(item(1), u"40.0"), Outcome::Unchanged);
    EXPECT_FALSE(model->isChanged());
    EXPECT_TRUE(events.empty());
}

TEST_F(PropertyModelTest, TextThatIsNoValueIsKeptWithItsReason) {
    open();
    logEvents();
    EXPECT_EQ(model->enter(item(1), u"old"), Outcome::Refused);
    EXPECT_EQ(item(1)->text(), u"old");
    EXPECT_FALSE(item(1)->message().empty());
    EXPECT_TRUE(events.empty());
    EXPECT_EQ(errorNumber([&] { model->apply(); }), 13);
    EXPECT_EQ(node->log, Log{u"get Age"}) << "nothing is written while a text is refused";
    EXPECT_EQ(model->enter(item(1), u"40"), Outcome::Unchanged);
    EXPECT_TRUE(item(1)->message().empty());
    model->apply();
}

TEST_F(PropertyModelTest, ApplyWritesExactlyWhatWasChanged) {
    open();
    model->enter(item(1), u"41");
    model->enter(item(0), u"Anne");
    node->log.clear();
    model->apply();
    EXPECT_EQ(node->log, (Log{u"set Name", u"set Age"}));
    EXPECT_FALSE(model->isChanged());
    node->log.clear();
    model->apply();
    EXPECT_TRUE(node->log.empty());
    item(1)->load();
    EXPECT_EQ(item(1)->original().toInteger(), 41) << "read anew";
}

TEST_F(PropertyModelTest, EditThatEndsAtTheStoredValueIsNone) {
    open();
    model->enter(item(1), u"41");
    model->enter(item(1), u"40");
    EXPECT_FALSE(item(1)->isChanged());
}

TEST_F(PropertyModelTest, RefusedWriteKeepsTheEditAndNamesTheProperty) {
    open();
    node->refused = {u"Name"};
    model->enter(item(0), u"Anne");
    model->enter(item(1), u"41");
    try {
        model->apply();
        ADD_FAILURE() << "the refusal is lost";
    } catch (const automation::Error& error) {
        EXPECT_EQ(error.number(), 1002);
        EXPECT_EQ(error.description(), u"The property \"Name\" was not saved: Read-only today");
        EXPECT_EQ(error.source(), u"Repository");
    }
    EXPECT_EQ(item(0)->value().toString(), u"Anne");
    EXPECT_TRUE(item(0)->isChanged());
    EXPECT_EQ(item(0)->message(), u"Not saved: Read-only today");
    EXPECT_FALSE(item(1)->isChanged()) << "the others are written";
    node->refused.clear();
    model->apply();
    EXPECT_EQ(node->values[u"Name"].toString(), u"Anne");
}

TEST_F(PropertyModelTest, SettingAndUnsettingAreToldBesideTheChange) {
    open();
    logEvents();
    EXPECT_EQ(model->enter(item(2), u"1815-12-23"), Outcome::Changed);
    EXPECT_EQ(model->change(item(1), Value()), Outcome::Changed);
    EXPECT_EQ(events, (Log{u"validate Born  -> 1815-12-23", u"changed Born  -> 1815-12-23", u"new Born",
                           u"validate Age 40 -> ", u"changed Age 40 -> ", u"deleted Age"}));
    model->apply();
    EXPECT_TRUE(node->values[u"Age"].isEmpty());
}

TEST_F(PropertyModelTest, RevertTellsButDoesNotAskForValidity) {
    open();
    model->enter(item(1), u"41");
    logEvents();
    EXPECT_EQ(model->revert(item(1)), Outcome::Changed);
    EXPECT_EQ(events, Log{u"changed Age 41 -> 40"});
    EXPECT_FALSE(model->isChanged());
    model->enter(item(1), u"old");
    EXPECT_EQ(model->revert(item(1)), Outcome::Unchanged);
    EXPECT_EQ(item(1)->text(), u"40");
}

TEST_F(PropertyModelTest, ValidationRefusesWithTheHandlersReason) {
    open();
    bool explain = false;
    model->events.onPropertyValidate.connect([&](Object& property, const Value&, const Value&, bool& valid) {
        if (explain)
            property.put(u"Message", u"Must be even.");
        property = Object();
        valid = false;
    });
    EXPECT_EQ(model->enter(item(1), u"41"), Outcome::Refused);
    EXPECT_EQ(item(1)->message(), u"This value is not allowed here.");
    EXPECT_EQ(item(1)->text(), u"41");
    EXPECT_FALSE(item(1)->isChanged());
    explain = true;
    EXPECT_EQ(model->enter(item(1), u"43"), Outcome::Refused);
    EXPECT_EQ(item(1)->message(), u"Must be even.");
}

TEST_F(PropertyModelTest, ChangedNewTextIsReadAsTyped) {
    open();
    std::u16string replacement = u"50";
    model->events.onPropertyChanged.connect(
        [&](Object&, std::u16string&, std::u16string& after, const Value&, bool&) { after = replacement; });
    EXPECT_EQ(model->enter(item(1), u"41"), Outcome::Changed);
    EXPECT_EQ(item(1)->value().toInteger(), 50);
    replacement = u"many";
    EXPECT_EQ(model->enter(item(1), u"42"), Outcome::Refused);
    EXPECT_EQ(item(1)->text(), u"many");
    EXPECT_EQ(item(1)->value().toInteger(), 50);
}

TEST_F(PropertyModelTest, CancelKeepsTheOldValueOrTakesTheOldText) {
    open();
    std::optional<std::u16string> instead;
    model->events.onPropertyChanged.connect(
        [&](Object&, std::u16string& before, std::u16string&, const Value&, bool& cancel) {
            cancel = true;
            if (instead)
                before = *instead;
        });
    EXPECT_EQ(model->enter(item(1), u"41"), Outcome::Cancelled);
    EXPECT_EQ(item(1)->value().toInteger(), 40);
    EXPECT_FALSE(item(1)->isChanged());
    instead = u"39";
    EXPECT_EQ(model->enter(item(1), u"41"), Outcome::Cancelled);
    EXPECT_EQ(item(1)->value().toInteger(), 39);
}

TEST_F(PropertyModelTest, HandledEditingTakesWhatTheHandlerPutThere) {
    open();
    logEvents();
    model->events.onCreatePropertyControl.connect([](Object& property, bool& handled) {
        property.put(u"Value", 44);
        handled = true;
    });
    EXPECT_FALSE(model->beginEdit(item(1)));
    EXPECT_EQ(item(1)->value().toInteger(), 44);
    EXPECT_EQ(events, (Log{u"validate Age 40 -> 44", u"changed Age 40 -> 44"}));
}

TEST_F(PropertyModelTest, NothingInPlaceOfThePropertyPreventsEditing) {
    open();
    EXPECT_TRUE(model->beginEdit(item(1)));
    model->events.onCreatePropertyControl.connect([](Object& property, bool&) { property = Object(); });
    EXPECT_FALSE(model->beginEdit(item(1)));
}

TEST_F(PropertyModelTest, HandlersMayReleaseRebuildOrDestroyTheModel) {
    for (int way = 0; way < 3; ++way)
        for (int event = 0; event < 4; ++event) {
            model = std::make_unique<PropertyModel>();
            open();
            int came = 0;
            const auto end = [&, way] {
                ++came;
                if (way == 0)
                    model->release();
                else if (way == 1)
                    model->build();
                else
                    model.reset();
            };
            if (event == 0)
                model->events.onCreatePropertyControl.connect([end](Object&, bool&) { end(); });
            if (event == 1)
                model->events.onPropertyValidate.connect(
                    [end](Object&, const Value&, const Value&, bool&) { end(); });
            if (event == 2)
                model->events.onPropertyChanged.connect(
                    [end](Object&, std::u16string&, std::u16string&, const Value&, bool&) { end(); });
            if (event == 3)
                model->events.onNewProperty.connect([end](Object&) { end(); });
            const PropertyModel::Item born = item(2);
            if (event == 0)
                EXPECT_FALSE(model->beginEdit(born));
            else
                EXPECT_EQ(model->enter(born, u"2000-01-01"), Outcome::Overtaken) << way << event;
            EXPECT_EQ(came, 1);
            EXPECT_FALSE(way == 2 && model);
        }
}

TEST_F(PropertyModelTest, ObjectMayReleaseTheModelWhileItIsRead) {
    open();
    node->onCall = [this](const std::u16string&) { model->release(); };
    const PropertyModel::Item age = item(1);
    age->load();
    EXPECT_FALSE(age->isLoaded());
    EXPECT_TRUE(model->items().empty());
}

TEST_F(PropertyModelTest, ObjectMayReleaseTheModelWhileItIsWritten) {
    open();
    model->enter(item(0), u"Anne");
    model->enter(item(1), u"41");
    node->log.clear();
    node->onCall = [this](const std::u16string&) { model->release(); };
    model->apply();
    EXPECT_EQ(node->log, Log{u"set Name"});
}

TEST_F(PropertyModelTest, MetaObjectMayRebuildWhileItIsAsked) {
    model->setMetaObject(type);
    bool nested = false;
    type->onProperties = [&] {
        if (!std::exchange(nested, true))
            model->build();
    };
    model->build();
    EXPECT_EQ(model->items().size(), 3U);
}

TEST_F(PropertyModelTest, ItemsOutliveTheModelAndHoldNothingOfTheRepository) {
    open();
    const PropertyModel::Item age = item(1);
    age->load();
    model.reset();
    EXPECT_EQ(age->name(), u"Age");
    EXPECT_FALSE(age->isAttached());
    EXPECT_FALSE(Object(age).get(u"Definition").toObject());
    EXPECT_FALSE(Object(age).get(u"repObject").toObject());
    EXPECT_EQ(errorNumber([&] { static_cast<void>(age->dataType()); }), 91);
}

TEST_F(PropertyModelTest, ReadOnlyIsWholeOrOneRow) {
    open();
    EXPECT_TRUE(model->isEditable(*item(0)));
    Object(item(0)).put(u"ReadOnly", true);
    EXPECT_FALSE(model->isEditable(*item(0)));
    EXPECT_TRUE(model->isEditable(*item(1)));
    model->setReadOnly(true);
    EXPECT_FALSE(model->isEditable(*item(1)));
    model->setReadOnly(false);
    model->setObject({});
    EXPECT_FALSE(model->isEditable(*item(1))) << "there is nothing to edit";
}

TEST_F(PropertyModelTest, AnotherObjectForgetsTheEdits) {
    open();
    model->enter(item(1), u"41");
    const auto other = make<quorel::testing::PropertiesDouble>();
    other->values[u"Age"] = 7;
    model->setObject(other);
    item(1)->load();
    EXPECT_EQ(item(1)->value().toInteger(), 7);
    model->apply();
    EXPECT_EQ(node->values[u"Age"].toInteger(), 40);
}

TEST_F(PropertyModelTest, ObjectWithoutGetPropertyIsReadByMembers) {
    const auto members = make<quorel::testing::MembersDouble>();
    open();
    model->setObject(members);
    item(1)->load();
    EXPECT_EQ(item(1)->value().toInteger(), 40);
    model->enter(item(1), u"41");
    model->apply();
    EXPECT_EQ(members->age_, 41);
    EXPECT_EQ(errorNumber([&] { item(0)->load(); }), 438) << "no such member";
}

TEST_F(PropertyModelTest, DefinitionMayTellNameAndDataTypeOnly) {
    open();
    EXPECT_EQ(item(0)->category(), u"");
    EXPECT_FALSE(model->hasCategories());
    const auto bare = make<quorel::testing::PropertiesDouble>();
    EXPECT_EQ(errorNumber([&] { static_cast<void>(make<PropertyItem>(bare)->name()); }), 438);
    EXPECT_EQ(make<PropertyItem>(bare)->description(), u"");
    EXPECT_FALSE(make<PropertyItem>(bare)->isReadOnly());
}

TEST_F(PropertyModelTest, PropertyTellsHostsWhatItIs) {
    open();
    type->items[1]->texts.values = automation::Array{{1, 2}, 0};
    const Object property = item(1);
    EXPECT_EQ(property.item().toInteger(), 40);
    EXPECT_EQ(property.get(u"datatype").toString(), u"Integer");
    EXPECT_EQ(property.get(u"Definition").toObject(), Object(type->items[1]));
    EXPECT_EQ(property.get(u"repObject").toObject(), Object(node));
    EXPECT_EQ(property.get(u"Values").getIf<automation::Array>()->items.size(), 2U);
    property.put(u"Value", 41);
    EXPECT_EQ(property.get(u"OriginalValue").toInteger(), 40);
    EXPECT_TRUE(property.get(u"Changed").toBoolean());
}

}  // namespace
}  // namespace quorel::controls
