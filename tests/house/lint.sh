#!/usr/bin/env bash
# Checks src, host and tools with clang-tidy, as .clang-tidy says: the portable libraries natively,
# those that Windows has in another form with the headers of that system. What has not changed since
# it passed is not looked at again. Closes with the line "N passed, N failed", where each library
# and each fault that is planted counts.
#
#   tests/house/lint.sh [--deep] [TEXT]
#       --deep    with the analyzer (clang-analyzer-*), which takes many times as long
#       TEXT      only libraries whose path contains it
set -uo pipefail
cd "$(dirname "$0")/../.."
root=$PWD
deep=()
if [ "${1:-}" = --deep ]; then
    deep=(--deep)
    shift
fi
only=${1:-}
# What passed the one has not passed the other.
builds=$root/build/lint${deep:+-deep}
mkdir -p "$builds"
passed=0
failed=0

# result STATUS NAME FILE: counts; shows FILE on a failure.
result() {
    if [ "$1" -eq 0 ]; then
        passed=$((passed + 1))
    else
        failed=$((failed + 1))
        printf 'FAIL %s\n' "$2"
        [ $# -lt 3 ] || cat "$3"
    fi
}

# Another version has other checks of the same names.
clang-tidy --version 2>&1 | grep -q 'version 14\.'
result $? "clang-tidy is version 14"

# Faults in a source and in a header that the batch of a library includes are found, one of each
# family of checks and one of the compiler; without them the same files pass.
planted=$(mktemp -d)
trap 'rm -rf "$planted"' EXIT
mkdir "$planted/src"
check_planted() {
    tests/house/lint_unit "$@" c++ -std=c++20 -Wall -Wextra -I"$planted/src" -o "$planted/unit.o" \
        -c "$planted/unit.cxx" >"$planted/found" 2>&1
}
plant() {
    echo '#include "'"$planted"'/src/source.cpp"' >"$planted/unit.cxx"
    {
        echo '#pragma once'
        echo "$1"
    } >"$planted/src/header.h"
    {
        echo '#include "header.h"'
        echo "$2"
    } >"$planted/src/source.cpp"
}
plant 'inline int Twice(int value) { return value * 2; }' 'int Four() { return Twice(2); }'
check_planted
result $? "files without a fault pass" "$planted/found"
# expect CHECK FILE HEADER SOURCE
expect() {
    local also=("${deep[@]}")
    [[ $1 == clang-analyzer-* ]] && also=(--deep)
    plant "$3" "$4"
    ! check_planted "${also[@]}" && grep -q "/src/$2:.*\[$1," "$planted/found"
    result $? "$1 finds a planted fault in $2" "$planted/found"
}
expect bugprone-suspicious-semicolon source.cpp '' 'int F(int a) { if (a > 1); return a; }'
expect modernize-use-bool-literals header.h 'inline bool Yes() { return 1; }' ''
expect readability-else-after-return source.cpp '' \
    'int F(int a) { if (a > 1) { return 1; } else { return a; } }'
expect performance-move-const-arg source.cpp \
    'namespace std { template <class T> T&& move(T& t) { return static_cast<T&&>(t); } }' \
    'int F(int a) { return std::move(a); }'
expect misc-unused-parameters source.cpp '' 'static int F(int a, int b) { return a; } int G() { return F(1, 2); }'
expect clang-analyzer-core.NullDereference source.cpp '' \
    'int F(int a) { int* p = nullptr; if (a > 1) { p = &a; } return *p; }'
expect clang-diagnostic-unused-variable source.cpp '' 'int F() { int a; return 1; }'

# units PRESET: its libraries, as the objects that stand for their checks.
units() {
    ninja -C "$builds/$1" -t targets all | sed -nE 's!^((src|host|tools)/.*\.(o|obj)): .*!\1!p' |
        grep -F "$only"
}
# The files of the library of that object, named from the root of the build.
files_of() { sed -n "s!^#include \"$root/!!p" "$builds/$1/${2%.*}" | sed "s!^${builds#"$root"/}/$1/!!"; }

# look_at PRESET UNIT...: each counts.
look_at() {
    local preset=$1 unit
    shift
    ninja -C "$builds/$preset" -k 0 -j "${ZV_LINT_JOBS:-$(nproc)}" "$@" >"$builds/$preset/findings.log" 2>&1
    for unit in "$@"; do
        ninja -C "$builds/$preset" -n "$unit" | grep -q 'no work to do'
        result $? "$preset: ${unit%/CMakeFiles/*}"
    done
    grep -vE '^\[[0-9]+/[0-9]+\] |^FAILED: |^/.*lint_unit |^ninja: |warnings? generated|^Suppressed' \
        "$builds/$preset/findings.log"
}
for preset in lint lint-windows; do
    cmake --preset "$preset" -B "$builds/$preset" \
        -DCMAKE_CXX_COMPILER_LAUNCHER="$root/tests/house/lint_unit${deep:+;--deep}" \
        >"$builds/$preset.log" 2>&1
    result $? "configure $preset" "$builds/$preset.log"
done
mapfile -t native < <(units lint)
mapfile -t windows < <(units lint-windows)
# Windows has most libraries in the same form.
other=()
for unit in ${windows[@]+"${windows[@]}"}; do
    same=${unit%.obj}.o
    [ -e "$builds/lint/${same%.o}" ] && cmp -s <(files_of lint "$same") <(files_of lint-windows "$unit") ||
        other+=("$unit")
done
[ ${#native[@]} -eq 0 ] || look_at lint "${native[@]}"
[ ${#other[@]} -eq 0 ] || look_at lint-windows "${other[@]}"

echo "$passed passed, $failed failed"
[ "$failed" -eq 0 ]
