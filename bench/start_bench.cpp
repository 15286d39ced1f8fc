// From the start of the navigator to its painted window, against an empty window of the same toolkit.

#include <windows.h>

#include <cstdio>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench/ratio.h"
#include "platform/win32/com/this_module.h"
#include "platform/win32/text.h"
#include "platform/win32/unique.h"

namespace quorel {
namespace {

constexpr DWORD kPatienceMs = 60'000;
constexpr int kRuns = 15;
constexpr double kAim = 2.0;

/// A program with one main window, which is closed at the end.
class Started {
  public:
    Started(std::u16string program, const wchar_t* windowClass) {
        STARTUPINFOW startup{};
        startup.cb = sizeof startup;
        PROCESS_INFORMATION made{};
        if (::CreateProcessW(nullptr, win32::wideBuffer(program), nullptr, nullptr, FALSE, 0, nullptr,
                             nullptr, &startup, &made) == FALSE)
            throw std::runtime_error("a program cannot be started");
        thread_.reset(made.hThread);
        process_.reset(made.hProcess);
        const ULONGLONG end = ::GetTickCount64() + kPatienceMs;
        while (!isPainted(windowClass))
            if (::GetTickCount64() > end)
                throw std::runtime_error("a window did not appear");
    }
    Started(const Started&) = delete;
    Started& operator=(const Started&) = delete;
    ~Started() {
        ::PostMessageW(window_, WM_CLOSE, 0, 0);
        ::WaitForSingleObject(process_.get(), kPatienceMs);
    }

  private:
    /// A visible window of which no part waits to be painted.
    bool isPainted(const wchar_t* windowClass) {
        ::Sleep(1);
        window_ = ::FindWindowW(windowClass, nullptr);
        if (window_ == nullptr || ::IsWindowVisible(window_) == FALSE)
            return false;
        return ::WaitForInputIdle(process_.get(), kPatienceMs) == 0 &&
               ::GetUpdateRect(window_, nullptr, FALSE) == FALSE;
    }

    win32::KernelHandle thread_, process_;
    HWND window_ = nullptr;
};

double secondsToWindow(const std::u16string& program, const wchar_t* windowClass) {
    std::optional<Started> started;
    return bench::seconds([&] { started.emplace(program, windowClass); });
}

int run() {
    const std::u16string folder = win32::thisModuleFolder();
    const std::u16string navigator = u"\"" + folder + u"\\navigator.exe\"",
                         bare = u"\"" + folder + u"\\bare_window.exe\"";
    const auto subject = [&] { return secondsToWindow(navigator, L"frmNavigator"); };
    const auto peer = [&] { return secondsToWindow(bare, L"frmBare"); };
    static_cast<void>(subject());
    static_cast<void>(peer());
    std::vector<double> subjects, peers, ratios;
    for (int i = 0; i < kRuns; ++i) {
        subjects.push_back(subject());
        peers.push_back(peer());
        ratios.push_back(subjects.back() / peers.back());
    }
    std::printf("start to painted window / of an empty window: %.0f ms / %.0f ms = %.2f (aim: %.2f)\n",
                bench::median(subjects) * 1e3, bench::median(peers) * 1e3, bench::median(ratios), kAim);
    return 0;
}

}  // namespace
}  // namespace quorel

int main() {
    try {
        return quorel::run();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
