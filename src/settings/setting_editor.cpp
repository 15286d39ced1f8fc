#include "settings/setting_editor.h"

#include <filesystem>

#include "frame/attempt.h"
#include "platform/automation/text.h"
#include "platform/controls/file_selector.h"

namespace quorel::settings {

namespace fs = std::filesystem;

controls::FileSelector& SettingEditor::selector() const noexcept {
    return static_cast<controls::FileSelector&>(*control);
}

std::u16string SettingEditor::value() const {
    if (kind == EditKind::Boolean)
        return automation::decimal(static_cast<std::int32_t>(static_cast<ui::CheckBox&>(*control).value()));
    if (kind == EditKind::File || kind == EditKind::Directory)
        return selector().filePath();
    return control->text();
}

void SettingEditor::setValue(const std::u16string& text) {
    if (kind == EditKind::Boolean)
        static_cast<ui::CheckBox&>(*control).setValue(checkValueOf(text));
    else if (kind == EditKind::File || kind == EditKind::Directory)
        selector().SetAttribute(u"FilePath", text);
    else
        control->setText(text);
}

bool SettingEditor::contains(const std::u16string& folded) const {
    for (const std::u16string& text : {caption, name, category, value()})
        if (automation::foldCase(text).find(folded) != std::u16string::npos)
            return true;
    return false;
}

ui::Control& SettingEditor::focusTarget() const noexcept {
    const bool isSelector = kind == EditKind::File || kind == EditKind::Directory;
    return isSelector ? selector().box() : *control;
}

ui::CheckValue checkValueOf(std::u16string_view text) noexcept {
    if (text == u"1" || text == u"-1" || automation::equalsIgnoringCase(text, u"true"))
        return ui::CheckValue::Checked;
    return text == u"2" ? ui::CheckValue::Grayed : ui::CheckValue::Unchecked;
}

std::u16string complaintAbout(EditKind kind, const std::u16string& path) {
    if (path.empty() || (kind != EditKind::File && kind != EditKind::Directory))
        return {};
    const bool isFile = kind == EditKind::File;
    bool found = false;
    // A text that is no path at all is not there either.
    frame::attempt([&] {
        std::error_code failure;
        const fs::file_status status = fs::status(fs::path(path), failure);
        found = fs::exists(status) && fs::is_directory(status) != isFile;
    });
    if (found)
        return {};
    return (isFile ? u"There is no file " : u"There is no folder ") + path;
}

}  // namespace quorel::settings
