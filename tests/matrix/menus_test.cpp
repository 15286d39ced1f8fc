#include "platform/ui/menu.h"
#include "tests/matrix/matrix_fixture.h"

namespace quorel::matrix {
namespace {

struct MatrixMenus : MatrixTest {
    ~MatrixMenus() override { EXPECT_NO_THROW(world.desktop.verify()); }
    [[nodiscard]] ui::MenuItem& entry(std::u16string_view name) { return *form->menuBar().find(name); }
    void showSelect() { entry(u"mnuSelect").setVisible(true); }
    void choose(std::u16string_view name) { world.user.chooseMenu(*form, name); }
    void press(ui::Key key) { world.user.press(*form, {key, ui::Modifiers::Alt}); }
    [[nodiscard]] Object source() { return selected(u"SourceInstanceList"); }
};

TEST_F(MatrixMenus, EntriesSayWhatTheyAreToSay) {
    open();
    EXPECT_EQ(entry(u"mnuRepository").caption(), u"&Repository");
    EXPECT_EQ(entry(u"mnuSelect").caption(), u"&Select...");
    EXPECT_EQ(entry(u"mnuShowMetamodel").caption(), u"Show &metamodel");
}

TEST_F(MatrixMenus, CreateHidesSelect) {
    form = std::make_shared<frmMatrixBrowser>(world.environment);
    form->load();
    EXPECT_TRUE(entry(u"mnuSelect").isVisible());
    form->Create(u"", {});
    EXPECT_FALSE(entry(u"mnuSelect").isVisible());
}

TEST_F(MatrixMenus, ShowMetamodelDoesNothing) {
    open();
    choose(u"mnuShowMetamodel");
    EXPECT_TRUE(model.script->log.empty());
    EXPECT_EQ(counts(), (Counts{3, 0, 0, 0, 0}));
}

TEST_F(MatrixMenus, SelectShowsTheChosenRepository) {
    open();
    form->setRepositoryManager(manager);
    PeopleWorld other;
    other.repository->addMetaNode(u"Country");
    manager->chosen = make<testing::RepositoryHolderDouble>(model.script, other.repository);
    showSelect();
    clickType(kPerson);
    choose(u"mnuSelect");
    EXPECT_EQ(form->GetRepository(), Object(other.repository));
    EXPECT_EQ(counts(), (Counts{4, 0, 0, 0, 0}));
    form->Deinit();
    form->SetRepository(model.repository);
}

TEST_F(MatrixMenus, SelectWithoutManagerOrWhenCancelledDoesNothing) {
    open();
    showSelect();
    choose(u"mnuSelect");
    EXPECT_TRUE(model.script->log.empty());
    form->setRepositoryManager(manager);
    choose(u"mnuSelect");
    EXPECT_EQ(model.script->log, Texts{u"manager.SelectDialog"});
    EXPECT_EQ(form->GetRepository(), Object(model.repository));
    EXPECT_EQ(counts(), (Counts{3, 0, 0, 0, 0}));
}

// Back and forward.

TEST_F(MatrixMenus, BackAndForwardGoThroughTheVisitedSources) {
    open();
    EXPECT_FALSE(entry(u"mnuBack").isEnabled());
    EXPECT_FALSE(entry(u"mnuForward").isEnabled());
    clickType(kPerson);
    clickInstance(kAnna);
    clickOutgoing(kWorksFor);
    doubleClick(u"TargetInstanceList", kFirst);
    form->SetSelection(model.paris);
    EXPECT_TRUE(entry(u"mnuBack").isEnabled());
    choose(u"mnuBack");
    EXPECT_EQ(source(), Object(model.acme));
    EXPECT_EQ(selected(u"SourceMetaNodeList"), Object(model.company));
    press(ui::Key::Left);
    EXPECT_EQ(source(), Object(model.anna));
    EXPECT_EQ(counts(), (Counts{3, 3, 1, 3, 1}));
    EXPECT_FALSE(entry(u"mnuBack").isEnabled());
    press(ui::Key::Right);
    EXPECT_EQ(source(), Object(model.acme));
    choose(u"mnuForward");
    EXPECT_EQ(source(), Object(model.paris));
    EXPECT_FALSE(entry(u"mnuForward").isEnabled());
}

TEST_F(MatrixMenus, TheMousesButtonsGoBackAndForward) {
    open();
    world.user.navigate(*form, ui::Navigation::Back);
    EXPECT_TRUE(model.script->log.empty()) << "there is nowhere to go";
    clickType(kPerson);
    clickInstance(kAnna);
    clickInstance(kBen);
    world.user.navigate(*form, ui::Navigation::Back);
    EXPECT_EQ(source(), Object(model.anna));
    world.user.navigate(*form, ui::Navigation::Forward);
    EXPECT_EQ(source(), Object(model.ben));
}

TEST_F(MatrixMenus, AClickAfterGoingBackForgetsTheWayForward) {
    open();
    clickType(kPerson);
    clickInstance(kAnna);
    clickInstance(kBen);
    choose(u"mnuBack");
    clickInstance(kCleo);
    EXPECT_FALSE(entry(u"mnuForward").isEnabled());
    choose(u"mnuBack");
    EXPECT_EQ(source(), Object(model.anna));
}

TEST_F(MatrixMenus, VisitingAsksNobodyAnything) {
    open();
    clickType(kPerson);
    model.script->restart();
    clickInstance(kAnna);
    clickInstance(kBen);
    EXPECT_TRUE(model.script->log.empty());
}

TEST_F(MatrixMenus, AnotherRepositoryForgetsTheVisitedSources) {
    open();
    form->SetSelection(model.anna);
    form->SetSelection(model.acme);
    form->SetRepository(model.repository);
    EXPECT_FALSE(entry(u"mnuBack").isEnabled());
    form->SetSelection(model.anna);
    form->SetSelection(model.acme);
    form->Deinit();
    EXPECT_FALSE(entry(u"mnuBack").isEnabled());
}

TEST_F(MatrixMenus, ASourceThatIsGoneIsReportedAndTheNextOneCanBeReached) {
    open();
    form->SetSelection(model.anna);
    form->SetSelection(model.acme);
    form->SetSelection(model.paris);
    model.script->onCall = [](const std::u16string& call) {
        if (call.starts_with(u"id4."))
            throw automation::Error(1002, u"This node was removed", u"Repository");
    };
    world.expectBox();
    choose(u"mnuBack");
    EXPECT_EQ(lastPlace(), u"MatrixBrowser/SetSelection");
    choose(u"mnuBack");
    EXPECT_EQ(source(), Object(model.anna));
}

// The popup menus.

/// Writes down what the popup menus call.
class CalledBrowser final : public automation::NativeObject {
  public:
    [[nodiscard]] const automation::ClassTable& classTable() const override {
        static const automation::ClassTable table =
            automation::ClassTable::of<CalledBrowser>(u"CalledBrowser")
                .method(u"EditTargetNode", &CalledBrowser::editTargetNode)
                .method(u"Navigate", &CalledBrowser::navigate);
        return table;
    }
    std::vector<std::u16string> log;

