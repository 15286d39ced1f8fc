#include "platform/controls/index_tab.h"

#include <gtest/gtest.h>

#include "platform/controls/elastic.h"
#include "platform/headless/user.h"
#include "platform/ui/form.h"
#include "platform/ui/plain_controls.h"

namespace quorel::controls {
namespace {

class IndexTabTest : public ::testing::Test {
  protected:
    IndexTabTest() {
        strip.setBounds({{0}, {0}, {6000}, {4500}});
        form->show(ui::Modality::Modeless);
    }
    [[nodiscard]] std::vector<std::u16string> visibleTabs() const {
        std::vector<std::u16string> captions;
        for (const ui::TabStrip::Tab& tab : strip.tabs())
            if (tab.visible)
                captions.push_back(tab.caption);
        return captions;
    }

    headless::HeadlessDesktop desktop;
    std::shared_ptr<ui::Form> form = std::make_shared<ui::Form>(desktop, u"frmTest");
    IndexTab& strip = form->add<IndexTab>(u"vsIndexTab1");
};

using Texts = std::vector<std::u16string>;

TEST_F(IndexTabTest, PagesFillTheAreaBelowTheTabs) {
    const ui::Panel& first = strip.addPage(u"Pane(1)");
    EXPECT_EQ(first.bounds(), strip.clientBounds());
    strip.setBounds({{0}, {0}, {9000}, {3000}});
    EXPECT_EQ(first.bounds(), strip.clientBounds());
    EXPECT_LT(first.bounds().height, ui::Twips{3000});
}

TEST_F(IndexTabTest, APageHasNoWindowBeforeItIsShown) {
    ui::Panel& page = strip.addPage(u"Pane(1)");
    auto& box = page.add<ui::TextBox>(u"Box");
    EXPECT_EQ(page.peer(), nullptr);
    EXPECT_EQ(box.peer(), nullptr);
    page.setVisible(true);
    EXPECT_NE(box.peer(), nullptr);
    page.dropHiddenPeers();
    EXPECT_NE(box.peer(), nullptr) << "it can be seen";
    page.setVisible(false);
    EXPECT_NE(box.peer(), nullptr);
    page.dropHiddenPeers();
    EXPECT_EQ(box.peer(), nullptr);
    EXPECT_EQ(page.peer(), nullptr);
    page.setVisible(true);
    EXPECT_NE(box.peer(), nullptr);
}

TEST_F(IndexTabTest, DroppingWindowsTakesTheFocusElsewhere) {
    auto& outside = form->add<ui::TextBox>(u"Outside");
    ui::Panel& page = strip.addPage(u"Pane(1)");
    auto& box = page.add<ui::TextBox>(u"Box");
    page.setVisible(true);
    box.focus();
    page.setVisible(false);
    page.dropHiddenPeers();
    EXPECT_TRUE(outside.hasFocus());
}

TEST_F(IndexTabTest, TabsAreMadeAsTheyAreNeededAndStay) {
    strip.showTab(1, u"Second");
    EXPECT_EQ(strip.tabs().size(), 2U);
    EXPECT_EQ(visibleTabs(), Texts{u"Second"});
    EXPECT_EQ(strip.selected(), 1U);
    strip.hideTabs();
    EXPECT_EQ(visibleTabs(), Texts{});
    EXPECT_EQ(strip.selected(), std::nullopt);
    strip.showTab(0, u"Other");
    EXPECT_EQ(visibleTabs(), Texts{u"Other"});
    EXPECT_EQ(strip.tabs().size(), 2U);
}

TEST(Elastic, TellsWhenItsSizeHasChanged) {
    headless::HeadlessDesktop desktop;
    const auto form = std::make_shared<ui::Form>(desktop, u"frmTest");
    auto& elastic = form->add<Elastic>(u"vsElastic1");
    int resizes = 0;
    elastic.onResize.connect([&resizes] { ++resizes; });
    elastic.setBounds({{0}, {0}, {300}, {300}});
    elastic.setBounds({{0}, {0}, {300}, {300}});
    EXPECT_EQ(resizes, 1);
}

}  // namespace
}  // namespace quorel::controls
