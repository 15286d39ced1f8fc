#include "platform/ui/tab_strip.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/headless/dump.h"
#include "platform/headless/user.h"

namespace quorel::ui {

class TabStripTest : public ::testing::Test {
  protected:
    TabStripTest() {
        form->setClientSize({{4500}, {3000}});
        strip.setBounds({{150}, {150}, {4200}, {2700}});
        strip.onSelect.connect([this](std::size_t from, std::size_t to) {
            log.push_back(std::to_string(from) + "->" + std::to_string(to));
        });
        form->show(Modality::Modeless);
    }
    void addThree() {
        strip.addTab(u"Paths", u"P");
        strip.addTab(u"View", u"V");
        strip.addTab(u"Print", u"R");
    }

    headless::HeadlessDesktop desktop;
    headless::User user{desktop};
    std::shared_ptr<Form> form = std::make_shared<Form>(desktop, u"frmTabs");
    TabStrip& strip = form->add<TabStrip>(u"tbsOptions");
    std::vector<std::string> log;
    using Log = std::vector<std::string>;
};

TEST_F(TabStripTest, TheFirstTabIsSelectedUntilAnotherIs) {
    EXPECT_EQ(strip.selected(), std::nullopt);
    addThree();
    EXPECT_EQ(strip.selected(), 0U);
    strip.select(2);
    EXPECT_EQ(strip.selected(), 2U);
    strip.select(3);
    EXPECT_EQ(strip.selected(), 2U);
    EXPECT_EQ(log, Log{});
}

TEST_F(TabStripTest, TheUserSelectsByMouseAndArrows) {
    addThree();
    user.clickTab(strip, 1);
    user.clickTab(strip, 1);
    user.press(*form, {Key::Right});
    user.press(*form, {Key::Right});
    user.press(*form, {Key::Left});
    EXPECT_EQ(log, (Log{"0->1", "1->2", "2->1"}));
    EXPECT_THROW(user.clickTab(strip, 3), headless::CannotDo);
}

TEST_F(TabStripTest, AnInvisibleTabIsNotThere) {
    addThree();
    strip.setTabVisible(1, false);
    strip.select(1);
    EXPECT_EQ(strip.selected(), 0U);
    EXPECT_THROW(user.clickTab(strip, 1), headless::CannotDo);
    user.clickTab(strip, 0);
    user.press(*form, {Key::Right});
    EXPECT_EQ(strip.selected(), 2U);
}

TEST_F(TabStripTest, ANeighbourIsSelectedWhenTheSelectedTabGoes) {
    addThree();
    strip.select(1);
    strip.setTabVisible(1, false);
    EXPECT_EQ(strip.selected(), 2U);
    strip.setTabVisible(2, false);
    EXPECT_EQ(strip.selected(), 0U);
    strip.setTabVisible(0, false);
    EXPECT_EQ(strip.selected(), std::nullopt);
    strip.setTabVisible(1, true);
    EXPECT_EQ(strip.selected(), 1U);
    EXPECT_EQ(log, Log{});
}

TEST_F(TabStripTest, KeysFindTabs) {
    addThree();
    EXPECT_EQ(strip.indexOf(u"V"), 1U);
    EXPECT_EQ(strip.indexOf(u"v"), std::nullopt);
    strip.setKey(1, u"View");
    strip.setCaption(1, u"Views");
    EXPECT_EQ(strip.indexOf(u"View"), 1U);
    EXPECT_EQ(strip.tabs()[1].caption, u"Views");
}

TEST_F(TabStripTest, PagesGoInsideTheBorders) {
    EXPECT_EQ(strip.clientBounds(), (Rect{{60}, {390}, {4080}, {2250}}));
    EXPECT_EQ(strip.sizeAround({{4080}, {2250}}), strip.bounds().size());
    EXPECT_EQ(tabClient({{100}, {100}}, {{60}, {390}, {60}, {60}}), (Rect{{60}, {390}, {0}, {0}}));
}

TEST_F(TabStripTest, ControlTabIsLeftToTheForm) {
    addThree();
    strip.focus();
    form->onKeyDown.connect([this](KeyEvent& event) {
        if (event.chord == KeyChord{Key::Tab, Modifiers::Control})
            log.emplace_back("form");
    });
    user.press(*form, {Key::Tab, Modifiers::Control});
    EXPECT_EQ(log, (Log{"form"}));
    EXPECT_EQ(strip.selected(), 0U);
}

TEST_F(TabStripTest, ADumpNamesTheVisibleTabs) {
    EXPECT_NE(headless::dump(*form).find("TabStrip tbsOptions \"\" [150,150 4200x2700] (no tabs)"),
              std::string::npos);
    addThree();
    strip.setTabVisible(1, false);
    EXPECT_NE(headless::dump(*form).find("2700] [*\"Paths\"] [\"Print\"]"), std::string::npos);
}

}  // namespace quorel::ui
