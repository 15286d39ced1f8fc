# quorel_sqlite: natively the distribution's library; for Windows compiled from the sources that tools/fetch-sqlite made.
if(CMAKE_CROSSCOMPILING)
    set(sqlite_folder ${CMAKE_SOURCE_DIR}/build/third_party/sqlite)
    if(NOT EXISTS ${sqlite_folder}/sqlite3.c)
        message(FATAL_ERROR "SQLite's sources are missing: run tools/fetch-sqlite")
    endif()
    add_library(sqlite3_windows STATIC ${sqlite_folder}/sqlite3.c)
    set_target_properties(sqlite3_windows PROPERTIES UNITY_BUILD OFF)
    target_include_directories(sqlite3_windows SYSTEM PUBLIC ${sqlite_folder})
    # One connection belongs to one thread; different connections may live on different threads.
    target_compile_definitions(sqlite3_windows PRIVATE SQLITE_THREADSAFE=2 SQLITE_DQS=0 SQLITE_OMIT_LOAD_EXTENSION
                                                       SQLITE_OMIT_DEPRECATED SQLITE_OMIT_SHARED_CACHE
                                                       SQLITE_DEFAULT_MEMSTATUS=0 SQLITE_ENABLE_FTS5)
    target_compile_options(sqlite3_windows PRIVATE -O2 -w)
    add_library(quorel_sqlite INTERFACE)
    target_link_libraries(quorel_sqlite INTERFACE sqlite3_windows)
else()
    find_package(SQLite3 3.40 REQUIRED)
    add_library(quorel_sqlite INTERFACE)
    target_link_libraries(quorel_sqlite INTERFACE SQLite::SQLite3)
endif()
