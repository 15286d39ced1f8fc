#pragma once

#include <windows.h>

#include <vector>

namespace quorel::win32 {

/// While it lives, no top-level window of the thread but one takes input. At the end exactly those windows
/// take it again, and the one that was active is active again if the exception is.
class ModalLock {
  public:
    /// `except` may be null.
    explicit ModalLock(HWND except);
    ~ModalLock() { release(); }
    ModalLock(const ModalLock&) = delete;
    ModalLock& operator=(const ModalLock&) = delete;

    /// Before the modal window hides: otherwise the system would have to activate some other program's
    /// window.
    void release() noexcept;

  private:
    HWND except_;
    HWND activeBefore_;
    std::vector<HWND> locked_;
};

}  // namespace quorel::win32
