#include "platform/controls/hierarchy_tree_view.h"

#include "tests/platform/controls/tree_view_fixture.h"

namespace quorel::controls::testing {
namespace {

/// Persons know each other and work for companies; what is asked is written down and answered by `answers`.
class HierarchyTest : public ::testing::Test {
  protected:
    HierarchyTest() {
        form->setClientSize({{6000}, {9000}});
        view.setBounds({{0}, {0}, {6000}, {9000}});
        view.onFailure.connect([this](const automation::Error& error) { failures.push_back(error); });
        view.onNodeClick.connect(
            [this](const std::shared_ptr<TreeEntry>& entry) { clicked.push_back(entry); });
        view.setFollowsLinks(true);
        view.setRepository(repository);
        for (const char16_t* type : {u"Person", u"Company"})
            view.addNodeType(type, type);
        view.addLinkType(u"Knows", u"Person", u"Person", u"2 Knows");
        view.addLinkType(u"WorksFor", u"Person", u"Company", u"2 WorksFor");
        for (const char16_t* type : {u"Person", u"Company"})
            view.addTopLevel(type, u"0 " + std::u16string(type));
    }
    ~HierarchyTest() override {
        view.initialise();
        repository->clear();
    }
    void TearDown() override { EXPECT_NO_THROW(desktop.verify()); }

    void show() {
        view.populate();
        form->show(ui::Modality::Modeless);
        desktop.runPosted();
        script->restart();
    }
    void listen() {
        view.onDataRequest.connect([this](DataRequest& request) {
            asked.push_back(std::to_string(static_cast<int>(request.code)) + " " +
                            automation::toUtf8(request.entry.description->typ) + " " +
                            automation::toUtf8(request.sought));
            if (answers)
                answers(request);
        });
    }
    [[nodiscard]] TreeItemId at(std::initializer_list<std::u16string_view> path) {
        return headless::itemAt(view.tree(), path);
    }
    void open(std::initializer_list<std::u16string_view> path) {
        user.clickItemButton(view.tree(), at(path));
    }
    [[nodiscard]] Texts below(TreeItemId item) {
        Texts texts;
        for (TreeItemId child = view.tree().firstChild(item); child != TreeItemId::None;
             child = view.tree().nextSibling(child))
            texts.push_back(view.tree().itemText(child));
        return texts;
    }
    [[nodiscard]] std::size_t timesAsked(const std::string& question) const {
        return static_cast<std::size_t>(std::count(asked.begin(), asked.end(), question));
    }

