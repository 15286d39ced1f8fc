#pragma once

#include <string>
#include <string_view>

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
    void AddItem(std::u16string_view str, const automation::Object& ob, std::u16string_view prop1,
                 std::u16string_view prop2, std::u16string_view prop3, std::u16string_view prop4,
                 std::u16string_view prop5, std::u16string_view prop6, std::u16string_view prop7) {
        form()->AddItem({str, prop1, prop2, prop3, prop4, prop5, prop6, prop7}, ob);
    }
};

}  // namespace quorel::dialogs
