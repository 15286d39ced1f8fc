#include "tests/platform/controls/tree_view_fixture.h"

namespace quorel::controls::testing {
namespace {

// Descriptions and the entries that they stand for.
// ------------------------------------------------------------------------

TEST_F(PeopleTreeTest, EntriesFollowTheDescriptionsOnExpand) {
    show();
    EXPECT_EQ(below(TreeItemId::Root), Texts{u"Everybody"});
    EXPECT_EQ(script->calls(), 0);
    open({u"Everybody"});
    EXPECT_EQ(below(at({u"Everybody"})), (Texts{u"Anna", u"Ben"}));
    open({u"Everybody", u"Anna"});
    EXPECT_EQ(below(at({u"Everybody", u"Anna"})), Texts{u"Jobs"});
    open({u"Everybody", u"Anna", u"Jobs"});
    EXPECT_EQ(below(at({u"Everybody", u"Anna", u"Jobs"})), (Texts{u"Acme", u"Zenith"}));
    EXPECT_FALSE(tree().mayHaveChildren(at({u"Everybody", u"Anna", u"Jobs", u"Acme"})));
}

TEST_F(PeopleTreeTest, ListedObjectsAreAskedForNothingButTheirNames) {
    show();
    open({u"Everybody"});
    static_cast<void>(user.look(tree()));
    for (const std::u16string& call : script->log)
        EXPECT_TRUE(!call.starts_with(u"id") || call.ends_with(u".name")) << automation::toUtf8(call);
    script->restart();
    open({u"Everybody", u"Anna"});
    EXPECT_EQ(script->log, Texts{}) << "a folder is known without the repository";
}

TEST_F(PeopleTreeTest, AnEntryWithNothingBelowLosesItsButton) {
    show();
    open({u"Everybody"});
    open({u"Everybody", u"Ben"});
    const TreeItemId folder = at({u"Everybody", u"Ben", u"Jobs"});
    EXPECT_TRUE(tree().mayHaveChildren(folder)) << "nobody has asked yet";
    user.clickItemButton(tree(), folder);
    EXPECT_FALSE(tree().mayHaveChildren(folder));
    EXPECT_FALSE(tree().isExpanded(folder));
}

TEST_F(PeopleTreeTest, ExpandingAgainReadsNothing) {
    show();
    open({u"Everybody"});
    open({u"Everybody"});
    script->restart();
    open({u"Everybody"});
    EXPECT_EQ(script->calls(), 0);
    EXPECT_EQ(below(at({u"Everybody"})).size(), 2U);
}

TEST_F(PeopleTreeTest, EntriesTellWhatTheyStandFor) {
    show();
    open({u"Everybody"});
    open({u"Everybody", u"Anna"});
    open({u"Everybody", u"Anna", u"Jobs"});
    click({u"Everybody"});
    click({u"Everybody", u"Anna"});
    click({u"Everybody", u"Anna", u"Jobs"});
    click({u"Everybody", u"Anna", u"Jobs", u"Acme"});
    ASSERT_EQ(clicked.size(), 4U);
    EXPECT_EQ(clicked[0]->kind(), EntryKind::Plain);
    EXPECT_EQ(clicked[0]->object(), Object());
    EXPECT_EQ(nodeOf(*clicked[0]), Object());
    EXPECT_EQ(clicked[1]->kind(), EntryKind::Extension);
    EXPECT_EQ(clicked[1]->object(), Object(anna));
    EXPECT_EQ(clicked[2]->kind(), EntryKind::Folder);
    EXPECT_EQ(clicked[2]->object(), Object(anna)) << "a folder stands for the node it belongs to";
    EXPECT_EQ(clicked[3]->kind(), EntryKind::Links);
    EXPECT_EQ(clicked[3]->object(), Object(annaAtAcme)) << "the link itself";
    EXPECT_EQ(nodeOf(*clicked[3]), Object(acme)) << "panes show its target";
    EXPECT_EQ(clicked[3]->paneId(), u"pane");
}

TEST_F(PeopleTreeTest, AFolderBelowALinkBelongsToItsTarget) {
    describe(*employers, u"Folder", u"", u"More");
    show();
    open({u"Everybody"});
    open({u"Everybody", u"Anna"});
    open({u"Everybody", u"Anna", u"Jobs"});
    open({u"Everybody", u"Anna", u"Jobs", u"Acme"});
    click({u"Everybody", u"Anna", u"Jobs", u"Acme", u"More"});
    EXPECT_EQ(clicked.back()->object(), Object(acme));
}

TEST_F(TreeViewTest, LinksWithoutANodeAboveAreAllOfTheirType) {
    const auto anna = repository->addNode(person, u"Anna");
    const auto acme = repository->addNode(company, u"Acme");
    static_cast<void>(repository->addLink(worksFor, u"a", anna, acme));
    describe(u"Links", u"WorksFor");
    show();
    EXPECT_EQ(below(TreeItemId::Root), Texts{u"Acme"});
}

TEST_F(TreeViewTest, DescriptionsOfOneLevelAreListedInTheirOrder) {
    addPersons(2);
    describe(u"A", u"", u"First");
    describe(u"Extension", u"Person");
    describe(u"B", u"", u"Last");
    show();
    EXPECT_EQ(below(TreeItemId::Root), (Texts{u"First", u"p0", u"p1", u"Last"}));
}

TEST_F(TreeViewTest, TheKindsAreTakenByTheirVeryNames) {
    EXPECT_EQ(entryKindOf(u"Extension"), EntryKind::Extension);
    EXPECT_EQ(entryKindOf(u"Links"), EntryKind::Links);
    EXPECT_EQ(entryKindOf(u"Folder"), EntryKind::Folder);
    for (const char16_t* other : {u"", u"Node", u"Link", u"extension"})
        EXPECT_EQ(entryKindOf(other), EntryKind::Plain);
}

TEST_F(TreeViewTest, EveryDescriptionHasAKeyOfItsOwn) {
    EXPECT_EQ(describe(u"A", u"")->key, u"Entry:1");
    EXPECT_EQ(describe(u"A", u"")->key, u"Entry:2");
}

TEST_F(TreeViewTest, ADescriptionThatComesLateIsShownAMomentLater) {
    describe(u"A", u"", u"First");
    show();
    describe(u"B", u"", u"Second");
    describe(u"C", u"", u"Third");
    EXPECT_EQ(below(TreeItemId::Root), Texts{u"First"});
    desktop.runPosted();
    EXPECT_EQ(below(TreeItemId::Root), (Texts{u"First", u"Second", u"Third"}));
}

// Pages.
// ------------------------------------------------------------------------

TEST_F(TreeViewTest, ManyEntriesComeInPages) {
    addPersons(1234);
    describe(u"Extension", u"Person");
    describe(u"A", u"", u"Last");
    show();
    Texts listed = below(TreeItemId::Root);
    ASSERT_EQ(listed.size(), 102U);
    EXPECT_EQ(listed[99], u"p99");
    EXPECT_EQ(listed[100], u"100 more of 1,234");
    EXPECT_EQ(listed[101], u"Last");
    click({u"100 more of 1,234"});
    listed = below(TreeItemId::Root);
    ASSERT_EQ(listed.size(), 202U);
    EXPECT_EQ(listed[100], u"p100");
    EXPECT_EQ(listed[200], u"100 more of 1,234");
    EXPECT_EQ(selected(), u"p100") << "the user goes on with what has come";
    ASSERT_EQ(clicked.size(), 1U);
    EXPECT_EQ(clicked[0]->instance, repository->metaNodes->items[0]
                                        .second.get(u"Extension")
                                        .toObject()
                                        .item(automation::Value(101))
                                        .toObject());
    for (int page = 0; page < 10; ++page)
        click({u"100 more of 1,234"});
    listed = below(TreeItemId::Root);
    EXPECT_EQ(listed[1200], u"34 more of 1,234");
    click({u"34 more of 1,234"});
    listed = below(TreeItemId::Root);
    ASSERT_EQ(listed.size(), 1235U);
    EXPECT_EQ(listed[1233], u"p1233");
    EXPECT_EQ(listed[1234], u"Last");
}

TEST_F(TreeViewTest, AFullPageAloneNeedsNoMore) {
    addPersons(100);
    describe(u"Extension", u"Person");
    show();
    EXPECT_EQ(below(TreeItemId::Root).size(), 100U);
    static_cast<void>(repository->addNode(person, u"p100"));
    refresh();
    EXPECT_EQ(below(TreeItemId::Root).back(), u"1 more of 101");
}

TEST_F(TreeViewTest, ThePageIsThereBeforeItIsCounted) {
    addPersons(150);
    describe(u"Extension", u"Person");
    view.populate();
    EXPECT_EQ(below(TreeItemId::Root).back(), u"100 more");
    EXPECT_EQ(std::count(script->log.begin(), script->log.end(), u"Person.Extension.Count"), 0);
    desktop.runPosted();
    EXPECT_EQ(below(TreeItemId::Root).back(), u"50 more of 150");
    view.release();
    view.setRepository(repository);
    view.populate();
    view.release();
    desktop.runPosted();
    EXPECT_EQ(tree().itemCount(), 0U) << "what is gone is not counted";
}

TEST_F(TreeViewTest, WhatCannotBeCountedIsListedAllTheSame) {
    addPersons(150);
    describe(u"Extension", u"Person");
    script->onCall = [](const std::u16string& call) {
        if (call == u"Person.Extension.Count")
            throw automation::Error(1000);
    };
    show();
    EXPECT_EQ(failures.size(), 1U);
    script->onCall = {};
    click({u"100 more"});
    EXPECT_EQ(below(TreeItemId::Root).size(), 150U);
}

// Finding.
// ------------------------------------------------------------------------

TEST_F(PeopleTreeTest, FindingRevealsWhatIsNotListed) {
    show();
    user.enterText(view.findBox(), u"zen");
    press(ui::Key::Enter);
    EXPECT_EQ(selected(), u"Zenith");
    EXPECT_TRUE(tree().isItemShown(at({u"Everybody", u"Anna", u"Jobs", u"Zenith"})));
    ASSERT_EQ(clicked.size(), 1U);
    EXPECT_EQ(clicked[0]->object(), Object(annaAtZenith));
}

TEST_F(PeopleTreeTest, FindingGoesOnAndRoundAgain) {
    show();
    user.enterText(view.findBox(), u"n");  // Anna, Ben, Zenith
    const auto found = [this] {
        press(ui::Key::Enter);
        return selected();
    };
    EXPECT_EQ(found(), u"Anna");
    EXPECT_EQ(found(), u"Ben");
    EXPECT_EQ(found(), u"Zenith");
    EXPECT_EQ(found(), u"Zenith") << "there is no other";
    const auto& label = headless::get<ui::Label>(*form, u"TreeView1.Found");
    EXPECT_EQ(label.text(), u"Not found");
    EXPECT_TRUE(label.isVisible());
    EXPECT_EQ(found(), u"Anna") << "from the top again";
    EXPECT_FALSE(label.isVisible());
}

TEST_F(TreeViewTest, FindingListsThePagesUpToWhatWasFound) {
    addPersons(1000);
    describe(u"Extension", u"Person");
    show();
    EXPECT_TRUE(view.find(u"p777"));
    desktop.runPosted();
    EXPECT_EQ(selected(), u"p777");
    EXPECT_EQ(below(TreeItemId::Root).size(), 801U);
    EXPECT_EQ(below(TreeItemId::Root).back(), u"100 more of 1,000");
    EXPECT_FALSE(view.find(u"p9999"));
    EXPECT_FALSE(view.find(u""));
}

TEST_F(TreeViewTest, FindingFarDownLeavesTheWayOpen) {
    addPersons(1000);
    const auto all = describe(u"Group", u"", u"All");
    describe(*all, u"Extension", u"Person");
    show();
    open({u"All"});
    EXPECT_TRUE(view.find(u"p777"));
    EXPECT_TRUE(tree().isExpanded(at({u"All"})));
    EXPECT_EQ(selected(), u"p777");
    EXPECT_TRUE(tree().isItemShown(tree().selected()));
}

TEST_F(TreeViewTest, WhatIsVeryFarDownIsListedByItself) {
    addPersons(5000);
    const auto all = describe(u"Group", u"", u"All");
    describe(*all, u"Extension", u"Person");
    show();
    EXPECT_TRUE(view.find(u"p4321"));
    desktop.runPosted();
    EXPECT_EQ(selected(), u"p4321");
    Texts listed = below(at({u"All"}));
    ASSERT_EQ(listed.size(), 102U);
    EXPECT_EQ(listed[100], u"p4321");
    EXPECT_EQ(listed[101], u"100 more of 5,000");
    const std::shared_ptr<TreeEntry> found = clicked.back();
    refresh();
    EXPECT_EQ(view.selectedEntry(), found) << "a refresh keeps it";
    EXPECT_EQ(below(at({u"All"})).size(), 102U);
    EXPECT_TRUE(view.find(u"p4321")) << "again";
    EXPECT_EQ(below(at({u"All"})).size(), 102U);
    for (int page = 0; page < 49; ++page)
        user.clickItem(tree(), tree().lastChild(at({u"All"})));
    listed = below(at({u"All"}));
    EXPECT_EQ(listed.size(), 5000U);
    EXPECT_EQ(std::count(listed.begin(), listed.end(), u"p4321"), 1) << "its page does not list it again";
    person->extension->items.erase(person->extension->items.begin() + 4321);
    view.setRepository(repository);
    EXPECT_FALSE(view.find(u"p4321"));
}

TEST_F(TreeViewTest, ALongSearchIsContinued) {
    for (std::size_t i = 0; i < 3; ++i)
        addPersons(1);
    describe(u"Extension", u"Person");
    TreeSearch search(std::make_shared<TreeDescription>(view.rootDescription()), repository, u"p0");
    EXPECT_NE(search.next(), nullptr);
    EXPECT_NE(search.next(), nullptr);
    EXPECT_NE(search.next(), nullptr);
    EXPECT_FALSE(search.hasEnded());
    EXPECT_EQ(search.next(), nullptr);
    EXPECT_TRUE(search.hasEnded());
}

TEST_F(PeopleTreeTest, SearchPassesOverWhatCannotBeRead) {
    show();
    script->onCall = [](const std::u16string& call) {
        if (call == u"id1.name")
            throw automation::Error(1000);
    };
    EXPECT_TRUE(view.find(u"en"));
    EXPECT_EQ(selected(), u"Ben");
    EXPECT_TRUE(failures.empty()) << "nobody has looked at it";
    EXPECT_EQ(user.look(tree()), (Texts{u"Everybody", u"#Error", u"Ben"}));
    EXPECT_EQ(failures.size(), 1U);
}

TEST_F(PeopleTreeTest, KeysLeadToTheBoxAndBack) {
    show();
    tree().focus();
    press(ui::key('F'), ui::Modifiers::Control);
    EXPECT_TRUE(view.findBox().hasFocus());
    user.type(*form, u"anna");
    press(ui::Key::Enter);
    press(ui::Key::Down);
    EXPECT_TRUE(tree().hasFocus());
    press(ui::Key::F3);
    EXPECT_EQ(selected(), u"Anna");
    press(ui::key('F'), ui::Modifiers::Control);
    press(ui::Key::Escape);
    EXPECT_TRUE(tree().hasFocus());
    EXPECT_EQ(view.findBox().text(), u"");
}

TEST_F(PeopleTreeTest, TypingFindsWhatIsShown) {
    show();
    open({u"Everybody"});
    tree().focus();
    user.type(*form, u"be");
    EXPECT_EQ(selected(), u"Ben");
    EXPECT_EQ(clicked.back()->object(), Object(ben));
}

// Reading anew.
// ------------------------------------------------------------------------

TEST_F(PeopleTreeTest, RefreshKeepsWhatIsOpenAndSelected) {
    show();
    open({u"Everybody"});
    open({u"Everybody", u"Anna"});
    open({u"Everybody", u"Anna", u"Jobs"});
    click({u"Everybody", u"Anna", u"Jobs", u"Zenith"});
    const std::shared_ptr<TreeEntry> former = clicked.back();
    static_cast<void>(repository->addNode(person, u"Cleo"));
    ben->shownName = u"Benno";
    press(ui::Key::F5);
    EXPECT_EQ(below(at({u"Everybody"})), (Texts{u"Anna", u"Benno", u"Cleo"}));
    EXPECT_EQ(tree().selected(), at({u"Everybody", u"Anna", u"Jobs", u"Zenith"}));
    EXPECT_EQ(view.selectedEntry(), former) << "the same entry for whoever keeps it";
    EXPECT_EQ(clicked.size(), 1U) << "nobody has clicked";
    EXPECT_FALSE(tree().isExpanded(at({u"Everybody", u"Benno"})));
}

TEST_F(PeopleTreeTest, WhatWasSelectedAndIsGoneHandsOverToWhatIsAbove) {
    show();
    open({u"Everybody"});
    open({u"Everybody", u"Anna"});
    open({u"Everybody", u"Anna", u"Jobs"});
    click({u"Everybody", u"Anna", u"Jobs", u"Acme"});
    anna->outgoingLinks[u"WorksFor"]->items.erase(anna->outgoingLinks[u"WorksFor"]->items.begin());
    refresh();
    EXPECT_EQ(below(at({u"Everybody", u"Anna", u"Jobs"})), Texts{u"Zenith"});
    EXPECT_EQ(selected(), u"Jobs");
    ASSERT_EQ(clicked.size(), 2U);
    EXPECT_EQ(clicked.back()->kind(), EntryKind::Folder);
}

TEST_F(PeopleTreeTest, AnotherObjectWithTheSameIdentifierIsTheSameEntry) {
    show();
    open({u"Everybody"});
    click({u"Everybody", u"Ben"});
    person->extension->items[1].second = make<InstanceDouble>(script, person, u"Ben again", u"id2");
    refresh();
    EXPECT_EQ(selected(), u"Ben again");
    EXPECT_EQ(clicked.size(), 1U);
}

TEST_F(TreeViewTest, RefreshKeepsThePagesThatWereListed) {
    addPersons(500);
    describe(u"Extension", u"Person");
    show();
    click({u"100 more of 500"});
    click({u"100 more of 500"});
    EXPECT_EQ(selected(), u"p200");
    refresh();
    EXPECT_EQ(below(TreeItemId::Root).size(), 301U);
    EXPECT_EQ(selected(), u"p200");
}

TEST_F(PeopleTreeTest, AnotherRepositoryIsListedAtOnce) {
    show();
    open({u"Everybody"});
    const auto other = make<RepositoryDouble>(script);
    static_cast<void>(other->addNode(other->addMetaNode(u"Person"), u"Dora"));
    view.setRepository(other);
    open({u"Everybody"});
    EXPECT_EQ(below(at({u"Everybody"})), Texts{u"Dora"});
    view.release();
    EXPECT_EQ(tree().itemCount(), 0U);
    other->clear();
}

// Failures and hosts that come back.
// ------------------------------------------------------------------------

TEST_F(PeopleTreeTest, EveryCallOfAnExpansionMayFail) {
    show();
    open({u"Everybody"});
    open({u"Everybody", u"Anna"});
    int failing = 1;
    for (;; ++failing) {
        script->restart(failing);
        refresh();
        static_cast<void>(user.look(tree()));
        if (!script->hasFailed())
            break;
        EXPECT_EQ(failures.size(), static_cast<std::size_t>(failing)) << "call " << failing;
        script->restart();
        refresh();
        if (!tree().isExpanded(at({u"Everybody"})))
            open({u"Everybody"});
        if (tree().firstChild(at({u"Everybody", u"Anna"})) == TreeItemId::None)
            open({u"Everybody", u"Anna"});
    }
    EXPECT_GT(failing, 6);
}

TEST_F(PeopleTreeTest, AnEntryThatCouldNotBeOpenedCanBeOpenedAgain) {
    show();
    script->restart(1);
    open({u"Everybody"});
    ASSERT_EQ(failures.size(), 1U);
    EXPECT_FALSE(tree().isExpanded(at({u"Everybody"})));
    EXPECT_TRUE(tree().mayHaveChildren(at({u"Everybody"})));
    open({u"Everybody"});
    EXPECT_EQ(below(at({u"Everybody"})), (Texts{u"Anna", u"Ben"}));
    EXPECT_EQ(failures.size(), 1U);
}

TEST_F(TreeViewTest, APageThatFailedCanBeAskedForAgain) {
    addPersons(300);
    describe(u"Extension", u"Person");
    show();
    EXPECT_EQ(below(TreeItemId::Root).back(), u"100 more of 300");
    script->restart(1);
    click({u"100 more of 300"});
    ASSERT_EQ(failures.size(), 1U);
    EXPECT_EQ(selected(), u"p99");
    click({u"100 more of 300"});
    EXPECT_EQ(selected(), u"p100");
}

TEST_F(TreeViewTest, NothingAmongTheElementsIsLeftOut) {
    addPersons(1);
    describe(u"Extension", u"Person");
    show();
    person->extension->items.emplace_back(u"nothing", Object());
    refresh();
    EXPECT_EQ(below(TreeItemId::Root), Texts{u"p0"});
    EXPECT_TRUE(failures.empty());
}

TEST_F(PeopleTreeTest, TheHostMayReleaseTheTreeInsideEveryCall) {
    show();
    for (int call = 1;; ++call) {
        int calls = 0;
        script->onCall = [&](const std::u16string&) {
            if (++calls == call)
                view.release();
        };
        view.setRepository(repository);
        view.populate();
        if (tree().itemCount() > 0 && calls < call)
            open({u"Everybody"});
        if (calls < call)
            static_cast<void>(user.look(tree()));
        if (calls < call)
            break;
        EXPECT_EQ(tree().itemCount(), 0U) << "call " << call;
        ASSERT_LT(call, 100);
    }
    script->onCall = {};
}

TEST_F(PeopleTreeTest, TheHostMayDestroyTheWindowInsideEveryCall) {
    for (int call = 1;; ++call) {
        auto window = std::make_shared<ui::Form>(desktop, u"frmOther");
        auto& other = window->add<TreeView>(u"TreeView1", desktop);
        other.setRepository(repository);
        const auto all = other.AddChildDesc(other.rootDescription(), u"A", u"", u"Everybody", u"", u"");
        static_cast<void>(other.AddChildDesc(*all, u"Extension", u"Person", u"", u"", u""));
        other.populate();
        window->show(ui::Modality::Modeless);
        int calls = 0;
        script->onCall = [&](const std::u16string&) {
            if (++calls == call) {
                other.initialise();
                window->unload();
                window.reset();
            }
        };
        user.clickItemButton(other.tree(), headless::itemAt(other.tree(), {u"Everybody"}));
        if (window)
            static_cast<void>(user.look(other.tree()));
        if (window) {
            other.initialise();
            break;
        }
        ASSERT_LT(call, 100);
    }
    script->onCall = {};
    EXPECT_EQ(desktop.livePeers(), 0U);
}

// Looks.
// ------------------------------------------------------------------------

TEST_F(TreeViewTest, EntriesBearThePictureOfTheirDescription) {
    addPersons(1);
    const auto all = view.AddChildDesc(view.rootDescription(), u"A", u"", u"All", u"group", u"");
    static_cast<void>(view.AddChildDesc(*all, u"Extension", u"Person", u"", u"face", u""));
    show();
    open({u"All"});
    EXPECT_EQ(tree().itemPicture(at({u"All"})), u"group");
    EXPECT_EQ(tree().itemPicture(at({u"All", u"p0"})), u"face");
}

TEST_F(TreeViewTest, TheBoxIsAboveTheTree) {
    show();
    EXPECT_EQ(view.findBox().bounds().top, ui::Twips{0});
    EXPECT_GT(tree().bounds().top, view.findBox().bounds().bottom());
    EXPECT_EQ(tree().bounds().bottom(), ui::Twips{9000});
    EXPECT_EQ(tree().bounds().width, ui::Twips{6000});
}

}  // namespace
}  // namespace quorel::controls::testing
