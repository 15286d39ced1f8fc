#include "platform/ui/tree.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/automation/text.h"
#include "platform/headless/dump.h"
#include "platform/headless/user.h"

namespace quorel::ui {

using headless::CannotDo;
using headless::itemAt;

class TreeTest : public ::testing::Test {
  protected:
    TreeTest() {
        form->setClientSize({{4500}, {4500}});
        tree.setBounds({{0}, {0}, {4500}, {4500}});
        packages = tree.add(TreeItemId::Root, {u"Packages", u"box"});
        people = tree.add(TreeItemId::Root, {.text = u"People", .mayHaveChildren = true});
        bash = tree.add(packages, {u"bash"});
        zlib = tree.add(packages, {u"zlib"});
        logTo(log);
        form->show(Modality::Modeless);
    }
    void logTo(std::vector<std::string>& to) {
        const auto write = [this, &to](const char* event) {
            return [this, &to, event](TreeItemId item) {
                to.push_back(std::string(event) + " " + automation::toUtf8(tree.itemText(item)));
            };
        };
        tree.onSelect.connect(write("select"));
        tree.onExpand.connect(write("expand"));
        tree.onCollapse.connect(write("collapse"));
        tree.onActivate.connect(write("activate"));
    }
    void addPeople() {
        tree.onExpand.connect([this](TreeItemId item) {
            if (item == people && tree.childCount(people) == 0)
                tree.add(people, {u"Ada"});
        });
    }
    [[nodiscard]] std::vector<std::string> shown() const {
        std::vector<std::string> texts;
        for (TreeItemId item = tree.shownAfter(TreeItemId::Root); item != TreeItemId::None;
             item = tree.shownAfter(item))
            texts.push_back(automation::toUtf8(tree.itemText(item)));
        return texts;
    }
    using Texts = std::vector<std::string>;

