#!/usr/bin/env bash
# A day at work on the real control, played from outside with keys and the mouse: the alert at
# log-in; a task taken in hand, completed and changed; items deleted; a diary entry; a visit to a
# customer who is called, written to and looked up; the birthdays across the turn of the year; a
# plan changed and another one thrown away; home. Then every page, menu and dialog in Traditional
# script. What is left in the file, in the registry and in the property bag is read by other
# programs. The day is the 29th of December 2003.
#
# Needs ZV_BIN and ZV_TEST_BIN, as tests/e2e/playing.sh says. With ZV_PICTURES, a folder, it leaves a picture of
# each page, menu and dialog there. Closes with "N passed, N failed".
set -uo pipefail
cd "$(dirname "$0")/../../.."
source tests/e2e/playing.sh
data="$work/一天 数据/taskAlert.db"
switches="$settings\\zvTask"
dialer=$WINEPREFIX/drive_c/windows/dialer.exe

main() { outside "$1" "frmTaskMain.$2" "${@:3}"; }
shows() { main visible "$1" >/dev/null; }
grid_is() { [ "$(main rows Grid1)" = "$1" ]; }
menu_is_open() { outside menu >/dev/null; }
menu_is_closed() { ! menu_is_open; }
image_is_not() { [ "$(main image tvwTask "$1")" != "$2" ]; }
received() { [ "$(tail -n 1 "$work/received" 2>/dev/null)" = "$1" ]; }
setting_is() { registry query "$switches" /v "$1" | grep -qE "$1 +REG_SZ +$2\$"; }
process_runs() { timeout 60 "$ZV_WINE" tasklist | grep -qi "$1"; }
process_is_gone() { ! process_runs "$1"; }

# fill CONTROL TEXT: replaces what the box holds.
fill() {
    main mouse "$1"
    expect "a click reaches $1" has_focus "$1"
    outside keys Ctrl+Home Ctrl+Shift+End Delete
    outside write "$2"
}
# choose MENU PART KEY...: from the context menu of a node.
choose() {
    main rightnode tvwTask "$2"
    expect "a right click opens $1" menu_is_open
    picture "menu-$1"
    outside keys "${@:3}"
    expect "the menu of $2 takes ${*:3}" menu_is_closed
}
script=simplified
picture() {
    [ -n "${ZV_PICTURES:-}" ] || return 0
    local window=${2:-frmTaskMain}
    sleep 0.4
    import -window root -crop "$(outside place "$window")" +repage +dither -colors 96 \
        "PNG8:$ZV_PICTURES/$1-$script.png"
}
leave() {
    local verb
    for verb in mailto http; do
        registry import "$(winepath_of "$work")\\$verb.reg" >/dev/null
    done
    rm -f "$dialer"
    finish
}

# --- the stage ---
make_database create
set_up_workstation
sqlite3 "$data" <<'SQL'
insert into tRsBasic(fCode,fName) values('01','李四'),('02','张三'),('03','陈静');
insert into rptListDetail(fTable,FieldName,FieldName_0,FieldName_1)
    values('ttasklist','fOther0','地点','地點');
insert into cards(CompCode,CompName,Name,province,cityname,CompAdd,telphone,handphone,E_mail,http,Birthday)
    values('HX01','华兴公司','王五','广东','广州','中山路1号','020-8888','13800000001','wang@hx.example','www.hx.example','1962-06-01 00:00:00'),
          ('HX02','华新商行','赵六','广东','深圳','南海路22号','020-9999','','zhao@xin.example','http://xin.example','1970-01-02 00:00:00'),
          ('DF01','东方贸易','钱七','上海','上海','外滩8号','021-7777','','','','1980-12-30 00:00:00'),
          ('BH01','北海商店','孙八','广西','北海','海边路5号','','','','',null);
insert into tTaskSet(TaskID,taskTitle,Content,tbegin,tEnd,CircleType,CircleValue,taskMonth,taskday,TaskWeek,Type,TypeValue,SetMan,DoneMan)
    values(1,'月报','交财务','2003-01-01 00:00:00','2003-12-31 00:00:00',1,1,1,31,1,1,5,'张三','张三');
insert into tTaskList(TaskID,fType,taskTitle,fContent,taskTime,tDuring1,tDuring2)
    values(1,0,'月报','交财务','2003-12-31 00:00:00','2003-12-26 00:00:00','2003-12-31 00:00:00'),
          (0,0,'收款','','2003-12-29 00:00:00','2003-12-29 00:00:00','2003-12-29 00:00:00'),
          (0,0,'整理样品','','2003-12-29 00:00:00','2003-12-29 00:00:00','2003-12-30 00:00:00');
