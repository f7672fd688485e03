#!/usr/bin/env bash
# A user at two workstations, without a host: an alerter of each width on one embedded file. What he
# puts off or does at one holds at the other, which says so instead of doing it twice.
#
# Needs both widths built and prepared (see tools/setup/wine.sh) and a display. Closes with
# "N passed, N failed".
set -uo pipefail
cd "$(dirname "$0")/../.."
source tests/e2e/playing.sh
source tests/e2e/workstations.sh
data="$work/两台 工作站/taskAlert.db"
width_of=([first]=64 [second]=32)
gone_meanwhile="*1 项已被其他用户更改或删除*"
declare -A alerters=()

alert() { ZV_WINE_TIMEOUT=300 wine_run "$ZV_BIN/zvAlert.exe" "$@" >/dev/null 2>&1; }
lists() { [ "$(at "$1" rows frmRemind.grdDue | cut -f 1 | tr '\n' ' ')" = "$2" ]; } # WHO TITLES
shows_nothing() { ! at "$1" list | grep -q 'frmRemind|'; }
clicks() { at "$1" click "frmRemind.$2"; }

make_database create --side-tables
day=$(date '+%F 00:00:00')
query "insert into tTaskList(fType,taskTitle,taskTime,tDuring1,tDuring2,tDone,tDoneMan)
    values(0,'a写报表','$day','$day','$day',0,'张三'),(0,'b打电话','$day','$day','$day',0,'张三');"
for who in first second; do
    expect "the host kit of $who registers" with_width "$who" register zv_Host.dll
    expect "the control of $who registers" with_width "$who" register zv_Task.ocx
    with_width "$who" registry delete "$settings" /f >/dev/null
    expect "a business program logs in at $who" with_width "$who" log_in 张三 geheim
    with_width "$who" alert &
    alerters[$who]=$!
done
for who in first second; do expect "$who lists what is due" lists "$who" "a写报表 b打电话 "; done

clicks first cmdLater
expect "what is put off leaves the first" lists first "b打电话 "
expect "it is kept for both" rows_are "select count(*) from zvReminder where fState=1 and fUser='张三'" 1
clicks second cmdLater
answer second "the second says that it was put off" "$gone_meanwhile" 1
expect "and lists it no more" lists second "b打电话 "
clicks second cmdDone
expect "what is done leaves the second" shows_nothing second
expect "it is done" rows_are "select tDone,tDoneMan from tTaskList where fID=2" "1|张三"
clicks first cmdDone
answer first "the first says that it was done" "$gone_meanwhile" 1
expect "and has nothing left" shows_nothing first

for who in first second; do
    expect "the alerter of $who is asked to end" with_width "$who" alert --exit
    wait "${alerters[$who]}"
    expect "and ends well" test $? -eq 0
    with_width "$who" registry delete "$settings" /f >/dev/null
done
finish
