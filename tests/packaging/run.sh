#!/usr/bin/env bash
# Installs, repairs, upgrades and removes with the set-up, and compares the registry and the files
# before and after. In 64 bits the set-up's 64-bit program is played, in 32 bits the one that
# customers get.
#
#   run.sh 64|32
#
# Needs what packaging/make makes of. What was added and what was left stands in the output.
# Closes with "N passed, N failed".
set -uo pipefail
root=$(cd "$(dirname "$0")/../.." && pwd)
cd "$root" || exit 1
width=${1:?}
# A machine of its own, on which nothing of ours was ever registered.
export WINEPREFIX=$root/build/wine/packaging$width
unset DISPLAY ZV_BIN ZV_TEST_BIN
export ZV_WIDTH=$width
source tools/setup/wine.sh
source tests/checks.sh
work=$(mktemp -d)
finish() {
    wine_stop
    rm -rf "$work"
    # What a failure has left would be found by the next run.
    [ "$failed" -eq 0 ] || rm -rf "$WINEPREFIX"
    echo "$passed passed, $failed failed"
    [ "$failed" -eq 0 ]
    exit
}
trap 'exit 1' INT TERM
trap finish EXIT

wine_prepare && wine_start || { failed=1; exit; }
drive=$WINEPREFIX/drive_c
programs="$drive/Program Files/zvTask"
menu="$drive/ProgramData/Microsoft/Windows/Start Menu/Programs/zvTask"
startup="$drive/ProgramData/Microsoft/Windows/Start Menu/Programs/StartUp"
key='Software\Microsoft\Windows\CurrentVersion\Uninstall\zvTask'
control='Software\Classes\CLSID\{29DE1175-A4EF-4D13-9534-1C19C40DDBC5}\InprocServer32'
suffix=$([ "$width" = 64 ] && echo -x64)
own=$([ "$width" = 64 ] && echo x64 || echo x86)

# made VERSION OPTION...
made() {
    local version=$1
    shift
    packaging/make --as-built --version "$version" --out "$work/$version" "$@" >"$work/make.log" 2>&1 ||
        { cat "$work/make.log"; failed=1; exit; }
}
made 1.0.0 --only "$own"
for version in 0.9.0 1.1.0; do made "$version" --only "$own" --uncompressed; done
# One whose control cannot be registered.
cat >"$work/breaks" <<'BREAKS'
#!/usr/bin/env bash
case $1 in *.ocx) echo broken >"$1" ;; esac
BREAKS
chmod +x "$work/breaks"
made 1.2.0 --only "$own" --uncompressed --sign "$work/breaks"
setup() { # VERSION OPTION...
    local version=$1
    shift
    wine_run "$work/$version/zvTask-$version-setup$suffix.exe" "$@" >/dev/null 2>&1
}
uninstalls() { # a copy of an uninstaller works on this machine
    local process
    for process in $(pgrep -f '~nsu'); do
        grep -qzxF "WINEPREFIX=$WINEPREFIX" "/proc/$process/environ" 2>/dev/null && return
    done
    return 1
}
is_listed() {
    wine_run reg query "HKLM\\$key" >/dev/null 2>&1 || wine_run reg query "HKCU\\$key" >/dev/null 2>&1
}
# The uninstaller goes on as a copy of itself after it has returned: it is over when its entry is gone
# and that copy has ended.
removed() { # FOLDER OPTION...
    local folder=$1 end=$((SECONDS + 300))
    shift
    wine_run "$folder/uninstall.exe" "$@" >/dev/null 2>&1 || echo "the uninstaller of $folder: $?"
    while uninstalls || is_listed; do
        [ $SECONDS -lt $end ] || { echo "still there after 300 s: $folder"; break; }
        sleep 0.2
    done
    # The next start of the machine removes that copy.
    timeout 120 "$ZV_WINE" wineboot -r >/dev/null 2>&1
}
value() { # ROOT KEY NAME
    local name=(/v "$3") said found
    [ -n "$3" ] || name=(/ve)
    # Wine's program answers nothing now and then for a value that is there: it is asked once more,
    # and the first answer is shown.
    for _ in 1 2; do
        said=$(wine_output reg query "$1\\$2" "${name[@]}")
        found=$(LC_ALL=C sed -nE 's/^ +.* REG_(SZ|DWORD) +(.*)$/\2/p' <<<"$said")
        [ -z "$found" ] || break
        echo "no value $3: $said" >&2
    done
    echo "$found"
}

# The machine's and the user's registry and every file, as lines that can be compared.
state() { # NAME
    local hive
    for hive in HKLM HKCU; do
        wine_run reg export $hive "$(winepath_of "$work")\\hive.reg" /y >/dev/null 2>&1
        iconv -f UTF-16 -t UTF-8 "$work/hive.reg" | tr -d '\r' | awk '
            /^\[/ { key = $0; print key; next }
            /^$/ { next }
            { print key " " $0 }'
    done | grep -viE '^\[HKEY_LOCAL_MACHINE\\(System\\CurrentControlSet\\Control|Hardware)' |
        grep -viE '^\[HKEY_CURRENT_USER\\(Software\\Wine|Volatile Environment)|\\Explorer\\SessionInfo' |
        # An empty key: this system makes it when a user first gets a class.
        grep -vxF '[HKEY_CURRENT_USER\Software\Classes]' | sort >"$work/$1.registry"
    (cd "$drive" && find . -path ./windows/temp -prune -o -type f -printf '%p %s\n' -o -type d -printf '%p\n') |
        grep -v '/Temp/' | sort >"$work/$1.files"
}
changes() { # BEFORE AFTER
    local kind
    for kind in registry files; do
        diff "$work/$1.$kind" "$work/$2.$kind" | grep '^[<>]'
    done
}
unchanged() { # WHAT BEFORE AFTER
    check "$1" "" "$(changes "$2" "$3")"
}
# What a stranger's script does with the control. It has come to its end only when it says so.
script() {
    wine_output cscript //nologo "$(winepath_of "$1/examples/alert.vbs")" "$data" 张三 8 | tail -n 1
}

wine_run "$ZV_BIN/zvdb.exe" sample "$(winepath_of "$work")\\taskAlert.db" --items 20 >/dev/null 2>&1
data=$(winepath_of "$work/taskAlert.db")
source tests/packaging/cases.sh
