#pragma once

#include <string>
#include <string_view>
#include <unordered_map>

#include "platform/automation/class_registry.h"
#include "platform/automation/class_table.h"
#include "platform/automation/native_object.h"
#include "platform/automation/text.h"
#include "platform/shell/file_dialogs.h"

namespace quorel::controls {

/// What a file selector knows, "VardekFileSelector.FileSelector": attributes by name, and the system's
/// dialogs to choose by. Names ignore case; a new attribute is as good as a known one.
///
/// | Attribute          | What it is                                                      |
/// |--------------------|-----------------------------------------------------------------|
/// | "FilePath"         | what is selected                                                |
/// | "Mode"             | "Directory" for folders, anything else ("File") for files       |
/// | "DefaultExtension" | what a file name without an extension gets, ".txt"              |
/// | "Filter"           | "description|pattern", any number of them with bars between     |
/// | "Message"          | what is asked for: before the box, and the title of the dialogs |
class FileSelection final : public automation::NativeObject {
  public:
    /// Without dialogs nothing can be browsed for.
    explicit FileSelection(shell::FileDialogs* dialogs);
    [[nodiscard]] const automation::ClassTable& classTable() const override;

    void SetAttribute(const std::u16string& name, const automation::Value& value);
    /// Empty for one that nobody has set.
    [[nodiscard]] automation::Value GetAttribute(const std::u16string& name) const;
    /// Lets the user choose, beginning where "FilePath" is. True if it was chosen, and is the "FilePath" now.
    bool Browse();

    [[nodiscard]] std::u16string text(std::u16string_view attribute) const;
    [[nodiscard]] bool isDirectory() const;
    [[nodiscard]] bool canBrowse() const noexcept { return dialogs_ != nullptr; }

  private:
    shell::FileDialogs* dialogs_;
    std::unordered_map<std::u16string, automation::Value, automation::FoldedHash, automation::FoldedEqual>
        attributes_;
};

/// Makes the selector and the file-type table known under their programmatic identifiers.
void registerFileClasses(automation::ClassRegistry& classes, shell::FileDialogs* dialogs);

}  // namespace quorel::controls
