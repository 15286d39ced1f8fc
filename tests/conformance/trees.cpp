// Trees.

#include <stdexcept>

#include "platform/automation/text.h"
#include "tests/conformance/window.h"

namespace quorel::conformance {

using namespace ui::literals;
using ui::Key;
using ui::Modality;
using ui::TreeItemId;

namespace {

using Lines = std::vector<std::u16string>;

[[nodiscard]] ui::Picture square() {
    ui::Picture picture{16, 16, {}};
    picture.rgba.assign(16 * 16 * 4, 255);
    return picture;
}

/// A tree of two items, one of them with children, the other made on demand, before a button.
struct Grove {
    explicit Grove(ui::Desktop& desktop)
        : form(std::make_shared<ui::Form>(desktop, u"frmGrove")),
          tree(form->add<ui::Tree>(u"TreeView1")),
          ok(form->add<ui::Button>(u"OK")) {
        form->setClientSize({4500_tw, 3600_tw});
        tree.setBounds({150_tw, 150_tw, 3000_tw, 3000_tw});
        ok.setBounds({3300_tw, 150_tw, 1050_tw, 375_tw});
        packages = tree.add(TreeItemId::Root, {u"Packages"});
        people = tree.add(TreeItemId::Root, {.text = u"People", .mayHaveChildren = true});
        bash = tree.add(packages, {u"bash"});
        zlib = tree.add(packages, {u"zlib"});
        write(tree.onSelect, "select ");
        write(tree.onExpand, "expand ");
        write(tree.onCollapse, "collapse ");
        write(tree.onActivate, "activate ");
        tree.onExpand.connect([this](TreeItemId item) {
            if (item == people && tree.childCount(people) == 0)
                ada = tree.add(people, {u"Ada"});
        });
    }
    void write(ui::Event<TreeItemId>& event, const char* what) {
        event.connect(
            [this, what](TreeItemId item) { log.push_back(what + automation::toUtf8(tree.itemText(item))); });
    }

