# What ships is compiled file by file and optimised across all of them. Its symbols lie beside it in a
# file of their own, and it is the same from whichever folder and on whichever day it is built.
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
