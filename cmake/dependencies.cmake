# What others wrote and this project builds or links: from where, which version, known by which sum,
# under which licence, and what of it is used. THIRD-PARTY.md and the bill of materials of what ships
# say what stands here. It is read by the build and by scripts (cmake -P).
#
# zv_package(NAME FROM NPM|DEBIAN VERSION … SHA512 … TAKES …): an archive that is fetched and checked
#   here. DEBIAN: the archive ARCHIVE of a source package of a SUITE that need not be the system's own.
#   TAKES: what is unpacked of it, as patterns; nothing else of it reaches the disk.
# zv_component(NAME PACKAGE NAME VERSION … HEADER … DEFINES …): what of a fetched package is inside
#   what ships. The version is the one that the lines DEFINES of the file HEADER tell.
# zv_component(NAME DEBIAN PACKAGE FILE …): what a package of the system brings, which apt checked;
#   "*" in a name stands for the width (x86-64, i686). The version is the one that is installed, the
#   checksum in the bill of materials that of the archive FILE.
# Both: LICENCE (SPDX), SUPPLIER (SPDX), USED (in words), LIBRARIES (the lines of a linker's map that
#   tell that it is inside, a regular expression; the first component that fits counts), TEXTS (where
#   its licence is; "HEADER:" in front of a source file means the comment that it begins with), CPE
#   (vendor:product of lists of defects).
set(ZV_PACKAGES)
set(ZV_COMPONENTS)
function(zv_package name)
    cmake_parse_arguments(ARG "" "FROM;VERSION;SUITE;ARCHIVE;SHA512" "TAKES" ${ARGN})
    set(ZV_PACKAGES ${ZV_PACKAGES} ${name} PARENT_SCOPE)
    foreach(field FROM VERSION SUITE ARCHIVE SHA512 TAKES)
        set(ZV_PACKAGE_${name}_${field} "${ARG_${field}}" PARENT_SCOPE)
    endforeach()
endfunction()
function(zv_component name)
    cmake_parse_arguments(ARG "" "PACKAGE;DEBIAN;FILE;VERSION;HEADER;LICENCE;SUPPLIER;CPE;USED;LIBRARIES"
                          "DEFINES;TEXTS" ${ARGN})
    set(ZV_COMPONENTS ${ZV_COMPONENTS} ${name} PARENT_SCOPE)
    foreach(field PACKAGE DEBIAN FILE VERSION HEADER DEFINES LICENCE SUPPLIER CPE USED LIBRARIES TEXTS)
        set(ZV_COMPONENT_${name}_${field} "${ARG_${field}}" PARENT_SCOPE)
    endforeach()
endfunction()

zv_package(better-sqlite3 FROM NPM VERSION 13.2.0
    SHA512 67c43ff71fee3722b1035bf814da1dc88b51551c354de281ae68f7d89871851d1c78d70163ec0ca1bb7f06fecced3cf03c05e39d946d35a12c0139d465229665
    TAKES package/deps/sqlite3/sqlite3.c package/deps/sqlite3/sqlite3.h)
