// Drawing areas: what is painted, what the mouse and the keyboard do to them.

#include <algorithm>
#include <cstdint>

#include "platform/ui/drawing_area.h"
#include "tests/conformance/window.h"

namespace quorel::conformance {

using namespace ui::literals;
using ui::Modality;
using ui::Modifiers;
using ui::MouseButton;
using ui::MouseEvent;

namespace {

/// A drawing between two boxes.
struct Drawing {
    explicit Drawing(ui::Desktop& desktop)
        : form(std::make_shared<ui::Form>(desktop, u"frmDrawing")),
          before(form->add<ui::TextBox>(u"Before")),
          panel(form->add<ui::Panel>(u"Panel")),
          area(panel.add<ui::DrawingArea>(u"Area")),
          after(form->add<ui::TextBox>(u"After")) {
        form->setClientSize({6000_tw, 4500_tw});
        before.setBounds({150_tw, 150_tw, 1500_tw, 300_tw});
        panel.setBounds({150_tw, 600_tw, 5400_tw, 3000_tw});
        area.setBounds({150_tw, 150_tw, 4500_tw, 2700_tw});
        area.setText(u"Picture of the model");
        after.setBounds({150_tw, 3750_tw, 1500_tw, 300_tw});
    }

    void logMouse() {
        const auto write = [this](const char* name) {
            return [this, name](const MouseEvent& event) {
                std::string line = name;
                line += ' ' + std::to_string(event.at.x.value) + ',' + std::to_string(event.at.y.value);
                line += event.button == MouseButton::Left     ? " left"
                        : event.button == MouseButton::Middle ? " middle"
                        : event.button == MouseButton::Right  ? " right"
                                                              : "";
                line += ui::has(event.modifiers, Modifiers::Shift) ? " shift" : "";
                line += ui::has(event.modifiers, Modifiers::Control) ? " control" : "";
                line += event.wheel != 0 ? " wheel " + std::to_string(event.wheel) : "";
                log.push_back(line);
            };
        };
        area.onMouseDown.connect(write("down"));
        area.onMouseMove.connect(write("move"));
        area.onMouseUp.connect(write("up"));
        area.onDoubleClick.connect(write("double"));
        area.onWheel.connect(write("wheel"));
        area.onMouseLost.connect([this] { log.emplace_back("lost"); });
    }

