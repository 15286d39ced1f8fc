// The virtual list.

#include <stdexcept>

#include "tests/conformance/window.h"

namespace quorel::conformance {

using ui::Key;
using ui::Modality;

TEST_F(Conformance, AClickSelectsAndAClickOnTheSelectedRowSelectsAgain) {
    Window window(backend->desktop());
    window.form->show(Modality::Modeless);
    window.logEvents();
    backend->clickRow(window.list, 2);
    EXPECT_EQ(window.log, (Log{"box lost", "select"}));
    EXPECT_EQ(window.list.selectedRow(), 2U);
    backend->clickRow(window.list, 2);
    EXPECT_EQ(window.log, (Log{"box lost", "select", "select"}));
    backend->clickRow(window.list, 4);
    EXPECT_EQ(window.list.selectedRow(), 4U);
    EXPECT_EQ(window.log.size(), 4U);
}

TEST_F(Conformance, ADoubleClickSelectsThenActivates) {
    Window window(backend->desktop());
    window.form->show(Modality::Modeless);
    backend->click(window.box);
    window.logEvents();
    backend->doubleClickRow(window.list, 1);
    EXPECT_EQ(window.log, (Log{"box lost", "select", "activate"}));
}

TEST_F(Conformance, AClickBelowTheRowsTakesTheSelectionAwayInSilence) {
    Window window(backend->desktop());
    window.rows.count = 3;
    window.list.rowsChanged();
    window.form->show(Modality::Modeless);
    backend->clickRow(window.list, 1);
    window.logEvents();
    backend->clickBelowRows(window.list);
    EXPECT_EQ(window.list.selectedRow(), std::nullopt);
    EXPECT_EQ(window.log, Log{});
}

TEST_F(Conformance, ARowThatIsNotThereCannotBeClicked) {
    Window window(backend->desktop());
    window.rows.count = 3;
    window.list.rowsChanged();
    window.form->show(Modality::Modeless);
    EXPECT_THROW(backend->clickRow(window.list, 3), std::runtime_error);
}

TEST_F(Conformance, ArrowKeysSelectAndEnterActivates) {
    Window window(backend->desktop());
    window.form->show(Modality::Modeless);
    backend->clickRow(window.list, 0);
    window.logEvents();
    backend->press(*window.form, {Key::Down});
    EXPECT_EQ(window.list.selectedRow(), 1U);
    backend->press(*window.form, {Key::End});
    EXPECT_EQ(window.list.selectedRow(), 99U);
    backend->press(*window.form, {Key::Down});
    backend->press(*window.form, {Key::Home});
    EXPECT_EQ(window.list.selectedRow(), 0U);
    EXPECT_EQ(window.log, (Log{"select", "select", "select"}));
    backend->press(*window.form, {Key::Enter});
    EXPECT_EQ(window.log.back(), "activate");
}

TEST_F(Conformance, EnterInAListWithoutListenersPressesTheDefaultButton) {
    Window window(backend->desktop());
    window.form->setDefaultButton(&window.ok);
    int clicks = 0;
    window.ok.onClick.connect([&] { ++clicks; });
    window.form->show(Modality::Modeless);
    backend->clickRow(window.list, 0);
    backend->press(*window.form, {Key::Enter});
    EXPECT_EQ(clicks, 1);
}

TEST_F(Conformance, HeadersReportClicks) {
    Window window(backend->desktop());
    window.form->show(Modality::Modeless);
    window.logEvents();
    backend->clickColumn(window.list, 1);
    backend->clickColumn(window.list, 0);
    EXPECT_EQ(window.log, (Log{"column 1", "column 0"}));
}

TEST_F(Conformance, TypingFindsARow) {
    Window window(backend->desktop());
    window.form->show(Modality::Modeless);
    backend->clickRow(window.list, 1);
    window.logEvents();
    std::u16string wanted;
    window.list.onFind.connect(
        [&](const std::u16string& text, std::size_t, std::optional<std::size_t>& found) {
            wanted = text;
            if (text == u"r5")
                found = 5;
        });
    backend->typeToFind(window.list, u"r5");
    EXPECT_EQ(wanted, u"r5");
    EXPECT_EQ(window.list.selectedRow(), 5U);
    EXPECT_EQ(window.log, Log{"select"});
    backend->typeToFind(window.list, u"zz");
    EXPECT_EQ(window.list.selectedRow(), 5U);
}

TEST_F(Conformance, AMillionRowsAskOnlyForWhatIsSeen) {
    Window window(backend->desktop());
    window.rows.count = 1'000'000;
    window.list.rowsChanged();
    window.form->show(Modality::Modeless);
    backend->settle();
    EXPECT_EQ(backend->seenRowCount(window.list), 1'000'000U);
    EXPECT_EQ(backend->seenCell(window.list, 0, 0), u"r0c0");
    window.list.selectRow(999'999);
    backend->settle();
    EXPECT_EQ(backend->seenCell(window.list, 999'999, 1), u"r999999c1");
    backend->clickRow(window.list, 999'999);
    EXPECT_LT(window.rows.cellsAsked, 2'000U);
}

TEST_F(Conformance, FewerRowsDropASelectionThatDoesNotFit) {
    Window window(backend->desktop());
    window.form->show(Modality::Modeless);
    backend->clickRow(window.list, 5);
    window.logEvents();
    window.rows.count = 6;
    window.list.rowsChanged();
    EXPECT_EQ(window.list.selectedRow(), 5U);
    window.rows.count = 5;
    window.list.rowsChanged();
    backend->settle();
    EXPECT_EQ(window.list.selectedRow(), std::nullopt);
    EXPECT_EQ(backend->seenRowCount(window.list), 5U);
    EXPECT_EQ(window.log, Log{});
}

TEST_F(Conformance, CellsShowHostileTexts) {
    class Rows final : public ui::RowSource {
      public:
        [[nodiscard]] std::size_t rowCount() const override { return 3; }
        [[nodiscard]] std::u16string cellText(std::size_t row, std::size_t) override {
            return row == 0   ? std::u16string(u"漢字 \U0001F600")
                   : row == 1 ? std::u16string(u"lone ") + char16_t{0xD83D}
                              : std::u16string(u"a\0b", 3);
        }
    };
    Rows rows;
    Window window(backend->desktop());
    window.list.setSource(&rows);
    window.form->show(Modality::Modeless);
    EXPECT_EQ(backend->seenCell(window.list, 0, 0), u"漢字 \U0001F600");
    EXPECT_EQ(backend->seenCell(window.list, 1, 0), std::u16string(u"lone ") + char16_t{0xD83D});
    EXPECT_EQ(backend->seenCell(window.list, 2, 0), u"a\u2400b");
    window.list.setSource(nullptr);
    backend->settle();
    EXPECT_EQ(backend->seenRowCount(window.list), 0U);
}

}  // namespace quorel::conformance
