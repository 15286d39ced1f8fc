#pragma once

#include <string>

#include "platform/automation/class_table.h"
#include "platform/automation/native_object.h"
#include "platform/shell/folder_browser.h"

namespace quorel::dialogs {

/// The public class "QuorelUtility.DirectoryChooser": lets the user choose a folder in the system's tree. It
/// has no window of its own and no lifecycle.
class DirectoryChooser final : public automation::NativeObject {
  public:
    /// Without a browser, `PopUp` is error 5.
    explicit DirectoryChooser(shell::FolderBrowser* browser) noexcept : browser_(browser) {}

    [[nodiscard]] const automation::ClassTable& classTable() const override;

    /// What was chosen last, or set since. It decides nothing: the tree always opens at its top.
    [[nodiscard]] const std::u16string& Directory() const noexcept { return directory_; }
    void setDirectory(const std::u16string& value) { directory_ = value; }
    [[nodiscard]] bool Canceled() const noexcept { return canceled_; }
    /// The instruction over the tree.
    [[nodiscard]] const std::u16string& Caption() const noexcept { return caption_; }
    void setCaption(const std::u16string& value) { caption_ = value; }
    [[nodiscard]] bool ShowCreateButton() const noexcept { return showCreateButton_; }
    void setShowCreateButton(bool value) noexcept { showCreateButton_ = value; }
    /// Returns when the user has chosen or cancelled. An error, of a path of 260 characters and more too,
    /// leaves `Directory` and `Canceled` as they were.
    void PopUp();

  private:
    shell::FolderBrowser* browser_;
    std::u16string directory_;
    bool canceled_ = false;
    std::u16string caption_ = u"Select Directory";
    bool showCreateButton_ = true;
};

}  // namespace quorel::dialogs
