#!/usr/bin/env bash
# The alerter beside the clock, played from outside: it waits until somebody has logged in, reminds
# that user in no host, is one for a user, and ends when it is asked to or the workstation wants none.
# Needs ZV_BIN and ZV_TEST_BIN, as tests/e2e/playing.sh says; closes with "N passed, N failed".
set -uo pipefail
cd "$(dirname "$0")/../../.."
source tests/e2e/playing.sh
data="$work/提醒 数据/taskAlert.db"
alert="$ZV_BIN/zvAlert.exe"
alerters=()

start() { # in the background; wine ends with the program
    ZV_WINE_TIMEOUT=300 wine_run "$alert" >/dev/null 2>&1 &
    alerters+=($!)
}
runs() { kill -0 "${alerters[-1]}" 2>/dev/null; }
has_ended() { ! runs; }
ended_well() { wait "${alerters[-1]}"; }
kept() { registry query "$settings\\zvTask" /v HandedOver; }
keeps_no() { ! kept | grep -qi -- "$1"; }

make_database create
set_up_workstation
query "insert into tTaskList(fType,taskTitle,taskTime,tDuring1,tDuring2,tDone,tDoneMan)
       values(0,'写报表',date('now','localtime')||' 00:00:00',date('now','localtime')||' 00:00:00',date('now','localtime')||' 00:00:00',0,'张三')"

start
sleep 3
expect "it waits for somebody to log in" runs
expect "and shows nothing" test -z "$(outside list | grep frmRemind)"
expect "a second one ends at once" wine_run "$alert"
expect "asked to end, it ends" wine_run "$alert" --exit
expect "it is gone" has_ended
expect "it ended well" ended_well
expect "none to end is no error" wine_run "$alert" --exit

expect "a business program logs in" log_in 张三 geheim
expect "what was handed over is kept" kept
expect "and nobody can read the password there" keeps_no geheim
expect "nor its bytes" keeps_no "$(printf geheim | xxd -p)"

start
expect "it reminds without a host" appears frmRemind
expect "of what is due" test "$(outside rows frmRemind.grdDue | grep -c 写报表)" = 1
outside click frmRemind.cmdDone
expect "done" rows_are "select tDone,tDoneMan from tTaskList" "1|张三"
expect "and nothing is left to remind of" test -z "$(outside list | grep 'frmRemind|')"
registry add "$settings\\zvTask" /v Startup /d 0 /f >/dev/null
expect "asked to end, it ends" wine_run "$alert" --exit
expect "it is gone again" has_ended
start
expect "it ends at once where the workstation wants none" has_ended
expect "and well" ended_well
for one in "${alerters[@]}"; do kill "$one" 2>/dev/null; done
finish
