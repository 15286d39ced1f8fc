#pragma once

#include <optional>

#include "platform/ui/virtual_list.h"
#include "platform/win32/ui/native_images.h"
#include "platform/win32/ui/native_window.h"
#include "platform/win32/ui/system_headers.h"

namespace quorel::win32 {

/// The system's list in report mode, which owns no rows: it asks for the cells it paints. What it reports is
/// noted and passed on when it has done with the message, so that a handler may fill, empty or destroy it.
class ListWindow : public NativeWindow {
  public:
    ListWindow(std::shared_ptr<Frame> frame, ui::VirtualList& list) : NativeWindow(std::move(frame), list) {}
    [[nodiscard]] std::optional<LRESULT> notified(NMHDR& header) override;
    void rescaled() override;
    [[nodiscard]] std::optional<ui::Rect> cellBounds(ui::CellIndex cell) override;

  private:
    /// What the list has reported while it served a message.
    struct Noted {
        bool selection = false;
        std::optional<ui::CellIndex> click;
        bool activation = false;
        std::optional<std::size_t> check;
        std::optional<std::size_t> columnClick;
        std::optional<std::size_t> columnResize;
    };

    [[nodiscard]] Description describe() override;
    void opened() override;
    void mirror(ui::Change changes) override;
    LRESULT serve(UINT message, WPARAM w, LPARAM l) override;
    [[nodiscard]] POINT contextPoint() const override;

    void spaceRows();
    void mirrorColumns();
    void mirrorColumn(std::size_t index) const;
    void setRowSelected(std::size_t row, bool selected);
    LRESULT serveSelecting(UINT message, WPARAM w, LPARAM l);
    [[nodiscard]] bool hitsRow(LPARAM at) const noexcept;
    void mirrorRows();
    void showCheckBoxes();
    [[nodiscard]] bool pressedBox(UINT message, LPARAM at);
    void mirrorSelection();
    void scrollToTarget() const;
    [[nodiscard]] std::optional<RECT> cellRect(ui::CellIndex cell) const;
    void hover(LPARAM at);
    void mirrorColours() const;
    [[nodiscard]] ui::Colour ground() const noexcept;

    void headerNotified(const NMHEADERW& header);
    void noteClick(const NMITEMACTIVATE& click);
    void noteSelection(const NMLISTVIEW& change);
    void tellCell(LVITEMW& item) const;
    void tellNextRows(const NMLVCACHEHINT& hint) const;
    [[nodiscard]] LRESULT draw(NMLVCUSTOMDRAW& drawing) const;
    [[nodiscard]] LRESULT drawRow(NMLVCUSTOMDRAW& drawing) const;
    [[nodiscard]] LRESULT drawCell(NMLVCUSTOMDRAW& drawing) const;
    void drawGroup(HDC dc, std::size_t row) const;
    [[nodiscard]] ui::Colour fadedHighlight() const noexcept;
    [[nodiscard]] POINT scrollPlace() const;
    [[nodiscard]] LRESULT find(const NMLVFINDITEMW& wanted) const;
    void report();

    [[nodiscard]] ui::VirtualList& list() const noexcept { return static_cast<ui::VirtualList&>(*control()); }

    HWND header_ = nullptr;  ///< made with the first column
    NativeImages images_;    ///< of the rows, or an empty one
    NativeImages checks_;
    /// The row that the HWND has selected, from what it tells: asking it costs a step for each row.
    std::optional<std::size_t> selection_;
    Noted noted_;
    POINT scrollPlace_{};
    std::optional<ui::CellIndex> hovered_;
    std::u16string cellToolTip_;
    int serving_ = 0;
    bool mirroring_ = false;
    bool tracking_ = false;
    bool pressReported_ =
        false;  ///< the press of the button was a selection, so its release is no second one
    int columns_ = 0;
};

}  // namespace quorel::win32
