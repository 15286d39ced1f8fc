#pragma once

// What every in-process server of ours is made of: class objects, an honest count of who is in use,
// registration by the conventions of the platform. A server's entry points forward to one `ComModule`.

#include <windows.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/automation/object.h"

namespace quorel::win32 {

/// One class that hosts can create.
struct ComClass {
    GUID clsid{};
    /// Without a version, e.g. u"QuorelUtility.SixPane"; it is registered with ".1" appended too.
    std::u16string progId;
    std::u16string description;
    /// Makes a new object; a thrown `Error` fails the creation with its number and text.
    std::function<automation::Object()> create;
};

/// The type library that the module carries as resource `1 TYPELIB`.
struct ComTypeLibrary {
    GUID libid{};
    WORD major = 1;
    WORD minor = 0;
};

enum class RegistrationScope : bool { Machine, User };

/// The server inside one DLL. Every function returns a status code and throws nothing, so that a DLL's
/// exports are one line each:
///
///     STDAPI DllGetClassObject(REFCLSID clsid, REFIID iid, void** object) {
///         return module().getClassObject(clsid, iid, object);
///     }
class ComModule {
  public:
    explicit ComModule(std::vector<ComClass> classes, std::optional<ComTypeLibrary> library = {})
        : classes_(std::move(classes)), library_(library) {}
    ComModule(const ComModule&) = delete;
    ComModule& operator=(const ComModule&) = delete;

    /// CLASS_E_CLASSNOTAVAILABLE for classes that are not in the list.
    [[nodiscard]] HRESULT getClassObject(REFCLSID clsid, REFIID iid, void** object) const noexcept;
    /// S_OK only when no object, wrapper, enumeration, class object or lock is left in this module.
    [[nodiscard]] static HRESULT canUnloadNow() noexcept;
    /// For every user of the machine.
    [[nodiscard]] HRESULT registerServer() const noexcept;
    /// Removes what `registerServer` wrote; what was never there is no failure.
    [[nodiscard]] HRESULT unregisterServer() const noexcept;
    /// `regsvr32 /n /i:user`: for the current user alone. Any other command line than "user" is E_INVALIDARG.
    [[nodiscard]] HRESULT install(BOOL install, const wchar_t* commandLine) const noexcept;

  private:
    [[nodiscard]] HRESULT enroll(RegistrationScope scope) const noexcept;
    [[nodiscard]] HRESULT dismiss(RegistrationScope scope) const noexcept;

    std::vector<ComClass> classes_;
    std::optional<ComTypeLibrary> library_;
};

}  // namespace quorel::win32
