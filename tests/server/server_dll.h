#pragma once

#include <oaidl.h>
#include <windows.h>

#include <filesystem>
#include <string>

#include "platform/win32/com/com_ptr.h"
#include "platform/win32/unique.h"

namespace quorel::server::testing {

/// What a member gives to who calls it before `Create`: error 91.
inline constexpr auto kNotSet = static_cast<HRESULT>(0x800A005B);

/// A file beside the test program.
[[nodiscard]] std::wstring beside(const wchar_t* file);

/// QuorelUtility.dll as the platform loads it, called through its exports.
class ServerDll {
  public:
    ServerDll();

    [[nodiscard]] HRESULT getClassObject(REFCLSID clsid, REFIID iid, void** object) const;
    [[nodiscard]] HRESULT canUnloadNow() const;
    [[nodiscard]] HRESULT registerServer() const;
    [[nodiscard]] HRESULT unregisterServer() const;
    [[nodiscard]] HRESULT install(BOOL install, const wchar_t* commandLine) const;

    template <class Interface>
    [[nodiscard]] win32::ComPtr<Interface> create(REFCLSID clsid) const {
        win32::ComPtr<IClassFactory> factory;
        win32::ComPtr<Interface> object;
        if (SUCCEEDED(getClassObject(clsid, IID_IClassFactory, factory.outVoid())))
            factory->CreateInstance(nullptr, __uuidof(Interface), object.outVoid());
        return object;
    }

  private:
    win32::ModuleHandle module_;
};

/// The type library that the DLL carries.
[[nodiscard]] win32::ComPtr<ITypeLib> loadContract();
/// The one in any file; null when there is none.
[[nodiscard]] win32::ComPtr<ITypeLib> loadContractIn(const std::filesystem::path& file);

}  // namespace quorel::server::testing
