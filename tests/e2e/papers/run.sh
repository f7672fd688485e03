#!/usr/bin/env bash
# Queries and papers on the real control, played from outside with keys and the mouse, in both
# scripts: a search by conditions; the item shown, the item list with chosen columns, the birthdays
# and the list of the query window, each seen in the preview with its pages turned and saved as a
# PDF file whose Chinese text another program finds; rows copied and exported. The day is the 29th
# of December 2003.
#
# Needs ZV_BIN and ZV_TEST_BIN, as tests/e2e/playing.sh says. With ZV_PICTURES, a folder, it leaves a picture of
# each window there. Closes with "N passed, N failed".
set -uo pipefail
cd "$(dirname "$0")/../../.."
source tests/e2e/playing.sh
data="$work/data/taskAlert.db"
papers="$work/papers"
mkdir -p "$papers"

main() { outside "$1" "frmTaskMain.$2" "${@:3}"; }
grid_has() { [ "$(outside rows "$1" | grep -c .)" = "$2" ]; }
list_is() { [ "$(outside text "$1")" = "$2" ]; }
text_has() { pdftotext -layout "$1" - 2>/dev/null | tr -d '\f' | grep -qF -- "$2"; }
pages_are() { [ "$(pdfinfo "$1" 2>/dev/null | awk '$1 == "Pages:" {print $2}')" = "$2" ]; }
setting_is() { registry query "$settings\\zvTask" /v "$1" | grep -qE "$1 +REG_SZ +$2\$"; }
starts_with_mark() { [ "$(head -c 3 "$1" | od -An -tx1 | tr -d ' ')" = efbbbf ]; }
file_has() { grep -qF -- "$2" "$1" 2>/dev/null; }

script=simplified
picture() {
    [ -n "${ZV_PICTURES:-}" ] || return 0
    sleep 0.5
    import -window root -crop "$(outside place "$2")" +repage +dither -colors 96 \
        "PNG8:$ZV_PICTURES/$1-$script.png"
}

# save CONTROL FILE: presses the button and answers the file dialog.
save() {
    outside mouse "$1"
    expect "a dialog asks for the file" dialog_is_open
    outside keys Ctrl+A
    outside write "$(winepath_of "$papers")\\$2"
    outside keys Enter
    expect "$2 is there" test -s "$papers/$2"
}
dialog_is_open() { outside list | grep -q '#32770'; }

# paper NAME TITLE: what the preview shows, saved as a PDF file and closed.
paper() {
    expect "the preview of $1 opens" appears frmPreview
    expect "it says what it shows" title_is frmPreview "$2"
    picture "preview-$1" frmPreview
    save frmPreview.cmdPdf "$1-$script.pdf"
    outside keys Escape
    expect "Escape closes the preview" goes frmPreview
}

# --- the stage ---
make_database create
set_up_workstation
{
    cat <<'SQL'
insert into rptListDetail(fTable,FieldName,FieldName_0,FieldName_1,FieldType,fieldID)
    values('ttasklist','taskTime','日期','日期',0,1),('ttasklist','taskTitle','任务主题','任務主題',0,2),
          ('ttasklist','fContent','内容','內容',0,3),('ttasklist','tDone','状况','狀況',0,4),
          ('ttasklist','fOther0','地点','地點',0,5),('ttasklist','fUser','不显示','不顯示',-1,6);
insert into cards(CompCode,CompName,Name,Birthday)
    values('HX02','华新商行','赵六','1970-01-02 00:00:00'),('DF01','东方贸易','钱七','1980-12-30 00:00:00');
insert into tTaskList(TaskID,fType,taskTitle,fContent,taskTime,tDuring1,tDuring2,fOther0,fUser)
    values(0,0,'月报','交财务部审核；随后归档','2003-12-29 00:00:00','2003-12-29 00:00:00','2003-12-29 00:00:00','三楼','张三');
SQL
    for i in $(seq 1 120); do
        echo "insert into tTaskList(TaskID,fType,taskTitle,fContent,taskTime,tDuring1,tDuring2,tDone,fUser)
            values(0,0,'盘点 $i','第 $i 号仓库','2003-12-28 00:00:00','2003-12-28 00:00:00','2003-12-29 00:00:00',$((i % 3)),'李四');"
    done
} | sqlite3 "$data"

mapfile -t clock < <(wine_clock "2003-12-29 08:55:00")

