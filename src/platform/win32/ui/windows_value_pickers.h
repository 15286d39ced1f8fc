#pragma once

#include <array>
#include <cstdint>

#include "platform/shell/value_pickers.h"
#include "platform/win32/ui/windows_desktop.h"

namespace quorel::win32 {

/// The system's colour dialog, over the window that is active, and its month calendar.
class WindowsValuePickers final : public shell::ValuePickers {
  public:
    /// The desktop must outlive it.
    explicit WindowsValuePickers(WindowsDesktop& desktop);

    [[nodiscard]] std::optional<std::int32_t> pickColour(std::int32_t proposed) override;
    [[nodiscard]] std::optional<shell::Day> pickDay(std::optional<shell::Day> proposed) override;

  private:
    WindowsDesktop& desktop_;
    /// What users have mixed, for the next time.
    std::array<std::uint32_t, 16> mixed_;
};

}  // namespace quorel::win32
