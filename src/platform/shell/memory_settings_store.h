#pragma once

#include <map>
#include <optional>
#include <string>

#include "platform/shell/settings_store.h"

namespace quorel::shell {

/// Where a setting lives. Names ignore case, as those of the platform's store do.
struct SettingAddress {
    std::u16string application, section, key;
};

struct SettingAddressLess {
    [[nodiscard]] bool operator()(const SettingAddress& a, const SettingAddress& b) const;
};

using SettingMap = std::map<SettingAddress, std::u16string, SettingAddressLess>;

/// Settings that last as long as the object.
class MemorySettingsStore final : public SettingsStore {
  public:
    [[nodiscard]] std::optional<std::u16string> read(std::u16string_view application,
                                                     std::u16string_view section,
                                                     std::u16string_view key) override;
    void write(std::u16string_view application, std::u16string_view section, std::u16string_view key,
               std::u16string_view value) override;

  private:
    SettingMap settings_;
};

}  // namespace quorel::shell
