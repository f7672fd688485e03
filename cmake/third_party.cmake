# cmake [-DOUT=FILE] -P cmake/third_party.cmake: writes THIRD-PARTY.md from the table of dependencies.
include(${CMAKE_CURRENT_LIST_DIR}/dependencies.cmake)
if(NOT OUT)
    set(OUT ${CMAKE_CURRENT_LIST_DIR}/../THIRD-PARTY.md)
endif()

set(text [[
# What others wrote

The programs that ship carry these parts of others. The build puts their licences, in full, beside the programs (`licences/`), and with them `zvTask.spdx.json`, the bill of materials in SPDX 2.3: which part is in which file, its version, and sums of it. `cmake/third_party.cmake` writes this page from the table in `cmake/dependencies.cmake`, which the build reads too.

| What | Version | Licence | From | What of it |
|---|---|---|---|---|
]])
foreach(component IN LISTS ZV_COMPONENTS)
    foreach(field PACKAGE DEBIAN VERSION LICENCE USED SUPPLIER)
        set(${field} "${ZV_COMPONENT_${component}_${field}}")
    endforeach()
    if(DEBIAN)
        set(from "Debian package `${DEBIAN}`")
        set(VERSION "the system's")
    elseif(ZV_PACKAGE_${PACKAGE}_FROM STREQUAL NPM)
        set(from "npm package `${PACKAGE}` ${ZV_PACKAGE_${PACKAGE}_VERSION}")
    else()
        set(from "Debian source package `${PACKAGE}` ${ZV_PACKAGE_${PACKAGE}_VERSION} (${ZV_PACKAGE_${PACKAGE}_SUITE})")
    endif()
    string(REGEX REPLACE "^[A-Za-z]+: " "" SUPPLIER "${SUPPLIER}")
    string(APPEND text "| ${component} (${SUPPLIER}) | ${VERSION} | ${LICENCE} | ${from} | ${USED} |\n")
endforeach()

string(APPEND text [[

Archives that apt does not check are known by these sums (SHA-512); another file is refused, and nothing of it is kept:

]])
foreach(package IN LISTS ZV_PACKAGES)
    string(APPEND text "- ${package} ${ZV_PACKAGE_${package}_VERSION}: `${ZV_PACKAGE_${package}_SHA512}`\n")
endforeach()
string(APPEND text [[

A `*` in the name of a Debian package stands for the width. Packages of the system are those that its release has, checked by apt; `zvTask.spdx.json` names the versions that a build was made with.
]])
file(WRITE ${OUT} "${text}")
