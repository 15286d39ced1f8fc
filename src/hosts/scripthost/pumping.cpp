#include "hosts/scripthost/pumping.h"

#include <windows.h>

#include <algorithm>

namespace quorel::scripthost {

namespace {

void serveWaiting() {
    MSG message;
    while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
        ::TranslateMessage(&message);
        ::DispatchMessageW(&message);
    }
}

}  // namespace

void sleepPumping(std::int32_t milliseconds) {
    const ULONGLONG end = ::GetTickCount64() + static_cast<ULONGLONG>(std::max(milliseconds, 0));
    for (;;) {
        serveWaiting();
        const ULONGLONG now = ::GetTickCount64();
        if (now >= end)
            return;
        ::MsgWaitForMultipleObjectsEx(0, nullptr, static_cast<DWORD>(end - now), QS_ALLINPUT,
                                      MWMO_INPUTAVAILABLE);
    }
}

}  // namespace quorel::scripthost
