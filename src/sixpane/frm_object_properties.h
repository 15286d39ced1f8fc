#pragma once

#include <vector>

#include "platform/ui/form.h"
#include "platform/ui/virtual_list.h"
#include "sixpane/object_rows.h"

namespace quorel::sixpane {

/// A modal window with what there is to know of a type, to read and to copy.
class frmObjectProperties final : public ui::Form, private ui::RowSource {
  public:
    explicit frmObjectProperties(ui::Desktop& desktop);
    ~frmObjectProperties() override;

    /// Shows the rows and returns when the user has closed the window.
    void PopUp(std::vector<ObjectRow> rows);

  private:
    [[nodiscard]] std::size_t rowCount() const override { return rows_.size(); }
    [[nodiscard]] std::u16string cellText(std::size_t row, std::size_t column) override;
    void place();
    void keyDown(ui::KeyEvent& event);
    /// The selected row, or all of them, as lines with a header.
    void copy();

    ui::VirtualList& list_;
    ui::Button& close_;
    std::vector<ObjectRow> rows_;
};

}  // namespace quorel::sixpane
