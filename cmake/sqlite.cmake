# The embedded SQL engine: the SQLite amalgamation that the npm package better-sqlite3 carries, one
# version for every platform, known by its sum (dependencies.cmake). Nothing takes its place: a
# system's own library may be of a version that loses data (before 3.51.3 emptying the write-ahead log
# could damage the file, and Debian 12 carries 3.40). Only tests meet the system's library, through
# its ODBC driver, which no product of this project uses.
zv_fetch(better-sqlite3 ZV_SQLITE_SOURCE)
string(APPEND ZV_SQLITE_SOURCE /package/deps/sqlite3)

add_library(zv_sqlite3 STATIC ${ZV_SQLITE_SOURCE}/sqlite3.c)
target_include_directories(zv_sqlite3 SYSTEM PUBLIC ${ZV_SQLITE_SOURCE})
# Synchronous 3 is what a roll-back journal needs: the folder is written out when the journal goes, or
# it could come back when the power fails and undo what was acknowledged. A log needs no more than 2.
target_compile_definitions(zv_sqlite3 PRIVATE SQLITE_THREADSAFE=1 SQLITE_DQS=0
    SQLITE_OMIT_LOAD_EXTENSION SQLITE_OMIT_DEPRECATED
    SQLITE_DEFAULT_SYNCHRONOUS=3 SQLITE_DEFAULT_WAL_SYNCHRONOUS=2)
target_compile_options(zv_sqlite3 PRIVATE -w -O2)
# One file as it is; to optimise it once more with each program that holds it takes minutes.
set_target_properties(zv_sqlite3 PROPERTIES INTERPROCEDURAL_OPTIMIZATION OFF)
if(ZV_SANITIZE OR ZV_FUZZ)
    # Instrumenting the amalgamation takes many minutes and checks nothing of ours; memory that
    # is passed to it is still watched through the allocator.
    target_compile_options(zv_sqlite3 PRIVATE -fno-sanitize=all)
endif()
if(UNIX)
    target_link_libraries(zv_sqlite3 PUBLIC m pthread)
endif()
