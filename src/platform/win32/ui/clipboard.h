#pragma once

#include <string>
#include <string_view>

namespace quorel::win32 {

/// The text on the clipboard; empty when it holds none.
[[nodiscard]] std::u16string readClipboard();

/// Replaces what the clipboard holds. Programs read such a text up to its first NUL, so a NUL goes as U+2400.
/// Throws `automation::Error` when another program keeps the clipboard open.
void writeClipboard(std::u16string_view text);

}  // namespace quorel::win32