    std::vector<std::string> log;
    std::shared_ptr<ui::Form> form;
    ui::TextBox& before;
    ui::Panel& panel;
    ui::DrawingArea& area;
    ui::TextBox& after;
};

constexpr ui::Point kAt{{300}, {450}}, kThere{{1500}, {900}}, kOutside{{-150}, {6000}};

[[nodiscard]] bool contains(const ui::Rect& outer, const ui::Rect& inner) {
    return outer.left <= inner.left && outer.top <= inner.top && outer.right() >= inner.right() &&
           outer.bottom() >= inner.bottom();
}

struct DrawingTrigger {
    const char* name;
    std::function<void(Drawing&, std::function<void()>)> connect;
    std::function<void(Backend&, Drawing&)> act;
};

using Handler = std::function<void()>;

template <class Event>
void hear(Event& event, const Handler& handler) {
    event.connect([handler](const MouseEvent&) { handler(); });
}

[[nodiscard]] std::vector<DrawingTrigger> mouseTriggers() {
    return {
        {"down", [](Drawing& d, Handler h) { hear(d.area.onMouseDown, h); },
         [](Backend& b, Drawing& d) { b.pressMouse(d.area, kAt); }},
        {"move", [](Drawing& d, Handler h) { hear(d.area.onMouseMove, h); },
         [](Backend& b, Drawing& d) { b.moveMouse(d.area, kAt); }},
        {"move of a drag", [](Drawing& d, Handler h) { hear(d.area.onMouseMove, h); },
         [](Backend& b, Drawing& d) {
             b.pressMouse(d.area, kAt);
             b.moveMouse(d.area, kThere);
         }},
        {"up", [](Drawing& d, Handler h) { hear(d.area.onMouseUp, h); },
         [](Backend& b, Drawing& d) {
             b.pressMouse(d.area, kAt);
             b.releaseMouse(d.area, kAt);
         }},
        {"double click", [](Drawing& d, Handler h) { hear(d.area.onDoubleClick, h); },
         [](Backend& b, Drawing& d) { b.doubleClickAt(d.area, kAt); }},
        {"wheel", [](Drawing& d, Handler h) { hear(d.area.onWheel, h); },
         [](Backend& b, Drawing& d) { b.turnWheel(d.area, kAt, 120); }},
        {"leave", [](Drawing& d, Handler h) { d.area.onMouseLeave.connect(h); },
         [](Backend& b, Drawing& d) { b.leaveMouse(d.area); }},
        {"lost", [](Drawing& d, Handler h) { d.area.onMouseLost.connect(h); },
         [](Backend& b, Drawing& d) {
             b.pressMouse(d.area, kAt);
             b.loseMouse(d.area);
         }},
    };
}

[[nodiscard]] std::vector<DrawingTrigger> drawingTriggers() {
    std::vector<DrawingTrigger> all = mouseTriggers();
    all.push_back({"focus by a click", [](Drawing& d, Handler h) { d.area.onGotFocus.connect(h); },
                   [](Backend& b, Drawing& d) { b.pressMouse(d.area, kAt); }});
    all.push_back({"key",
                   [](Drawing& d, Handler h) { d.area.onKeyDown.connect([h](ui::KeyEvent&) { h(); }); },
                   [](Backend& b, Drawing& d) {
                       d.area.focus();
                       b.press(*d.form, {ui::Key::Left});
                   }});
    all.push_back({"painting",
                   [](Drawing& d, Handler h) {
                       d.area.setPainter([h](ui::Canvas& canvas, const ui::Rect& dirty) {
                           h();
                           canvas.setView({dirty, {}, 2});
                           canvas.fillRectangle(dirty, {200, 0, 0});
                           canvas.drawText({}, u"text", {}, {});
                       });
                   },
                   [](Backend& b, Drawing& d) { b.repaint(d.area); }});
    return all;
}

}  // namespace

class Drawings : public Conformance {
  protected:
    /// Runs `whenHeard` inside each event in turn.
    void sweep(const std::function<void(Drawing&)>& whenHeard) {
        for (const DrawingTrigger& trigger : drawingTriggers()) {
            SCOPED_TRACE(trigger.name);
            Drawing drawing(backend->desktop());
            drawing.form->show(Modality::Modeless);
            backend->settle();
            bool heard = false;
            trigger.connect(drawing, [&] {
                if (!std::exchange(heard, true))
                    whenHeard(drawing);
            });
            trigger.act(*backend, drawing);
            backend->settle();
            EXPECT_TRUE(heard);
        }
        EXPECT_EQ(backend->peerCount(), 0U);
    }
};

TEST_F(Drawings, PaintingReachesThePainterWithWhatIsDirty) {
    Drawing drawing(backend->desktop());
    std::vector<ui::Rect> dirty;
    drawing.area.setPainter([&](ui::Canvas&, const ui::Rect& part) { dirty.push_back(part); });
    drawing.form->show(Modality::Modeless);
    backend->repaint(drawing.area);
    ASSERT_FALSE(dirty.empty());
    EXPECT_TRUE(std::any_of(dirty.begin(), dirty.end(), [](const ui::Rect& part) {
        return contains(part, {0_tw, 0_tw, 4500_tw, 2700_tw});
    }));
    dirty.clear();
    backend->repaint(drawing.area);
    EXPECT_TRUE(dirty.empty()) << "nothing has changed";
    drawing.area.invalidate({300_tw, 450_tw, 150_tw, 75_tw});
    drawing.area.invalidate({600_tw, 300_tw, 150_tw, 75_tw});
    backend->repaint(drawing.area);
    ASSERT_EQ(dirty.size(), 1U);
    EXPECT_TRUE(contains(dirty[0], {300_tw, 300_tw, 450_tw, 225_tw}));
    EXPECT_TRUE(contains({240_tw, 240_tw, 570_tw, 345_tw}, dirty[0]));
}

TEST_F(Drawings, ANewSizePaintsAllOfIt) {
    Drawing drawing(backend->desktop());
    drawing.form->show(Modality::Modeless);
    backend->repaint(drawing.area);
    std::vector<ui::Rect> dirty;
    drawing.area.setPainter([&](ui::Canvas&, const ui::Rect& part) { dirty.push_back(part); });
    backend->repaint(drawing.area);
    dirty.clear();
    drawing.area.setBounds({150_tw, 150_tw, 4800_tw, 2400_tw});
    backend->repaint(drawing.area);
    ASSERT_FALSE(dirty.empty());
    EXPECT_TRUE(contains(dirty.back(), {0_tw, 0_tw, 4800_tw, 2400_tw}));
}

TEST_F(Drawings, MouseEventsTellWhereAndWithWhat) {
    Drawing drawing(backend->desktop());
    drawing.form->show(Modality::Modeless);
    drawing.logMouse();
    backend->moveMouse(drawing.area, kAt);
    backend->pressMouse(drawing.area, kAt, MouseButton::Left, Modifiers::Control);
    EXPECT_TRUE(drawing.area.holdsMouse());
    backend->moveMouse(drawing.area, kThere);
    backend->releaseMouse(drawing.area, kThere, MouseButton::Left, Modifiers::Shift);
    EXPECT_FALSE(drawing.area.holdsMouse());
    backend->pressMouse(drawing.area, kAt, MouseButton::Middle);
    backend->releaseMouse(drawing.area, kAt, MouseButton::Middle);
    EXPECT_EQ(drawing.log, (Log{"move 300,450", "down 300,450 left control", "move 1500,900 left",
                                "up 1500,900 left shift", "down 300,450 middle", "up 300,450 middle"}));
}

TEST_F(Drawings, ADoubleClickTakesThePlaceOfTheSecondPress) {
    Drawing drawing(backend->desktop());
    drawing.form->show(Modality::Modeless);
    drawing.logMouse();
    backend->doubleClickAt(drawing.area, kAt);
    EXPECT_EQ(drawing.log,
              (Log{"down 300,450 left", "up 300,450 left", "double 300,450 left", "up 300,450 left"}));
}

TEST_F(Drawings, AButtonThatIsDownKeepsTheMouse) {
    Drawing drawing(backend->desktop());
    drawing.form->show(Modality::Modeless);
    drawing.logMouse();
    backend->pressMouse(drawing.area, kAt);
    backend->moveMouse(drawing.area, kOutside);
    backend->releaseMouse(drawing.area, kOutside);
    EXPECT_EQ(drawing.log, (Log{"down 300,450 left", "move -150,6000 left", "up -150,6000 left"}));
}

TEST_F(Drawings, AMouseThatIsTakenAwayIsToldOnce) {
    Drawing drawing(backend->desktop());
    drawing.form->show(Modality::Modeless);
    drawing.logMouse();
    backend->pressMouse(drawing.area, kAt);
    backend->loseMouse(drawing.area);
    EXPECT_FALSE(drawing.area.holdsMouse());
    backend->loseMouse(drawing.area);
    EXPECT_EQ(drawing.log, (Log{"down 300,450 left", "lost"}));
}

TEST_F(Drawings, TheWheelTurnsWhoeverHasTheFocus) {
    Drawing drawing(backend->desktop());
    drawing.form->show(Modality::Modeless);
    backend->settle();
    drawing.logMouse();
    backend->turnWheel(drawing.area, kAt, 120);
    drawing.area.focus();
    backend->turnWheel(drawing.area, kThere, -30, Modifiers::Control);
    EXPECT_EQ(drawing.log, (Log{"wheel 300,450 wheel 120", "wheel 1500,900 control wheel -30"}));
    EXPECT_EQ(drawing.form->focusedControl(), &drawing.area);
}

TEST_F(Drawings, AClickAndTabGiveTheFocusAndTabTakesIt) {
    Drawing drawing(backend->desktop());
    drawing.form->show(Modality::Modeless);
    backend->settle();
    backend->pressMouse(drawing.area, kAt);
    backend->releaseMouse(drawing.area, kAt);
    EXPECT_EQ(drawing.form->focusedControl(), &drawing.area);
    backend->press(*drawing.form, {ui::Key::Tab});
    EXPECT_EQ(drawing.form->focusedControl(), &drawing.after);
    backend->press(*drawing.form, {ui::Key::Tab, Modifiers::Shift});
    EXPECT_EQ(drawing.form->focusedControl(), &drawing.area);
    drawing.area.setTabStop(false);
}

TEST_F(Drawings, EveryKeyIsHeardAndWhatIsHandledStays) {
    Drawing drawing(backend->desktop());
    ui::Button& ok = drawing.form->add<ui::Button>(u"OK");
    drawing.form->setDefaultButton(&ok);
    drawing.form->show(Modality::Modeless);
    backend->settle();
    drawing.area.focus();
    int pressed = 0;
    ok.onClick.connect([&] { ++pressed; });
    std::vector<ui::Key> keys;
    bool handles = true;
    drawing.area.onKeyDown.connect([&](ui::KeyEvent& event) {
        keys.push_back(event.chord.key);
        event.handled = handles;
    });
    const std::vector<ui::Key> all = {ui::Key::Left,  ui::Key::Right, ui::Key::Up,   ui::Key::Down,
                                      ui::Key::Add,   ui::Key::Plus,  ui::Key::Home, ui::Key::Space,
                                      ui::Key::Minus, ui::Key::Enter, ui::Key::Tab};
    for (const ui::Key key : all)
        backend->press(*drawing.form, {key});
    EXPECT_EQ(keys, all);
    EXPECT_EQ(pressed, 0);
    EXPECT_EQ(drawing.form->focusedControl(), &drawing.area);
    handles = false;
    for (const ui::Key key : {ui::Key::Left, ui::Key::Space, ui::Key::Enter})
        backend->press(*drawing.form, {key});
    EXPECT_EQ(pressed, 1) << "Enter is the default button's";
    EXPECT_EQ(drawing.form->focusedControl(), &drawing.area);
}

TEST_F(Drawings, ItsTextIsItsName) {
    Drawing drawing(backend->desktop());
    drawing.form->show(Modality::Modeless);
    EXPECT_EQ(backend->seenText(drawing.area), u"Picture of the model");
}

TEST_F(Drawings, AnEventMayUnloadTheForm) {
    sweep([](Drawing& drawing) { drawing.form->unload(); });
}

TEST_F(Drawings, AnEventMayHideTheForm) {
    sweep([](Drawing& drawing) { drawing.form->hide(); });
}

TEST_F(Drawings, AnEventMayDropTheLastReference) {
    sweep([](Drawing& drawing) { drawing.form.reset(); });
}

TEST_F(Drawings, AnEventMayEndTheDrawingAlone) {
    sweep([](Drawing& drawing) { drawing.panel.clear(); });
}

TEST_F(Drawings, AnEventMayDisableIt) {
    sweep([](Drawing& drawing) { drawing.area.setEnabled(false); });
}

TEST_F(Drawings, ALineIsMeasuredInItsFont) {
    ui::Desktop& desktop = backend->desktop();
    const ui::Size small = desktop.textSize(u"wide & narrow", {.points = 8});
    const ui::Size large = desktop.textSize(u"wide & narrow", {.points = 24});
    EXPECT_NEAR(large.width.value, 3.0 * small.width.value, 0.35 * small.width.value);
    EXPECT_GT(large.height, small.height * 2);
    EXPECT_EQ(desktop.textSize(u"wide & narrow", {}), desktop.textSize(u"wide & narrow"));
    EXPECT_GT(desktop.textSize(u"a && b", {}).width, desktop.textSize(u"a & b", {}).width);
    EXPECT_EQ(desktop.textSize(u"", {.points = 24}).width, 0_tw);
}

}  // namespace quorel::conformance