SQL
cp "$ZV_TEST_BIN/zvReceiver.exe" "$dialer"
receiver=$(winepath_of "$ZV_TEST_BIN/zvReceiver.exe")
# What else opens addresses comes back at the end.
for verb in mailto http; do
    registry export "HKCR\\$verb" "$(winepath_of "$work")\\$verb.reg" /y >/dev/null
    registry add "HKCR\\$verb\\shell\\open\\command" /ve \
        /d "\"$receiver\" \"$(winepath_of "$work")\\received\" \"%1\"" /f >/dev/null
done

mapfile -t clock < <(wine_clock "2003-12-29 08:55:00")
timeout 400 "${clock[@]}" "$ZV_WINE" "$ZV_BIN/zvDemo.exe" --data "$(winepath_of "$data")" --user 张三 \
    --alert &
demo=$!

# --- 08:55, log-in ---
expect "the alert comes up by itself" appears frmTaskMain
expect "it is the alert" title_is frmTaskMain 任务报警器
expect "what is due is shown" tree_holds $'(2003-12-31)\t月报'

# --- a task: in hand, done, changed ---
main mousenode tvwTask 月报
expect "a click shows the task" text_is txtTaskCon 交财务
picture tab-item
before=$(main image tvwTask 月报)
nodes=$(tree)
choose task 月报 I
answer "taking it in hand is asked for" "任务办理中: [[]月报[]] ?" Enter
expect "it is in hand" rows_are "select tDone,tDoneMan from tTaskList where fID=1" "2|张三"
expect "its node changes" image_is_not 月报 "$before"
inHand=$(main image tvwTask 月报)
main right cmdTaskOK
expect "the button has a menu" menu_is_open
picture menu-done
outside keys Escape
main mouse cmdTaskOK
answer "completing it is asked for" "确认: 您已经完成了任务 [[]月报[]] ?" Enter
expect "it is done" rows_are "select tDone,tDoneMan from tTaskList where fID=1" "1|张三"
expect "its node changes again" image_is_not 月报 "$inHand"
expect "in place" test "$(tree)" = "$nodes"
main mouse "cmdAction(2)"
fill txtTaskCon 交财务，已寄出
fill "txtOther(0)" 三楼
main mouse cmdSave
answer "the change is reported" "[[]月报[]]: 修改完毕 ！" Enter
expect "an alert does not list what is done" text_is lblNotice "[月报]: 已保存，但当前列表不显示该项！"
expect "the change is in the file" rows_are \
    "select tDone,fContent,fOther0 from tTaskList where fID=1" "1|交财务，已寄出|三楼"

# --- two tasks go, one of them by the button ---
choose task 收款 D
answer "deleting is asked for" "[[]收款[]]: 是否删除 ?" Tab Enter
expect "its node is gone" tree_lacks 收款
main mousenode tvwTask 整理样品
expect "a click shows the task" text_is txtTitle2 整理样品
main mouse "cmdAction(3)"
answer "deleting is asked for" "[[]整理样品[]]: 是否删除 ?" Enter
expect "who thinks better of it keeps it" tree_holds 整理样品
main mouse "cmdAction(3)"
answer "deleting is asked for" "[[]整理样品[]]: 是否删除 ?" Tab Enter
expect "its node is gone" tree_lacks 整理样品
expect "so are the rows" rows_are "select fID from tTaskList" 1

# --- a note for the diary ---
# What is entered with the present time lies between two days: the list is to have no first day.
main mousetab SSTab1 1
expect "the filter page comes forward" shows DTPicker0
main mouse DTPicker0 10 12
main mouse cmdSeek
outside keys Alt+r N
expect "the button says what is saved" text_is cmdSave 日志新增
fill txtTitle2 与银行通话
fill txtTaskCon 利率与期限
main mouse cmdSave
answer "the entry is reported" "[[]与银行通话[]]: 新增完毕 ！" Enter
expect "the tree shows it" tree_holds $'(2003-12-29)\t与银行通话'
choose daily 与银行通话 M
fill txtTitle2 与银行通电话
main mouse cmdSave
answer "the change is reported" "[[]与银行通电话[]]: 修改完毕 ！" Enter
expect "the tree shows the change" tree_holds 与银行通电话

