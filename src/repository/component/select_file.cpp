#include "repository/component/select_file.h"

// commdlg.h is complete only behind windows.h.
// clang-format off
#include <windows.h>
#include <commdlg.h>
// clang-format on

#include "platform/win32/text.h"
#include "repository/errors.h"

namespace quorel::repository {

namespace {
// The longest path of the platform.
constexpr std::size_t kLongestPath = 32768;
}  // namespace

std::optional<std::u16string> selectRepositoryFile() {
    std::u16string file(kLongestPath, u'\0');
    OPENFILENAMEW dialog{};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = ::GetActiveWindow();
    dialog.lpstrFilter = L"Repositories (*.quorel)\0*.quorel\0All files (*.*)\0*.*\0";
    dialog.lpstrFile = win32::wideBuffer(file);
    dialog.nMaxFile = static_cast<DWORD>(file.size());
    dialog.lpstrTitle = L"Select a repository";
    // The host's current folder is the host's.
    dialog.Flags = OFN_FILEMUSTEXIST | OFN_HIDEREADONLY | OFN_NOCHANGEDIR | OFN_EXPLORER;
    if (::GetOpenFileNameW(&dialog) != FALSE)
        return std::u16string(file.c_str());
    if (::CommDlgExtendedError() != 0)
        throw failure(automation::error_number::kInvalidCall, u"The file dialog could not be shown");
    return std::nullopt;
}

}  // namespace quorel::repository
