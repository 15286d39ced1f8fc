#include "diagram/diagram_view.h"

#include <cmath>

#include "platform/ui/plain_controls.h"
#include "tests/diagram/view_fixture.h"

namespace quorel::diagram {
namespace {

using headless::DrawnItem;
using headless::RecordingCanvas;

/// A window with nothing but a diagram of 100 boxes: 30,000 by 20,000 twips, a few more with its margin.
class View : public ::testing::Test {
  protected:
    View() {
        form_->setClientSize({9000_tw, 6000_tw});
        view_.setBounds({0_tw, 0_tw, 9000_tw, 6000_tw});
        // Names are read however small the whole of it is.
        model_->labelFont.points = 14;
        view_.setModel(model_);
        view_.area().focus();
        form_->show(ui::Modality::Modeless);
    }
    void TearDown() override { EXPECT_NO_THROW(world_.desktop.verify()); }

    void press(Key key, Modifiers modifiers = Modifiers::None) {
        world_.user.press(*form_, {key, modifiers});
    }
    [[nodiscard]] const ViewState& seen() const { return view_.view(); }
    [[nodiscard]] Point middleOfBox(std::size_t box) const {
        return seen().toWindow(middleOf(model_->boxes[box].place));
    }
    /// Its own size, box 44 in the middle.
    void goClose() {
        view_.show(44);
        view_.select(std::nullopt);
    }
    [[nodiscard]] ui::DrawingArea& area() { return view_.area(); }

