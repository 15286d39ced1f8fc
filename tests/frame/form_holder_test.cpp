#include "frame/form_holder.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/support/test_world.h"

namespace quorel::frame {
namespace {

class FormDouble : public ui::Form {
  public:
    FormDouble(ui::Desktop& desktop, std::vector<std::string>& log) : Form(desktop, u"frmDouble"), log_(log) {
        onLoad.connect([this] { log_.emplace_back("load"); });
        onUnload.connect([this] { log_.emplace_back("unload"); });
    }
    ~FormDouble() override { log_.emplace_back("end"); }
    void Destroy() { log_.emplace_back("Destroy"); }

  private:
    std::vector<std::string>& log_;
};

struct FormHolderTest : ::testing::Test {
    testing::TestWorld world;
    std::vector<std::string> log;
    FormHolder<FormDouble> holder;
    std::shared_ptr<FormDouble> makeForm() { return std::make_shared<FormDouble>(world.desktop, log); }
    using Log = std::vector<std::string>;
};

TEST_F(FormHolderTest, MembersAreError91WithoutAForm) {
    EXPECT_EQ(testing::errorNumber([&] { static_cast<void>(holder.form()); }), 91);
    holder.create(makeForm());
    EXPECT_EQ(holder.form()->name(), u"frmDouble");
    holder.destroy();
    EXPECT_EQ(testing::errorNumber([&] { static_cast<void>(holder.form()); }), 91);
}

TEST_F(FormHolderTest, DestroyIsHarmlessBeforeCreateAndTwice) {
    holder.destroy();
    holder.create(makeForm());
    holder.destroy();
    holder.destroy();
    EXPECT_EQ(log, (Log{"load", "unload", "Destroy", "end"}));
}

TEST_F(FormHolderTest, CreateEndsTheFormBefore) {
    holder.create(makeForm())->show(ui::Modality::Modeless);
    const auto second = holder.create(makeForm());
    EXPECT_EQ(log, (Log{"load", "unload", "Destroy", "end", "load"}));
    EXPECT_EQ(holder.form(), second);
}

TEST_F(FormHolderTest, UnloadMayComeBackAndDestroy) {
    const auto form = holder.create(makeForm());
    form->onUnload.connect([this] { holder.destroy(); });
    holder.destroy();
    EXPECT_FALSE(holder.isSet());
    EXPECT_EQ(std::count(log.begin(), log.end(), "unload"), 1);
}

TEST_F(FormHolderTest, ModalShowEndsWhenTheComponentIsDestroyedInside) {
    world.desktop.expectModal(u"frmDouble", [this](ui::Form&) { holder.destroy(); });
    holder.create(makeForm())->show(ui::Modality::Modal);
    EXPECT_FALSE(holder.isSet());
    EXPECT_EQ(log.back(), "end");
    EXPECT_EQ(world.desktop.livePeers(), 0U);
    world.desktop.verify();
}

TEST_F(FormHolderTest, FormEndsWithItsHolder) {
    {
        FormHolder<FormDouble> shortLived;
        shortLived.create(makeForm())->show(ui::Modality::Modeless);
    }
    EXPECT_EQ(log.back(), "end");
    EXPECT_EQ(world.desktop.livePeers(), 0U);
}

}  // namespace
}  // namespace quorel::frame
