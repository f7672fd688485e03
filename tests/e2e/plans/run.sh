#!/usr/bin/env bash
# A plan from its entry to its tasks, played on the real control from outside with keys and the
# mouse: the host opens the plan editor, a monthly plan for the 31st is entered with people from the
# staff list and its tasks are generated; the manager shows them; the plan is changed and generated
# again, once keeping the tasks that are done and once not. What is in the file in the end is read
# by another program. Needs ZV_BIN and ZV_TEST_BIN, as tests/e2e/playing.sh says; closes with "N passed, N
# failed".
set -uo pipefail
cd "$(dirname "$0")/../../.."
source tests/e2e/playing.sh
data="$work/计划 数据/taskAlert.db"
title=月末盘点

tree_shows() { [ "$(tree | grep -cF -- "$title")" = "$1" ]; }
# next CONTROL: Enter leads there.
next() {
    outside keys Enter
    expect "Enter leads to $1" has_focus "$1"
}
go_to() {
    outside mouse "frmTaskSet.$1"
    expect "a click reaches $1" has_focus "$1"
}
# pick BUTTON BOX DOWN...: a name of the staff list, by the keys.
pick() {
    local button=$1 box=$2
    shift 2
    outside mouse "frmTaskSet.$button"
    expect "the staff list opens" appears frmList
    expect "its list has the keyboard" has_focus List1
    outside keys "$@" Enter
    expect "it closes with the pick" goes frmList
    expect "the keyboard is at the name" has_focus "$box"
    expect "a name was picked" test -n "$(outside text "frmTaskSet.$box")"
}

make_database sample --items 60 --cards 20 --plans 3
set_up_workstation
ZV_WINE_TIMEOUT=240 wine_run "$ZV_BIN/zvDemo.exe" --data "$(winepath_of "$data")" --user 张三 &
demo=$!
expect "the host is there" appears 演示主程序

# --- a new plan ---
outside mouse 演示主程序.cmdRefresh2
expect "the plan editor opens" appears frmTaskSet
expect "it proposes the next number" text_is frmTaskSet.txtTaskID 4
expect "the user is the setter" text_is frmTaskSet.txtSetMan 张三
expect "the keyboard is at the title" has_focus txtTaskTitle
outside write "$title"
next dateBegin
# The plan begins in a month that has a 31st: the day wished for is taken from the first month.
month_days() { date -d "$(date -d "$1" +%Y-%m-01) +1 month -1 day" +%d; }
begin=$(outside date frmTaskSet.dateBegin)
if [ "$(month_days "$begin")" != 31 ]; then
    outside mouse frmTaskSet.dateBegin 60 10
    outside keys Up
    expect "the begin is moved a month on" test "$(month_days "$(outside date frmTaskSet.dateBegin)")" = 31
    begin=$(outside date frmTaskSet.dateBegin)
fi
go_to txtDay
outside keys Home Delete
outside write 32
outside keys Enter
answer "a 32nd is refused" "数值超出最大范围!" Enter
expect "the keyboard stays" has_focus txtDay
outside write 31
next optEarlyCall
outside keys Down Down
expect "the arrows choose a side" is_checked frmTaskSet.optBothCall
go_to txtUpDown
outside keys Home Delete
outside write 15
pick cmdSetMan txtSetMan Down Down
setter=$(outside text frmTaskSet.txtSetMan)
pick cmdDoneMan txtDoneMan Down Down Down Down
executor=$(outside text frmTaskSet.txtDoneMan)
expect "two people were picked" test "$setter" != "$executor"
outside keys Tab Tab
expect "the description is next" has_focus txtTaskCon
outside write "清点库存"
outside mouse frmTaskSet.chkTaskSet
expect "the tasks are to be generated" is_checked frmTaskSet.chkTaskSet
outside mouse frmTaskSet.cmdOK
answer "windows that overlap are refused" "报警时间区段有重叠 , 请缩小报警提示时间范围!" Enter
expect "the keyboard is at the width" has_focus txtUpDown
outside keys End
outside keys Left Delete
expect "the width is made smaller" text_is frmTaskSet.txtUpDown 1
outside mouse frmTaskSet.cmdOK
answer "the plan is saved" "任务新增完毕!" Enter
expect "the plan is in the file" rows_are \
    "select taskTitle,CircleType,CircleValue,taskday,Type,TypeValue,SetMan,DoneMan,Content from tTaskSet where TaskID=4" \
    "$title|1|1|31|3|1|$setter|$executor|清点库存"
answer "the generation is asked for" "开始生成任务..." Enter
answer "the generation is reported" "[[]生成任务[]]执行完毕!" Enter
expect "the editor closes" goes frmTaskSet

