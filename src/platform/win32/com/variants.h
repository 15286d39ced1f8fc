#pragma once

// The steps between `Value` and VARIANT that both directions of the bridge share.

#include <oaidl.h>
#include <windows.h>

#include "platform/automation/value.h"
#include "platform/win32/com/bridge.h"
#include "platform/win32/com/com_ptr.h"
#include "platform/win32/com/this_module.h"

namespace quorel::win32 {

/// Frees the platform's strings that values have adopted; its address tells them from other texts.
void freeText(char16_t* text) noexcept;

/// An object whose code is another module's cannot be one of ours.
[[nodiscard]] inline bool isForeign(IDispatch* dispatch) noexcept {
    return dispatch != nullptr && !isInThisModule(*reinterpret_cast<void**>(dispatch));
}

/// `takeVariant` for what is no string and no object of another module.
[[nodiscard]] automation::Value takeOther(VARIANT& variant);

/// As `fromVariant`, but takes over what `variant` holds where that saves a copy; `variant` is empty
/// afterwards.
[[nodiscard]] inline automation::Value takeVariant(VARIANT& variant) {
    if (V_VT(&variant) == VT_BSTR) {
        V_VT(&variant) = VT_EMPTY;
        BSTR const text = V_BSTR(&variant);
        return automation::AdoptedText(reinterpret_cast<char16_t*>(text), viewOf(text).size(), freeText);
    }
    if (V_VT(&variant) == VT_DISPATCH && isForeign(V_DISPATCH(&variant))) {
        V_VT(&variant) = VT_EMPTY;
        return automation::Object::adopt(foreignBinding(), V_DISPATCH(&variant));
    }
    return takeOther(variant);
}

/// Follows references (VT_BYREF) of every kind and stores `value` in what they lead to, converted to its
/// type.
void storeThrough(const VARIANT& reference, const automation::Value& value);

/// Whether a variable that was given as `before` need not be written again to read as `after`.
[[nodiscard]] bool readsTheSame(const automation::Value& before, const automation::Value& after);

}  // namespace quorel::win32
