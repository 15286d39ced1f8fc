#pragma once

#include <windows.h>

#include <mutex>
#include <set>
#include <string>
#include <string_view>

namespace quorel::win32 {

/// The window classes of one module, registered when first wanted and given back at the end. All of them have
/// the system's default procedure; behaviour is added per window.
class WindowClasses {
  public:
    explicit WindowClasses(HINSTANCE module) : module_(module) {}
    ~WindowClasses();
    WindowClasses(const WindowClasses&) = delete;
    WindowClasses& operator=(const WindowClasses&) = delete;

    /// Makes sure that the class exists and answers its name: `wanted`, cut to what the system takes, "Form"
    /// when empty, with "frm" before it when it is the name of one of the system's own classes.
    [[nodiscard]] std::u16string ensure(std::u16string_view wanted);

    [[nodiscard]] HINSTANCE module() const noexcept { return module_; }

  private:
    HINSTANCE module_;
    std::mutex mutex_;
    std::set<std::u16string> registered_;
};

}  // namespace quorel::win32
