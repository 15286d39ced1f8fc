#include "diagram/diagram.h"

#include <gtest/gtest.h>

#include "diagram/diagram_arrange.h"
#include "diagram/property_type.h"
#include "platform/automation/calls.h"
#include "tests/repository/temporary_folder.h"
#include "tests/support/picture_bytes.h"
#include "tests/support/test_world.h"

namespace quorel::diagram {
namespace {

using automation::make;
using automation::Object;
using automation::Value;
using testing::errorNumber;

/// Works on the component as hosts do, by name.
struct DiagramTest : ::testing::Test {
    testing::TestWorld world;
    Object diagram = make<Diagram>(world.environment);

    void box(const std::u16string& key, double left = 0, double top = 0) {
        diagram.call(u"createNode", key, key, left, top, 3000, 1500);
    }
    /// What the window shows, looked at while it is open.
    void popUp(const std::function<void(frmDiagram&)>& look) {
        world.desktop.expectModal(u"frmDiagram", [&](ui::Form& form) {
            look(dynamic_cast<frmDiagram&>(form));
            form.hide();
        });
        diagram.call(u"PopUp");
        world.desktop.verify();
    }
    DiagramModel shown() {
        DiagramModel model;
        popUp([&](frmDiagram& form) { model = *form.view().model(); });
        return model;
    }
};

std::u16string messageOf(const std::function<void()>& body) {
    try {
        body();
    } catch (const automation::Error& error) {
        return error.description();
    }
    return u"no error";
}

TEST_F(DiagramTest, BeforeCreateAndAfterDestroyEveryMemberIsError91) {
    const auto expectUnset = [this] {
        EXPECT_EQ(errorNumber([&] { diagram.put(u"nodePicture", u""); }), 91);
        EXPECT_EQ(errorNumber([&] { diagram.call(u"LabelFont", u"Arial", 9); }), 91);
        EXPECT_EQ(errorNumber([&] { diagram.call(u"SectionFont", u"Arial", 9); }), 91);
        EXPECT_EQ(errorNumber([&] { diagram.call(u"AddStandardButtons"); }), 91);
        EXPECT_EQ(errorNumber([&] { box(u"A"); }), 91);
        EXPECT_EQ(errorNumber([&] { diagram.call(u"getNode", u"A"); }), 91);
        EXPECT_EQ(errorNumber([&] { diagram.call(u"CreateLink", u"L", u"L", u"A", u"A"); }), 91);
        EXPECT_EQ(errorNumber([&] { diagram.call(u"getLink", u"L"); }), 91);
        EXPECT_EQ(errorNumber([&] { diagram.call(u"Layout", u"%HIERARCHY%"); }), 91);
        EXPECT_EQ(errorNumber([&] { diagram.call(u"PopUp"); }), 91);
        diagram.call(u"Destroy");
    };
    expectUnset();
    diagram.call(u"Create");
    box(u"A");
    diagram.call(u"Destroy");
    expectUnset();
}

TEST_F(DiagramTest, PublishesTheseMembersAndNoOthers) {
    std::vector<std::u16string> names;
    for (const auto& member : make<Diagram>(world.environment)->classTable().members())
        names.push_back(member.name);
    EXPECT_EQ(names,
              (std::vector<std::u16string>{u"Create", u"nodePicture", u"LabelFont", u"SectionFont",
                                           u"AddStandardButtons", u"createNode", u"getNode", u"CreateLink",
                                           u"getLink", u"Layout", u"PopUp", u"Destroy"}));
}

TEST_F(DiagramTest, ShowsWhatTheHostDescribed) {
    diagram.call(u"Create");
    diagram.call(u"LabelFont", u"Courier New", 15);
    diagram.call(u"SectionFont", u"Courier New", 10);
    box(u"<<MetaClass>> \r\nA");
    box(u"B");
    const Object a = diagram.call(u"getNode", u"<<MetaClass>> \r\nA").toObject();
    a.call(u"AddProperty", u"Age", u"String", u"Integer", true);
    a.call(u"AddProperty", u"Mail", u"String", u"String", false);
    a.call(u"AlignToText", true);
    diagram.call(u"CreateLink", u"L", u"Has", u"<<MetaClass>> \r\nA", u"B");
    const Object link = diagram.call(u"getLink", u"L").toObject();
    link.call(u"AddProperty", u"Since", u"String", u"Date", true);
    diagram.call(u"Layout", u"%hierarchy%");
    const DiagramModel model = shown();
    ASSERT_EQ(model.boxes.size(), 2U);
    EXPECT_EQ(model.labelFont, (ui::Font{u"Courier New", 15}));
    EXPECT_EQ(model.sectionFont, (ui::Font{u"Courier New", 10}));
    ASSERT_EQ(model.boxes[0].properties.size(), 2U);
    EXPECT_EQ(model.boxes[0].properties[0].type, u"Integer");
    EXPECT_EQ(model.boxes[0].properties[1].name, u"Mail");
    EXPECT_EQ(model.boxes[0].properties[1].type, u"");
    EXPECT_TRUE(model.boxes[0].alignedToText);
    EXPECT_NE(model.boxes[0].place.size(), (ui::Size{{3000}, {1500}}));
    EXPECT_EQ(model.boxes[1].place.size(), (ui::Size{{3000}, {1500}}));
    EXPECT_LT(model.boxes[0].place.bottom(), model.boxes[1].place.top);
    ASSERT_EQ(model.connections.size(), 1U);
    EXPECT_EQ(model.connections[0].text, u"Has");
    EXPECT_FALSE(model.connections[0].alignedToText);
    EXPECT_GE(model.connections[0].line.size(), 2U);
}

TEST_F(DiagramTest, UnknownKeysAndMissingEndsAreErrorsThatNameThem) {
    diagram.call(u"Create");
    box(u"A");
    EXPECT_EQ(errorNumber([&] { diagram.call(u"getNode", u"a"); }), 9);
    EXPECT_EQ(messageOf([&] { diagram.call(u"getNode", u"a"); }), u"The diagram has no box \"a\"");
    EXPECT_EQ(messageOf([&] { diagram.call(u"getLink", u"L"); }), u"The diagram has no connection \"L\"");
    EXPECT_EQ(messageOf([&] { diagram.call(u"CreateLink", u"L", u"L", u"A", u"B\r\n"); }),
              u"The connection \"L\" begins or ends at \"B\uFFFD\uFFFD\", and the diagram has no such box");
    EXPECT_EQ(errorNumber([&] { diagram.call(u"CreateLink", u"L", u"L", u"B", u"A"); }), 9);
    EXPECT_EQ(errorNumber([&] { diagram.call(u"getLink", u"L"); }), 9);
    EXPECT_LT(messageOf([&] { diagram.call(u"getNode", std::u16string(1'000'000, u'x')); }).size(), 200U);
}

TEST_F(DiagramTest, ASecondBoxOfAKeyIsTheOneMeantAndBothAreShown) {
    diagram.call(u"Create");
    box(u"A");
    box(u"A");
    diagram.call(u"getNode", u"A").toObject().call(u"AddProperty", u"P", u"String", u"Date", true);
    const DiagramModel model = shown();
    ASSERT_EQ(model.boxes.size(), 2U);
    EXPECT_TRUE(model.boxes[0].properties.empty());
    EXPECT_EQ(model.boxes[1].properties.size(), 1U);
}

TEST_F(DiagramTest, AnotherLayoutIsAnErrorThatSaysWhichThereIs) {
    diagram.call(u"Create");
    EXPECT_EQ(messageOf([&] { diagram.call(u"Layout", u"%CIRCLE%"); }),
              u"There is no layout \"%CIRCLE%\"; there is \"%HIERARCHY%\"");
    EXPECT_EQ(errorNumber([&] { diagram.call(u"Layout", u""); }), 5);
}

TEST_F(DiagramTest, LengthsAndFontsAreChecked) {
    diagram.call(u"Create");
    EXPECT_EQ(errorNumber([&] { diagram.call(u"createNode", u"A", u"A", 0, 0, -1, 10); }), 5);
    EXPECT_EQ(errorNumber([&] { diagram.call(u"createNode", u"A", u"A", 1e9, 0, 1, 10); }), 6);
    EXPECT_EQ(errorNumber([&] { diagram.call(u"createNode", u"A", u"A", 0, 0, 1e300, 10); }), 6);
    EXPECT_EQ(errorNumber([&] { diagram.call(u"createNode", u"A", u"A", u"x", 0, 1, 10); }), 13);
    EXPECT_EQ(errorNumber([&] { diagram.call(u"LabelFont", u"Arial", 0); }), 5);
    EXPECT_EQ(errorNumber([&] { diagram.call(u"SectionFont", u"Arial", 401); }), 5);
    EXPECT_TRUE(shown().boxes.empty());
}

TEST_F(DiagramTest, WithoutALayoutItIsArrangedWhenItIsShown) {
    diagram.call(u"Create");
    box(u"A");
    box(u"B");
    diagram.call(u"CreateLink", u"L", u"L", u"A", u"B");
    const DiagramModel model = shown();
    EXPECT_LT(model.boxes[0].place.bottom(), model.boxes[1].place.top);
}

TEST_F(DiagramTest, BoxesThatTheHostPlacedStayWithoutALayout) {
    diagram.call(u"Create");
    box(u"A", 100, 200);
    box(u"B", 9000, 200);
    diagram.call(u"CreateLink", u"L", u"L", u"A", u"B");
    const DiagramModel placed = shown();
    EXPECT_EQ(placed.boxes[1].place.left, ui::Twips{9000});
    EXPECT_EQ(placed.connections[0].line.size(), 2U);
    diagram.call(u"Layout", u"%HIERARCHY%");
    EXPECT_NE(shown().boxes[1].place.left, ui::Twips{9000});
}

TEST_F(DiagramTest, WhatComesAfterALayoutIsArrangedToo) {
    diagram.call(u"Create");
    box(u"A");
    diagram.call(u"Layout", u"%HIERARCHY%");
    box(u"B");
    const DiagramModel model = shown();
    EXPECT_GE(model.boxes[1].place.top, model.boxes[0].place.bottom());
}

TEST_F(DiagramTest, BoxesThatTheUserMovedStayWhenItIsShownAgain) {
    diagram.call(u"Create");
    box(u"A");
    popUp([](frmDiagram& form) { form.view().model()->boxes[0].place.left = {7777}; });
    EXPECT_EQ(shown().boxes[0].place.left, ui::Twips{7777});
}

TEST_F(DiagramTest, ThePictureComesFromTheFileThatIsNamed) {
    world.desktop.setPicture(u"mark.wmf", {{64, 64, std::vector<std::uint8_t>(64 * 64 * 4)},
                                           {128, 128, std::vector<std::uint8_t>(128 * 128 * 4)},
                                           {16, 16, std::vector<std::uint8_t>(16 * 16 * 4)}});
    diagram.call(u"Create");
    diagram.put(u"nodePicture", u"mark.wmf");
    EXPECT_EQ(shown().headerPicture->width, 64);
    EXPECT_EQ(errorNumber([&] { diagram.put(u"nodePicture", u"/nowhere/mark.wmf"); }), 53);
    diagram.put(u"nodePicture", u"");
    EXPECT_EQ(shown().headerPicture, nullptr);
}

TEST_F(DiagramTest, StandardButtonsAreThereOnlyIfAskedFor) {
    diagram.call(u"Create");
    popUp([](frmDiagram& form) { EXPECT_EQ(form.find(u"ZoomIn"), nullptr); });
    diagram.call(u"AddStandardButtons");
    popUp([](frmDiagram& form) { EXPECT_TRUE(form.button(StandardButton::Save).isVisible()); });
}

TEST_F(DiagramTest, AHostMayDestroyItWhileItIsShown) {
    const std::int64_t before = automation::NativeObject::liveCount();
    diagram.call(u"Create");
    box(u"A");
    const Object kept = diagram.call(u"getNode", u"A").toObject();
    world.desktop.expectModal(u"frmDiagram", [this](ui::Form&) { diagram.call(u"Destroy"); });
    diagram.call(u"PopUp");
    world.desktop.verify();
    EXPECT_EQ(world.desktop.livePeers(), 0U);
    kept.call(u"AddProperty", u"P", u"String", u"Date", true);
    EXPECT_EQ(automation::NativeObject::liveCount(), before + 1);
}

TEST_F(DiagramTest, AHostMayDropItWhileItIsShown) {
    diagram.call(u"Create");
    world.desktop.expectModal(u"frmDiagram", [this](ui::Form& form) {
        diagram.reset();
        form.hide();
    });
    Object(diagram).call(u"PopUp");
    world.desktop.verify();
    EXPECT_EQ(world.desktop.livePeers(), 0U);
}

TEST_F(DiagramTest, TenThousandPropertiesOnABoxAreShown) {
    diagram.call(u"Create");
    box(u"A");
    const Object a = diagram.call(u"getNode", u"A").toObject();
    for (int line = 0; line < 10'000; ++line) {
        a.call(u"AddProperty", u"Property", u"String", u"Integer", true);
        a.call(u"AlignToText", true);
    }
    EXPECT_GT(shown().boxes[0].place.height, ui::Twips{1'000'000});
}

TEST(PropertyType, TextsAreShownAsTheyAreAndNumbersInWords) {
    EXPECT_EQ(propertyType(u"String", u"Enumeration"), u"Enumeration");
    EXPECT_EQ(propertyType(u"String", u"Length (mm)"), u"Length (mm)");
    EXPECT_EQ(propertyType(u"String", 8), u"String");
    EXPECT_EQ(propertyType(u"String", 3), u"Integer");
    EXPECT_EQ(propertyType(u"String", 7.0), u"Date");
    EXPECT_EQ(propertyType(u"String", 8209), u"Binary");
    EXPECT_EQ(propertyType(u"Thing", 4711), u"Thing");
    EXPECT_EQ(propertyType(u"Thing", u""), u"Thing");
    EXPECT_EQ(propertyType(u"Thing", Value()), u"Thing");
    EXPECT_EQ(propertyType(u"Thing", Value::null()), u"Thing");
}

TEST_F(DiagramTest, IsSavedArrangedWithoutAWindow) {
    const repository::testing::TemporaryFolder folder;
    const auto own = make<Diagram>(world.environment);
    EXPECT_EQ(errorNumber([&] { static_cast<void>(own->save(folder.file("a.svg"))); }), 91);
    own->Create();
    own->createNode(u"A", u"A", 0, 0, 3000, 1500);
    own->createNode(u"B", u"B", 0, 0, 3000, 1500);
    own->CreateLink(u"L", u"a to b", u"A", u"B");
    EXPECT_EQ(own->save(folder.file("a.svg")), u"Saved in " + folder.file("a.svg"));
    const std::string drawing = repository::testing::contentsOf(folder.path() / "a.svg");
    EXPECT_NE(drawing.find("a to b"), std::string::npos);
    EXPECT_EQ(errorNumber([&] { static_cast<void>(own->save(folder.file("a.gif"))); }), 52);
    EXPECT_EQ(folder.count(), 1U);
}

}  // namespace
}  // namespace quorel::diagram
