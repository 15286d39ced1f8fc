#pragma once

#include <windows.h>

#include <optional>

#include "platform/shell/value_pickers.h"
#include "platform/win32/ui/window_classes.h"
#include "platform/win32/unique.h"

namespace quorel::win32 {

/// A month calendar in a window of the class `frmCalendar`, below what has the keyboard. A click on a day or
/// Enter chooses; Esc, F4, Alt+Up and a click elsewhere do not. The arrow keys go by days and weeks, Page Up
/// and Page Down by months, Home and End to the ends of the month.
class CalendarWindow {
  public:
    /// Throws `automation::Error` when there can be no window.
    CalendarWindow(WindowClasses& classes, std::optional<shell::Day> proposed);
    ~CalendarWindow();
    CalendarWindow(const CalendarWindow&) = delete;
    CalendarWindow& operator=(const CalendarWindow&) = delete;

    /// Returns when the user has chosen or not.
    [[nodiscard]] std::optional<shell::Day> run();

  private:
    static LRESULT CALLBACK serve(HWND window, UINT message, WPARAM w, LPARAM l);
    void show(HWND below);
    /// True if the key is one of the calendar's.
    [[nodiscard]] bool key(const MSG& message);
    [[nodiscard]] bool goTo(WPARAM key);
    void choose();

    HWND before_;
    FontHandle font_;
    HWND window_ = nullptr;
    HWND calendar_ = nullptr;
    bool open_ = true;
    std::optional<shell::Day> chosen_;
};

}  // namespace quorel::win32