    headless::HeadlessDesktop desktop;
    headless::User user{desktop};
    std::shared_ptr<Form> form = std::make_shared<Form>(desktop, u"frmTree");
    Tree& tree = form->add<Tree>(u"TreeView1");
    TreeItemId packages{}, people{}, bash{}, zlib{};
    Texts log;
};

TEST_F(TreeTest, ChildrenStandInTheOrderTheyWereAddedOrBeforeASibling) {
    tree.add(packages, {u"apt"}, bash);
    tree.add(packages, {u"make"}, zlib);
    tree.add(packages, {u"zsh"}, people);  // no sibling
    tree.expand(packages);
    EXPECT_EQ(shown(), (Texts{"Packages", "apt", "bash", "make", "zlib", "zsh", "People"}));
    EXPECT_EQ(tree.childCount(packages), 5U);
    EXPECT_EQ(tree.itemCount(), 7U);
}

TEST_F(TreeTest, KinshipIsKeptBothWays) {
    EXPECT_EQ(tree.parentOf(bash), packages);
    EXPECT_EQ(tree.parentOf(packages), TreeItemId::Root);
    EXPECT_EQ(tree.nextSibling(bash), zlib);
    EXPECT_EQ(tree.previousSibling(zlib), bash);
    EXPECT_EQ(tree.nextSibling(zlib), TreeItemId::None);
    EXPECT_EQ(tree.lastChild(packages), zlib);
    EXPECT_TRUE(tree.isBelow(bash, packages));
    EXPECT_TRUE(tree.isBelow(bash, TreeItemId::Root));
    EXPECT_FALSE(tree.isBelow(packages, bash));
    EXPECT_FALSE(tree.isBelow(packages, packages));
}

TEST_F(TreeTest, AnIdIsNeverGivenAgain) {
    tree.remove(bash);
    const TreeItemId next = tree.add(packages, {u"apt"});
    EXPECT_EQ(slotOf(next), slotOf(bash));
    EXPECT_NE(next, bash);
    EXPECT_FALSE(tree.contains(bash));
    tree.setItemText(bash, u"gone");
    EXPECT_EQ(tree.itemText(bash), u"");
    EXPECT_EQ(tree.itemText(next), u"apt");
    EXPECT_EQ(tree.add(bash, {u"orphan"}), TreeItemId::None);
}

TEST_F(TreeTest, RemovingAnItemRemovesWhatIsBelowIt) {
    const TreeItemId deep = tree.add(bash, {u"docs"});
    tree.remove(packages);
    EXPECT_FALSE(tree.contains(deep));
    EXPECT_FALSE(tree.contains(zlib));
    EXPECT_EQ(tree.itemCount(), 1U);
    EXPECT_EQ(shown(), (Texts{"People"}));
}

TEST_F(TreeTest, AnItemWithoutChildrenLeftIsClosed) {
    tree.expand(packages);
    tree.remove(bash);
    EXPECT_TRUE(tree.isExpanded(packages));
    tree.remove(zlib);
    EXPECT_FALSE(tree.isExpanded(packages));
    EXPECT_FALSE(tree.mayHaveChildren(packages));
}

TEST_F(TreeTest, RemovedChildrenLeaveTheItemThatMayHaveSome) {
    tree.setMayHaveChildren(packages, true);
    tree.select(zlib);
    tree.removeChildren(packages);
    EXPECT_FALSE(tree.isExpanded(packages));
    EXPECT_TRUE(tree.mayHaveChildren(packages));
    EXPECT_EQ(tree.selected(), TreeItemId::None);
    tree.removeChildren(TreeItemId::Root);
    EXPECT_EQ(tree.itemCount(), 0U);
    EXPECT_EQ(tree.shownAfter(TreeItemId::Root), TreeItemId::None);
    EXPECT_EQ(tree.lastShown(), TreeItemId::None);
}

TEST_F(TreeTest, NoTreeIsTooDeepToRemove) {
    TreeItemId at = packages;
    for (int depth = 0; depth < 300'000; ++depth)
        at = tree.add(at, {u"deeper"});
    tree.select(at);
    EXPECT_TRUE(tree.isItemShown(at));
    EXPECT_EQ(tree.lastShown(), people);
    tree.remove(packages);
    EXPECT_EQ(tree.itemCount(), 1U);
}

TEST_F(TreeTest, SelectingOpensWhatIsAboveAndRaisesNothing) {
    const TreeItemId docs = tree.add(bash, {u"docs"});
    tree.select(docs);
    EXPECT_TRUE(tree.isExpanded(packages));
    EXPECT_TRUE(tree.isExpanded(bash));
    EXPECT_EQ(tree.selected(), docs);
    tree.select(bash);
    tree.select(TreeItemId::None);
    EXPECT_EQ(tree.selected(), TreeItemId::None);
    EXPECT_EQ(log, Texts{});
}

TEST_F(TreeTest, AClosedItemTakesTheSelectionFromBelow) {
    tree.select(zlib);
    tree.collapse(packages);
    EXPECT_EQ(tree.selected(), packages);
    EXPECT_EQ(log, Texts{});
    tree.select(zlib);
    user.clickItemButton(tree, packages);
    EXPECT_EQ(log, (Texts{"collapse Packages", "select Packages"}));
}

TEST_F(TreeTest, EveryClickIsASelection) {
    user.clickItem(tree, people);
    user.clickItem(tree, people);
    EXPECT_EQ(log, (Texts{"select People", "select People"}));
    EXPECT_THROW(user.clickItem(tree, bash), CannotDo);
}

TEST_F(TreeTest, ItemsAreMadeWhenTheUserOpensTheirParent) {
    addPeople();
    user.clickItemButton(tree, people);
    EXPECT_EQ(shown(), (Texts{"Packages", "People", "Ada"}));
    user.clickItemButton(tree, people);
    user.clickItemButton(tree, people);
    EXPECT_EQ(log, (Texts{"expand People", "collapse People", "expand People"}));
    EXPECT_EQ(tree.childCount(people), 1U);
}

TEST_F(TreeTest, AnItemThatGotNoChildrenStaysClosedAndCanBeTriedAgain) {
    user.clickItemButton(tree, people);
    EXPECT_FALSE(tree.isExpanded(people));
    user.clickItemButton(tree, people);
    EXPECT_EQ(log, (Texts{"expand People", "expand People"}));
    tree.setMayHaveChildren(people, false);
    EXPECT_THROW(user.clickItemButton(tree, people), CannotDo);
}

TEST_F(TreeTest, ADoubleClickActivatesAndOpens) {
    user.doubleClickItem(tree, packages);
    EXPECT_EQ(log, (Texts{"select Packages", "activate Packages", "expand Packages"}));
    EXPECT_TRUE(tree.isExpanded(packages));
}

TEST_F(TreeTest, AHandlerMayRemoveTheItemItIsToldOf) {
    tree.onActivate.connect([this](TreeItemId item) { tree.remove(item); });
    user.doubleClickItem(tree, packages);
    EXPECT_FALSE(tree.contains(packages));
    tree.onExpand.connect([this](TreeItemId item) { tree.remove(item); });
    user.clickItemButton(tree, people);
    EXPECT_EQ(tree.itemCount(), 0U);
}

TEST_F(TreeTest, ArrowsWalkOpenAndClose) {
    tree.focus();
    const auto press = [this](Key key) { user.press(*form, {key}); };
    press(Key::Down);
    EXPECT_EQ(tree.selected(), packages);
    press(Key::Right);
    press(Key::Right);
    EXPECT_EQ(tree.selected(), bash);
    press(Key::Left);
    press(Key::Left);
    press(Key::Left);
    EXPECT_EQ(tree.selected(), packages);
    EXPECT_FALSE(tree.isExpanded(packages));
    press(Key::End);
    EXPECT_EQ(tree.selected(), people);
    press(Key::Add);
    EXPECT_EQ(log, (Texts{"select Packages", "expand Packages", "select bash", "select Packages",
                          "collapse Packages", "select People", "expand People"}));
}

TEST_F(TreeTest, EnterActivatesOnlyWhereSomebodyWaits) {
    Button& ok = form->add<Button>(u"OK");
    int clicks = 0;
    ok.onClick.connect([&] { ++clicks; });
    form->setDefaultButton(&ok);
    tree.focus();
    tree.onActivate.clear();
    tree.select(people);
    user.press(*form, {Key::Enter});
    EXPECT_EQ(clicks, 1);
    tree.onActivate.connect([this](TreeItemId) { log.emplace_back("activated"); });
    user.press(*form, {Key::Enter});
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(log, (Texts{"activated"}));
}

TEST_F(TreeTest, TypingFindsWhatIsShown) {
    tree.expand(packages);
    tree.add(packages, {u"Zsh"});
    tree.focus();
    tree.select(packages);
    user.type(*form, u"zs");
    EXPECT_EQ(tree.itemText(tree.selected()), u"Zsh");
    user.type(*form, u"z");
    EXPECT_EQ(tree.selected(), zlib);
    user.type(*form, u"zz");
    EXPECT_EQ(tree.selected(), zlib);  // by way of Zsh
    tree.collapse(packages);
    user.type(*form, u"z");
    EXPECT_EQ(tree.selected(), packages);
    user.type(*form, u"peo");
    EXPECT_EQ(tree.selected(), people);
}

TEST_F(TreeTest, TypingAfterAPauseBeginsANewText) {
    tree.expand(packages);
    TypeAhead typing;
    EXPECT_EQ(typing.typed(tree, u'z', 5000), zlib);
    EXPECT_EQ(typing.typed(tree, u'l', 5900), zlib);
    EXPECT_EQ(typing.typed(tree, u'b', 7000), bash);
    EXPECT_EQ(typing.typed(tree, u'x', 9000), TreeItemId::None);
    EXPECT_EQ(typing.typed(tree, u' ', 19000), TreeItemId::None);
    EXPECT_EQ(typing.typed(tree, u'\r', 29000), TreeItemId::None);
}

TEST_F(TreeTest, TheContextMenuIsThatOfTheItemUnderTheMouse) {
    tree.contextMenu().add(u"mnuOpen", u"&Open").onClick.connect([this] {
        log.push_back("open " + automation::toUtf8(tree.itemText(tree.selected())));
    });
    user.chooseContextMenu(tree, people, u"mnuOpen");
    EXPECT_EQ(log, (Texts{"select People", "open People"}));
}

TEST_F(TreeTest, ADumpShowsWhatTheTreeShows) {
    tree.setBold(people, true);
    tree.select(bash);
    EXPECT_EQ(headless::dump(*form),
              "Form frmTree \"\" 4500x4500 modeless\n"
              "  Tree TreeView1 \"\" [0,0 4500x4500] items 4 focus\n"
              "    - \"Packages\" picture box\n"
              "      . \"bash\" selected\n"
              "      . \"zlib\"\n"
              "    + \"People\" bold\n");
}

TEST_F(TreeTest, APathFindsItsItem) {
    EXPECT_EQ(itemAt(tree, {u"Packages", u"zlib"}), zlib);
    EXPECT_EQ(itemAt(tree, {}), TreeItemId::Root);
    EXPECT_THROW(static_cast<void>(itemAt(tree, {u"Packages", u"apt"})), CannotDo);
}

TEST_F(TreeTest, ManyItemsAreAddedAndRemovedOneByOne) {
    std::vector<TreeItemId> items;
    for (int i = 0; i < 200'000; ++i)
        items.push_back(tree.add(people, {u"person"}));
    EXPECT_EQ(tree.childCount(people), 200'000U);
    for (const TreeItemId item : items)
        tree.remove(item);
    EXPECT_EQ(tree.childCount(people), 0U);
    EXPECT_EQ(tree.itemCount(), 4U);
    for (int i = 0; i < 200'000; ++i)
        EXPECT_LT(slotOf(tree.add(people, {u"person"})), 200'006U);
}

}  // namespace quorel::ui
