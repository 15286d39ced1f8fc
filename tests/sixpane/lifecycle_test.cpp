#include "platform/ui/menu.h"
#include "tests/sixpane/six_pane_fixture.h"

namespace quorel::sixpane {
namespace {

/// Works on the public class, as a host does.
struct SixPaneLifecycle : SixPaneTest {
    Ref<SixPane> browser = make<SixPane>(world.environment);

    ~SixPaneLifecycle() override { browser->Destroy(); }
    void start() {
        browser->Create(u"Browser", session);
        browser->setRepository(model.repository);
        browser->Init();
        browser->Populate();
    }
    void popUp(std::function<void(ui::Form&)> user) {
        world.desktop.expectModal(u"frmSixPane", std::move(user));
        browser->PopUp();
        world.desktop.verify();
    }
};

TEST_F(SixPaneLifecycle, EveryMemberIsError91BeforeCreate) {
    const Object object = browser;
    for (const char16_t* method : {u"Init", u"Deinit", u"PopUp", u"Conceal", u"Populate"})
        EXPECT_EQ(errorNumber([&] { object.call(method); }), 91);
    for (const char16_t* property :
         {u"Path", u"Repository", u"PackageObject", u"RepositoryFileName", u"RepositoryManager", u"current"})
        EXPECT_EQ(errorNumber([&] { static_cast<void>(object.get(property)); }), 91);
    EXPECT_EQ(errorNumber([&] { object.put(u"Path", u"p"); }), 91);
    EXPECT_EQ(errorNumber([&] { object.put(u"current", u"c"); }), 91);
    EXPECT_EQ(errorNumber([&] { object.put(u"RepositoryFileName", u"f"); }), 91);
    for (const char16_t* property : {u"Repository", u"PackageObject", u"RepositoryManager"})
        EXPECT_EQ(errorNumber([&] { object.putRef(property, model.repository); }), 91);
    EXPECT_EQ(errorNumber([&] { object.call(u"SetSelection", model.anna); }), 91);
    object.call(u"Destroy");
    object.call(u"Destroy");
    EXPECT_TRUE(world.boxes().empty());
}

TEST_F(SixPaneLifecycle, MisuseByNameGivesTheHostTheRightErrors) {
    const Object object = browser;
    object.call(u"Create");
    EXPECT_EQ(errorNumber([&] { object.call(u"PopDown"); }), 438);
    EXPECT_EQ(errorNumber([&] { object.call(u"PopUp", u"perhaps"); }), 13);
    EXPECT_EQ(errorNumber([&] { object.call(u"Create", u"a", Object(), u"b"); }), 450);
    EXPECT_EQ(errorNumber([&] { object.call(u"SetSelection"); }), 450);
    EXPECT_EQ(errorNumber([&] { object.put(u"Repository", u"text"); }), 13);
    EXPECT_TRUE(world.boxes().empty());
}

TEST_F(SixPaneLifecycle, MembersStandInPublishedOrder) {
    std::vector<std::u16string> names;
    for (const automation::MemberInfo& member : browser->classTable().members())
        names.push_back(member.name);
    EXPECT_EQ(names, (std::vector<std::u16string>{u"Path", u"Create", u"Destroy", u"Init", u"Deinit",
                                                  u"PopUp", u"Conceal", u"Repository", u"Populate",
                                                  u"PackageObject", u"RepositoryFileName",
                                                  u"RepositoryManager", u"current", u"SetSelection"}));
    const automation::MemberInfo& popUpInfo = *browser->classTable().find(u"PopUp");
    EXPECT_EQ(popUpInfo.parameters.at(0).name, u"modal");
    EXPECT_TRUE(popUpInfo.parameters.at(0).defaultValue->toBoolean());
    const automation::MemberInfo& createInfo = *browser->classTable().find(u"Create");
    EXPECT_EQ(createInfo.parameters.at(0).defaultValue->toString(), u"");
    EXPECT_FALSE(IsObjectSet(createInfo.parameters.at(1).defaultValue->toObject()));
}

TEST_F(SixPaneLifecycle, PropertiesAreForwarded) {
    const Object object = browser;
    object.call(u"Create", u"Browser", session);
    object.put(u"Path", u"C:\\models\\");
    object.put(u"current", u"now");
    object.putRef(u"Repository", model.repository);
    EXPECT_EQ(object.get(u"Path").toString(), u"C:\\models\\");
    EXPECT_EQ(object.get(u"current").toString(), u"now");
    EXPECT_EQ(object.get(u"Repository").toObject(), Object(model.repository));
    EXPECT_TRUE(object.call(u"Init").isEmpty());
    EXPECT_EQ(object.get(u"RepositoryManager").toObject(), Object(manager));
    EXPECT_TRUE(object.call(u"Populate").isEmpty());
    EXPECT_TRUE(object.call(u"Deinit").isEmpty());
}

TEST_F(SixPaneLifecycle, PopUpBlocksUntilTheWindowIsHiddenAndKeepsItsState) {
    start();
    popUp([&](ui::Form& window) {
        EXPECT_EQ(window.text(), u"Browser - Six-Pane Browser");
        world.user.selectRow(pane(window, u"MetaLink").list(), 0);
        browser->Conceal();
    });
    popUp([&](ui::Form& window) {
        EXPECT_EQ(pane(window, u"Link").count(), 2U);
        world.user.closeBox(window);
    });
}

TEST_F(SixPaneLifecycle, PopUpFalseReturnsAtOnce) {
    start();
    browser->PopUp(false);
    EXPECT_GT(world.desktop.livePeers(), 0U);
    browser->Conceal();
    browser->Destroy();
    EXPECT_EQ(world.desktop.livePeers(), 0U);
}

TEST_F(SixPaneLifecycle, VisibleWindowShownModallyIsReportedAsPopup) {
    start();
    browser->PopUp(false);
    world.expectBox();
    browser->PopUp(true);
    world.desktop.verify();
    EXPECT_EQ(lastPlace(), u"SixPane/Popup");
    EXPECT_TRUE(world.boxes().back().starts_with(u"Error No: 400"));
}

TEST_F(SixPaneLifecycle, CloseBoxEndsTheRegistrationAndTheComponent) {
    start();
    components->registerComponent(u"Browser", browser);
    popUp([&](ui::Form& window) { world.user.closeBox(window); });
    EXPECT_TRUE(components->components.empty());
    EXPECT_EQ(components->log.at(0), u"GetComponent Browser");
    EXPECT_EQ(errorNumber([&] { browser->Init(); }), 91) << "the registered public object was destroyed";
}

TEST_F(SixPaneLifecycle, CloseBoxOfAnUnregisteredComponentKeepsTheForm) {
    start();
    popUp([&](ui::Form& window) { world.user.closeBox(window); });
    popUp([&](ui::Form& window) {
        EXPECT_EQ(pane(window, u"MetaLink").count(), 2U);
        browser->Conceal();
    });
}

TEST_F(SixPaneLifecycle, DestroyEndsTheRegistrationOnce) {
    start();
    components->registerComponent(u"Browser", browser);
    browser->PopUp(false);
    browser->Destroy();
    EXPECT_TRUE(components->components.empty());
    EXPECT_EQ(std::count(components->log.begin(), components->log.end(), u"RemoveComponent Browser"), 1);
    browser->Destroy();
    EXPECT_EQ(world.desktop.livePeers(), 0U);
}

TEST_F(SixPaneLifecycle, TerminatesSilentlyWithoutComponentManagerOrRegistration) {
    start();
    browser->Destroy();
    session->componentManager.reset();
    start();
    browser->Destroy();
    browser->Create();
    browser->Destroy();
    EXPECT_TRUE(world.boxes().empty());
}

TEST_F(SixPaneLifecycle, WindowEndsWithTheLastReferenceToItsPublicObject) {
    start();
    browser->PopUp(false);
    browser.reset();
    EXPECT_EQ(world.desktop.livePeers(), 0U);
    EXPECT_EQ(components->log.back(), u"GetComponent Browser");
    browser = make<SixPane>(world.environment);
}

TEST_F(SixPaneLifecycle, InitWithoutSessionKeepsTheHostsManager) {
    browser->Create();
    browser->setRepositoryManager(manager);
    browser->Init();
    EXPECT_EQ(browser->RepositoryManager(), Object(manager));
    EXPECT_TRUE(world.boxes().empty());
}

/// Writes down how a generator of identifiers is used.
class GeneratorDouble final : public automation::NativeObject {
  public:
    explicit GeneratorDouble(std::vector<std::u16string>& log) : log_(log) {}
    [[nodiscard]] const automation::ClassTable& classTable() const override {
        static const automation::ClassTable table =
            automation::ClassTable::of<GeneratorDouble>(u"GeneratorDouble")
                .method(u"Create", &GeneratorDouble::create)
                .method(u"Init", &GeneratorDouble::init, {automation::param(u"namespace")});
        return table;
    }