    headless::HeadlessDesktop desktop;
    headless::User user{desktop};
    quorel::testing::ScriptRef script = std::make_shared<quorel::testing::Script>();
    Ref<RepositoryDouble> repository = make<RepositoryDouble>(script);
    Ref<MetaDouble> person = repository->addMetaNode(u"Person");
    Ref<MetaDouble> company = repository->addMetaNode(u"Company");
    Ref<MetaDouble> knows = repository->addMetaLink(u"Knows", person, person);
    Ref<MetaDouble> worksFor = repository->addMetaLink(u"WorksFor", person, company);
    Ref<InstanceDouble> anna = repository->addNode(person, u"Anna");
    Ref<InstanceDouble> acme = repository->addNode(company, u"Acme");
    Ref<InstanceDouble> annaAtAcme = repository->addLink(worksFor, u"job", anna, acme);
    std::shared_ptr<ui::Form> form = std::make_shared<ui::Form>(desktop, u"frmTest");
    HierarchyTreeView& view = form->add<HierarchyTreeView>(u"HierarchyTreeView1", desktop);
    std::vector<std::string> asked;
    std::function<void(DataRequest&)> answers;
    std::vector<automation::Error> failures;
    std::vector<std::shared_ptr<TreeEntry>> clicked;
};

static_assert(static_cast<int>(RequestCode::Text) == 0 && static_cast<int>(RequestCode::Type) == 1 &&
              static_cast<int>(RequestCode::Search) == 2 && static_cast<int>(RequestCode::Identity) == 3);

TEST_F(HierarchyTest, HelpsItselfWhereNobodyAnswers) {
    listen();
    show();
    open({u"Person"});
    open({u"Person", u"Anna"});
    EXPECT_EQ(below(at({u"Person", u"Anna"})), (Texts{u"Knows", u"WorksFor", u"Knows (incoming)"}));
    open({u"Person", u"Anna", u"WorksFor"});
    EXPECT_EQ(below(at({u"Person", u"Anna", u"WorksFor"})), Texts{u"Acme"}) << "the far end's name";
    open({u"Person", u"Anna", u"WorksFor", u"Acme"});
    open({u"Person", u"Anna", u"WorksFor", u"Acme", u"Acme"});
    EXPECT_EQ(below(at({u"Person", u"Anna", u"WorksFor", u"Acme", u"Acme"})), Texts{u"WorksFor (incoming)"})
        << "of the meta link's target type";
    EXPECT_TRUE(failures.empty());
}

TEST_F(HierarchyTest, AsksForTextsWhenTheyAreSeen) {
    listen();
    answers = [](DataRequest& request) {
        if (request.code == RequestCode::Text)
            request.answer = u"<" + request.entry.instance.get(u"name").toString() + u">\nand more";
    };
    show();
    EXPECT_TRUE(asked.empty()) << "types are known";
    open({u"Person"});
    EXPECT_EQ(below(at({u"Person"})), Texts{u"<Anna>\u2026"}) << "one line of it";
    EXPECT_EQ(timesAsked("0 Node "), asked.size());
}

TEST_F(HierarchyTest, TheTypeOfTheFarNodeDecidesWhatIsBelowIt) {
    listen();
    answers = [](DataRequest& request) {
        if (request.code == RequestCode::Type)
            request.answer = u"Person";
    };
    show();
    open({u"Person"});
    open({u"Person", u"Anna"});
    open({u"Person", u"Anna", u"WorksFor"});
    asked.clear();
    open({u"Person", u"Anna", u"WorksFor", u"Acme"});
    EXPECT_EQ(timesAsked("1 Node "), 1U);
    user.clickItem(view.tree(), at({u"Person", u"Anna", u"WorksFor", u"Acme", u"Acme"}));
    EXPECT_EQ(clicked.back()->paneId(), u"Person");
}

TEST_F(HierarchyTest, AFarNodeOfAnUnknownTypeLeadsNowhere) {
    listen();
    answers = [](DataRequest& request) {
        if (request.code == RequestCode::Type)
            request.answer = u"Planet";
    };
    show();
    open({u"Person"});
    open({u"Person", u"Anna"});
    open({u"Person", u"Anna", u"WorksFor"});
    open({u"Person", u"Anna", u"WorksFor", u"Acme"});
    const TreeItemId far = at({u"Person", u"Anna", u"WorksFor", u"Acme", u"Acme"});
    EXPECT_FALSE(view.tree().mayHaveChildren(far));
    user.clickItem(view.tree(), far);
    EXPECT_EQ(clicked.back()->paneId(), u"");
}

TEST_F(HierarchyTest, ALinkWithoutAnEndHasNothingBelow) {
    static_cast<void>(repository->addLink(worksFor, u"loose", anna, {}));
    show();
    open({u"Person"});
    open({u"Person", u"Anna"});
    open({u"Person", u"Anna", u"WorksFor"});
    open({u"Person", u"Anna", u"WorksFor", u""});
    EXPECT_EQ(below(at({u"Person", u"Anna", u"WorksFor", u""})), Texts{});
    EXPECT_FALSE(view.tree().mayHaveChildren(at({u"Person", u"Anna", u"WorksFor", u""})));
}

TEST_F(HierarchyTest, WhatIsNotShownIsFoundAfterWhatIs) {
    const auto ben = repository->addNode(person, u"Ben");
    static_cast<void>(repository->addNode(company, u"Ann & Co"));
    listen();
    answers = [&](DataRequest& request) {
        if (request.code == RequestCode::Search)
            request.answer = request.entry.instance == Object(ben) || request.entry.instance == Object(anna);
    };
    show();
    EXPECT_TRUE(view.find(u"ANN"));
    EXPECT_EQ(view.tree().itemText(view.tree().selected()), u"Anna");
    EXPECT_TRUE(view.find(u"ANN"));
    EXPECT_EQ(view.tree().itemText(view.tree().selected()), u"Ann & Co");
    EXPECT_EQ(timesAsked("2 Node ann"), 0U);
    EXPECT_TRUE(view.find(u"ANN"));
    EXPECT_EQ(view.tree().itemText(view.tree().selected()), u"Ben");
    EXPECT_FALSE(view.find(u"ANN")) << "Anna shows it and was found already";
    EXPECT_GT(timesAsked("2 Node ann"), 0U);
}

TEST_F(HierarchyTest, NodesAreKnownAgainByTheirIdentity) {
    listen();
    answers = [](DataRequest& request) {
        if (request.code == RequestCode::Identity)
            request.answer = u"the one";
    };
    show();
    open({u"Person"});
    user.clickItem(view.tree(), at({u"Person", u"Anna"}));
    person->extension->items.clear();
    const auto another = repository->addNode(person, u"Anna again");
    view.refresh();
    desktop.runPosted();
    EXPECT_EQ(view.selectedEntry()->instance, Object(another));
    EXPECT_GE(timesAsked("3 Node "), 2U);
}

TEST_F(HierarchyTest, AnAnswerThatFailsIsReported) {
    listen();
    answers = [](DataRequest& request) {
        if (request.code == RequestCode::Type)
            throw automation::Error(1000);
    };
    show();
    open({u"Person"});
    open({u"Person", u"Anna"});
    open({u"Person", u"Anna", u"WorksFor"});
    open({u"Person", u"Anna", u"WorksFor", u"Acme"});
    EXPECT_EQ(failures.size(), 1U);
    answers = {};
    open({u"Person", u"Anna", u"WorksFor", u"Acme"});
    EXPECT_EQ(below(at({u"Person", u"Anna", u"WorksFor", u"Acme"})), Texts{u"Acme"})
        << "it can be tried again";
}

TEST_F(HierarchyTest, NodesEndWhereLinksAreNotFollowed) {
    view.initialise();
    EXPECT_FALSE(view.followsLinks());
    view.addNodeType(u"Person", u"Person");
    view.addLinkType(u"Knows", u"Person", u"Person", u"2 Knows");
    view.addTopLevel(u"Person", u"0 Person");
    view.setRepository(repository);
    show();
    open({u"Person"});
    EXPECT_FALSE(view.tree().mayHaveChildren(at({u"Person", u"Anna"})));
}

TEST_F(HierarchyTest, OnlyTypesThatAreThereComeToTheTop) {
    try {
        view.addTopLevel(u"Planet", u"0 Planet");
        FAIL();
    } catch (const automation::Error& error) {
        EXPECT_EQ(error.number(), 9);
    }
    view.addLinkType(u"Orbits", u"Planet", u"Star", u"2 Orbits");
    show();
    EXPECT_EQ(below(TreeItemId::Root), (Texts{u"Person", u"Company"}));
}

TEST_F(HierarchyTest, TellsWhoseLinksAnEntryShows) {
    show();
    open({u"Person"});
    open({u"Person", u"Anna"});
    open({u"Person", u"Anna", u"WorksFor"});
    const auto entry = [this](std::initializer_list<std::u16string_view> path) {
        return view.entryAt(at(path));
    };
    const auto link = entry({u"Person", u"Anna", u"WorksFor", u"Acme"});
    EXPECT_EQ(HierarchyTreeView::linkEnd(*link, LinkEnd::Source), Object(anna));
    EXPECT_EQ(HierarchyTreeView::linkEnd(*link, LinkEnd::Target), Object(acme));
    const auto leaving = entry({u"Person", u"Anna", u"WorksFor"});
    EXPECT_EQ(HierarchyTreeView::linkEnd(*leaving, LinkEnd::Source), Object(anna));
    EXPECT_EQ(HierarchyTreeView::linkEnd(*leaving, LinkEnd::Target), Object());
    const auto both = entry({u"Person", u"Anna", u"Knows (incoming)"});
    EXPECT_EQ(HierarchyTreeView::linkEnd(*both, LinkEnd::Source), Object(anna));
    EXPECT_EQ(HierarchyTreeView::linkEnd(*both, LinkEnd::Target), Object(anna));
}

}  // namespace
}  // namespace quorel::controls::testing
