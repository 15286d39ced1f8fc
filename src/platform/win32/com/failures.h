#pragma once

// Automation errors as the platform carries them: EXCEPINFO, IErrorInfo, status codes.

#include <oaidl.h>
#include <windows.h>

#include <string_view>

#include "platform/automation/error.h"

namespace quorel::win32 {

/// 0x800A0000 + number for run-time errors; a status code that an error carries unchanged is itself.
[[nodiscard]] HRESULT statusOf(const automation::Error& error) noexcept;

/// The run-time error number that hosts give a status code, or the code itself when it has none.
[[nodiscard]] std::int32_t errorNumberOf(HRESULT status) noexcept;

/// The error that a failed Invoke reports, with the texts of `failure` (which is emptied) or, for codes that
/// come without it, of the thread's IErrorInfo.
[[nodiscard]] automation::Error errorOfInvoke(HRESULT status, EXCEPINFO& failure);

/// The error of a failed call through a virtual table: the text of the thread's IErrorInfo, when there is
/// one.
[[nodiscard]] automation::Error errorOfCall(HRESULT status);

/// Leaves texts for whoever called into this thread's code and sees it fail.
void leaveErrorInfo(const GUID& iid, std::u16string_view description, std::u16string_view source);

/// Reports the error being handled from an Invoke; to be called within a catch block. An empty source is
/// replaced by the module's name. `failure` may be null: then the status code says what it can.
[[nodiscard]] HRESULT reportInvoke(EXCEPINFO* failure) noexcept;

/// Reports the error being handled from a call through a virtual table of the interface `iid`.
[[nodiscard]] HRESULT reportCall(const GUID& iid) noexcept;

}  // namespace quorel::win32
