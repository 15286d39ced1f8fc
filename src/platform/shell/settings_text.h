#pragma once

#include <string>
#include <string_view>

#include "platform/shell/memory_settings_store.h"

namespace quorel::shell {

/// The file format of settings: UTF-8, one setting a line, the four texts (application, section, key, value)
/// separated by tabs. Backslash, tab, line feed, carriage return and NUL are written as \\ \t \n \r \0.
[[nodiscard]] std::string formatSettings(const SettingMap& settings);

/// Reads what `formatSettings` writes; lines may end in CR LF and the last may lack its end. Throws
/// `automation::Error` 51 naming the first line that is not of this form.
[[nodiscard]] SettingMap parseSettings(std::string_view text);

}  // namespace quorel::shell
