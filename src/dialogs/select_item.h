#pragma once

#include <string>

#include "dialogs/frm_select_item.h"
#include "frame/browser_class.h"

namespace quorel::dialogs {

/// The public class "QuorelUtility.SelectItem": lets the user choose one of the host's items, or check
/// several.
class SelectItem final : public frame::WindowClass<frmSelectItem> {
  public:
    using WindowClass::WindowClass;

    [[nodiscard]] const automation::ClassTable& classTable() const override;

    void Create() { makeForm(); }
    /// Returns when the window is hidden or closed.
    void PopUp() { form()->PopUp(); }
    void setStatement(const std::u16string& text) { form()->setStatement(text); }
    void setCaption(const std::u16string& text) { form()->setText(text); }
    [[nodiscard]] automation::Object Selection() const { return form()->Selection(); }
    [[nodiscard]] bool IsOk() const { return form()->IsOk(); }
    void AsListView(bool checkboxes) { form()->AsListView(checkboxes); }
    void AddColumn(const std::u16string& name, std::int32_t width) { form()->AddColumn(name, width); }
    void AddItem(std::u16string str, const automation::Object& ob, std::u16string prop1, std::u16string prop2,
                 std::u16string prop3, std::u16string prop4, std::u16string prop5, std::u16string prop6,
                 std::u16string prop7);
};

}  // namespace quorel::dialogs
