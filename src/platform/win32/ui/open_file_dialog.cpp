#include "platform/win32/ui/open_file_dialog.h"

#include "platform/win32/system_error.h"
#include "platform/win32/text.h"
#include "platform/win32/ui/modal_lock.h"
#include "platform/win32/ui/native_text.h"
#include "platform/win32/ui/services.h"
#include "platform/win32/ui/system_headers.h"

namespace quorel::win32 {

namespace {

constexpr std::size_t kLongestPath = 32'768;
constexpr std::size_t kMostUnits = 260;

/// Pairs of texts, each ended by a NUL, the whole by another.
[[nodiscard]] std::u16string filterOf(const OpenFileRequest& request) {
    std::u16string filter;
    for (const auto& [label, pattern] : request.types)
        filter += shownLine(label, kMostUnits) + u'\0' + shownLine(pattern, kMostUnits) + u'\0';
    return filter;
}

}  // namespace

std::optional<std::u16string> openFileDialog(WindowsDesktop& desktop, const OpenFileRequest& request) {
    const auto services = desktop.services();
    const NativeScope scope(services->controls);
    const std::u16string filter = filterOf(request);
    const std::u16string title = shownLine(request.title, kMostUnits);
    std::u16string chosen(kLongestPath, u'\0');
    OPENFILENAMEW dialog{};
    dialog.lStructSize = sizeof(dialog);
    dialog.hwndOwner = ::GetActiveWindow();
    dialog.lpstrFilter = filter.empty() ? nullptr : wide(filter);
    dialog.lpstrFile = wideBuffer(chosen);
    dialog.nMaxFile = static_cast<DWORD>(chosen.size());
    dialog.lpstrInitialDir = request.folder.empty() ? nullptr : wide(request.folder);
    dialog.lpstrTitle = title.empty() ? nullptr : wide(title);
    dialog.Flags = OFN_EXPLORER | OFN_NOCHANGEDIR | OFN_HIDEREADONLY | OFN_PATHMUSTEXIST |
                   (request.mayBeNew ? 0U : OFN_FILEMUSTEXIST);
    const ModalLock lock(dialog.hwndOwner);
    if (::GetOpenFileNameW(&dialog) != FALSE)
        return std::u16string(narrowView(dialog.lpstrFile));
    if (const DWORD failure = ::CommDlgExtendedError())
        throw errorFromStatus(static_cast<HRESULT>(0x80070000U | (failure & 0xFFFFU)), u"Open file dialog");
    return std::nullopt;
}

}  // namespace quorel::win32
