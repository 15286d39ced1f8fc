#pragma once

#include <windows.h>

#include "platform/win32/ui/live_counts.h"

namespace quorel::win32 {

/// While it lives, key presses that the thread takes from its queue for one of our windows are renamed, in
/// the queue's answer, to messages of our own: the host's loop hands them on without knowing them, whatever
/// accelerators or dialogs it has, and the window does with them what a dialog would (see NativeWindow).
/// Nothing is renamed while a menu is open or a window is being moved, which is when the system reads the
/// keys.
class KeyboardHook {
  public:
    KeyboardHook();

  private:
    CountedHook hook_;
};

/// What the renamed messages are called; their parameters are those of WM_KEYDOWN and WM_SYSKEYDOWN.
struct KeyMessages {
    UINT keyDown = 0;
    UINT sysKeyDown = 0;
};
[[nodiscard]] const KeyMessages& keyMessages() noexcept;

}  // namespace quorel::win32