# --- a visit ---
outside keys Alt+g N
expect "the card page comes forward" shows txtCompSeek
fill txtCompSeek hx02
outside keys Enter
expect "the code finds the customer" text_is txtName2 赵六
fill txtCompSeek 华兴
outside keys Enter
expect "a part of the name finds another" text_is txtName2 王五
main mouse cboComp2 20 12
expect "the customer has the keyboard" has_focus cboComp2
outside keys Enter
expect "a title is proposed" text_is txtTitle2 华兴公司--拜访记录
main mouse cmdSave
answer "the visit is reported" "[[]华兴公司--拜访记录[]]: 新增完毕 ！" Enter
expect "the visit is in the file" rows_are \
    "select fType,TaskID,fGuest,fUser,date(taskTime) from tTaskList where fID=5" "1|1|王五|张三|2003-12-29"

# --- call, write, look at the page ---
main mousetab SSTab1 0
choose guest 华兴公司 C
expect "the menu brings the card forward" shows txtAdd2
expect "with its address" text_is txtAdd2 广东广州,中山路1号
picture tab-card
main mouse cmdTel
expect "the dialer starts" appears dialer
expect "the number is typed into it" test "$(outside text dialer.txtNumber)" = 020-8888
outside close dialer
expect "the dialer closes" goes dialer
main mouse cboWay
expect "the list of ways has the keyboard" has_focus cboWay
outside keys Down
expect "the way to write" shows cmdEmail
main mouse cmdEmail
expect "the mail program gets the address" received mailTo:wang@hx.example
main mouse cboWay
outside keys Down
expect "the way to look" shows cmdHttp
main mouse cmdHttp
expect "the browser gets the page" received http://www.hx.example

# --- the birthdays of the coming days, across the turn of the year ---
main mouse chkBirthDay0
expect "two have a birthday" grid_is "$(printf 'DF01\t钱七\t东方贸易\t1980-12-30\t1\nHX02\t赵六\t华新商行\t1970-01-02\t4')"
picture birthdays
fill txtBirthDay0 1
main mouse chkBirthDay0
main mouse chkBirthDay0
expect "one of them tomorrow" grid_is "$(printf 'DF01\t钱七\t东方贸易\t1980-12-30\t1')"
main mouse chkBirthDay0
fill txtBirthDay0 0
main mouse chkBirthDay0
answer "nobody has it today" "今天未有[[]客户生日报警[]] （提前0天）！" Enter
expect "the reminder is off again" test "$(main checked chkBirthDay0)" = 0

# --- the plans ---
main mouse chkEvent
expect "the tree shows the plans" tree_holds 月报
choose event 月报 Down Down Enter
expect "the plan editor opens" appears frmTaskSet
outside mouse frmTaskSet.txtTaskTitle
outside keys Home
outside write 财务
outside mouse frmTaskSet.cmdOK
answer "the plan is saved" "任务修改完毕!" Enter
expect "the editor closes" goes frmTaskSet
expect "the tree shows its new name" tree_holds 财务月报
outside keys Alt+e Enter
expect "the editor opens for a new plan" appears frmTaskSet
outside mouse frmTaskSet.txtTaskTitle
outside write 年会
outside mouse frmTaskSet.cmdOK
answer "the plan is saved" "任务新增完毕!" Enter
expect "the editor closes" goes frmTaskSet
choose event 年会 Down Down Down Enter
answer "deleting is asked for" "是否删除管理事件: [[]年会[]]*" Tab Enter
expect "its node is gone" tree_lacks 年会
expect "one plan is left" rows_are "select TaskID,taskTitle from tTaskSet" "1|财务月报"
main mouse chkEvent

# --- the switches, and home ---
main mousetab SSTab1 1
expect "the filter page comes forward" shows DTPicker0
picture tab-filter
main mousetab SSTab1 3
expect "the options come forward" shows chkStartup
main mouse chkBirthDay
expect "the birthdays are switched on" is_checked chkBirthDay
main mouse chkStartup
expect "the start is switched off" test "$(main checked chkStartup)" = 0
picture tab-options
main mouse cmdExit
expect "the window closes" goes frmTaskMain
expect "the birthdays are kept" setting_is StartupBirthDay 5
expect "the start is kept" setting_is Startup 0
registry query "$switches" >"$work/settings"

