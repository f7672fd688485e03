# The embedded SQL engine: the SQLite amalgamation that the npm package better-sqlite3 carries, one
# version for every platform. Where the registry cannot be reached a native build takes the
# system's library and says so.
set(ZV_SQLITE_PACKAGE better-sqlite3@13.2.0)
set(ZV_SQLITE_DIR ${CMAKE_SOURCE_DIR}/build/deps/sqlite)
if(NOT EXISTS ${ZV_SQLITE_DIR}/package/deps/sqlite3/sqlite3.c)
    find_program(ZV_NPM npm)
    if(ZV_NPM)
        file(MAKE_DIRECTORY ${ZV_SQLITE_DIR})
        execute_process(COMMAND ${ZV_NPM} pack --loglevel=error ${ZV_SQLITE_PACKAGE}
                        WORKING_DIRECTORY ${ZV_SQLITE_DIR} RESULT_VARIABLE rc OUTPUT_VARIABLE tarball
                        ERROR_VARIABLE reason OUTPUT_STRIP_TRAILING_WHITESPACE)
        if(rc EQUAL 0)
            file(ARCHIVE_EXTRACT INPUT ${ZV_SQLITE_DIR}/${tarball} DESTINATION ${ZV_SQLITE_DIR}
                 PATTERNS package/deps/sqlite3/*)
        endif()
    endif()
endif()

if(EXISTS ${ZV_SQLITE_DIR}/package/deps/sqlite3/sqlite3.c)
    add_library(zv_sqlite3 STATIC ${ZV_SQLITE_DIR}/package/deps/sqlite3/sqlite3.c)
    target_include_directories(zv_sqlite3 SYSTEM PUBLIC ${ZV_SQLITE_DIR}/package/deps/sqlite3)
    target_compile_definitions(zv_sqlite3 PRIVATE SQLITE_THREADSAFE=1 SQLITE_DQS=0
        SQLITE_OMIT_LOAD_EXTENSION SQLITE_OMIT_DEPRECATED SQLITE_DEFAULT_WAL_SYNCHRONOUS=2)
    target_compile_options(zv_sqlite3 PRIVATE -w -O2)
    if(ZV_SANITIZE)
        # Instrumenting the amalgamation takes many minutes and checks nothing of ours; memory that
        # is passed to it is still watched through the allocator.
        target_compile_options(zv_sqlite3 PRIVATE -fno-sanitize=all)
    endif()
    if(UNIX)
        target_link_libraries(zv_sqlite3 PUBLIC m pthread)
    endif()
else()
    if(WIN32)
        message(FATAL_ERROR "npm could not fetch ${ZV_SQLITE_PACKAGE}: ${reason}")
    endif()
    message(WARNING "npm could not fetch ${ZV_SQLITE_PACKAGE}, the system's SQLite is used: ${reason}")
    find_package(SQLite3 REQUIRED)
    add_library(zv_sqlite3 INTERFACE)
    target_link_libraries(zv_sqlite3 INTERFACE SQLite::SQLite3)
endif()
