#!/usr/bin/env bash
# Looks at the built files that ship without running them: their exports and imports, which decide
# whether every Windows could load them. And none of them may hold what is only for tests, or tell
# where and when it was built. What lies beside them is known.
#
#   binaries.sh [PRESET...]    default: windows-x64-release windows-x86-release
#
# Closes with "N passed, N failed".
set -uo pipefail
root=$(cd "$(dirname "$0")/../.." && pwd)
[ $# -gt 0 ] || set -- windows-x64-release windows-x86-release
# The words of the tools' output are looked at, so they must not be translated.
export LC_ALL=C TZ=UTC0
source "$root/tests/checks.sh"

component="DllCanUnloadNow DllGetClassObject DllInstall DllRegisterServer DllUnregisterServer"
# Libraries that every Windows has.
system="^(advapi32|comctl32|comdlg32|crypt32|gdi32|imm32|kernel32|msimg32|msvcrt|odbc32|ole32|oleacc|oleaut32|shell32|shlwapi|user32|uxtheme|version|winspool|ws2_32|wtsapi32)\.(dll|drv)$"

# Every text of a file, in the widths that programs use.
texts() { strings -a "$1"; strings -a -el "$1"; }
# Classes with a name of their own in what plays the user, runs scenarios or tests, the words that a
# driver refuses with, and windows that only tests have.
played="zv6driver|zv6script|zv7doubles|zv4test|zv8contract|zv5bench|7testing4Test|5forms8headless|8scripted|frmTest|has no native window|is not visible natively"
windows="frmAsk|frmTaskMain|frmTaskSet|frmList"
held() { texts "$2" | grep -oE -- "$1" | sort -u | tr '\n' ' ' | sed 's/ $//'; }

look_at() { # PRESET FILE
    local name="$1: $2" file=$root/build/$1/bin/$2 headers
    if [ ! -f "$file" ]; then
        check "$name" present missing
        return
    fi
    headers=$($objdump -p "$file")
    check "$name: format" "$format" "$(sed -nE 's/.*file format (.*)/\1/p' <<<"$headers")"
    case $2 in
        zv_Task.ocx | zv_Host.dll)
            check "$name: exports" "$component" "$(sed -n '/\[Ordinal\/Name Pointer\] Table/,/^$/p' <<<"$headers" |
                sed -nE 's/^\s*\[ *[0-9]+\] (\+base\[ *[0-9]+\] +[0-9a-f]+ )?(\S+)$/\2/p' | sort | tr '\n' ' ' | sed 's/ $//')"
            ;;
    esac
    check "$name: imports that are no system libraries" "" \
        "$(sed -nE 's/^\s*DLL Name: (.*)/\1/p' <<<"$headers" | tr 'A-Z' 'a-z' | grep -vE "$system" | tr '\n' ' ')"
    check "$name: what is for tests" "" "$(held "$played" "$file")"
    case $2 in
        zv_Host.dll | zvdb.exe) check "$name: windows of the control" "" "$(held "$windows" "$file")" ;;
    esac
    check "$name: paths of the build" "" "$(texts "$file" | grep -F -- "$root" | head -n 3 | tr '\n' ' ')"
    check "$name: symbols" "no symbols" "$($objdump -t "$file" | grep -o 'no symbols')"
    check "$name: where its symbols are" "$2.debug" "$($objdump --dwarf=links "$file" | sed -nE 's/^ *Separate debug info file: (.*)/\1/p')"
    check "$name: the file of its symbols" present "$([ -s "$file.debug" ] && echo present)"
    check "$name: day of the build" "Thu Jan 1 00:00:00 1970" \
        "$(sed -nE 's/^Time\/Date\s+(.*)/\1/p' <<<"$headers" | head -n 1 | tr -s ' ')"
}

for preset in "$@"; do
    ships=(zv_Task.ocx zv_Host.dll zvAlert.exe zvDemo.exe zvdb.exe)
    case $preset in
        *x64*) objdump=x86_64-w64-mingw32-objdump format=pei-x86-64 ;;
        *) objdump=i686-w64-mingw32-objdump format=pei-i386 ;;
    esac
    for file in "${ships[@]}"; do look_at "$preset" "$file"; done
    beside=(zvTask.manifest zvHost.manifest zvTask.spdx.json)
    for file in "${beside[@]}"; do
        check "$preset: $file: paths of the build" "" "$(grep -F -- "$root" "$root/build/$preset/bin/$file" 2>&1 | head -n 1)"
    done
    check "$preset: files" "$(printf '%s\n' "${ships[@]}" "${ships[@]/%/.debug}" "${beside[@]}" | sort | tr '\n' ' ')" \
        "$(cd "$root/build/$preset/bin" && find . -mindepth 1 -printf '%P\n' | sort | tr '\n' ' ')"
    size=$(stat -c %s "$root/build/$preset/bin/zv_Task.ocx")
    check "$preset: control below 4 MB ($size bytes)" yes "$([ "$size" -lt 4194304 ] && echo yes || echo no)"
done

# What is looked for is found where it is.
runner=$root/build/windows-x64/bin/zvscript.exe
if [ -f "$runner" ]; then
    check "the scenario runner plays the user" "zv6driver" "$(held "zv6driver" "$runner")"
    check "the scenario runner has a driver's words" "has no native window" \
        "$(held "has no native window" "$runner")"
    check "the scenario runner has the control's windows" "frmAsk" "$(held frmAsk "$runner")"
fi

echo "$passed passed, $failed failed"
[ "$failed" -eq 0 ]
