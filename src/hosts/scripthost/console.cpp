#include "hosts/scripthost/console.h"

#include <windows.h>

#include <string>

#include "platform/automation/text.h"
#include "platform/win32/text.h"

namespace quorel::scripthost {

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

}  // namespace quorel::scripthost
