#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/ui/control.h"
#include "platform/ui/image_list.h"

namespace quorel::ui {

enum class Alignment : std::uint8_t { Left, Right, Centre };
enum class SortOrder : std::uint8_t { None, Ascending, Descending };

struct Column {
    std::u16string title;
    Twips width;
    Alignment alignment = Alignment::Left;
    SortOrder sort = SortOrder::None;  ///< the arrow that the header shows
    friend bool operator==(const Column&, const Column&) = default;
};

/// How a cell looks where it differs from the list.
struct CellLook {
    bool bold = false;
    std::optional<Colour> text{};
    std::optional<Colour> background{};
};

/// What a list shows. Asked only for rows that are seen.
class RowSource {
  public:
    virtual ~RowSource() = default;
    [[nodiscard]] virtual std::size_t rowCount() const = 0;
    /// May call the host; must not throw (a cell that cannot be read is shown as the source decides).
    [[nodiscard]] virtual std::u16string cellText(std::size_t row, std::size_t column) = 0;
    /// The rows `first` up to `last` (inclusive) are about to be asked for; a source may fetch them at once.
    virtual void prepareRows(std::size_t first, std::size_t last) {
        static_cast<void>(first);
        static_cast<void>(last);
    }
    /// What the mouse resting on the cell is told; empty for nothing but the list's own tool tip.
    [[nodiscard]] virtual std::u16string cellToolTip(std::size_t row, std::size_t column) {
        static_cast<void>(row);
        static_cast<void>(column);
        return {};
    }
    /// The key, in the list's image list, of the picture before the row's first cell; empty for none. Asked
    /// only of a list that has an image list.
    [[nodiscard]] virtual std::u16string rowPicture(std::size_t row) {
        static_cast<void>(row);
        return {};
    }
    /// Whether the two below are asked at all, for every cell that is painted.
    [[nodiscard]] virtual bool hasLooks() const { return false; }
    [[nodiscard]] virtual CellLook cellLook(std::size_t row, std::size_t column) {
        static_cast<void>(row);
        static_cast<void>(column);
        return {};
    }
    /// Whether the box before the row is checked. Asked only of a list that has check boxes.
    [[nodiscard]] virtual bool isChecked(std::size_t row) {
        static_cast<void>(row);
        return false;
    }
    /// The heading of a group of rows: its first cell's text in bold across all columns.
    [[nodiscard]] virtual bool isGroup(std::size_t row) {
        static_cast<void>(row);
        return false;
    }
};

/// A report list whose rows live in a `RowSource`: a million rows cost what a thousand cost. One row can be
/// selected.
class VirtualList : public Control {
  public:
    /// More rows than this are not shown: the platform's own limit.
    static constexpr std::size_t kMostRows = 100'000'000;

    explicit VirtualList(std::u16string_view name)
        : Control(name), images_([this] { changed(Change::Images); }) {}
    void accept(ControlVisitor& visitor) override;

    /// Not owned; must outlive the list or be reset. Clears the selection.
    void setSource(RowSource* source);
    [[nodiscard]] RowSource* source() const noexcept { return source_; }
    /// The source's rows were replaced: asks for the count anew and repaints. Keeps the selection if it still
    /// fits.
    void rowsChanged();
    [[nodiscard]] std::size_t rowCount() const noexcept { return rowCount_; }
    /// What the source says; empty for a row or column that does not exist. The form stays alive meanwhile,
    /// but the peer may be gone afterwards: the source may call a host that closes the window.
    [[nodiscard]] std::u16string cellText(std::size_t row, std::size_t column) const;
    /// The source's word on a cell, under the same terms.
    [[nodiscard]] std::u16string cellToolTip(CellIndex cell) const;
    [[nodiscard]] CellLook cellLook(CellIndex cell) const;
    /// The place of the row's picture in the image list, under the same terms; none without one.
    [[nodiscard]] std::optional<std::size_t> rowPicture(std::size_t row) const;
    [[nodiscard]] bool isGroup(std::size_t row) const;
    [[nodiscard]] bool isChecked(std::size_t row) const;
    [[nodiscard]] bool hasLooks() const { return source_ != nullptr && source_->hasLooks(); }
    /// Tells the source which rows come next, under the same terms.
    void prepareRows(std::size_t first, std::size_t last) const;

    void setColumns(std::vector<Column> columns);
    [[nodiscard]] const std::vector<Column>& columns() const noexcept { return columns_; }

    /// A box before each row, which a click reports and the source alone checks.
    void setCheckBoxes(bool checkBoxes);
    [[nodiscard]] bool hasCheckBoxes() const noexcept { return checkBoxes_; }
    /// Whether there is a line of column titles. Before the list is shown.
    void setTitled(bool titled);
    [[nodiscard]] bool isTitled() const noexcept { return titled_; }

    /// Where the pictures of rows come from.
    [[nodiscard]] const std::shared_ptr<ImageList>& images() const noexcept { return images_.list(); }
    void setImages(std::shared_ptr<ImageList> images);

    [[nodiscard]] std::optional<std::size_t> selectedRow() const noexcept { return selected_; }
    /// Selects and brings into view; raises no event.
    void selectRow(std::optional<std::size_t> row);
    /// Scrolls, if it must, until the row can be seen, and the cell as far as it fits; raises no event.
    void ensureVisible(std::size_t row);
    void ensureVisible(CellIndex cell);
    /// What was to be brought into view last: by `ensureVisible`, else the selected row.
    struct ScrollTarget {
        std::size_t row = 0;
        std::optional<std::size_t> column{};
    };
    [[nodiscard]] std::optional<ScrollTarget> scrollTarget() const noexcept;
    /// Where the visible part of a cell is, relative to the list's parent as the list's own bounds are, so
    /// that another control can be placed over it. None while the cell is out of sight or the list is not
    /// shown.
    [[nodiscard]] std::optional<Rect> cellBounds(CellIndex cell) const;

    Event<> onSelect;    ///< the user selected a row, or clicked the selected one again; not when
                         ///< the selection was taken away
    Event<> onDeselect;  ///< the user took the selection away
    Event<> onActivate;  ///< double-click or Enter on the selected row
    Event<std::size_t> onColumnClick;   ///< a click on the header of that column
    Event<std::size_t> onColumnResize;  ///< the user changed a column's width
    Event<std::size_t> onCheck;         ///< a click on the box of that row; the selection stays
    Event<CellIndex> onCellClick;       ///< a click on a cell, after the selection
    /// The cells stand elsewhere and the program has not moved them: the user scrolled or changed a column's
    /// width, a selection by key scrolled, the list became too small for its place, the resolution changed.
    Event<> onCellsMoved;
    /// The user types to find: the text so far and the row to start from; set the last argument to the row
    /// found.
    Event<const std::u16string&, std::size_t, std::optional<std::size_t>&> onFind;

    void userSelected(std::optional<std::size_t> row);
    void userActivated();
    void userClickedColumn(std::size_t column);
    void userResizedColumn(std::size_t column, Twips width);
    void userClickedCell(CellIndex cell);
    void userClickedBox(std::size_t row);
    void userMovedCells();
    [[nodiscard]] std::optional<std::size_t> userFinds(const std::u16string& text, std::size_t start);

  private:
    RowSource* source_ = nullptr;
    std::size_t rowCount_ = 0;
    std::vector<Column> columns_;
    std::optional<std::size_t> selected_;
    std::optional<ScrollTarget> target_;
    ImageUse images_;
    bool checkBoxes_ = false;
    bool titled_ = true;
};

}  // namespace quorel::ui
