#!/usr/bin/env bash
# Automation scripts against the registered control, each in a process of its own.
#
# Needs ZV_BIN (folder of the programs that ship) and ZV_TEST_BIN (folder of those that test them),
# as tools/setup/wine.sh sets them for a width, and a display.
# Closes with "N passed, N failed". The script host ends with code 0 even when a script breaks off,
# so a script counts as run only when its last line, the end mark, was printed.
set -uo pipefail
here=$(cd "$(dirname "$0")" && pwd)
source "$here/../../../tools/setup/wine.sh"
: "${ZV_TEST_BIN:=$ZV_BIN}" "${DISPLAY:?}"
wine=$ZV_WINE
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
passed=0
failed=0

windows_path() { printf 'Z:%s' "$(realpath -m "$1")" | tr / '\\'; }

prepare() { # NAME COMMAND...
    local name=$1
    shift
    if timeout 120 "$@" >"$work/prepare.log" 2>&1; then
        passed=$((passed + 1))
    else
        failed=$((failed + 1))
        echo "FAIL $name"
        tail -n 5 "$work/prepare.log"
    fi
}

# Runs a script and counts its "ok" and "FAIL" lines, and whether it came to its end.
run_script() { # FILE ARGUMENT...
    local file=$1 output=$work/output status
    shift
    timeout 120 "$wine" cscript //nologo "$(windows_path "$file")" "$@" 2>&1 |
        tr -d '\r' >"$output"
    status=${PIPESTATUS[0]}
    sed "s/^/$(basename "$file"): /" "$output"
    passed=$((passed + $(grep -c '^ok ' "$output")))
    failed=$((failed + $(grep -c '^FAIL ' "$output")))
    if [ "$status" -eq 0 ] && [ "$(tail -n 1 "$output")" != "end of script" ]; then
        status="no end mark"
    fi
    if [ "$status" = 0 ]; then
        passed=$((passed + 1))
    else
        failed=$((failed + 1))
        echo "FAIL $(basename "$file") does not run to its end ($status)"
    fi
}

for file in zv_Host.dll zv_Task.ocx; do
    prepare "register $file" "$wine" regsvr32 /s "$(windows_path "$ZV_BIN/$file")"
done
prepare "sample database" "$wine" "$ZV_BIN/zvdb.exe" sample "$(windows_path "$work/taskAlert.db")" \
    --items 200 --cards 50 --plans 20

run_script "$here/properties.vbs" 甲公司
run_script "$here/refresh.vbs" "$(windows_path "$work/taskAlert.db")"
run_script "$here/reminders.vbs" "$(windows_path "$work/taskAlert.db")"

# The examples that need no user. Each says END when it has come to its end.
example() { # FILE ARGUMENT...
    local file=$1
    shift
    timeout 120 "$wine" cscript //nologo "$(windows_path "$here/../../../host/examples/$file")" "$@" \
        2>&1 | tr -d '\r' >"$work/example"
    if [ "$(tail -n 1 "$work/example")" = END ]; then
        passed=$((passed + 1))
    else
        failed=$((failed + 1))
        echo "FAIL host/examples/$file"
        tail -n 5 "$work/example"
    fi
}
example alert.vbs "$(windows_path "$work/taskAlert.db")" 张三 8
example mark.js "$(windows_path "$work/taskAlert.db")" 张三 5 2

# A script that listens, in a host of its own: the system's has no events here.
timeout 120 "$wine" "$ZV_TEST_BIN/zvScriptHost.exe" "$(windows_path "$here/events.vbs")" \
    "$(windows_path "$work/taskAlert.db")" 2>&1 | tr -d '\r' >"$work/events"
sed 's/^/events.vbs: /' "$work/events"
heard=$(grep -c '^ok ' "$work/events")
passed=$((passed + heard))
failed=$((failed + $(grep -c '^FAIL ' "$work/events")))
if [ "$(tail -n 1 "$work/events")" != "end of script" ] || [ "$heard" -eq 0 ]; then
    failed=$((failed + 1))
    echo "FAIL events.vbs does not run to its end"
fi

# Listeners in a compiled host; errors and boxes with secrets in the settings.
ZV_EVENTS_DATA=$(windows_path "$work/taskAlert.db") \
    timeout 300 "$wine" "$ZV_TEST_BIN/control_e2e.exe" >"$work/compiled" 2>&1
status=$?
grep -E '^\[  FAILED  \]|Failure$' -A 6 "$work/compiled" | sort -u | sed 's/^/compiled: /'
good=$(grep -c '^\[       OK \]' "$work/compiled")
passed=$((passed + good))
if [ "$status" -ne 0 ] || [ "$good" -eq 0 ]; then
    failed=$((failed + 1))
    echo "FAIL compiled host ($status)"
    tail -n 5 "$work/compiled"
fi

echo "$passed passed, $failed failed"
[ "$failed" -eq 0 ]
