#include <gtest/gtest.h>

#include "platform/headless/dump.h"
#include "platform/headless/headless_desktop.h"
#include "platform/ui/plain_controls.h"

namespace quorel::ui {

TEST(Label, ItsFontIsOfItsOwn) {
    headless::HeadlessDesktop desktop;
    const auto form = std::make_shared<Form>(desktop, u"frmLabel");
    Label& caption = form->add<Label>(u"PaneCaption");
    EXPECT_EQ(caption.font(), Font{});
    caption.setFont({u"Arial", 14, true});
    Line& line = form->add<Line>(u"Line1");
    form->add<Line>(u"Line2", Orientation::Vertical);
    EXPECT_FALSE(line.isTabStop());
    EXPECT_EQ(headless::dump(*form),
              "Form frmLabel \"\" 0x0 unloaded\n"
              "  Label PaneCaption \"\" [0,0 0x0] font \"Arial\" size 14 bold\n"
              "  Line Line1 \"\" [0,0 0x0] horizontal\n"
              "  Line Line2 \"\" [0,0 0x0] vertical\n");
}

TEST(Label, NeedsTheRoomOfItsLines) {
    headless::HeadlessDesktop desktop;
    EXPECT_EQ(desktop.labelSize(u"&Name", {}, std::nullopt), (Size{{360}, {195}}));
    EXPECT_EQ(desktop.labelSize(u"a\r\nlong\r\n\r\nb", {}, std::nullopt), (Size{{360}, {780}}));
    EXPECT_EQ(desktop.labelSize(u"Name", {{}, 16, true}, std::nullopt), (Size{{720}, {390}}));
    EXPECT_EQ(desktop.labelSize(u"", {}, std::nullopt), (Size{{0}, {195}}));
}

TEST(Label, LongLinesAreBrokenBetweenWords) {
    headless::HeadlessDesktop desktop;
    const Twips seven{90 * 7};
    EXPECT_EQ(desktop.labelSize(u"one two three", {}, seven), (Size{seven, {390}}));
    EXPECT_EQ(desktop.labelSize(u"unbreakable it", {}, seven), (Size{{90 * 11}, {390}}));
    EXPECT_EQ(desktop.labelSize(u"one two", {}, seven), (Size{seven, {195}}));
}

}  // namespace quorel::ui
