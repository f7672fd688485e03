#!/usr/bin/env bash
# A day's beginning, played on the real control from outside: the demonstration host embeds it, the
# alert window comes up by itself, the manager opens from the host, and a changed filter changes
# the tree. Needs ZV_BIN (folder of the Windows programs); closes with "N passed, N failed".
set -uo pipefail
cd "$(dirname "$0")/../../.."
source tools/setup/wine.sh
: "${ZV_BIN:?folder of the Windows programs}"
work=$(mktemp -d)
data="$work/样例 数据/taskAlert.db"
passed=0
failed=0
demo=

outside() { ZV_WINE_TIMEOUT=60 wine_run "$ZV_BIN/zvOutside.exe" "$@" | tr -d '\r'; }

# expect NAME COMMAND...: the command succeeds.
expect() {
    local name=$1
    shift
    if "$@"; then
        passed=$((passed + 1))
    else
        failed=$((failed + 1))
        echo "FAIL $name"
        outside list
    fi
}
title_is() { [[ "$(outside text frmTaskMain)" == *"$1"* ]]; }
tree() { outside tree frmTaskMain.tvwTask; }
tree_holds() { tree | grep -qF -- "$1"; }
tree_lacks() { ! tree_holds "$1"; }
items() { tree | grep -c '^  '; }

finish() {
    [ -n "$demo" ] && kill "$demo" 2>/dev/null
    rm -rf "$work"
    echo "$passed passed, $failed failed"
    [ "$failed" -eq 0 ]
    exit
}

mkdir -p "$(dirname "$data")"
expect "sample data" wine_run "$ZV_BIN/zvdb.exe" sample "$(winepath_of "$work/样例 数据")\\taskAlert.db" >"$work/zvdb.log"
expect "the host kit registers" wine_register "$ZV_BIN/zv_Host.dll"
expect "the control registers" wine_register "$ZV_BIN/zv_Task.ocx"

ZV_WINE_TIMEOUT=240 wine_run "$ZV_BIN/zvDemo.exe" --data "$(winepath_of "$data")" --alert &
demo=$!

expect "the alert window comes up by itself" outside wait frmTaskMain 60
expect "it is the alert" title_is "任务报警器"
expect "the tree shows a group" tree_holds "任务"
expect "the tree shows items that are due" test "$(items)" -gt 0
alerts=$(items)
outside close frmTaskMain
expect "it closes" outside gone frmTaskMain 20

outside click 演示主程序.cmdRefresh1
expect "the manager opens from the host" outside wait frmTaskMain 30
expect "it is the manager" title_is "任务管理器"
expect "it shows done items too" test "$(items)" -gt "$alerts"
all=$(items)

outside tab frmTaskMain.SSTab1 1
expect "the filter page comes forward" outside wait "frmTaskMain.chkType(1)" 10
outside click "frmTaskMain.chkType(1)"
sleep 1
expect "unticking a kind takes its items away" test "$(items)" -lt "$all"
outside click "frmTaskMain.chkType(1)"
sleep 1
expect "ticking it brings them back" test "$(items)" -eq "$all"

first=$(tree | grep -m1 '^  ' | cut -f2)
outside node frmTaskMain.tvwTask "$first"
sleep 1
expect "a click on a node shows the item" test "$(outside text frmTaskMain.txtTitle2)" = "$first"

outside close frmTaskMain
expect "the manager closes" outside gone frmTaskMain 20
outside close 演示主程序
expect "the host closes" outside gone 演示主程序 20
wait "$demo"
expect "the host ends well" test $? -eq 0
demo=
finish