# --- the completion dialog, which asks for a number where none was given ---
outside mouse 演示主程序.cmdRefresh5
expect "the dialog opens" appears frmTaskDone
expect "it is to complete" title_is frmTaskDone 任务执行完毕
outside mouse frmTaskDone.txtTitle
outside write "4 "
picture completion frmTaskDone
outside mouse frmTaskDone.cmdTaskDone
expect "it closes" goes frmTaskDone
expect "the diary entry is done" rows_are "select tDone,tDoneMan from tTaskList where fID=4" "1|张三"

# --- everything again in Traditional script; the switches are as they were left ---
script=traditional
outside mouse 演示主程序.cboLanguage
outside keys Down Enter
outside mouse 演示主程序.cmdRefresh1
expect "the manager opens" appears frmTaskMain
expect "its title is in Traditional script" title_is frmTaskMain 任務管理器
main mousetab SSTab1 2
expect "the list of the birthdays is on" is_checked chkBirthDay0
picture birthdays
main mouse chkBirthDay0
expect "a click brings the card back" shows txtCompSeek
main mousetab SSTab1 1
expect "the filter page comes forward" shows DTPicker0
main mouse DTPicker0 10 12
main mouse DTPicker1 10 12
main mouse cboState
outside keys End Up Enter
main mouse cmdSeek
expect "what is done is shown too" tree_holds 月报
picture tab-filter
# look MENU PART: the menu of such a node.
look() {
    main rightnode tvwTask "$2"
    expect "a right click opens $1" menu_is_open
    picture "menu-$1"
    outside keys Escape
}
main mousenode tvwTask 月报
expect "a click shows the task" text_is txtTaskCon 交财务，已寄出
picture tab-item
look task 月报
look daily 与银行通电话
look guest 华兴公司
picture tab-card
main right cmdTaskOK
expect "the button has a menu" menu_is_open
picture menu-done
outside keys Escape
main mouse chkEvent
expect "the tree shows the plans" tree_holds 财务月报
look event 财务月报
main mousetab SSTab1 3
expect "the options come forward" shows chkStartup
expect "the birthdays are on" is_checked chkBirthDay
expect "the start is off" test "$(main checked chkStartup)" = 0
picture tab-options
main mouse cmdExit
expect "the window closes" goes frmTaskMain
expect "no switch has changed" test "$(registry query "$switches")" = "$(cat "$work/settings")"
outside mouse 演示主程序.cmdRefresh5
expect "the dialog opens" appears frmTaskDone
expect "its title is in Traditional script" title_is frmTaskDone 任務執行完畢
outside mouse frmTaskDone.txtTitle
outside write "1"
picture completion frmTaskDone
outside keys Escape
answer "what was typed is asked about" "輸入的內容還沒有儲存*" Tab Enter
expect "Escape closes it" goes frmTaskDone

# --- the property bag, and the end ---
outside mouse 演示主程序.cmdClear
outside mouse 演示主程序.cmdSaveBag
bag_holds() { outside text 演示主程序.txtLog | grep -qE "  $1\$"; }
expect "the bag holds the user" bag_holds "UserName = .*张三.*"
expect "the language" bag_holds "Language = 1.*"
expect "the path" bag_holds "UserPath = .*taskAlert\.db.*"
expect "no other window is open" test "$(outside list | wc -l)" = 1
outside close 演示主程序
expect "the host closes" goes 演示主程序
wait "$demo"
# It reports when its control could not be unloaded, because one of its objects was still alive.
expect "the host ends well and no object is left" test $? -eq 0
demo=
expect "no window is left" test -z "$(outside list)"
expect "the host's process is gone" process_is_gone zvDemo.exe
expect "so is what it started" process_is_gone zvReceiver.exe
expect "the file is sound" rows_are "pragma integrity_check" ok
expect "and closed" test ! -s "$data-wal"
expect "the items are those of the day" rows_are \
    "select fID,fType,taskTitle,tDone,tDoneMan,fUser from tTaskList order by fID" \
    "1|0|月报|1|张三|张三
4|2|与银行通电话|1|张三|张三
5|1|华兴公司--拜访记录|0||张三"
expect "the plans too" rows_are "select TaskID,taskTitle,SetMan from tTaskSet" "1|财务月报|张三"
expect "no card has changed" rows_are "select count(*),sum(CompCode like 'HX%') from cards" "4|2"
registry query "$settings" /s >"$work/all"
expect "no other settings were written" test "$(grep -c REG_SZ "$work/all")" = "$(grep -c REG_SZ "$work/settings")"
leave
