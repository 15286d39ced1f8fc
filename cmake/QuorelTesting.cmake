# GoogleTest from the distribution: the installed library natively, its source package when cross-compiling.
if(CMAKE_CROSSCOMPILING)
    set(INSTALL_GTEST OFF)
    set(gtest_disable_pthreads OFF)
    add_subdirectory(/usr/src/googletest ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)
    if(NOT TARGET GTest::gtest)
        add_library(GTest::gtest ALIAS gtest)
        add_library(GTest::gtest_main ALIAS gtest_main)
    endif()
else()
    find_package(GTest REQUIRED)
    include(GoogleTest)
endif()

# Tests are compiled far more often than they run long, and what they all include is compiled once.
add_library(quorel_test_options INTERFACE)
target_include_directories(quorel_test_options INTERFACE ${CMAKE_SOURCE_DIR})
# Behind the options of all, whose level of optimization this replaces.
target_compile_options(quorel_test_options INTERFACE -O0)
# Compiled as one with others, a source seems to be a header, whose fixtures should not be in unnamed namespaces.
target_compile_options(quorel_test_options INTERFACE -Wno-subobject-linkage)
if(QUOREL_SANITIZE)
    # What tests assert is checked by the assertions; what they call is instrumented in full. In their own files, which
    # do little but call, the checks for undefined behaviour would take a third of the time that compiling these takes.
    target_compile_options(quorel_test_options INTERFACE -fno-sanitize=undefined)
endif()
target_link_libraries(quorel_test_options INTERFACE GTest::gtest GTest::gtest_main)
add_executable(quorel_test_headers ${CMAKE_SOURCE_DIR}/cmake/test_headers.cpp)
target_link_libraries(quorel_test_headers PRIVATE quorel_options quorel_test_options)
target_precompile_headers(quorel_test_headers PRIVATE <algorithm> <functional> <map> <memory> <optional> <string>
                                                      <string_view> <utility> <vector> <gtest/gtest.h>)

# quorel_test(name SOURCES ... DEPENDS ...): one test program. Natively its tests are known to ctest; Windows programs
# are run under Wine by ./quorel test.
function(quorel_test name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;DEPENDS")
    add_executable(${name} ${arg_SOURCES})
    target_link_libraries(${name} PRIVATE ${arg_DEPENDS} quorel_options quorel_test_options)
    target_precompile_headers(${name} REUSE_FROM quorel_test_headers)
    if(CMAKE_CROSSCOMPILING)
        set_property(GLOBAL APPEND PROPERTY QUOREL_WINDOWS_TESTS ${name})
    else()
        gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60)
    endif()
endfunction()
