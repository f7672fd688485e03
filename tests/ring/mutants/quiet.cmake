# Rewritten sources earn warnings that their originals do not. All errors of a file are wanted at once.
function(zv_quiet)
    target_compile_options(zv_options INTERFACE -w -Wno-error -Wno-narrowing -fpermissive -fmax-errors=0)
endfunction()
cmake_language(DEFER DIRECTORY ${CMAKE_SOURCE_DIR} CALL zv_quiet)
