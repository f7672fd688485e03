# Warnings as errors and the flags that every target of the project shares.
add_library(zv_options INTERFACE)
target_include_directories(zv_options INTERFACE ${PROJECT_SOURCE_DIR}/src)
target_compile_options(zv_options INTERFACE -Wall -Wextra -Wconversion -Wshadow -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL GNU AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    # Optimising "x" + std::string makes GCC 12 warn of an overlap that cannot be (GCC bug 105651).
    target_compile_options(zv_options INTERFACE -Wno-restrict)
endif()
if(ZV_SANITIZE)
    # Line numbers are what a report of the sanitizers needs; more costs time and space. A little
    # optimised, programs take half the time.
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer
                        -g1 -O1 -fno-optimize-sibling-calls)
    add_link_options(-fsanitize=address,undefined)
endif()
if(ZV_FUZZ)
    # What GCC warns of is known from there.
    target_compile_options(zv_options INTERFACE -Wno-error)
    add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all
                        -fno-omit-frame-pointer -g1 -O1)
    add_link_options(-fsanitize=address,undefined)
endif()
if(ZV_COVERAGE)
    # Counters that can be moved may stand in a file.
    target_compile_options(zv_options INTERFACE -Wno-error -fprofile-instr-generate -fcoverage-mapping
                                                "SHELL:-mllvm -runtime-counter-relocation" -g1 -O1)
    add_link_options(-fprofile-instr-generate)
endif()
if(WIN32)
    target_compile_definitions(zv_options INTERFACE UNICODE _UNICODE WINVER=0x0601
                               _WIN32_WINNT=0x0601 NOMINMAX WIN32_LEAN_AND_MEAN)
    # GCC's cast of GetProcAddress results and of window procedures is unavoidable in Win32 code.
    target_compile_options(zv_options INTERFACE -Wno-cast-function-type)
    add_link_options(-static -municode)
endif()

# Files for one system end in its name.
if(WIN32)
    set(ZV_PLATFORM win32)
else()
    set(ZV_PLATFORM posix)
endif()

# What most files read is compiled once. The presets that do without keep each file naming what it
# needs.
if(ZV_PRECOMPILED_HEADERS)
    # In a precompiled standard library the same bug shows itself in more ways.
    target_compile_options(zv_options INTERFACE -Wno-error=invalid-pch -Wno-array-bounds
                                                -Wno-stringop-overflow -Wno-stringop-overread)
    # A compiler's cache needs this. Debugging information names it, so what ships always has it.
    if(ZV_SHIPS OR CMAKE_CXX_COMPILER_LAUNCHER MATCHES ccache)
        target_compile_options(zv_options INTERFACE -fpch-preprocess)
    endif()
endif()
# So are the files of a library, a few at a time. A class that only its own file knows then looks as
# if a header had it.
if(CMAKE_UNITY_BUILD)
    target_compile_options(zv_options INTERFACE -Wno-subobject-linkage)
endif()
set(ZV_STANDARD_HEADERS <algorithm> <array> <functional> <map> <memory> <optional> <string>
                        <string_view> <utility> <variant> <vector>)

# zv_headers(NAME HEADERS...): the headers that the libraries of one kind share.
function(zv_headers name)
    if(ZV_PRECOMPILED_HEADERS)
        add_library(${name} STATIC ${PROJECT_SOURCE_DIR}/cmake/headers.cpp)
        target_link_libraries(${name} PRIVATE zv_options)
        target_precompile_headers(${name} PRIVATE ${ARGN})
    endif()
endfunction()
zv_headers(zv_portable_headers ${ZV_STANDARD_HEADERS})
if(WIN32)
    zv_headers(zv_windows_headers ${ZV_STANDARD_HEADERS} <windows.h> <commctrl.h> <oleauto.h>)
endif()

# zv_library(NAME [WINDOWS] SOURCES... [LINK TARGETS...]): a static library of the project; WINDOWS
# when most of its files speak to the system.
function(zv_library name)
    cmake_parse_arguments(ARG "WINDOWS" "" "SOURCES;LINK" ${ARGN})
    add_library(${name} STATIC ${ARG_SOURCES})
    target_link_libraries(${name} PUBLIC zv_options ${ARG_LINK})
    if(ZV_PRECOMPILED_HEADERS AND ARG_WINDOWS)
        target_precompile_headers(${name} REUSE_FROM zv_windows_headers)
    elseif(ZV_PRECOMPILED_HEADERS)
        target_precompile_headers(${name} REUSE_FROM zv_portable_headers)
    endif()
endfunction()
