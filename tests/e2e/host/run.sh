#!/usr/bin/env bash
# The host kit as Windows programs meet it: registration, a script, the demonstration host.
# ZV_BIN: folder of the programs that ship; ZV_TEST_BIN: of those that test them, as
# tools/setup/wine.sh sets them for a width. Ends with the line "N passed, N failed".
set -u
here=$(cd "$(dirname "$0")" && pwd)
# Its locale is that in which Wine takes the texts of command lines, too.
source "$here/../../../tools/setup/wine.sh"
: "${ZV_TEST_BIN:=$ZV_BIN}"
wine=$ZV_WINE
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
passed=0
failed=0

run() { timeout "${ZV_WINE_TIMEOUT:-120}" "$wine" "$@"; }
windows_path() { printf 'Z:%s' "$1" | tr / '\\'; }
check() { # NAME COMMAND...
    local name=$1
    shift
    if "$@" >"$work/check.log" 2>&1; then
        passed=$((passed + 1))
    else
        failed=$((failed + 1))
        echo "FAILED $name"
        tail -n 30 "$work/check.log"
    fi
}
add() { # "N passed, M failed" of a part
    passed=$((passed + $1))
    failed=$((failed + $2))
}

# How many entries of the registry's classes name the server, in both places where they may stand.
traces() {
    rm -f "$work"/classes-*.reg
    run regedit /E "$(windows_path "$work/classes-m.reg")" 'HKEY_LOCAL_MACHINE\Software\Classes' >/dev/null 2>&1
    run regedit /E "$(windows_path "$work/classes-u.reg")" 'HKEY_CURRENT_USER\Software\Classes' >/dev/null 2>&1
    cat "$work"/classes-*.reg | iconv -f UTF-16 -t UTF-8 2>/dev/null | grep -ciE 'zv_Host|zvPrint'
}
no_traces() { [ "$(traces)" = 0 ]; }
some_traces() { [ "$(traces)" -gt 0 ]; }
imports_only_system() {
    local name
    for name in $(x86_64-w64-mingw32-objdump -p "$1" | sed -n 's/.*DLL Name: //p'); do
        case ${name,,} in
            kernel32.dll | user32.dll | gdi32.dll | ole32.dll | oleaut32.dll | advapi32.dll | \
                shell32.dll | msvcrt.dll | comctl32.dll | comdlg32.dll | imm32.dll | msimg32.dll | \
                uxtheme.dll | winspool.drv | odbc32.dll) ;;
            *) echo "$1 imports $name"; return 1 ;;
        esac
    done
}

check "the server imports system libraries only" imports_only_system "$ZV_BIN/zv_Host.dll"
check "the demonstration imports system libraries only" imports_only_system "$ZV_BIN/zvDemo.exe"

server=$(windows_path "$(realpath "$ZV_BIN/zv_Host.dll")")
check "registers" run regsvr32 /s "$server"
check "is in the registry then" some_traces

run "$ZV_TEST_BIN/host_e2e.exe" >"$work/e2e.log" 2>&1 || status=$?
ok=$(grep -c '^\[       OK' "$work/e2e.log")
bad=$(grep -c '^\[  FAILED  \] [A-Za-z]*\.[A-Za-z]* (' "$work/e2e.log")
[ "${status:-0}" -ne 0 ] && [ "$bad" -eq 0 ] && bad=1
add "$ok" "$bad"
[ "$bad" -gt 0 ] && tail -n 60 "$work/e2e.log"

check "makes a database" run "$ZV_BIN/zvdb.exe" create "$(windows_path "$work/a b.db")"
script() { # NAME ARGUMENTS...
    local name=$1 mark ok bad
    shift
    run cscript //nologo "$(windows_path "$here/$name")" "$@" >"$work/script.log" 2>&1
    # An error in a script ends it without a word: only its last line proves that it went through.
    if mark=$(tr -d '\r' <"$work/script.log" | grep -E '^END [0-9]+ passed, [0-9]+ failed$'); then
        read -r _ ok _ bad _ <<<"$mark"
        add "$ok" "$bad"
        [ "$bad" -gt 0 ] && cat "$work/script.log"
    else
        add 0 1
        echo "FAILED $name did not reach its end"
        cat "$work/script.log"
    fi
}
script stranger.vbs "$(windows_path "$work/a b.db")" '提醒'

# The same over a server, in a schema of its own.
if [ -n "${ZV_TEST_POSTGRESQL:-}" ]; then
    schema=zv_host_$$
    sql() { PGOPTIONS="-c client_min_messages=warning $*" psql -X -q -v ON_ERROR_STOP=1; }
    check "makes the tables on the server" sql "-c search_path=$schema,public" < <(
        echo "create schema $schema; create extension if not exists citext schema public;"
        cat "$here/../../../src/store/engines/postgresql/schema.sql"
    )
    script server.vbs "$ZV_TEST_POSTGRESQL;ConnSettings={set search_path to $schema,public}" '提醒'
    check "removes them" sql <<<"drop schema $schema cascade"
else
    echo "MISSING engine PostgreSql (ZV_TEST_POSTGRESQL names no server): server.vbs is not run"
fi

# The demonstration host: it starts, logs what the control does, and ends.
demo='任务提醒 演示主程序'
outside() { ZV_WINE_TIMEOUT=120 wine_output "$ZV_TEST_BIN/zvOutside.exe" "$@"; }
log_has() {
    local i
    for i in $(seq 20); do
        outside text "$demo.txtLog" | grep -F -- "$1" && return 0
        sleep 0.5
    done
    outside text "$demo.txtLog"
    return 1
}
control=$ZV_BIN/zv_Task.ocx
if [ -e "$control" ]; then
    check "the control registers" run regsvr32 /s "$(windows_path "$(realpath "$control")")"
fi
run "$ZV_BIN/zvDemo.exe" --data "$(windows_path "$work/a b.db")" --user '赵六' --language 1 \
    >/dev/null 2>&1 &
demo_pid=$!
check "the demonstration opens" outside wait "$demo" 20
check "it logs the control's creation" log_has '创建 zv_Task.zvTask'
user_is() { [ "$(outside text "$demo.txtUserName" | tr -d '\r\n')" = "$1" ]; }
check "it takes the user from its command line" user_is '赵六'
if [ -e "$control" ]; then
    check "the control is created" log_has '创建 zv_Task.zvTask  成功'
    check "presses a button" outside click "$demo.cmdRefresh8"
    check "refresh comes back without an error" log_has 'refresh(8, 0)  成功'
    check "asks for the property bag" outside click "$demo.cmdSaveBag"
    check "the bag holds the language" log_has 'Language = 1'
fi
check "closes" outside close "$demo"
check "is gone then" outside gone "$demo" 10
wait "$demo_pid"
status=$?
check "ends without a crash" test "$status" -eq 0

check "unregisters" run regsvr32 /s /u "$server"
check "leaves nothing in the registry" no_traces

echo "$passed passed, $failed failed"
[ "$failed" -eq 0 ]