# play LANGUAGE: everything in one script.
play() {
    local manager=$2 search=$3 query=$4 birthdays=$5 list=$6 page1=$7 fields=$8
    timeout 300 "${clock[@]}" "$ZV_WINE" "$ZV_BIN/zvDemo.exe" --data "$(winepath_of "$data")" \
        --user 张三 --language "$1" &
    demo=$!
    expect "the host opens" appears 演示主程序
    outside click 演示主程序.cmdRefresh1
    expect "the manager opens" appears frmTaskMain
    expect "in its script" title_is frmTaskMain "$manager"

    # The item shown.
    main mousenode tvwTask 月报
    expect "a click shows the item" text_is txtTitle2 月报
    main mouse cmdPrint
    paper item "Customer Report"
    for text in 月报 '交财务部审核；随后归档' 2003-12-29 三楼 "${fields}" 张三; do
        expect "the item's paper holds $text" text_has "$papers/item-$script.pdf" "$text"
    done
    expect "on one page" pages_are "$papers/item-$script.pdf" 1

    # A search by conditions: menu, builder, tree.
    outside keys Alt+Q A
    expect "the builder opens" appears frmSeek
    expect "under its name" title_is frmSeek "$search"
    outside pick frmSeek.cboField 1
    outside mouse frmSeek.txtValue
    outside write 盘点
    outside mouse frmSeek.cmdAdd
    outside pick frmSeek.cboField 3
    outside mouse frmSeek.cmdAdd
    picture builder frmSeek
    outside mouse frmSeek.cmdOK
    expect "the builder closes" goes frmSeek
    expect "what it asked for is listed" tree_holds '盘点 3'
    expect "and nothing else" tree_lacks 月报
    expect "of the state asked for" test -z "$(tree | grep '盘点 1$')"

    # The list of what the tree shows, in columns that the user chooses.
    main mouse cmdItemSet
    expect "the chooser opens" appears frmItemSet
    outside pick frmItemSet.lstChosen 0
    outside mouse frmItemSet.lstAll
    outside keys Home
    outside mouse frmItemSet.cmdTake
    picture chooser frmItemSet
    outside mouse frmItemSet.cmdOK
    paper list "$list"
    expect "the choice is kept" setting_is PrintColumns 'taskTime,fOther0,taskTitle,fContent,tDone'
    for text in '盘点 3' '第 3 号仓库' "${fields}" "$page1"; do
        expect "the list's paper holds $text" text_has "$papers/list-$script.pdf" "$text"
    done
    expect "no item that was not asked for" test -z "$(pdftotext "$papers/list-$script.pdf" - | grep 月报)"
    registry delete "$settings\\zvTask" /v PrintColumns /f >/dev/null

    # The query window.
    outside keys Alt+Q T
    expect "the query window opens" appears frmAsk
    expect "under its name" title_is frmAsk "$query"
    outside mouse 'frmAsk.Check1(1)'
    expect "its box takes the keyboard" has_focus 'Text1(1)'
    outside write 盘点
    outside mouse frmAsk.cmdAsk
    expect "all that match are listed" grid_has frmAsk.Grid1 120
    picture query frmAsk
    outside mouse frmAsk.cmdPrint
    expect "the preview opens" appears frmPreview
    outside keys PageDown
    outside mouse frmPreview.cmdLast
    paper query '2003-12-29 -- 2003-12-29'
    expect "every row is on paper" test \
        "$(pdftotext -layout "$papers/query-$script.pdf" - | grep -c '号仓库')" = 120
    save frmAsk.cmdExport "query-$script.csv"
    answer "what was written is reported" "*query-$script.csv*" Enter
    expect "the file has the mark of its encoding" starts_with_mark "$papers/query-$script.csv"
    expect "and the rows" file_has "$papers/query-$script.csv" '盘点 120,第 120 号仓库'
    outside close frmAsk
    expect "the query window closes" goes frmAsk

    # The birthdays across the turn of the year.
    main mousetab SSTab1 2
    main settext txtBirthDay0 7
    main mouse chkBirthDay0
    expect "the birthdays are listed" grid_has frmTaskMain.Grid1 2
    main mouse cmdPrint
    paper birthdays 客户生日报警
    for text in 华新商行 1970-01-02 东方贸易; do
        expect "the birthdays' paper holds $text" text_has "$papers/birthdays-$script.pdf" "$text"
    done
    outside close frmTaskMain
    expect "the manager closes" goes frmTaskMain
    outside close 演示主程序
    wait "$demo"
    expect "the host ends well" test $? = 0
    demo=
}

play 0 任务管理器 高级查询 查询任务 客户生日报警 任务列表 '第 1/' 地点
script=traditional
play 1 任務管理器 進階查詢 查詢任務 客户生日报警 任務列表 '第 1/' 地點
if [ -n "${ZV_PICTURES:-}" ]; then cp "$papers"/* "$ZV_PICTURES/"; fi
finish
