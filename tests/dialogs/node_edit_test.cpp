#include "dialogs/node_edit.h"

#include "tests/dialogs/property_editor_fixture.h"

namespace quorel::dialogs {
namespace {

struct NodeEditTest : PropertyEditorTest {
    std::shared_ptr<NodeEdit> dialog = std::make_shared<NodeEdit>(world.environment);

    void prepare() {
        dialog->load();
        dialog->Property1().initialise();
        dialog->Property1().setPath(u"/models");
        dialog->Property1().setMetaObject(person);
        dialog->Property1().build();
        dialog->SetNode(anna);
    }
    void show(std::function<void(ui::Form&)> user) {
        world.desktop.expectModal(u"NodeEdit", std::move(user));
        dialog->show(ui::Modality::Modal);
        world.desktop.verify();
    }
};

TEST_F(NodeEditTest, ConfirmedWithoutEditIsOkAndUnchanged) {
    prepare();
    EXPECT_FALSE(dialog->IsOk());
    EXPECT_FALSE(dialog->propChanged());
    show([this](ui::Form& form) {
        EXPECT_EQ(form.text(), u"node");
        EXPECT_EQ(world.user.look(list(form), 0, 3).size(), 3U);
        world.user.click(form, u"OK");
    });
    EXPECT_TRUE(dialog->IsOk());
    EXPECT_FALSE(dialog->propChanged());
}

TEST_F(NodeEditTest, OkWritesTheChangedValues) {
    prepare();
    show([this](ui::Form& form) {
        enter(form, 1, u"41");
        world.user.press(form, {ui::Key::Enter});
    });
    EXPECT_TRUE(dialog->IsOk());
    EXPECT_TRUE(dialog->propChanged());
    EXPECT_EQ(anna->values[u"Age"].toInteger(), 41);
}

TEST_F(NodeEditTest, LeavingWithoutOkIsNotOkButStillChanged) {
    for (const bool closeBox : {false, true}) {
        dialog = std::make_shared<NodeEdit>(world.environment);
        prepare();
        show([this, closeBox](ui::Form& form) {
            enter(form, 1, u"41");
            if (closeBox)
                world.user.closeBox(form);
            else
                world.user.press(form, {ui::Key::Escape});
        });
        EXPECT_FALSE(dialog->IsOk());
        EXPECT_TRUE(dialog->propChanged());
        EXPECT_EQ(anna->values[u"Age"].toInteger(), 40);
    }
}

TEST_F(NodeEditTest, SettingAndUnsettingCountAsChanges) {
    prepare();
    show([this](ui::Form& form) {
        world.user.selectRow(list(form), 1);
        world.user.press(form, {ui::Key::Delete});
        EXPECT_TRUE(dialog->propChanged());
        form.hide();
    });
}

TEST_F(NodeEditTest, LoadingAgainResetsBothFlags) {
    prepare();
    show([this](ui::Form& form) {
        enter(form, 1, u"41");
        world.user.click(form, u"OK");
    });
    dialog->unload();
    dialog->load();
    EXPECT_FALSE(dialog->IsOk());
    EXPECT_FALSE(dialog->propChanged());
}

TEST_F(NodeEditTest, FailureOfOkIsReportedInTheBrowsersName) {
    prepare();
    show([this](ui::Form& form) {
        enter(form, 1, u"41");
        script->onCall = [](const std::u16string&) {
            throw automation::Error(1000, u"Locked", u"Repository");
        };
        world.expectBox();
        world.user.click(form, u"OK");
        EXPECT_TRUE(form.isVisible());
        script->onCall = {};
        world.user.click(form, u"Cancel");
    });
    EXPECT_TRUE(lastBox().ends_with(u"(Module 'MatrixBrowser' Function 'Ok_Click()')"));
    EXPECT_FALSE(dialog->IsOk());
}

TEST_F(NodeEditTest, PartsFollowTheWindow) {
    prepare();
    show([this](ui::Form& form) {
        world.user.resize(form, {ui::Twips{9000}, ui::Twips{7000}});
        const ui::Rect grid = headless::get<ui::Control>(form, u"Property1.View").bounds();
        const ui::Rect row = headless::get<ui::Control>(form, u"Buttons").bounds();
        EXPECT_EQ(grid, (ui::Rect{{}, {}, ui::Twips{9000}, ui::Twips{7000} - row.height}));
        EXPECT_EQ(row.top, grid.bottom());
        form.hide();
    });
}

TEST_F(NodeEditTest, EndsWithoutLeftovers) {
    const std::int64_t before = automation::NativeObject::liveCount();
    prepare();
    show([this](ui::Form& form) {
        enter(form, 0, u"x");
        dialog->unload();
        EXPECT_FALSE(form.isVisible());
    });
    dialog.reset();
    EXPECT_EQ(automation::NativeObject::liveCount(), before);
    EXPECT_EQ(world.desktop.livePeers(), 0U);
}

}  // namespace
}  // namespace quorel::dialogs
