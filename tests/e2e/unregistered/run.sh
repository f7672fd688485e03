#!/usr/bin/env bash
# The control without registration: what ships is copied into a folder beside a program whose manifest
# names the assemblies zvTask and zvHost. Then it is registered, and what stands in the registry is
# compared with what the assemblies say.
#
# Needs ZV_BIN (folder of the programs that ship) and ZV_TEST_BIN (folder of those that test them), as
# tools/setup/wine.sh sets them for a width, and a display. Closes with "N passed, N failed".
set -uo pipefail
here=$(cd "$(dirname "$0")" && pwd)
cd "$here" || exit 1
source ../../../tools/setup/wine.sh
: "${ZV_TEST_BIN:=$ZV_BIN}" "${DISPLAY:?}"
examples=$ZV_ROOT/host/examples
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
passed=0
failed=0
case $ZV_WIDTH in
    64) tools=x86_64-w64-mingw32 ;;
    32) tools=i686-w64-mingw32 ;;
esac
export ZV_WINE_TIMEOUT=120

report() { # WHAT GOOD [SAID]
    if [ "$2" = yes ]; then
        passed=$((passed + 1))
    else
        failed=$((failed + 1))
        echo "FAIL $1"
        [ -z "${3:-}" ] || sed 's/^/    /' <<<"$3"
    fi
}
check() { # WHAT COMMAND...: the command succeeds
    local what=$1 said
    shift
    if said=$("$@" 2>&1 | tr -d '\0'); then report "$what" yes; else report "$what" no "$said"; fi
}
check_fails() { # WHAT TEXT COMMAND...: fails, and says the text
    local what=$1 text=$2 said status
    shift 2
    said=$("$@" 2>&1)
    status=$?
    report "$what" "$([ "$status" -ne 0 ] && [ "$status" -ne 124 ] && grep -qF -- "$text" <<<"$said" && echo yes)" \
        "$status: $said"
}
check_same() { # WHAT EXPECTED ACTUAL
    report "$1" "$([ "$2" = "$3" ] && echo yes)" "expected: $2
got:      $3"
}
# counted WHAT COMMAND...: a program that closes with "N passed, N failed".
counted() {
    local what=$1 said p f
    shift
    said=$(wine_output "$@")
    if read -r p f < <(sed -nE '$s/^([0-9]+) passed, ([0-9]+) failed$/\1 \2/p' <<<"$said") && [ "$p" -gt 0 ]; then
        passed=$((passed + p))
        failed=$((failed + f))
        [ "$f" -eq 0 ] || { echo "$what:"; grep '^FAIL' <<<"$said"; }
    else
        report "$what comes to its end" no "$said"
    fi
}

# The registry as text, without what a system writes by itself.
registry() { # FILE
    local key
    for key in 'HKLM\Software\Classes' HKCU; do
        wine_run reg export "$key" "$(winepath_of "$work")\\export.reg" /y >/dev/null || return
        iconv -f UTF-16 -t UTF-8 "$work/export.reg" | tr -d '\r'
    done >"$1"
}
library={F23DC7BD-6762-4632-97F0-90358220B00D}
interfaces=({19507C40-A60B-43E6-93B3-39D83ECD494D} {6B1D8C52-0F3E-4F0A-9A57-2C6E41D7B38F} {588817B4-C687-4E66-9C60-88A7DA76484C})
ours="CLSID.{29DE1175-A4EF-4D13-9534-1C19C40DDBC5}|TypeLib.$library|zv_Task|zv_Host|zvPrint_ADO"
# A system may write down by itself a type library that it has loaded to call across threads.
forget() {
    local view key
    for view in '' 'Wow6432Node\'; do
        for key in "TypeLib\\$library" "${interfaces[@]/#/Interface\\}"; do
            wine_run reg delete "HKLM\\Software\\Classes\\$view$key" /f >/dev/null 2>&1
        done
    done
}

for file in zv_Task.ocx zv_Host.dll; do
    check "unregisters $file" wine_run regsvr32 /s /u "$(winepath_of "$ZV_BIN/$file")"
done
forget
registry "$work/before"
check_same "nothing is registered" "" "$(grep -iE "$ours" "$work/before" | head -n 5)"

