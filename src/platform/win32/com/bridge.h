#pragma once

// Where the library's objects and values meet the platform's: `Object` over IDispatch, `Value` over VARIANT,
// and back.

#include <oaidl.h>
#include <windows.h>

#include <string_view>

#include "platform/automation/object.h"
#include "platform/automation/value.h"
#include "platform/win32/com/com_ptr.h"

namespace quorel::win32 {

/// The binding of `Object`s that are an IDispatch of somebody else's.
[[nodiscard]] const automation::Binding& foreignBinding() noexcept;

/// A reference to `dispatch` (not taken over; null gives the empty reference). A native object of this module
/// that comes back is unwrapped.
[[nodiscard]] automation::Object fromDispatch(IDispatch* dispatch);

/// The same, taking over the count that the caller holds.
[[nodiscard]] automation::Object adoptDispatch(IDispatch* dispatch);

/// The object as others see it: a foreign one as it is, a native one by its one wrapper. Null for the empty
/// reference.
[[nodiscard]] ComPtr<IDispatch> toDispatch(const automation::Object& object);

/// References (VT_BYREF) are followed, numbers of every size become integers where they fit and doubles
/// otherwise. Throws `Error` 13 for what has no counterpart (arrays of several dimensions or of other things
/// than bytes and variants), 430 for an object that cannot be asked by name.
[[nodiscard]] automation::Value fromVariant(const VARIANT& variant);

/// Writes over `variant`, which must be empty or hold nothing to free.
void toVariant(const automation::Value& value, VARIANT& variant);
/// The same, but a string that came from the platform goes back as it is.
void toVariant(automation::Value&& value, VARIANT& variant);

/// Creates an object of a class that is registered with the platform, as `ClassRegistry` wants it: an
/// identifier nobody knows gives the empty reference, a class that fails to create throws its error.
[[nodiscard]] automation::Object createPlatformObject(std::u16string_view progId);

}  // namespace quorel::win32
