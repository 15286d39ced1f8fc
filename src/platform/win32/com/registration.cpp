#include "platform/win32/com/registration.h"

#include <array>
#include <string>

#include "platform/win32/com/com_ptr.h"
#include "platform/win32/com/failures.h"
#include "platform/win32/com/this_module.h"
#include "platform/win32/system_error.h"
#include "platform/win32/unique.h"

namespace quorel::win32 {

namespace {

constexpr std::wstring_view kVersion = L".1";
constexpr SYSKIND kSystem = sizeof(void*) == 8 ? SYS_WIN64 : SYS_WIN32;

std::wstring textOf(const GUID& guid) {
    std::array<wchar_t, 40> text{};
    const int length = ::StringFromGUID2(guid, text.data(), static_cast<int>(text.size()));
    return {text.data(), static_cast<std::size_t>(length) - 1};
}

RegistryKey openClasses(RegistrationScope scope) {
    RegistryKey key;
    const HKEY root = scope == RegistrationScope::Machine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER;
    const LSTATUS status =
        ::RegCreateKeyExW(root, L"Software\\Classes", 0, nullptr, 0, KEY_CREATE_SUB_KEY | KEY_WRITE | DELETE,
                          nullptr, key.out(), nullptr);
    if (status != ERROR_SUCCESS)
        throw errorFromCode(static_cast<DWORD>(status), u"opening the registry of classes");
    return key;
}

/// Writes a string value; a null name is the key's own.
void write(const RegistryKey& classes, const std::wstring& path, const wchar_t* name,
           std::wstring_view value) {
    RegistryKey key;
    LSTATUS status =
        ::RegCreateKeyExW(classes.get(), path.c_str(), 0, nullptr, 0, KEY_WRITE, nullptr, key.out(), nullptr);
    if (status == ERROR_SUCCESS) {
        const std::wstring terminated(value);
        status =
            ::RegSetValueExW(key.get(), name, 0, REG_SZ, reinterpret_cast<const BYTE*>(terminated.c_str()),
                             static_cast<DWORD>((terminated.size() + 1) * sizeof(wchar_t)));
    }
    if (status != ERROR_SUCCESS)
        throw errorFromCode(static_cast<DWORD>(status), u"writing the registry of classes");
}

void remove(const RegistryKey& classes, const std::wstring& path) {
    const LSTATUS status = ::RegDeleteTreeW(classes.get(), path.c_str());
    if (status != ERROR_SUCCESS && status != ERROR_FILE_NOT_FOUND)
        throw errorFromCode(static_cast<DWORD>(status), u"removing from the registry of classes");
}

std::wstring progIdOf(const ComClass& entry) {
    return {wide(entry.progId), entry.progId.size()};
}

void registerClass(const RegistryKey& classes, const ComClass& entry, const std::wstring& path,
                   const std::wstring& library) {
    const std::wstring id = textOf(entry.clsid);
    const std::wstring name = progIdOf(entry);
    const std::wstring versioned = name + std::wstring(kVersion);
    const std::wstring description(wide(entry.description), entry.description.size());
    const std::wstring clsid = L"CLSID\\" + id;

    write(classes, clsid, nullptr, description);
    write(classes, clsid + L"\\InprocServer32", nullptr, path);
    write(classes, clsid + L"\\InprocServer32", L"ThreadingModel", L"Apartment");
    write(classes, clsid + L"\\ProgID", nullptr, versioned);
    write(classes, clsid + L"\\VersionIndependentProgID", nullptr, name);
    write(classes, clsid + L"\\Programmable", nullptr, L"");
    if (!library.empty())
        write(classes, clsid + L"\\TypeLib", nullptr, library);

    write(classes, name, nullptr, description);
    write(classes, name + L"\\CLSID", nullptr, id);
    write(classes, name + L"\\CurVer", nullptr, versioned);
    write(classes, versioned, nullptr, description);
    write(classes, versioned + L"\\CLSID", nullptr, id);
}

template <class Function>
Function userFunction(const char* name) {
    const HMODULE automation = ::GetModuleHandleW(L"oleaut32.dll");
    const auto function =
        automation != nullptr ? reinterpret_cast<Function>(::GetProcAddress(automation, name)) : nullptr;
    if (function == nullptr)
        throw errorFromStatus(HRESULT_FROM_WIN32(ERROR_PROC_NOT_FOUND), u"registering for one user");
    return function;
}

}  // namespace

void registerClasses(std::span<const ComClass> classes, RegistrationScope scope,
                     const std::optional<ComTypeLibrary>& library) {
    const RegistryKey root = openClasses(scope);
    const std::wstring path = thisModulePath();
    const std::wstring libraryId = library ? textOf(library->libid) : std::wstring();
    for (const ComClass& entry : classes)
        registerClass(root, entry, path, libraryId);
}

void unregisterClasses(std::span<const ComClass> classes, RegistrationScope scope) {
    const RegistryKey root = openClasses(scope);
    for (const ComClass& entry : classes) {
        remove(root, L"CLSID\\" + textOf(entry.clsid));
        remove(root, progIdOf(entry));
        remove(root, progIdOf(entry) + std::wstring(kVersion));
    }
}

void registerLibrary(RegistrationScope scope) {
    std::wstring path = thisModulePath();
    ComPtr<ITypeLib> library;
    check(::LoadTypeLibEx(path.c_str(), REGKIND_NONE, library.out()), u"loading the type library");
    if (scope == RegistrationScope::Machine) {
        check(::RegisterTypeLib(library.get(), path.data(), nullptr), u"registering the type library");
        return;
    }
    using Register = HRESULT(STDAPICALLTYPE*)(ITypeLib*, OLECHAR*, OLECHAR*);
    check(userFunction<Register>("RegisterTypeLibForUser")(library.get(), path.data(), nullptr),
          u"registering the type library");
}

void unregisterLibrary(const ComTypeLibrary& library, RegistrationScope scope) {
    HRESULT status = S_OK;
    if (scope == RegistrationScope::Machine) {
        status = ::UnRegisterTypeLib(library.libid, library.major, library.minor, LOCALE_NEUTRAL, kSystem);
    } else {
        using Unregister = HRESULT(STDAPICALLTYPE*)(REFGUID, WORD, WORD, LCID, SYSKIND);
        status = userFunction<Unregister>("UnRegisterTypeLibForUser")(library.libid, library.major,
                                                                      library.minor, LOCALE_NEUTRAL, kSystem);
    }
    Bstr path;
    const bool stillThere = SUCCEEDED(
        ::QueryPathOfRegTypeLib(library.libid, library.major, library.minor, LOCALE_NEUTRAL, path.out()));
    if (FAILED(status) && stillThere)
        throw errorFromStatus(status, u"removing the type library");
}

}  // namespace quorel::win32
