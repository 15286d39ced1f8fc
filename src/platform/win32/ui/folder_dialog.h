#pragma once

#include <windows.h>
// The shell's types are complete only behind the system's.
#include <shtypes.h>

#include <optional>
#include <string>
#include <string_view>

#include "platform/win32/ui/windows_desktop.h"

namespace quorel::win32 {

struct FolderRequest {
    std::u16string title;
    std::u16string folder;  ///< selected at first; the tree opens at its top when empty
    UINT flags = 0;         ///< BIF_...
    bool isOwned = true;    ///< stands over the active window
};

/// The shell's tree of folders, modal for the thread's windows; empty when the user cancels. Throws
/// `automation::Error` 5 when the path of what was chosen cannot be told in full.
[[nodiscard]] std::optional<std::u16string> folderDialog(WindowsDesktop& desktop,
                                                         const FolderRequest& request);

/// The path of a folder that the shell names by its list of items. Throws as the dialog does.
[[nodiscard]] std::u16string folderPath(PCIDLIST_ABSOLUTE item);

/// A path that the shell has told, if it has at most 259 characters and is not one of those that it has cut
/// to that. Throws as the dialog does.
[[nodiscard]] std::u16string checkedFolder(std::u16string_view path);

}  // namespace quorel::win32
