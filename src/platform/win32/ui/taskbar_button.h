#pragma once

#include <shobjidl.h>
#include <windows.h>

#include <optional>

#include "platform/win32/unique.h"

namespace quorel::win32 {

/// The progress that the shell shows on a window's button in the task bar. Silent where there is no shell.
class TaskbarButton {
  public:
    /// 0 to 1; none takes the progress away.
    void show(HWND window, std::optional<double> progress);

  private:
    static void release(ITaskbarList3* list) noexcept { list->Release(); }

    Unique<ITaskbarList3*, release> list_;
    bool tried_ = false;
    std::optional<ULONGLONG> shown_;  ///< in steps
};

}  // namespace quorel::win32
