#pragma once

// The steps between `Value` and VARIANT that both directions of the bridge share.

#include <oaidl.h>
#include <windows.h>

#include "platform/automation/value.h"

namespace quorel::win32 {

/// As `fromVariant`, but takes over what `variant` holds where that saves a copy; `variant` is empty
/// afterwards.
[[nodiscard]] automation::Value takeVariant(VARIANT& variant);

/// Follows references (VT_BYREF) of every kind and stores `value` in what they lead to, converted to its
/// type.
void storeThrough(const VARIANT& reference, const automation::Value& value);

/// Whether a variable that was given as `before` need not be written again to read as `after`.
[[nodiscard]] bool readsTheSame(const automation::Value& before, const automation::Value& after);

}  // namespace quorel::win32
