#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quorel::shell {

/// The per-user store of small strings, addressed by application, section and key: the one that hosts' own
/// `GetSetting`/`SaveSetting` use on Windows, a file in the user's configuration folder elsewhere.
class SettingsStore {
  public:
    virtual ~SettingsStore() = default;
    /// Empty when there is no such value. Throws `automation::Error` when the store cannot be read.
    [[nodiscard]] virtual std::optional<std::u16string> read(std::u16string_view application,
                                                             std::u16string_view section,
                                                             std::u16string_view key) = 0;
    /// Throws `automation::Error` when the store cannot be written.
    virtual void write(std::u16string_view application, std::u16string_view section, std::u16string_view key,
                       std::u16string_view value) = 0;
};

}  // namespace quorel::shell
