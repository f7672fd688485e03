#!/usr/bin/env bash
# The report component as any program meets it: a script that prints every kind of report in both
# scripts, read back with a PDF reader; printers that are there, gone or unknown; files that cannot
# be written; the preview played from outside. ZV_BIN: folder of the programs that ship; ZV_TEST_BIN:
# of those that test them, the same when it is not given; WINEPREFIX: the prefix to use. Ends with the
# line "N passed, N failed".
set -uo pipefail
here=$(cd "$(dirname "$0")" && pwd)
cd "$here/../../.." || exit 1
source tools/setup/wine.sh
: "${ZV_BIN:?folder of the programs that ship}" "${ZV_TEST_BIN:=$ZV_BIN}"
export LC_ALL=C.UTF-8
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
passed=0
failed=0

windows_path() { printf 'Z:%s' "$1" | tr / '\\'; }
outside() { ZV_WINE_TIMEOUT=60 wine_output "$ZV_TEST_BIN/zvOutside.exe" "$@"; }
printers() { ZV_WINE_TIMEOUT=60 wine_run "$ZV_TEST_BIN/zvPrinters.exe" "$@"; }
script() { ZV_WINE_TIMEOUT=400 wine_run cscript //nologo "$(windows_path "$1")" "${@:2}" 2>&1 | tr -d '\r'
    [ "${PIPESTATUS[0]}" -eq 0 ] || echo "the script ended with ${PIPESTATUS[0]}"; }
check() { # NAME COMMAND...
    local name=$1
    shift
    if "$@" >"$work/check.log" 2>&1; then
        passed=$((passed + 1))
    else
        failed=$((failed + 1))
        echo "FAILED $name"
        tail -n 20 "$work/check.log"
    fi
}
# What a PDF reader finds in the file, page by page with a form feed after each, read once.
text_of() {
    [ "$1.text" -nt "$1" ] || pdftotext -layout "$1" "$1.text" || return
    cat "$1.text"
}
holds() { # FILE TEXT: a PDF reader finds the text
    text_of "$1" | tr -d '\f' | grep -F -- "$2" >"$work/found" && return 0
    text_of "$1" | head -n 30
    return 1
}
said_in() { # LOG PATTERN: a script said it; otherwise what it said instead
    grep -q "$2" "$1" || { cat "$1"; return 1; }
}
page_count() { pdfinfo "$1" | sed -n 's/^Pages: *//p'; }
# Every page has its own number in the footer and the headings of the columns.
numbered() { # FILE PATTERN-WITH-N-AND-M
    local pages number=0 text page
    pages=$(page_count "$1")
    while IFS= read -r -d $'\f' page; do
        number=$((number + 1))
        text=${2/N/$number}
        [ "$(grep -cF -- "${text/M/$pages}" <<<"$page")" = 1 ] ||
            { echo "page $number lacks ${text/M/$pages}"; tail -n 5 <<<"$page"; return 1; }
        grep -qE 'No\. +Title' <<<"$page" || { echo "page $number lacks its headings"; return 1; }
    done < <(text_of "$1")
    [ "$number" = "$pages" ] || { echo "$number of $pages pages have a text"; return 1; }
}
# The picture of a page is neither empty nor black.
painted() { # FILE PAGE
    pdftoppm -f "$2" -l "$2" -r 50 -png -singlefile "$1" "$work/picture" || return 1
    local mean
    mean=$(convert "$work/picture.png" -colorspace Gray -format '%[fx:int(mean*1000)]' info:)
    [ "$mean" -gt 500 ] && [ "$mean" -lt 995 ] || { echo "mean $mean"; return 1; }
    [ -z "${ZV_PICTURES:-}" ] || cp "$work/picture.png" "$ZV_PICTURES/$(basename "${1%.*}")-$3.png"
}
fonts_embedded() { # all of them, as subsets that know their characters
    [ "$(pdffonts "$1" | tail -n +3 | wc -l)" -gt 0 ] &&
        ! pdffonts "$1" | tail -n +3 | grep -v 'yes yes yes'
}

check "registers" wine_register "$ZV_BIN/zv_Host.dll"
data=$work/taskAlert.db
check "makes a database" wine_run "$ZV_BIN/zvdb.exe" create "$(windows_path "$data")"
sqlite3 "$data" "with recursive n(i) as (select 1 union all select i+1 from n where i<1000)
    insert into tTaskList(taskTitle, fContent, taskTime, fType, tDone)
    select '拜访客户 Nr ' || i, '商谈合同，記錄結果', '2003-03-07 00:00:00', i % 3, i % 3 from n"

