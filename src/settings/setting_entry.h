#pragma once

#include <string>

#include "platform/automation/class_table.h"
#include "platform/automation/native_object.h"

namespace quorel::settings {

/// The public class "QuorelUtility.SettingEntry": one setting as a plain record. Nothing in this library
/// makes one; it is for hosts.
class SettingEntry final : public automation::NativeObject {
  public:
    [[nodiscard]] const automation::ClassTable& classTable() const override;

    [[nodiscard]] std::u16string Value() const { return value_; }
    void setValue(const std::u16string& value) { value_ = value; }
    [[nodiscard]] std::u16string Setting() const { return setting_; }
    void setSetting(const std::u16string& value) { setting_ = value; }
    [[nodiscard]] std::u16string EditType() const { return editType_; }
    void setEditType(const std::u16string& value) { editType_ = value; }
    [[nodiscard]] std::u16string EditCategory() const { return editCategory_; }
    void setEditCategory(const std::u16string& value) { editCategory_ = value; }
    [[nodiscard]] std::u16string EditDescription() const { return editDescription_; }
    void setEditDescription(const std::u16string& value) { editDescription_ = value; }

  private:
    std::u16string value_, setting_, editType_, editCategory_, editDescription_;
};

}  // namespace quorel::settings
