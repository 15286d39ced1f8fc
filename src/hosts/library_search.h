#pragma once

#include <windows.h>

namespace quorel::hosts {

/// From here on this process looks for libraries beside its program and in the system's folder, and neither
/// in the current folder nor along the search path. The first thing that a program does.
inline void lookForLibrariesAtHome() noexcept {
    ::SetDefaultDllDirectories(LOAD_LIBRARY_SEARCH_APPLICATION_DIR | LOAD_LIBRARY_SEARCH_SYSTEM32);
    ::SetDllDirectoryW(L"");
}

}  // namespace quorel::hosts
