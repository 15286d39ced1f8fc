#include "tests/platform/win32/ui/windows_fixture.h"

namespace quorel::win32::testing {

Errand::Errand(std::function<void()> run)
    : run_(std::move(run)),
      window_(::CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr)) {
    ::SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    ::SetWindowLongPtrW(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Errand::serve));
    ::PostMessageW(window_, WM_APP, 0, 0);
}

Errand::~Errand() {
    ::DestroyWindow(window_);
}

LRESULT CALLBACK Errand::serve(HWND window, UINT message, WPARAM w, LPARAM l) {
    auto* const self = reinterpret_cast<Errand*>(::GetWindowLongPtrW(window, GWLP_USERDATA));
    if (message != WM_APP || self == nullptr)
        return ::DefWindowProcW(window, message, w, l);
    self->done_ = true;
    self->run_();
    return 0;
}

}  // namespace quorel::win32::testing
