// What the platform calls in this DLL.

#include <objbase.h>
#include <windows.h>

#include <memory>
#include <mutex>

#include "platform/win32/com/failures.h"
#include "server/com_library.h"

namespace {

using quorel::server::Library;

/// Made by the first call that needs it, for nothing may be made while the DLL is being loaded.
std::unique_ptr<Library> library;

template <class Call>
HRESULT withLibrary(Call&& call) noexcept {
    try {
        static std::once_flag made;
        std::call_once(made, [] { library = std::make_unique<Library>(); });
        return call(*library);
    } catch (...) {
        return quorel::win32::reportInvoke(nullptr);
    }
}

}  // namespace

STDAPI DllGetClassObject(REFCLSID clsid, REFIID iid, void** object) {
    return withLibrary([&](const Library& made) { return made.module().getClassObject(clsid, iid, object); });
}

STDAPI DllCanUnloadNow() {
    return library ? library->canUnloadNow() : S_OK;
}

STDAPI DllRegisterServer() {
    return withLibrary([](const Library& made) { return made.module().registerServer(); });
}

STDAPI DllUnregisterServer() {
    return withLibrary([](const Library& made) { return made.module().unregisterServer(); });
}

STDAPI DllInstall(BOOL install, LPCWSTR commandLine) {
    return withLibrary([&](const Library& made) { return made.module().install(install, commandLine); });
}

BOOL WINAPI DllMain(HINSTANCE, DWORD reason, LPVOID processEnds) {
    // When the process ends, other threads and libraries are gone already and nothing can be put away in
    // order.
    if (reason == DLL_PROCESS_DETACH && processEnds != nullptr)
        static_cast<void>(library.release());
    return TRUE;
}
