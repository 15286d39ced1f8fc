#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <vector>

namespace quorel::spy {

/// Reads a list view of another process through the messages that it answers to anyone.
class ListReader {
  public:
    explicit ListReader(HWND list) : list_(list) {}

    [[nodiscard]] int rowCount() const;
    [[nodiscard]] int firstVisibleRow() const;
    [[nodiscard]] int visibleRows() const;
    /// -1 when no row is selected.
    [[nodiscard]] int selectedRow() const;
    [[nodiscard]] std::vector<std::wstring> columnTitles() const;
    [[nodiscard]] std::wstring cell(int row, int column) const;
    /// The middle of the row's label in screen pixels, for a row that is in view.
    [[nodiscard]] std::optional<POINT> middleOf(int row) const;
    /// The row in view whose first cell is `text`.
    [[nodiscard]] std::optional<int> visibleRowOf(const std::wstring& text) const;

  private:
    HWND list_;
};

}  // namespace quorel::spy