    Log log;
    std::shared_ptr<ui::Form> form;
    ui::Tree& tree;
    ui::Button& ok;
    TreeItemId packages, people, bash, zlib, ada = TreeItemId::None;
};

}  // namespace

TEST_F(Conformance, ATreeShowsWhatIsOpen) {
    Grove grove(backend->desktop());
    grove.form->show(Modality::Modeless);
    EXPECT_EQ(backend->seenItems(grove.tree), (Lines{u"+ Packages", u"+ People"}));
    grove.tree.expand(grove.packages);
    EXPECT_EQ(backend->seenItems(grove.tree), (Lines{u"- Packages", u"  . bash", u"  . zlib", u"+ People"}));
    grove.tree.collapse(grove.packages);
    EXPECT_EQ(backend->seenItems(grove.tree), (Lines{u"+ Packages", u"+ People"}));
    EXPECT_EQ(grove.log, Log{});
}

TEST_F(Conformance, ATreeThatIsShownLateShowsTheSame) {
    Grove grove(backend->desktop());
    const TreeItemId docs = grove.tree.add(grove.bash, {u"docs"});
    grove.tree.select(docs);
    grove.tree.setBold(grove.people, true);
    grove.form->show(Modality::Modeless);
    EXPECT_EQ(backend->seenItems(grove.tree),
              (Lines{u"- Packages", u"  - bash", u"    . docs*", u"  . zlib", u"+ People!"}));
    EXPECT_EQ(grove.log, Log{});
}

TEST_F(Conformance, AnInnerItemStaysOpenInAClosedOne) {
    Grove grove(backend->desktop());
    grove.tree.add(grove.bash, {u"docs"});
    grove.tree.expand(grove.bash);
    grove.form->show(Modality::Modeless);
    EXPECT_EQ(backend->seenItems(grove.tree), (Lines{u"+ Packages", u"+ People"}));
    backend->clickItemButton(grove.tree, grove.packages);
    const Lines open{u"- Packages", u"  - bash", u"    . docs", u"  . zlib", u"+ People"};
    EXPECT_EQ(backend->seenItems(grove.tree), open);
    backend->clickItemButton(grove.tree, grove.packages);
    backend->clickItemButton(grove.tree, grove.packages);
    EXPECT_EQ(backend->seenItems(grove.tree), open);
    EXPECT_EQ(grove.log, (Log{"expand Packages", "collapse Packages", "expand Packages"}));
}

TEST_F(Conformance, ItemsComeAndGoWhileTheyAreShown) {
    Grove grove(backend->desktop());
    grove.tree.expand(grove.packages);
    grove.form->show(Modality::Modeless);
    grove.tree.add(grove.packages, {u"apt"}, grove.bash);
    grove.tree.add(grove.packages, {u"make"}, grove.zlib);
    grove.tree.add(grove.packages, {u"zsh"});
    grove.tree.setItemText(grove.bash, u"bash 5");
    grove.tree.add(grove.zlib, {u"docs"});
    grove.tree.setMayHaveChildren(grove.people, false);
    grove.tree.add(TreeItemId::Root, {u"Places"});
    EXPECT_EQ(backend->seenItems(grove.tree), (Lines{u"- Packages", u"  . apt", u"  . bash 5", u"  . make",
                                                     u"  + zlib", u"  . zsh", u". People", u". Places"}));
    grove.tree.remove(grove.bash);
    grove.tree.remove(grove.people);
    EXPECT_EQ(backend->seenItems(grove.tree),
              (Lines{u"- Packages", u"  . apt", u"  . make", u"  + zlib", u"  . zsh", u". Places"}));
    grove.tree.removeChildren(grove.packages);
    EXPECT_EQ(backend->seenItems(grove.tree), (Lines{u". Packages", u". Places"}));
    grove.tree.add(grove.packages, {u"again"});
    EXPECT_EQ(backend->seenItems(grove.tree), (Lines{u"+ Packages", u". Places"}));
    grove.tree.expand(grove.packages);
    grove.tree.remove(grove.tree.firstChild(grove.packages));
    EXPECT_EQ(backend->seenItems(grove.tree), (Lines{u". Packages", u". Places"}));
    grove.tree.removeChildren(TreeItemId::Root);
    EXPECT_EQ(backend->seenItems(grove.tree), Lines{});
    EXPECT_EQ(grove.log, Log{});
}

TEST_F(Conformance, RemovingTheSelectedItemSelectsNoOther) {
    Grove grove(backend->desktop());
    grove.form->show(Modality::Modeless);
    grove.tree.select(grove.zlib);
    grove.tree.remove(grove.packages);
    backend->settle();
    EXPECT_EQ(backend->seenItems(grove.tree), (Lines{u"+ People"}));
    EXPECT_EQ(grove.tree.selected(), TreeItemId::None);
    EXPECT_EQ(grove.log, Log{});
}

TEST_F(Conformance, EveryClickOnAnItemIsReportedOnce) {
    Grove grove(backend->desktop());
    grove.form->show(Modality::Modeless);
    backend->clickItem(grove.tree, grove.people);
    backend->clickItem(grove.tree, grove.people);
    backend->clickItem(grove.tree, grove.packages);
    EXPECT_EQ(grove.log, (Log{"select People", "select People", "select Packages"}));
    EXPECT_EQ(backend->seenItems(grove.tree), (Lines{u"+ Packages*", u"+ People"}));
    EXPECT_EQ(grove.form->focusedControl(), &grove.tree);
    EXPECT_THROW(backend->clickItem(grove.tree, grove.bash), std::runtime_error);
}

TEST_F(Conformance, TheFocusAloneSelectsNothing) {
    Grove grove(backend->desktop());
    grove.ok.focus();
    grove.form->show(Modality::Modeless);
    backend->press(*grove.form, {Key::Tab});
    EXPECT_EQ(grove.form->focusedControl(), &grove.tree);
    backend->settle();
    EXPECT_EQ(backend->seenItems(grove.tree), (Lines{u"+ Packages", u"+ People"}));
    EXPECT_EQ(grove.log, Log{});
}

TEST_F(Conformance, ItemsAreMadeWhenTheUserOpensTheirParent) {
    Grove grove(backend->desktop());
    grove.form->show(Modality::Modeless);
    backend->clickItemButton(grove.tree, grove.people);
    EXPECT_EQ(backend->seenItems(grove.tree), (Lines{u"+ Packages", u"- People", u"  . Ada"}));
    backend->clickItemButton(grove.tree, grove.people);
    backend->clickItemButton(grove.tree, grove.people);
    EXPECT_EQ(grove.log, (Log{"expand People", "collapse People", "expand People"}));
    EXPECT_EQ(backend->seenItems(grove.tree), (Lines{u"+ Packages", u"- People", u"  . Ada"}));
}

TEST_F(Conformance, AnItemThatGetsNoChildrenStaysClosed) {
    Grove grove(backend->desktop());
    grove.tree.setMayHaveChildren(grove.bash, true);
    grove.tree.expand(grove.packages);
    grove.form->show(Modality::Modeless);
    backend->clickItemButton(grove.tree, grove.bash);
    backend->clickItemButton(grove.tree, grove.bash);
    EXPECT_EQ(grove.log, (Log{"expand bash", "expand bash"}));
    EXPECT_EQ(backend->seenItems(grove.tree)[1], u"  + bash");
}

TEST_F(Conformance, AClosedItemTakesTheSelectionFromBelow) {
    Grove grove(backend->desktop());
    grove.tree.select(grove.zlib);
    grove.form->show(Modality::Modeless);
    backend->clickItemButton(grove.tree, grove.packages);
    EXPECT_EQ(grove.log, (Log{"collapse Packages", "select Packages"}));
    EXPECT_EQ(backend->seenItems(grove.tree), (Lines{u"+ Packages*", u"+ People"}));
    grove.tree.select(grove.bash);
    grove.tree.collapse(grove.packages);
    EXPECT_EQ(backend->seenItems(grove.tree), (Lines{u"+ Packages*", u"+ People"}));
    EXPECT_EQ(grove.log.size(), 2U);
}

TEST_F(Conformance, ADoubleClickOnAnItemActivatesAndOpensIt) {
    Grove grove(backend->desktop());
    grove.form->show(Modality::Modeless);
    backend->doubleClickItem(grove.tree, grove.people);
    EXPECT_EQ(grove.log, (Log{"select People", "activate People", "expand People"}));
    EXPECT_EQ(backend->seenItems(grove.tree), (Lines{u"+ Packages", u"- People*", u"  . Ada"}));
    grove.log.clear();
    backend->doubleClickItem(grove.tree, grove.ada);
    EXPECT_EQ(grove.log, (Log{"select Ada", "activate Ada"}));
}

TEST_F(Conformance, KeysWalkOpenCloseAndActivate) {
    Grove grove(backend->desktop());
    grove.tree.select(grove.packages);
    grove.tree.focus();
    grove.form->show(Modality::Modeless);
    for (const Key key : {Key::Right, Key::Right, Key::Down, Key::Left, Key::Left, Key::End, Key::Add,
                          Key::Enter, Key::Subtract, Key::Home, Key::Multiply, Key::Left})
        backend->press(*grove.form, {key});
    EXPECT_EQ(grove.log, (Log{"expand Packages", "select bash", "select zlib", "select Packages",
                              "collapse Packages", "select People", "expand People", "activate People",
                              "collapse People", "select Packages"}));
    EXPECT_EQ(backend->seenItems(grove.tree), (Lines{u"+ Packages*", u"+ People"}));
}

TEST_F(Conformance, TypingIntoATreeFindsWhatIsShown) {
    Grove grove(backend->desktop());
    grove.tree.select(grove.people);
    grove.tree.focus();
    grove.form->show(Modality::Modeless);
    backend->typeToFind(grove.tree, u"z");
    EXPECT_EQ(grove.tree.selected(), grove.people);
    grove.tree.expand(grove.packages);
    backend->typeToFind(grove.tree, u"zl");
    EXPECT_EQ(grove.tree.selected(), grove.zlib);
    backend->typeToFind(grove.tree, u"pe");
    EXPECT_EQ(grove.tree.selected(), grove.people);
    backend->typeToFind(grove.tree, u"pp");
    EXPECT_EQ(grove.tree.selected(), grove.people);
    EXPECT_EQ(grove.log, (Log{"select zlib", "select People", "select Packages", "select People"}));
}

TEST_F(Conformance, TheContextMenuIsThatOfTheItemUnderTheMouse) {
    Grove grove(backend->desktop());
    grove.tree.contextMenu().add(u"mnuOpen", u"&Open").onClick.connect([&] {
        grove.log.emplace_back("open");
    });
    grove.tree.onContextMenu.connect([&] { grove.log.emplace_back("menu"); });
    grove.form->show(Modality::Modeless);
    backend->chooseContextMenu(grove.tree, grove.people, u"mnuOpen");
    EXPECT_EQ(grove.log, (Log{"select People", "menu", "open"}));
}

TEST_F(Conformance, ItemsShowTheirPicturesAndFollowTheImageList) {
    Grove grove(backend->desktop());
    const auto images = std::make_shared<ui::ImageList>();
    images->set(u"Node", square());
    grove.tree.setImages(images);
    grove.tree.setItemPicture(grove.packages, u"Link");
    grove.tree.setItemPicture(grove.people, u"Node");
    grove.form->show(Modality::Modeless);
    EXPECT_EQ(backend->seenItems(grove.tree), (Lines{u"+ Packages", u"+ People [Node]"}));
    images->set(u"Link", square());
    EXPECT_EQ(backend->seenItems(grove.tree), (Lines{u"+ Packages [Link]", u"+ People [Node]"}));
    grove.tree.setImages(nullptr);
    EXPECT_EQ(backend->seenItems(grove.tree), (Lines{u"+ Packages", u"+ People"}));
}

TEST_F(Conformance, AnItemFarDownIsBroughtIntoView) {
    Grove grove(backend->desktop());
    std::vector<TreeItemId> many;
    for (int i = 0; i < 100; ++i)
        many.push_back(grove.tree.add(grove.zlib, {u"file"}));
    grove.form->show(Modality::Modeless);
    grove.tree.ensureVisible(many[80]);
    EXPECT_TRUE(backend->seesItem(grove.tree, many[80]));
    EXPECT_TRUE(grove.tree.isExpanded(grove.packages));
    grove.tree.select(many[20]);
    EXPECT_TRUE(backend->seesItem(grove.tree, many[20]));
    EXPECT_EQ(grove.log, Log{});
}

TEST_F(Conformance, AHandlerMayRemoveTheItemItIsToldOf) {
    Grove grove(backend->desktop());
    grove.form->show(Modality::Modeless);
    grove.tree.onSelect.connect([&](TreeItemId item) { grove.tree.remove(item); });
    backend->clickItem(grove.tree, grove.packages);
    EXPECT_EQ(backend->seenItems(grove.tree), (Lines{u"+ People"}));
    grove.tree.onExpand.connect([&](TreeItemId item) { grove.tree.remove(item); });
    backend->clickItemButton(grove.tree, grove.people);
    EXPECT_EQ(backend->seenItems(grove.tree), Lines{});
}

TEST_F(Conformance, AHandlerOfATreeMayDestroyTheWindow) {
    for (const int which : {0, 1, 2, 3}) {
        Grove grove(backend->desktop());
        ui::Tree& tree = grove.tree;
        const TreeItemId item = grove.packages;
        grove.form->show(Modality::Modeless);
        if (which == 3)
            tree.expand(item);
        const auto destroy = [&](TreeItemId) { grove.form->unload(); };
        (which == 0   ? tree.onSelect
         : which == 1 ? tree.onActivate
         : which == 2 ? tree.onExpand
                      : tree.onCollapse)
            .connect(destroy);
        if (which == 0)
            backend->clickItem(tree, item);
        else if (which == 1)
            backend->doubleClickItem(tree, item);
        else
            backend->clickItemButton(tree, item);
        EXPECT_FALSE(grove.form->isLoaded());
        EXPECT_EQ(backend->peerCount(), 0U);
    }
}

TEST_F(Conformance, TextsOfATreeAreAskedForWhenTheyAreSeen) {
    Grove grove(backend->desktop());
    std::size_t asked = 0;
    grove.tree.setTextSource([&asked](TreeItemId item) {
        ++asked;
        return u"item " + automation::decimal(static_cast<std::int64_t>(slotOf(item)));
    });
    std::vector<TreeItemId> many;
    for (int i = 0; i < 1000; ++i)
        many.push_back(grove.tree.add(TreeItemId::Root, {.text = u"", .textOnDemand = true}));
    EXPECT_EQ(asked, 0U);
    grove.form->show(Modality::Modeless);
    backend->look(grove.tree);
    const std::size_t page = asked;
    EXPECT_GE(page, 5U);
    EXPECT_LE(page, 40U) << "no more than there is room for";
    EXPECT_TRUE(grove.tree.isTextKnown(many.front()));
    backend->look(grove.tree);
    EXPECT_EQ(asked, page) << "each once";
    grove.tree.ensureVisible(many.back());
    backend->look(grove.tree);
    EXPECT_LE(asked, page * 2 + 2);
    EXPECT_TRUE(grove.tree.isTextKnown(many.back()));
    EXPECT_FALSE(grove.tree.isTextKnown(many[500]));
    const TreeItemId late = grove.tree.add(grove.packages, {.text = u"", .textOnDemand = true});
    backend->look(grove.tree);
    EXPECT_FALSE(grove.tree.isTextKnown(late)) << "what is above it is closed";
    EXPECT_EQ(backend->seenItems(grove.tree)[1001],
              u". item " + automation::decimal(static_cast<std::int64_t>(slotOf(many.back()))));
}

TEST_F(Conformance, WhoeverIsAskedForTheTextOfAnItemMayDestroyTheWindow) {
    Grove grove(backend->desktop());
    grove.tree.setTextSource([&grove](TreeItemId) {
        grove.form->unload();
        return u"gone";
    });
    for (int i = 0; i < 5; ++i)
        grove.tree.add(TreeItemId::Root, {.text = u"", .textOnDemand = true});
    grove.form->show(Modality::Modeless);
    if (grove.form->isLoaded())
        backend->look(grove.tree);
    EXPECT_FALSE(grove.form->isLoaded());
    EXPECT_EQ(backend->peerCount(), 0U);
}

TEST_F(Conformance, ATreeShowsAgainWhatItShowed) {
    Grove grove(backend->desktop());
    grove.form->show(Modality::Modeless);
    backend->clickItemButton(grove.tree, grove.people);
    backend->clickItem(grove.tree, grove.ada);
    grove.form->unload();
    grove.form->show(Modality::Modeless);
    EXPECT_EQ(backend->seenItems(grove.tree), (Lines{u"+ Packages", u"- People", u"  . Ada*"}));
}

}  // namespace quorel::conformance
