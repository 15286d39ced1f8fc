// The explorer that the navigator describes for any metamodel.

#include "explorer/explorer.h"

#include "navigator/explorer_setup.h"
#include "tests/navigator/navigator_fixture.h"

namespace quorel::navigator {
namespace {

class OpenExplorer final : public explorer::Explorer {
  public:
    using Explorer::Explorer;
    using Explorer::form;
};

struct ExplorerSetup : NavigatorTest {
    Ref<repository::Repository> repository = make<repository::Repository>();
    Ref<OpenExplorer> explorer = make<OpenExplorer>(world.environment);

    ~ExplorerSetup() override {
        explorer->Destroy();
        repository->close();
    }
    void describe() {
        explorer->Create();
        explorer->setRepository(repository);
        explorer->Init();
        describeExplorer(explorer, repository);
        explorer->PopUp(false);
        world.desktop.runPosted();
    }
    ui::Tree& tree() { return headless::get<ui::Tree>(*explorer->form(), u"TreeView1"); }
    void click(std::initializer_list<std::u16string_view> path) {
        world.user.clickItem(tree(), headless::itemAt(tree(), path));
    }
    void expand(std::initializer_list<std::u16string_view> path) {
        world.user.clickItemButton(tree(), headless::itemAt(tree(), path));
    }
    /// The captions of the tabs that are shown, and the lists.
    template <class T>
    std::vector<T*> shown() {
        std::vector<T*> found;
        const std::function<void(ui::Container&)> collect = [&](ui::Container& container) {
            for (const auto& child : container.children()) {
                if (auto* const wanted = dynamic_cast<T*>(child.get());
                    wanted != nullptr && wanted->isShown())
                    found.push_back(wanted);
                if (auto* const inner = dynamic_cast<ui::Container*>(child.get()))
                    collect(*inner);
            }
        };
        collect(*explorer->form());
        return found;
    }
};

TEST_F(ExplorerSetup, ShowsTypesTheirNodesAndWhereTheirLinksLead) {
    repository->open(sample());
    describe();
    EXPECT_EQ(world.boxes(), Texts{});
    EXPECT_EQ(world.user.look(tree()), (Texts{u"Library", u"Book", u"Author", u"Publisher", u"Shelf"}));
    click({u"Author"});
    ASSERT_EQ(shown<controls::ListView>().size(), 1U);
    EXPECT_GT(shown<controls::ListView>().front()->count(), 5U);
    expand({u"Author"});
    expand({u"Author", u"Jane Austen"});
    expand({u"Author", u"Jane Austen", u"Wrote.Book"});
    click({u"Author", u"Jane Austen", u"Wrote.Book"});
    EXPECT_EQ(world.boxes(), Texts{});
    const ui::TreeItemId along = headless::itemAt(tree(), {u"Author", u"Jane Austen", u"Wrote.Book"});
    EXPECT_GT(tree().childCount(along), 0U);
}

TEST_F(ExplorerSetup, ANodesPaneHasItsPropertiesAndATabForEachOfItsLinks) {
    repository->open(sample());
    describe();
    expand({u"Book"});
    const ui::TreeItemId book = tree().firstChild(headless::itemAt(tree(), {u"Book"}));
    world.user.clickItem(tree(), book);
    ASSERT_EQ(shown<ui::TabStrip>().size(), 1U);
    Texts captions;
    for (const auto& tab : shown<ui::TabStrip>().front()->tabs())
        captions.push_back(tab.caption);
    EXPECT_EQ(captions, (Texts{u"Properties", u"Quotes.Book", u"from Author.Wrote",
                               u"from Publisher.Published", u"from Shelf.Holds", u"from Book.Quotes"}));
    EXPECT_EQ(world.boxes(), Texts{});
}

TEST_F(ExplorerSetup, TypesWhoseLinksWouldShareACaptionGetTabsOfTheirOwn) {
    repository->create(folder.file());
    const Object made = repository;
    made.call(u"MakeMetaNode", u"A");
    made.call(u"MakeMetaNode", u"MetaNode");
    made.call(u"MakeMetaLink", u"A.Properties.A", u"A", u"A");
    made.call(u"MakeMetaLink", u"A.A.A", u"A", u"A");
    made.call(u"MakeNode", u"A", u"first", u"a:1");
    describe();
    EXPECT_EQ(world.boxes(), Texts{});
    EXPECT_EQ(world.user.look(tree()).back(), u"A") << "the meta level's own types are left out";
}

TEST_F(ExplorerSetup, AnEmptyRepositoryIsShownAsNothingButItsName) {
    repository->create(folder.file());
    Object(repository).put(u"name", u"Empty");
    describe();
    EXPECT_EQ(world.user.look(tree()), Texts{u"Empty"});
}

}  // namespace
}  // namespace quorel::navigator
