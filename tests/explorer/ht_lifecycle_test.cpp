#include "platform/ui/plain_controls.h"
#include "tests/explorer/ht_explorer_fixture.h"

namespace quorel::explorer {
namespace {

using HTLifecycle = HTExplorerTest;

TEST_F(HTLifecycle, EveryMemberButTwoIsError91BeforeCreate) {
    const auto fresh = make<HTExplorer>(world.environment);
    const Object object = fresh;
    object.call(u"Destroy");
    object.call(u"Destroy");
    for (const char16_t* method : {u"Init", u"Deinit", u"PopUp", u"Conceal", u"SetupTree", u"Populate"})
        EXPECT_EQ(errorNumber([&] { object.call(method); }), 91);
    for (const char16_t* property : {u"Path", u"Repository", u"PackageObject", u"RepositoryFileName"})
        EXPECT_EQ(errorNumber([&] { static_cast<void>(object.get(property)); }), 91);
    for (const char16_t* property : {u"Path", u"RepositoryFileName"})
        EXPECT_EQ(errorNumber([&] { object.put(property, u"x"); }), 91);
    for (const char16_t* property : {u"Repository", u"PackageObject"})
        EXPECT_EQ(errorNumber([&] { object.putRef(property, {}); }), 91);
    EXPECT_TRUE(world.boxes().empty());
}

TEST_F(HTLifecycle, MembersAreForwardedByName) {
    explorer = make<OpenHTExplorer>(world.environment);
    const Object object = explorer;
    object.call(u"Create", u"Hierarchy", session);
    EXPECT_EQ(form().ComponentName(), u"Hierarchy");
    EXPECT_EQ(form().session(), Object(session));
    object.put(u"Path", u"C:\\models");
    object.put(u"RepositoryFileName", u"garden.quorel");
    object.putRef(u"PackageObject", model.acme);
    object.putRef(u"Repository", model.repository);
    EXPECT_EQ(object.get(u"Path").toString(), u"C:\\models");
    EXPECT_EQ(object.get(u"RepositoryFileName").toString(), u"garden.quorel");
    EXPECT_EQ(object.get(u"PackageObject").toObject(), Object(model.acme));
    EXPECT_EQ(object.get(u"Repository").toObject(), Object(model.repository));
    EXPECT_TRUE(model.script->log.empty()) << "these are only kept";
    EXPECT_TRUE(object.call(u"Init").isEmpty());
    object.call(u"SetupTree");
    object.call(u"Populate");
    EXPECT_EQ(form().paneCount(), 6U);
    object.call(u"PopUp", false);
    EXPECT_TRUE(form().isVisible());
    object.call(u"Conceal");
    EXPECT_FALSE(form().isVisible());
    EXPECT_TRUE(object.call(u"Deinit").isEmpty());
    EXPECT_EQ(tree().itemCount(), 0U);
    object.call(u"Destroy");
    EXPECT_EQ(errorNumber([&] { object.call(u"Populate"); }), 91);
}

TEST_F(HTLifecycle, NameAndSessionMayBeLeftOut) {
    explorer = make<OpenHTExplorer>(world.environment);
    Object(explorer).call(u"Create");
    EXPECT_EQ(form().ComponentName(), u"");
    EXPECT_EQ(form().session(), Object());
}

TEST_F(HTLifecycle, PopUpIsModalUnlessToldOtherwise) {
    create();
    explorer->SetupTree();
    world.desktop.expectModal(u"frmHTExplorer", [this](ui::Form& window) {
        EXPECT_TRUE(window.isModal());
        explorer->Conceal();
    });
    explorer->PopUp();
    world.desktop.verify();
}

TEST_F(HTLifecycle, ItLetsGoOfEverything) {
    const std::int64_t before = automation::NativeObject::liveCount();
    {
        open();
        click({u"Person", u"Anna", u"Knows", u"b", u"Ben", u"Knows (incoming)", u"b", u"Anna"});
        explorer->setPackageObject(model.acme);
        explorer->Destroy();
        explorer.reset();
    }
    EXPECT_EQ(world.desktop.livePeers(), 0U);
    // The double makes collections of links when it is first asked for them.
    EXPECT_LE(automation::NativeObject::liveCount(), before + 6);
}

TEST_F(HTLifecycle, AnEntryOutlivesItsTree) {
    open();
    click({u"Person", u"Anna", u"Knows", u"b"});
    const std::shared_ptr<controls::TreeEntry> kept = hierarchy().selectedEntry();
    explorer->Destroy();
    explorer.reset();
    EXPECT_EQ(kept->paneId(), u"2 Knows");
    EXPECT_EQ(kept->object(), Object(model.annaKnowsBen));
}

// The session's component manager.
// ------------------------------------------------------------------------

TEST_F(HTLifecycle, ClosingTheWindowEndsTheRegistration) {
    open();
    components->registerComponent(u"Hierarchy", explorer);
    world.user.closeBox(form());
    EXPECT_EQ(components->log, (Texts{u"GetComponent Hierarchy", u"RemoveComponent Hierarchy"}));
    EXPECT_TRUE(components->components.empty());
    EXPECT_EQ(errorNumber([&] { explorer->Populate(); }), 91) << "the component was told to destroy itself";
    EXPECT_TRUE(world.boxes().empty());
    EXPECT_EQ(world.desktop.livePeers(), 0U);
}

TEST_F(HTLifecycle, DestroyEndsTheRegistrationOnce) {
    open();
    components->registerComponent(u"Hierarchy", explorer);
    explorer->Destroy();
    explorer->Destroy();
    EXPECT_EQ(std::count(components->log.begin(), components->log.end(), u"RemoveComponent Hierarchy"), 1);
    EXPECT_TRUE(components->components.empty());
}

TEST_F(HTLifecycle, AWindowThatWasNeverShownEndsItsRegistrationToo) {
    create();
    components->registerComponent(u"Hierarchy", explorer);
    explorer->Destroy();
    EXPECT_TRUE(components->components.empty());
}

TEST_F(HTLifecycle, TheRegistrationOfAComponentWithoutAnObjectIsRemoved) {
    open();
    components->registerComponent(u"Hierarchy", {});
    world.user.closeBox(form());
    EXPECT_EQ(components->log.back(), u"RemoveComponent Hierarchy");
}

TEST_F(HTLifecycle, AManagerThatFailsIsPassedOver) {
    open();
    components->registerComponent(u"Hierarchy", explorer);
    components->failsOnGet = true;
    world.user.closeBox(form());
    EXPECT_TRUE(world.boxes().empty());
    components->failsOnGet = false;
    explorer->Destroy();
    session->componentManager.reset();
    open();
    explorer->Destroy();
    EXPECT_TRUE(world.boxes().empty());
}

}  // namespace
}  // namespace quorel::explorer
