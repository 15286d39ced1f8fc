#pragma once

#include <windows.h>

#include <string_view>

#include "platform/automation/error.h"

namespace quorel::win32 {

/// The automation error of a failed status code: the run-time error it carries (0x800A....), the run-time
/// error of the same meaning (memory, type mismatch, overflow ...), or else the code itself. The description
/// is the system's text, or `what` where it has none; `what` also names the failed operation in the source.
[[nodiscard]] automation::Error errorFromStatus(HRESULT status, std::u16string_view what);

/// The same for a code of GetLastError (and of the registry functions).
[[nodiscard]] automation::Error errorFromCode(DWORD code, std::u16string_view what);

/// Throws the calling thread's last error.
[[noreturn]] void throwLastError(std::u16string_view what);

/// Throws when `status` is a failure.
void check(HRESULT status, std::u16string_view what);

}  // namespace quorel::win32
