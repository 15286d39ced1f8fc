// Lists with check boxes, lists without titles.

#include <set>
#include <stdexcept>

#include "tests/conformance/window.h"

namespace quorel::conformance {

using ui::Modality;

namespace {

class CheckedRows final : public ui::RowSource {
  public:
    std::set<std::size_t> checked{1};
    [[nodiscard]] std::size_t rowCount() const override { return 5; }
    [[nodiscard]] std::u16string cellText(std::size_t, std::size_t) override { return u"row"; }
    [[nodiscard]] bool isChecked(std::size_t row) override { return checked.contains(row); }
};

/// A shown form whose list has boxes that a click changes.
struct CheckWindow {
    explicit CheckWindow(Backend& backend) : window(backend.desktop()) {
        window.list.setCheckBoxes(true);
        window.list.setSource(&rows);
        window.list.onCheck.connect([this](std::size_t row) {
            clicked.push_back(row);
            if (rows.checked.erase(row) == 0)
                rows.checked.insert(row);
            window.list.rowsChanged();
        });
        window.form->show(Modality::Modeless);
    }
    ~CheckWindow() { window.list.setSource(nullptr); }

    CheckedRows rows;
    Window window;
    ui::VirtualList& list = window.list;
    std::vector<std::size_t> clicked;
};

}  // namespace

TEST_F(Conformance, CheckBoxesShowWhatTheSourceSays) {
    CheckWindow shown(*backend);
    EXPECT_FALSE(backend->seesChecked(shown.list, 0));
    EXPECT_TRUE(backend->seesChecked(shown.list, 1));
    shown.rows.checked = {0, 4};
    shown.list.rowsChanged();
    EXPECT_TRUE(backend->seesChecked(shown.list, 0));
    EXPECT_FALSE(backend->seesChecked(shown.list, 1));
    EXPECT_TRUE(backend->seesChecked(shown.list, 4));
}

TEST_F(Conformance, CheckBoxesAClickOnABoxIsReportedAndSelectsNothing) {
    CheckWindow shown(*backend);
    backend->clickRow(shown.list, 3);
    shown.window.logEvents();
    backend->clickBox(shown.list, 2);
    EXPECT_EQ(shown.clicked, (std::vector<std::size_t>{2}));
    EXPECT_TRUE(backend->seesChecked(shown.list, 2));
    EXPECT_EQ(shown.list.selectedRow(), 3U);
    EXPECT_EQ(shown.window.log, Log{});
    backend->clickBox(shown.list, 2);
    backend->clickBox(shown.list, 2);
    EXPECT_EQ(shown.clicked, (std::vector<std::size_t>{2, 2, 2}));
}

TEST_F(Conformance, CheckBoxesAClickOnTheRestOfTheRowChecksNothing) {
    CheckWindow shown(*backend);
    backend->clickRow(shown.list, 2);
    backend->doubleClickRow(shown.list, 2);
    EXPECT_TRUE(shown.clicked.empty());
    EXPECT_EQ(shown.list.selectedRow(), 2U);
}

TEST_F(Conformance, CheckBoxesAClickOnABoxMayEndTheForm) {
    CheckWindow shown(*backend);
    shown.list.onCheck.connect([&shown](std::size_t) { shown.window.form->unload(); });
    backend->clickBox(shown.list, 0);
    EXPECT_FALSE(shown.window.form->isLoaded());
    EXPECT_EQ(backend->peerCount(), 0U);
}

TEST_F(Conformance, AListWithoutBoxesHasNoneToClick) {
    Window window(backend->desktop());
    window.form->show(Modality::Modeless);
    EXPECT_THROW(backend->clickBox(window.list, 0), std::runtime_error);
}

TEST_F(Conformance, AListWithoutTitlesIsUsedAsAnyOther) {
    Window window(backend->desktop());
    window.list.setTitled(false);
    window.form->show(Modality::Modeless);
    window.logEvents();
    backend->clickRow(window.list, 1);
    backend->doubleClickRow(window.list, 2);
    EXPECT_EQ(window.log, (Log{"box lost", "select", "select", "activate"}));
    const auto place = window.list.cellBounds({0, 0});
    ASSERT_TRUE(place);
    EXPECT_LT(place->top - window.list.bounds().top, ui::Twips{150});
}

}  // namespace quorel::conformance
