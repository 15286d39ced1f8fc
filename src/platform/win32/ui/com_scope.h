#pragma once

#include <objbase.h>
#include <windows.h>

namespace quorel::win32 {

/// COM for as long as it lives, in whatever apartment the thread has.
class ComScope {
  public:
    ComScope() noexcept : entered_(SUCCEEDED(::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) {}
    ~ComScope() {
        if (entered_)
            ::CoUninitialize();
    }
    ComScope(const ComScope&) = delete;
    ComScope& operator=(const ComScope&) = delete;

  private:
    bool entered_;
};

}  // namespace quorel::win32
