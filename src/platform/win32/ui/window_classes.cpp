#include "platform/win32/ui/window_classes.h"

#include "platform/win32/system_error.h"
#include "platform/win32/text.h"
#include "platform/win32/ui/native_text.h"

namespace quorel::win32 {

namespace {

constexpr std::size_t kMostNameUnits = 200;

[[nodiscard]] bool exists(HINSTANCE module, const std::u16string& name) noexcept {
    WNDCLASSEXW found{};
    found.cbSize = sizeof(found);
    return ::GetClassInfoExW(module, wide(name), &found) != FALSE;
}

}  // namespace

WindowClasses::~WindowClasses() {
    for (const std::u16string& name : registered_)
        ::UnregisterClassW(wide(name), module_);
}

std::u16string WindowClasses::ensure(std::u16string_view wanted) {
    std::u16string name = wanted.empty() ? u"Form" : shownLine(wanted, kMostNameUnits);
    const std::lock_guard lock(mutex_);
    if (!registered_.contains(name) && exists(nullptr, name))
        name.insert(0, u"frm");
    if (exists(module_, name))
        return name;
    WNDCLASSEXW window{};
    window.cbSize = sizeof(window);
    window.style = CS_DBLCLKS;
    window.lpfnWndProc = ::DefWindowProcW;
    window.hInstance = module_;
    // The module's first icon, if it carries one.
    window.hIcon = ::LoadIconW(module_, MAKEINTRESOURCEW(1));
    window.hCursor = ::LoadCursorW(nullptr, IDC_ARROW);
    window.lpszClassName = wide(name);
    if (::RegisterClassExW(&window) == 0)
        throwLastError(u"RegisterClassEx");
    registered_.insert(name);
    return name;
}

}  // namespace quorel::win32
