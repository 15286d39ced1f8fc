#pragma once

#include <windows.h>

#include <atomic>
#include <map>
#include <memory>
#include <mutex>

#include "platform/ui/desktop.h"
#include "platform/win32/ui/drawing_tools.h"
#include "platform/win32/ui/native_scope.h"
#include "platform/win32/ui/thread_state.h"
#include "platform/win32/ui/window_classes.h"

namespace quorel::win32 {

/// What a desktop's windows share. They hold it, for a window that is closed by a handler of its own outlives
/// the call that closed it.
struct Services {
    explicit Services(HINSTANCE instance) : module(instance), controls(instance), classes(instance) {}

    /// The calling thread's state.
    [[nodiscard]] std::shared_ptr<ThreadState> thread() {
        const std::lock_guard lock(mutex);
        std::shared_ptr<ThreadState>& state = threads[::GetCurrentThreadId()];
        if (!state)
            state = std::make_shared<ThreadState>(classes);
        return state;
    }

    HINSTANCE module;
    ControlsContext controls;
    WindowClasses classes;
    DrawingTools tools;
    std::atomic<ui::Pointer> pointer{ui::Pointer::Default};
    std::mutex mutex;
    std::map<DWORD, std::shared_ptr<ThreadState>> threads;
};

}  // namespace quorel::win32
