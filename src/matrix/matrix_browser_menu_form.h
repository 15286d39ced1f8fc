#pragma once

#include <string_view>

#include "platform/automation/object.h"
#include "platform/ui/form.h"
#include "platform/ui/menu.h"

namespace quorel::matrix {

/// What the popup entries say, wherever they are shown.
inline constexpr std::u16string_view kEditCaption = u"&bearbeiten...";
inline constexpr std::u16string_view kNavigateCaption = u"&navigieren";

/// Never shown: it holds the matrix browser's two popup menus and hands their clicks on to the browser by
/// name.
class MatrixBrowserMenuForm final : public ui::Form {
  public:
    explicit MatrixBrowserMenuForm(ui::Desktop& desktop);

    /// Any object with `EditTargetNode` and `Navigate`, or nothing.
    void SetMatrixBrowser(automation::Object browser);

    /// For the entries that stand in other menus for those of the popups.
    void userChose(std::u16string_view entry);

  private:
    void mnuEdit_Click();
    void mnuNavigate_Click();
    void mnuEditTargetNode_Click() noexcept {}

    automation::Object browser_;
};

}  // namespace quorel::matrix
