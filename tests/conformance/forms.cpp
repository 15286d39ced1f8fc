// Showing, hiding, unloading, closing, modal windows, peers.

#include <stdexcept>

#include "platform/automation/error.h"
#include "tests/conformance/window.h"

namespace quorel::conformance {

using namespace ui::literals;
using ui::Modality;

TEST_F(Conformance, LoadingShowsNothingAndMakesNoPeer) {
    Window window(backend->desktop());
    window.logEvents();
    window.form->load();
    window.form->load();
    backend->settle();
    EXPECT_EQ(window.log, Log{"load"});
    EXPECT_FALSE(backend->seesForm(*window.form));
    EXPECT_EQ(backend->peerCount(), 0U);
}

TEST_F(Conformance, ModelessShowReturnsAtOnceAndRaisesLoadOnly) {
    Window window(backend->desktop());
    window.logEvents();
    window.form->show(Modality::Modeless);
    backend->settle();
    EXPECT_TRUE(backend->seesForm(*window.form));
    EXPECT_TRUE(backend->seesControl(window.inner));
    EXPECT_EQ(window.log, Log{"load"});
}

TEST_F(Conformance, HidingKeepsThePeersUnloadingDropsThem) {
    Window window(backend->desktop());
    window.logEvents();
    window.form->show(Modality::Modeless);
    backend->settle();
    const std::size_t shown = backend->peerCount();
    EXPECT_EQ(shown, 11U);
    window.form->hide();
    backend->settle();
    EXPECT_FALSE(backend->seesForm(*window.form));
    EXPECT_EQ(backend->peerCount(), shown);
    window.form->unload();
    backend->settle();
    EXPECT_EQ(backend->peerCount(), 0U);
    window.form->unload();
    EXPECT_EQ(window.log, (Log{"load", "unload"}));
}

TEST_F(Conformance, AFormShowsItsStateAgainAfterUnloading) {
    Window window(backend->desktop());
    window.form->show(Modality::Modeless);
    backend->enterText(window.box, u"kept");
    backend->clickRow(window.list, 3);
    window.form->unload();
    backend->settle();
    EXPECT_EQ(window.box.text(), u"kept");
    window.logEvents();
    window.ok.setText(u"changed while unloaded");
    window.form->show(Modality::Modeless);
    backend->settle();
    EXPECT_EQ(window.log, Log{"load"});
    EXPECT_EQ(backend->seenText(window.box), u"kept");
    EXPECT_EQ(backend->seenText(window.ok), u"changed while unloaded");
    EXPECT_EQ(window.list.selectedRow(), 3U);
    backend->click(window.ok);
    EXPECT_EQ(window.log.back(), "ok click");
}

TEST_F(Conformance, PeersAreMadeForVisibleControlsOnly) {
    Window window(backend->desktop());
    window.panel.setVisible(false);
    window.ok.setVisible(false);
    window.form->show(Modality::Modeless);
    backend->settle();
    EXPECT_EQ(backend->peerCount(), 8U);
    EXPECT_FALSE(backend->seesControl(window.ok));
    window.panel.setVisible(true);
    window.ok.setVisible(true);
    backend->settle();
    EXPECT_EQ(backend->peerCount(), 11U);
    EXPECT_TRUE(backend->seesControl(window.inner));
    window.ok.setVisible(false);
    backend->settle();
    EXPECT_FALSE(backend->seesControl(window.ok));
    EXPECT_EQ(backend->peerCount(), 11U);
}

TEST_F(Conformance, AControlAddedToAShownFormAppears) {
    Window window(backend->desktop());
    window.form->show(Modality::Modeless);
    auto& late = window.form->add<ui::Button>(u"Late");
    late.setText(u"Late");
    late.setBounds({150_tw, 4500_tw, 1200_tw, 375_tw});
    int clicks = 0;
    late.onClick.connect([&] { ++clicks; });
    backend->settle();
    EXPECT_EQ(backend->seenText(late), u"Late");
    backend->click(late);
    EXPECT_EQ(clicks, 1);
}

TEST_F(Conformance, TheCloseBoxAsksThenUnloads) {
    Window window(backend->desktop());
    window.logEvents();
    window.form->show(Modality::Modeless);
    backend->closeBox(*window.form);
    EXPECT_EQ(window.log, (Log{"load", "query", "unload"}));
    EXPECT_FALSE(window.form->isLoaded());
    EXPECT_EQ(backend->peerCount(), 0U);
}

TEST_F(Conformance, AQueryMayKeepTheWindowOpen) {
    Window window(backend->desktop());
    window.logEvents();
    window.form->onQueryUnload.connect([](bool& keepOpen) { keepOpen = true; });
    window.form->show(Modality::Modeless);
    backend->closeBox(*window.form);
    EXPECT_EQ(window.log, (Log{"load", "query"}));
    EXPECT_TRUE(backend->seesForm(*window.form));
}

TEST_F(Conformance, AModalShowReturnsWhenTheFormIsHidden) {
    Window window(backend->desktop());
    bool wasModal = false;
    window.ok.onClick.connect([&] { window.form->hide(); });
    backend->duringModal([&](ui::Form& form) {
        wasModal = form.isModal() && backend->seesForm(form);
        backend->enterText(window.box, u"typed");
        backend->click(window.ok);
    });
    window.form->show(Modality::Modal);
    EXPECT_TRUE(wasModal);
    EXPECT_FALSE(window.form->isModal());
    EXPECT_TRUE(window.form->isLoaded());
    EXPECT_FALSE(backend->seesForm(*window.form));
    EXPECT_EQ(window.box.text(), u"typed");
}

TEST_F(Conformance, AModalShowReturnsWhenTheFormIsClosed) {
    Window window(backend->desktop());
    window.logEvents();
    backend->duringModal([&](ui::Form& form) { backend->closeBox(form); });
    window.form->show(Modality::Modal);
    EXPECT_EQ(window.log, (Log{"load", "query", "unload"}));
    EXPECT_FALSE(window.form->isModal());
}

TEST_F(Conformance, AFormCanBeShownModallyAgainAndAgain) {
    Window window(backend->desktop());
    int shows = 0;
    window.ok.onClick.connect([&] { window.form->hide(); });
    for (int round = 0; round < 3; ++round) {
        backend->duringModal([&](ui::Form&) {
            ++shows;
            backend->click(window.ok);
        });
        window.form->show(Modality::Modal);
    }
    EXPECT_EQ(shows, 3);
}

TEST_F(Conformance, AVisibleFormCannotBeShownModally) {
    Window window(backend->desktop());
    window.form->show(Modality::Modeless);
    try {
        window.form->show(Modality::Modal);
        FAIL() << "no error";
    } catch (const automation::Error& error) {
        EXPECT_EQ(error.number(), 400);
    }
    EXPECT_TRUE(backend->seesForm(*window.form));
}

TEST_F(Conformance, AModalWindowTakesTheInputOfTheOthers) {
    Window other(backend->desktop());
    other.form->show(Modality::Modeless);
    Window window(backend->desktop());
    bool refused = false;
    backend->duringModal([&](ui::Form& form) {
        try {
            backend->click(other.ok);
        } catch (const std::runtime_error&) {
            refused = true;
        }
        backend->closeBox(form);
    });
    window.form->show(Modality::Modal);
    EXPECT_TRUE(refused);
    other.logEvents();
    backend->click(other.ok);
    EXPECT_EQ(other.log.back(), "ok click");
}

TEST_F(Conformance, ModalWindowsNest) {
    Window outer(backend->desktop());
    Window nested(backend->desktop());
    Log order;
    nested.ok.onClick.connect([&] {
        order.emplace_back("nested ok");
        nested.form->hide();
    });
    outer.ok.onClick.connect([&] {
        backend->duringModal([&](ui::Form&) { backend->click(nested.ok); });
        nested.form->show(Modality::Modal);
        order.emplace_back("nested returned");
        outer.form->hide();
    });
    backend->duringModal([&](ui::Form&) { backend->click(outer.ok); });
    outer.form->show(Modality::Modal);
    order.emplace_back("outer returned");
    EXPECT_EQ(order, (Log{"nested ok", "nested returned", "outer returned"}));
}

TEST_F(Conformance, PostedTasksRunInOrderAfterTheHandlerAndInModalLoopsToo) {
    Window window(backend->desktop());
    Log order;
    window.ok.onClick.connect([&] {
        backend->desktop().post([&] { order.emplace_back("first task"); });
        backend->desktop().post([&] {
            order.emplace_back("second task");
            window.form->hide();
        });
        order.emplace_back("handler ends");
    });
    backend->duringModal([&](ui::Form&) { backend->click(window.ok); });
    window.form->show(Modality::Modal);
    EXPECT_EQ(order, (Log{"handler ends", "first task", "second task"}));
}

TEST_F(Conformance, AResizeByTheUserIsRaisedOnceWithTheNewSize) {
    Window window(backend->desktop());
    window.form->setMinimumClientSize({3000_tw, 3000_tw});
    window.form->show(Modality::Modeless);
    backend->settle();
    window.logEvents();
    backend->resize(*window.form, {9000_tw, 7500_tw});
    EXPECT_EQ(window.log, Log{"resize"});
    EXPECT_EQ(window.form->clientSize(), (ui::Size{9000_tw, 7500_tw}));
    backend->resize(*window.form, {1500_tw, 1500_tw});
    EXPECT_EQ(window.form->clientSize(), (ui::Size{3000_tw, 3000_tw}));
}

TEST_F(Conformance, ASizeThatIsSetIsRaisedOnce) {
    Window window(backend->desktop());
    window.form->show(Modality::Modeless);
    backend->settle();
    window.logEvents();
    window.form->setClientSize({9000_tw, 7500_tw});
    backend->settle();
    EXPECT_EQ(window.log, Log{"resize"});
    EXPECT_EQ(window.form->clientSize(), (ui::Size{9000_tw, 7500_tw}));
}

}  // namespace quorel::conformance
