#include "platform/controls/edit_toolbar.h"

#include <gtest/gtest.h>

#include "platform/headless/user.h"
#include "platform/ui/form.h"

namespace quorel::controls {
namespace {

class EditToolbarTest : public ::testing::Test {
  protected:
    EditToolbarTest() {
        toolbar.onCommand.connect([this](EditCommand command) { commands.push_back(command); });
        toolbar.initialise(0);
        toolbar.setBounds({{0}, {0}, {6000}, EditToolbar::neededHeight()});
        form->show(ui::Modality::Modeless);
    }

    headless::HeadlessDesktop desktop;
    headless::User user{desktop};
    std::shared_ptr<ui::Form> form = std::make_shared<ui::Form>(desktop, u"frmTest");
    EditToolbar& toolbar = form->add<EditToolbar>(u"EditToolbar1(1)");
    std::vector<EditCommand> commands;
};

using Commands = std::vector<EditCommand>;

TEST_F(EditToolbarTest, EveryButtonAsksForItsCommand) {
    for (const char16_t* name : {u"EditToolbar1(1).New", u"EditToolbar1(1).Delete", u"EditToolbar1(1).Edit",
                                 u"EditToolbar1(1).Refresh"})
        user.click(*form, name);
    EXPECT_EQ(commands,
              (Commands{EditCommand::New, EditCommand::Delete, EditCommand::Edit, EditCommand::Refresh}));
}

TEST_F(EditToolbarTest, EveryButtonSaysWhatItDoesAndWithWhichKey) {
    EXPECT_EQ(toolbar.button(EditCommand::New).toolTip(), u"New (Ins)");
    EXPECT_EQ(toolbar.button(EditCommand::Delete).toolTip(), u"Delete (Del)");
    EXPECT_EQ(toolbar.button(EditCommand::Edit).toolTip(), u"Edit (Alt+Enter)");
    EXPECT_EQ(toolbar.button(EditCommand::Refresh).toolTip(), u"Refresh (F5)");
    for (const EditCommand command :
         {EditCommand::New, EditCommand::Delete, EditCommand::Edit, EditCommand::Refresh}) {
        EXPECT_NE(toolbar.button(command).glyph(), nullptr);
        EXPECT_FALSE(toolbar.button(command).text().empty()) << "for those who cannot see the drawing";
        EXPECT_TRUE(toolbar.button(command).isTabStop());
    }
}

TEST_F(EditToolbarTest, KeysOfWhatItServesRunItsCommands) {
    EXPECT_TRUE(toolbar.runKey({ui::Key::Insert}));
    EXPECT_TRUE(toolbar.runKey({ui::Key::Delete}));
    EXPECT_TRUE(toolbar.runKey({ui::Key::Enter, ui::Modifiers::Alt}));
    EXPECT_TRUE(toolbar.runKey({ui::Key::F5}));
    EXPECT_FALSE(toolbar.runKey({ui::Key::Enter}));
    EXPECT_EQ(commands,
              (Commands{EditCommand::New, EditCommand::Delete, EditCommand::Edit, EditCommand::Refresh}));
}

TEST_F(EditToolbarTest, ADisabledCommandTakesItsKeyAndDoesNothing) {
    toolbar.setCommandEnabled(EditCommand::Delete, false);
    EXPECT_TRUE(toolbar.runKey({ui::Key::Delete}));
    EXPECT_THROW(user.click(toolbar.button(EditCommand::Delete)), headless::CannotDo);
    EXPECT_TRUE(commands.empty());
    toolbar.initialise(0);
    EXPECT_TRUE(toolbar.isCommandEnabled(EditCommand::Delete));
}

TEST_F(EditToolbarTest, ButtonsStandSideBySideWithinIt) {
    ui::Twips right{0};
    for (const EditCommand command :
         {EditCommand::New, EditCommand::Delete, EditCommand::Edit, EditCommand::Refresh}) {
        const ui::Rect bounds = toolbar.button(command).bounds();
        EXPECT_GE(bounds.left, right);
        EXPECT_LE(bounds.bottom(), EditToolbar::neededHeight());
        right = bounds.right();
    }
}

}  // namespace
}  // namespace quorel::controls
