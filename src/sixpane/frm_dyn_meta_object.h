#pragma once

#include <string>
#include <string_view>

#include "platform/ui/form.h"

namespace quorel::ui {
class CheckBox;
class Label;
class TextBox;
}  // namespace quorel::ui

namespace quorel::sixpane {

/// The window that asks for a dynamic meta object. OK and Cancel set the flag and hide it, so that the
/// answers can be read afterwards; its close box is as good as Cancel.
class frmDynMetaObject final : public ui::Form {
  public:
    explicit frmDynMetaObject(ui::Desktop& desktop);

    void AsMetaClass();
    void AsMetaAssoc();
    [[nodiscard]] bool IsPersistent() const noexcept;
    void setIsPersistent(bool persistent);
    [[nodiscard]] const std::u16string& MetaObjectName() const noexcept;
    void setMetaObjectName(std::u16string_view name);
    [[nodiscard]] const std::u16string& Description() const noexcept;
    void setDescription(std::u16string_view description);

    /// Shows the window modally, the name selected.
    void PopUp();
    /// True from a click on OK on.
    [[nodiscard]] bool IsOk() const noexcept { return ok_; }

  private:
    void OK_Click();
    void Cancel_Click();
    void place();
    [[nodiscard]] ui::Twips labelWidth() const;

    ui::Label& nameLabel_;
    ui::TextBox& nameBox_;
    ui::Label& descriptionLabel_;
    ui::TextBox& descriptionBox_;
    ui::CheckBox& persistent_;
    ui::Button& okButton_;
    ui::Button& cancelButton_;
    bool ok_ = false;
};

}  // namespace quorel::sixpane
