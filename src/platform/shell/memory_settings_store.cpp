#include "platform/shell/memory_settings_store.h"

#include <tuple>

#include "platform/automation/text.h"

namespace quorel::shell {

bool SettingAddressLess::operator()(const SettingAddress& a, const SettingAddress& b) const {
    const auto folded = [](const SettingAddress& address) {
        return std::tuple(automation::foldCase(address.application), automation::foldCase(address.section),
                          automation::foldCase(address.key));
    };
    return folded(a) < folded(b);
}

std::optional<std::u16string> MemorySettingsStore::read(std::u16string_view application,
                                                        std::u16string_view section,
                                                        std::u16string_view key) {
    const auto found =
        settings_.find({std::u16string(application), std::u16string(section), std::u16string(key)});
    return found != settings_.end() ? std::optional(found->second) : std::nullopt;
}

void MemorySettingsStore::write(std::u16string_view application, std::u16string_view section,
                                std::u16string_view key, std::u16string_view value) {
    settings_.insert_or_assign({std::u16string(application), std::u16string(section), std::u16string(key)},
                               std::u16string(value));
}

}  // namespace quorel::shell
