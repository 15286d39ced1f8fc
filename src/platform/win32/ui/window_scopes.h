#pragma once

#include <windows.h>

#include <utility>

namespace quorel::win32 {

/// Stops painting while the content is exchanged.
class RedrawPause {
  public:
    explicit RedrawPause(HWND window) noexcept
        : window_(window), visible_(::IsWindowVisible(window) != FALSE) {
        if (visible_)
            ::SendMessageW(window_, WM_SETREDRAW, FALSE, 0);
    }
    ~RedrawPause() {
        if (visible_)
            ::SendMessageW(window_, WM_SETREDRAW, TRUE, 0);
    }
    RedrawPause(const RedrawPause&) = delete;
    RedrawPause& operator=(const RedrawPause&) = delete;

  private:
    HWND window_;
    bool visible_;
};

/// Sets a flag for as long as it lives.
class Flagged {
  public:
    explicit Flagged(bool& flag) noexcept : flag_(flag), before_(std::exchange(flag, true)) {}
    ~Flagged() { flag_ = before_; }
    Flagged(const Flagged&) = delete;
    Flagged& operator=(const Flagged&) = delete;

  private:
    bool& flag_;
    bool before_;
};

}  // namespace quorel::win32
