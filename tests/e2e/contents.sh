#!/usr/bin/env bash
# What is inside the built files that ship, and what is told of it: the bill of materials against the
# files, against what the linker took and against the headers; the licences; the versions that Windows
# shows.
#
#   contents.sh [PRESET...]    default: windows-x64-release windows-x86-release
#
# Closes with "N passed, N failed".
set -uo pipefail
root=$(cd "$(dirname "$0")/../.." && pwd)
cd "$root" || exit 1
[ $# -gt 0 ] || set -- windows-x64-release windows-x86-release
export LC_ALL=C
source tests/checks.sh
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

lines() { sort -u | tr '\n' ' ' | sed 's/ $//'; }
# told ID FIELD: what the bill says.
told() { sed -n "s/^SPDXRef-$1 $2 //p" "$work/bill"; }
# defined FILE NAME: the value of a constant of a header.
defined() { sed -nE "s/^ *# *define +$2 +\"?([^\" ]+)\"?.*/\1/p" "$1" | head -n 1; }

# Whose an archive or object of a linker's map is; our own are in no list.
whose() {
    sed -nE 's/^(LOAD )?([^ ]+\.a)\(([^)]*)\)$/\2 \3/p; s/^LOAD ([^ ]+\.o)$/\1/p' "$1" | while read -r file member; do
        case ${file##*/} in
            libzv_sqlite3.a) echo SQLite ;;
            libzv_freetype.a) echo FreeType ;;
            libzv_pdf_writer.a) [[ $member == aes* ]] && echo AES || echo PDFWriter ;;
            libzv_*.a) ;;
            libz.a) echo zlib ;;
            libstdc++.a | libgcc.a | libgcc_eh.a | crtbegin.o | crtend.o) echo GCC-runtime ;;
            libpthread.a | libwinpthread.a) echo winpthreads ;;
            crt*.o | dllcrt*.o | default-manifest.o) echo MinGW-w64-runtime ;;
            lib*.a) [[ $file == */*-w64-mingw32/lib/* ]] && echo MinGW-w64-runtime || echo "unknown:$file" ;;
            cc??????.*) ;;
            *) echo "unknown:$file" ;;
        esac
    done | lines
}

version_info() { # FILE NAME: what Windows shows under the name
    strings -a -el "$1" | grep -xA1 -- "$2" | sed -n 2p
}
# The numbers of a version resource follow its signature and the version of its layout.
version_numbers() {
    local at
    at=$(grep -obUaP '\xbd\x04\xef\xfe\x00\x00\x01\x00' "$1" | head -n 1 | cut -d : -f 1)
    [ -n "$at" ] && od -An -tu2 -j $((at + 8)) -N 16 "$1" | tr -s ' ' | sed 's/^ //'
}

look_at() { # PRESET COMPILER
    local preset=$1 cxx=$2 bin=build/$1/bin id file
    local headers=build/deps programs assemblies ships name field sum version

    rm -f "$work/bill"
    cmake -DIN="$bin/zvTask.spdx.json" -DOUT="$work/bill" -P tests/e2e/bill_of_materials.cmake >"$work/said" 2>&1
    check "$preset: the bill of materials can be read" 0 $?
    [ -s "$work/bill" ] || { head -n 5 "$work/said"; return; }
    check "$preset: kind of the bill" "SPDX-2.3 CC0-1.0 SPDXRef-DOCUMENT" \
        "$(sed -nE 's/^document (spdxVersion|dataLicense|SPDXID) //p' "$work/bill" | paste -sd ' ')"
    check "$preset: time of the bill" yes \
        "$(grep -qE '^document created [0-9]{4}-[0-9]{2}-[0-9]{2}T[0-9]{2}:[0-9]{2}:[0-9]{2}Z$' "$work/bill" && echo yes)"
    check "$preset: the bill describes the product" zvTask "$(told DOCUMENT DESCRIBES | sed 's/SPDXRef-//')"
    check "$preset: paths of the build in the bill" "" "$(grep -oF -- "$root" "$bin/zvTask.spdx.json" | head -n 1)"

    # The files.
    programs=$(cd "$bin" && ls -- *.ocx *.dll *.exe | lines)
    assemblies=$(cd "$bin" && ls -- *.manifest | lines)
    ships=$(tr ' ' '\n' <<<"$programs $assemblies" | lines)
    check "$preset: files in the bill" "$ships" "$(sed -n 's|^SPDXRef-File-.* fileName ./||p' "$work/bill" | lines)"
    for file in $ships; do
        id=File-${file//_/-}
        for sum in 1 256 512; do
            check "$preset: SHA$sum of $file" "$("sha${sum}sum" "$bin/$file" | cut -d ' ' -f 1)" "$(told "$id" "SHA$sum")"
        done
        check "$preset: the product holds $file" 1 "$(grep -cx "SPDXRef-zvTask CONTAINS SPDXRef-$id" "$work/bill")"
    done
    for file in $programs; do
        check "$preset: what is inside $file" "$(whose "build/$preset/maps/$file.map")" \
            "$(told "File-${file//_/-}" STATIC_LINK | sed 's/SPDXRef-//' | lines)"
    done
    for file in $assemblies; do
        check "$preset: what is inside $file" "" "$(told "File-$file" STATIC_LINK)"
    done
    check "$preset: what is told of the files as a whole" \
        "$(for file in $ships; do sha1sum "$bin/$file" | cut -d ' ' -f 1; done | sort | tr -d '\n' | sha1sum | cut -d ' ' -f 1)" \
        "$(told zvTask verification)"

    # The parts: in the bill are those that some file holds, each whole.
    for file in $programs; do
        whose "build/$preset/maps/$file.map" | tr ' ' '\n'
        echo
    done | sed '/^$/d' | sort -u >"$work/parts"
    check "$preset: parts in the bill" "$(lines <"$work/parts")" \
        "$(sed -nE 's/^SPDXRef-([A-Za-z0-9-]+) versionInfo .*/\1/p' "$work/bill" | grep -vx zvTask | lines)"
    check "$preset: licences of the parts" "$(sed 's/$/.txt/' "$work/parts" | lines)" \
        "$(ls "build/$preset/licences" | lines)"
    while read -r name; do
        for field in versionInfo licenseConcluded licenseDeclared; do
            check "$preset: $field of $name" yes "$([[ $(told "$name" $field) =~ ^[A-Za-z0-9] && $(told "$name" $field) != NOASSERTION ]] && echo yes)"
        done
        check "$preset: supplier of $name" yes "$([[ $(told "$name" supplier) =~ ^(Person|Organization):\ .+ ]] && echo yes)"
        check "$preset: sum of $name" yes "$([[ $(told "$name" SHA512) =~ ^[0-9a-f]{128}$ ]] && echo yes)"
        version=$(told "$name" licenseConcluded | grep -oE 'LicenseRef-[A-Za-z0-9.-]+')
        [ -z "$version" ] || check "$preset: the text of $version" 1 "$(grep -c "^licence $version ." "$work/bill")"
    done <"$work/parts"

    # Versions, as the headers and the files themselves tell them.
    local sqlite freetype mingw zlib
    sqlite=$(ls $headers/better-sqlite3-*/source/package/deps/sqlite3/sqlite3.h)
    freetype=$(ls $headers/freetype-*/source/*/include/freetype/freetype.h)
    zlib=$(echo '#include <zlib.h>' | "$cxx" -E -x c++ - | sed -nE 's|^# [0-9]+ "(.*/zlib\.h)".*|\1|p' | head -n 1)
    mingw=$(echo '#include <_mingw_mac.h>' | "$cxx" -E -x c++ - | sed -nE 's|^# [0-9]+ "(.*/_mingw_mac\.h)".*|\1|p' | head -n 1)
    check "$preset: version of SQLite" "$(defined "$sqlite" SQLITE_VERSION)" "$(told SQLite versionInfo)"
    check "$preset: version of FreeType" \
        "$(for part in MAJOR MINOR PATCH; do defined "$freetype" FREETYPE_$part; done | paste -sd .)" "$(told FreeType versionInfo)"
    check "$preset: version of zlib" "$(defined "$zlib" ZLIB_VERSION)" "$(told zlib versionInfo)"
    check "$preset: version of the MinGW-w64 runtime" \
        "$(defined "$mingw" __MINGW64_VERSION_MAJOR).$(defined "$mingw" __MINGW64_VERSION_MINOR)" \
        "$(told MinGW-w64-runtime versionInfo | cut -d . -f 1,2)"
    check "$preset: version of the compiler's runtime" "$("$cxx" -dumpversion | grep -oE '^[0-9]+')" \
        "$(told GCC-runtime versionInfo | cut -d . -f 1)"
    # What lies before a constant in a file may look like a part of it.
    check "$preset: SQLite in zv_Host.dll" "$(sed -nE 's/^#define SQLITE_SOURCE_ID +"(.*)"/\1/p' "$sqlite")" \
        "$(strings -a "$bin/zv_Host.dll" | grep -oE '[0-9]{4}-[0-9]{2}-[0-9]{2} [0-9:]{8} [0-9a-f]{64}' | lines)"
    check "$preset: zlib in zv_Host.dll" "deflate $(told zlib versionInfo)" \
        "$(strings -a "$bin/zv_Host.dll" | grep -oE 'deflate [0-9.]+[0-9]' | lines)"
    check "$preset: sum of zlib" "$(sha512sum "$("$cxx" -print-file-name=libz.a)" | cut -d ' ' -f 1)" "$(told zlib SHA512)"

    # The words that a licence is known by.
    while read -r name version; do
        check "$preset: licence of $name" yes "$(grep -qF -- "$version" "build/$preset/licences/$name.txt" && echo yes)"
    done <<'END'
AES Brian Gladman, Worcester, UK
FreeType The FreeType Project LICENSE
GCC-runtime GCC RUNTIME LIBRARY EXCEPTION
MinGW-w64-runtime the mingw-w64 project
PDFWriter TERMS AND CONDITIONS FOR USE, REPRODUCTION, AND DISTRIBUTION
SQLite The author disclaims copyright
winpthreads winpthreads
zlib Jean-loup Gailly and Mark Adler
END

    check "$preset: day of the type library" "Mon Jan 1 00:00:00 2001" \
        "$(strings -a "$bin/zv_Task.ocx" | sed -nE 's/^Created by WIDL version .* at (.*)/\1/p' | tr -s ' ')"

    # What Windows shows.
    version=$(sed -nE 's/^project\(zvTask VERSION ([0-9.]+) .*/\1/p' CMakeLists.txt)
    local numbers
    numbers="$(cut -d . -f 2 <<<"$version") $(cut -d . -f 1 <<<"$version") 0 $(cut -d . -f 3 <<<"$version")"
    check "$preset: version of the product in the bill" "$version" "$(told zvTask versionInfo)"
    for file in $programs; do
        check "$preset: versions of $file in numbers" "$numbers $numbers" "$(version_numbers "$bin/$file")"
        for field in "FileVersion=$version" "ProductVersion=$version" ProductName=zvTask CompanyName=zvTask \
            "LegalCopyright=The authors of zvTask" "OriginalFilename=$file" "InternalName=${file%.*}"; do
            check "$preset: ${field%%=*} of $file" "${field#*=}" "$(version_info "$bin/$file" "${field%%=*}")"
        done
        check "$preset: description of $file" yes "$([ -n "$(version_info "$bin/$file" FileDescription)" ] && echo yes)"
    done

    # Assemblies say the version, the width and files that ship.
    check "$preset: assemblies" "zvHost.manifest zvTask.manifest" "$assemblies"
    local architecture=x86
    [[ $preset != *x64* ]] || architecture=amd64
    for file in $assemblies; do
        check "$preset: identity of $file" \
            "type=\"win32\" name=\"${file%.manifest}\" version=\"$version.0\" processorArchitecture=\"$architecture\"" \
            "$(sed -nE 's|.*<assemblyIdentity (.*)/>|\1|p' "$bin/$file")"
        name=$(sed -nE 's/.*<file name="([^"]+)".*/\1/p' "$bin/$file")
        check "$preset: the file of $file ships" "$name" "$(grep -xF -- "$name" <<<"${programs// /$'\n'}")"
    done
}

for preset in "$@"; do
    case $preset in
        *x64*) look_at "$preset" x86_64-w64-mingw32-g++-posix ;;
        *) look_at "$preset" i686-w64-mingw32-g++-posix ;;
    esac
done

echo "$passed passed, $failed failed"
[ "$failed" -eq 0 ]
