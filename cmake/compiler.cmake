# Warnings as errors and the flags that every target of the project shares.
add_library(zv_options INTERFACE)
target_include_directories(zv_options INTERFACE ${PROJECT_SOURCE_DIR}/src)
target_compile_options(zv_options INTERFACE -Wall -Wextra -Wconversion -Wshadow -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL GNU AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    # Optimising "x" + std::string makes GCC 12 warn of an overlap that cannot be (GCC bug 105651).
    target_compile_options(zv_options INTERFACE -Wno-restrict)
endif()
if(ZV_SANITIZE)
    # Line numbers are what a report of the sanitizers needs; more costs time and space.
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer
                        -g1)
    add_link_options(-fsanitize=address,undefined)
endif()
if(WIN32)
    target_compile_definitions(zv_options INTERFACE UNICODE _UNICODE WINVER=0x0601
                               _WIN32_WINNT=0x0601 NOMINMAX WIN32_LEAN_AND_MEAN)
    # GCC's cast of GetProcAddress results and of window procedures is unavoidable in Win32 code.
    target_compile_options(zv_options INTERFACE -Wno-cast-function-type)
    add_link_options(-static -municode)
endif()

# zv_library(NAME SOURCES... [LINK TARGETS...]): a static library of the project.
function(zv_library name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
    add_library(${name} STATIC ${ARG_SOURCES})
    target_link_libraries(${name} PUBLIC zv_options ${ARG_LINK})
endfunction()
