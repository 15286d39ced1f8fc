#include "hosts/console.h"

#include <windows.h>

#include <string>

#include "platform/automation/text.h"
#include "platform/win32/text.h"

namespace quorel::hosts {

namespace {

[[nodiscard]] bool leadsSomewhere(DWORD stream) {
    const HANDLE handle = ::GetStdHandle(stream);
    return handle != nullptr && handle != INVALID_HANDLE_VALUE && ::GetFileType(handle) != FILE_TYPE_UNKNOWN;
}

}  // namespace

void useParentsConsole() {
    const bool hasOutput = leadsSomewhere(STD_OUTPUT_HANDLE);
    const bool hasErrors = leadsSomewhere(STD_ERROR_HANDLE);
    if ((hasOutput && hasErrors) || ::AttachConsole(ATTACH_PARENT_PROCESS) == FALSE)
        return;
    // Open until the program ends.
    const HANDLE console =
        ::CreateFileW(L"CONOUT$", GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                      OPEN_EXISTING, 0, nullptr);
    if (console == INVALID_HANDLE_VALUE)
        return;
    if (!hasOutput)
        ::SetStdHandle(STD_OUTPUT_HANDLE, console);
    if (!hasErrors)
        ::SetStdHandle(STD_ERROR_HANDLE, console);
}

void writeLine(Stream stream, std::u16string_view line) {
    const HANDLE handle = ::GetStdHandle(stream == Stream::Output ? STD_OUTPUT_HANDLE : STD_ERROR_HANDLE);
    if (handle == nullptr || handle == INVALID_HANDLE_VALUE)
        return;
    std::u16string text(line);
    text += u'\n';
    DWORD mode = 0;
    DWORD written = 0;
    if (::GetConsoleMode(handle, &mode) != FALSE) {
        ::WriteConsoleW(handle, win32::wide(text), static_cast<DWORD>(text.size()), &written, nullptr);
        return;
    }
    const std::string bytes = automation::toUtf8(text);
    ::WriteFile(handle, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
}

}  // namespace quorel::hosts
