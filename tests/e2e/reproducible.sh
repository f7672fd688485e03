#!/usr/bin/env bash
# Builds what ships once more, in another folder, at another time, in another time zone, for other eyes
# only and without the compiler's cache, and compares the files with those of the first build.
#
#   reproducible.sh [PRESET...]    default: windows-x64-release windows-x86-release
#
# By itself it builds a part: the demonstration host (our own sources compiled, optimised across files
# and linked, resources, symbols set apart), FreeType, the type library and the resources of the
# control. With ZV_LONG=1 it builds and compares everything that ships. The presets must be built
# before. Closes with "N passed, N failed".
set -uo pipefail
root=$(cd "$(dirname "$0")/../.." && pwd)
cd "$root" || exit 1
[ $# -gt 0 ] || set -- windows-x64-release windows-x86-release
passed=0
failed=0
# Longer than the first, so that no path has the same length.
again=$root/build/built-again/in-another-folder

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

# The commands that make a file, as the first build had them, in the other folder: as targets they
# would bring all that the control is linked with.
repeated() { # PRESET FILE
    sed "s|$root/|$again/|g" <<<"$(ninja -C "build/$1" -t commands -s "$2")" |
        (cd "$again/build/$1" && TZ=Asia/Shanghai bash) >"$again/build.log" 2>&1 ||
        tail -n 30 "$again/build.log"
}

for preset in "$@"; do
    if [ -n "${ZV_LONG:-}" ]; then
        elsewhere "$preset" ships || continue
        parts=(bin/zv_Task.ocx bin/zvTask.spdx.json licences/zlib.txt)
    else
        elsewhere "$preset" zvDemo zv_freetype || continue
        parts=(bin/zvDemo.exe bin/zvDemo.exe.debug libzv_freetype.a src/com/zv_task.tlb
            src/com/CMakeFiles/zv_Task.dir/zv_task.rc.res)
        for file in "${parts[@]:3}"; do repeated "$preset" "$file"; done
    fi
    for file in "${parts[@]}"; do same "$preset" "$file"; done
    while read -r file; do
        [[ " ${parts[*]} " == *" $file "* ]] || same "$preset" "$file"
    done < <(cd "$again/build/$preset" && find bin licences -type f 2>/dev/null | sort)
done
rm -rf "$again"

echo "$passed passed, $failed failed"
[ "$failed" -eq 0 ]
