#pragma once

#include <filesystem>

#include "platform/shell/memory_settings_store.h"

namespace quorel::shell {

/// Settings in the file "settings.txt" of a folder, which is made when the first value is written. The file
/// is replaced as a whole, so that a crash leaves the old or the new one, and what other processes have
/// written meanwhile is read again first. A file that cannot be read is error 75, one of another form error
/// 51; neither is overwritten.
class FileSettingsStore final : public SettingsStore {
  public:
    explicit FileSettingsStore(const std::filesystem::path& folder) : file_(folder / "settings.txt") {}

    [[nodiscard]] std::optional<std::u16string> read(std::u16string_view application,
                                                     std::u16string_view section,
                                                     std::u16string_view key) override;
    void write(std::u16string_view application, std::u16string_view section, std::u16string_view key,
               std::u16string_view value) override;

  private:
    struct Stamp {
        std::filesystem::file_time_type time;
        std::uintmax_t size = 0;
        friend bool operator==(const Stamp&, const Stamp&) = default;
    };
    [[nodiscard]] std::optional<Stamp> stampOfFile() const;
    /// Reads the file if it is not the one that was read last.
    void refresh();
    void replaceFile(const std::string& text) const;

    std::filesystem::path file_;
    std::optional<Stamp> stamp_;
    SettingMap settings_;
};

}  // namespace quorel::shell
