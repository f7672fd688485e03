#!/usr/bin/env bash
# The alerter through sped-up days: everything that becomes due is shown, once for each reminder, at its
# time and not after it is done, whatever the user answers and whatever other workstations do meanwhile.
# Clocks and timers of the alerter and of its Wine server run 120 times as fast; somebody who looks at
# the window from outside answers what comes up. The looks are judged by oracle.awk.
#
#   ZV_SECONDS    how long, 60 unless given, an hour with ZV_LONG=1: two hours or five days
#   ZV_PLANT      plants a fault for the harness to find: "late" forgets that a reminder was put off,
#                 "over" that an item is done, "silent" hides one
#
# Needs ZV_BIN and ZV_TEST_BIN, as tests/e2e/playing.sh says; closes with "N passed, N failed".
set -uo pipefail
cd "$(dirname "$0")/../../.."
source tests/e2e/playing.sh
source tools/setup/fast_clock.sh
data="$work/taskAlert.db"
journal="$work/journal"
seconds=${ZV_SECONDS:-$([ -n "${ZV_LONG:-}" ] && echo 3600 || echo 60)}
evening="2003-03-07 23:00:00"
first=$(date -ud "$evening" +%s)

judged() { awk -f tests/e2e/days/oracle.awk; }
finds() { # FAULT LINES
    local found
    found=$(printf "$2" | judged)
    [[ $found == *"FAIL $1"* ]] || [[ -z $1 && $found == *", 0 failed" ]]
}
expect "the judge passes what is right" finds "" \
    '10\tdue\ta\n11\ttold\ta\n70\tlater\ta\n71\ttold\ta\n80\tover\ta\n90\tdue\tb\n85\tend\t\n'
expect "the judge sees what comes too early" finds "a reminder before its time" \
    '10\tdue\ta\n11\ttold\ta\n70\tlater\ta\n69\ttold\ta\n80\tend\t\n'
expect "the judge sees what comes twice" finds "a reminder that was not answered comes again" \
    '10\tdue\ta\n11\ttold\ta\n12\ttold\ta\n80\tend\t\n'
expect "the judge sees what comes after it is over" finds "a reminder of what is over" \
    '10\tdue\ta\n11\ttold\ta\n12\tover\ta\n13\ttold\ta\n80\tend\t\n'
expect "the judge sees what does not come" finds "no reminder" \
    '10\tdue\ta\n11\ttold\ta\n70\tlater\ta\n80\tend\t\n'

fast_prepare "$work" "$evening" 120 || exit
trap fast_stop EXIT

stamp() { date -ud "@$1" '+%Y-%m-%d %H:%M:%S'; }
# item TITLE MOMENT: prints the statement that adds it; what is due then is in the journal.
item() {
    local moment
    moment=$(stamp "$2")
    printf '%s\tdue\t%s\n' "$2" "$1" >>"$journal"
    echo "insert into tTaskList(fType,taskTitle,taskTime,tDuring1,tDuring2,tDone,tDoneMan)
          values(0,'$1','$moment','$moment','$moment',0,'张三');"
}

make_database create
expect "with the tables of what was put off" wine_run "$ZV_BIN/zvdb.exe" upgrade "$(winepath_of "$data")" >/dev/null
set_up_workstation
last=$((first + seconds * 120 + 7200))
at=$((first + 420))
number=0
{
    echo "begin;"
    item 首项 "$first"
    while [ "$at" -lt "$last" ]; do
        number=$((number + 1))
        item "事项$number" "$at"
        at=$((at + 540))
    done
    echo "commit;"
} >"$work/items.sql"
query ".read $work/items.sql"
elsewhere=$((number / 3 < 4 ? 4 : number / 3))

expect "a business program logs in" log_in 张三 geheim
ZV_WINE_TIMEOUT=$((seconds + 300)) wine_run "$ZV_BIN/zvAlert.exe" >/dev/null 2>&1 &
alerter=$!
# Only now: Wine gives its own programs so many seconds to start.
expect "the alerter is there and shows what is due already" appears frmRemind
began=$SECONDS
fast_go

