#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/ui/control.h"

namespace quorel::ui {

enum class Alignment : std::uint8_t { Left, Right, Centre };
enum class SortOrder : std::uint8_t { None, Ascending, Descending };

struct Column {
    std::u16string title;
    Twips width;
    Alignment alignment = Alignment::Left;
    SortOrder sort = SortOrder::None;  ///< the arrow that the header shows
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
};

/// A report list whose rows live in a `RowSource`: a million rows cost what a thousand cost. One row can be
/// selected.
class VirtualList : public Control {
  public:
    /// More rows than this are not shown: the platform's own limit.
    static constexpr std::size_t kMostRows = 100'000'000;

    explicit VirtualList(std::u16string_view name) : Control(name) {}
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
    /// Tells the source which rows come next, under the same terms.
    void prepareRows(std::size_t first, std::size_t last) const;

    void setColumns(std::vector<Column> columns);
    [[nodiscard]] const std::vector<Column>& columns() const noexcept { return columns_; }

    [[nodiscard]] std::optional<std::size_t> selectedRow() const noexcept { return selected_; }
    /// Selects and brings into view; raises no event.
    void selectRow(std::optional<std::size_t> row);

    Event<> onSelect;    ///< the user selected a row, or clicked the selected one again; not when
                         ///< the selection was taken away
    Event<> onDeselect;  ///< the user took the selection away
    Event<> onActivate;  ///< double-click or Enter on the selected row
    Event<std::size_t> onColumnClick;   ///< a click on the header of that column
    Event<std::size_t> onColumnResize;  ///< the user changed a column's width
    /// The user types to find: the text so far and the row to start from; set the last argument to the row
    /// found.
    Event<const std::u16string&, std::size_t, std::optional<std::size_t>&> onFind;

    void userSelected(std::optional<std::size_t> row);
    void userActivated();
    void userClickedColumn(std::size_t column);
    void userResizedColumn(std::size_t column, Twips width);
    [[nodiscard]] std::optional<std::size_t> userFinds(const std::u16string& text, std::size_t start);

  private:
    RowSource* source_ = nullptr;
    std::size_t rowCount_ = 0;
    std::vector<Column> columns_;
    std::optional<std::size_t> selected_;
};

}  // namespace quorel::ui
