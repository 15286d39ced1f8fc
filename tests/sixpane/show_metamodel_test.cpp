#include "sixpane/show_metamodel.h"

#include <algorithm>

#include "diagram/frm_diagram.h"
#include "repository/repository.h"
#include "tests/repository/temporary_folder.h"
#include "tests/sixpane/six_pane_fixture.h"
#include "tests/support/diagram_double.h"

namespace quorel::sixpane {
namespace {

using Lines = std::vector<std::u16string>;

constexpr std::u16string_view kFolder = u"C:\\Library";
constexpr std::u16string_view kPictureFile = u"C:\\Library\\ReposHeader.wmf";

frame::Environment inFolder(frame::Environment environment) {
    environment.libraryFolder = kFolder;
    return environment;
}

/// Of the component's calls alone; those of the repository begin with the names of its objects.
struct ShowMetamodelTest : ::testing::Test {
    SmallWorld model;
    testing::TestWorld world;
    testing::DiagramCount count;
    testing::ScriptRef calls = std::make_shared<testing::Script>();
    Ref<ShowMetamodel> shower = make<ShowMetamodel>(inFolder(world.environment));

    ShowMetamodelTest() { testing::offerDiagramDouble(world.classes, calls, count); }

    [[nodiscard]] bool wasCalled(std::u16string_view begin) const {
        return std::any_of(calls->log.begin(), calls->log.end(),
                           [&](const std::u16string& call) { return call.starts_with(begin); });
    }
};

TEST_F(ShowMetamodelTest, CallsTheComponentExactlySoAndInThisOrder) {
    EXPECT_TRUE(shower->Show(model.repository).isEmpty());
    const Lines expected{
        u"CreateObject",
        u"Create()",
        u"nodePicture = C:\\Library\\ReposHeader.wmf",
        u"LabelFont(Courier New, 15)",
        u"SectionFont(Courier New, 10)",
        u"AddStandardButtons()",
        u"createNode(<<MetaClass>> |Person, <<MetaClass>> |Person, 0, 0, 3000, 1500)",
        u"getNode(<<MetaClass>> |Person)",
        u"[<<MetaClass>> |Person].AddProperty(Age, String, Integer, True)",
        u"[<<MetaClass>> |Person].AlignToText(True)",
        u"createNode(<<MetaClass>> |Company, <<MetaClass>> |Company, 0, 0, 3000, 1500)",
        u"getNode(<<MetaClass>> |Company)",
        u"[<<MetaClass>> |Company].AlignToText(True)",
        u"createNode(<<MetaClass>> |City, <<MetaClass>> |City, 0, 0, 3000, 1500)",
        u"getNode(<<MetaClass>> |City)",
        u"[<<MetaClass>> |City].AlignToText(True)",
        u"CreateLink(<<MetaAssoc>> WorksFor, <<MetaAssoc>> WorksFor, <<MetaClass>> |Person, <<MetaClass>> "
        u"|Company)",
        u"getLink(<<MetaAssoc>> WorksFor)",
        u"[<<MetaAssoc>> WorksFor].AddProperty(Since, String, String, True)",
        u"[<<MetaAssoc>> WorksFor].AlignToText(True)",
        u"CreateLink(<<MetaAssoc>> LivesIn, <<MetaAssoc>> LivesIn, <<MetaClass>> |Person, <<MetaClass>> "
        u"|City)",
        u"getLink(<<MetaAssoc>> LivesIn)",
        u"Layout(%HIERARCHY%)",
        u"PopUp()",
        u"Destroy()"};
    EXPECT_EQ(calls->log, expected);
    EXPECT_TRUE(world.boxes().empty());
}

TEST_F(ShowMetamodelTest, ConnectionsAreAlignedAfterEachPropertyAndBoxesOnce) {
    model.worksFor->withProperty(u"Role", u"String");
    model.person->withProperty(u"Mail", u"String");
    shower->Show(model.repository);
    EXPECT_EQ(std::count(calls->log.begin(), calls->log.end(), u"[<<MetaAssoc>> WorksFor].AlignToText(True)"),
              2);
    EXPECT_EQ(std::count(calls->log.begin(), calls->log.end(), u"[<<MetaClass>> |Person].AlignToText(True)"),
              1);
}

TEST_F(ShowMetamodelTest, AConnectionWithoutPropertiesIsNeverAligned) {
    shower->Show(model.repository);
    EXPECT_TRUE(wasCalled(u"getLink(<<MetaAssoc>> LivesIn)"));
    EXPECT_FALSE(wasCalled(u"[<<MetaAssoc>> LivesIn]"));
}

TEST_F(ShowMetamodelTest, TheMetaLevelsOwnClassesAreNoBoxes) {
    const testing::ScriptRef script = std::make_shared<testing::Script>();
    const Ref<RepositoryDouble> bare = make<RepositoryDouble>(script);
    for (const char16_t* name : {u"MetaNode", u"MetaLink", u"MetaProperty"})
        bare->addMetaNode(name);
    shower->Show(bare);
    EXPECT_FALSE(wasCalled(u"createNode"));
    EXPECT_TRUE(wasCalled(u"PopUp()"));
    bare->clear();
}

TEST_F(ShowMetamodelTest, NamesThatAreOnlyAlmostThoseOfTheMetaLevelAreBoxes) {
    model.repository->addMetaNode(u"Metanode");
    model.repository->addMetaNode(u"MetaNode ");
    shower->Show(model.repository);
    EXPECT_TRUE(wasCalled(u"createNode(<<MetaClass>> |Metanode,"));
    EXPECT_TRUE(wasCalled(u"createNode(<<MetaClass>> |MetaNode ,"));
}

TEST_F(ShowMetamodelTest, MetaNodesOfOneNameAreOneKey) {
    model.repository->addMetaNode(u"Person");
    shower->Show(model.repository);
    EXPECT_EQ(std::count(calls->log.begin(), calls->log.end(), u"getNode(<<MetaClass>> |Person)"), 2);
}

TEST_F(ShowMetamodelTest, AMissingComponentIsReported) {
    automation::ClassRegistry none;
    const frame::Environment environment{world.desktop, none, world.clock, world.settings};
    world.expectBox();
    EXPECT_TRUE(make<ShowMetamodel>(environment)->Show(model.repository).isEmpty());
    world.desktop.verify();
    EXPECT_EQ(testing::lastPlace(world), u"ShowMetamodel/Show");
    EXPECT_TRUE(world.boxes().back().starts_with(u"Error No: 429"));
}

TEST_F(ShowMetamodelTest, NoRepositoryIsReportedAndTheComponentDestroyed) {
    world.expectBox();
    shower->Show(Object());
    world.desktop.verify();
    EXPECT_TRUE(world.boxes().back().starts_with(u"Error No: 91"));
    EXPECT_EQ(count.destroyed, 1);
}

/// With the component of this library.
struct DrawnMetamodelTest : ::testing::Test {
    SmallWorld model;
    testing::TestWorld world;