count=$(query "select count(*) from tTaskList where TaskID=4")
expect "a year of tasks" test "$count" -ge 11
expect "each on the last day of its month, with its window" rows_are \
    "select count(*) from tTaskList where TaskID=4 and tDone=0 and taskTitle='$title' and fContent='清点库存'
     and taskTime=date(taskTime,'start of month','+1 month','-1 day')||' 00:00:00'
     and tDuring1=datetime(taskTime,'-1 day') and tDuring2=datetime(taskTime,'+1 day')" "$count"
expect "no month twice and none left out" rows_are \
    "select count(distinct strftime('%Y-%m',taskTime))=$count and min(taskTime)>='$begin'
     from tTaskList where TaskID=4" 1
expect "a day is a 31st" rows_are \
    "select substr(min(taskTime),9,2) from tTaskList where TaskID=4" 31
expect "the user who generates is the executor" rows_are "select DoneMan from tTaskSet where TaskID=4" 张三

# --- in the manager ---
outside mouse 演示主程序.cmdRefresh1
expect "the manager opens" appears frmTaskMain
expect "it is the manager" title_is frmTaskMain 任务管理器
# It begins with the tasks of today and tomorrow.
outside tab frmTaskMain.SSTab1 1
expect "the filter page comes forward" appears frmTaskMain.DTPicker0
outside mouse frmTaskMain.DTPicker0 10 12
outside mouse frmTaskMain.DTPicker1 10 12
outside mouse frmTaskMain.cmdSeek
expect "its tree shows every task of the plan" tree_shows "$count"
first=$(query "select date(min(taskTime)) from tTaskList where TaskID=4")
expect "with date and title" tree_holds "($first)"$'\t'"$title"

outside node frmTaskMain.tvwTask "($first)"$'\t'"$title"
expect "a click shows the task" text_is frmTaskMain.txtTitle2 "$title"
outside keys Alt+t Up Up Enter
answer "completion is asked for" "*$title*" Enter
expect "the task is done by the user" rows_are \
    "select date(taskTime),tDoneMan from tTaskList where TaskID=4 and tDone=1" "$first|张三"

# --- the plan is changed: every second month, done tasks are kept ---
# change KEYS...: opens the plan from the tree of plans.
change() {
    outside node frmTaskMain.tvwTask "$title"
    expect "a click shows the plan" text_is frmTaskMain.txtUser2 "$setter"
    outside keys Alt+e Down Enter
    expect "the plan editor opens from the menu" appears frmTaskSet
    expect "it changes the plan" title_is frmTaskSet 修改
    expect "it holds the plan" text_is frmTaskSet.txtTaskTitle "$title"
}
outside mouse frmTaskMain.chkEvent
expect "the tree shows the plans" tree_shows 1
change
go_to txtCircleValue
outside keys Home Delete
outside write 2
outside mouse frmTaskSet.chkTaskSet
outside mouse frmTaskSet.cmdOK
answer "the change is saved" "任务修改完毕!" Enter
answer "the generation is asked for" "开始生成任务..." Enter
answer "done tasks are asked about" "该任务此前已有完成*" Tab Enter
answer "the generation is reported" "[[]生成任务[]]执行完毕!" Enter
expect "the editor closes" goes frmTaskSet
half=$(((count + 1) / 2))
expect "every second month is left, and what is done" rows_are \
    "select sum(tDone=0),sum(tDone=1) from tTaskList where TaskID=4" "$half|1"
expect "what is done stands beside its new task" rows_are \
    "select count(*) from tTaskList where TaskID=4 and date(taskTime)='$first'" 2

# --- once more: every third month, nothing is kept ---
change
go_to txtCircleValue
outside keys Home Delete
outside write 3
outside mouse frmTaskSet.chkTaskSet
outside mouse frmTaskSet.cmdOK
answer "the change is saved" "任务修改完毕!" Enter
answer "the generation is asked for" "开始生成任务..." Enter
answer "done tasks are asked about" "该任务此前已有完成*" Enter
answer "the generation is reported" "[[]生成任务[]]执行完毕!" Enter
expect "the editor closes" goes frmTaskSet
third=$(((count + 2) / 3))
expect "every third month, and nothing that was done" rows_are \
    "select sum(tDone=0),sum(tDone=1) from tTaskList where TaskID=4" "$third|0"
outside mouse frmTaskMain.chkEvent
expect "the tree shows what is left" tree_shows "$third"

outside close frmTaskMain
expect "the manager closes" goes frmTaskMain
outside close 演示主程序
expect "the host closes" goes 演示主程序
wait "$demo"
expect "the host ends well" test $? -eq 0
demo=
expect "the file is sound" rows_are "pragma integrity_check" ok
expect "the other plans were left alone" rows_are "select count(*) from tTaskSet" 4
finish
