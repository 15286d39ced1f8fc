#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/win32/ui/windows_desktop.h"

namespace quorel::win32 {

struct OpenFileRequest {
    std::u16string title;  ///< the system's own when empty
    /// What the user sees and the pattern, e.g. {"Repositories", "*.qrep"}; the first is chosen at the start.
    std::vector<std::pair<std::u16string, std::u16string>> types;
    std::u16string folder;  ///< where it opens; the system decides when empty
    bool mayBeNew = false;  ///< the file need not exist
};

/// Lets the user choose a file; empty when the user cancels. Modal for the thread's windows. Throws
/// `automation::Error` when the dialog cannot be shown.
[[nodiscard]] std::optional<std::u16string> openFileDialog(WindowsDesktop& desktop,
                                                           const OpenFileRequest& request);

}  // namespace quorel::win32
