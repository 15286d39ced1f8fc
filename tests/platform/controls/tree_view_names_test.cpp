// When a tree asks objects for their names.

#include <algorithm>

#include "tests/platform/controls/tree_view_fixture.h"

namespace quorel::controls::testing {
namespace {

TEST_F(TreeViewTest, NamesAreAskedWhenTheyAreSeen) {
    addPersons(250);
    describe(u"Extension", u"Person");
    show();
    const auto names = [this] {
        return static_cast<std::size_t>(std::count_if(
            script->log.begin(), script->log.end(),
            [](const std::u16string& call) { return call.ends_with(u".name") && call.starts_with(u"id"); }));
    };
    EXPECT_EQ(names(), 0U);
    const Texts seen = user.look(tree());
    EXPECT_LT(seen.size(), 40U);
    EXPECT_EQ(seen.front(), u"p0");
    EXPECT_EQ(names(), seen.size());
    static_cast<void>(user.look(tree()));
    EXPECT_EQ(names(), seen.size()) << "each once";
    user.scrollTo(tree(), 10);
    EXPECT_EQ(user.look(tree()).front(), u"p10");
    EXPECT_EQ(names(), seen.size() + 10);
    refresh();
    EXPECT_EQ(names(), seen.size() + 10) << "nobody has looked yet";
}

TEST_F(TreeViewTest, NamesThatCannotBeReadAreReportedOnce) {
    addPersons(250);
    describe(u"Extension", u"Person");
    show();
    script->onCall = [](const std::u16string& call) {
        if (call.ends_with(u".name"))
            throw automation::Error(1000);
    };
    const Texts seen = user.look(tree());
    EXPECT_EQ(std::count(seen.begin(), seen.end(), u"#Error"), static_cast<std::ptrdiff_t>(seen.size()));
    EXPECT_EQ(failures.size(), 1U) << "not one a line";
    static_cast<void>(user.look(tree()));
    user.scrollTo(tree(), 50);
    EXPECT_EQ(user.look(tree()).front(), u"#Error");
    EXPECT_EQ(failures.size(), 1U) << "nor one a repaint";
    user.clickItem(tree(), tree().firstChild(TreeItemId::Root));
    EXPECT_EQ(clicked.size(), 1U) << "the tree can be used";
    refresh();
    static_cast<void>(user.look(tree()));
    EXPECT_EQ(failures.size(), 2U) << "when all is read anew";
    script->onCall = {};
    refresh();
    EXPECT_EQ(user.look(tree()).front(), u"p0");
    EXPECT_EQ(failures.size(), 2U);
}

TEST_F(TreeViewTest, AFailureOfANameIsNotReportedWhileItIsPainted) {
    addPersons(1);
    describe(u"Extension", u"Person");
    show();
    script->restart(1);
    EXPECT_EQ(tree().itemText(tree().firstChild(TreeItemId::Root)), u"#Error");
    EXPECT_TRUE(failures.empty());
    desktop.runPosted();
    EXPECT_EQ(failures.size(), 1U);
}

}  // namespace
}  // namespace quorel::controls::testing
