// A handler may unload, hide or destroy the window inside any event.

#include <functional>
#include <utility>

#include "tests/conformance/window.h"

namespace quorel::conformance {

using ui::Key;
using ui::Modality;

namespace {

/// An event: how to hear it and what the user does to raise it.
struct Trigger {
    const char* name;
    std::function<void(Window&, std::function<void()>)> connect;
    std::function<void(Backend&, Window&)> act;
    bool endsInUnload = false;
};

using Handler = std::function<void()>;

[[nodiscard]] std::vector<Trigger> controlTriggers() {
    return {
        {"button click", [](Window& w, Handler h) { w.ok.onClick.connect(h); },
         [](Backend& b, Window& w) { b.click(w.ok); }},
        {"picture click", [](Window& w, Handler h) { w.picture.onClick.connect(h); },
         [](Backend& b, Window& w) { b.click(w.picture); }},
        {"text change", [](Window& w, Handler h) { w.box.onChange.connect(h); },
         [](Backend& b, Window& w) { b.enterText(w.box, u"x"); }},
        {"got focus", [](Window& w, Handler h) { w.ok.onGotFocus.connect(h); },
         [](Backend& b, Window& w) { b.click(w.ok); }},
        {"lost focus", [](Window& w, Handler h) { w.box.onLostFocus.connect(h); },
         [](Backend& b, Window& w) { b.click(w.ok); }},
        {"lost focus by Tab", [](Window& w, Handler h) { w.box.onLostFocus.connect(h); },
         [](Backend& b, Window& w) { b.press(*w.form, {Key::Tab}); }},
        {"key of a control",
         [](Window& w, Handler h) { w.box.onKeyDown.connect([h](ui::KeyEvent&) { h(); }); },
         [](Backend& b, Window& w) { b.press(*w.form, {Key::F5}); }},
        {"key of the form",
         [](Window& w, Handler h) { w.form->onKeyDown.connect([h](ui::KeyEvent&) { h(); }); },
         [](Backend& b, Window& w) { b.press(*w.form, {Key::F5}); }},
        {"default button",
         [](Window& w, Handler h) {
             w.form->setDefaultButton(&w.ok);
             w.ok.onClick.connect(h);
         },
         [](Backend& b, Window& w) { b.press(*w.form, {Key::Enter}); }},
    };
}

[[nodiscard]] std::vector<Trigger> listTriggers() {
    return {
        {"select", [](Window& w, Handler h) { w.list.onSelect.connect(h); },
         [](Backend& b, Window& w) { b.clickRow(w.list, 1); }},
        {"activate", [](Window& w, Handler h) { w.list.onActivate.connect(h); },
         [](Backend& b, Window& w) { b.doubleClickRow(w.list, 1); }},
        {"select of a double click", [](Window& w, Handler h) { w.list.onSelect.connect(h); },
         [](Backend& b, Window& w) { b.doubleClickRow(w.list, 1); }},
        {"column click",
         [](Window& w, Handler h) { w.list.onColumnClick.connect([h](std::size_t) { h(); }); },
         [](Backend& b, Window& w) { b.clickColumn(w.list, 0); }},
        {"find",
         [](Window& w, Handler h) {
             w.list.onFind.connect(
                 [h](const std::u16string&, std::size_t, std::optional<std::size_t>&) { h(); });
         },
         [](Backend& b, Window& w) {
             w.list.focus();
             b.typeToFind(w.list, u"r");
         }},
        {"cell text", [](Window& w, Handler h) { w.rows.whenAsked = h; },
         [](Backend& b, Window& w) { static_cast<void>(b.seenCell(w.list, 0, 0)); }},
    };
}

[[nodiscard]] std::vector<Trigger> windowTriggers() {
    return {
        {"menu entry", [](Window& w, Handler h) { w.create.onClick.connect(h); },
         [](Backend& b, Window& w) { b.chooseMenu(*w.form, u"mnuNew"); }},
        {"menu shortcut", [](Window& w, Handler h) { w.create.onClick.connect(h); },
         [](Backend& b, Window& w) {
             b.press(*w.form, {ui::key('N'), ui::Modifiers::Control});
         }},
        {"context menu entry",
         [](Window& w, Handler h) { w.list.contextMenu().find(u"mnuCopy")->onClick.connect(h); },
         [](Backend& b, Window& w) { b.chooseContextMenu(w.list, u"mnuCopy"); }},
        {"resize", [](Window& w, Handler h) { w.form->onResize.connect(h); },
         [](Backend& b, Window& w) {
             b.resize(*w.form, {{9000}, {9000}});
         }},
        {"splitter", [](Window& w, Handler h) { w.splitter.onMove.connect([h](ui::Twips) { h(); }); },
         [](Backend& b, Window& w) { b.dragSplitter(w.splitter, ui::Twips{3000}); }},
        {"query unload", [](Window& w, Handler h) { w.form->onQueryUnload.connect([h](bool&) { h(); }); },
         [](Backend& b, Window& w) { b.closeBox(*w.form); }, true},
        {"unload", [](Window& w, Handler h) { w.form->onUnload.connect(h); },
         [](Backend& b, Window& w) { b.closeBox(*w.form); }, true},
    };
}

[[nodiscard]] std::vector<Trigger> triggers() {
    std::vector<Trigger> all = controlTriggers();
    for (const std::vector<Trigger>& more : {listTriggers(), windowTriggers()})
        all.insert(all.end(), more.begin(), more.end());
    return all;
}

}  // namespace

class Reentrancy : public Conformance {
  protected:
    /// Runs `whenHeard` inside each event in turn, on a fresh window, and looks at the result.
    void sweep(const std::function<void(Window&)>& whenHeard,
               const std::function<void(const Trigger&, Window&)>& look) {
        for (const Trigger& trigger : triggers()) {
            SCOPED_TRACE(trigger.name);
            Window window(backend->desktop());
            window.form->show(Modality::Modeless);
            backend->settle();
            bool heard = false;
            trigger.connect(window, [&] {
                if (std::exchange(heard, true))
                    return;
                whenHeard(window);
            });
            trigger.act(*backend, window);
            backend->settle();
            EXPECT_TRUE(heard);
            look(trigger, window);
        }
    }
};

TEST_F(Reentrancy, AnEventMayUnloadTheForm) {
    sweep([](Window& window) { window.form->unload(); },
          [this](const Trigger&, Window& window) {
              EXPECT_FALSE(window.form->isLoaded());
              EXPECT_EQ(backend->peerCount(), 0U);
              window.form->show(Modality::Modeless);
              backend->settle();
              EXPECT_TRUE(backend->seesForm(*window.form));
          });
}

TEST_F(Reentrancy, AnEventMayHideTheForm) {
    sweep([](Window& window) { window.form->hide(); },
          [this](const Trigger& trigger, Window& window) {
              EXPECT_EQ(window.form->isLoaded(), !trigger.endsInUnload);
              EXPECT_FALSE(backend->seesForm(*window.form));
          });
}

TEST_F(Reentrancy, AnEventMayDropTheLastReference) {
    sweep([](Window& window) { window.form.reset(); },
          [this](const Trigger&, Window&) { EXPECT_EQ(backend->peerCount(), 0U); });
}

TEST_F(Reentrancy, AnEventMayUnloadAndDropTheForm) {
    sweep(
        [](Window& window) {
            window.form->unload();
            window.form.reset();
        },
        [this](const Trigger&, Window&) { EXPECT_EQ(backend->peerCount(), 0U); });
}

TEST_F(Reentrancy, AModalFormMayBeDroppedInsideItsEvents) {
    Window window(backend->desktop());
    window.ok.onClick.connect([&] {
        window.form->unload();
        window.form.reset();
    });
    backend->duringModal([&](ui::Form&) { backend->click(window.ok); });
    window.form->show(Modality::Modal);
    backend->settle();
    EXPECT_EQ(window.form, nullptr);
    EXPECT_EQ(backend->peerCount(), 0U);
}

TEST_F(Reentrancy, UnloadingInsideUnloadHappensOnce) {
    Window window(backend->desktop());
    window.logEvents();
    window.form->onUnload.connect([&] { window.form->unload(); });
    window.form->show(Modality::Modeless);
    backend->closeBox(*window.form);
    EXPECT_EQ(window.log, (Log{"load", "query", "unload"}));
}

TEST_F(Reentrancy, LoadMayUnload) {
    Window window(backend->desktop());
    window.form->onLoad.connect([&] { window.form->unload(); });
    window.form->show(Modality::Modeless);
    backend->settle();
    EXPECT_FALSE(backend->seesForm(*window.form));
    EXPECT_EQ(backend->peerCount(), 0U);
}

}  // namespace quorel::conformance