read_rows() { # none while the window stays behind
    local all
    until all=$(outside rows frmRemind.grdDue); do
        [[ $all != "no window"* ]] || return 0
        has_ended && return
    done
    cut -f1 <<<"$all"
}
# Rows are read one after the other, and may move meanwhile: what is read twice the same is what stood
# there.
rows() {
    local once again
    again=$(read_rows)
    until [ "$again" = "${once-none}" ]; do
        once=$again
        again=$(read_rows)
    done
    [ -z "$again" ] || printf '%s\n' "$again"
}
has_ended() { ! kill -0 "$alerter" 2>/dev/null; }
# without LINES LIST: the lines of LINES that LIST does not hold.
without() { grep -vxFf <(printf '%s\n' "$2") <<<"$1"; }
seen=
told=0
look() {
    local present title
    present=$(rows)
    while read -r title; do
        [ -n "$title" ] || continue
        grep -qxF -- "$title" <<<"$seen" && continue
        printf '%s\ttold\t%s\n' "$(fast_moment)" "$title" >>"$journal"
        told=$((told + 1))
    done <<<"$present"
    seen=$present
}
# By turns, so that each answer is given at each hour.
answers=(done five dismiss quarter done inhand done)
answer_first() {
    local before=$seen way=${answers[$((told % ${#answers[@]}))]} title left= end=$((SECONDS + patience))
    case $way in
        done) outside click frmRemind.cmdDone ;;
        inhand) outside click frmRemind.cmdInHand ;;
        dismiss) outside click frmRemind.cmdDismiss ;;
        five | quarter)
            outside pick frmRemind.cboLater "$([ "$way" = five ] && echo 0 || echo 1)"
            outside click frmRemind.cmdLater
            ;;
    esac >/dev/null
    until [ -n "$left" ] || [ "$SECONDS" -ge "$end" ]; do
        left=$(without "$before" "$(rows)")
    done
    # What came up since stays to be told by the next look.
    seen=$(without "$before" "$left")
    while read -r title; do
        [ -n "$title" ] || continue
        if [[ $way == done || $way == dismiss ]]; then
            printf '%s\tover\t%s\n' "$(fast_moment)" "$title" >>"$journal"
            [ "${ZV_PLANT:-}" != over ] || query "update tTaskList set tDone=0 where taskTitle='$title'"
        else
            printf '%s\tlater\t%s\n' "$(query "select strftime('%s',fUntil) from zvReminder
                where fItem=(select fID from tTaskList where taskTitle='$title')")" "$title" >>"$journal"
            [ "${ZV_PLANT:-}" != late ] || query "delete from zvReminder"
        fi
    done <<<"$left"
}
finished() { [ $((SECONDS - began)) -ge "$seconds" ]; }
other=
until finished || has_ended; do
    look
    [ -z "$seen" ] || answer_first
    if [ -z "$other" ] && [ "$told" -ge 3 ]; then
        other=yes
        query "update tTaskList set tDone=1,tDoneMan='李四' where taskTitle='事项$elsewhere'"
        printf '%s\tover\t%s\n' "$(fast_moment)" "事项$elsewhere" >>"$journal"
        query "$(item 新增 "$(($(fast_moment) + 180))")"
        [ "${ZV_PLANT:-}" != silent ] || query "delete from tTaskList where taskTitle='新增'"
    fi
done
expect "the alerter runs on" kill -0 "$alerter"
# What is due by now is waited for, however slow the machine.
ended=$(fast_moment)
missing() {
    [[ $({ cat "$journal" && printf '%s\tend\t\n' "$ended"; } | judged) == *"FAIL no reminder"* ]]
}
end=$((SECONDS + patience))
while missing && [ "$SECONDS" -lt "$end" ]; do look; done
printf '%s\tend\t\n' "$ended" >>"$journal"
judged <"$journal" >"$work/judgement"
cat "$work/judgement"
expect "asked to end, it ends" wine_run "$ZV_BIN/zvAlert.exe" --exit
wait "$alerter"
read -r p _ f _ < <(tail -n 1 "$work/judgement")
passed=$((passed + p))
failed=$((failed + f))
[ "$p" -gt 0 ] || failed=$((failed + 1))
[ "$failed" -eq 0 ] || tail -n 60 "$journal"
trap - EXIT
fast_stop
finish
