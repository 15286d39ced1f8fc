#include "frame/component_registration.h"

#include <gtest/gtest.h>

#include "tests/support/session_double.h"

namespace quorel::frame {
namespace {

using automation::make;
using automation::Object;
using Log = std::vector<std::u16string>;

/// A public object that writes down how it is torn down.
class PublicDouble final : public automation::NativeObject {
  public:
    explicit PublicDouble(Log& log) : log_(log) {}
    bool fails = false;
    [[nodiscard]] const automation::ClassTable& classTable() const override {
        static const automation::ClassTable table = automation::ClassTable::of<PublicDouble>(u"PublicDouble")
                                                        .method(u"Deinit", &PublicDouble::deinit)
                                                        .method(u"Destroy", &PublicDouble::destroy);
        return table;
    }

  private:
    void note(const char16_t* what) {
        log_.emplace_back(what);
        if (fails)
            throw automation::Error(51);
    }
    void deinit() { note(u"Deinit"); }
    void destroy() { note(u"Destroy"); }
    Log& log_;
};

struct ComponentRegistrationTest : ::testing::Test {
    automation::Ref<testing::SessionDouble> session = make<testing::SessionDouble>();
    automation::Ref<testing::ComponentManagerDouble> manager = make<testing::ComponentManagerDouble>();
    automation::Ref<PublicDouble> component = make<PublicDouble>(manager->log);
    ComponentRegistration registration{u"Browser", session};

    ComponentRegistrationTest() { session->componentManager = manager; }
};

TEST_F(ComponentRegistrationTest, TearsTheComponentDownAndRemovesIt) {
    manager->registerComponent(u"Browser", component);
    registration.endRegistration();
    EXPECT_EQ(manager->log,
              (Log{u"GetComponent Browser", u"Deinit", u"Destroy", u"RemoveComponent Browser"}));
    EXPECT_TRUE(manager->components.empty());
}

TEST_F(ComponentRegistrationTest, RemovesAComponentWithoutPublicObject) {
    manager->registerComponent(u"Browser", {});
    registration.endRegistration();
    EXPECT_EQ(manager->log, (Log{u"GetComponent Browser", u"RemoveComponent Browser"}));
}

TEST_F(ComponentRegistrationTest, UnknownNameIsLeftAlone) {
    registration.endRegistration();
    EXPECT_EQ(manager->log, (Log{u"GetComponent Browser"}));
}

TEST_F(ComponentRegistrationTest, NoSessionNoManagerAndForeignSessionsAreSilent) {
    ComponentRegistration{u"Browser", {}}.endRegistration();
    session->componentManager.reset();
    registration.endRegistration();
    ComponentRegistration{u"Browser", component}.endRegistration();
    EXPECT_TRUE(manager->log.empty());
}

TEST_F(ComponentRegistrationTest, FailingStepsAreSkipped) {
    manager->registerComponent(u"Browser", component);
    component->fails = true;
    manager->failsOnRemove = true;
    registration.endRegistration();
    EXPECT_EQ(manager->log,
              (Log{u"GetComponent Browser", u"Deinit", u"Destroy", u"RemoveComponent Browser"}));
    manager->log.clear();
    manager->failsOnGet = true;
    registration.endRegistration();
    EXPECT_EQ(manager->log, (Log{u"GetComponent Browser"}));
}

}  // namespace
}  // namespace quorel::frame
