#pragma once

#include <oaidl.h>
#include <windows.h>

#include <string_view>

#include "platform/automation/object.h"

namespace quorel::win32 {

/// The id of a foreign object's member. Throws `Error` 438 when it has none of that name.
[[nodiscard]] automation::MemberId resolveForeign(IDispatch& dispatch, std::u16string_view name);

}  // namespace quorel::win32
