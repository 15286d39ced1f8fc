#include "platform/ui/check_box.h"
#include "sixpane/dyn_meta_object_layout.h"
#include "sixpane/frm_dyn_meta_object.h"
#include "tests/sixpane/six_pane_fixture.h"

namespace quorel::sixpane {
namespace {

using ui::Rect;
using ui::Twips;
using namespace ui::literals;

struct DynMetaObjectTest : ::testing::Test {
    testing::TestWorld world;
    std::shared_ptr<frmDynMetaObject> dialog = std::make_shared<frmDynMetaObject>(world.desktop);

    void popUp(const std::function<void()>& user) {
        world.desktop.expectModal(u"frmDynMetaObject", [&user](ui::Form&) { user(); });
        dialog->PopUp();
        world.desktop.verify();
    }
    [[nodiscard]] ui::CheckBox& persistent() { return headless::get<ui::CheckBox>(*dialog, u"Persistent"); }
};

TEST_F(DynMetaObjectTest, TextsAreTheContracts) {
    EXPECT_EQ(dialog->text(), u"Dynamic Meta Object");
    EXPECT_EQ(headless::get<ui::Label>(*dialog, u"Label1").text(), u"&Name:");
    EXPECT_EQ(headless::get<ui::Label>(*dialog, u"Label2").text(), u"&Description:");
    EXPECT_EQ(persistent().text(), u"&Persistent");
    dialog->AsMetaClass();
    EXPECT_EQ(dialog->text(), u"Dynamic MetaClass");
    dialog->AsMetaAssoc();
    EXPECT_EQ(dialog->text(), u"Dynamic MetaAssoc");
}

TEST_F(DynMetaObjectTest, IsPersistentIsTheCheckBox) {
    EXPECT_FALSE(dialog->IsPersistent());
    dialog->setIsPersistent(true);
    EXPECT_EQ(persistent().value(), ui::CheckValue::Checked);
    persistent().setValue(ui::CheckValue::Grayed);
    EXPECT_FALSE(dialog->IsPersistent()) << "only a tick is one";
    dialog->setIsPersistent(false);
    EXPECT_EQ(persistent().value(), ui::CheckValue::Unchecked);
}

TEST_F(DynMetaObjectTest, OnlyOkConfirms) {
    EXPECT_FALSE(dialog->IsOk());
    popUp([this] { world.user.click(*dialog, u"OK"); });
    EXPECT_TRUE(dialog->IsOk());
    popUp([this] { world.user.click(*dialog, u"Cancel"); });
    EXPECT_FALSE(dialog->IsOk());
    popUp([this] { world.user.click(*dialog, u"OK"); });
    popUp([this] { world.user.closeBox(*dialog); });
    EXPECT_FALSE(dialog->IsOk());
}

TEST_F(DynMetaObjectTest, TheKeyboardReachesEverything) {
    dialog->setMetaObjectName(u"old");
    popUp([this] {
        EXPECT_EQ(dialog->focusedControl()->name(), u"MetaObjectName");
        world.user.type(*dialog, u"new");
        for (const std::u16string_view next : {u"Description", u"Persistent", u"OK", u"Cancel"}) {
            world.user.press(*dialog, {ui::Key::Tab});
            EXPECT_EQ(dialog->focusedControl()->name(), next);
        }
        world.user.press(*dialog, {ui::key('P'), ui::Modifiers::Alt});
        world.user.press(*dialog, {ui::key('D'), ui::Modifiers::Alt});
        EXPECT_EQ(dialog->focusedControl()->name(), u"Description");
        world.user.press(*dialog, {ui::key('N'), ui::Modifiers::Alt});
        world.user.press(*dialog, {ui::Key::Enter});
    });
    EXPECT_TRUE(dialog->IsOk());
    EXPECT_EQ(dialog->MetaObjectName(), u"new");
    EXPECT_TRUE(dialog->IsPersistent());
}

TEST(DynMetaObjectLayout, NothingOverlapsFromTheLeastSizeUp) {
    for (const Twips line : {200_tw, 240_tw, 390_tw}) {
        const Twips label = line * 4;
        const ui::Size least = leastDynMetaObjectSize(line, label);
        for (const std::int32_t more : {0, 500, 9000}) {
            const ui::Size client{least.width + Twips{more}, least.height + Twips{more}};
            const DynMetaObjectLayout layout = layoutDynMetaObject(client, line, label);
            const std::array<Rect, 7> all{layout.nameLabel,      layout.nameBox,    layout.descriptionLabel,
                                          layout.descriptionBox, layout.persistent, layout.ok,
                                          layout.cancel};
            for (std::size_t i = 0; i < all.size(); ++i) {
                EXPECT_GE(all[i].left, 0_tw);
                EXPECT_LE(all[i].right(), client.width);
                EXPECT_LE(all[i].bottom(), client.height);
                EXPECT_GE(all[i].height, line);
                for (std::size_t j = i + 1; j < all.size(); ++j)
                    EXPECT_FALSE(all[i].left < all[j].right() && all[j].left < all[i].right() &&
                                 all[i].top < all[j].bottom() && all[j].top < all[i].bottom())
                        << i << " " << j;
            }
        }
    }
}

}  // namespace
}  // namespace quorel::sixpane
