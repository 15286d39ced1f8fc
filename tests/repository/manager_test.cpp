#include "platform/automation/class_registry.h"
#include "repository/repository_manager.h"
#include "repository/session.h"
#include "tests/repository/library_fixture.h"

namespace quorel::repository::testing {
namespace {

/// A generator that tells how it was called.
class RecordingGenerator final : public automation::NativeObject {
  public:
    const automation::ClassTable& classTable() const override {
        static const automation::ClassTable table =
            automation::ClassTable::of<RecordingGenerator>(u"UUIDGenerator")
                .method(u"Create", &RecordingGenerator::create)
                .method(u"Init", &RecordingGenerator::init, {automation::param(u"namespace", u"")})
                .method(u"GetUUID", &RecordingGenerator::uuid);
        return table;
    }
    void create() { calls_ += u"Create "; }
    void init(const std::u16string& name) { calls_.append(u"Init(").append(name).append(u") "); }
    std::u16string uuid() { return calls_.append(u"GetUUID"); }

  private:
    std::u16string calls_;
};

class Manager : public ::testing::Test {
  protected:
    Manager() {
        Services services;
        services.selectFile = [this] { return choice_; };
        services.createObject = [this](std::u16string_view progId) -> Object {
            created_.emplace_back(progId);
            return automation::make<RecordingGenerator>();
        };
        session_ = automation::make<Session>(services);
        manager_ = session_.get(u"RepositoryManager").toObject();
    }

    TemporaryFolder folder_;
    std::optional<std::u16string> choice_;
    std::vector<std::u16string> created_;
    Object session_;
    Object manager_;
};

TEST_F(Manager, CreateAndOpenGiveAnInformationWithTheRepository) {
    const Object information = manager_.call(u"Create", folder_.file()).toObject();
    const Object repository = information.get(u"Repository").toObject();
    repository.call(u"MakeMetaNode", u"Book");
    EXPECT_EQ(information.get(u"FileName").toString(), folder_.file());
    manager_.call(u"Close");
    const Object again = manager_.call(u"Open", folder_.file()).toObject();
    EXPECT_EQ(again.get(u"Repository").toObject().get(u"MetaNodes").toObject().get(u"Count").toInteger(), 1);
    EXPECT_EQ(errorOf([&] { repository.call(u"name"); }).description(), u"The repository has been closed");
}

TEST_F(Manager, AFileThatIsOpenGivesTheSameInformation) {
    const Object first = manager_.call(u"Create", folder_.file()).toObject();
    EXPECT_EQ(manager_.call(u"Open", folder_.file()).toObject(), first);
    EXPECT_EQ(manager_.call(u"Open", (folder_.path() / "." / "test.quorel").u16string()).toObject(), first);
    first.get(u"Repository").toObject().call(u"Close");
    EXPECT_NE(manager_.call(u"Open", folder_.file()).toObject(), first) << "closed by the repository itself";
}

TEST_F(Manager, OneFileOrAllOfThemAreClosed) {
    const Object a =
        manager_.call(u"Create", folder_.file("a.quorel")).toObject().get(u"Repository").toObject();
    const Object b =
        manager_.call(u"Create", folder_.file("b.quorel")).toObject().get(u"Repository").toObject();
    manager_.call(u"Close", folder_.file("a.quorel"));
    EXPECT_FALSE(a.get(u"IsOpen").toBoolean());
    EXPECT_TRUE(b.get(u"IsOpen").toBoolean());
    manager_.call(u"Close");
    EXPECT_FALSE(b.get(u"IsOpen").toBoolean());
    manager_.call(u"Close");
}

TEST_F(Manager, SelectDialogOpensWhatTheUserChooses) {
    EXPECT_FALSE(manager_.call(u"SelectDialog").toObject()) << "cancelled";
    const Object made = manager_.call(u"Create", folder_.file()).toObject();
    choice_ = folder_.file();
    EXPECT_EQ(manager_.call(u"SelectDialog").toObject(), made);
    choice_ = folder_.file("missing");
    EXPECT_EQ(errorOf([&] { manager_.call(u"SelectDialog"); }).number(), 53);
}

TEST_F(Manager, TheGeneratorIsMadeAtTheFirstReadingAndReadyForUse) {
    const Object information = manager_.call(u"Create", folder_.file()).toObject();
    EXPECT_TRUE(created_.empty());
    const Object generator = information.get(u"UUIDGenerator").toObject();
    EXPECT_EQ(information.get(u"UUIDGenerator").toObject(), generator);
    EXPECT_EQ(created_, std::vector<std::u16string>{u"QuorelUtility.UUIDGenerator"});
    EXPECT_EQ(textOf(generator.call(u"GetUUID")), "Create Init(Repository) GetUUID");
}

TEST_F(Manager, WithoutServicesTheMembersSaySo) {
    const Object bare = automation::make<RepositoryManager>(Services{});
    EXPECT_EQ(errorOf([&] { bare.call(u"SelectDialog"); }).number(), 5);
    const Object information = bare.call(u"Create", folder_.file()).toObject();
    EXPECT_EQ(errorOf([&] { information.call(u"UUIDGenerator"); }).number(), 429);
}

TEST_F(Manager, TheComponentManagerKeepsComponentsByName) {
    const Object components = session_.get(u"ComponentManager").toObject();
    EXPECT_FALSE(components.call(u"GetComponent", u"Browser").toObject());
    const Object added = components.call(u"AddComponent", u"Browser", manager_).toObject();
    EXPECT_EQ(components.call(u"GetComponent", u"Browser").toObject(), added);
    EXPECT_EQ(added.get(u"ComObject").toObject(), manager_);
    EXPECT_EQ(textOf(added.get(u"name")), "Browser");
    components.call(u"AddComponent", u"Empty", Object());
    EXPECT_FALSE(components.call(u"GetComponent", u"Empty").toObject().get(u"ComObject").toObject());
    EXPECT_EQ(errorOf([&] { components.call(u"AddComponent", u"Browser", manager_); }).number(), 457);
    EXPECT_EQ(namesOf(Value(components)), (std::vector<std::string>{"Browser", "Empty"}));
    EXPECT_EQ(components.item(u"Browser").toObject(), added);
    EXPECT_EQ(components.item(2).toObject(), components.item(u"Empty").toObject());
    EXPECT_EQ(errorOf([&] { static_cast<void>(components.item(u"x")); }).number(), 9);
    EXPECT_TRUE(components.call(u"RemoveComponent", u"Browser").toBoolean());
    EXPECT_FALSE(components.call(u"RemoveComponent", u"Browser").toBoolean());
    EXPECT_EQ(components.get(u"Count").toInteger(), 1);
}

TEST_F(Manager, ASessionHasOneManagerOfEachKind) {
    EXPECT_EQ(session_.get(u"RepositoryManager").toObject(), manager_);
    EXPECT_EQ(session_.get(u"ComponentManager").toObject(), session_.get(u"ComponentManager").toObject());
}

}  // namespace
}  // namespace quorel::repository::testing
