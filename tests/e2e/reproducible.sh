#!/usr/bin/env bash
# Builds once more and compares the files with those of the first build.
#
#   reproducible.sh [PRESET...]    default: windows-x64-release windows-x86-release
#
# By itself it builds parts. In another folder, in another time zone, for other eyes only and without
# the compiler's cache: FreeType, the type library and the control's resources, and where objects are
# not yet to be optimised across files (32 bits) the library of the project that stands lowest. Where
# they lie: the demonstration host is linked again, its symbols set apart. With ZV_LONG=1 it builds
# and compares everything that ships, from the sources, in that other folder. The presets must be
# built before. Closes with "N passed, N failed".
set -uo pipefail
root=$(cd "$(dirname "$0")/../.." && pwd)
cd "$root" || exit 1
[ $# -gt 0 ] || set -- windows-x64-release windows-x86-release
passed=0
failed=0
# Longer than the first, so that no path has the same length.
again=$root/build/built-again/in-another-folder
control=src/com/CMakeFiles/zv_Task.dir

same() { # PRESET FILE
    local first=$root/build/$1/$2 second=$again/build/$1/$2
    if [ -s "$first" ] && cmp "$first" "$second"; then
        passed=$((passed + 1))
    else
        failed=$((failed + 1))
        echo "FAIL $1: $2 is not the same from two builds"
    fi
}

rm -rf "$again"
mkdir -p "$again/build"
git ls-files -co --exclude-standard -z | tar -c --null -T - | tar -x -C "$again" || exit 1
ln -s "$root/build/deps" "$again/build/deps"
# The commit tells the time in the bill of materials.
export SOURCE_DATE_EPOCH
SOURCE_DATE_EPOCH=$(git log -1 --format=%ct)

elsewhere() { # PRESET TARGET...
    local preset=$1
    shift
    (cd "$again" && umask 077 && unset CMAKE_C_COMPILER_LAUNCHER CMAKE_CXX_COMPILER_LAUNCHER &&
        export CCACHE_DISABLE=1 TZ=Asia/Shanghai LC_ALL=C && cmake --preset "$preset" &&
        cmake --build --preset "$preset" --target "$@") >"$again/build.log" 2>&1 && return
    tail -n 30 "$again/build.log"
    failed=$((failed + 1))
    return 1
}

# The linker and objcopy get another time, other names for what they put aside, and no first result.
link_again() { # PRESET
    local preset=$1 bin=build/$1/bin kept=$again/build/$1/bin file
    mkdir -p "$kept" "$again/aside"
    mv "$bin"/zvDemo.exe "$bin"/zvDemo.exe.debug "$kept/" || { failed=$((failed + 1)); return; }
    TZ=Asia/Shanghai TMPDIR=$again/aside cmake --build --preset "$preset" --target zvDemo >"$again/link.log" 2>&1 ||
        tail -n 30 "$again/link.log"
    for file in bin/zvDemo.exe bin/zvDemo.exe.debug; do same "$preset" "$file"; done
}

for preset in "$@"; do
    if [ -n "${ZV_LONG:-}" ]; then
        elsewhere "$preset" ships || continue
        [ -s "$again/build/$preset/bin/zv_Task.ocx" ] || failed=$((failed + 1))
        while read -r file; do same "$preset" "$file"; done < <(
            cd "$again/build/$preset" && find bin licences -type f | sort)
        continue
    fi
    parts=(libzv_freetype.a src/com/zv_task.tlb "$control/zv_task.rc.res")
    # What is to be optimised across files has sections with names made up each time.
    [[ $preset == *x64* ]] || parts+=(src/base/libzv_base.a)
    elsewhere "$preset" "${parts[@]}" || continue
    for file in "${parts[@]}"; do same "$preset" "$file"; done
    link_again "$preset"
done
rm -rf "$again"

echo "$passed passed, $failed failed"
[ "$failed" -eq 0 ]
