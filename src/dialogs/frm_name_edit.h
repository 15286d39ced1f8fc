#pragma once

#include <string>
#include <string_view>

#include "platform/ui/form.h"

namespace quorel::ui {
class Label;
class TextBox;
}  // namespace quorel::ui

namespace quorel::dialogs {

/// The window that asks for one name. OK and Cancel set the flag and hide it, so that the answer can be read
/// afterwards; its close box is as good as Cancel.
class frmNameEdit final : public ui::Form {
  public:
    explicit frmNameEdit(ui::Desktop& desktop);

    void Init(std::u16string_view caption, std::u16string_view name, std::u16string_view question);
    /// Shows the window modally, the name selected.
    void PopUp();
    /// True from a click on OK until the next click or load.
    [[nodiscard]] bool IsOk() const noexcept { return ok_; }
    /// What is in the box, as typed.
    [[nodiscard]] const std::u16string& EditName() const noexcept;
    void setEditName(std::u16string_view name);
    void setQuestion(std::u16string_view question);
    void Destroy() noexcept {}

  private:
    void OK_Click();
    void Cancel_Click();
    /// As many lines as the question needs at the present width.
    [[nodiscard]] std::int32_t questionLines() const;
    /// Makes the window as high as its content.
    void fit();
    void place();

    ui::Label& lblName_;
    ui::TextBox& nameBox_;
    ui::Button& okButton_;
    ui::Button& cancelButton_;
    bool ok_ = false;
};

}  // namespace quorel::dialogs
