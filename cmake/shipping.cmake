# What ships is optimised across all files. Its symbols lie beside it in a file of their own, and it is
# the same from whichever folder and on whichever day it is built.
option(ZV_SHIPS "Build as what ships is built" OFF)
if(ZV_SHIPS)
    # The 32-bit linker takes an inline function twice when one of its two objects comes from this
    # optimisation and the other, of a library that does without, does not.
    if(CMAKE_SIZEOF_VOID_P EQUAL 8)
        set(CMAKE_INTERPROCEDURAL_OPTIMIZATION ON)
    endif()
    add_compile_options(-g1 -ffile-prefix-map=${CMAKE_SOURCE_DIR}/=
                        -ffile-prefix-map=${CMAKE_BINARY_DIR}/=)
    if(WIN32)
        add_link_options(-Wl,--no-insert-timestamp)
    endif()
endif()

# zv_version_info(TARGET FILE DLL|APP DESCRIPTION [SELF_REGISTERS]): makes version_info.rc, what Windows
# shows as the version of the file, for the target's resource script to include.
function(zv_version_info target file kind description)
    set(self_register "")
    if(ARGN STREQUAL SELF_REGISTERS)
        set(self_register "            VALUE \"OLESelfRegister\", \"\"\n")
    endif()
    string(REPLACE . , numbers "${PROJECT_VERSION}.0")
    set(folder ${CMAKE_CURRENT_BINARY_DIR}/${target}_version)
    configure_file(${PROJECT_SOURCE_DIR}/cmake/version_info.rc.in ${folder}/version_info.rc @ONLY)
    target_include_directories(${target} PRIVATE ${folder})
    get_target_property(sources ${target} SOURCES)
    list(FILTER sources INCLUDE REGEX "[.]rc$")
    set_property(SOURCE ${sources} APPEND PROPERTY OBJECT_DEPENDS ${folder}/version_info.rc)
endfunction()

# zv_ships(TARGET): the file is one of those that users get.
function(zv_ships target)
    if(ZV_SHIPS)
        set_property(GLOBAL APPEND PROPERTY ZV_SHIPPED ${target})
        # What the linker took, for the list of what is inside.
        file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/maps)
        target_link_options(${target} PRIVATE -Wl,-Map=${CMAKE_BINARY_DIR}/maps/$<TARGET_FILE_NAME:${target}>.map)
        # The dates to preserve are those inside the files too, where objcopy puts its own otherwise.
        add_custom_command(TARGET ${target} POST_BUILD
            COMMAND ${CMAKE_OBJCOPY} --preserve-dates --only-keep-debug $<TARGET_FILE:${target}> $<TARGET_FILE:${target}>.debug
            COMMAND ${CMAKE_OBJCOPY} --preserve-dates --strip-all --add-gnu-debuglink=$<TARGET_FILE:${target}>.debug
                    $<TARGET_FILE:${target}>
            VERBATIM)
    elseif(WIN32)
        target_link_options(${target} PRIVATE $<$<CONFIG:Release>:-s>)
    endif()
endfunction()

# zv_assembly(NAME): makes NAME.manifest beside the programs, by which a program uses a file's classes
# without registration. The version and the width are those of the build.
function(zv_assembly name)
    if(CMAKE_SIZEOF_VOID_P EQUAL 8)
        set(architecture amd64)
    else()
        set(architecture x86)
    endif()
    configure_file(${name}.manifest.in ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/${name}.manifest @ONLY)
    set_property(GLOBAL APPEND PROPERTY ZV_SHIPPED_ASSEMBLIES ${name}.manifest)
endfunction()

# zv_ships_together(): the target "ships", all that users get: the programs, the assemblies, the bill of
# materials of what is inside and the licences of it.
function(zv_ships_together)
    get_property(targets GLOBAL PROPERTY ZV_SHIPPED)
    if(NOT targets)
        return()
    endif()
    string(REGEX REPLACE "([^;]+)" "$<TARGET_FILE_NAME:\\1>" files "${targets}")
    get_property(assemblies GLOBAL PROPERTY ZV_SHIPPED_ASSEMBLIES)
    list(APPEND files ${assemblies})
    string(REPLACE ";" "," files "${files}")
    string(REPLACE _ - width ${CMAKE_SYSTEM_PROCESSOR})
    add_custom_target(ships ALL
        COMMAND ${CMAKE_COMMAND} -DBIN=${CMAKE_BINARY_DIR}/bin -DFILES=${files} -DMAPS=${CMAKE_BINARY_DIR}/maps
                -DOUT=${CMAKE_BINARY_DIR}/bin/zvTask.spdx.json -DLICENCES=${CMAKE_BINARY_DIR}/licences
                -DVERSION=${PROJECT_VERSION} -DWIDTH=${width} -DCXX=${CMAKE_CXX_COMPILER}
                -DZV_PACKAGES_DIR=${ZV_PACKAGES_DIR} -P ${PROJECT_SOURCE_DIR}/cmake/bill_of_materials.cmake
        COMMENT "Listing what is inside what ships"
        VERBATIM)
    add_dependencies(ships ${targets})
endfunction()
