#!/usr/bin/env bash
# Looks at the built control files without running them: the 32-bit file cannot run here, so its
# exports and imports are all that shows whether a Windows host could load it.
#
#   binaries.sh [PRESET...]    default: windows-x64 windows-x86
#
# Closes with "N passed, N failed".
set -uo pipefail
root=$(cd "$(dirname "$0")/../.." && pwd)
[ $# -gt 0 ] || set -- windows-x64 windows-x86
# The words of the tools' output are looked at, so they must not be translated.
export LC_ALL=C
passed=0
failed=0

check() { # WHAT EXPECTED ACTUAL
    if [ "$2" = "$3" ]; then
        passed=$((passed + 1))
    else
        failed=$((failed + 1))
        echo "FAIL $1: expected '$2', got '$3'"
    fi
}

exports="DllCanUnloadNow DllGetClassObject DllInstall DllRegisterServer DllUnregisterServer"
# Libraries that every Windows has.
system="^(advapi32|comctl32|comdlg32|gdi32|imm32|kernel32|msimg32|msvcrt|ole32|oleacc|oleaut32|shell32|shlwapi|user32|uxtheme|version|winspool)\.(dll|drv)$"

for preset in "$@"; do
    file=$root/build/$preset/bin/zv_Task.ocx
    if [ ! -f "$file" ]; then
        check "$preset: zv_Task.ocx" present missing
        continue
    fi
    case $preset in
        *x64) objdump=x86_64-w64-mingw32-objdump format=pei-x86-64 ;;
        *) objdump=i686-w64-mingw32-objdump format=pei-i386 ;;
    esac
    headers=$($objdump -p "$file")
    check "$preset: format" "$format" "$(sed -nE 's/.*file format (.*)/\1/p' <<<"$headers")"
    check "$preset: exports" "$exports" "$(sed -n '/\[Ordinal\/Name Pointer\] Table/,/^$/p' <<<"$headers" |
        sed -nE 's/^\s*\[ *[0-9]+\] (\+base\[ *[0-9]+\] +[0-9a-f]+ )?(\S+)$/\2/p' | sort | tr '\n' ' ' | sed 's/ $//')"
    foreign=$(sed -nE 's/^\s*DLL Name: (.*)/\1/p' <<<"$headers" | tr 'A-Z' 'a-z' | grep -vE "$system" |
        tr '\n' ' ')
    check "$preset: imports that are no system libraries" "" "$foreign"
    size=$(stat -c %s "$file")
    check "$preset: below 4 MB ($size bytes)" yes "$([ "$size" -lt 4194304 ] && echo yes || echo no)"
done

echo "$passed passed, $failed failed"
[ "$failed" -eq 0 ]