    DrawnMetamodelTest() {
        server::registerPublicClasses(world.environment);
        world.desktop.setPicture(kPictureFile, {{2, 2, std::vector<std::uint8_t>(16, 200)}});
    }
    void show() { make<ShowMetamodel>(inFolder(world.environment))->Show(model.repository); }
};

TEST_F(DrawnMetamodelTest, IsShownInAWindowAndGoneAfterwards) {
    const std::int64_t before = automation::NativeObject::liveCount();
    std::size_t boxes = 0, connections = 0;
    world.desktop.expectModal(u"frmDiagram", [&](ui::Form& form) {
        const auto& drawn = *dynamic_cast<diagram::frmDiagram&>(form).view().model();
        boxes = drawn.boxes.size();
        connections = drawn.connections.size();
        EXPECT_EQ(drawn.labelFont, (ui::Font{u"Courier New", 15}));
        ASSERT_NE(drawn.headerPicture, nullptr);
        EXPECT_EQ(drawn.headerPicture->width, 2);
        form.hide();
    });
    show();
    world.desktop.verify();
    EXPECT_EQ(boxes, 3U);
    EXPECT_EQ(connections, 2U);
    EXPECT_EQ(automation::NativeObject::liveCount(), before);
    EXPECT_EQ(world.desktop.livePeers(), 0U);
}

TEST_F(DrawnMetamodelTest, AMetaLinkAtTheMetaLevelHasNoBoxAndNothingIsShown) {
    const Ref<MetaDouble> meta = model.repository->addMetaNode(u"MetaNode");
    model.repository->addMetaLink(u"InstanceOf", model.person, meta);
    world.expectBox();
    show();
    world.desktop.verify();
    EXPECT_TRUE(
        world.boxes().back().starts_with(u"Error No: 9  'The connection \"<<MetaAssoc>> InstanceOf\""));
    EXPECT_EQ(testing::lastPlace(world), u"ShowMetamodel/Show");
    EXPECT_EQ(world.desktop.livePeers(), 0U);
}

TEST_F(DrawnMetamodelTest, AMissingPictureIsReportedAndNothingIsShown) {
    world.expectBox();
    make<ShowMetamodel>(world.environment)->Show(model.repository);
    world.desktop.verify();
    EXPECT_NE(world.boxes().back().find(u"\\ReposHeader.wmf"), std::u16string::npos);
}

TEST_F(DrawnMetamodelTest, AStoredRepositoryIsDrawnWithItsTypes) {
    const repository::testing::TemporaryFolder folder;
    const auto native = make<repository::Repository>();
    native->create(folder.file());
    const Object stored = native;
    const Object shelf = stored.call(u"MakeMetaNode", u"Shelf").toObject();
    shelf.call(u"MakeMetaProperty", u"Length", u"Double");
    stored.call(u"MakeMetaNode", u"Book");
    const Object holds = stored.call(u"MakeMetaLink", u"Holds", u"Shelf", u"Book").toObject();
    holds.call(u"MakeMetaProperty", u"Since", u"Date");
    world.desktop.expectModal(u"frmDiagram", [&](ui::Form& form) {
        const auto& drawn = *dynamic_cast<diagram::frmDiagram&>(form).view().model();
        ASSERT_EQ(drawn.boxes.size(), 2U);
        ASSERT_EQ(drawn.boxes[0].properties.size(), 1U);
        EXPECT_EQ(drawn.boxes[0].properties[0].name, u"Length");
        EXPECT_EQ(drawn.boxes[0].properties[0].type, u"Double");
        ASSERT_EQ(drawn.connections.size(), 1U);
        EXPECT_EQ(drawn.connections[0].properties.size(), 1U);
        EXPECT_LT(drawn.boxes[0].place.bottom(), drawn.boxes[1].place.top);
        form.hide();
    });
    make<ShowMetamodel>(inFolder(world.environment))->Show(stored);
    world.desktop.verify();
}

/// Repository and component write into one script, so any call of either may fail.
bool sweepOnce(int failing) {
    SmallWorld model;
    testing::TestWorld world;
    testing::DiagramCount count;
    testing::offerDiagramDouble(world.classes, model.script, count);
    const auto shower = make<ShowMetamodel>(inFolder(world.environment));
    model.script->onFailure = [&world] { world.expectBox(); };
    const std::int64_t before = automation::NativeObject::liveCount();
    model.script->restart(failing);
    EXPECT_TRUE(shower->Show(model.repository).isEmpty());
    world.desktop.verify();
    const bool failed = model.script->hasFailed();
    EXPECT_EQ(world.boxes().size(), failed ? 1U : 0U) << "call " << failing;
    EXPECT_EQ(count.destroyed, count.made) << "call " << failing;
    EXPECT_EQ(automation::NativeObject::liveCount(), before) << "call " << failing;
    EXPECT_EQ(model.script->log.back(), count.made > 0 ? u"Destroy()" : u"CreateObject") << failing;
    return failed;
}

TEST(ShowMetamodelSweep, EveryCallMayFailOnceAndIsReportedOnce) {
    EXPECT_FALSE(sweepOnce(0));
    int call = 1;
    while (sweepOnce(call))
        ++call;
    EXPECT_GT(call, 50) << "the sweep ended early";
}

}  // namespace
}  // namespace quorel::sixpane
