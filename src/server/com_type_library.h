#pragma once

#include <oaidl.h>
#include <windows.h>

#include "platform/win32/com/com_ptr.h"

namespace quorel::server {

/// The description of a published interface, from the type library that this module carries; the same one
/// each time. Null when the library cannot be loaded.
[[nodiscard]] win32::ComPtr<ITypeInfo> typeInfoOf(const GUID& iid) noexcept;

}  // namespace quorel::server
