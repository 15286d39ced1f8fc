#pragma once

#include <oaidl.h>
#include <windows.h>

namespace quorel::win32 {

/// Equal and not null for two objects exactly when their type information proves them of one type; see
/// `Binding::typeKey`. Objects that can grow members of their own (IDispatchEx) prove nothing.
[[nodiscard]] const void* typeKeyOf(IDispatch& dispatch) noexcept;

}  // namespace quorel::win32
