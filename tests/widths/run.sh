#!/usr/bin/env bash
# The 64-bit and the 32-bit control, each in a host of its own, at work on one embedded file: what
# one user does the other sees at the next refill, neither loses the other's work unasked, and
# programs of both widths find the file sound. Then workers of both widths change one file as fast as
# they can, and are killed on the way.
#
# Needs both widths built and prepared (see tools/setup/wine.sh), ZV_NATIVE_BIN (folder of the native
# programs) and a display. Closes with "N passed, N failed".
set -uo pipefail
cd "$(dirname "$0")/../.."
: "${ZV_NATIVE_BIN:?folder of the native programs}"
source tests/e2e/playing.sh
source tests/e2e/workstations.sh
data="$work/两种 位数/taskAlert.db"
address="Z:$data"
width_of=([first]=64 [second]=32)
check_file() { wine_run "$ZV_BIN/zvdb.exe" check "$address"; }

make_database create
for who in first second; do
    expect "the host kit of $who registers" with_width "$who" register zv_Host.dll
    expect "the control of $who registers" with_width "$who" register zv_Task.ocx
    with_width "$who" registry delete "$settings" /f >/dev/null
done
day=$(date '+%F 00:00:00')
query "insert into tTaskList(fType,TaskID,taskTitle,fContent,taskTime,tDuring1,tDuring2,tDone)
    values(0,0,'报价','原文','$day','$day','$day',0),(0,0,'收款','','$day','$day','$day',0);"

start first 张三
start second 李四
expect "the first shows the items of the file" holds first 报价
expect "so does the second" holds second 报价

# What one does, the other sees at the next refill, in both directions.
for pair in "first second 报价 报价单" "second first 报价单 新报价"; do
    read -r one other before after <<<"$pair"
    expect "$one shows the item" selects "$one" "$before"
    expect "$one may change it" may_save "$one"
    main "$one" settext txtTitle2 "$after"
    press "$one" "the change of $one is told" cmdSave "[[]$after[]]: 修改完毕 ！" 1
    expect "it is in the file" rows_are "select taskTitle from tTaskList where fID=1" "$after"
    expect "$other sees it at the next refill" finds "$other" "$after"
done

# Both change the same item.
change first 新报价 甲写的
change second 新报价 乙写的
press second "the second's change is told" cmdSave "[[]新报价[]]: 修改完毕 ！" 1
press first "the first is shown both texts" cmdSave "*乙写的*甲写的*" 2
expect "the second's text stays" rows_are "select fOther0 from tTaskList where fID=1" 乙写的
press first "the first is asked again" cmdSave "*乙写的*甲写的*" 6
answer first "and told of the change" "[[]新报价[]]: 修改完毕 ！" 1
expect "the first's text is there" rows_are "select fOther0 from tTaskList where fID=1" 甲写的

# One deletes what the other changes.
expect "the second still finds it" finds second 收款
change second 收款 乙写的
expect "so does the first" finds first 收款
expect "the first shows it" selects first 收款
press first "deleting is asked for" "cmdAction(3)" "[[]收款[]]: 是否删除 ?" 1
expect "the item is gone" rows_are "select count(*) from tTaskList" 1
press second "the second is told" cmdSave "原记录未有存在，操作取消！" 1
expect "nothing came back" rows_are "select count(*) from tTaskList" 1
main second click "cmdAction(0)"

leave_both
for who in first second; do
    expect "the file is sound for $who" with_width "$who" check_file
    with_width "$who" registry delete "$settings" /f >/dev/null
done
expect "and closed" test ! -s "$data-wal"

# counted COMMAND...: adds the count that it closes with.
counted() {
    local status p f
    if "$@" >"$work/counted" 2>&1; then status=0; else status=1; fi
    cat "$work/counted"
    read -r p _ f _ < <(grep -E '^[0-9]+ passed, [0-9]+ failed$' "$work/counted" || echo "0 passed, $status failed")
    passed=$((passed + p))
    failed=$((failed + f))
}
# A tool in which both are installed loads the type libraries of both.
control_of() { wine_width "$1" && winepath_of "$ZV_BIN/zv_Task.ocx"; }
libraries() { wine_output "$ZV_TEST_BIN/zvLibraries.exe" "$@"; }
control64=$(control_of 64)
control32=$(control_of 32)
counted with_width first libraries "$control64" "$control32"
counted with_width second libraries "$control64" "$control32"
counted tests/torture/run.sh 20 embedded 64 32
finish
