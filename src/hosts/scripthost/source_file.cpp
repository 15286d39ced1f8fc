#include "hosts/scripthost/source_file.h"

#include <windows.h>

#include <cstring>
#include <string_view>

#include "platform/automation/text.h"
#include "platform/win32/system_error.h"
#include "platform/win32/unique.h"

namespace quorel::scripthost {

namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view kUtf16Mark = "\xFF\xFE";
constexpr std::string_view kUtf16BigMark = "\xFE\xFF";

std::string readBytes(const std::wstring& path) {
    const win32::KernelHandle file(
        win32::fromFile(::CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                                      FILE_ATTRIBUTE_NORMAL, nullptr)));
    if (!file)
        win32::throwLastError(u"opening the script");
    std::string bytes;
    std::string block(0x10000, '\0');
    for (DWORD read = 0;;) {
        if (::ReadFile(file.get(), block.data(), static_cast<DWORD>(block.size()), &read, nullptr) == FALSE)
            win32::throwLastError(u"reading the script");
        if (read == 0)
            return bytes;
        bytes.append(block, 0, read);
    }
}

std::u16string fromUtf16(std::string_view bytes, bool bigEndian) {
    std::u16string text(bytes.size() / 2, u'\0');
    std::memcpy(text.data(), bytes.data(), text.size() * sizeof(char16_t));
    if (bigEndian) {
        for (char16_t& unit : text)
            unit = static_cast<char16_t>(unit << 8 | unit >> 8);
    }
    return text;
}

}  // namespace

std::u16string readSource(const std::wstring& path) {
    const std::string bytes = readBytes(path);
    const std::string_view view = bytes;
    if (view.starts_with(kUtf16Mark))
        return fromUtf16(view.substr(kUtf16Mark.size()), false);
    if (view.starts_with(kUtf16BigMark))
        return fromUtf16(view.substr(kUtf16BigMark.size()), true);
    return automation::fromUtf8(view.starts_with(kUtf8Mark) ? view.substr(kUtf8Mark.size()) : view);
}

}  // namespace quorel::scripthost
