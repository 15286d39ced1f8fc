#pragma once

#include <string>
#include <vector>

#include "platform/automation/object.h"

namespace quorel::settings {

/// What a setting's node says of it, each as text; "" for what is not set.
struct SettingRecord {
    std::u16string name;
    std::u16string value;
    std::u16string editType;
    std::u16string editCategory;
    std::u16string editDescription;

    /// What is said of it beside its control: the description, or else the name.
    [[nodiscard]] const std::u16string& caption() const noexcept {
        return editDescription.empty() ? name : editDescription;
    }
};

/// Appends the settings that a list has links to, in their order. Throws what the repository throws; what was
/// read until then is in `records`.
void readSettingRecords(const automation::Object& list, std::vector<SettingRecord>& records);

}  // namespace quorel::settings
