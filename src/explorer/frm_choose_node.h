#pragma once

#include <string_view>

#include "platform/automation/object.h"
#include "platform/controls/list_view.h"
#include "platform/ui/form.h"
#include "platform/ui/plain_controls.h"

namespace quorel::explorer {

/// The modal window in which one node of a type is chosen. OK, Enter and a double-click keep the choice and
/// hide it.
class frmChooseNode final : public ui::Form {
  public:
    explicit frmChooseNode(ui::Desktop& desktop);

    /// Lists the nodes of the type. Throws what the repository throws.
    void Init(const automation::Object& metaNode, std::u16string_view caption);
    /// Nothing unless the user has chosen.
    [[nodiscard]] const automation::Object& chosen() const noexcept { return chosen_; }

  private:
    void OK_Click();
    void place();

    controls::ListView& list_;
    ui::Button& okButton_;
    ui::Button& cancelButton_;
    automation::Object chosen_;
};

}  // namespace quorel::explorer
