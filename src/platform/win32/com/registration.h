#pragma once

#include <windows.h>

#include <optional>
#include <span>

#include "platform/win32/com/com_server.h"

namespace quorel::win32 {

/// Writes and removes what the platform wants to know of a server in this module. Both throw `Error`.
void registerClasses(std::span<const ComClass> classes, RegistrationScope scope,
                     const std::optional<ComTypeLibrary>& library);
void unregisterClasses(std::span<const ComClass> classes, RegistrationScope scope);

void registerLibrary(RegistrationScope scope);
void unregisterLibrary(const ComTypeLibrary& library, RegistrationScope scope);

}  // namespace quorel::win32
