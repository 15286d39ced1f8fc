#include "platform/ui/menu.h"
#include "tests/matrix/matrix_fixture.h"

namespace quorel::matrix {
namespace {

struct MatrixPanes : MatrixTest {
    [[nodiscard]] std::u16string focus() {
        const ui::Control* const focused = form->focusedControl();
        return focused != nullptr ? focused->name() : u"";
    }
    std::u16string press(ui::Key key, ui::Modifiers modifiers = ui::Modifiers::None) {
        world.user.press(*form, {key, modifiers});
        return focus();
    }
};

TEST_F(MatrixPanes, EveryListHasAKeyAndAnEntry) {
    open();
    constexpr std::array<std::u16string_view, 5> kEntries{u"mnuMetaNodes", u"mnuInstances", u"mnuIncoming",
                                                          u"mnuOutgoing", u"mnuTargets"};
    for (std::size_t i = 0; i < kLists.size(); ++i) {
        EXPECT_EQ(press(ui::key(static_cast<char>('1' + i)), ui::Modifiers::Control), kLists[i]);
        press(ui::key(static_cast<char>('1' + (i + 1) % kLists.size())), ui::Modifiers::Control);
        world.user.chooseMenu(*form, kEntries[i]);
        EXPECT_EQ(focus(), kLists[i]);
    }
    EXPECT_TRUE(model.script->log.empty()) << "nothing is chosen by going there";
}

TEST_F(MatrixPanes, F6GoesRoundTheListsAndShiftF6Back) {
    open();
    list(u"SourceMetaNodeList").list().focus();
    for (const std::size_t next : {1U, 2U, 3U, 4U, 0U})
        EXPECT_EQ(press(ui::Key::F6), kLists[next]);
    for (const std::size_t before : {4U, 3U, 2U, 1U, 0U})
        EXPECT_EQ(press(ui::Key::F6, ui::Modifiers::Shift), kLists[before]);
}

TEST_F(MatrixPanes, AFilterBelongsToItsList) {
    open();
    list(u"MetaLinkListIncoming").list().focus();
    press(ui::key('F'), ui::Modifiers::Control);
    EXPECT_NE(focus(), u"MetaLinkListIncoming") << "the filter has the keyboard";
    EXPECT_EQ(press(ui::Key::F6), u"MetaLinkListOutgoing");
}

}  // namespace
}  // namespace quorel::matrix
