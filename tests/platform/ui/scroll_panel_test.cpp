#include "platform/ui/scroll_panel.h"

#include <gtest/gtest.h>

#include <vector>

#include "platform/headless/dump.h"
#include "platform/headless/user.h"
#include "platform/ui/check_box.h"

namespace quorel::ui {

class ScrollPanelTest : public ::testing::Test {
  protected:
    ScrollPanelTest() {
        form->setClientSize({{4500}, {3000}});
        page.setBounds({{0}, {0}, {4500}, {1500}});
        page.setContentHeight({6000});
        for (int i = 0; i < 10; ++i) {
            boxes.push_back(&page.add<TextBox>(u"EditBox"));
            boxes.back()->setBounds({{150}, {600 * i + 150}, {2000}, {300}});
        }
        form->show(Modality::Modeless);
    }

    headless::HeadlessDesktop desktop;
    headless::User user{desktop};
    std::shared_ptr<Form> form = std::make_shared<Form>(desktop, u"frmPage");
    ScrollPanel& page = form->add<ScrollPanel>(u"picOptions");
    std::vector<TextBox*> boxes;
};

TEST_F(ScrollPanelTest, ScrollsAsFarAsItsContentGoes) {
    user.scrollTo(page, {1000});
    EXPECT_EQ(page.scrolled(), Twips{1000});
    user.scrollTo(page, {9000});
    EXPECT_EQ(page.scrolled(), Twips{4500});
    page.scrollTo({-1});
    EXPECT_EQ(page.scrolled(), Twips{0});
}

TEST_F(ScrollPanelTest, HasABarOnlyWhereItIsNeeded) {
    EXPECT_TRUE(page.scrolls());
    EXPECT_EQ(page.innerWidth(), Twips{4500 - 255});
    page.scrollTo({4500});
    page.setBounds({{0}, {0}, {4500}, {5000}});
    EXPECT_EQ(page.scrolled(), Twips{1000});
    page.setContentHeight({5000});
    EXPECT_EQ(page.scrolled(), Twips{0});
    EXPECT_FALSE(page.scrolls());
    EXPECT_EQ(page.innerWidth(), Twips{4500});
    EXPECT_THROW(user.scrollTo(page, {10}), headless::CannotDo);
}

TEST_F(ScrollPanelTest, WhatGetsTheFocusComesIntoView) {
    boxes[0]->focus();
    for (int i = 0; i < 9; ++i)
        user.press(*form, {Key::Tab});
    EXPECT_TRUE(boxes[9]->hasFocus());
    EXPECT_EQ(page.scrolled(), Twips{600 * 9 + 450 + 60 - 1500});
    user.press(*form, {Key::Tab});
    EXPECT_TRUE(boxes[0]->hasFocus());
    EXPECT_EQ(page.scrolled(), Twips{90});
    boxes[1]->focus();
    EXPECT_EQ(page.scrolled(), Twips{90});
    boxes[5]->focus();
    EXPECT_EQ(page.scrolled(), Twips{600 * 5 + 450 + 60 - 1500});
}

TEST_F(ScrollPanelTest, WhatStandsDeeperComesIntoViewToo) {
    Panel& frame = page.add<Panel>(u"Frame");
    frame.setBounds({{0}, {4000}, {4000}, {2000}});
    CheckBox& check = frame.add<CheckBox>(u"Check");
    check.setBounds({{0}, {1000}, {2000}, {300}});
    check.focus();
    EXPECT_EQ(page.scrolled(), Twips{5300 + 60 - 1500});
}

TEST_F(ScrollPanelTest, ADumpTellsHowFarItIsScrolled) {
    page.scrollTo({600});
    EXPECT_NE(headless::dump(*form).find("ScrollPanel picOptions \"\" [0,0 4500x1500] content 6000 at 600"),
              std::string::npos);
}

}  // namespace quorel::ui
