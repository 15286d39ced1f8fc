#include "tests/server/server_dll.h"

#include <gtest/gtest.h>

namespace quorel::server::testing {

namespace {

template <class Function>
Function exported(HMODULE module, const char* name) {
    const FARPROC function = ::GetProcAddress(module, name);
    EXPECT_NE(function, nullptr) << name;
    return reinterpret_cast<Function>(function);
}

}  // namespace

std::wstring beside(const wchar_t* file) {
    std::wstring path(0x1000, L'\0');
    path.resize(::GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return path.substr(0, path.find_last_of(L'\\') + 1) + file;
}

ServerDll::ServerDll() : module_(::LoadLibraryW(beside(L"QuorelUtility.dll").c_str())) {
    EXPECT_TRUE(module_);
}

HRESULT ServerDll::getClassObject(REFCLSID clsid, REFIID iid, void** object) const {
    using Function = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**);
    return exported<Function>(module_.get(), "DllGetClassObject")(clsid, iid, object);
}

HRESULT ServerDll::canUnloadNow() const {
    return exported<HRESULT(STDAPICALLTYPE*)()>(module_.get(), "DllCanUnloadNow")();
}

HRESULT ServerDll::registerServer() const {
    return exported<HRESULT(STDAPICALLTYPE*)()>(module_.get(), "DllRegisterServer")();
}

HRESULT ServerDll::unregisterServer() const {
    return exported<HRESULT(STDAPICALLTYPE*)()>(module_.get(), "DllUnregisterServer")();
}

HRESULT ServerDll::install(BOOL install, const wchar_t* commandLine) const {
    return exported<HRESULT(STDAPICALLTYPE*)(BOOL, LPCWSTR)>(module_.get(), "DllInstall")(install,
                                                                                          commandLine);
}

win32::ComPtr<ITypeLib> loadContract() {
    return loadContractIn(beside(L"QuorelUtility.dll"));
}

win32::ComPtr<ITypeLib> loadContractIn(const std::filesystem::path& file) {
    win32::ComPtr<ITypeLib> library;
    EXPECT_EQ(::LoadTypeLibEx(file.c_str(), REGKIND_NONE, library.out()), S_OK);
    return library;
}

}  // namespace quorel::server::testing
