#pragma once

#include <string>

#include "navigator/services.h"
#include "navigator/workspace.h"
#include "platform/ui/form.h"

namespace quorel::navigator {

/// The navigator's main window. Its procedures show their own failures in the error box with module label
/// "Navigator"; none throws.
class frmNavigator final : public ui::Form {
  public:
    explicit frmNavigator(const Services& services);

    /// Closes what is open and opens that repository. A file that cannot be opened is reported with what can
    /// be done about it.
    void openFile(const std::u16string& path);
    /// Ends every window on the repository, in the order in which they were opened, and closes it. Harmless
    /// when there is none.
    void closeRepository();

  private:
    Services services_;
    Workspace workspace_;
};

}  // namespace quorel::navigator
