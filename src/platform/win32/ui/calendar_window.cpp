#include "platform/win32/ui/calendar_window.h"

#include <algorithm>
#include <chrono>

#include "platform/win32/system_error.h"
#include "platform/win32/text.h"
#include "platform/win32/ui/native_scope.h"
#include "platform/win32/ui/system_headers.h"

namespace quorel::win32 {

namespace {

using std::chrono::days;
using std::chrono::months;
using std::chrono::year_month_day;

[[nodiscard]] year_month_day toCivil(const SYSTEMTIME& time) {
    return year_month_day(std::chrono::year(time.wYear), std::chrono::month(time.wMonth),
                          std::chrono::day(time.wDay));
}

[[nodiscard]] SYSTEMTIME toSystem(const year_month_day& date) {
    SYSTEMTIME time{};
    time.wYear = static_cast<WORD>(static_cast<int>(date.year()));
    time.wMonth = static_cast<WORD>(static_cast<unsigned>(date.month()));
    time.wDay = static_cast<WORD>(static_cast<unsigned>(date.day()));
    return time;
}

/// The same day of another month, or that month's last.
[[nodiscard]] year_month_day inMonth(const year_month_day& date, months by) {
    const auto month = date.year() / date.month() + by;
    const year_month_day last(month / std::chrono::last);
    return month / std::min(date.day(), last.day());
}

[[nodiscard]] year_month_day moved(const year_month_day& from, WPARAM key) {
    const auto by = [&from](int count) { return year_month_day(std::chrono::sys_days(from) + days(count)); };
    switch (key) {
        case VK_LEFT:
            return by(-1);
        case VK_RIGHT:
            return by(1);
        case VK_UP:
            return by(-7);
        case VK_DOWN:
            return by(7);
        case VK_PRIOR:
            return inMonth(from, months(-1));
        case VK_NEXT:
            return inMonth(from, months(1));
        case VK_HOME:
            return from.year() / from.month() / std::chrono::day(1);
        case VK_END:
            return year_month_day(from.year() / from.month() / std::chrono::last);
        default:
            return from;
    }
}

constexpr DWORD kStyle = WS_POPUP | WS_BORDER | WS_CLIPCHILDREN;

}  // namespace

CalendarWindow::CalendarWindow(WindowClasses& classes, std::optional<shell::Day> proposed)
    : before_(::GetFocus()) {
    const std::u16string name = classes.ensure(u"frmCalendar");
    window_ = ::CreateWindowExW(WS_EX_TOOLWINDOW, wide(name), L"Calendar", kStyle, 0, 0, 0, 0,
                                ::GetActiveWindow(), nullptr, classes.module(), nullptr);
    if (window_ == nullptr)
        throwLastError(u"CreateWindowEx");
    calendar_ = ::CreateWindowExW(0, MONTHCAL_CLASSW, L"", WS_CHILD | WS_VISIBLE | WS_TABSTOP, 0, 0, 0, 0,
                                  window_, nullptr, classes.module(), nullptr);
    if (calendar_ == nullptr) {
        ::DestroyWindow(window_);
        throwLastError(u"CreateWindowEx");
    }
    const LOGFONTW font = messageFont(dpiOf(window_));
    font_.reset(::CreateFontIndirectW(&font));
    ::SendMessageW(calendar_, WM_SETFONT, reinterpret_cast<WPARAM>(font_.get()), FALSE);
    if (proposed) {
        SYSTEMTIME time{};
        time.wYear = static_cast<WORD>(proposed->year);
        time.wMonth = static_cast<WORD>(proposed->month);
        time.wDay = static_cast<WORD>(proposed->day);
        // A day that the calendar does not know leaves today.
        MonthCal_SetCurSel(calendar_, &time);
    }
    ::SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    ::SetWindowLongPtrW(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&CalendarWindow::serve));
    show(before_ != nullptr ? before_ : ::GetActiveWindow());
}

CalendarWindow::~CalendarWindow() {
    ::SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
    ::DestroyWindow(window_);
}

