#include "platform/win32/ui/folder_dialog.h"

#include "platform/win32/ui/system_headers.h"
// The shell's headers are complete only behind the system's.
#include <shlobj.h>

#include <memory>
#include <type_traits>
#include <vector>

#include "platform/automation/error.h"
#include "platform/shell/folder_browser.h"
#include "platform/win32/text.h"
#include "platform/win32/ui/modal_lock.h"
#include "platform/win32/ui/native_text.h"
#include "platform/win32/ui/services.h"

namespace quorel::win32 {

namespace {

constexpr std::size_t kMostTitle = 260;
constexpr std::size_t kLongestPath = 32'768;

struct FreeTaskMemory {
    void operator()(void* memory) const noexcept { ::CoTaskMemFree(memory); }
};
using ItemList = std::unique_ptr<std::remove_pointer_t<PIDLIST_ABSOLUTE>, FreeTaskMemory>;

int CALLBACK selectFolder(HWND dialog, UINT message, LPARAM, LPARAM folder) {
    if (message == BFFM_INITIALIZED && folder != 0)
        ::SendMessageW(dialog, BFFM_SETSELECTIONW, TRUE, folder);
    return 0;
}

[[noreturn]] void refuse() {
    throw automation::Error(automation::error_number::kInvalidCall, u"The path of the folder is too long");
}

}  // namespace

std::u16string folderPath(PCIDLIST_ABSOLUTE item) {
    std::vector<wchar_t> path(kLongestPath);
    if (::SHGetPathFromIDListEx(item, path.data(), kLongestPath - 1, GPFIDL_DEFAULT) == FALSE)
        refuse();
    return checkedFolder(narrowView(path.data()));
}

std::u16string checkedFolder(std::u16string_view path) {
    std::u16string folder(path);
    // The longest that fits cannot be told from one that the shell has cut, unless there is no such folder.
    const bool mayBeCut = folder.size() == shell::FolderBrowser::kLongestFolder;
    const DWORD attributes = mayBeCut ? ::GetFileAttributesW(wide(folder)) : FILE_ATTRIBUTE_DIRECTORY;
    if (folder.size() > shell::FolderBrowser::kLongestFolder || attributes == INVALID_FILE_ATTRIBUTES ||
        (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0)
        refuse();
    return folder;
}

std::optional<std::u16string> folderDialog(WindowsDesktop& desktop, const FolderRequest& request) {
    const auto services = desktop.services();
    const NativeScope scope(services->controls);
    const std::u16string title = shownLine(request.title, kMostTitle);
    const HWND active = ::GetActiveWindow();
    BROWSEINFOW dialog{};
    dialog.hwndOwner = request.isOwned ? active : nullptr;
    dialog.lpszTitle = title.empty() ? nullptr : wide(title);
    dialog.ulFlags = request.flags;
    if (!request.folder.empty()) {
        dialog.lpfn = &selectFolder;
        dialog.lParam = reinterpret_cast<LPARAM>(wide(request.folder));
    }
    const ModalLock lock(dialog.hwndOwner);
    const ItemList chosen(::SHBrowseForFolderW(&dialog));
    if (!chosen)
        return std::nullopt;
    return folderPath(chosen.get());
}

}  // namespace quorel::win32
