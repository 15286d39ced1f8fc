#pragma once

#include <string>

namespace quorel::scripthost {

/// The text of a script file: UTF-8 with or without a byte-order mark, or UTF-16 with one. Throws
/// `automation::Error` when it cannot be read.
[[nodiscard]] std::u16string readSource(const std::wstring& path);

}  // namespace quorel::scripthost
