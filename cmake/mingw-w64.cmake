# What the toolchains of both processors share; CMAKE_SYSTEM_PROCESSOR is set.
# The posix thread model is the one with <mutex>; everything is linked statically, so only system libraries are imported.
set(CMAKE_SYSTEM_NAME Windows)
set(QUOREL_MINGW_PREFIX ${CMAKE_SYSTEM_PROCESSOR}-w64-mingw32)
set(CMAKE_C_COMPILER ${QUOREL_MINGW_PREFIX}-gcc-posix)
set(CMAKE_CXX_COMPILER ${QUOREL_MINGW_PREFIX}-g++-posix)
set(CMAKE_RC_COMPILER ${QUOREL_MINGW_PREFIX}-windres)
set(CMAKE_FIND_ROOT_PATH /usr/${QUOREL_MINGW_PREFIX})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "-static")
# How manifests call the processor, and the compiler of type libraries with the files that it needs for any.
if(CMAKE_SYSTEM_PROCESSOR STREQUAL "x86_64")
    set(QUOREL_ARCHITECTURE amd64)
    set(widl_system --win64)
else()
    set(QUOREL_ARCHITECTURE x86)
    set(widl_system --win32)
endif()
set(QUOREL_WIDL ${QUOREL_MINGW_PREFIX}-widl ${widl_system} -I/usr/include/wine/wine/windows
                -L/usr/lib/x86_64-linux-gnu/wine/x86_64-windows)
