# quorel_expat: the XML parser. Natively the distribution's library; for Windows compiled from the sources that
# tools/fetch-expat made.
add_library(quorel_expat INTERFACE)
if(CMAKE_CROSSCOMPILING)
    set(expat_folder ${CMAKE_SOURCE_DIR}/build/third_party/expat)
    if(NOT EXISTS ${expat_folder}/xmlparse.c)
        message(FATAL_ERROR "Expat's sources are missing: run tools/fetch-expat")
    endif()
    # What its own build finds out about the system.
    file(WRITE ${CMAKE_BINARY_DIR}/third_party/expat/expat_config.h
         "#define BYTEORDER 1234\n#define XML_NS 1\n#define XML_DTD 1\n#define XML_CONTEXT_BYTES 1024\n")
    add_library(expat_windows STATIC ${expat_folder}/xmlparse.c ${expat_folder}/xmlrole.c ${expat_folder}/xmltok.c)
    set_target_properties(expat_windows PROPERTIES UNITY_BUILD OFF)
    target_include_directories(expat_windows PRIVATE ${CMAKE_BINARY_DIR}/third_party/expat)
    target_include_directories(expat_windows SYSTEM PUBLIC ${expat_folder})
    target_compile_definitions(expat_windows PUBLIC XML_STATIC)
    target_compile_options(expat_windows PRIVATE -O2 -w)
    target_link_libraries(quorel_expat INTERFACE expat_windows)
else()
    find_package(EXPAT 2.5 REQUIRED)
    target_link_libraries(quorel_expat INTERFACE EXPAT::EXPAT)
endif()
