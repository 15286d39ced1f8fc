#include "platform/win32/ui/windows_value_pickers.h"

#include "platform/win32/system_error.h"
#include "platform/win32/ui/calendar_window.h"
#include "platform/win32/ui/modal_lock.h"
#include "platform/win32/ui/services.h"
#include "platform/win32/ui/system_headers.h"

namespace quorel::win32 {

namespace {
constexpr std::uint32_t kWhite = 0xFFFFFF;
}

WindowsValuePickers::WindowsValuePickers(WindowsDesktop& desktop) : desktop_(desktop) {
    mixed_.fill(kWhite);
}

std::optional<std::int32_t> WindowsValuePickers::pickColour(std::int32_t proposed) {
    const auto services = desktop_.services();
    const NativeScope scope(services->controls);
    std::array<COLORREF, 16> mixed{};
    std::copy(mixed_.begin(), mixed_.end(), mixed.begin());
    CHOOSECOLORW dialog{};
    dialog.lStructSize = sizeof(dialog);
    dialog.hwndOwner = ::GetActiveWindow();
    dialog.rgbResult = static_cast<COLORREF>(proposed);
    dialog.lpCustColors = mixed.data();
    dialog.Flags = CC_RGBINIT | CC_FULLOPEN | CC_ANYCOLOR;
    const ModalLock lock(dialog.hwndOwner);
    const bool chosen = ::ChooseColorW(&dialog) != FALSE;
    std::copy(mixed.begin(), mixed.end(), mixed_.begin());
    if (chosen)
        return static_cast<std::int32_t>(dialog.rgbResult);
    if (const DWORD failure = ::CommDlgExtendedError())
        throw errorFromStatus(static_cast<HRESULT>(0x80070000U | (failure & 0xFFFFU)), u"Colour dialog");
    return std::nullopt;
}

std::optional<shell::Day> WindowsValuePickers::pickDay(std::optional<shell::Day> proposed) {
    const auto services = desktop_.services();
    const NativeScope scope(services->controls);
    CalendarWindow calendar(services->classes, proposed);
    return calendar.run();
}

}  // namespace quorel::win32
