// Everything made is destroyed, whenever the end comes.

#include <stdexcept>

#include "platform/win32/ui/services.h"
#include "tests/platform/win32/ui/windows_fixture.h"

namespace quorel::win32::testing {

using Lifetimes = WindowsTest;

TEST_F(Lifetimes, AThousandShowsAndDestroysLeaveNothing) {
    const auto cycle = [this](bool unload) {
        const auto form = std::make_shared<ui::Form>(*desktop, u"frmCycle");
        form->setClientSize({{3000}, {2000}});
        form->menuBar().add(u"mnuOne", u"&One").add(u"mnuTwo", u"&Two");
        form->add<ui::TextBox>(u"Box").setToolTip(u"tip");
        form->add<ui::VirtualList>(u"List").setColumns({{u"Column", {900}}});
        form->add<ui::Button>(u"Button").setPicture(disc(8, {1, 2, 3}));
        form->add<ui::Panel>(u"Panel").add<ui::PictureBox>(u"Picture").setPicture(disc(8, {1, 2, 3}));
        form->show(ui::Modality::Modeless);
        if (unload)
            form->unload();
    };
    cycle(true);
    const LiveCounts clean = liveCounts();
    for (int round = 0; round < 1000; ++round) {
        cycle(round % 2 == 0);
        EXPECT_EQ(liveCounts(), clean);
    }
}

TEST_F(Lifetimes, ALeakOfEachKindIsNoticed) {
    const LiveCounts clean = liveCounts();
    const HWND other =
        ::CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, nullptr, nullptr, nullptr, nullptr);
    EXPECT_EQ(liveCounts(), clean);
    ::DestroyWindow(other);

    CountedBitmap bitmap = counted<CountedBitmap>(::CreateBitmap(4, 4, 1, 32, nullptr), Counted::GdiObject);
    EXPECT_EQ(liveCounts().gdiObjects, clean.gdiObjects + 1);
    const HBITMAP leaked = bitmap.release();
    EXPECT_NE(liveCounts(), clean);
    bitmap = CountedBitmap(leaked);
    bitmap.reset();
    EXPECT_EQ(liveCounts(), clean);

    auto forgotten = std::make_unique<Gallery>(*desktop);
    forgotten->form->show(ui::Modality::Modeless);
    pump();
    EXPECT_GE(liveCounts().windows, clean.windows + 12);
    EXPECT_EQ(liveCounts().hooks, clean.hooks + 1);
    EXPECT_EQ(liveCounts().menus, clean.menus + 1);
    forgotten.reset();
    EXPECT_EQ(liveCounts().windows, clean.windows);
    EXPECT_EQ(liveCounts().hooks, clean.hooks);
}

TEST_F(Lifetimes, AWindowClosedByItsOwnHandlerIsHiddenAtOnceAndGoesWhenTheHandlerHasReturned) {
    Gallery gallery(*desktop);
    gallery.form->show(ui::Modality::Modeless);
    pump();
    const HWND form = windowFor(*gallery.form);
    bool hidden = false, stillThere = false;
    gallery.ok->onClick.connect([&] {
        gallery.form->unload();
        hidden = ::IsWindowVisible(form) == FALSE;
        stillThere = ::IsWindow(form) != FALSE;
    });
    click(windowFor(*gallery.ok), {10, 10});
    EXPECT_TRUE(hidden);
    EXPECT_TRUE(stillThere);
    EXPECT_EQ(::IsWindow(form), FALSE);
}

TEST_F(Lifetimes, AnExceptionOutOfAHandlerEndsInTheProcedure) {
    Gallery gallery(*desktop);
    gallery.form->show(ui::Modality::Modeless);
    pump();
    int clicks = 0;
    gallery.ok->onClick.connect([&] {
        ++clicks;
        throw std::runtime_error("nobody caught this");
    });
    click(windowFor(*gallery.ok), {10, 10});
    click(windowFor(*gallery.ok), {10, 10});
    EXPECT_EQ(clicks, 2);
    expectedStrays = 2;
}

TEST_F(Lifetimes, AWindowDestroyedFromOutsideLeavesAFormThatCanBeShownAgain) {
    Gallery gallery(*desktop);
    gallery.form->show(ui::Modality::Modeless);
    pump();
    ::DestroyWindow(windowFor(*gallery.form));
    gallery.box->setText(u"still here");
    gallery.form->unload();
    gallery.form->show(ui::Modality::Modeless);
    pump();
    EXPECT_EQ(textOf(windowFor(*gallery.box)), u"still here");
}

using PostedTasks = WindowsTest;

TEST_F(PostedTasks, AreDroppedWithTheDesktop) {
    auto token = std::make_shared<int>(1);
    desktop->post([token] { FAIL() << "the desktop is gone"; });
    EXPECT_FALSE(desktop->isIdle());
    desktop.reset();
    EXPECT_EQ(token.use_count(), 1);
    pump();
}

TEST_F(PostedTasks, WaitForTheHandlerThatPostedThemEvenIfItRunsALoop) {
    Gallery gallery(*desktop);
    gallery.form->show(ui::Modality::Modeless);
    pump();
    std::vector<int> order;
    gallery.ok->onClick.connect([&] {
        desktop->post([&] { order.push_back(2); });
        pump();
        order.push_back(1);
    });
    click(windowFor(*gallery.ok), {10, 10});
    EXPECT_EQ(order, (std::vector<int>{1, 2}));
    EXPECT_TRUE(desktop->isIdle());
}

TEST_F(PostedTasks, MayPostMoreAndMayFail) {
    int runs = 0;
    desktop->post([&] {
        ++runs;
        desktop->post([&] { ++runs; });
        throw std::runtime_error("a task that fails");
    });
    pump();
    EXPECT_EQ(runs, 2);
    expectedStrays = 1;
}

TEST_F(PostedTasks, ThemedControlsComeFromTheModulesOwnManifest) {
    EXPECT_TRUE(desktop->services()->controls.isThemed());
}

}  // namespace quorel::win32::testing
