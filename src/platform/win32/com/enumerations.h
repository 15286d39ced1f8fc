#pragma once

#include <oaidl.h>
#include <windows.h>

#include <memory>

#include "platform/automation/calls.h"
#include "platform/win32/com/com_ptr.h"

namespace quorel::win32 {

/// Reads a foreign collection in batches.
[[nodiscard]] std::unique_ptr<automation::Enumerator> enumeratorOver(ComPtr<IEnumVARIANT> items);

/// A native collection as others enumerate it.
[[nodiscard]] ComPtr<IEnumVARIANT> enumerationOf(const automation::Object& collection);

}  // namespace quorel::win32