zv_package(muhammara FROM NPM VERSION 6.0.6
    SHA512 c2a378edad6fdadb2238a9ea8b95a3da259bf6e0801894b849fa4f7a4c6e98406673717ed9ece75a0cedf04d52aeedccdad7e55f85771794ea0ec8b283f5ad47
    TAKES package/LICENSE package/src/deps/LibAesgm/* package/src/deps/PDFWriter/*)
zv_package(freetype FROM DEBIAN SUITE trixie VERSION 2.13.3+dfsg
    ARCHIVE freetype_2.13.3+dfsg.orig.tar.xz
    SHA512 634c2644bb70b93a605fae4d3e731cb13d149af4d01029ecf2d166b2e07cba07489303440a836057adc54f9bdabcceb7fde102dc5e5bf69f35c99ebae66f7293
    TAKES */docs/FTL.TXT freetype-2.13.3/include/* freetype-2.13.3/src/base/* freetype-2.13.3/src/cff/*
          freetype-2.13.3/src/psaux/* freetype-2.13.3/src/pshinter/* freetype-2.13.3/src/psnames/*
          freetype-2.13.3/src/sfnt/* freetype-2.13.3/src/truetype/*)

# Of tests alone: a grammar of SQL Server's language by others, and what reads by it.
zv_package(antlr4ts-sql FROM NPM VERSION 1.1.0
    SHA512 f78fbcffe86c3c8fce2c6d16446a96f3cfe0ab3fb1c6b48b4b3fe31aa4bc5e5eed616c148ff7010780ff41198d7b360ba84694ccc1e14de427e61ceba42db035
    TAKES package/LICENSE package/package.json package/dist/*.js)
zv_package(antlr4ts FROM NPM VERSION 0.5.0-alpha.4
    SHA512 58f403b7507be0e7cfbff20c4b67a45c02a44d920797cf2e31eb60eaadce4ea805c59fddc435c8d0458bc9989dff53deea14dfb7283937b81e979c0d006c57c9
    TAKES package/LICENSE package/package.json package/*.js)

zv_component(SQLite PACKAGE better-sqlite3 VERSION 3.54.1
    HEADER package/deps/sqlite3/sqlite3.h DEFINES SQLITE_VERSION
    CPE sqlite:sqlite
    LICENCE blessing SUPPLIER "Organization: Hipp, Wyrick & Company, Inc."
    USED "the amalgamation, without loading of extensions: the embedded engine"
    LIBRARIES "libzv_sqlite3[.]a[(]"
    TEXTS HEADER:package/deps/sqlite3/sqlite3.h)
zv_component(AES PACKAGE muhammara VERSION 02/09/2018
    HEADER package/src/deps/LibAesgm/aes.h DEFINES "Issue Date:"
    LICENCE Brian-Gladman-2-Clause SUPPLIER "Person: Brian Gladman"
    USED "linked by PDFWriter for encrypted files, of which none are written"
    LIBRARIES "libzv_pdf_writer[.]a[(]aes"
    TEXTS HEADER:package/src/deps/LibAesgm/aes.h)
zv_component(PDFWriter PACKAGE muhammara VERSION 4.6.7
    HEADER package/src/deps/PDFWriter/CMakeLists.txt DEFINES "project.PDFHummus VERSION"
    LICENCE Apache-2.0 SUPPLIER "Person: Gal Kahana"
    USED "the writer of PDF files, without pictures"
    LIBRARIES "libzv_pdf_writer[.]a[(]"
    TEXTS package/LICENSE /usr/share/common-licenses/Apache-2.0)
zv_component(FreeType PACKAGE freetype VERSION 2.13.3
    HEADER freetype-2.13.3/include/freetype/freetype.h
    DEFINES FREETYPE_MAJOR FREETYPE_MINOR FREETYPE_PATCH
    CPE freetype:freetype
    LICENCE FTL SUPPLIER "Organization: The FreeType Project"
    USED "the readers of TrueType and CFF fonts, without fonts that vary and compressed ones"
    LIBRARIES "libzv_freetype[.]a[(]"
    TEXTS freetype-2.13.3/docs/FTL.TXT)
zv_component(zlib DEBIAN libz-mingw-w64-dev FILE libz.a
    CPE zlib:zlib
    LICENCE Zlib SUPPLIER "Organization: The zlib project"
    USED "compresses what PDFWriter writes"
    LIBRARIES "/libz[.]a[(]"
    TEXTS /usr/share/doc/libz-mingw-w64-dev/copyright)
zv_component(GCC-runtime DEBIAN g++-mingw-w64-*-posix FILE libstdc++.a
    CPE gnu:gcc
    LICENCE "GPL-3.0-or-later WITH GCC-exception-3.1" SUPPLIER "Organization: Free Software Foundation, Inc."
    USED "the standard library of C++ and what the compiler calls"
    LIBRARIES "/(libstdc[+][+]|libgcc|libgcc_eh)[.]a[(]|/crt(begin|end)[A-Za-z]*[.]o$"
    TEXTS /usr/share/doc/g++-mingw-w64-*-posix/copyright /usr/share/common-licenses/GPL-3)
zv_component(winpthreads DEBIAN mingw-w64-*-dev FILE libwinpthread.a
    LICENCE "MIT AND BSD-3-Clause" SUPPLIER "Organization: The MinGW-w64 project"
    USED "threads, below the standard library of C++"
    LIBRARIES "/lib(win)?pthread[.]a[(]"
    TEXTS /usr/share/doc/mingw-w64-*-dev/copyright)
zv_component(MinGW-w64-runtime DEBIAN mingw-w64-*-dev FILE libmingwex.a
    LICENCE "ZPL-2.1 AND LicenseRef-MinGW-w64-parts" SUPPLIER "Organization: The MinGW-w64 project"
    USED "what lies between the compiler's code and Windows"
    LIBRARIES "-w64-mingw32/lib(|32|64)/(lib[A-Za-z0-9_]+[.]a[(]|[a-z0-9]*crt[0-9a-z]*[.]o$)"
    TEXTS /usr/share/doc/mingw-w64-*-dev/copyright)
