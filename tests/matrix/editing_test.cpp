#include "dialogs/node_edit.h"
#include "tests/matrix/matrix_fixture.h"

namespace quorel::matrix {
namespace {

struct MatrixEditing : MatrixTest {
    MatrixEditing() {
        open();
        clickType(kPerson);
    }
    ~MatrixEditing() override { EXPECT_NO_THROW(world.desktop.verify()); }
    /// A double-click on Anna opens the dialog, in which `user` acts.
    void edit(const std::function<void(dialogs::NodeEdit&)>& user) {
        world.desktop.expectModal(u"NodeEdit", [&user](ui::Form& window) {
            user(dynamic_cast<dialogs::NodeEdit&>(window));
            if (window.isShown())
                window.hide();
        });
        doubleClick(u"SourceInstanceList", kAnna);
        world.desktop.verify();
    }
};

TEST_F(MatrixEditing, DoubleClickOnAnInstanceOpensItsProperties) {
    form->Path = u"C:\\models\\";
    edit([this](dialogs::NodeEdit& dialog) {
        EXPECT_EQ(dialog.text(), u"node");
        EXPECT_EQ(dialog.Property1().path(), u"C:\\models\\");
        EXPECT_EQ(dialog.Property1().metaObject(), Object(model.person));
        EXPECT_EQ(dialog.Property1().repObject(), Object(model.anna));
        EXPECT_EQ(world.user.look(dialog.Property1().list(), 0, 1), (Rows{{u"Age", u"40"}}));
    });
}

TEST_F(MatrixEditing, EnterOnAnInstanceIsADoubleClick) {
    clickInstance(kBen);
    world.desktop.expectModal(u"NodeEdit", [this](ui::Form& window) {
        EXPECT_EQ(dynamic_cast<dialogs::NodeEdit&>(window).Property1().repObject(), Object(model.ben));
        window.hide();
    });
    world.user.press(*form, {ui::Key::Enter});
}

TEST_F(MatrixEditing, TheDialogTakesPlaceAndSizeOfTheBrowser) {
    form->setPosition({{1500}, {900}});
    world.user.resize(*form, {{9000}, {7500}});
    edit([](dialogs::NodeEdit& dialog) {
        EXPECT_EQ(dialog.clientSize(), (ui::Size{{9000}, {7500}}));
        EXPECT_TRUE(dialog.hasPosition());
        EXPECT_EQ(dialog.bounds().left, ui::Twips{1500});
        EXPECT_EQ(dialog.bounds().top, ui::Twips{900});
    });
}

TEST_F(MatrixEditing, AfterwardsTheListsAreFilledAnewWhateverTheUserDid) {
    clickInstance(kAnna);
    clickOutgoing(kWorksFor);
    edit([this](dialogs::NodeEdit& dialog) {
        model.anna->shownName = u"Annabel";
        model.repository->addNode(model.person, u"Dora");
        model.script->restart();
        world.user.click(dialog, u"Cancel");
    });
    EXPECT_EQ(names(u"SourceInstanceList"), (Texts{u"Annabel", u"Ben", u"Cleo", u"Dora"}));
    EXPECT_EQ(selected(u"SourceInstanceList"), Object(model.anna)) << "the user goes on where he was";
    EXPECT_EQ(selected(u"MetaLinkListOutgoing"), Object()) << "the meta links were filled anew";
    EXPECT_EQ(names(u"TargetInstanceList"), Texts{u"Acme"});
    const auto& log = model.script->log;
    EXPECT_EQ(log.at(0), u"id1.Parent");
    EXPECT_EQ(log.at(1), u"Person.name");
    EXPECT_EQ(log.at(2), u"Person.Properties") << "the click on the type runs again";
}

TEST_F(MatrixEditing, ConfirmingWritesTheChange) {
    edit([this](dialogs::NodeEdit& dialog) {
        world.user.selectRow(dialog.Property1().list(), 0);
        world.user.press(dialog, {ui::Key::F2});
        world.user.enterText(headless::get<ui::TextBox>(dialog, u"Property1.Text"), u"41");
        world.user.click(dialog, u"OK");
    });
    EXPECT_EQ(model.anna->values[u"Age"].toString(), u"41");
    EXPECT_EQ(look(u"SourceInstanceList").at(0), (Texts{u"Anna", u"41"}));
}

TEST_F(MatrixEditing, AFailingWriteIsReportedInTheBrowsersName) {
    edit([this](dialogs::NodeEdit& dialog) {
        world.user.selectRow(dialog.Property1().list(), 0);
        world.user.press(dialog, {ui::Key::F2});
        world.user.enterText(headless::get<ui::TextBox>(dialog, u"Property1.Text"), u"41");
        model.script->onCall = [](const std::u16string& call) {
            if (call == u"id1.SetProperty")
                throw automation::Error(70, u"Permission denied", u"Repository");
        };
        world.expectBox();
        world.user.click(dialog, u"OK");
        EXPECT_EQ(lastPlace(), u"MatrixBrowser/Ok_Click");
        EXPECT_TRUE(dialog.isShown());
        model.script->onCall = {};
    });
    EXPECT_EQ(model.anna->values[u"Age"].toString(), u"40");
}

TEST_F(MatrixEditing, TheDialogEndsWithTheBrowser) {
    edit([this](dialogs::NodeEdit& dialog) {
        form->unload();
        EXPECT_FALSE(dialog.isLoaded());
    });
    EXPECT_EQ(world.desktop.livePeers(), 0U);
}

TEST_F(MatrixEditing, EditingByNameIsEditing) {
    model.script->restart();
    world.desktop.expectModal(u"NodeEdit", [](ui::Form& window) { window.hide(); });
    form->EditSourceNode(model.cleo);
    world.desktop.verify();
    EXPECT_EQ(selected(u"SourceInstanceList"), Object());
}

}  // namespace
}  // namespace quorel::matrix