# The preview: pages turn, and the script goes on when the window is closed.
check "a printer is installed" printers add 'zv paper' 'FILE:'
words=(任务清单 编号 主题 日期 类型 状况 内容)
script "$here/preview.vbs" "$(windows_path "$data")" 0 "${words[@]}" >"$work/preview" &
script_pid=$!
check "the preview opens" outside wait frmPreview 60
text_is() {
    local i
    for i in $(seq 40); do
        [ "$(outside text "frmPreview.$1")" = "$2" ] && return 0
        sleep 0.1
    done
    outside text "frmPreview.$1"
    return 1
}
check "it begins with the first page" text_is txtPage 1
check "turns to the next page" outside click frmPreview.cmdNext
check "shows the page" text_is txtPage 2
last=$(outside text frmPreview.lblPages | tr -dc 0-9)
check "turns to the last page" outside click frmPreview.cmdLast
check "shows the last page" text_is txtPage "$last"
[ -z "${ZV_PICTURES:-}" ] || import -window root "$ZV_PICTURES/preview.png"
check "a printer that vanished" printers remove 'zv paper'
check "print is pressed" outside click frmPreview.cmdPrint
said() {
    local i
    for i in $(seq 50); do
        outside message | grep -qF -- "$1" && return 0
        sleep 0.1
    done
    outside message
    return 1
}
check "the lack of a printer is reported" said 没有安装打印机
outside keys Escape >/dev/null
check "the preview is still there" text_is txtPage "$last"
check "closes" outside click frmPreview.cmdClose
check "is gone then" outside gone frmPreview 10
wait "$script_pid"
check "the script goes on, and counted the same pages" grep -qx "END $last" "$work/preview"

check "a printer is installed again" printers add 'zv paper' 'FILE:'

