#include "platform/win32/ui/thread_state.h"

#include <algorithm>
#include <utility>

#include "platform/win32/system_error.h"
#include "platform/win32/text.h"

namespace quorel::win32 {

namespace {
constexpr UINT kWakeUp = WM_APP;
constexpr UINT_PTR kUserServed = 1;

class RunningTask {
  public:
    explicit RunningTask(bool& flag) noexcept : flag_(flag), before_(std::exchange(flag, true)) {}
    ~RunningTask() { flag_ = before_; }
    RunningTask(const RunningTask&) = delete;
    RunningTask& operator=(const RunningTask&) = delete;

  private:
    bool& flag_;
    bool before_;
};
}  // namespace

ThreadState::~ThreadState() {
    close();
}

void ThreadState::leave() noexcept {
    --depth_;
    if (waiting_ == 0 || nextDue() == tasks_.end())
        return;
    for (; waiting_ > 0; --waiting_)
        ::PostMessageW(window_, kWakeUp, 0, 0);
}

void ThreadState::post(std::function<void()> task) {
    if (classes_ == nullptr)
        return;
    if (window_ == nullptr)
        makeWindow();
    tasks_.push_back({std::move(task), depth_});
    wakeUp();
}

// A posted message comes before input and painting, and a timer after both.
void ThreadState::wakeUp() {
    const auto userWaits = [] { return HIWORD(::GetQueueStatus(QS_INPUT | QS_PAINT)) != 0; };
    if (runsTask_ && userWaits() && ::SetTimer(window_, kUserServed, USER_TIMER_MINIMUM, nullptr) != 0)
        ++later_;
    else
        ::PostMessageW(window_, kWakeUp, 0, 0);
}

void ThreadState::userWasServed() {
    ::KillTimer(window_, kUserServed);
    for (; later_ > 0; --later_)
        ::PostMessageW(window_, kWakeUp, 0, 0);
}

void ThreadState::close() noexcept {
    const std::deque<Task> dropped = std::move(tasks_);
    tasks_.clear();
    classes_ = nullptr;
    dropWindow();
}

void ThreadState::makeWindow() {
    const std::u16string name = classes_->ensure(u"QuorelTasks");
    window_ = ::CreateWindowExW(0, wide(name), L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, classes_->module(),
                                nullptr);
    if (window_ == nullptr)
        throwLastError(u"CreateWindowEx");
    countMade(Counted::Window);
    ::SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    ::SetWindowLongPtrW(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&ThreadState::serve));
}

void ThreadState::dropWindow() noexcept {
    waiting_ = later_ = 0;
    if (const HWND window = std::exchange(window_, nullptr)) {
        ::DestroyWindow(window);
        countGone(Counted::Window);
    }
}

LRESULT CALLBACK ThreadState::serve(HWND window, UINT message, WPARAM w, LPARAM l) {
    auto* const state = reinterpret_cast<ThreadState*>(::GetWindowLongPtrW(window, GWLP_USERDATA));
    if (message == WM_TIMER && w == kUserServed)
        state->userWasServed();
    if (message != kWakeUp)
        return ::DefWindowProcW(window, message, w, l);
    try {
        state->runNext();
    } catch (...) {
        countStrayException();
    }
    return 0;
}

std::deque<ThreadState::Task>::iterator ThreadState::nextDue() noexcept {
    return std::find_if(tasks_.begin(), tasks_.end(),
                        [this](const Task& task) { return task.depth == 0 || depth_ < task.depth; });
}

void ThreadState::runNext() {
    const auto due = nextDue();
    if (due == tasks_.end()) {
        if (!tasks_.empty())
            ++waiting_;
        return;
    }
    const std::function<void()> run = std::move(due->run);
    tasks_.erase(due);
    if (tasks_.empty())
        dropWindow();
    const HandlerDepth scope(*this);
    const RunningTask running(runsTask_);
    run();
}

std::shared_ptr<KeyboardHook> ThreadState::keyboard() {
    auto hook = keyboard_.lock();
    if (!hook)
        keyboard_ = hook = std::make_shared<KeyboardHook>();
    return hook;
}

}  // namespace quorel::win32
