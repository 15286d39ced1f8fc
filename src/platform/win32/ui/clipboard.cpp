#include "platform/win32/ui/clipboard.h"

#include <windows.h>

#include <cstring>

#include "platform/ui/shown_text.h"
#include "platform/win32/system_error.h"
#include "platform/win32/text.h"
#include "platform/win32/ui/native_text.h"
#include "platform/win32/unique.h"

namespace quorel::win32 {

namespace {

constexpr int kAttempts = 10;
constexpr DWORD kPause = 10;

/// Open for as long as it lives. Another program may have it for a moment, so there are several attempts.
class OpenClipboardScope {
  public:
    OpenClipboardScope() noexcept {
        for (int attempt = 0; !(open_ = ::OpenClipboard(nullptr) != FALSE) && attempt < kAttempts; ++attempt)
            ::Sleep(kPause);
    }
    ~OpenClipboardScope() {
        if (open_)
            ::CloseClipboard();
    }
    OpenClipboardScope(const OpenClipboardScope&) = delete;
    OpenClipboardScope& operator=(const OpenClipboardScope&) = delete;
    [[nodiscard]] bool isOpen() const noexcept { return open_; }

  private:
    bool open_ = false;
};

class LockedMemory {
  public:
    explicit LockedMemory(HGLOBAL memory) noexcept : memory_(memory), data_(::GlobalLock(memory)) {}
    ~LockedMemory() { ::GlobalUnlock(memory_); }
    LockedMemory(const LockedMemory&) = delete;
    LockedMemory& operator=(const LockedMemory&) = delete;
    [[nodiscard]] void* data() const noexcept { return data_; }

  private:
    HGLOBAL memory_;
    void* data_;
};

}  // namespace

std::u16string readClipboard() {
    const OpenClipboardScope clipboard;
    const HANDLE memory = clipboard.isOpen() ? ::GetClipboardData(CF_UNICODETEXT) : nullptr;
    if (memory == nullptr)
        return {};
    const LockedMemory locked(memory);
    const std::u16string_view whole =
        narrowView(static_cast<const wchar_t*>(locked.data()), ::GlobalSize(memory) / sizeof(wchar_t));
    return std::u16string(whole.substr(0, whole.find(u'\0')));
}

void writeClipboard(std::u16string_view text) {
    const std::u16string shown = ui::shownText(text);
    const std::size_t bytes = (shown.size() + 1) * sizeof(char16_t);
    GlobalMemory memory(::GlobalAlloc(GMEM_MOVEABLE, bytes));
    if (!memory)
        throwLastError(u"GlobalAlloc");
    {
        const LockedMemory locked(memory.get());
        std::memcpy(locked.data(), shown.c_str(), bytes);
    }
    const OpenClipboardScope clipboard;
    if (!clipboard.isOpen() || ::EmptyClipboard() == FALSE)
        throwLastError(u"OpenClipboard");
    if (::SetClipboardData(CF_UNICODETEXT, memory.get()) == nullptr)
        throwLastError(u"SetClipboardData");
    static_cast<void>(memory.release());
}

}  // namespace quorel::win32
