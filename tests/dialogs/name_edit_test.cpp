#include "dialogs/name_edit.h"

#include <gtest/gtest.h>

#include "platform/automation/calls.h"
#include "platform/automation/error.h"
#include "platform/ui/plain_controls.h"
#include "tests/support/test_world.h"

namespace quorel::dialogs {
namespace {

using automation::make;
using automation::Object;
using automation::Ref;
using testing::errorNumber;

struct NameEditTest : ::testing::Test {
    testing::TestWorld world;
    Ref<NameEdit> dialog = make<NameEdit>(world.environment);

    /// Shows the dialog while `user` acts on it.
    void popUp(std::function<void(ui::Form&)> user) {
        world.desktop.expectModal(u"frmNameEdit", std::move(user));
        dialog->PopUp();
        world.desktop.verify();
    }
    ui::TextBox& box(ui::Form& form) { return headless::get<ui::TextBox>(form, u"NameBox"); }
};

TEST_F(NameEditTest, EveryMemberIsError91BeforeCreateAndAfterDestroy) {
    const auto check = [this] {
        EXPECT_EQ(errorNumber([&] { dialog->PopUp(); }), 91);
        EXPECT_EQ(errorNumber([&] { dialog->Conceal(); }), 91);
        EXPECT_EQ(errorNumber([&] { dialog->Caption(u"c"); }), 91);
        EXPECT_EQ(errorNumber([&] { dialog->Question(u"q"); }), 91);
        EXPECT_EQ(errorNumber([&] { static_cast<void>(dialog->name()); }), 91);
        EXPECT_EQ(errorNumber([&] { dialog->setName(u"n"); }), 91);
        EXPECT_EQ(errorNumber([&] { static_cast<void>(dialog->IsOk()); }), 91);
        dialog->Destroy();
    };
    check();
    dialog->Create();
    dialog->Destroy();
    check();
    EXPECT_TRUE(world.boxes().empty());
}

TEST_F(NameEditTest, IsOkIsFalseBeforeAnyPopUp) {
    dialog->Create();
    EXPECT_FALSE(dialog->IsOk());
}

TEST_F(NameEditTest, OkReturnsWhatTheUserTypedUnchanged) {
    dialog->Create();
    dialog->Caption(u"New node");
    dialog->Question(u"Name of the node:");
    dialog->setName(u"Node 1");
    popUp([this](ui::Form& form) {
        EXPECT_EQ(form.text(), u"New node");
        EXPECT_EQ(headless::get<ui::Label>(form, u"lblName").text(), u"Name of the node:");
        EXPECT_EQ(box(form).text(), u"Node 1");
        EXPECT_TRUE(box(form).hasFocus());
        EXPECT_TRUE(box(form).isAllSelected());
        world.user.enterText(box(form), u"  two  words\t");
        world.user.click(form, u"OK");
    });
    EXPECT_TRUE(dialog->IsOk());
    EXPECT_EQ(dialog->name(), u"  two  words\t");
}

TEST_F(NameEditTest, CancelKeepsTheTextButNotTheFlag) {
    dialog->Create();
    popUp([this](ui::Form& form) { world.user.click(form, u"OK"); });
    EXPECT_TRUE(dialog->IsOk());
    popUp([this](ui::Form& form) {
        world.user.enterText(box(form), u"typed");
        world.user.click(form, u"Cancel");
    });
    EXPECT_FALSE(dialog->IsOk());
    EXPECT_EQ(dialog->name(), u"typed");
}

TEST_F(NameEditTest, EnterIsOkAndEscIsCancel) {
    dialog->Create();
    popUp([this](ui::Form& form) { world.user.press(form, {ui::Key::Enter}); });
    EXPECT_TRUE(dialog->IsOk());
    popUp([this](ui::Form& form) { world.user.press(form, {ui::Key::Escape}); });
    EXPECT_FALSE(dialog->IsOk());
}

TEST_F(NameEditTest, CloseBoxIsAsGoodAsCancelAndTheDialogOpensAgain) {
    dialog->Create();
    popUp([this](ui::Form& form) { world.user.click(form, u"OK"); });
    popUp([this](ui::Form& form) {
        world.user.enterText(box(form), u"typed");
        world.user.closeBox(form);
    });
    EXPECT_FALSE(dialog->IsOk());
    EXPECT_EQ(dialog->name(), u"typed");
    popUp([this](ui::Form& form) { world.user.click(form, u"OK"); });
    EXPECT_TRUE(dialog->IsOk());
}

TEST_F(NameEditTest, FlagStaysWhileTheDialogIsShownAgain) {
    dialog->Create();
    popUp([this](ui::Form& form) { world.user.click(form, u"OK"); });
    popUp([this](ui::Form& form) {
        EXPECT_TRUE(dialog->IsOk());
        EXPECT_TRUE(box(form).hasFocus()) << "the name is in focus each time";
        dialog->Conceal();
    });
    EXPECT_TRUE(dialog->IsOk());
}

TEST_F(NameEditTest, AccessKeyOfTheQuestionLeadsToTheBox) {
    dialog->Create();
    dialog->Question(u"&Which name?");
    popUp([this](ui::Form& form) {
        headless::get<ui::Button>(form, u"OK").focus();
        world.user.press(form, {ui::key('W'), ui::Modifiers::Alt});
        EXPECT_TRUE(box(form).hasFocus());
        world.user.click(form, u"Cancel");
    });
}

TEST_F(NameEditTest, LongQuestionsMakeTheWindowHigher) {
    dialog->Create();
    ui::Twips plain{}, wrapped{}, huge{};
    popUp([&](ui::Form& form) { plain = form.clientSize().height, form.hide(); });
    dialog->Question(u"first line\nsecond line\nthird line");
    popUp([&](ui::Form& form) {
        wrapped = form.clientSize().height;
        EXPECT_LT(headless::get<ui::Label>(form, u"lblName").bounds().bottom(), box(form).bounds().top);
        form.hide();
    });
    dialog->Question(std::u16string(1 << 20, u'w'));
    popUp([&](ui::Form& form) { huge = form.clientSize().height, form.hide(); });
    EXPECT_GT(wrapped, plain);
    EXPECT_GT(huge, wrapped);
    EXPECT_LT(huge, ui::Twips{6000});
}

TEST_F(NameEditTest, ResizingStretchesTheBox) {
    dialog->Create();
    popUp([this](ui::Form& form) {
        const ui::Twips before = box(form).bounds().width;
        const ui::Size size = form.clientSize();
        world.user.resize(form, {size.width + ui::Twips{1500}, size.height});
        EXPECT_EQ(box(form).bounds().width, before + ui::Twips{1500});
        form.hide();
    });
}

TEST_F(NameEditTest, HostileNamesTravelUnharmed) {
    dialog->Create();
    for (const std::u16string& name :
         {std::u16string(), std::u16string(u"nul\0inside", 10), std::u16string(u"\xDC00\xD800"),
          std::u16string(u"\u202E\U0001F600"), std::u16string(1 << 20, u'x')}) {
        dialog->setName(name);
        EXPECT_EQ(dialog->name(), name);
    }
}

TEST_F(NameEditTest, HostMayDestroyItWhileItIsShown) {
    dialog->Create();
    popUp([this](ui::Form&) { dialog->Destroy(); });
    EXPECT_EQ(errorNumber([&] { static_cast<void>(dialog->IsOk()); }), 91);
    EXPECT_EQ(world.desktop.livePeers(), 0U);
}

TEST_F(NameEditTest, ShowingItTwiceAtOnceIsError400) {
    dialog->Create();
    popUp([this](ui::Form& form) {
        EXPECT_EQ(errorNumber([&] { dialog->PopUp(); }), 400);
        form.hide();
    });
}

TEST_F(NameEditTest, MembersStandInPublishedOrder) {
    std::vector<std::u16string> names;
    for (const automation::MemberInfo& member : dialog->classTable().members())
        names.push_back(member.name);
    EXPECT_EQ(names, (std::vector<std::u16string>{u"Create", u"Destroy", u"PopUp", u"Conceal", u"Caption",
                                                  u"Question", u"name", u"IsOk"}));
    const Object object = dialog;
    object.call(u"Create");
    object.call(u"Caption", u"c");
    object.put(u"Name", u"by name");
    EXPECT_EQ(object.get(u"name").toString(), u"by name");
    EXPECT_FALSE(object.call(u"IsOk").toBoolean());
    EXPECT_EQ(errorNumber([&] { object.call(u"Caption"); }), 450);
    object.call(u"Destroy");
}

TEST_F(NameEditTest, ThousandLifetimesLeaveNothing) {
    const std::int64_t before = automation::NativeObject::liveCount();
    for (int i = 0; i < 1000; ++i) {
        const auto each = make<NameEdit>(world.environment);
        each->Create();
        world.desktop.expectModal(u"frmNameEdit", [](ui::Form& form) { form.hide(); });
        each->PopUp();
        each->Destroy();
    }
    EXPECT_EQ(automation::NativeObject::liveCount(), before);
    EXPECT_EQ(world.desktop.livePeers(), 0U);
    world.desktop.verify();
}

}  // namespace
}  // namespace quorel::dialogs
