#pragma once

#include "platform/shell/file_dialogs.h"
#include "platform/shell/folder_browser.h"
#include "platform/win32/ui/windows_desktop.h"

namespace quorel::win32 {

/// The system's own dialogs, over the window that is active.
class WindowsFileDialogs final : public shell::FileDialogs, public shell::FolderBrowser {
  public:
    /// The desktop must outlive it.
    explicit WindowsFileDialogs(WindowsDesktop& desktop) : desktop_(desktop) {}

    [[nodiscard]] std::optional<std::u16string> openFile(const Request& request) override;
    [[nodiscard]] std::optional<std::u16string> saveFile(const Request& request) override;
    [[nodiscard]] std::optional<std::u16string> chooseFolder(const Request& request) override;
    /// Over no window.
    [[nodiscard]] std::optional<std::u16string> browse(std::u16string_view title,
                                                       bool offersNewFolder) override;

  private:
    WindowsDesktop& desktop_;
};

}  // namespace quorel::win32
