# Fetches the packages of dependencies.cmake. Each lies in a folder of its own below ZV_PACKAGES_DIR and
# is checked against its sum before anything of it is unpacked, and at each configuring.
include(${CMAKE_CURRENT_LIST_DIR}/dependencies.cmake)
if(NOT ZV_PACKAGES_DIR)
    set(ZV_PACKAGES_DIR ${CMAKE_SOURCE_DIR}/build/deps)
endif()
set(ZV_DEBIAN_SOURCE ${CMAKE_CURRENT_LIST_DIR}/../tools/setup/debian_source)

# zv_version_told(COMPONENT FOLDER VERSION): sets VERSION to the one that the component's source tells,
# which is unpacked in FOLDER.
function(zv_version_told component folder version)
    set(numbers)
    foreach(word IN LISTS ZV_COMPONENT_${component}_DEFINES)
        file(STRINGS ${folder}/${ZV_COMPONENT_${component}_HEADER} lines REGEX "${word}[ \t]+\"?[0-9]")
        string(REGEX MATCH "${word}[ \t]+\"?([0-9./]+)" line "${lines}")
        list(APPEND numbers "${CMAKE_MATCH_1}")
    endforeach()
    list(JOIN numbers . numbers)
    set(${version} "${numbers}" PARENT_SCOPE)
endfunction()

# zv_fetch(PACKAGE FOLDER): sets FOLDER to where the package is unpacked. Ends with an error when it
# cannot be had or is not the one that is meant; nothing of it is kept then.
function(zv_fetch package folder)
    foreach(field FROM VERSION SUITE ARCHIVE SHA512 TAKES)
        set(${field} "${ZV_PACKAGE_${package}_${field}}")
    endforeach()
    set(home ${ZV_PACKAGES_DIR}/${package}-${VERSION})
    if(FROM STREQUAL NPM)
        set(ARCHIVE ${package}-${VERSION}.tgz)
        find_program(ZV_NPM npm)
        set(fetch ${ZV_NPM} pack --loglevel=error ${package}@${VERSION})
        set(missing "npm, which fetches it, is not installed")
    else()
        find_program(ZV_APT_GET apt-get)
        set(fetch ${ZV_DEBIAN_SOURCE} ${SUITE} ${package} ${ARCHIVE})
        set(missing "apt-get, which fetches it, is not there")
    endif()

    if(NOT EXISTS ${home}/${ARCHIVE})
        if((FROM STREQUAL NPM AND NOT ZV_NPM) OR (FROM STREQUAL DEBIAN AND NOT ZV_APT_GET))
            message(FATAL_ERROR "The package ${package} ${VERSION} is missing: ${missing}")
        endif()
        message(STATUS "Fetching ${package} ${VERSION}")
        file(MAKE_DIRECTORY ${home})
        execute_process(COMMAND ${fetch} WORKING_DIRECTORY ${home} RESULT_VARIABLE rc
                        OUTPUT_VARIABLE said ERROR_VARIABLE said)
        if(NOT rc EQUAL 0 OR NOT EXISTS ${home}/${ARCHIVE})
            file(REMOVE_RECURSE ${home})
            message(FATAL_ERROR "The package ${package} ${VERSION} is missing: "
                                "it could not be fetched. ${said}")
        endif()
    endif()

    file(SHA512 ${home}/${ARCHIVE} sum)
    if(NOT sum STREQUAL SHA512)
        file(REMOVE_RECURSE ${home})
        message(FATAL_ERROR "${ARCHIVE} is not the file that is meant; nothing of it is kept.\n"
                            "its SHA-512:  ${sum}\nthe one meant: ${SHA512}")
    endif()

    # What is unpacked is that of this sum and these patterns, also after one of them has changed.
    set(unpacked "${SHA512} ${TAKES}")
    set(there "")
    if(EXISTS ${home}/unpacked.txt)
        file(READ ${home}/unpacked.txt there)
    endif()
    if(NOT there STREQUAL unpacked)
        file(REMOVE_RECURSE ${home}/source)
        file(ARCHIVE_EXTRACT INPUT ${home}/${ARCHIVE} DESTINATION ${home}/source PATTERNS ${TAKES})
        file(WRITE ${home}/unpacked.txt "${unpacked}")
    endif()

    foreach(component IN LISTS ZV_COMPONENTS)
        if(ZV_COMPONENT_${component}_PACKAGE STREQUAL package)
            zv_version_told(${component} ${home}/source version)
            if(NOT version STREQUAL ZV_COMPONENT_${component}_VERSION)
                message(FATAL_ERROR "${package} ${VERSION} holds ${component} ${version}, "
                                    "not ${ZV_COMPONENT_${component}_VERSION}")
            endif()
        endif()
    endforeach()
    set(${folder} ${home}/source PARENT_SCOPE)
endfunction()