void CalendarWindow::show(HWND below) {
    RECT client{};
    MonthCal_GetMinReqRect(calendar_, &client);
    ::MoveWindow(calendar_, 0, 0, client.right, client.bottom, FALSE);
    ::AdjustWindowRectEx(&client, kStyle, FALSE, WS_EX_TOOLWINDOW);
    const LONG width = client.right - client.left;
    const LONG height = client.bottom - client.top;
    RECT anchor{};
    ::GetWindowRect(below, &anchor);
    MONITORINFO monitor{};
    monitor.cbSize = sizeof(monitor);
    ::GetMonitorInfoW(::MonitorFromRect(&anchor, MONITOR_DEFAULTTONEAREST), &monitor);
    const RECT& area = monitor.rcWork;
    const LONG top = anchor.bottom + height <= area.bottom ? anchor.bottom : anchor.top - height;
    const LONG left = std::clamp(anchor.right - width, area.left, std::max(area.left, area.right - width));
    ::SetWindowPos(window_, HWND_TOP, left, std::max(top, area.top), width, height, SWP_SHOWWINDOW);
    ::SetFocus(calendar_);
}

std::optional<shell::Day> CalendarWindow::run() {
    MSG message{};
    while (open_) {
        const BOOL more = ::GetMessageW(&message, nullptr, 0, 0);
        if (more <= 0) {
            // The thread is to end; whoever runs its loop has to know.
            if (more == 0)
                ::PostQuitMessage(static_cast<int>(message.wParam));
            break;
        }
        if (key(message))
            continue;
        ::TranslateMessage(&message);
        ::DispatchMessageW(&message);
    }
    ::ShowWindow(window_, SW_HIDE);
    if (::IsWindow(before_) != FALSE)
        ::SetFocus(before_);
    return chosen_;
}

bool CalendarWindow::key(const MSG& message) {
    const bool isKey = message.message == WM_KEYDOWN || message.message == WM_SYSKEYDOWN;
    if (!isKey || (message.hwnd != calendar_ && message.hwnd != window_))
        return false;
    const bool alt = message.message == WM_SYSKEYDOWN;
    if (message.wParam == VK_RETURN && !alt)
        choose();
    else if (message.wParam == VK_ESCAPE || (message.wParam == VK_F4 && !alt) ||
             (message.wParam == VK_UP && alt))
        open_ = false;
    else
        return !alt && goTo(message.wParam);
    return true;
}

/// Left to the calendar while it shows years or decades instead of a month.
bool CalendarWindow::goTo(WPARAM key) {
    SYSTEMTIME time{};
    if (::SendMessageW(calendar_, MCM_GETCURRENTVIEW, 0, 0) != MCMV_MONTH ||
        MonthCal_GetCurSel(calendar_, &time) == FALSE)
        return false;
    const year_month_day from = toCivil(time);
    const year_month_day to = moved(from, key);
    if (to == from)
        return false;
    time = toSystem(to);
    MonthCal_SetCurSel(calendar_, &time);
    return true;
}

void CalendarWindow::choose() {
    SYSTEMTIME time{};
    if (MonthCal_GetCurSel(calendar_, &time) != FALSE)
        chosen_ = shell::Day{time.wYear, time.wMonth, time.wDay};
    open_ = false;
}

LRESULT CALLBACK CalendarWindow::serve(HWND window, UINT message, WPARAM w, LPARAM l) {
    auto* const self = reinterpret_cast<CalendarWindow*>(::GetWindowLongPtrW(window, GWLP_USERDATA));
    if (self == nullptr)
        return ::DefWindowProcW(window, message, w, l);
    if (message == WM_NOTIFY && reinterpret_cast<const NMHDR*>(l)->code == MCN_SELECT) {
        self->choose();
        return 0;
    }
    const bool left = message == WM_ACTIVATE && LOWORD(w) == WA_INACTIVE;
    if (left || message == WM_CLOSE || message == WM_DESTROY)
        self->open_ = false;
    return message == WM_CLOSE ? 0 : ::DefWindowProcW(window, message, w, l);
}

}  // namespace quorel::win32