    testing::TestWorld world_;
    headless::User& user_ = world_.user;
    std::shared_ptr<DiagramModel> model_ = gridOf(100, 10);
    std::shared_ptr<ui::Form> form_ = std::make_shared<ui::Form>(world_.desktop, u"frm");
    DiagramView& view_ = form_->add<DiagramView>(u"Diagram", world_.desktop);
};

constexpr Point kCentre{4500_tw, 3000_tw};

TEST_F(View, OpensWithAllOfTheDrawing) {
    EXPECT_DOUBLE_EQ(seen().scale(), seen().fittingScale());
    const Rect all = seen().toWindow(seen().extent());
    EXPECT_GE(all.left, 0_tw);
    EXPECT_LE(all.right(), 9000_tw);
    EXPECT_GE(all.top, 0_tw);
    EXPECT_LE(all.bottom(), 6000_tw);
}

TEST_F(View, StaysFittedWhileNobodyHasLookedCloser) {
    view_.setBounds({0_tw, 0_tw, 8000_tw, 5800_tw});
    EXPECT_DOUBLE_EQ(seen().scale(), seen().fittingScale());
    goClose();
    const Point middle = seen().middle();
    const double scale = seen().scale();
    view_.setBounds({0_tw, 0_tw, 12000_tw, 3000_tw});
    EXPECT_EQ(seen().middle(), middle);
    EXPECT_DOUBLE_EQ(seen().scale(), scale);
}

TEST_F(View, OpensWhereNamesCanBeRead) {
    const auto small = gridOf(100, 10);
    view_.setModel(small);
    EXPECT_DOUBLE_EQ(seen().scale(), 0.5);
    small->labelFont.points = 14;
    view_.setModel(small);
    EXPECT_DOUBLE_EQ(seen().scale(), seen().fittingScale());
}

TEST_F(View, OpensOfWhatIsTooLargeTheBoxWithTheMostConnections) {
    const auto large = gridOf(10000, 100);
    Connection more;
    more.from = 5050;
    more.to = 5152;
    more.line = {middleOf(large->boxes[5050].place), middleOf(large->boxes[5152].place)};
    large->addConnection(more);
    view_.setModel(large);
    EXPECT_DOUBLE_EQ(seen().scale(), 0.5);
    EXPECT_EQ(seen().middle(), middleOf(large->boxes[5050].place));
    view_.setBounds({0_tw, 0_tw, 5000_tw, 5000_tw});
    EXPECT_EQ(seen().middle(), middleOf(large->boxes[5050].place));
    // Asked for, all of it is shown and kept in sight.
    press(ui::key('F'));
    EXPECT_DOUBLE_EQ(seen().scale(), seen().fittingScale());
    view_.setBounds({0_tw, 0_tw, 3000_tw, 5000_tw});
    EXPECT_DOUBLE_EQ(seen().scale(), seen().fittingScale());
}

TEST_F(View, TheWheelMakesWhatIsUnderTheMouseLarger) {
    const Point at = middleOfBox(73);
    for (const Modifiers each : {Modifiers::None, Modifiers::Control}) {
        const double before = seen().scale();
        user_.turnWheel(area(), at, 120, each);
        EXPECT_NEAR(seen().scale() / before, 1.2, 0.01);
        EXPECT_NEAR(middleOfBox(73).x.value, at.x.value, 2);
        EXPECT_NEAR(middleOfBox(73).y.value, at.y.value, 2);
    }
    const double before = seen().scale();
    user_.turnWheel(area(), at, -60);
    EXPECT_NEAR(before / seen().scale(), std::sqrt(1.2), 0.01);
}

TEST_F(View, TheWheelWithShiftMovesSideways) {
    goClose();
    const Point before = seen().middle();
    user_.turnWheel(area(), kCentre, -120, Modifiers::Shift);
    EXPECT_GT(seen().middle().x, before.x);
    EXPECT_EQ(seen().middle().y, before.y);
    EXPECT_DOUBLE_EQ(seen().scale(), 1);
}

TEST_F(View, ADragOfTheGroundMovesTheDrawing) {
    goClose();
    const Point before = seen().middle();
    const Point ground{4500_tw, 4000_tw};
    ASSERT_LT(view_.drawing()->boxAt(seen().toDrawing(ground)), 0);
    user_.drag(area(), ground, {4000_tw, 4700_tw});
    EXPECT_EQ(seen().middle(), (Point{before.x + 500_tw, before.y - 700_tw}));
    EXPECT_EQ(view_.selected(), std::nullopt);
    EXPECT_EQ(area().pointerShape(), ui::PointerShape::Arrow);
}

TEST_F(View, TheMiddleButtonMovesTheDrawingFromABoxToo) {
    goClose();
    const Rect place = model_->boxes[44].place;
    const Point before = seen().middle();
    user_.drag(area(), kCentre, {4400_tw, 2800_tw}, ui::MouseButton::Middle);
    EXPECT_EQ(seen().middle(), (Point{before.x + 100_tw, before.y + 200_tw}));
    EXPECT_EQ(model_->boxes[44].place, place);
}

TEST_F(View, ADragOfABoxMovesItAndItsLinesFollow) {
    goClose();
    const Rect before = model_->boxes[44].place;
    const Point middle = seen().middle();
    const std::vector<Point> other = model_->connections[0].line;
    user_.drag(area(), kCentre, {4900_tw, 3300_tw});
    EXPECT_EQ(model_->boxes[44].place, (Rect{before.left + 400_tw, before.top + 300_tw, 2000_tw, 1000_tw}));
    EXPECT_EQ(seen().middle(), middle);
    const std::vector<std::size_t>& lines = view_.drawing()->connectionsOf(44);
    EXPECT_EQ(lines.size(), 4U);
    for (const std::size_t each : lines) {
        const Connection& line = model_->connections[each];
        EXPECT_TRUE(touches(model_->boxes[line.from].place, line.line.front()));
        EXPECT_TRUE(touches(model_->boxes[line.to].place, line.line.back()));
    }
    EXPECT_EQ(model_->connections[0].line, other);
    // It is found where it is now.
    EXPECT_EQ(view_.drawing()->boxAt(seen().toDrawing({5800_tw, 3700_tw})), 44);
}

TEST_F(View, EscTakesADragBack) {
    goClose();
    const DiagramModel before = *model_;
    user_.pressMouse(area(), kCentre);
    user_.moveMouse(area(), {6000_tw, 2000_tw});
    EXPECT_NE(model_->boxes[44].place, before.boxes[44].place);
    press(Key::Escape);
    EXPECT_EQ(model_->boxes[44].place, before.boxes[44].place);
    for (std::size_t i = 0; i < before.connections.size(); ++i)
        EXPECT_EQ(model_->connections[i].line, before.connections[i].line);
    user_.releaseMouse(area(), {6000_tw, 2000_tw});
    EXPECT_EQ(model_->boxes[44].place, before.boxes[44].place);
    EXPECT_TRUE(form_->isVisible());
}

TEST_F(View, ADragEndsWhenTheMouseIsTakenAway) {
    goClose();
    const Rect before = model_->boxes[44].place;
    user_.pressMouse(area(), kCentre);
    user_.moveMouse(area(), {6000_tw, 2000_tw});
    user_.loseMouse(area());
    EXPECT_EQ(model_->boxes[44].place, before);
    user_.moveMouse(area(), {6500_tw, 2000_tw});
    EXPECT_EQ(model_->boxes[44].place, before);
}

TEST_F(View, ABoxDraggedOutOfTheDrawingMakesItLarger) {
    goClose();
    view_.show(99);
    const ui::Twips right = seen().extent().right();
    user_.drag(area(), kCentre, {8900_tw, 3000_tw});
    EXPECT_GT(seen().extent().right(), right);
    EXPECT_EQ(seen().extent(), view_.drawing()->extent());
}

TEST_F(View, AClickChoosesAndTheGroundChoosesNone) {
    goClose();
    std::size_t told = 0;
    view_.onSelect.connect([&told] { ++told; });
    user_.clickAt(area(), kCentre);
    EXPECT_EQ(view_.selected(), 44U);
    user_.clickAt(area(), kCentre);
    EXPECT_EQ(told, 1U);
    user_.leaveMouse(area());
    EXPECT_EQ(view_.selected(), 44U);
    user_.clickAt(area(), {4500_tw, 4000_tw});
    EXPECT_EQ(view_.selected(), std::nullopt);
    EXPECT_EQ(told, 2U);
}

TEST_F(View, AShakingHandClicksAndMovesNothing) {
    goClose();
    const Rect before = model_->boxes[44].place;
    user_.drag(area(), kCentre, {4530_tw, 2985_tw});
    EXPECT_EQ(view_.selected(), 44U);
    EXPECT_EQ(model_->boxes[44].place, before);
}

TEST_F(View, TheBoxUnderTheMouseIsShownWithItsNeighbours) {
    goClose();
    user_.look(area());
    user_.moveMouse(area(), kCentre);
    EXPECT_EQ(view_.hovered(), 44U);
    EXPECT_EQ(area().pointerShape(), ui::PointerShape::Hand);
    // The name of a stranger is paler now.
    const RecordingCanvas with = user_.look(area());
    user_.moveMouse(area(), {4500_tw, 4000_tw});
    EXPECT_EQ(view_.hovered(), std::nullopt);
    EXPECT_EQ(area().pointerShape(), ui::PointerShape::Arrow);
    const RecordingCanvas without = user_.look(area());
    ASSERT_NE(with.findText(u"B33"), nullptr);
    ASSERT_NE(without.findText(u"B33"), nullptr);
    EXPECT_NE(with.findText(u"B33")->colour, without.findText(u"B33")->colour);
    EXPECT_EQ(with.findText(u"B45")->colour, without.findText(u"B45")->colour);
    user_.moveMouse(area(), kCentre);
    user_.leaveMouse(area());
    EXPECT_EQ(view_.hovered(), std::nullopt);
}

TEST_F(View, ADoubleClickBringsWhatIsThereIntoTheMiddle) {
    goClose();
    user_.doubleClickAt(area(), middleOfBox(45));
    EXPECT_EQ(seen().middle(), middleOf(model_->boxes[45].place));
    EXPECT_EQ(view_.selected(), 45U);
    const Point ground = seen().toDrawing({4500_tw, 4000_tw});
    user_.doubleClickAt(area(), {4500_tw, 4000_tw});
    EXPECT_EQ(seen().middle(), ground);
}

TEST_F(View, ArrowsGoFromBoxToBoxAndBringThemIntoView) {
    goClose();
    press(Key::Right);
    EXPECT_EQ(view_.selected(), 44U);  // the one in the middle is the first
    press(Key::Right);
    press(Key::Down);
    EXPECT_EQ(view_.selected(), 55U);
    for (int i = 0; i < 9; ++i)
        press(Key::Right);
    EXPECT_EQ(view_.selected(), 59U);
    EXPECT_TRUE(seen().seen().right() >= model_->boxes[59].place.right());
    press(Key::Up);
    press(Key::Left);
    EXPECT_EQ(view_.selected(), 48U);
    press(Key::Home);
    EXPECT_EQ(view_.selected(), 0U);
    EXPECT_TRUE(seen().seen().left <= model_->boxes[0].place.left);
    press(Key::End);
    EXPECT_EQ(view_.selected(), 99U);
}

TEST_F(View, AKeyTakesTheEyeFromTheMouse) {
    goClose();
    user_.moveMouse(area(), kCentre);
    ASSERT_EQ(view_.hovered(), 44U);
    press(Key::Home);
    EXPECT_EQ(view_.hovered(), std::nullopt);
}

TEST_F(View, EnterBringsTheChosenBoxIntoTheMiddle) {
    goClose();
    press(Key::End);
    press(Key::Enter);
    EXPECT_EQ(seen().middle(), middleOf(model_->boxes[99].place));
}

TEST_F(View, KeysChangeTheScale) {
    press(ui::key('0'), Modifiers::Control);
    EXPECT_DOUBLE_EQ(seen().scale(), 1);
    press(Key::Plus, Modifiers::Shift);
    EXPECT_DOUBLE_EQ(seen().scale(), 1.25);
    press(Key::Minus);
    EXPECT_DOUBLE_EQ(seen().scale(), 1);
    press(Key::Add);
    press(Key::Add, Modifiers::Control);
    EXPECT_DOUBLE_EQ(seen().scale(), 1.5625);
    press(Key::Subtract);
    EXPECT_DOUBLE_EQ(seen().scale(), 1.25);
    press(ui::key('F'));
    EXPECT_DOUBLE_EQ(seen().scale(), seen().fittingScale());
    press(Key::Plus);
    press(ui::key('9'), Modifiers::Control);
    EXPECT_DOUBLE_EQ(seen().scale(), seen().fittingScale());
}

TEST_F(View, KeysMoveTheDrawing) {
    goClose();
    const Point before = seen().middle();
    press(Key::Right, Modifiers::Control);
    press(Key::Down, Modifiers::Control);
    EXPECT_EQ(seen().middle(), (Point{before.x + 900_tw, before.y + 900_tw}));
    press(Key::Left, Modifiers::Control);
    press(Key::Up, Modifiers::Control);
    EXPECT_EQ(seen().middle(), before);
    press(Key::PageDown);
    EXPECT_EQ(seen().middle(), (Point{before.x, before.y + 6000_tw}));
    press(Key::PageUp);
    press(Key::PageDown, Modifiers::Shift);
    EXPECT_EQ(seen().middle(), (Point{before.x + 9000_tw, before.y}));
}

TEST_F(View, EscClearsTheChoiceAndThenIsTheWindows) {
    press(Key::Home);
    bool reachedForm = false;
    form_->onKeyDown.connect([&reachedForm](ui::KeyEvent& event) { reachedForm = !event.handled; });
    press(Key::Escape);
    EXPECT_EQ(view_.selected(), std::nullopt);
    EXPECT_FALSE(reachedForm);
    press(Key::Escape);
    EXPECT_TRUE(reachedForm);
}

TEST_F(View, OnlyWhatIsSeenIsPainted) {
    goClose();
    const RecordingCanvas canvas = user_.look(area());
    EXPECT_NE(canvas.findText(u"B44"), nullptr);
    EXPECT_NE(canvas.findText(u"B33"), nullptr);
    EXPECT_EQ(canvas.findText(u"B0"), nullptr);
    EXPECT_EQ(canvas.findText(u"B99"), nullptr);
    const auto isFarBelow = [&canvas](const DrawnItem& item) { return canvas.onCanvas(item).top > 9000_tw; };
    EXPECT_EQ(std::count_if(canvas.items().begin(), canvas.items().end(), isFarBelow), 0);
}

TEST_F(View, TheOverviewStandsInTheCornerWhileNotAllIsSeen) {
    EXPECT_FALSE(view_.overview().isVisible());
    goClose();
    ASSERT_TRUE(view_.overview().isVisible());
    const Rect place = view_.overview().bounds();
    EXPECT_EQ(place.right(), 8850_tw);
    EXPECT_EQ(place.bottom(), 5850_tw);
    EXPECT_LE(place.width, 3000_tw);
    const RecordingCanvas canvas = user_.look(view_.overview());
    EXPECT_TRUE(canvas.texts().empty());
    EXPECT_GE(canvas.items().size(), 100U);
    view_.fit();
    EXPECT_FALSE(view_.overview().isVisible());
}

TEST_F(View, ADragInTheOverviewMovesWhatIsSeen) {
    goClose();
    Overview& overview = view_.overview();
    const Rect frame = overview.frame();
    const Point middle = middleOf(frame);
    EXPECT_NEAR(overview.toDrawing(middle).x.value, seen().middle().x.value, 200);
    EXPECT_NEAR(overview.toDrawing(middle).y.value, seen().middle().y.value, 200);
    const Point to{300_tw, 400_tw};
    user_.drag(overview, middle, to);
    EXPECT_EQ(seen().middle(), overview.toDrawing(to));
    EXPECT_DOUBLE_EQ(seen().scale(), 1);
    user_.clickAt(overview, {1000_tw, 1000_tw});
    EXPECT_EQ(seen().middle(), overview.toDrawing({1000_tw, 1000_tw}));
    EXPECT_TRUE(area().hasFocus());
    user_.turnWheel(overview, {1000_tw, 1000_tw}, 120);
    EXPECT_GT(seen().scale(), 1);
}

TEST_F(View, SaysWhenThereIsNothingToDraw) {
    for (const std::shared_ptr<DiagramModel>& each :
         {std::make_shared<DiagramModel>(), std::shared_ptr<DiagramModel>()}) {
        view_.setModel(each);
        EXPECT_EQ(user_.look(area()).texts(), std::vector<std::u16string>{u"There is nothing to draw."});
        EXPECT_FALSE(view_.overview().isVisible());
        user_.clickAt(area(), kCentre);
        user_.doubleClickAt(area(), kCentre);
        user_.turnWheel(area(), kCentre, 120);
        user_.drag(area(), kCentre, {100_tw, 100_tw});
        for (const Key key : {Key::Left, Key::Home, Key::End, Key::Enter, Key::Plus, Key::PageDown})
            press(key);
        view_.show(0);
        EXPECT_EQ(view_.selected(), std::nullopt);
    }
}

TEST_F(View, ScreenReadersHearTheChosenBox) {
    EXPECT_EQ(area().text(), u"Diagram");
    press(Key::Home);
    EXPECT_EQ(area().text(), u"B0, 1 property, 2 connections");
    press(Key::Escape);
    EXPECT_EQ(area().text(), u"Diagram");
}

TEST_F(View, MayBeDestroyedInAnyOfItsEvents) {
    goClose();
    const auto end = [this] {
        form_->unload();
        form_.reset();
    };
    view_.onSelect.connect(end);
    user_.clickAt(area(), kCentre);
    EXPECT_EQ(form_, nullptr);
}

TEST_F(View, MayBeDestroyedWhileItMoves) {
    goClose();
    view_.onViewChanged.connect([this] {
        if (form_)
            form_->unload();
        form_.reset();
    });
    EXPECT_NO_THROW(user_.turnWheel(area(), kCentre, 120));
    EXPECT_EQ(form_, nullptr);
}

}  // namespace
}  // namespace quorel::diagram
