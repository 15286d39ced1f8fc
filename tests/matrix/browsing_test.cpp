#include "platform/ui/progress_bar.h"
#include "tests/matrix/matrix_fixture.h"

namespace quorel::matrix {
namespace {

struct MatrixBrowsing : MatrixTest {
    MatrixBrowsing() { open(); }
    ~MatrixBrowsing() override { EXPECT_NO_THROW(world.desktop.verify()); }
};

TEST_F(MatrixBrowsing, SettingTheRepositoryListsItsTypes) {
    EXPECT_EQ(form->text(), u"Navigator");
    EXPECT_EQ(names(u"SourceMetaNodeList"), (Texts{u"Person", u"Company", u"City"}));
    EXPECT_EQ(counts(), (Counts{3, 0, 0, 0, 0}));
    for (const auto name : {u"MetaLinkListIncoming", u"MetaLinkListOutgoing"}) {
        EXPECT_EQ(titles(name), (Texts{u"Source", u"Link", u"Target"}));
        for (const ui::Column& column : list(name).list().columns())
            EXPECT_EQ(column.width, ui::Twips{1000});
    }
    EXPECT_EQ(form->GetRepository(), Object(model.repository));
}

TEST_F(MatrixBrowsing, ListsHaveTheirColours) {
    const auto colour = [this](const char16_t* name) { return list(name).list().background(); };
    EXPECT_EQ(colour(u"SourceMetaNodeList"), (ui::Colour{235, 235, 255}));
    EXPECT_EQ(colour(u"SourceInstanceList"), (ui::Colour{255, 255, 255}));
    EXPECT_EQ(colour(u"MetaLinkListIncoming"), (ui::Colour{255, 255, 235}));
    EXPECT_EQ(colour(u"MetaLinkListOutgoing"), (ui::Colour{255, 255, 235}));
    EXPECT_EQ(colour(u"TargetInstanceList"), (ui::Colour{235, 255, 235}));
}

TEST_F(MatrixBrowsing, ClickOnATypeListsItsInstancesAndMetaLinks) {
    clickType(kPerson);
    EXPECT_EQ(titles(u"SourceInstanceList"), (Texts{u"Name", u"Age"}));
    EXPECT_EQ(look(u"SourceInstanceList"), (Rows{{u"Anna", u"40"}, {u"Ben", u"50"}, {u"Cleo", u""}}));
    EXPECT_EQ(look(u"MetaLinkListIncoming"), (Rows{{u"Person", u"Knows", u"Person"}}));
    EXPECT_EQ(look(u"MetaLinkListOutgoing"), (Rows{{u"Person", u"WorksFor", u"Company"},
                                                   {u"Person", u"LivesIn", u"City"},
                                                   {u"Person", u"Knows", u"Person"}}));
    clickType(kCity);
    EXPECT_EQ(titles(u"SourceInstanceList"), Texts{u"Name"});
    EXPECT_EQ(counts(), (Counts{3, 1, 1, 0, 0}));
}

TEST_F(MatrixBrowsing, NoRowIsAskedBeforeItIsSeen) {
    clickType(kPerson);
    clickInstance(kAnna);
    model.script->restart();
    clickOutgoing(kWorksFor);
    EXPECT_EQ(model.script->log,
              (Texts{u"WorksFor.target", u"Company.Properties", u"Company.Properties.enumerate",
                     u"Company.Properties.next", u"property.name", u"property.name", u"WorksFor.name",
                     u"WorksFor.name", u"id1.Outgoing_", u"id1.Outgoing_.enumerate", u"id1.Outgoing_.next"}));
}

TEST_F(MatrixBrowsing, OutgoingLinksShowTheTargetsProperties) {
    clickType(kPerson);
    clickInstance(kAnna);
    clickOutgoing(kWorksFor);
    EXPECT_EQ(titles(u"TargetInstanceList"), (Texts{u"Name", u"Size", u"Town"}));
    EXPECT_EQ(look(u"TargetInstanceList"), (Rows{{u"Acme", u"7", u"Rome"}}));
    const std::vector<ui::Column>& columns = list(u"TargetInstanceList").list().columns();
    EXPECT_EQ(columns[1].width, ui::Twips{1000});
    EXPECT_EQ(columns[2].width, ui::Twips{1000});
}

TEST_F(MatrixBrowsing, TheLabelSaysAlongWhichMetaLinkTheTargetsAre) {
    const auto& label = headless::get<ui::Label>(*form, u"TargetInstanceLabel");
    EXPECT_EQ(label.text(), u"&Target instances");
    clickType(kPerson);
    clickInstance(kAnna);
    clickOutgoing(kWorksFor);
    EXPECT_EQ(label.text(), u"&Target instances: WorksFor (outgoing)");
    clickIncoming(kFirst);
    EXPECT_EQ(label.text(), u"&Target instances: Knows (incoming)");
    clickType(kCity);
    EXPECT_EQ(label.text(), u"&Target instances: Knows (incoming)") << "the targets are still those";
    form->SetRepository(model.repository);
    EXPECT_EQ(label.text(), u"&Target instances");
}

TEST_F(MatrixBrowsing, IncomingLinksHaveTheColumnsOfTheTargetToo) {
    clickType(kCompany);
    clickInstance(kFirst);
    clickIncoming(kFirst);
    EXPECT_EQ(titles(u"TargetInstanceList"), (Texts{u"Name", u"Size", u"Town"}));
    EXPECT_EQ(look(u"TargetInstanceList"), (Rows{{u"Anna", u"", u""}, {u"Ben", u"", u""}}));
    clickType(kPerson);
    clickInstance(kBen);
    clickIncoming(kFirst);
    EXPECT_EQ(look(u"TargetInstanceList"), (Rows{{u"Anna", u"40"}})) << "values are read from the source";
}

TEST_F(MatrixBrowsing, MetaLinkWithoutASourceInstanceChangesNothingNotEvenTheDirection) {
    clickType(kPerson);
    clickOutgoing(kKnows);
    EXPECT_EQ(list(u"TargetInstanceList").count(), 0U);
    EXPECT_TRUE(titles(u"TargetInstanceList").empty());
    // The direction is still incoming: of the two meta links selected, the incoming one counts.
    clickIncoming(kFirst);
    clickInstance(kBen);
    EXPECT_EQ(names(u"TargetInstanceList"), Texts{u"Anna"});
}

TEST_F(MatrixBrowsing, AnotherSourceInstanceFollowsTheDirection) {
    clickType(kPerson);
    clickInstance(kAnna);
    clickIncoming(kFirst);
    clickOutgoing(kKnows);
    EXPECT_EQ(names(u"TargetInstanceList"), Texts{u"Ben"});
    clickInstance(kBen);
    EXPECT_EQ(names(u"TargetInstanceList"), Texts{u"Cleo"});
    clickIncoming(kFirst);
    EXPECT_EQ(names(u"TargetInstanceList"), Texts{u"Anna"});
    clickInstance(kCleo);
    EXPECT_EQ(names(u"TargetInstanceList"), Texts{u"Ben"});
}

TEST_F(MatrixBrowsing, SourceInstanceWithoutAMetaLinkOfTheDirectionLeavesTheTargets) {
    clickType(kPerson);
    clickInstance(kAnna);
    clickOutgoing(kWorksFor);
    clickType(kPerson);
    clickInstance(kBen);
    EXPECT_EQ(names(u"TargetInstanceList"), Texts{u"Acme"}) << "the targets are still Anna's";
    EXPECT_EQ(selected(u"MetaLinkListOutgoing"), Object());
}

TEST_F(MatrixBrowsing, AnotherTypeKeepsTheOldTargetRows) {
    clickType(kPerson);
    clickInstance(kAnna);
    clickOutgoing(kWorksFor);
    clickType(kCity);
    EXPECT_EQ(counts(), (Counts{3, 1, 1, 0, 1}));
    EXPECT_EQ(names(u"TargetInstanceList"), Texts{u"Acme"});
    EXPECT_EQ(titles(u"TargetInstanceList"), (Texts{u"Name", u"Size", u"Town"}));
}

TEST_F(MatrixBrowsing, DoubleClickOnAnOutgoingLinkMovesToItsTarget) {
    clickType(kPerson);
    clickInstance(kAnna);
    clickOutgoing(kWorksFor);
    doubleClick(u"TargetInstanceList", kFirst);
    EXPECT_EQ(selected(u"SourceMetaNodeList"), Object(model.company));
    EXPECT_EQ(names(u"SourceInstanceList"), (Texts{u"Acme", u"Zenith"}));
    EXPECT_EQ(selected(u"SourceInstanceList"), Object(model.acme));
    EXPECT_EQ(names(u"TargetInstanceList"), Texts{u"Acme"}) << "no meta link of the new type is selected";
}

TEST_F(MatrixBrowsing, DoubleClickOnAnIncomingLinkMovesToItsSource) {
    clickType(kCompany);
    clickInstance(kFirst);
    clickIncoming(kFirst);
    doubleClick(u"TargetInstanceList", kBen);
    EXPECT_EQ(selected(u"SourceMetaNodeList"), Object(model.person));
    EXPECT_EQ(selected(u"SourceInstanceList"), Object(model.ben));
}

TEST_F(MatrixBrowsing, NavigationRunsTheOppositeHandlerFirstWithTheOldSource) {
    clickType(kPerson);
    clickInstance(kBen);
    clickIncoming(kFirst);  // who knows Ben
    clickOutgoing(kKnows);  // whom Ben knows
    model.script->restart();
    doubleClick(u"TargetInstanceList", kFirst);
    const auto at = [this](const char16_t* call) {
        return std::find(model.script->log.begin(), model.script->log.end(), call) -
               model.script->log.begin();
    };
    const auto end = static_cast<std::ptrdiff_t>(model.script->log.size());
    EXPECT_LT(at(u"id2.Incoming_"), at(u"id11.target")) << "the old source's incoming links come first";
    EXPECT_LT(at(u"id11.target"), at(u"id3.Parent"));
    EXPECT_LT(at(u"id3.Parent"), at(u"Person.Extension"));
    EXPECT_LT(at(u"Person.Extension"), end);
    EXPECT_EQ(selected(u"SourceInstanceList"), Object(model.cleo));
    EXPECT_EQ(names(u"TargetInstanceList"), Texts{u"Anna"}) << "what the opposite handler has filled";
    // And the direction is the opposite one now.
    clickOutgoing(kKnows);
    clickIncoming(kFirst);
    EXPECT_EQ(names(u"TargetInstanceList"), Texts{u"Ben"});
}

TEST_F(MatrixBrowsing, EnterOnATargetIsADoubleClick) {
    clickType(kPerson);
    clickInstance(kAnna);
    clickOutgoing(kWorksFor);
    click(u"TargetInstanceList", kFirst);
    EXPECT_EQ(selected(u"SourceInstanceList"), Object(model.anna)) << "one click does not navigate";
    world.user.press(*form, {ui::Key::Enter});
    EXPECT_EQ(selected(u"SourceInstanceList"), Object(model.acme));
}

TEST_F(MatrixBrowsing, SetSelectionMakesANodeTheSource) {
    form->SetSelection(model.zenith);
    EXPECT_EQ(selected(u"SourceMetaNodeList"), Object(model.company));
    EXPECT_EQ(selected(u"SourceInstanceList"), Object(model.zenith));
    EXPECT_EQ(counts(), (Counts{3, 2, 1, 0, 0}));
}

TEST_F(MatrixBrowsing, SelectingByNameRunsNoClick) {
    form->SelectSourceMetaNode(u"Person");
    EXPECT_EQ(selected(u"SourceMetaNodeList"), Object(model.person));
    EXPECT_EQ(counts(), (Counts{3, 0, 0, 0, 0})) << "nothing is filled";
    form->SelectSourceInstance(u"id2");
    EXPECT_EQ(selected(u"SourceInstanceList"), Object()) << "it has no row yet";
    clickType(kPerson);
    form->SelectSourceInstance(u"id2");
    EXPECT_EQ(selected(u"SourceInstanceList"), Object(model.ben));
    form->SelectMetaLink(u"WorksFor", true);
    EXPECT_EQ(selected(u"MetaLinkListOutgoing"), Object(model.worksFor));
    form->SelectMetaLink(u"Knows", false);
    EXPECT_EQ(selected(u"MetaLinkListIncoming"), Object(model.knows));
    EXPECT_EQ(counts(), (Counts{3, 3, 1, 3, 0}));
}

TEST_F(MatrixBrowsing, SelectSourceInstanceWithoutAMetaNodeDoesNothing) {
    form->SelectSourceInstance(u"id2");
    EXPECT_TRUE(model.script->log.empty());
}

TEST_F(MatrixBrowsing, SelectMetaLinkOfIncomingLeavesTheDirectionOutgoing) {
    clickType(kPerson);
    form->SelectMetaLink(u"Knows", true);
    form->SelectMetaLink(u"Knows", false);
    clickInstance(kBen);
    EXPECT_EQ(names(u"TargetInstanceList"), Texts{u"Cleo"}) << "outgoing";
}

/// A repository with a default member that is indexed by the names of types.
class IndexedRepository final : public automation::NativeObject {
  public:
    explicit IndexedRepository(Ref<RepositoryDouble> inner) : inner_(std::move(inner)) {}
    [[nodiscard]] const automation::ClassTable& classTable() const override {
        static const automation::ClassTable table =
            automation::ClassTable::of<IndexedRepository>(u"IndexedRepository")
                .readOnly(u"Item", &IndexedRepository::item, {automation::param(u"name")})
                .withId(automation::MemberId::Default)
                .readOnly(u"MetaNodes", &IndexedRepository::metaNodes);
        return table;
    }
    std::vector<std::u16string> indexed;
    bool fails = false;

