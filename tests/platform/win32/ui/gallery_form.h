#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/ui/check_box.h"
#include "platform/ui/combo_box.h"
#include "platform/ui/desktop.h"
#include "platform/ui/form.h"
#include "platform/ui/menu.h"
#include "platform/ui/plain_controls.h"
#include "platform/ui/progress_bar.h"
#include "platform/ui/virtual_list.h"

namespace quorel::win32::testing {

/// Rows that are made of their number.
class NumberedRows : public ui::RowSource {
  public:
    explicit NumberedRows(std::size_t count) : count_(count) {}
    [[nodiscard]] std::size_t rowCount() const override { return count_; }
    [[nodiscard]] std::u16string cellText(std::size_t row, std::size_t column) override;

    void setCount(std::size_t count) { count_ = count; }
    std::size_t asked = 0;  ///< calls of cellText

  private:
    std::size_t count_;
};

/// A window with every plain control, to look at and to test on.
struct Gallery {
    explicit Gallery(ui::Desktop& desktop, std::u16string_view name = u"frmGallery");

    std::shared_ptr<ui::Form> form;
    NumberedRows rows{1'000'000};
    ui::Label* label = nullptr;
    ui::TextBox* box = nullptr;
    ui::TextBox* notes = nullptr;
    ui::VirtualList* list = nullptr;
    ui::Splitter* splitter = nullptr;
    ui::VirtualList* side = nullptr;
    ui::PictureBox* picture = nullptr;
    ui::Button* pictured = nullptr;
    std::vector<ui::Button*> glyphs;
    ui::CheckBox* check = nullptr;
    ui::CheckBox* grayed = nullptr;
    ui::ComboBox* kind = nullptr;
    ui::ComboBox* edited = nullptr;
    ui::ProgressBar* progress = nullptr;
    ui::Button* ok = nullptr;
    ui::Button* cancel = nullptr;
    ui::StatusBar* status = nullptr;
    ui::Twips split{4200};

    void layOut();
    /// A button for each drawing of the library, two of them disabled.
    void addDrawings();

  private:
    void addChoices();
};

/// A disc with soft edges on a transparent ground.
[[nodiscard]] std::shared_ptr<const ui::Picture> disc(std::int32_t size, ui::Colour colour);

}  // namespace quorel::win32::testing
