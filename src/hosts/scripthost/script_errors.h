#pragma once

#include <activscp.h>
#include <windows.h>

#include <string>

#include "platform/automation/error.h"

namespace quorel::scripthost {

/// Number, description and source of what an engine tells of.
[[nodiscard]] automation::Error errorOf(IActiveScriptError& error);

/// `file(line, column) source: description (number)`: lines and columns from 1; run-time errors in decimal,
/// other status codes in hexadecimal.
[[nodiscard]] std::u16string describe(IActiveScriptError& place, const automation::Error& error,
                                      const std::u16string& file);

/// A failure without a place in the script.
[[nodiscard]] std::u16string describe(HRESULT status, const std::u16string& file);

}  // namespace quorel::scripthost
