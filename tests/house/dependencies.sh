#!/usr/bin/env bash
# What the project takes from others: archives that are not the ones meant are refused, each is in the
# table of cmake/dependencies.cmake, and THIRD-PARTY.md says what the table says. Closes with
# "N passed, N failed".
set -uo pipefail
cd "$(dirname "$0")/../.." || exit 1
root=$PWD
source tests/checks.sh
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

says() { # WHAT WORDS: the last fetch said them, however its lines were broken
    grep -qF -- "$2" <(tr -s ' \n' ' ' <"$work/said")
    check "$1" 0 $?
}
sum() { sha512sum "$1" | cut -d ' ' -f 1; }

# A registry and a mirror of our own stand in for those outside: each hands out what lies in its folder.
mkdir -p "$work"/{tools,npm,mirror,package/taken,package/left}
echo taken >"$work/package/taken/file.c"
echo left >"$work/package/left/file.c"
tar -C "$work" -czf "$work/right.tgz" package
echo other >"$work/package/taken/file.c"
tar -C "$work" -czf "$work/wrong.tgz" package
cat >"$work/tools/npm" <<'END'
#!/bin/sh
echo asked >>"$HERE/asked"
cp "$HERE"/npm/* . 2>/dev/null || { echo "no such package" >&2; exit 1; }
END
cat >"$work/tools/apt-get" <<'END'
#!/bin/sh
case " $* " in
    *" --print-uris "*) echo "'mirror:/debian/dists/$(. /etc/os-release && echo "$VERSION_CODENAME")/InRelease' x 0" ;;
    *" update "*) [ -e "$HERE/mirror/suite" ] || { echo "there is no such suite" >&2; exit 100; } ;;
    *" source "*) cp "$HERE"/mirror/*.tar.gz . ;;
esac
END
chmod +x "$work"/tools/*

cat >"$work/fetch.cmake" <<'END'
include(${ROOT}/cmake/fetching.cmake)
set(ZV_COMPONENTS)
zv_package(thing FROM NPM VERSION 1.0 SHA512 ${SUM} TAKES ${TAKES})
zv_package(source FROM DEBIAN SUITE newer VERSION 2.0 ARCHIVE source_2.0.tar.gz SHA512 ${SUM} TAKES ${TAKES})
if(HEADER)
    zv_component(Inner PACKAGE thing VERSION 3.1 HEADER package/taken/version.h DEFINES INNER_VERSION)
endif()
zv_fetch(${PACKAGE} folder)
file(READ ${folder}/package/taken/file.c text)
message("got ${text}")
END
fetch() { # PACKAGE SUM [OPTION...]: the exit status
    local package=$1 sum=$2
    shift 2
    HERE=$work PATH=$work/tools:$PATH cmake -DROOT="$root" -DZV_PACKAGES_DIR="$work/deps" -DPACKAGE="$package" \
        -DSUM="$sum" -DTAKES="package/taken/*" "$@" -P "$work/fetch.cmake" >"$work/said" 2>&1
    echo $?
}
kept() { find "$work/deps" -type f 2>/dev/null | sort | sed "s|^$work/deps/||" | tr '\n' ' '; }

right=$(sum "$work/right.tgz")
wrong=$(sum "$work/wrong.tgz")

check "a package that is not there" 1 "$(fetch thing "$right")"
says "is told" "thing 1.0 is missing: it could not be fetched. no such package"
check "and nothing is left" "" "$(kept)"

cp "$work/wrong.tgz" "$work/npm/thing-1.0.tgz"
check "a package with another sum" 1 "$(fetch thing "$right")"
says "the sum that it has is told" "its SHA-512: $wrong"
says "the sum that is meant is told" "the one meant: $right"
check "and nothing of it is kept" "" "$(kept)"

cp "$work/right.tgz" "$work/npm/thing-1.0.tgz"
check "the package that is meant" 0 "$(fetch thing "$right")"
says "is unpacked" "got taken"
check "only what is taken of it is unpacked" \
    "thing-1.0/source/package/taken/file.c thing-1.0/thing-1.0.tgz thing-1.0/unpacked.txt " "$(kept)"

rm "$work/npm/thing-1.0.tgz"
check "one that was fetched before is not asked for" 0 "$(fetch thing "$right")"
check "when more is taken of it" 0 "$(fetch thing "$right" "-DTAKES=package/*")"
check "it is unpacked anew" \
    "thing-1.0/source/package/left/file.c thing-1.0/source/package/taken/file.c thing-1.0/thing-1.0.tgz thing-1.0/unpacked.txt " \
    "$(kept)"
cp "$work/wrong.tgz" "$work/deps/thing-1.0/thing-1.0.tgz"
check "one that was changed since" 1 "$(fetch thing "$right")"
says "is told" "its SHA-512: $wrong"
check "and nothing of it is kept, also of what was unpacked" "" "$(kept)"

echo '#define INNER_VERSION "3.2"' >"$work/package/taken/version.h"
tar -C "$work" -czf "$work/npm/thing-1.0.tgz" package
other=$(sum "$work/npm/thing-1.0.tgz")
check "a package with another version of what it carries" 1 "$(fetch thing "$other" -DHEADER=ON)"
says "is told" "thing 1.0 holds Inner 3.2, not 3.1"

rm -rf "$work/deps"
check "a suite that is not there" 1 "$(fetch source "$right")"
says "is told" "no mirror of the system's sources has the source of source in newer"
touch "$work/mirror/suite"
cp "$work/right.tgz" "$work/mirror/source_2.1.tar.gz"
check "a suite with another version" 1 "$(fetch source "$right")"
says "is told" "newer has another version of source: source_2.1.tar.gz, not source_2.0.tar.gz"
check "and nothing takes its place" "" "$(kept)"
cp "$work/wrong.tgz" "$work/mirror/source_2.0.tar.gz"
check "a source with another sum" 1 "$(fetch source "$right")"
says "is told too" "its SHA-512: $wrong"
cp "$work/right.tgz" "$work/mirror/source_2.0.tar.gz"
check "the source that is meant" 0 "$(fetch source "$right")"
says "is unpacked too" "got taken"

# Ways to fetch that go past the sums.
ours() { git ls-files -co --exclude-standard; }
check "only what checks sums fetches" "" \
    "$(ours | grep -vE '^(cmake/fetching\.cmake|tools/setup/debian_source|tests/house/dependencies\.sh|.*\.md)$' |
        xargs grep -nE '\b(npm (pack|install|ci)|curl|wget|git clone|apt-get source|FetchContent|ExternalProject)\b|file\(DOWNLOAD' |
        grep -vE ':[0-9]+: *(#|//)' | tr '\n' ' ')"
check "no file names a registry or a mirror" "" \
    "$(ours | xargs grep -nIE "[a-z0-9-]+\.(debian|ubuntu)\.org|\bregistry\.[a-z]+\.[a-z]|\bnpm(js|mirror)\.[a-z]+" |
        grep -v '^tests/house/dependencies\.sh:' | tr '\n' ' ')"
check "every package has a whole sum" "" \
    "$(awk '/^zv_package/ { name = $1 } /SHA512 [0-9a-f]/ && $2 !~ /^[0-9a-f]+$/ || /SHA512 [0-9a-f]/ && length($2) != 128 { print name }' \
        cmake/dependencies.cmake | tr '\n' ' ')"
check "every package in the table has a sum" \
    "$(grep -c '^zv_package(' cmake/dependencies.cmake)" "$(grep -cE '^ +SHA512 [0-9a-f]{128}$' cmake/dependencies.cmake)"

cmake -DOUT="$work/third.md" -P cmake/third_party.cmake
check "THIRD-PARTY.md says what the table says (cmake -P cmake/third_party.cmake writes it)" "" \
    "$(diff THIRD-PARTY.md "$work/third.md" | head -n 10)"

echo "$passed passed, $failed failed"
[ "$failed" -eq 0 ]
