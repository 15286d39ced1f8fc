#include "platform/win32/com/com_server.h"

#include <cwchar>
#include <new>

#include "platform/automation/native_object.h"
#include "platform/win32/com/bridge.h"
#include "platform/win32/com/com_object.h"
#include "platform/win32/com/failures.h"
#include "platform/win32/com/native_dispatch.h"
#include "platform/win32/com/registration.h"

namespace quorel::win32 {

namespace {

class ClassObject final : public ComObject<IClassFactory> {
  public:
    explicit ClassObject(const ComClass& entry) noexcept : entry_(entry) { countOutside(1); }

    STDMETHODIMP CreateInstance(IUnknown* outer, REFIID iid, void** result) override {
        if (result == nullptr)
            return E_POINTER;
        *result = nullptr;
        if (outer != nullptr)
            return CLASS_E_NOAGGREGATION;
        try {
            const ComPtr<IDispatch> object = toDispatch(entry_.create());
            return object ? object->QueryInterface(iid, result) : E_OUTOFMEMORY;
        } catch (...) {
            return reportCall(iid);
        }
    }
    STDMETHODIMP LockServer(BOOL lock) override {
        countOutside(lock != FALSE ? 1 : -1);
        return S_OK;
    }

  private:
    ~ClassObject() override { countOutside(-1); }

    const ComClass& entry_;
};

template <class Action>
HRESULT reported(Action&& action) noexcept {
    try {
        action();
        return S_OK;
    } catch (const automation::Error& error) {
        return error.number() < 0 ? error.number() : statusOf(error);
    } catch (...) {
        return E_OUTOFMEMORY;
    }
}

}  // namespace

HRESULT ComModule::getClassObject(REFCLSID clsid, REFIID iid, void** object) const noexcept {
    if (object == nullptr)
        return E_POINTER;
    *object = nullptr;
    for (const ComClass& entry : classes_) {
        if (entry.clsid == clsid) {
            const auto factory = ComPtr<IClassFactory>::adopt(new (std::nothrow) ClassObject(entry));
            return factory ? factory->QueryInterface(iid, object) : E_OUTOFMEMORY;
        }
    }
    return CLASS_E_CLASSNOTAVAILABLE;
}

HRESULT ComModule::canUnloadNow() noexcept {
    return outsideCount() == 0 && automation::NativeObject::liveCount() == 0 ? S_OK : S_FALSE;
}

HRESULT ComModule::registerServer() const noexcept {
    return enroll(RegistrationScope::Machine);
}

HRESULT ComModule::unregisterServer() const noexcept {
    return dismiss(RegistrationScope::Machine);
}

HRESULT ComModule::install(BOOL install, const wchar_t* commandLine) const noexcept {
    if (commandLine == nullptr || ::_wcsicmp(commandLine, L"user") != 0)
        return E_INVALIDARG;
    return install != FALSE ? enroll(RegistrationScope::User) : dismiss(RegistrationScope::User);
}

HRESULT ComModule::enroll(RegistrationScope scope) const noexcept {
    return reported([&] {
        registerClasses(classes_, scope, library_);
        if (library_)
            registerLibrary(scope);
    });
}

HRESULT ComModule::dismiss(RegistrationScope scope) const noexcept {
    return reported([&] {
        unregisterClasses(classes_, scope);
        if (library_)
            unregisterLibrary(*library_, scope);
    });
}

}  // namespace quorel::win32
