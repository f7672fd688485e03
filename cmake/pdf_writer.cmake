# The writer of PDF files: the library PDFWriter from the sources that the npm package muhammara
# carries, the FreeType that it reads fonts with, and the system's zlib (dependencies.cmake tells the
# versions). Only what writes texts in TrueType and CFF fonts is built: no pictures.
zv_fetch(muhammara ZV_PDF_SOURCE)
string(APPEND ZV_PDF_SOURCE /package/src/deps)
zv_fetch(freetype ZV_FREETYPE_SOURCE)
string(APPEND ZV_FREETYPE_SOURCE /freetype-${ZV_COMPONENT_FreeType_VERSION})
find_path(ZV_ZLIB_INCLUDE zlib.h REQUIRED)
if(WIN32)
    # By its whole name: a plain "z" would be the library that loads a DLL.
    find_library(ZV_ZLIB_LIBRARY libz.a REQUIRED)
else()
    find_library(ZV_ZLIB_LIBRARY z REQUIRED)
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

# What no font of a print needs is not there: fonts that vary (a fault of 2.13.3, CVE-2026-23865, lies
# in their code; without it such a font is read as it is by default), fonts that are compressed, and
# those of old Macs. FreeType's own options hold otherwise.
set(ZV_PDF_FONT_OPTIONS ${CMAKE_BINARY_DIR}/pdf_writer/font_options.h)
file(READ ${ZV_FREETYPE_SOURCE}/include/freetype/config/ftoption.h options)
foreach(option TT_CONFIG_OPTION_GX_VAR_SUPPORT FT_CONFIG_OPTION_USE_LZW FT_CONFIG_OPTION_USE_ZLIB
               FT_CONFIG_OPTION_MAC_FONTS TT_CONFIG_OPTION_BDF FT_CONFIG_OPTION_SVG)
    string(REGEX REPLACE "\n#define +${option}[ \t]*\n" "\n/* ${option} is off */\n" without "${options}")
    if(without STREQUAL options)
        message(FATAL_ERROR "FreeType has no option ${option} to switch off")
    endif()
    set(options "${without}")
endforeach()
file(CONFIGURE OUTPUT ${ZV_PDF_FONT_OPTIONS} CONTENT "${options}" @ONLY)

set(ZV_FREETYPE_SOURCES)
foreach(file IN ITEMS base/ftbase base/ftbbox base/ftbitmap base/ftcid base/ftdebug base/ftfstype base/ftglyph
                      base/ftinit base/ftsystem base/fttype1 cff/cff psaux/psaux
                      pshinter/pshinter psnames/psnames sfnt/sfnt truetype/truetype)
    list(APPEND ZV_FREETYPE_SOURCES ${ZV_FREETYPE_SOURCE}/src/${file}.c)
endforeach()
set(ZV_AES_SOURCES)
foreach(file IN ITEMS aes_modes aes_ni aescrypt aeskey aestab)
    list(APPEND ZV_AES_SOURCES ${ZV_PDF_SOURCE}/LibAesgm/${file}.c)
endforeach()
file(GLOB ZV_PDF_SOURCES ${ZV_PDF_SOURCE}/PDFWriter/*.cpp)

add_library(zv_freetype STATIC ${ZV_FREETYPE_SOURCES})
target_include_directories(zv_freetype SYSTEM PUBLIC ${ZV_FREETYPE_SOURCE}/include)
target_compile_definitions(zv_freetype PUBLIC FT_CONFIG_MODULES_H="${ZV_PDF_MODULES}"
                           FT_CONFIG_OPTIONS_H="${ZV_PDF_FONT_OPTIONS}" PRIVATE FT2_BUILD_LIBRARY=1)

add_library(zv_pdf_writer STATIC ${ZV_PDF_SOURCES} ${ZV_AES_SOURCES})
target_include_directories(zv_pdf_writer SYSTEM PUBLIC ${ZV_PDF_SOURCE}/PDFWriter
                           PRIVATE ${ZV_PDF_SOURCE}/LibAesgm ${ZV_ZLIB_INCLUDE})
target_compile_definitions(zv_pdf_writer PUBLIC PDFHUMMUS_NO_TIFF=1 PDFHUMMUS_NO_DCT=1
                                                PDFHUMMUS_NO_PNG=1)
target_link_libraries(zv_pdf_writer PUBLIC zv_freetype PRIVATE ${ZV_ZLIB_LIBRARY})
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
    elseif(ZV_FUZZ)
        # How far a font gets in it is what leads to the next one.
        target_compile_options(${library} PRIVATE -fno-sanitize=undefined)
    endif()
endforeach()
