// The cells of a list: where they are, clicks on them, their tool tips, a control over one of them.

#include <optional>

#include "tests/conformance/window.h"

namespace quorel::conformance {

using namespace ui::literals;
using ui::CellIndex;
using ui::Key;
using ui::Modality;

namespace {

/// One pixel at 96 dots per inch, by which rounding may differ.
constexpr std::int32_t kPixel = 15;

class ToldRows final : public ui::RowSource {
  public:
    [[nodiscard]] std::size_t rowCount() const override { return 5; }
    [[nodiscard]] std::u16string cellText(std::size_t, std::size_t) override { return u"cell"; }
    [[nodiscard]] std::u16string cellToolTip(std::size_t row, std::size_t column) override {
        return row == 1 && column == 1 ? u"What row 1 is for" : u"";
    }
};

[[nodiscard]] std::int32_t apart(ui::Twips a, ui::Twips b) {
    return std::abs(a.value - b.value);
}

}  // namespace

TEST_F(Conformance, CellsStandSideBySideInsideTheirList) {
    Window window(backend->desktop());
    EXPECT_EQ(window.list.cellBounds({0, 0}), std::nullopt);
    window.form->show(Modality::Modeless);
    backend->settle();
    const ui::Rect first = window.list.cellBounds({0, 0}).value();
    const ui::Rect right = window.list.cellBounds({0, 1}).value();
    const ui::Rect below = window.list.cellBounds({1, 0}).value();
    EXPECT_LE(apart(first.right(), right.left), kPixel);
    EXPECT_LE(apart(first.bottom(), below.top), kPixel);
    EXPECT_EQ(first.top, right.top);
    EXPECT_EQ(first.left, below.left);
    EXPECT_LE(apart(first.width, window.list.columns()[0].width), kPixel);
    EXPECT_LE(apart(right.width, window.list.columns()[1].width), kPixel);
    EXPECT_GT(first.height, 150_tw);
    EXPECT_GE(first.left, window.list.bounds().left);
    EXPECT_GT(first.top, window.list.bounds().top);
    EXPECT_EQ(window.list.cellBounds({99, 0}), std::nullopt);
    EXPECT_EQ(window.list.cellBounds({100, 0}), std::nullopt);
    EXPECT_EQ(window.list.cellBounds({0, 2}), std::nullopt);
    window.list.setVisible(false);
    EXPECT_EQ(window.list.cellBounds({0, 0}), std::nullopt);
}

TEST_F(Conformance, ScrollingByTheUserMovesCellsAndSaysSo) {
    Window window(backend->desktop());
    window.form->show(Modality::Modeless);
    backend->settle();
    const ui::Rect first = window.list.cellBounds({0, 0}).value();
    int moves = 0;
    std::optional<ui::Rect> whenMoved = first;
    window.list.onCellsMoved.connect([&] {
        ++moves;
        whenMoved = window.list.cellBounds({0, 0});
    });
    window.logEvents();
    backend->pageDown(window.list);
    EXPECT_GE(moves, 1);
    EXPECT_EQ(whenMoved, std::nullopt);
    EXPECT_EQ(window.log, Log{});
    EXPECT_EQ(window.list.selectedRow(), std::nullopt);
}

TEST_F(Conformance, ARowIsBroughtIntoViewWithoutSelectingOrTelling) {
    Window window(backend->desktop());
    window.form->show(Modality::Modeless);
    backend->settle();
    int moves = 0;
    window.list.onCellsMoved.connect([&] { ++moves; });
    window.list.ensureVisible(60);
    backend->settle();
    EXPECT_TRUE(window.list.cellBounds({60, 0}).has_value());
    EXPECT_EQ(window.list.cellBounds({0, 0}), std::nullopt);
    EXPECT_EQ(window.list.selectedRow(), std::nullopt);
    window.list.ensureVisible(1'000);
    window.list.ensureVisible(0);
    backend->settle();
    EXPECT_TRUE(window.list.cellBounds({0, 0}).has_value());
    EXPECT_EQ(moves, 0);
}

TEST_F(Conformance, ACellIsBroughtIntoViewSideways) {
    Window window(backend->desktop());
    window.list.setColumns({{u"wide", 3600_tw}, {u"hidden", 3000_tw}});
    window.form->show(Modality::Modeless);
    backend->settle();
    EXPECT_LT(window.list.cellBounds({2, 1}).value().width, 1500_tw);
    window.list.ensureVisible(CellIndex{2, 1});
    backend->settle();
    EXPECT_LE(apart(window.list.cellBounds({2, 1}).value().width, 3000_tw), kPixel);
    window.list.ensureVisible(CellIndex{2, 0});
    backend->settle();
    EXPECT_LE(apart(window.list.cellBounds({2, 0}).value().width, 3600_tw), kPixel);
}

TEST_F(Conformance, AKeyThatSelectsOutOfSightMovesTheCellsFirst) {
    Window window(backend->desktop());
    window.form->show(Modality::Modeless);
    backend->clickRow(window.list, 0);
    window.list.onCellsMoved.connect([&] { window.log.emplace_back("moved"); });
    window.list.onSelect.connect([&] { window.log.emplace_back("select"); });
    backend->press(*window.form, {Key::End});
    EXPECT_EQ(window.log, (Log{"moved", "select"}));
    EXPECT_TRUE(window.list.cellBounds({99, 0}).has_value());
}

TEST_F(Conformance, AClickTellsItsCellAfterTheSelection) {
    Window window(backend->desktop());
    window.form->show(Modality::Modeless);
    backend->click(window.box);
    std::optional<CellIndex> clicked;
    window.list.onCellClick.connect([&](CellIndex cell) {
        clicked = cell;
        window.log.emplace_back("cell");
    });
    window.list.onSelect.connect([&] { window.log.emplace_back("select"); });
    backend->clickCell(window.list, {3, 1});
    EXPECT_EQ(clicked, (CellIndex{3, 1}));
    EXPECT_EQ(window.log, (Log{"select", "cell"}));
    backend->clickCell(window.list, {0, 0});
    EXPECT_EQ(clicked, (CellIndex{0, 0}));
    backend->press(*window.form, {Key::Down});
    EXPECT_EQ(window.log, (Log{"select", "cell", "select", "cell", "select"}));
}

TEST_F(Conformance, AColumnThatTheUserWidensMovesCells) {
    Window window(backend->desktop());
    window.form->show(Modality::Modeless);
    backend->settle();
    const ui::Twips before = window.list.cellBounds({0, 1}).value().left;
    window.list.onColumnResize.connect([&](std::size_t) { window.log.emplace_back("resized"); });
    window.list.onCellsMoved.connect([&] { window.log.emplace_back("moved"); });
    backend->resizeColumn(window.list, 0, 2300_tw);
    ASSERT_GE(window.log.size(), 2U);
    EXPECT_EQ(window.log[0], "resized");
    EXPECT_EQ(window.log[1], "moved");
    EXPECT_LE(apart(window.list.cellBounds({0, 1}).value().left, before + 300_tw), kPixel);
}

TEST_F(Conformance, ACellHasItsOwnToolTipOrTheLists) {
    ToldRows rows;
    Window window(backend->desktop());
    window.list.setSource(&rows);
    window.form->show(Modality::Modeless);
    backend->settle();
    EXPECT_EQ(backend->seenToolTip(window.list, {0, 0}), u"");
    EXPECT_EQ(backend->seenToolTip(window.list, {1, 1}), u"What row 1 is for");
    EXPECT_EQ(backend->seenToolTip(window.list, {1, 0}), u"");
    window.list.setToolTip(u"A list");
    EXPECT_EQ(backend->seenToolTip(window.list, {1, 1}), u"What row 1 is for");
    EXPECT_EQ(backend->seenToolTip(window.list, {2, 0}), u"A list");
    window.list.setSource(nullptr);
}

TEST_F(Conformance, ARaisedControlOverACellCanBeUsed) {
    Window window(backend->desktop());
    ui::TextBox& editor = window.form->add<ui::TextBox>(u"Editor");
    editor.setRaised(true);
    editor.setVisible(false);
    window.form->show(Modality::Modeless);
    backend->clickCell(window.list, {2, 1});
    editor.setBounds(window.list.cellBounds({2, 1}).value());
    editor.setVisible(true);
    editor.focus();
    backend->settle();
    EXPECT_TRUE(backend->seesOnTop(editor));
    EXPECT_EQ(window.form->focusedControl(), &editor);
    backend->enterText(editor, u"typed");
    EXPECT_EQ(editor.text(), u"typed");
    window.list.focus();
    editor.setVisible(false);
    backend->settle();
    EXPECT_FALSE(backend->seesControl(editor));
    EXPECT_EQ(window.form->focusedControl(), &window.list);
}

}  // namespace quorel::conformance
