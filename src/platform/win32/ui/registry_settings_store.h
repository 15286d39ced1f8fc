#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/shell/settings_store.h"

namespace quorel::win32 {

/// The store that hosts' own `GetSetting` and `SaveSetting` use: in the current user's registry under
/// `Software\VB and VBA Program Settings\<application>\<section>`, one string value for a key.
///
/// Ordinary names stand there as they are. What the registry cannot hold in a name is escaped, so that no
/// name leads out of its place and any name finds its value again: U+241B followed by four hexadecimal digits
/// stands for a backslash, a NUL and U+241B itself; U+241B alone for the empty name; a name that is then
/// longer than 200 units is its beginning, U+241B, "#" and its SHA-256 in hexadecimal. The registry does not
/// tell upper from lower case. Values keep embedded NULs.
class RegistrySettingsStore : public shell::SettingsStore {
  public:
    RegistrySettingsStore();
    /// Below another key of the current user than the hosts' own.
    explicit RegistrySettingsStore(std::u16string_view root) : root_(root) {}

    [[nodiscard]] std::optional<std::u16string> read(std::u16string_view application,
                                                     std::u16string_view section,
                                                     std::u16string_view key) override;
    void write(std::u16string_view application, std::u16string_view section, std::u16string_view key,
               std::u16string_view value) override;

  private:
    [[nodiscard]] std::u16string path(std::u16string_view application, std::u16string_view section) const;

    std::u16string root_;
};

/// The name in the registry of an application, section or key.
[[nodiscard]] std::u16string registryName(std::u16string_view name);

}  // namespace quorel::win32
