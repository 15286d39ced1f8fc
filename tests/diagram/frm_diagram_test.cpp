#include "diagram/frm_diagram.h"

#include <cmath>
#include <filesystem>
#include <fstream>
#include <functional>
#include <set>
#include <sstream>

#include "platform/ui/tab_order.h"
#include "tests/diagram/view_fixture.h"

namespace quorel::diagram {
namespace {

using headless::DrawingExport;
using Kind = DrawingExport::Kind;

/// Answers what it was told to.
class FilesDouble final : public shell::FileDialogs {
  public:
    std::optional<std::u16string> answer;
    std::vector<Request> asked;
    std::function<void()> meanwhile;

    std::optional<std::u16string> openFile(const Request&) override { return std::nullopt; }
    std::optional<std::u16string> saveFile(const Request& request) override {
        asked.push_back(request);
        if (meanwhile)
            meanwhile();
        return answer;
    }
    std::optional<std::u16string> chooseFolder(const Request&) override { return std::nullopt; }
};

[[nodiscard]] std::shared_ptr<frmDiagram> makeDiagramWindow(const frame::Environment& environment,
                                                            const std::shared_ptr<DiagramModel>& model,
                                                            bool standardButtons) {
    auto window = std::make_shared<frmDiagram>(environment, model);
    if (standardButtons)
        window->AddStandardButtons();
    return window;
}

class Window : public ::testing::Test {
  protected:
    Window() { world_.environment.fileDialogs = &files_; }
    void TearDown() override { EXPECT_NO_THROW(world_.desktop.verify()); }

    void open(bool withButtons = true) {
        form_ = makeDiagramWindow(world_.environment, model_, withButtons);
        form_->show(ui::Modality::Modeless);
    }
    void press(Key key, Modifiers modifiers = Modifiers::None) { user_.press(*form_, {key, modifiers}); }
    void control(char letter) { press(ui::key(letter), Modifiers::Control); }
    void click(StandardButton which) { user_.click(form_->button(which)); }
    [[nodiscard]] std::u16string status(std::size_t panel) {
        return headless::get<ui::StatusBar>(*form_, u"StatusBar1").panels()[panel].text;
    }
    template <class T>
    [[nodiscard]] T& get(std::u16string_view name) {
        return headless::get<T>(*form_, name);
    }
    [[nodiscard]] const ViewState& seen() { return form_->view().view(); }
    [[nodiscard]] std::u16string inFolder(std::string_view name) {
        return (std::filesystem::path(::testing::TempDir()) / name).u16string();
    }

