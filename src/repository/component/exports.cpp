// What the platform calls in this DLL.

#include <objbase.h>
#include <windows.h>

#include <memory>
#include <mutex>

#include "platform/win32/com/failures.h"
#include "repository/component/component_library.h"

namespace {

using quorel::win32::ComModule;

/// Made by the first call that needs it, for nothing may be made while the DLL is being loaded.
std::unique_ptr<ComModule> component;

template <class Call>
HRESULT withComponent(Call&& call) noexcept {
    try {
        static std::once_flag made;
        std::call_once(made, [] {
            component = std::make_unique<ComModule>(quorel::repository::repositoryComClasses());
        });
        return call(*component);
    } catch (...) {
        return quorel::win32::reportInvoke(nullptr);
    }
}

}  // namespace

STDAPI DllGetClassObject(REFCLSID clsid, REFIID iid, void** object) {
    return withComponent([&](const ComModule& module) { return module.getClassObject(clsid, iid, object); });
}

STDAPI DllCanUnloadNow() {
    return ComModule::canUnloadNow();
}

STDAPI DllRegisterServer() {
    return withComponent([](const ComModule& module) { return module.registerServer(); });
}

STDAPI DllUnregisterServer() {
    return withComponent([](const ComModule& module) { return module.unregisterServer(); });
}

STDAPI DllInstall(BOOL install, LPCWSTR commandLine) {
    return withComponent([&](const ComModule& module) { return module.install(install, commandLine); });
}

BOOL WINAPI DllMain(HINSTANCE, DWORD reason, LPVOID processEnds) {
    // When the process ends, other libraries are gone already and nothing can be put away in order.
    if (reason == DLL_PROCESS_DETACH && processEnds != nullptr)
        static_cast<void>(component.release());
    return TRUE;
}
