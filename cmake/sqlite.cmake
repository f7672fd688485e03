# The embedded SQL engine: the SQLite amalgamation that the npm package better-sqlite3 carries, one
# version for every platform, known by its sums. Nothing takes its place: a system's own library may
# be of a version that loses data (before 3.51.3 emptying the write-ahead log could damage the file,
# and Debian 12 carries 3.40). Only tests meet the system's library, through its ODBC driver, which
# no product of this project uses.
set(ZV_SQLITE_PACKAGE better-sqlite3@13.2.0)
set(ZV_SQLITE_SUMS
    sqlite3.c 75a4760a7b9727a4c4c877aec92eacf39e52a8f2921ce00bd33be6d3a8e8e254
    sqlite3.h d6c84557261893439b341d2e6c35187ae3ea24fbfd843ad94616f72d89242b8c)
set(ZV_SQLITE_DIR ${CMAKE_SOURCE_DIR}/build/deps/sqlite CACHE PATH
    "Where the embedded engine's package is unpacked")
set(ZV_SQLITE_SOURCE ${ZV_SQLITE_DIR}/package/deps/sqlite3)
if(NOT EXISTS ${ZV_SQLITE_SOURCE}/sqlite3.c)
    find_program(ZV_NPM npm)
    if(NOT ZV_NPM)
        message(FATAL_ERROR "The embedded engine is missing: npm, which fetches ${ZV_SQLITE_PACKAGE}, "
                            "is not installed")
    endif()
    file(MAKE_DIRECTORY ${ZV_SQLITE_DIR})
    execute_process(COMMAND ${ZV_NPM} pack --loglevel=error ${ZV_SQLITE_PACKAGE}
                    WORKING_DIRECTORY ${ZV_SQLITE_DIR} RESULT_VARIABLE rc OUTPUT_VARIABLE tarball
                    ERROR_VARIABLE reason OUTPUT_STRIP_TRAILING_WHITESPACE)
    if(NOT rc EQUAL 0)
        message(FATAL_ERROR "The embedded engine is missing: npm could not fetch "
                            "${ZV_SQLITE_PACKAGE}: ${reason}")
    endif()
    file(ARCHIVE_EXTRACT INPUT ${ZV_SQLITE_DIR}/${tarball} DESTINATION ${ZV_SQLITE_DIR}
         PATTERNS package/deps/sqlite3/*)
endif()
while(ZV_SQLITE_SUMS)
    list(POP_FRONT ZV_SQLITE_SUMS name expected)
    file(SHA256 ${ZV_SQLITE_SOURCE}/${name} sum)
    if(NOT sum STREQUAL expected)
        message(FATAL_ERROR "${ZV_SQLITE_SOURCE}/${name} is not that of ${ZV_SQLITE_PACKAGE}; "
                            "remove ${ZV_SQLITE_DIR} to have it fetched again")
    endif()
endwhile()

add_library(zv_sqlite3 STATIC ${ZV_SQLITE_SOURCE}/sqlite3.c)
target_include_directories(zv_sqlite3 SYSTEM PUBLIC ${ZV_SQLITE_SOURCE})
target_compile_definitions(zv_sqlite3 PRIVATE SQLITE_THREADSAFE=1 SQLITE_DQS=0
    SQLITE_OMIT_LOAD_EXTENSION SQLITE_OMIT_DEPRECATED SQLITE_DEFAULT_WAL_SYNCHRONOUS=2)
target_compile_options(zv_sqlite3 PRIVATE -w -O2)
# One file as it is; to optimise it once more with each program that holds it takes minutes.
set_target_properties(zv_sqlite3 PROPERTIES INTERPROCEDURAL_OPTIMIZATION OFF)
if(ZV_SANITIZE)
    # Instrumenting the amalgamation takes many minutes and checks nothing of ours; memory that
    # is passed to it is still watched through the allocator.
    target_compile_options(zv_sqlite3 PRIVATE -fno-sanitize=all)
endif()
if(UNIX)
    target_link_libraries(zv_sqlite3 PUBLIC m pthread)
endif()
