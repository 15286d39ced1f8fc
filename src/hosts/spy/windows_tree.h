#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <vector>

namespace quorel::spy {

/// The visible top-level window of that native class, or null.
[[nodiscard]] HWND findForm(const std::wstring& className);

/// What a control answers to the registered message `WM_GETCONTROLNAME`; empty when it does not know the
/// message.
[[nodiscard]] std::wstring controlName(HWND control);

/// A control at any depth: its window and its distance from the form.
struct Found {
    HWND window = nullptr;
    int depth = 0;
};
[[nodiscard]] std::vector<Found> descendants(HWND form);
[[nodiscard]] HWND findControl(HWND form, const std::wstring& name);

[[nodiscard]] std::wstring windowText(HWND window);
[[nodiscard]] std::wstring windowClass(HWND window);

}  // namespace quorel::spy
