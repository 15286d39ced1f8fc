#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/automation/error.h"
#include "platform/automation/value.h"
#include "platform/controls/file_selection.h"
#include "platform/ui/control.h"
#include "platform/ui/desktop.h"
#include "platform/ui/plain_controls.h"

namespace quorel::controls {

/// A box for the path of a file or a folder, its caption before it and a button behind it that opens the
/// system's dialog. Its state are the attributes of a `FileSelection`; what is typed is the "FilePath".
///
/// Made of plain controls: the box bears the name given; this container is "<name>.View", the others
/// "<name>.Message" and "<name>.Browse".
class FileSelector : public ui::Panel {
  public:
    /// Without dialogs there is no button.
    FileSelector(std::u16string_view name, ui::Desktop& desktop, shell::FileDialogs* dialogs);

    void SetAttribute(std::u16string_view name, const automation::Value& value);
    [[nodiscard]] automation::Value GetAttribute(std::u16string_view name) const;
    [[nodiscard]] std::u16string filePath() const { return selection_->text(u"FilePath"); }
    [[nodiscard]] bool isDirectory() const { return selection_->isDirectory(); }
    /// How much of the width, from the left, the caption takes; a third as long as nothing is said.
    void setCaptionWidth(ui::Twips width);

    /// The user has changed the path.
    ui::Event<> onChange;
    /// The user has left the box, or has chosen by the dialog.
    ui::Event<> onEntered;
    /// The dialog could not be shown.
    ui::Event<const automation::Error&> onFailure;

    [[nodiscard]] ui::Label& caption() noexcept { return *caption_; }
    [[nodiscard]] ui::TextBox& box() noexcept { return *box_; }
    [[nodiscard]] ui::Button& button() noexcept { return *button_; }
    /// What the box and the button take; a caption of several lines takes more.
    [[nodiscard]] ui::Twips neededHeight() const;

  private:
    void boundsChanged() override;
    void showAttributes();
    void browse();

    ui::Desktop& desktop_;
    automation::Ref<FileSelection> selection_;
    ui::Label* caption_;
    ui::TextBox* box_;
    ui::Button* button_;
    std::optional<ui::Twips> captionWidth_;
    std::shared_ptr<const bool> alive_ = std::make_shared<const bool>(true);
};

}  // namespace quorel::controls
