#pragma once

#include <string>

#include "dialogs/frm_property_editor.h"
#include "frame/environment.h"
#include "frame/form_holder.h"
#include "platform/automation/class_table.h"
#include "platform/automation/native_object.h"

namespace quorel::dialogs {

/// The public class "QuorelUtility.PropertyEditor": edits the properties of one repository object. Every
/// member but `Create` and `Destroy` is error 91 while there is no form.
class PropertyEditor final : public automation::NativeObject {
  public:
    explicit PropertyEditor(const frame::Environment& environment) : environment_(environment) {}

    [[nodiscard]] const automation::ClassTable& classTable() const override;

    /// `Path` is the folder in which dialogs for files and folders open.
    void Create(const std::u16string& Path);
    void Destroy();
    /// Makes a row for each of the meta object's properties.
    void Init(const automation::Object& mo);
    void Deinit();
    void PopUp(bool modal = true);
    void Conceal();
    [[nodiscard]] automation::Object repObject() const;
    void setRepObject(const automation::Object& object);
    [[nodiscard]] bool OK() const;
    [[nodiscard]] bool Cancelled() const;
    [[nodiscard]] automation::Object CallbackObject() const;
    void setCallbackObject(const automation::Object& callback);
    [[nodiscard]] std::u16string Caption() const;
    void setCaption(const std::u16string& caption);
    [[nodiscard]] bool ReadOnly() const;
    void setReadOnly(bool readOnly);

  private:
    frame::Environment environment_;
    frame::FormHolder<frmPropertyEditor> holder_;
};

}  // namespace quorel::dialogs
