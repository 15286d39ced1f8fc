#include "hosts/spy/windows_tree.h"

#include <array>

#include "hosts/spy/remote_memory.h"

namespace quorel::spy {

namespace {

constexpr std::size_t kLongestName = 256;
constexpr std::size_t kLongestCaption = 4096;
constexpr UINT kPatience = 5000;  // milliseconds for a busy window to answer

}  // namespace

HWND findForm(const std::wstring& className) {
    HWND window = nullptr;
    while ((window = FindWindowExW(nullptr, window, className.c_str(), nullptr)) != nullptr)
        if (IsWindowVisible(window) != FALSE)
            return window;
    return nullptr;
}

std::wstring controlName(HWND control) {
    static const UINT message = RegisterWindowMessageW(L"WM_GETCONTROLNAME");
    const RemoteMemory buffer(control, kLongestName * sizeof(wchar_t));
    DWORD_PTR length = 0;
    if (SendMessageTimeoutW(control, message, kLongestName, reinterpret_cast<LPARAM>(buffer.address()),
                            SMTO_ABORTIFHUNG, kPatience, &length) == 0 ||
        length == 0)
        return {};
    return buffer.text(0, kLongestName);
}

std::vector<Found> descendants(HWND form) {
    std::vector<Found> found;
    const auto collect = [&found](const auto& self, HWND parent, int depth) -> void {
        HWND child = nullptr;
        while ((child = FindWindowExW(parent, child, nullptr, nullptr)) != nullptr) {
            found.push_back({child, depth});
            self(self, child, depth + 1);
        }
    };
    collect(collect, form, 1);
    return found;
}

HWND findControl(HWND form, const std::wstring& name) {
    for (const Found& found : descendants(form))
        if (controlName(found.window) == name)
            return found.window;
    return nullptr;
}

std::wstring windowText(HWND window) {
    std::wstring text(kLongestCaption, L'\0');
    DWORD_PTR length = 0;
    if (SendMessageTimeoutW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()),
                            SMTO_ABORTIFHUNG, kPatience, &length) == 0)
        return {};
    text.resize(length);
    return text;
}

std::wstring windowClass(HWND window) {
    std::array<wchar_t, kLongestName> name{};
    GetClassNameW(window, name.data(), static_cast<int>(name.size()));
    return name.data();
}

}  // namespace quorel::spy