# Printing from the preview. Who does not name the file that the printer stands at has called it off:
# nothing is printed, and that is no failure.
no_message() { [ "$(outside message)" = 'no message box is open' ] || { outside message; return 1; }; }
some_message() {
    local i
    for i in $(seq 50); do
        no_message >/dev/null || return 0
        sleep 0.1
    done
    return 1
}
titled() { # a dialog of that title stands
    local i
    for i in $(seq 50); do
        outside list | grep -qF -- "|#32770|$1" && return 0
        sleep 0.1
    done
    outside list
    return 1
}
preview() { # ARGUMENT...
    script "$here/preview.vbs" "$(windows_path "$data")" 0 "${words[@]}" "$@" >"$work/preview" &
    script_pid=$!
    check "the preview opens ($*)" outside wait frmPreview 60
    check "print is pressed ($*)" outside click frmPreview.cmdPrint
    check "the printers' dialog opens ($*)" some_message
    outside keys Enter >/dev/null
}
end_preview() {
    local i
    for i in $(seq 20); do
        # While it prints it does not close.
        outside close frmPreview >/dev/null
        outside gone frmPreview 2 >/dev/null && break
    done
    wait "$script_pid"
    check "the script goes on" grep -q '^END [1-9]' "$work/preview"
}
preview
check "the file is asked for" titled 打印到文件
outside keys Escape >/dev/null
check "a print that was called off is no failure" no_message
check "the preview is there still" text_is txtPage 1
end_preview
check "nothing is printed" test ! -e FILE:
# A page that lies across is proposed to be printed across, in its true size.
check "the printer is put aside" printers remove 'zv paper'
check "a printer that writes a file" printers add 'zv paper' "$(windows_path "$work/across.ps")"
preview wide
# Another round of tests may have the machine to itself for most of the time.
written() {
    local i
    for i in $(seq 3000); do
        tail -c 20 "$work/across.ps" 2>/dev/null | grep -q EOF && return 0
        sleep 0.1
    done
    return 1
}
check "the pages are on paper" written
check "they lie across" grep -aq '^%%Orientation: Landscape' "$work/across.ps"
check "they are A4" grep -aq 'PageSize A4' "$work/across.ps"
check "they are PostScript" ps2pdf "$work/across.ps" "$work/across.pdf"
# A page that was made smaller to fit upright paper would end in the middle of it.
full_size() {
    pdftotext -bbox -f 1 -l 1 "$work/across.pdf" "$work/boxes"
    awk -F'"' '/<word/ && $6 + 0 > most { most = $6 + 0 } END { print most; exit !(most > 700) }' \
        "$work/boxes"
}
check "they have their true size" full_size
end_preview
check "the printer is put aside again" printers remove 'zv paper'
check "the first printer is back" printers add 'zv paper' 'FILE:'
reports=(list item collection rows grid)
for language in 0 1; do
    if [ "$language" = 0 ]; then
        title='任务与客户报表' company='塔尔内尔贸易有限公司' footer='第 N/M 页'
        kind=客户拜访 state=办理中 mark='(续)' when=打印时间
    else
        title='任務與客戶報表' company='塔爾內爾貿易有限公司' footer='第 N/M 頁'
        kind=客戶拜訪 state=辦理中 mark='(續)' when=打印時間
    fi
    for mode in 2 1; do
        out=$work/$language-$mode
        mkdir "$out"
        script "$here/../../../host/examples/print_reports.vbs" "$(windows_path "$data")" \
            "$(windows_path "$out")" "$language" "$title" "$company" 张三 "$mode" >"$out/log"
        check "the script reaches its end ($language, $mode)" said_in "$out/log" '^END list'
        script "$here/../../../host/examples/print_grid.js" "$(windows_path "$out")" "$language" \
            "$title" "$company" "$mode" >"$out/grid.log"
        check "a grid of a script ($language, $mode)" said_in "$out/grid.log" '^END [1-9]'
        if [ "$mode" = 1 ]; then
            for report in "${reports[@]}"; do
                check "$report is PostScript ($language)" ps2pdf "$out/$report.ps" "$out/$report.pdf"
            done
        fi
        for report in "${reports[@]}"; do
            pdf=$out/$report.pdf
            name="$report, language $language, mode $mode"
            check "title: $name" holds "$pdf" "$title"
            check "company: $name" holds "$pdf" "$company"
            check "date: $name" holds "$pdf" "$when"
            check "picture: $name" painted "$pdf" 1 "$language-$mode"
            [ "$mode" = 1 ] || check "fonts: $name" fonts_embedded "$pdf"
        done
        check "pages are numbered ($language, $mode)" numbered "$out/list.pdf" "$footer"
        check "more than ten pages ($language, $mode)" test "$(page_count "$out/list.pdf")" -gt 10
        rows=$(text_of "$out/list.pdf" | grep -c '拜访客户 Nr ')
        check "a thousand rows ($language, $mode): $rows" test "$rows" = 1000
        check "kinds have names ($language, $mode)" holds "$out/list.pdf" "$kind"
        check "states have names ($language, $mode)" holds "$out/list.pdf" "$state"
        check "a split row is marked ($language, $mode)" holds "$out/item.pdf" "$mark"
        check "its end is there ($language, $mode)" holds "$out/item.pdf" 'the end'
        check "a grid's cells ($language, $mode)" holds "$out/grid.pdf" 'Cell 40/3'
        check "a collection's texts ($language, $mode)" holds "$out/collection.pdf" 'from a collection'
    done
    csv=$work/$language-2/list.csv
    check "CSV has its mark ($language)" test "$(head -c 3 "$csv" | od -An -tx1 | tr -d ' ')" = efbbbf
    check "CSV has its rows ($language)" test "$(grep -c '拜访客户 Nr ' "$csv")" = 1000
done
same_pages() { [ "$(page_count "$work/0-1/$1.pdf")" = "$(page_count "$work/0-2/$1.pdf")" ]; }
for report in "${reports[@]}"; do
    check "as many pages on paper as in the file: $report" same_pages "$report"
done

# What cannot be done is reported, with its number and its reason.
mkdir "$work/refused"
mkdir "$work/refused/taken.pdf"
script "$here/refusals.vbs" "$(windows_path "$data")" "$(windows_path "$work/refused")" >"$work/refusals"
if mark=$(grep -E '^END [0-9]+ passed, [0-9]+ failed$' "$work/refusals"); then
    read -r _ ok _ bad _ <<<"$mark"
    passed=$((passed + ok))
    failed=$((failed + bad))
    [ "$bad" -eq 0 ] || cat "$work/refusals"
else
    check "the refusals reach their end" cat "$work/refusals" /dev/missing
fi
check "nothing half written stays" test "$(ls "$work/refused")" = taken.pdf

check "the printer is removed" printers remove 'zv paper'
echo "$passed passed, $failed failed"
[ "$failed" -eq 0 ]
