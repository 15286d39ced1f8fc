// What needs no window: places, paths, the list of recent files.

#include "navigator/navigator_layout.h"
#include "tests/navigator/navigator_fixture.h"

namespace quorel::navigator {
namespace {

using ui::Rect;
using ui::Size;
using namespace ui::literals;

constexpr ui::Twips kLine = 240_tw;

bool apart(const Rect& a, const Rect& b) {
    const Rect both = intersection(a, b);
    return both.width <= 0_tw || both.height <= 0_tw;
}

TEST(NavigatorLayout, PanesFillThePageBesideEachOther) {
    const Size page{13500_tw, 8000_tw};
    const ModelLayout layout = layoutModel(page, kLine, 4000);
    EXPECT_EQ(layout.types.right(), layout.splitter.left);
    EXPECT_EQ(layout.splitter.right(), layout.instances.left);
    EXPECT_EQ(layout.types.bottom(), page.height);
    EXPECT_EQ(layout.instances.bottom(), page.height);
    EXPECT_LT(layout.instances.right(), page.width);
    EXPECT_EQ(layout.typesCaption.bottom(), layout.types.top);
}

TEST(NavigatorLayout, ADraggedSplitterStandsWhereItWasLeft) {
    const Size page{13500_tw, 8000_tw};
    for (const ui::Twips left : {2500_tw, 5000_tw, 9000_tw})
        EXPECT_NEAR(layoutModel(page, kLine, shareAt(page, left)).splitter.left.value, left.value, 2);
}

TEST(NavigatorLayout, NoPaneBecomesTooSmallToUse) {
    const Size least = leastNavigatorSize(kLine);
    for (const std::int32_t share : {0, 10000}) {
        const ModelLayout layout = layoutModel(least, kLine, share);
        EXPECT_GE(layout.types.width, 1800_tw);
        EXPECT_GE(layout.instances.width, 1800_tw);
        EXPECT_GE(layout.types.height, 1500_tw);
    }
}

TEST(NavigatorLayout, TheWelcomePageFitsIntoTheLeastWindow) {
    const WindowLayout window = layoutWindow(leastNavigatorSize(kLine), kLine);
    const WelcomeLayout layout = layoutWelcome(window.page.size(), kLine, kLine * 2);
    for (const Rect& button : layout.buttons) {
        EXPECT_LE(button.bottom(), window.page.bottom());
        EXPECT_TRUE(apart(button, layout.recent));
        EXPECT_TRUE(apart(button, layout.hint));
    }
    EXPECT_GT(layout.recent.height, 0_tw);
    EXPECT_EQ(window.page.bottom(), window.statusBar.top);
}

TEST(NavigatorLayout, NothingIsNegativeInAWindowWithoutRoom) {
    const WelcomeLayout welcome = layoutWelcome({0_tw, 0_tw}, kLine, kLine);
    EXPECT_GE(welcome.recent.width, 0_tw);
    EXPECT_GE(welcome.recent.height, 0_tw);
    const ModelLayout model = layoutModel({0_tw, 0_tw}, kLine, 3000);
    EXPECT_GE(model.instances.width, 0_tw);
    EXPECT_GE(model.instances.height, 0_tw);
    EXPECT_EQ(shareAt({0_tw, 0_tw}, 100_tw), kFirstShare);
}

TEST(Paths, ArePartedAtEitherSeparator) {
    EXPECT_EQ(fileNameOf(u"C:\\data\\a.quorel"), u"a.quorel");
    EXPECT_EQ(folderOf(u"C:\\data\\a.quorel"), u"C:\\data");
    EXPECT_EQ(fileNameOf(u"/data/a"), u"a");
    EXPECT_EQ(folderOf(u"a"), u"");
    EXPECT_EQ(withExtension(u"C:\\d.x\\a.jsonl", u".quorel"), u"C:\\d.x\\a.quorel");
    EXPECT_EQ(withExtension(u"C:\\d.x\\a", u".quorel"), u"C:\\d.x\\a.quorel");
    EXPECT_TRUE(hasExtension(u"B.QUOREL", u".quorel"));
    EXPECT_FALSE(hasExtension(u"quorel", u".quorel"));
}

TEST(RecentFilesList, KeepsTheLatestFirstUpToItsLimit) {
    shell::MemorySettingsStore settings;
    RecentFiles recents(settings);
    for (const std::u16string_view path : {u"a", u"b", u"c", u"d"})
        recents.add(std::u16string(path), 3);
    EXPECT_EQ(recents.read(), (std::vector<std::u16string>{u"d", u"c", u"b"}));
    recents.add(u"B", 3);
    EXPECT_EQ(recents.read(), (std::vector<std::u16string>{u"B", u"d", u"c"}));
    recents.remove(u"D");
    EXPECT_EQ(recents.read(), (std::vector<std::u16string>{u"B", u"c"}));
    recents.add(u"e", 1);
    EXPECT_EQ(recents.read(), std::vector<std::u16string>{u"e"});
    for (char16_t name = u'a'; name <= u'z'; ++name)
        recents.add(std::u16string(1, name), 100);
    EXPECT_EQ(recents.read().size(), RecentFiles::kMost);
}

}  // namespace
}  // namespace quorel::navigator