  private:
    void editTargetNode() { log.emplace_back(u"EditTargetNode"); }
    void navigate() { log.emplace_back(u"Navigate"); }
};

struct PopupMenus : MatrixMenus {
    std::shared_ptr<MatrixBrowserMenuForm> menus = std::make_shared<MatrixBrowserMenuForm>(world.desktop);
    void userClicks(std::u16string_view name) { menus->menuBar().find(name)->userClicked(); }
};

TEST_F(PopupMenus, TheFormSaysWhatItIsForAndHoldsTwoMenus) {
    EXPECT_EQ(menus->name(), u"MatrixBrowserMenuForm");
    EXPECT_EQ(menus->text(), u"Menu Form");
    EXPECT_EQ(headless::get<ui::Label>(*menus, u"Label1").text(),
              u"Unsichtbar, wird ben\u00F6tigt f\u00FCr MatrixBrowser, um Popup Men\u00FC zur Verf\u00FCgung "
              u"zu stellen und die Events zu verarbeiten.!!!");
    const auto captions = [this](std::u16string_view popup) {
        Texts all;
        for (const auto& item : menus->menuBar().find(popup)->items())
            all.push_back(item->name() + u" " + item->caption());
        return all;
    };
    EXPECT_EQ(captions(u"mnuPopup"), (Texts{u"mnuEdit &bearbeiten...", u"mnuNavigate &navigieren"}));
    EXPECT_EQ(captions(u"mnuPopupTargetNode"), (Texts{u"mnuEditTargetNode &bearbeiten..."}));
}

TEST_F(PopupMenus, EntriesCallTheBrowserByName) {
    const auto browser = make<CalledBrowser>();
    menus->SetMatrixBrowser(browser);
    userClicks(u"mnuEdit");
    userClicks(u"mnuNavigate");
    userClicks(u"mnuEditTargetNode");
    EXPECT_EQ(browser->log, (Texts{u"EditTargetNode", u"Navigate"}));
}

TEST_F(PopupMenus, WithoutABrowserNothingHappens) {
    for (const auto name : {u"mnuEdit", u"mnuNavigate", u"mnuEditTargetNode"})
        userClicks(name);
    EXPECT_TRUE(world.boxes().empty());
}

TEST_F(PopupMenus, ABrowserWithoutTheMemberIsReported) {
    menus->SetMatrixBrowser(model.repository);
    world.expectBox();
    userClicks(u"mnuEdit");
    EXPECT_EQ(lastPlace(), u"MatrixBrowser/mnuEdit_Click");
    EXPECT_TRUE(world.boxes().back().starts_with(u"Error No: 438"));
    world.expectBox();
    userClicks(u"mnuNavigate");
    EXPECT_EQ(lastPlace(), u"MatrixBrowser/mnuNavigate_Click");
    menus->SetMatrixBrowser({});
}

TEST_F(PopupMenus, TheListsOfferTheEntriesBelowTheirOwnAndTheyHaveNoEffect) {
    open();
    clickType(kPerson);
    clickInstance(kAnna);
    clickOutgoing(kWorksFor);
    model.script->restart();
    world.user.chooseContextMenu(list(u"SourceInstanceList").list(), kAnna, u"mnuEdit");
    world.user.chooseContextMenu(list(u"SourceInstanceList").list(), kAnna, u"mnuNavigate");
    world.user.chooseContextMenu(list(u"TargetInstanceList").list(), kFirst, u"mnuEditTargetNode");
    const auto asked = [this](std::u16string_view part) {
        return std::any_of(model.script->log.begin(), model.script->log.end(),
                           [part](const auto& call) { return call.find(part) != std::u16string::npos; });
    };
    EXPECT_FALSE(asked(u"Properties"));
    EXPECT_EQ(source(), Object(model.anna));
    EXPECT_EQ(counts(), (Counts{3, 3, 1, 3, 1}));
}

}  // namespace
}  // namespace quorel::matrix
