#pragma once

#include <windows.h>

#include <deque>
#include <functional>
#include <memory>

#include "platform/win32/ui/keyboard_hook.h"
#include "platform/win32/ui/window_classes.h"

namespace quorel::win32 {

/// What the windows of one thread share: how deep their procedures are nested, the tasks that wait for the
/// message loop, the keyboard hook. Used by that thread alone.
class ThreadState {
  public:
    explicit ThreadState(WindowClasses& classes) : classes_(&classes) {}
    ~ThreadState();
    ThreadState(const ThreadState&) = delete;
    ThreadState& operator=(const ThreadState&) = delete;

    /// Around everything that may run handlers.
    void enter() noexcept { ++depth_; }
    void leave() noexcept;

    /// Runs `task` from the message loop, but not before the handlers that run now have returned: a loop
    /// nested in one of them (a modal window, a message box) leaves it waiting. A task that a task posts lets
    /// what the user does and what is to be painted go first, so that work in slices stops nobody.
    void post(std::function<void()> task);
    [[nodiscard]] bool hasTasks() const noexcept { return !tasks_.empty(); }
    /// Drops what waits; nothing is taken afterwards.
    void close() noexcept;

    /// The thread's hook, installed for as long as somebody holds it.
    [[nodiscard]] std::shared_ptr<KeyboardHook> keyboard();

  private:
    struct Task {
        std::function<void()> run;
        int depth;  ///< how many handlers ran when it was posted
    };
    static LRESULT CALLBACK serve(HWND window, UINT message, WPARAM w, LPARAM l);
    void makeWindow();
    void dropWindow() noexcept;
    void wakeUp();
    void userWasServed();
    [[nodiscard]] std::deque<Task>::iterator nextDue() noexcept;
    void runNext();

    WindowClasses* classes_;
    int depth_ = 0;
    int waiting_ = 0;  ///< wake-ups that found nothing they may run yet
    int later_ = 0;    ///< wake-ups that let the user go first
    bool runsTask_ = false;
    HWND window_ = nullptr;
    std::deque<Task> tasks_;
    std::weak_ptr<KeyboardHook> keyboard_;
};

/// Holds `enter` and `leave` together.
class HandlerDepth {
  public:
    explicit HandlerDepth(ThreadState& thread) noexcept : thread_(thread) { thread_.enter(); }
    ~HandlerDepth() { thread_.leave(); }
    HandlerDepth(const HandlerDepth&) = delete;
    HandlerDepth& operator=(const HandlerDepth&) = delete;

  private:
    ThreadState& thread_;
};

}  // namespace quorel::win32