  private:
    void create() { log_.emplace_back(u"Create"); }
    void init(const std::u16string& nameSpace) { log_.push_back(u"Init " + nameSpace); }
    std::vector<std::u16string>& log_;
};

TEST_F(SixPaneLifecycle, GeneratorIsCreatedByIdentifierAndReleasedByDestroy) {
    std::vector<std::u16string> log;
    world.classes.add(u"QuorelUtility.UUIDGenerator", [&log] { return Object(make<GeneratorDouble>(log)); });
    const std::int64_t before = automation::NativeObject::liveCount();
    browser->Create(u"Browser", session);
    browser->Init();
    EXPECT_EQ(log, (std::vector<std::u16string>{u"Create", u"Init SixPane"}));
    browser->Destroy();
    EXPECT_EQ(automation::NativeObject::liveCount(), before);
}

TEST_F(SixPaneLifecycle, HostMayDestroyTheComponentInsideAnyRepositoryCall) {
    const auto browse = [this](ui::Form& window) {
        world.user.selectRow(pane(window, u"MetaLink").list(), 0);
        world.user.selectRow(pane(window, u"Link").list(), 0);
        static_cast<void>(world.user.look(pane(window, u"Link").list(), 0, 2));
        window.hide();
    };
    start();
    model.script->restart();
    popUp(browse);
    const int calls = model.script->calls();
    ASSERT_GT(calls, 10);
    for (int fatal = 1; fatal <= calls; ++fatal) {
        browser->Destroy();
        start();
        model.script->restart();
        model.script->onCall = [&](const std::u16string&) {
            if (model.script->calls() + 1 == fatal)
                browser->Destroy();
        };
        world.desktop.expectModal(u"frmSixPane", [&](ui::Form& window) {
            try {
                browse(window);
            } catch (const headless::CannotDo&) {  // the window went while the user was at it
            }
        });
        browser->PopUp();
        model.script->onCall = {};
        world.desktop.verify();
        EXPECT_EQ(errorNumber([&] { browser->Init(); }), 91) << fatal;
        EXPECT_EQ(world.desktop.livePeers(), 0U) << fatal;
    }
    EXPECT_TRUE(world.boxes().empty());
}

TEST_F(SixPaneLifecycle, ThousandLifetimesLeaveNothing) {
    const std::int64_t before = automation::NativeObject::liveCount();
    for (int i = 0; i < 1000; ++i) {
        const auto each = make<SixPane>(world.environment);
        components->registerComponent(u"Each", each);
        each->Create(u"Each", session);
        each->setRepository(model.repository);
        each->Init();
        each->Populate();
        each->PopUp(false);
        each->SetSelection(model.annaAtAcme);
        each->Destroy();
    }
    EXPECT_EQ(automation::NativeObject::liveCount(), before);
    EXPECT_EQ(world.desktop.livePeers(), 0U);
    EXPECT_TRUE(components->components.empty());
    EXPECT_TRUE(world.boxes().empty());
}

}  // namespace
}  // namespace quorel::sixpane
