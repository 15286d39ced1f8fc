#include "platform/win32/ui/registry_settings_store.h"

#include <array>
#include <cstdint>
#include <cstring>

#include "platform/win32/system_error.h"
#include "platform/win32/text.h"
#include "platform/win32/ui/system_headers.h"
#include "platform/win32/unique.h"

namespace quorel::win32 {

namespace {

constexpr std::u16string_view kRoot = u"Software\\VB and VBA Program Settings";
constexpr char16_t kEscape = u'\u241B';
constexpr std::size_t kMostNameUnits = 200;
constexpr std::size_t kKeptUnits = 100;

void appendHex(std::u16string& text, std::uint32_t value, int digits) {
    for (int shift = (digits - 1) * 4; shift >= 0; shift -= 4)
        text += u"0123456789ABCDEF"[(value >> shift) & 0xFU];
}

inline void closeAlgorithm(BCRYPT_ALG_HANDLE algorithm) noexcept {
    ::BCryptCloseAlgorithmProvider(algorithm, 0);
}

[[nodiscard]] std::u16string digestOf(std::u16string_view name) {
    Unique<BCRYPT_ALG_HANDLE, closeAlgorithm> algorithm;
    std::array<UCHAR, 32> digest{};
    NTSTATUS status = ::BCryptOpenAlgorithmProvider(algorithm.out(), BCRYPT_SHA256_ALGORITHM, nullptr, 0);
    if (status >= 0)
        status = ::BCryptHash(algorithm.get(), nullptr, 0,
                              reinterpret_cast<PUCHAR>(const_cast<char16_t*>(name.data())),
                              static_cast<ULONG>(name.size() * sizeof(char16_t)), digest.data(),
                              static_cast<ULONG>(digest.size()));
    if (status < 0)
        throw errorFromStatus(HRESULT_FROM_NT(status), u"BCryptHash");
    std::u16string text;
    for (const UCHAR byte : digest)
        appendHex(text, byte, 2);
    return text;
}

[[nodiscard]] bool isHighSurrogate(char16_t unit) noexcept {
    return unit >= 0xD800 && unit <= 0xDBFF;
}

/// A value ends in one NUL, which is not part of the text; some writers leave it out.
[[nodiscard]] std::u16string textOf(std::u16string data) {
    if (!data.empty() && data.back() == u'\0')
        data.pop_back();
    return data;
}

[[nodiscard]] LSTATUS query(HKEY key, const std::u16string& name, DWORD& type, std::u16string& data) {
    DWORD bytes = 0;
    LSTATUS status = ::RegQueryValueExW(key, wide(name), nullptr, &type, nullptr, &bytes);
    while (status == ERROR_SUCCESS) {
        data.resize(bytes / sizeof(char16_t) + 1);
        bytes = static_cast<DWORD>(data.size() * sizeof(char16_t));
        status =
            ::RegQueryValueExW(key, wide(name), nullptr, &type, reinterpret_cast<BYTE*>(data.data()), &bytes);
        if (status == ERROR_MORE_DATA) {
            status = ERROR_SUCCESS;
            continue;
        }
        data.resize(bytes / sizeof(char16_t));
        break;
    }
    return status;
}

}  // namespace

std::u16string registryName(std::u16string_view name) {
    if (name.empty())
        return std::u16string(1, kEscape);
    std::u16string escaped;
    for (const char16_t unit : name) {
        if (unit != u'\\' && unit != u'\0' && unit != kEscape) {
            escaped += unit;
            continue;
        }
        escaped += kEscape;
        appendHex(escaped, unit, 4);
    }
    if (escaped.size() <= kMostNameUnits)
        return escaped;
    std::size_t kept = kKeptUnits;
    if (isHighSurrogate(escaped[kept - 1]))
        --kept;
    return escaped.substr(0, kept) + kEscape + u'#' + digestOf(name);
}

RegistrySettingsStore::RegistrySettingsStore() : RegistrySettingsStore(kRoot) {}

std::u16string RegistrySettingsStore::path(std::u16string_view application,
                                           std::u16string_view section) const {
    return root_ + u'\\' + registryName(application) + u'\\' + registryName(section);
}

std::optional<std::u16string> RegistrySettingsStore::read(std::u16string_view application,
                                                          std::u16string_view section,
                                                          std::u16string_view key) {
    RegistryKey opened;
    const std::u16string place = path(application, section);
    LSTATUS status = ::RegOpenKeyExW(HKEY_CURRENT_USER, wide(place), 0, KEY_QUERY_VALUE, opened.out());
    DWORD type = REG_NONE;
    std::u16string data;
    if (status == ERROR_SUCCESS)
        status = query(opened.get(), registryName(key), type, data);
    if (status == ERROR_FILE_NOT_FOUND || status == ERROR_PATH_NOT_FOUND)
        return std::nullopt;
    if (status != ERROR_SUCCESS)
        throw errorFromCode(static_cast<DWORD>(status), u"Reading a setting");
    if (type != REG_SZ && type != REG_EXPAND_SZ)
        return std::nullopt;
    return textOf(std::move(data));
}

void RegistrySettingsStore::write(std::u16string_view application, std::u16string_view section,
                                  std::u16string_view key, std::u16string_view value) {
    RegistryKey opened;
    const std::u16string place = path(application, section);
    LSTATUS status = ::RegCreateKeyExW(HKEY_CURRENT_USER, wide(place), 0, nullptr, 0, KEY_SET_VALUE, nullptr,
                                       opened.out(), nullptr);
    const std::u16string name = registryName(key);
    const std::u16string terminated(value);
    if (status == ERROR_SUCCESS)
        status = ::RegSetValueExW(opened.get(), wide(name), 0, REG_SZ,
                                  reinterpret_cast<const BYTE*>(terminated.c_str()),
                                  static_cast<DWORD>((terminated.size() + 1) * sizeof(char16_t)));
    if (status != ERROR_SUCCESS)
        throw errorFromCode(static_cast<DWORD>(status), u"Writing a setting");
}

}  // namespace quorel::win32
