#include "platform/win32/ui/taskbar_button.h"

#include <cmath>
#include <utility>

namespace quorel::win32 {

namespace {
constexpr ULONGLONG kSteps = 1000;
}  // namespace

void TaskbarButton::show(HWND window, std::optional<double> progress) {
    std::optional<ULONGLONG> wanted;
    if (progress)
        wanted = static_cast<ULONGLONG>(std::llround(*progress * kSteps));
    if (wanted == std::exchange(shown_, wanted))
        return;
    if (!tried_) {
        tried_ = true;
        const HRESULT made =
            ::CoCreateInstance(__uuidof(TaskbarList), nullptr, CLSCTX_INPROC_SERVER, __uuidof(ITaskbarList3),
                               reinterpret_cast<void**>(list_.out()));
        if (FAILED(made) || FAILED(list_->HrInit()))
            list_.reset();
    }
    if (!list_)
        return;
    if (wanted)
        list_->SetProgressValue(window, *wanted, kSteps);
    else
        list_->SetProgressState(window, TBPF_NOPROGRESS);
}

}  // namespace quorel::win32