# A folder as an embedder makes it: its program and what ships, nothing else.
folder="$work/新 folder"
mkdir "$folder"
compile() { # OUTPUT INPUT...
    "$tools-g++-posix" -std=c++17 -Wall -Wextra -Wpedantic -Werror -O1 -municode -static -o "$@" -lole32 -loleaut32 -luuid
}
check "the example compiles" compile "$work/alert.exe" "$examples/alert.cpp"
cp "$work/alert.exe" "$ZV_TEST_BIN/zvUser.exe" "$ZV_BIN"/{zv_Task.ocx,zv_Host.dll,zvTask.manifest,zvHost.manifest} "$folder"
database="$work/提醒 data.db"
check "sample database" wine_run "$ZV_BIN/zvdb.exe" sample "$(winepath_of "$work")\\提醒 data.db" --items 50
database=$(winepath_of "$database")
alert() { wine_output "$folder/alert.exe" "$database" 张三 "${1:-8}"; }

check_fails "without a manifest the class is unknown" "zv_Task.zvTask" alert
cp "$examples/alert.exe.manifest" "$folder"
check "with the manifest beside it the example runs" alert
# Most linkers put a manifest of their own inside, which then counts instead of the one beside.
mkdir "$work/inside"
cp "$ZV_BIN"/{zv_Task.ocx,zv_Host.dll,zvTask.manifest,zvHost.manifest} "$work/inside"
echo "1 24 \"$examples/alert.exe.manifest\"" >"$work/alert.rc"
check "the manifest is a resource" "$tools-windres" "$work/alert.rc" "$work/alert.o"
check "the example compiles with it" compile "$work/inside/alert.exe" "$examples/alert.cpp" "$work/alert.o"
check "with the manifest inside it the example runs" \
    wine_output "$work/inside/alert.exe" "$database" 张三 8
# A folder of their own keeps the files apart from the program's.
mkdir -p "$work/apart"/{zvTask,zvHost}
cp "$work/alert.exe" "$examples/alert.exe.manifest" "$work/apart"
cp "$ZV_BIN"/{zv_Task.ocx,zvTask.manifest} "$work/apart/zvTask"
cp "$ZV_BIN"/{zv_Host.dll,zvHost.manifest} "$work/apart/zvHost"
check "in folders of the assemblies' names they are found too" \
    wine_output "$work/apart/alert.exe" "$database" 张三 8

cp "$examples/alert.exe.manifest" "$folder/zvUser.exe.manifest"
counted "by the program's manifest" "$folder/zvUser.exe" manifest "$database"
# The same files, named by a manifest that only the creation knows: the way of scripts. Nothing of
# them lies beside the program.
mkdir "$work/elsewhere"
cp "$ZV_TEST_BIN/zvUser.exe" "$work/elsewhere"
counted "by a context" "$work/elsewhere/zvUser.exe" context "$(winepath_of "$folder/alert.exe.manifest")" "$database"

# What is missing is told.
mv "$folder/zv_Host.dll" "$work"
counted "without the opener's file" "$folder/zvUser.exe" missing "$database"
mv "$work/zv_Host.dll" "$folder"
mv "$folder/zv_Task.ocx" "$work"
check_fails "without its file the control is named" "zv_Task.zvTask" alert
mv "$work/zv_Task.ocx" "$folder"
check "with all files it runs again" alert
# Windows does not even start a program then.
mv "$folder/zvTask.manifest" "$work"
check_fails "without its assembly the control is named" "zv_Task.zvTask" alert
mv "$work/zvTask.manifest" "$folder"
sed 's/\(name="zvTask" version="\)[0-9.]*/\199.0.0.0/' "$examples/alert.exe.manifest" >"$folder/alert.exe.manifest"
check_fails "of another version the control is named" "zv_Task.zvTask" alert
cp "$examples/alert.exe.manifest" "$folder"

registry "$work/after"
check_same "nothing is written to the registry" "" "$(diff "$work/before" "$work/after" | head -n 20)"

counted "from another apartment" "$folder/zvUser.exe" apartment
forget

# What registering writes, as lines of the same form as those of the assemblies.
for file in zv_Task.ocx zv_Host.dll; do
    check "registers $file" wine_run regsvr32 /s "$(winepath_of "$ZV_BIN/$file")"
done
registry "$work/registered"
check_same "the assemblies say what is registered" "$(awk -f registered.awk "$work/registered" | sort)" \
    "$(awk -f assemblies.awk "$ZV_BIN"/zv{Task,Host}.manifest | sort)"
check_same "every class is compared" "5" "$(awk -f registered.awk "$work/registered" | grep -c '^class ')"
check "registered, the example runs from anywhere" wine_output "$work/alert.exe" "$database" 张三 8

echo "$passed passed, $failed failed"
[ "$failed" -eq 0 ]
