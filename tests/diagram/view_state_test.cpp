#include "diagram/view_state.h"

#include <gtest/gtest.h>

namespace quorel::diagram {
namespace {

using ui::Point;
using ui::Rect;
using namespace ui::literals;

constexpr Rect kDrawing{0_tw, 0_tw, 40000_tw, 20000_tw};
constexpr ui::Size kWindow{10000_tw, 8000_tw};

[[nodiscard]] ViewState fitted() {
    ViewState view;
    view.setExtent(kDrawing);
    view.setWindow(kWindow);
    view.fit();
    return view;
}

/// Points agree up to the rounding to twips at that scale.
void expectNear(Point a, Point b, std::int32_t within) {
    EXPECT_NEAR(a.x.value, b.x.value, within);
    EXPECT_NEAR(a.y.value, b.y.value, within);
}

TEST(ViewState, FitShowsTheWholeDrawingInTheMiddle) {
    const ViewState view = fitted();
    EXPECT_DOUBLE_EQ(view.scale(), 0.25);
    EXPECT_EQ(view.toWindow(kDrawing), (Rect{0_tw, 1500_tw, 10000_tw, 5000_tw}));
    EXPECT_EQ(view.middle(), (Point{20000_tw, 10000_tw}));
}

TEST(ViewState, FitEnlargesNothing) {
    ViewState view;
    view.setWindow(kWindow);
    view.setExtent({0_tw, 0_tw, 2000_tw, 1000_tw});
    view.fit();
    EXPECT_DOUBLE_EQ(view.scale(), 1);
    EXPECT_EQ(view.toWindow(view.extent()), (Rect{4000_tw, 3500_tw, 2000_tw, 1000_tw}));
}

TEST(ViewState, WhatIsUnderTheMouseStaysThereWhileItGrows) {
    ViewState view = fitted();
    const Point at{2500_tw, 3000_tw};
    const Point under = view.toDrawing(at);
    for (int i = 0; i < 5; ++i)
        view.zoomAbout(at, ViewState::kStep);
    expectNear(view.toWindow(under), at, 1);
    EXPECT_GT(view.scale(), 0.7);
}

TEST(ViewState, ScalesHaveLimits) {
    ViewState view = fitted();
    for (int i = 0; i < 40; ++i)
        view.zoom(ViewState::kStep);
    EXPECT_DOUBLE_EQ(view.scale(), ViewState::kLargest);
    for (int i = 0; i < 40; ++i)
        view.zoom(1 / ViewState::kStep);
    EXPECT_DOUBLE_EQ(view.scale(), ViewState::kSmallest);
    // A drawing that is larger than that can still be seen as a whole.
    view.setExtent({0_tw, 0_tw, 1000000_tw, 1000_tw});
    view.fit();
    EXPECT_DOUBLE_EQ(view.scale(), 0.01);
    view.zoom(0.5);
    EXPECT_DOUBLE_EQ(view.scale(), 0.01);
}

TEST(ViewState, AStepThatPassesOneStopsThere) {
    ViewState view = fitted();
    view.setScale(0.9);
    view.zoom(ViewState::kStep);
    EXPECT_DOUBLE_EQ(view.scale(), 1);
    view.zoom(ViewState::kStep);
    EXPECT_DOUBLE_EQ(view.scale(), 1.25);
    view.setScale(1.1);
    view.zoom(1 / ViewState::kStep);
    EXPECT_DOUBLE_EQ(view.scale(), 1);
}

TEST(ViewState, PanningMovesByTheWindowsLengthsAndNeverLosesTheDrawing) {
    ViewState view = fitted();
    view.panBy({1000_tw, -500_tw});
    EXPECT_EQ(view.middle(), (Point{16000_tw, 12000_tw}));
    view.panBy({100000_tw, 100000_tw});
    EXPECT_EQ(view.middle(), (Point{0_tw, 0_tw}));
    view.panBy({-2000000000_tw, -2000000000_tw});
    EXPECT_EQ(view.middle(), (Point{40000_tw, 20000_tw}));
}

TEST(ViewState, ResizingKeepsTheMiddle) {
    ViewState view = fitted();
    view.setScale(1);
    view.centreOn(Point{12345_tw, 6789_tw});
    view.setWindow({3000_tw, 20000_tw});
    EXPECT_EQ(view.middle(), (Point{12345_tw, 6789_tw}));
    EXPECT_EQ(view.toWindow(Point{12345_tw, 6789_tw}), (Point{1500_tw, 10000_tw}));
}

TEST(ViewState, RevealMovesNoMoreThanNeeded) {
    ViewState view = fitted();
    view.setScale(1);
    view.centreOn(Point{20000_tw, 10000_tw});
    view.reveal({19000_tw, 9000_tw, 1000_tw, 1000_tw});
    EXPECT_EQ(view.middle(), (Point{20000_tw, 10000_tw}));
    view.reveal({25000_tw, 9000_tw, 1000_tw, 1000_tw});
    EXPECT_EQ(view.middle(), (Point{21000_tw, 10000_tw}));
    view.reveal({20000_tw, 4000_tw, 1000_tw, 1000_tw});
    EXPECT_EQ(view.middle(), (Point{21000_tw, 8000_tw}));
    // Of what is too large its beginning is seen.
    view.reveal({10000_tw, 8000_tw, 20000_tw, 1000_tw});
    EXPECT_EQ(view.middle(), (Point{15000_tw, 8000_tw}));
}

TEST(ViewState, PointsGoThereAndBack) {
    ViewState view = fitted();
    for (const double scale : {0.1, 0.33, 1.0, 4.0}) {
        view.setScale(scale);
        view.centreOn(Point{11111_tw, 7777_tw});
        for (const Point at : {Point{0_tw, 0_tw}, Point{9999_tw, 1_tw}, Point{4321_tw, 7999_tw}})
            expectNear(view.toWindow(view.toDrawing(at)), at, 3);
    }
}

TEST(ViewState, ItsCanvasViewBeginsAtTheClip) {
    ViewState view = fitted();
    const ui::CanvasView canvas = view.canvasView({5000_tw, 4000_tw, 100_tw, 100_tw});
    EXPECT_EQ(canvas.origin, (Point{20000_tw, 10000_tw}));
    EXPECT_DOUBLE_EQ(canvas.scale, 0.25);
    EXPECT_EQ(canvas.clip, (Rect{5000_tw, 4000_tw, 100_tw, 100_tw}));
    EXPECT_EQ(view.seen(), (Rect{0_tw, -6000_tw, 40000_tw, 32000_tw}));
}

TEST(ViewState, NothingAndNoWindowDoNoHarm) {
    ViewState view;
    view.fit();
    view.zoom(2);
    view.panBy({500_tw, 500_tw});
    view.setWindow({0_tw, 0_tw});
    view.reveal({0_tw, 0_tw, 10_tw, 10_tw});
    EXPECT_EQ(view.middle(), Point{});
    EXPECT_EQ(view.seen(), Rect{});
}

}  // namespace
}  // namespace quorel::diagram
