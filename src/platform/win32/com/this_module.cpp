#include "platform/win32/com/this_module.h"

#include "platform/win32/text.h"

extern "C" IMAGE_DOS_HEADER __ImageBase;  // the linker's symbol for the start of the image

namespace quorel::win32 {

namespace {

std::uintptr_t sizeOfImage(std::uintptr_t base) noexcept {
    const auto headers = base + static_cast<std::uintptr_t>(__ImageBase.e_lfanew);
    return reinterpret_cast<const IMAGE_NT_HEADERS*>(headers)->OptionalHeader.SizeOfImage;
}

}  // namespace

const ImageRange thisImage{reinterpret_cast<std::uintptr_t>(&__ImageBase),
                           sizeOfImage(reinterpret_cast<std::uintptr_t>(&__ImageBase))};

HMODULE thisModule() noexcept {
    return reinterpret_cast<HMODULE>(&__ImageBase);
}

std::wstring thisModulePath() {
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = ::GetModuleFileNameW(thisModule(), path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size()) {
            path.resize(length);
            return path;
        }
        path.resize(path.size() * 2);
    }
}

std::u16string_view thisModuleName() {
    static const std::wstring name = [] {
        std::wstring path = thisModulePath();
        path.erase(0, path.find_last_of(L"\\/") + 1);
        return path.substr(0, path.rfind(L'.'));
    }();
    return narrowView(name.data(), name.size());
}

std::u16string thisModuleFolder() {
    const std::wstring path = thisModulePath();
    return std::u16string(narrowView(path.data(), path.find_last_of(L"\\/")));
}

}  // namespace quorel::win32
