# Settings and functions that every room of the tree uses.

option(QUOREL_SANITIZE "Build with address and undefined-behaviour sanitizers" OFF)
option(QUOREL_FUZZ "Build the fuzzers, with clang" OFF)
option(QUOREL_BENCHMARKS "Build the benchmarks" OFF)
option(QUOREL_TESTS "Build the tests, the fuzzers and the samples" ON)

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_CXX_SCAN_FOR_MODULES OFF)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)

# Several sources of a room are compiled as one (CMAKE_UNITY_BUILD), since most of the time goes into headers; so names
# in a room's unnamed namespaces are unique within the room. A cache of compilations holds more with
# -DCMAKE_UNITY_BUILD=OFF, and that is where an include that is missing in a source is found.
if(NOT DEFINED CMAKE_UNITY_BUILD_BATCH_SIZE)
    set(CMAKE_UNITY_BUILD_BATCH_SIZE 8)
endif()

# What every target of ours is compiled with; third-party sources do not link it.
add_library(quorel_options INTERFACE)
target_include_directories(quorel_options INTERFACE ${CMAKE_SOURCE_DIR}/src)
target_compile_options(quorel_options INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Wold-style-cast
                                                -Wimplicit-fallthrough -Werror)
if(QUOREL_SANITIZE)
    # Instrumented code makes GCC see uses of members of unions that no way leads to; the other presets do warn.
    target_compile_options(quorel_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
                                                    -fno-omit-frame-pointer -O1 -g1 -Wno-maybe-uninitialized)
    target_link_options(quorel_options INTERFACE -fsanitize=address,undefined)
endif()
if(QUOREL_FUZZ)
    # The house's compiler is GCC; what only clang warns about is no error here.
    target_compile_options(quorel_options INTERFACE -Wno-error -fsanitize=fuzzer-no-link,address,undefined
                                                    -fno-sanitize-recover=all -O1 -g1)
    target_link_options(quorel_options INTERFACE -fsanitize=address,undefined)
endif()
if(WIN32)
    target_compile_definitions(quorel_options INTERFACE UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN STRICT
                                                        _WIN32_WINNT=0x0A00 WINVER=0x0A00)
    # Windows' own macro-built casts and anonymous structs are not ours to warn about, nor that COM's interfaces have no
    # destructors.
    target_compile_options(quorel_options INTERFACE -Wno-old-style-cast -Wno-pedantic -Wno-cast-function-type
                                                    -Wno-non-virtual-dtor)
    # The same sources make the same bytes. Code lies at another address each time, and data is never run as code.
    target_link_options(quorel_options INTERFACE -s LINKER:--no-insert-timestamp,--dynamicbase,--nxcompat)
    if(CMAKE_SIZEOF_VOID_P EQUAL 8)
        target_link_options(quorel_options INTERFACE LINKER:--high-entropy-va)
    else()
        # Exports are published under the names in the source, without the decoration of their calling convention.
        target_link_options(quorel_options INTERFACE LINKER:--enable-stdcall-fixup)
    endif()
endif()

# quorel_library(name SOURCES ... DEPENDS ...): one room as a static library.
function(quorel_library name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;DEPENDS")
    add_library(${name} STATIC ${arg_SOURCES})
    if(WIN32 AND CMAKE_CXX_FLAGS_RELEASE MATCHES "-O3")
        # Of sources compiled as one, GCC 12 for Windows loses at -O3 what an exception on its way through a member should
        # release (Object.FailingMemberLeavesTheCountBalanced shows it).
        set_target_properties(${name} PROPERTIES UNITY_BUILD OFF)
    endif()
    target_link_libraries(${name} PUBLIC ${arg_DEPENDS} PRIVATE quorel_options)
    target_include_directories(${name} PUBLIC ${CMAKE_SOURCE_DIR}/src)
endfunction()

# quorel_program(name SOURCES ... DEPENDS ...): an executable in bin/.
function(quorel_program name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;DEPENDS")
    add_executable(${name} ${arg_SOURCES})
    target_link_libraries(${name} PRIVATE ${arg_DEPENDS} quorel_options)
endfunction()
