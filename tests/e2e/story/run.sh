#!/usr/bin/env bash
# A day's beginning, played on the real control from outside: the demonstration host embeds it, the
# alert window comes up by itself, the manager opens from the host, and a changed filter changes
# the tree. Needs ZV_BIN and ZV_TEST_BIN, as tests/e2e/playing.sh says; closes with "N passed, N failed".
set -uo pipefail
cd "$(dirname "$0")/../../.."
source tests/e2e/playing.sh
data="$work/样例 数据/taskAlert.db"

items() { tree | grep -c '^  '; }
count_is() { [ "$(items)" -eq "$1" ]; }
count_is_below() { [ "$(items)" -lt "$1" ]; }

make_database sample
set_up_workstation
ZV_WINE_TIMEOUT=240 wine_run "$ZV_BIN/zvDemo.exe" --data "$(winepath_of "$data")" --alert &
demo=$!

expect "the alert window comes up by itself" outside wait frmTaskMain 60
expect "it is the alert" title_is frmTaskMain "任务报警器"
expect "the tree shows a group" tree_holds "任务"
expect "the tree shows items that are due" test "$(items)" -gt 0
alerts=$(items)
outside close frmTaskMain
expect "it closes" outside gone frmTaskMain 20

outside click 演示主程序.cmdRefresh1
expect "the manager opens from the host" outside wait frmTaskMain 30
expect "it is the manager" title_is frmTaskMain "任务管理器"
expect "it shows done items too" test "$(items)" -gt "$alerts"
all=$(items)

outside tab frmTaskMain.SSTab1 1
expect "the filter page comes forward" outside wait "frmTaskMain.chkType(1)" 10
outside click "frmTaskMain.chkType(1)"
expect "unticking a kind takes its items away" count_is_below "$all"
outside click "frmTaskMain.chkType(1)"
expect "ticking it brings them back" count_is "$all"

first=$(tree | grep -m1 '^  ' | cut -f2)
outside node frmTaskMain.tvwTask "$first"
expect "a click on a node shows the item" text_is txtTitle2 "$first"

outside close frmTaskMain
expect "the manager closes" outside gone frmTaskMain 20
outside close 演示主程序
expect "the host closes" outside gone 演示主程序 20
wait "$demo"
expect "the host ends well" test $? -eq 0
demo=
finish