    FilesDouble files_;
    testing::TestWorld world_;
    headless::User& user_ = world_.user;
    std::shared_ptr<DiagramModel> model_ = gridOf(100, 10);
    std::shared_ptr<frmDiagram> form_;
};

// Opening and closing.
// ------------------------------------------------------------------------

TEST_F(Window, ShowsAllOfTheDiagramAndTellsItsSize) {
    open();
    EXPECT_EQ(form_->text(), u"Diagram");
    EXPECT_EQ(status(0), u"100 boxes");
    EXPECT_EQ(status(1), u"180 connections");
    EXPECT_DOUBLE_EQ(seen().scale(), seen().fittingScale());
    EXPECT_TRUE(form_->view().area().hasFocus());
    user_.look(form_->view().area());
}

TEST_F(Window, TellsOneBoxAndNoConnection) {
    model_ = gridOf(1, 1);
    open();
    EXPECT_EQ(status(0), u"1 box");
    EXPECT_EQ(status(1), u"0 connections");
}

TEST_F(Window, IsModal) {
    form_ = makeDiagramWindow(world_.environment, model_, true);
    world_.desktop.expectModal(u"frmDiagram", [this](ui::Form& form) { user_.press(form, {Key::Escape}); });
    form_->PopUp();
    EXPECT_FALSE(form_->isVisible());
}

TEST_F(Window, ShowsWhatTheDiagramHasBecomeMeanwhile) {
    const auto later = std::make_shared<DiagramModel>();
    form_ = makeDiagramWindow(world_.environment, later, true);
    form_->load();
    *later = *model_;
    world_.desktop.expectModal(u"frmDiagram", [this](ui::Form& form) {
        EXPECT_EQ(status(0), u"100 boxes");
        EXPECT_EQ(status(3), u"A note");
        EXPECT_TRUE(form_->button(StandardButton::Find).isEnabled());
        user_.press(form, {Key::Home});
        EXPECT_EQ(status(3), u"B0");
        form.hide();
    });
    form_->PopUp(u"A note");
}

TEST_F(Window, HasNoButtonsUnlessTheyAreAskedFor) {
    open(false);
    for (std::size_t i = 0; i < kStandardButtons; ++i)
        EXPECT_FALSE(form_->button(static_cast<StandardButton>(i)).isVisible());
    EXPECT_EQ(form_->view().bounds().top, 0_tw);
    form_->AddStandardButtons();
    EXPECT_TRUE(form_->button(StandardButton::Save).isVisible());
    EXPECT_GT(form_->view().bounds().top, 0_tw);
}

TEST_F(Window, EscClearsTheChoiceThenCloses) {
    open();
    press(Key::Home);
    EXPECT_EQ(status(3), u"B0");
    press(Key::Escape);
    EXPECT_EQ(status(3), u"");
    EXPECT_TRUE(form_->isVisible());
    press(Key::Escape);
    EXPECT_FALSE(form_->isVisible());
}

TEST_F(Window, EscOnAButtonDoesTheSame) {
    open();
    press(Key::Home);
    press(Key::Tab);
    ASSERT_FALSE(form_->view().area().hasFocus());
    press(Key::Escape);
    EXPECT_TRUE(form_->isVisible());
    press(Key::Escape);
    EXPECT_FALSE(form_->isVisible());
}

TEST_F(Window, ComesBackAsLargeAsItWasLeft) {
    open();
    user_.resize(*form_, {20000_tw, 9000_tw});
    form_->unload();
    open();
    EXPECT_EQ(form_->clientSize(), (ui::Size{20000_tw, 9000_tw}));
}

TEST_F(Window, SettingsThatCannotBeReadAreOneErrorBoxEach) {
    testing::BrokenSettings broken;
    frame::Environment environment{world_.desktop, world_.classes, world_.clock, broken};
    world_.expectBox();
    form_ = makeDiagramWindow(environment, model_, true);
    form_->show(ui::Modality::Modeless);
    EXPECT_TRUE(form_->isVisible());
    world_.expectBox();
    form_->unload();
    EXPECT_EQ(world_.boxes().size(), 2U);
}

TEST_F(Window, AnEmptyDiagramIsAWindowWithNothingToDo) {
    model_ = std::make_shared<DiagramModel>();
    open();
    EXPECT_EQ(user_.look(form_->view().area()).texts(),
              std::vector<std::u16string>{u"There is nothing to draw."});
    EXPECT_EQ(status(0), u"0 boxes");
    for (std::size_t i = 0; i < kStandardButtons; ++i)
        EXPECT_FALSE(form_->button(static_cast<StandardButton>(i)).isEnabled());
    for (const char letter : {'F', 'S', 'P', '0', '9'})
        control(letter);
    press(Key::F3);
    EXPECT_TRUE(files_.asked.empty());
    EXPECT_TRUE(world_.drawingExport.jobs().empty());
    press(Key::Escape);
    EXPECT_FALSE(form_->isVisible());
}

// Buttons and keys.
// ------------------------------------------------------------------------

TEST_F(Window, ButtonsChangeTheScale) {
    open();
    const double all = seen().scale();
    click(StandardButton::ZoomIn);
    EXPECT_NEAR(seen().scale(), all * 1.25, 1e-9);
    click(StandardButton::ZoomOut);
    EXPECT_NEAR(seen().scale(), all, 1e-9);
    click(StandardButton::ActualSize);
    EXPECT_DOUBLE_EQ(seen().scale(), 1);
    EXPECT_EQ(status(2), u"Scale 100 %");
    click(StandardButton::Fit);
    EXPECT_DOUBLE_EQ(seen().scale(), all);
}

TEST_F(Window, SmallScalesAreToldMoreExactly) {
    model_ = gridOf(10000, 100);
    open();
    EXPECT_EQ(status(2), u"Scale 50 %");
    click(StandardButton::Fit);
    EXPECT_EQ(status(2), u"Scale " + automation::decimal(std::lround(seen().scale() * 1000) / 10) + u"." +
                             automation::decimal(std::lround(seen().scale() * 1000) % 10) + u" %");
    EXPECT_LT(seen().scale(), 0.1);
}

TEST_F(Window, EveryButtonHasAToolTipAnAccessKeyAndADrawing) {
    open();
    control('F');
    std::set<std::u16string> keys;
    std::size_t buttons = 0;
    for (const auto& each : form_->children())
        if (auto* const button = dynamic_cast<ui::Button*>(each.get())) {
            EXPECT_FALSE(button->toolTip().empty());
            EXPECT_NE(button->glyph(), nullptr);
            const std::size_t mark = button->text().find(u'&');
            ASSERT_NE(mark, std::u16string::npos);
            EXPECT_TRUE(keys.insert(automation::foldCase(button->text().substr(mark + 1, 1))).second);
            ++buttons;
        }
    EXPECT_EQ(buttons, kStandardButtons + 2);
}

TEST_F(Window, AccessKeysPressTheButtons) {
    open();
    press(ui::key('1'), Modifiers::Alt);
    EXPECT_DOUBLE_EQ(seen().scale(), 1);
    press(ui::key('I'), Modifiers::Alt);
    EXPECT_DOUBLE_EQ(seen().scale(), 1.25);
    press(ui::key('A'), Modifiers::Alt);
    EXPECT_DOUBLE_EQ(seen().scale(), seen().fittingScale());
}

TEST_F(Window, KeysOfTheViewWorkFromTheButtonsToo) {
    open();
    press(Key::Tab);
    control('0');
    EXPECT_DOUBLE_EQ(seen().scale(), 1);
    press(Key::Add, Modifiers::Control);
    EXPECT_DOUBLE_EQ(seen().scale(), 1.25);
    control('9');
    EXPECT_DOUBLE_EQ(seen().scale(), seen().fittingScale());
}

TEST_F(Window, TheTabKeyGoesRoundFromLeftToRight) {
    open();
    control('F');
    std::vector<std::u16string> way;
    const ui::Control* const first = form_->focusedControl();
    do {
        way.push_back(form_->focusedControl()->name());
        press(Key::Tab);
    } while (form_->focusedControl() != first && way.size() < 20);
    EXPECT_EQ(way, (std::vector<std::u16string>{u"Find", u"cmdPrevious", u"cmdNext", u"Diagram", u"cmdZoomIn",
                                                u"cmdZoomOut", u"cmdFit", u"cmdActualSize", u"cmdFind",
                                                u"cmdPrint", u"cmdSave"}));
}

// Finding.
// ------------------------------------------------------------------------

TEST_F(Window, FindsWhileOneTypesAndGoesRound) {
    open();
    control('F');
    auto& box = get<ui::TextBox>(u"Find");
    auto& found = get<ui::Label>(u"Found");
    EXPECT_TRUE(box.hasFocus());
    user_.type(*form_, u"b1");
    EXPECT_EQ(found.text(), u"1 of 11");
    EXPECT_EQ(form_->view().selected(), 1U);
    press(Key::Enter);
    EXPECT_EQ(found.text(), u"2 of 11");
    EXPECT_EQ(form_->view().selected(), 10U);
    EXPECT_EQ(seen().middle(), middleOf(model_->boxes[10].place));
    EXPECT_DOUBLE_EQ(seen().scale(), 1);
    press(Key::F3);
    EXPECT_EQ(form_->view().selected(), 11U);
    press(Key::F3, Modifiers::Shift);
    press(Key::Enter, Modifiers::Shift);
    press(Key::Enter, Modifiers::Shift);
    EXPECT_EQ(found.text(), u"11 of 11");
    EXPECT_EQ(form_->view().selected(), 19U);
    user_.click(get<ui::Button>(u"cmdNext"));
    EXPECT_EQ(found.text(), u"1 of 11");
    user_.click(get<ui::Button>(u"cmdPrevious"));
    EXPECT_EQ(found.text(), u"11 of 11");
}

TEST_F(Window, TellsWhatIsNotThere) {
    open();
    click(StandardButton::Find);
    user_.type(*form_, u"q");
    EXPECT_EQ(get<ui::Label>(u"Found").text(), u"Not found");
    EXPECT_EQ(form_->view().selected(), std::nullopt);
    press(Key::F3);
    user_.enterText(get<ui::TextBox>(u"Find"), u"");
    EXPECT_EQ(get<ui::Label>(u"Found").text(), u"");
}

TEST_F(Window, FindsProperties) {
    open();
    control('F');
    user_.type(*form_, u"SIZEB42");
    EXPECT_EQ(get<ui::Label>(u"Found").text(), u"1 of 1");
    EXPECT_EQ(form_->view().selected(), 42U);
}

TEST_F(Window, EscLeavesTheFindBoxOnly) {
    open(false);
    EXPECT_FALSE(get<ui::TextBox>(u"Find").isVisible());
    control('F');
    EXPECT_GT(form_->view().bounds().top, 0_tw);
    user_.type(*form_, u"b42");
    press(Key::Escape);
    EXPECT_TRUE(form_->view().area().hasFocus());
    EXPECT_FALSE(get<ui::TextBox>(u"Find").isVisible());
    EXPECT_EQ(form_->view().bounds().top, 0_tw);
    EXPECT_EQ(form_->view().selected(), 42U);
    EXPECT_TRUE(form_->isVisible());
    // What was found last is gone on from.
    press(Key::F3);
    EXPECT_EQ(form_->view().selected(), 42U);
}

TEST_F(Window, F3WithNothingToFindAsksWhat) {
    open();
    press(Key::F3);
    EXPECT_TRUE(get<ui::TextBox>(u"Find").hasFocus());
}

// Files and paper.
// ------------------------------------------------------------------------

TEST_F(Window, SavesTheWholeDrawingAsSvg) {
    files_.answer = inFolder("whole diagram.SVG");
    std::filesystem::remove(*files_.answer);
    open();
    control('0');
    click(StandardButton::Save);
    ASSERT_EQ(files_.asked.size(), 1U);
    EXPECT_EQ(files_.asked[0].defaultExtension, u".svg");
    EXPECT_NE(files_.asked[0].filter.find(u"*.svg"), std::u16string::npos);
    EXPECT_NE(files_.asked[0].filter.find(u"*.png"), std::u16string::npos);
    EXPECT_NE(files_.asked[0].filter.find(u"*.emf"), std::u16string::npos);
    std::ostringstream written;
    written << std::ifstream(std::filesystem::path(*files_.answer), std::ios::binary).rdbuf();
    EXPECT_NE(written.str().find("<svg"), std::string::npos);
    for (const char* const each : {">B0<", ">B99<", "</svg>"})
        EXPECT_NE(written.str().find(each), std::string::npos) << each;
    EXPECT_EQ(status(3), u"Saved in " + *files_.answer);
    std::filesystem::remove(*files_.answer);
}

TEST_F(Window, SavesTheWholeDrawingAsPngAndEmf) {
    open();
    control('0');
    for (const auto& [path, kind] :
         {std::pair(u"/tmp/a.png", Kind::Png), std::pair(u"/tmp/b.Emf", Kind::Emf)}) {
        files_.answer = path;
        control('S');
        ASSERT_FALSE(world_.drawingExport.jobs().empty());
        const DrawingExport::Job& job = world_.drawingExport.jobs().back();
        EXPECT_EQ(job.kind, kind);
        EXPECT_EQ(job.target, path);
        EXPECT_EQ(job.drawing, form_->view().drawing()->extent().size());
        for (const char16_t* const each : {u"B0", u"B99"}) {
            const headless::DrawnItem* const text = job.canvas.findText(each);
            ASSERT_NE(text, nullptr);
            EXPECT_TRUE(job.canvas.isSeen(*text));
        }
        EXPECT_EQ(status(3), u"Saved in " + *files_.answer);
    }
    EXPECT_EQ(world_.drawingExport.jobs().size(), 2U);
}

TEST_F(Window, ADrawingThatBeginsLeftOfZeroIsSavedAsAWhole) {
    model_->boxes[0].place.left = -5000_tw;
    open();
    files_.answer = u"/tmp/a.emf";
    control('S');
    const DrawingExport::Job& job = world_.drawingExport.jobs().back();
    EXPECT_TRUE(job.canvas.isSeen(*job.canvas.findText(u"B0")));
    EXPECT_GE(job.canvas.onCanvas(*job.canvas.findText(u"B0")).left, 0_tw);
}

TEST_F(Window, SavingThatFailsIsOneBoxThatNamesTheFile) {
    open();
    world_.drawingExport.setFails(true);
    for (const char16_t* const path :
         {u"/tmp/a.png", u"/tmp/b.emf", u"/no such folder/c.svg", u"/tmp/d.jpeg", u"/tmp/noextension"}) {
        files_.answer = path;
        world_.expectBox();
        click(StandardButton::Save);
        const std::u16string told = world_.boxes().back();
        EXPECT_NE(told.find(path), std::u16string::npos);
        EXPECT_NE(told.find(u"(Module 'frmDiagram' Function 'Save()')"), std::u16string::npos);
        EXPECT_EQ(status(3), u"");
    }
    EXPECT_EQ(world_.boxes().size(), 5U);
    EXPECT_EQ(world_.desktop.pointer(), ui::Pointer::Default);
    // The window goes on.
    control('0');
    EXPECT_DOUBLE_EQ(seen().scale(), 1);
}

TEST_F(Window, CancelledSavingDoesNothing) {
    open();
    click(StandardButton::Save);
    EXPECT_EQ(files_.asked.size(), 1U);
    EXPECT_TRUE(world_.drawingExport.jobs().empty());
    EXPECT_EQ(status(3), u"");
}

TEST_F(Window, WithoutDialogsAndPrintersTheirButtonsAreGrey) {
    world_.environment.fileDialogs = nullptr;
    world_.environment.drawingExport = nullptr;
    open();
    EXPECT_FALSE(form_->button(StandardButton::Save).isEnabled());
    EXPECT_FALSE(form_->button(StandardButton::Print).isEnabled());
    control('S');
    control('P');
    EXPECT_TRUE(form_->button(StandardButton::Find).isEnabled());
}

TEST_F(Window, WithoutAServiceOnlySvgIsWritten) {
    world_.environment.drawingExport = nullptr;
    open();
    files_.answer = u"/tmp/a.png";
    world_.expectBox();
    control('S');
    EXPECT_NE(world_.boxes().back().find(u"/tmp/a.png: Only .svg"), std::u16string::npos);
}

TEST_F(Window, PrintsTheWholeDrawing) {
    open();
    control('0');
    click(StandardButton::Print);
    ASSERT_EQ(world_.drawingExport.jobs().size(), 1U);
    EXPECT_EQ(world_.drawingExport.jobs()[0].kind, Kind::Print);
    EXPECT_NE(world_.drawingExport.jobs()[0].canvas.findText(u"B99"), nullptr);
    EXPECT_EQ(status(3), u"Printed");
}

TEST_F(Window, CancelledPrintingSaysNothing) {
    world_.drawingExport.setCancels(true);
    open();
    control('P');
    EXPECT_EQ(status(3), u"");
}

// The host ends it meanwhile.
// ------------------------------------------------------------------------

TEST_F(Window, MayBeEndedWhileTheFileDialogIsOpen) {
    open();
    files_.answer = inFolder("never.svg");
    std::filesystem::remove(*files_.answer);
    files_.meanwhile = [this] {
        form_->unload();
        form_->Destroy();
        form_.reset();
    };
    const auto alive = form_;
    user_.press(*alive, {ui::key('S'), Modifiers::Control});
    EXPECT_FALSE(std::filesystem::exists(std::filesystem::path(*files_.answer)));
}

TEST_F(Window, MayBeEndedInAnyOfItsEvents) {
    const std::vector<std::function<void(frmDiagram&)>> deeds{
        [this](frmDiagram& form) { user_.press(form, {Key::Home}); },
        [this](frmDiagram& form) { user_.press(form, {Key::Plus}); },
        [this](frmDiagram& form) { user_.click(form.button(StandardButton::ZoomIn)); },
        [this](frmDiagram& form) {
            user_.turnWheel(form.view().area(), {300_tw, 300_tw}, 120);
        },
        [this](frmDiagram& form) {
            user_.drag(form.view().area(), {60_tw, 60_tw}, {500_tw, 500_tw});
        },
        [this](frmDiagram& form) {
            user_.doubleClickAt(form.view().area(), {3000_tw, 3000_tw});
        },
        [this](frmDiagram& form) {
            user_.press(form, {ui::key('F'), Modifiers::Control});
            user_.type(form, u"B42");
        },
        [this](frmDiagram& form) {
            user_.resize(form, {9000_tw, 9000_tw});
        },
    };
    for (const auto& deed : deeds) {
        open();
        const std::weak_ptr<frmDiagram> watched = form_;
        bool ended = false;
        const auto end = [this, &ended] {
            if (!form_ || ended)
                return;
            ended = true;
            form_->hide();
            form_->unload();
            form_->Destroy();
            form_.reset();
        };
        form_->view().onViewChanged.connect(end);
        form_->view().onSelect.connect(end);
        form_->onResize.connect(end);
        try {
            deed(*form_);
        } catch (const headless::CannotDo&) {
            EXPECT_TRUE(ended);  // no user can go on in a window that is gone
        }
        EXPECT_TRUE(ended);
        EXPECT_TRUE(watched.expired());
    }
    EXPECT_TRUE(world_.boxes().empty());
}

TEST_F(Window, AfterItsEndItIsEmpty) {
    open();
    form_->Destroy();
    press(Key::Home);
    control('F');
    press(Key::F3);
    EXPECT_EQ(model_.use_count(), 1);
    EXPECT_EQ(user_.look(form_->view().area()).texts(),
              std::vector<std::u16string>{u"There is nothing to draw."});
}

}  // namespace
}  // namespace quorel::diagram