  private:
    Object item(const std::u16string& name) {
        if (fails)
            throw automation::Error(-2147467259);
        indexed.push_back(name);
        return metaNodes().item(name).toObject();
    }
    Object metaNodes() { return inner_->metaNodes; }
    Ref<RepositoryDouble> inner_;
};

TEST_F(MatrixBrowsing, SelectSourceMetaNodeAsksTheDefaultMemberWhereThereIsOne) {
    const auto indexed = make<IndexedRepository>(model.repository);
    form->SetRepository(indexed);
    form->SelectSourceMetaNode(u"City");
    EXPECT_EQ(indexed->indexed, Texts{u"City"});
    EXPECT_EQ(selected(u"SourceMetaNodeList"), Object(model.city));
    indexed->fails = true;
    form->SelectSourceMetaNode(u"Company");
    EXPECT_EQ(selected(u"SourceMetaNodeList"), Object(model.company)) << "from the meta nodes";
}

TEST_F(MatrixBrowsing, ARepositorySetTwiceRebuildsAllLists) {
    clickType(kPerson);
    clickInstance(kAnna);
    clickOutgoing(kWorksFor);
    form->SetRepository(model.repository);
    EXPECT_EQ(counts(), (Counts{3, 0, 0, 0, 0}));
    EXPECT_EQ(titles(u"MetaLinkListIncoming"), (Texts{u"Source", u"Link", u"Target"}));
    EXPECT_EQ(titles(u"MetaLinkListOutgoing"), (Texts{u"Source", u"Link", u"Target"}));
    clickType(kPerson);
    EXPECT_EQ(counts(), (Counts{3, 3, 1, 3, 0}));
}

TEST_F(MatrixBrowsing, MembersWithoutEffectHaveNone) {
    clickType(kPerson);
    clickInstance(kAnna);
    clickOutgoing(kWorksFor);
    model.script->restart();
    form->SelectTargetInstance(u"id4");
    form->Navigate();
    form->EditTargetNode();
    EXPECT_EQ(frmMatrixBrowser::GetTargetInstance(), Object());
    EXPECT_EQ(frmMatrixBrowser::GetTargetMetaNode(), Object());
    EXPECT_TRUE(model.script->log.empty());
    EXPECT_EQ(selected(u"TargetInstanceList"), Object());
    EXPECT_EQ(counts(), (Counts{3, 3, 1, 3, 1}));
}

TEST_F(MatrixBrowsing, PopulateFillsTheTypesAnewAndKeepsTheRest) {
    clickType(kCompany);
    model.repository->addMetaNode(u"Country");
    form->Populate();
    EXPECT_EQ(counts(), (Counts{4, 2, 1, 0, 0}));
    EXPECT_EQ(selected(u"SourceMetaNodeList"), Object(model.company));
}

TEST_F(MatrixBrowsing, DeinitEmptiesEveryList) {
    clickType(kPerson);
    clickInstance(kAnna);
    clickOutgoing(kWorksFor);
    form->Deinit();
    EXPECT_EQ(counts(), (Counts{0, 0, 0, 0, 0}));
    form->Populate();
    form->Init();
    EXPECT_EQ(counts(), (Counts{3, 0, 0, 0, 0}));
    EXPECT_EQ(titles(u"MetaLinkListOutgoing"), (Texts{u"Source", u"Link", u"Target"}));
}

TEST_F(MatrixBrowsing, IdentifierIsKept) {
    EXPECT_EQ(form->GetID(), 0);
    form->SetID(17);
    EXPECT_EQ(form->GetID(), 17);
}

TEST_F(MatrixBrowsing, StatusBarCounts) {
    clickType(kPerson);
    clickInstance(kAnna);
    clickOutgoing(kWorksFor);
    const auto& bar = headless::get<ui::StatusBar>(*form, u"StatusBar");
    ASSERT_EQ(bar.panels().size(), 2U);
    EXPECT_EQ(bar.panels()[0].text, u"3 meta nodes, 3 instances, 1 incoming, 3 outgoing, 1 targets");
    list(u"SourceInstanceList").openFilter();
    world.user.enterText(list(u"SourceInstanceList").filterBox(), u"an");
    EXPECT_EQ(bar.panels()[0].text, u"3 meta nodes, 1 of 3 instances, 1 incoming, 3 outgoing, 1 targets");
}

struct Progress {
    std::int32_t min, max, value;
    friend bool operator==(const Progress&, const Progress&) = default;
};

TEST_F(MatrixBrowsing, ProgressBarEndsOneAboveTheCount) {
    const auto& bar = headless::get<ui::ProgressBar>(*form, u"ProgressBar");
    const auto now = [&bar] { return Progress{bar.minimum(), bar.maximum(), bar.value()}; };
    EXPECT_EQ(now(), (Progress{0, 1, 0})) << "after SetRepository";
    form->InitProgressBar(10, 20, 15);
    EXPECT_EQ(now(), (Progress{10, 21, 15}));
    form->ProgressBarStep(3);
    EXPECT_EQ(now(), (Progress{10, 21, 18}));
}

TEST_F(MatrixBrowsing, ProgressIsShownWhileListsFill) {
    const auto& bar = headless::get<ui::ProgressBar>(*form, u"ProgressBar");
    std::vector<Progress> seen;
    model.script->onCall = [&](const std::u16string& call) {
        if (call == u"Person.Extension" || call == u"Person.incoming" || call == u"Person.outgoing")
            seen.push_back({bar.minimum(), bar.maximum(), bar.value()});
    };
    clickType(kPerson);
    EXPECT_EQ(seen, (std::vector<Progress>{{0, 4, 0}, {0, 4, 1}, {0, 4, 2}}));
    EXPECT_EQ(bar.maximum(), 1);
    EXPECT_EQ(bar.value(), 0);
}

}  // namespace
}  // namespace quorel::matrix
