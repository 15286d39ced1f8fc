#include "dialogs/name_edit_layout.h"

#include <gtest/gtest.h>

namespace quorel::dialogs {
namespace {

using namespace ui::literals;

bool inside(const ui::Rect& rect, ui::Size client) {
    return rect.left >= 0_tw && rect.top >= 0_tw && rect.right() <= client.width &&
           rect.bottom() <= client.height;
}

TEST(NameEditLayout, EverythingIsInsideAtAnyAllowedSize) {
    for (const std::int32_t lines : {1, 2, 12})
        for (const std::int32_t wider : {0, 1, 1500, 20000})
            for (const std::int32_t higher : {0, 15, 3000}) {
                const ui::Size least = leastNameEditSize(240_tw, lines);
                const ui::Size client{least.width + ui::Twips{wider}, least.height + ui::Twips{higher}};
                const NameEditLayout layout = layoutNameEdit(client, 240_tw, lines);
                for (const ui::Rect& rect : {layout.question, layout.nameBox, layout.ok, layout.cancel})
                    EXPECT_TRUE(inside(rect, client)) << lines << " " << wider << " " << higher;
                EXPECT_LT(layout.question.bottom(), layout.nameBox.top);
                EXPECT_LT(layout.nameBox.bottom(), layout.ok.top);
                EXPECT_LT(layout.ok.right(), layout.cancel.left);
            }
}

TEST(NameEditLayout, BoxTakesTheWidthAndButtonsStayAtTheRight) {
    const NameEditLayout narrow = layoutNameEdit({5000_tw, 2000_tw}, 240_tw, 1);
    const NameEditLayout wide = layoutNameEdit({8000_tw, 2000_tw}, 240_tw, 1);
    EXPECT_EQ(wide.nameBox.width - narrow.nameBox.width, 3000_tw);
    EXPECT_EQ(wide.cancel.left - narrow.cancel.left, 3000_tw);
    EXPECT_EQ(wide.ok.width, narrow.ok.width);
    EXPECT_EQ(wide.question.width, questionWidth(8000_tw));
}

TEST(NameEditLayout, MoreQuestionLinesMoveTheRestDown) {
    const ui::Size one = leastNameEditSize(240_tw, 1);
    const ui::Size three = leastNameEditSize(240_tw, 3);
    EXPECT_EQ(three.height - one.height, 480_tw);
    EXPECT_EQ(layoutNameEdit(three, 240_tw, 3).nameBox.top - layoutNameEdit(one, 240_tw, 1).nameBox.top,
              480_tw);
}

TEST(NameEditLayout, NothingTurnsNegativeInATinyWindow) {
    const NameEditLayout layout = layoutNameEdit({0_tw, 0_tw}, 240_tw, 1);
    for (const ui::Rect& rect : {layout.question, layout.nameBox, layout.ok, layout.cancel}) {
        EXPECT_GE(rect.width, 0_tw);
        EXPECT_GE(rect.left, 0_tw);
    }
}

}  // namespace
}  // namespace quorel::dialogs
