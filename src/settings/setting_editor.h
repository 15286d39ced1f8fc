#pragma once

#include <cstddef>
#include <string>

#include "platform/ui/check_box.h"
#include "platform/ui/plain_controls.h"
#include "settings/setting_form_plan.h"

namespace quorel::controls {
class FileSelector;
}

namespace quorel::settings {

/// One setting in the options window: its controls, which their page owns, and what it was.
struct SettingEditor {
    EditKind kind = EditKind::Text;
    std::size_t tab = 0;
    std::u16string name;     ///< what it is stored under
    std::u16string caption;  ///< as it was given
    std::u16string category;
    std::u16string atOpening;  ///< its value when the controls were made
    std::u16string stored;     ///< the same, or what has been stored since

    ui::Control* control = nullptr;  ///< of the kind: a text box, a file selector, a check box
    ui::PictureBox* mark = nullptr;
    ui::Button* reset = nullptr;  ///< none where nothing can be changed

    /// The text that is stored: what a box holds, "0" or "1" of a check box.
    [[nodiscard]] std::u16string value() const;
    void setValue(const std::u16string& text);
    [[nodiscard]] bool isStored() const noexcept { return kind != EditKind::Show; }
    [[nodiscard]] bool isChanged() const { return isStored() && value() != atOpening; }
    /// True if its caption, name, category or value contains the text, which is folded.
    [[nodiscard]] bool contains(const std::u16string& folded) const;
    /// Where the user acts on it.
    [[nodiscard]] ui::Control& focusTarget() const noexcept;
    [[nodiscard]] controls::FileSelector& selector() const noexcept;
};

/// How a check box shows a stored text: "0", "1" and "2" as such, "-1" and "True" as checked, all else as
/// unchecked.
[[nodiscard]] ui::CheckValue checkValueOf(std::u16string_view text) noexcept;

/// What is wrong with a path, as a sentence; "" when nothing is. An empty path names nothing.
[[nodiscard]] std::u16string complaintAbout(EditKind kind, const std::u16string& path);

}  // namespace quorel::settings
