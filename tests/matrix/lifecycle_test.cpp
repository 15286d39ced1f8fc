#include <functional>

#include "platform/ui/menu.h"
#include "tests/matrix/matrix_fixture.h"

namespace quorel::matrix {
namespace {

/// Works on the public class, as a host does.
struct MatrixLifecycle : MatrixTest {
    Ref<MatrixBrowser> browser = make<MatrixBrowser>(world.environment);

    ~MatrixLifecycle() override { browser->Destroy(); }
    void start() {
        browser->Create(u"Browser", session);
        browser->setRepository(model.repository);
        browser->Init();
        browser->Populate();
    }
    void popUp(std::function<void(ui::Form&)> user) {
        world.desktop.expectModal(u"frmMatrixBrowser", std::move(user));
        browser->PopUp();
        world.desktop.verify();
    }
};

TEST_F(MatrixLifecycle, EveryMemberIsError91BeforeCreate) {
    const Object object = browser;
    for (const char16_t* method : {u"Init", u"Deinit", u"PopUp", u"Conceal", u"Populate", u"Navigate",
                                   u"GetRepository", u"GetTargetInstance", u"GetTargetMetaNode"})
        EXPECT_EQ(errorNumber([&] { object.call(method); }), 91);
    for (const char16_t* method :
         {u"SelectSourceMetaNode", u"SelectSourceInstance", u"SelectMetaLink", u"SelectTargetInstance"})
        EXPECT_EQ(errorNumber([&] { object.call(method, u"x"); }), 91);
    for (const char16_t* property :
         {u"Path", u"Repository", u"PackageObject", u"RepositoryFileName", u"RepositoryManager"})
        EXPECT_EQ(errorNumber([&] { static_cast<void>(object.get(property)); }), 91);
    EXPECT_EQ(errorNumber([&] { object.put(u"Path", u"p"); }), 91);
    EXPECT_EQ(errorNumber([&] { object.put(u"RepositoryFileName", u"f"); }), 91);
    for (const char16_t* property : {u"Repository", u"PackageObject", u"RepositoryManager"})
        EXPECT_EQ(errorNumber([&] { object.putRef(property, model.repository); }), 91);
    for (const char16_t* method : {u"SetSelection", u"SetRepository"})
        EXPECT_EQ(errorNumber([&] { object.call(method, model.anna); }), 91);
    object.call(u"Destroy");
    object.call(u"Destroy");
    EXPECT_TRUE(world.boxes().empty());
}

TEST_F(MatrixLifecycle, MisuseByNameGivesTheHostTheRightErrors) {
    const Object object = browser;
    object.call(u"Create");
    EXPECT_EQ(errorNumber([&] { object.call(u"PopDown"); }), 438);
    EXPECT_EQ(errorNumber([&] { object.call(u"PopUp", u"perhaps"); }), 13);
    EXPECT_EQ(errorNumber([&] { object.call(u"Create", u"a", Object(), u"b"); }), 450);
    EXPECT_EQ(errorNumber([&] { object.call(u"SelectMetaLink"); }), 450);
    EXPECT_EQ(errorNumber([&] { object.call(u"SetSelection", 5); }), 13);
    EXPECT_TRUE(world.boxes().empty());
}

TEST_F(MatrixLifecycle, MembersStandInPublishedOrder) {
    std::vector<std::u16string> members;
    for (const automation::MemberInfo& member : browser->classTable().members())
        members.push_back(member.name);
    EXPECT_EQ(members, (Texts{u"Path",
                              u"Create",
                              u"Destroy",
                              u"Init",
                              u"Deinit",
                              u"PopUp",
                              u"Conceal",
                              u"Repository",
                              u"Populate",
                              u"PackageObject",
                              u"RepositoryFileName",
                              u"SelectSourceMetaNode",
                              u"SelectSourceInstance",
                              u"SelectMetaLink",
                              u"SelectTargetInstance",
                              u"Navigate",
                              u"SetRepository",
                              u"GetRepository",
                              u"GetTargetInstance",
                              u"GetTargetMetaNode",
                              u"RepositoryManager",
                              u"SetSelection"}));
    EXPECT_TRUE(browser->classTable().find(u"PopUp")->parameters.at(0).defaultValue->toBoolean());
    EXPECT_FALSE(browser->classTable().find(u"SelectMetaLink")->parameters.at(1).defaultValue->toBoolean());
}

TEST_F(MatrixLifecycle, MembersAreForwardedByName) {
    const Object object = browser;
    object.call(u"Create", u"Browser", session);
    object.put(u"Path", u"C:\\models\\");
    object.put(u"RepositoryFileName", u"garden.quorel");
    object.putRef(u"PackageObject", model.paris);
    object.putRef(u"RepositoryManager", manager);
    EXPECT_EQ(object.get(u"Path").toString(), u"C:\\models\\");
    EXPECT_EQ(object.get(u"RepositoryFileName").toString(), u"garden.quorel");
    EXPECT_EQ(object.get(u"PackageObject").toObject(), Object(model.paris));
    EXPECT_EQ(object.get(u"RepositoryManager").toObject(), Object(manager));
    EXPECT_TRUE(model.script->log.empty()) << "these are only kept";
    object.call(u"SetRepository", model.repository);
    EXPECT_EQ(object.get(u"Repository").toObject(), Object(model.repository));
    EXPECT_EQ(object.call(u"GetRepository").toObject(), Object(model.repository));
    EXPECT_TRUE(object.call(u"Init").isEmpty());
    object.call(u"Populate");
    object.call(u"SelectSourceMetaNode", u"Person");
    object.call(u"SetSelection", model.anna);
    object.call(u"SelectSourceInstance", u"id2");
    object.call(u"SelectMetaLink", u"Knows", true);
    object.call(u"SelectMetaLink", u"Knows");
    object.call(u"SelectTargetInstance", u"id3");
    object.call(u"Navigate");
    EXPECT_FALSE(IsObjectSet(object.call(u"GetTargetInstance").toObject()));
    EXPECT_FALSE(IsObjectSet(object.call(u"GetTargetMetaNode").toObject()));
    popUp([this](ui::Form& window) {
        EXPECT_EQ(list(window, u"SourceInstanceList").selectedObject(), Object(model.ben));
        EXPECT_EQ(list(window, u"MetaLinkListOutgoing").selectedObject(), Object(model.knows));
        EXPECT_EQ(list(window, u"MetaLinkListIncoming").selectedObject(), Object(model.knows));
        window.hide();
    });
    EXPECT_TRUE(object.call(u"Deinit").isEmpty());
    EXPECT_TRUE(world.boxes().empty());
}

TEST_F(MatrixLifecycle, PopUpBlocksUntilTheWindowIsHiddenAndKeepsItsState) {
    start();
    popUp([this](ui::Form& window) {
        world.user.selectRow(list(window, u"SourceMetaNodeList").list(), kCompany);
        browser->Conceal();
    });
    popUp([this](ui::Form& window) {
        EXPECT_EQ(list(window, u"SourceInstanceList").count(), 2U);
        world.user.closeBox(window);
    });
}

TEST_F(MatrixLifecycle, PopUpFalseReturnsAtOnce) {
    start();
    browser->PopUp(false);
    EXPECT_GT(world.desktop.livePeers(), 0U);
    browser->Conceal();
    browser->Destroy();
    EXPECT_EQ(world.desktop.livePeers(), 0U);
}

TEST_F(MatrixLifecycle, VisibleWindowShownModallyIsReportedAsPopup) {
    start();
    browser->PopUp(false);
    world.expectBox();
    browser->PopUp(true);
    world.desktop.verify();
    EXPECT_EQ(lastPlace(), u"MatrixBrowser/Popup");
    EXPECT_TRUE(world.boxes().back().starts_with(u"Error No: 400"));
}

TEST_F(MatrixLifecycle, CloseBoxEndsTheRegistrationAndTheComponent) {
    start();
    components->registerComponent(u"Browser", browser);
    popUp([this](ui::Form& window) { world.user.closeBox(window); });
    EXPECT_TRUE(components->components.empty());
    EXPECT_EQ(components->log.at(0), u"GetComponent Browser");
    EXPECT_EQ(errorNumber([&] { browser->Init(); }), 91) << "the registered public object was destroyed";
}

TEST_F(MatrixLifecycle, ClosingReleasesTheRepositoryAndTheManager) {
    start();
    browser->setRepositoryManager(manager);
    popUp([this](ui::Form& window) { world.user.closeBox(window); });
    EXPECT_FALSE(IsObjectSet(browser->GetRepository()));
    EXPECT_EQ(browser->RepositoryManager(), Object(manager)) << "until the window is loaded again";
    popUp([this](ui::Form& window) {
        EXPECT_FALSE(IsObjectSet(browser->RepositoryManager()));
        EXPECT_EQ(list(window, u"SourceMetaNodeList").count(), 3U);
        // The popup menus' form is there again.
        world.user.selectRow(list(window, u"SourceMetaNodeList").list(), kPerson);
        world.user.chooseContextMenu(list(window, u"SourceInstanceList").list(), kAnna, u"mnuNavigate");
        window.hide();
    });
}

TEST_F(MatrixLifecycle, DestroyEndsTheRegistrationOnce) {
    start();
    components->registerComponent(u"Browser", browser);
    browser->PopUp(false);
    browser->Destroy();
    EXPECT_TRUE(components->components.empty());
    EXPECT_EQ(std::count(components->log.begin(), components->log.end(), u"RemoveComponent Browser"), 1);
    browser->Destroy();
    EXPECT_EQ(world.desktop.livePeers(), 0U);
}

TEST_F(MatrixLifecycle, TerminatesSilentlyWithoutComponentManagerOrRegistration) {
    start();
    browser->Destroy();
    session->componentManager.reset();
    start();
    browser->Destroy();
    browser->Create();
    browser->Destroy();
    EXPECT_TRUE(world.boxes().empty());
}

TEST_F(MatrixLifecycle, WindowEndsWithTheLastReferenceToItsPublicObject) {
    start();
    browser->PopUp(false);
    browser.reset();
    EXPECT_EQ(world.desktop.livePeers(), 0U);
    EXPECT_EQ(components->log.back(), u"GetComponent Browser");
    browser = make<MatrixBrowser>(world.environment);
}

TEST_F(MatrixLifecycle, DestroyLetsGoOfEverythingOfTheHosts) {
    const std::int64_t before = automation::NativeObject::liveCount();
    start();
    browser->setPackageObject(make<testing::RepositoryManagerDouble>(model.script));
    browser->setRepositoryManager(make<testing::RepositoryManagerDouble>(model.script));
    browser->SetSelection(model.anna);
    browser->SetSelection(model.acme);
    browser->Destroy();
    EXPECT_EQ(automation::NativeObject::liveCount(), before);
}

struct MatrixDestroyedInside : MatrixLifecycle {
    /// Runs `host` once to count the repository's calls, then once for each of them with the component
    /// destroyed inside that call.
    void destroyInsideEveryCallOf(const std::function<void()>& host, int atLeast) {
        start();
        model.script->restart();
        host();
        const int calls = model.script->calls();
        ASSERT_GE(calls, atLeast);
        for (int fatal = 1; fatal <= calls; ++fatal) {
            browser->Destroy();
            start();
            model.script->restart();
            model.script->onCall = [this, fatal](const std::u16string&) {
                if (model.script->calls() + 1 == fatal)
                    browser->Destroy();
            };
            // Afterwards the host has no window any more.
            const std::int32_t error = errorNumber(host);
            EXPECT_TRUE(error == 0 || error == 91) << error;
            model.script->onCall = {};
            world.desktop.verify();
            EXPECT_EQ(errorNumber([this] { browser->Init(); }), 91) << fatal;
            EXPECT_EQ(world.desktop.livePeers(), 0U) << fatal;
        }
        EXPECT_TRUE(world.boxes().empty());
    }
    void popUpUsing(const std::function<void(ui::Form&)>& user) {
        world.desktop.expectModal(u"frmMatrixBrowser", [&](ui::Form& window) {
            try {
                user(window);
            } catch (const headless::CannotDo&) {  // the window went while the user was at it
            }
            window.hide();
        });
        browser->PopUp();
    }
};

TEST_F(MatrixDestroyedInside, AnyCallOfBrowsing) {
    const auto browse = [this] {
        popUpUsing([this](ui::Form& window) {
            for (const std::u16string_view name :
                 {u"SourceMetaNodeList", u"SourceInstanceList", u"MetaLinkListIncoming",
                  u"MetaLinkListOutgoing", u"SourceInstanceList"}) {
                static_cast<void>(world.user.look(list(window, name).list(), 0, 1));
                world.user.selectRow(list(window, name).list(), 0);
            }
            static_cast<void>(world.user.look(list(window, u"TargetInstanceList").list(), 0, 1));
            world.user.doubleClickRow(list(window, u"TargetInstanceList").list(), 0);
            world.user.press(window, {ui::Key::Left, ui::Modifiers::Alt});
            world.user.press(window, {ui::Key::Right, ui::Modifiers::Alt});
        });
    };
    destroyInsideEveryCallOf(browse, 60);
}

TEST_F(MatrixDestroyedInside, AnyCallOfTheHostsMembers) {
    const auto members = [this] {
        browser->setRepository(model.repository);
        browser->Populate();
        browser->SelectSourceMetaNode(u"Person");
        browser->SetSelection(model.anna);
        browser->SelectSourceInstance(u"id2");
        browser->SelectMetaLink(u"Knows", true);
        browser->SelectMetaLink(u"Knows");
        browser->SetSelection(model.acme);
    };
    destroyInsideEveryCallOf(members, 30);
}

TEST_F(MatrixDestroyedInside, AnyCallOfEditingBeforeTheDialogOpens) {
    int callsAtShow = 0;
    const auto edit = [&] {
        popUpUsing([&](ui::Form& window) {
            world.user.selectRow(list(window, u"SourceMetaNodeList").list(), kPerson);
            const bool opens = callsAtShow == 0;
            if (opens)
                world.desktop.expectModal(u"NodeEdit", [&](ui::Form& dialog) {
                    callsAtShow = model.script->calls();
                    model.script->restart();
                    dialog.hide();
                    browser->Destroy();
                });
            world.user.doubleClickRow(list(window, u"SourceInstanceList").list(), kAnna);
        });
    };
    start();
    model.script->restart();
    edit();
    EXPECT_EQ(model.script->calls(), 0) << "nothing is asked for a browser that is gone";
    ASSERT_GT(callsAtShow, 12);
    for (int fatal = 1; fatal <= callsAtShow; ++fatal) {
        browser->Destroy();
        start();
        model.script->restart();
        model.script->onCall = [&](const std::u16string&) {
            if (model.script->calls() + 1 == fatal)
                browser->Destroy();
        };
        edit();
        model.script->onCall = {};
        world.desktop.verify();
        EXPECT_EQ(world.desktop.livePeers(), 0U) << fatal;
    }
    EXPECT_TRUE(world.boxes().empty());
}

TEST_F(MatrixDestroyedInside, TheChoiceOfARepository) {
    manager->chosen = make<testing::RepositoryHolderDouble>(model.script, model.repository);
    const auto choose = [this] {
        browser->setRepositoryManager(manager);
        popUpUsing([this](ui::Form& window) {
            window.menuBar().find(u"mnuSelect")->setVisible(true);
            world.user.chooseMenu(window, u"mnuSelect");
        });
    };
    destroyInsideEveryCallOf(choose, 4);
}

TEST_F(MatrixLifecycle, ThousandLifetimesLeaveNothing) {
    const std::int64_t before = automation::NativeObject::liveCount();
    for (int i = 0; i < 1000; ++i) {
        const auto each = make<MatrixBrowser>(world.environment);
        components->registerComponent(u"Each", each);
        each->Create(u"Each", session);
        each->setRepository(model.repository);
        each->Init();
        each->Populate();
        each->PopUp(false);
        each->SetSelection(model.anna);
        each->SelectMetaLink(u"WorksFor", true);
        each->Destroy();
    }
    EXPECT_EQ(automation::NativeObject::liveCount(), before);
    EXPECT_EQ(world.desktop.livePeers(), 0U);
    EXPECT_TRUE(components->components.empty());
    EXPECT_TRUE(world.boxes().empty());
}

}  // namespace
}  // namespace quorel::matrix
