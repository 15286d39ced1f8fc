#include "platform/win32/ui/windows_file_dialogs.h"

#include "platform/win32/ui/system_headers.h"
// The shell's headers are complete only behind the system's.
#include <shlobj.h>

#include "platform/win32/system_error.h"
#include "platform/win32/text.h"
#include "platform/win32/ui/folder_dialog.h"
#include "platform/win32/ui/modal_lock.h"
#include "platform/win32/ui/native_text.h"
#include "platform/win32/ui/services.h"

namespace quorel::win32 {

namespace {

constexpr std::size_t kLongestPath = 32'768;
constexpr std::size_t kMostUnits = 260;

/// A proposed name must be one; a path is proposed by its last part.
[[nodiscard]] std::u16string proposal(const std::u16string& fileName) {
    const std::size_t slash = fileName.find_last_of(u"/\\");
    return shownLine(slash == std::u16string::npos ? fileName : fileName.substr(slash + 1), kMostUnits);
}

/// The list of filters as the dialogs want it: each part ends in a null, an empty one ends the list. A
/// description without a pattern is one of all files.
[[nodiscard]] std::u16string filterList(const std::u16string& filter) {
    std::u16string list;
    bool isPattern = false;
    for (const char16_t unit : filter) {
        isPattern ^= unit == u'|';
        if (unit != u'\0')
            list += unit == u'|' ? u'\0' : unit;
    }
    if (!list.empty() && !isPattern)
        list.append(1, u'\0').append(u"*.*");
    if (!list.empty())
        list += u'\0';
    list.append(u"All files (*.*)").append(1, u'\0').append(u"*.*").append(2, u'\0');
    return list;
}

using ShowDialog = BOOL(WINAPI*)(LPOPENFILENAMEW);

[[nodiscard]] std::optional<std::u16string> askForFile(WindowsDesktop& desktop,
                                                       const shell::FileDialogs::Request& request,
                                                       DWORD flags, ShowDialog show) {
    const auto services = desktop.services();
    const NativeScope scope(services->controls);
    const std::u16string title = shownLine(request.title, kMostUnits);
    std::u16string file = proposal(request.fileName);
    file.resize(kLongestPath, u'\0');
    OPENFILENAMEW dialog{};
    dialog.lStructSize = sizeof(dialog);
    dialog.hwndOwner = ::GetActiveWindow();
    const std::u16string filter = filterList(request.filter);
    dialog.lpstrFilter = wide(filter);
    const std::size_t dot = request.defaultExtension.starts_with(u'.') ? 1 : 0;
    const std::u16string extension = request.defaultExtension.substr(dot);
    dialog.lpstrDefExt = extension.empty() ? nullptr : wide(extension);
    dialog.lpstrFile = wideBuffer(file);
    dialog.nMaxFile = static_cast<DWORD>(file.size());
    dialog.lpstrInitialDir = request.folder.empty() ? nullptr : wide(request.folder);
    dialog.lpstrTitle = title.empty() ? nullptr : wide(title);
    // The host's current folder is the host's.
    dialog.Flags = OFN_EXPLORER | OFN_NOCHANGEDIR | OFN_HIDEREADONLY | OFN_PATHMUSTEXIST | flags;
    const ModalLock lock(dialog.hwndOwner);
    if (show(&dialog) != FALSE)
        return std::u16string(narrowView(dialog.lpstrFile));
    if (const DWORD failure = ::CommDlgExtendedError())
        throw errorFromStatus(static_cast<HRESULT>(0x80070000U | (failure & 0xFFFFU)), u"File dialog");
    return std::nullopt;
}

}  // namespace

std::optional<std::u16string> WindowsFileDialogs::openFile(const Request& request) {
    return askForFile(desktop_, request, OFN_FILEMUSTEXIST, &::GetOpenFileNameW);
}

std::optional<std::u16string> WindowsFileDialogs::saveFile(const Request& request) {
    return askForFile(desktop_, request, OFN_OVERWRITEPROMPT, &::GetSaveFileNameW);
}

std::optional<std::u16string> WindowsFileDialogs::chooseFolder(const Request& request) {
    return folderDialog(desktop_, {request.title, request.folder, BIF_RETURNONLYFSDIRS | BIF_NEWDIALOGSTYLE});
}

std::optional<std::u16string> WindowsFileDialogs::browse(std::u16string_view title, bool offersNewFolder) {
    constexpr UINT kFolders = BIF_RETURNONLYFSDIRS | BIF_DONTGOBELOWDOMAIN | BIF_RETURNFSANCESTORS;
    FolderRequest request{std::u16string(title), {}, kFolders | (offersNewFolder ? BIF_NEWDIALOGSTYLE : 0U)};
    request.isOwned = false;
    return folderDialog(desktop_, request);
}

}  // namespace quorel::win32
