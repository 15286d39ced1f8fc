# The suite, for the program of each backend: include this file and add one source that defines makeBackend.
set(QUOREL_CONFORMANCE_SOURCES
    ${CMAKE_SOURCE_DIR}/tests/conformance/cells.cpp
    ${CMAKE_SOURCE_DIR}/tests/conformance/check_lists.cpp
    ${CMAKE_SOURCE_DIR}/tests/conformance/choices.cpp
    ${CMAKE_SOURCE_DIR}/tests/conformance/combos.cpp
    ${CMAKE_SOURCE_DIR}/tests/conformance/drawings.cpp
    ${CMAKE_SOURCE_DIR}/tests/conformance/dropped_files.cpp
    ${CMAKE_SOURCE_DIR}/tests/conformance/forms.cpp
    ${CMAKE_SOURCE_DIR}/tests/conformance/input.cpp
    ${CMAKE_SOURCE_DIR}/tests/conformance/keyboard.cpp
    ${CMAKE_SOURCE_DIR}/tests/conformance/lists.cpp
    ${CMAKE_SOURCE_DIR}/tests/conformance/navigation.cpp
    ${CMAKE_SOURCE_DIR}/tests/conformance/pages.cpp
    ${CMAKE_SOURCE_DIR}/tests/conformance/reentrancy.cpp
    ${CMAKE_SOURCE_DIR}/tests/conformance/trees.cpp
    ${CMAKE_SOURCE_DIR}/tests/conformance/window.cpp)
