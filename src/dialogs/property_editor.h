#pragma once

#include <string>

#include "dialogs/frm_property_editor.h"
#include "frame/browser_class.h"

namespace quorel::dialogs {

/// The public class "QuorelUtility.PropertyEditor": edits the properties of one repository object.
class PropertyEditor final : public frame::WindowClass<frmPropertyEditor> {
  public:
    using WindowClass::WindowClass;

    [[nodiscard]] const automation::ClassTable& classTable() const override;

    /// `Path` is the folder in which dialogs for files and folders open.
    void Create(const std::u16string& Path);
    /// Makes a row for each of the meta object's properties.
    void Init(const automation::Object& mo);
    void Deinit();
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
};

}  // namespace quorel::dialogs
