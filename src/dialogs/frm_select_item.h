#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "dialogs/selectable_item.h"
#include "frame/environment.h"
#include "frame/guarded.h"
#include "platform/automation/object.h"
#include "platform/controls/list_view.h"
#include "platform/ui/form.h"

namespace quorel::ui {
class Label;
}  // namespace quorel::ui

namespace quorel::dialogs {

/// The window that offers the host's items. It has two lists: `List`, plain, and `ListView`, with columns
/// and, if wanted, check boxes, which takes the items from `AsListView` on. OK and Cancel set the flag and
/// hide it; its close box is as good as Cancel. What fails in its procedures is shown in the error box with
/// module label "SelectItem".
class frmSelectItem final : public ui::Form, private controls::RowChecks {
  public:
    explicit frmSelectItem(const frame::Environment& environment);
    ~frmSelectItem() override;

    void PopUp();
    void Conceal();
    /// Drops the items.
    void Destroy() noexcept;

    void setStatement(std::u16string_view text);
    /// The object of the selected item, or, with check boxes, a new collection of those of the checked ones
    /// in the list's order.
    [[nodiscard]] automation::Object Selection() const;
    [[nodiscard]] bool IsOk() const noexcept { return !cancelled_; }
    void AsListView(bool checkBoxes);
    /// Its width is in twips; the list decides where it is not positive. The first column has the items' own
    /// texts; until there is one, these have a column without a title.
    void AddColumn(std::u16string_view name, std::int32_t width);
    /// A list without columns shows the first of the texts only.
    void AddItem(const SelectableItem::Texts& texts, const automation::Object& object);

  private:
    /// Runs a procedure of this window under its label.
    template <class Body>
    auto procedure(std::u16string_view label, Body&& body) {
        return frame::guarded(*this, u"SelectItem", label, std::forward<Body>(body));
    }
    [[nodiscard]] bool isChecked(const automation::Object& row) const override;
    void setChecked(const automation::Object& row, bool checked) override;

    void OK_Click();
    void Cancel_Click();
    void ListView_DblClick();
    /// Enter in a list is OK, whatever a double-click there is.
    void keyInList(ui::KeyEvent& event);
    [[nodiscard]] controls::ListView& shownList() const noexcept { return asListView_ ? listView_ : list_; }
    void tellCount();
    void savePlacement();
    [[nodiscard]] ui::Twips statementHeight() const;
    void fit();
    void place();

    frame::Environment environment_;
    ui::Label& statement_;
    controls::ListView& list_;
    controls::ListView& listView_;
    ui::Button& checkAll_;
    ui::Button& checkNone_;
    ui::Label& count_;
    ui::Button& okButton_;
    ui::Button& cancelButton_;
    bool cancelled_ = true;
    bool asListView_ = false;
    bool checkBoxes_ = false;
    bool wasShown_ = false;
    std::int32_t counter_ = 1;
    std::int32_t columns_ = 0;
    std::size_t checked_ = 0;
};

}  // namespace quorel::dialogs
