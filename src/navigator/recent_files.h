#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "platform/shell/settings_store.h"

namespace quorel::navigator {

/// The files that were opened last, the latest first, kept per user. Paths that differ in the case of letters
/// only are one file. Every member throws what the store throws.
class RecentFiles {
  public:
    /// As many as can be kept at all.
    static constexpr std::size_t kMost = 20;

    explicit RecentFiles(shell::SettingsStore& settings) noexcept : settings_(settings) {}

    [[nodiscard]] std::vector<std::u16string> read() const;
    /// Puts the file first; of the others the latest stay, `limit` in all.
    void add(const std::u16string& path, std::size_t limit);
    void remove(const std::u16string& path);

  private:
    void write(const std::vector<std::u16string>& paths);

    shell::SettingsStore& settings_;
};

}  // namespace quorel::navigator
