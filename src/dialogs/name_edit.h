#pragma once

#include <string>

#include "dialogs/frm_name_edit.h"
#include "frame/environment.h"
#include "frame/form_holder.h"
#include "platform/automation/class_table.h"
#include "platform/automation/native_object.h"

namespace quorel::dialogs {

/// The public class "QuorelUtility.NameEdit": asks the user for one name. Every member but `Create` and
/// `Destroy` is error 91 while there is no form.
class NameEdit final : public automation::NativeObject {
  public:
    explicit NameEdit(const frame::Environment& environment) : environment_(environment) {}

    [[nodiscard]] const automation::ClassTable& classTable() const override;

    void Create();
    void Destroy();
    /// Returns when the window is hidden or closed.
    void PopUp();
    void Conceal();
    void Caption(const std::u16string& val);
    void Question(const std::u16string& val);
    [[nodiscard]] std::u16string name() const;
    void setName(const std::u16string& val);
    [[nodiscard]] bool IsOk() const;

  private:
    frame::Environment environment_;
    frame::FormHolder<frmNameEdit> holder_;
};

}  // namespace quorel::dialogs
