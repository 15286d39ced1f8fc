#pragma once

#include <oaidl.h>
#include <windows.h>

#include <string>
#include <string_view>

#include "platform/automation/class_registry.h"
#include "platform/win32/com/com_server.h"
#include "platform/win32/com/native_dispatch.h"
#include "server/com_dual_call.h"
#include "server/com_type_library.h"

namespace quorel::server {

/// A public class as hosts hold it: late bound through the one generic Invoke, early bound through
/// `Interface`, whose slots the derived class forwards to the members of `Portable`, one line each.
template <class Interface, class Portable>
class ServerObject : public win32::DualDispatch<Interface> {
  public:
    using PortableClass = Portable;
    using win32::DualDispatch<Interface>::DualDispatch;

    [[nodiscard]] const GUID& interfaceId() const noexcept final { return __uuidof(Interface); }
    [[nodiscard]] win32::ComPtr<ITypeInfo> typeInfo() const noexcept final {
        return typeInfoOf(__uuidof(Interface));
    }

  protected:
    /// A member without a result.
    template <class Function, class... Given>
    HRESULT run(Function function, Given... given) noexcept {
        return guarded([&] {
            callPortable(
                portable(), function, [] {}, given...);
        });
    }

    /// A member with one. A member that returns nothing fills a variant with nothing.
    template <class Result, class Function, class... Given>
    HRESULT answer(Result* result, Function function, Given... given) noexcept {
        if (result == nullptr)
            return E_POINTER;
        *result = Result{};
        const auto keep = [result](const auto&... value) { (store(*result, value), ...); };
        return guarded([&] { callPortable(portable(), function, keep, given...); });
    }

  private:
    [[nodiscard]] Portable& portable() const noexcept { return static_cast<Portable&>(this->native()); }

    /// The host may drop its last reference from within an event of the call.
    template <class Action>
    HRESULT guarded(Action&& action) noexcept {
        if (!this->isConnected())
            return CO_E_OBJNOTCONNECTED;
        const win32::ComPtr<IDispatch> alive(this->dispatch());
        try {
            action();
            return S_OK;
        } catch (...) {
            return win32::reportCall(__uuidof(Interface));
        }
    }
};

/// What the platform has to know of a class with the server class `ServerClass`.
template <class ServerClass>
win32::ComClass offer(const automation::ClassRegistry& registry, const GUID& clsid,
                      std::u16string_view progId, std::u16string_view description) {
    const Object sample = registry.createObject(progId);
    win32::wrapClassWith(
        sample.native()->classTable(),
        [](automation::NativeObject& native) -> win32::NativeDispatch* { return new ServerClass(native); });
    return {clsid, std::u16string(progId), std::u16string(description),
            [&registry, name = std::u16string(progId)] { return registry.createObject(name); }};
}

}  // namespace quorel::server
