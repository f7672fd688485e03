# The writer of PDF files: the library PDFWriter with the FreeType and zlib that it stands on, from
# the sources that the npm package muhammara carries, one version for every platform. Only what
# writes texts in TrueType and CFF fonts is built: no pictures.
set(ZV_PDF_PACKAGE muhammara@6.0.6)
set(ZV_PDF_DIR ${CMAKE_SOURCE_DIR}/build/deps/pdf_writer)
set(ZV_PDF_SOURCE ${ZV_PDF_DIR}/package/src/deps)
if(NOT EXISTS ${ZV_PDF_SOURCE}/PDFWriter/PDFWriter.cpp)
    find_program(ZV_NPM npm REQUIRED)
    file(MAKE_DIRECTORY ${ZV_PDF_DIR})
    execute_process(COMMAND ${ZV_NPM} pack --loglevel=error ${ZV_PDF_PACKAGE}
                    WORKING_DIRECTORY ${ZV_PDF_DIR} RESULT_VARIABLE rc OUTPUT_VARIABLE tarball
                    ERROR_VARIABLE reason OUTPUT_STRIP_TRAILING_WHITESPACE)
    if(NOT rc EQUAL 0)
        message(FATAL_ERROR "npm could not fetch ${ZV_PDF_PACKAGE}: ${reason}")
    endif()
    file(ARCHIVE_EXTRACT INPUT ${ZV_PDF_DIR}/${tarball} DESTINATION ${ZV_PDF_DIR}
         PATTERNS package/LICENSE package/src/deps/FreeType/include/* package/src/deps/FreeType/src/*
                  package/src/deps/LibAesgm/* package/src/deps/PDFWriter/* package/src/deps/Zlib/*)
endif()

# FreeType asks this file for its modules: those that read TrueType and CFF fonts and no others.
set(ZV_PDF_MODULES ${CMAKE_BINARY_DIR}/pdf_writer/font_modules.h)
file(CONFIGURE OUTPUT ${ZV_PDF_MODULES} CONTENT [[
FT_USE_MODULE( FT_Driver_ClassRec, tt_driver_class )
FT_USE_MODULE( FT_Driver_ClassRec, cff_driver_class )
FT_USE_MODULE( FT_Module_Class, psaux_module_class )
FT_USE_MODULE( FT_Module_Class, psnames_module_class )
FT_USE_MODULE( FT_Module_Class, pshinter_module_class )
FT_USE_MODULE( FT_Module_Class, sfnt_module_class )
]])

set(ZV_FREETYPE_SOURCES)
foreach(file IN ITEMS base/ftbase base/ftbbox base/ftbitmap base/ftcid base/ftdebug base/ftfstype base/ftglyph
                      base/ftinit base/ftsystem base/fttype1 cff/cff gzip/ftgzip psaux/psaux
                      pshinter/pshinter psnames/psnames sfnt/sfnt truetype/truetype)
    list(APPEND ZV_FREETYPE_SOURCES ${ZV_PDF_SOURCE}/FreeType/src/${file}.c)
endforeach()
set(ZV_ZLIB_SOURCES)
foreach(file IN ITEMS adler32 compress crc32 deflate inffast inflate inftrees trees uncompr zutil)
    list(APPEND ZV_ZLIB_SOURCES ${ZV_PDF_SOURCE}/Zlib/${file}.c)
endforeach()
set(ZV_AES_SOURCES)
foreach(file IN ITEMS aes_modes aes_ni aescrypt aeskey aestab)
    list(APPEND ZV_AES_SOURCES ${ZV_PDF_SOURCE}/LibAesgm/${file}.c)
endforeach()
file(GLOB ZV_PDF_SOURCES ${ZV_PDF_SOURCE}/PDFWriter/*.cpp)

add_library(zv_freetype STATIC ${ZV_FREETYPE_SOURCES} ${ZV_ZLIB_SOURCES})
target_include_directories(zv_freetype SYSTEM PUBLIC ${ZV_PDF_SOURCE}/FreeType/include
                                                     ${ZV_PDF_SOURCE}/Zlib)
target_compile_definitions(zv_freetype PUBLIC FT_CONFIG_OPTION_SYSTEM_ZLIB=1
                           FT_CONFIG_MODULES_H="${ZV_PDF_MODULES}" PRIVATE FT2_BUILD_LIBRARY=1)

add_library(zv_pdf_writer STATIC ${ZV_PDF_SOURCES} ${ZV_AES_SOURCES})
target_include_directories(zv_pdf_writer SYSTEM PUBLIC ${ZV_PDF_SOURCE}/PDFWriter
                                                PRIVATE ${ZV_PDF_SOURCE}/LibAesgm)
target_compile_definitions(zv_pdf_writer PUBLIC PDFHUMMUS_NO_TIFF=1 PDFHUMMUS_NO_DCT=1
                                                PDFHUMMUS_NO_PNG=1)
target_link_libraries(zv_pdf_writer PUBLIC zv_freetype)
# Many small files that include the same headers: compiled together they cost a fraction. Files that
# give something outside any class the same name go to different batches.
set(ZV_PDF_BATCHES 6)
set(next 0)
foreach(file IN LISTS ZV_PDF_SOURCES)
    file(STRINGS ${file} lines REGEX "^(static|const|typedef) ")
    string(REGEX MATCHALL "sc?[A-Z][A-Za-z_0-9]*" names "${lines}")
    set(batch ${next})
    foreach(try RANGE 1 ${ZV_PDF_BATCHES})
        set(is_free TRUE)
        foreach(name IN LISTS names)
            if(name IN_LIST batch_${batch}_names)
                set(is_free FALSE)
            endif()
        endforeach()
        if(is_free)
            break()
        endif()
        math(EXPR batch "(${batch} + 1) % ${ZV_PDF_BATCHES}")
    endforeach()
    if(is_free)
        list(APPEND batch_${batch}_names ${names})
        set_source_files_properties(${file} PROPERTIES UNITY_GROUP pdf_${batch})
    else()
        set_source_files_properties(${file} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
    endif()
    math(EXPR next "(${next} + 1) % ${ZV_PDF_BATCHES}")
endforeach()
set_source_files_properties(${ZV_AES_SOURCES} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
set_target_properties(zv_freetype PROPERTIES UNITY_BUILD OFF)
set_target_properties(zv_pdf_writer PROPERTIES UNITY_BUILD ON UNITY_BUILD_MODE GROUP)

foreach(library zv_freetype zv_pdf_writer)
    set_target_properties(${library} PROPERTIES INTERPROCEDURAL_OPTIMIZATION OFF)
    target_compile_options(${library} PRIVATE -w -O1 -g0)
    if(ZV_SANITIZE)
        # It is not ours to check, and instrumenting it takes long; memory that is passed to it is
        # still watched through the allocator.
        target_compile_options(${library} PRIVATE -fno-sanitize=all)
    endif()
endforeach()
