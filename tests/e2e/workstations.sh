# Sourced by the suites that play two workstations at once, "first" and "second", each the real
# control in a process of its own: what they share. Needs tests/e2e/playing.sh; the suite sets
# `address`, the database as the host is told it, and may give a workstation a width of its own.
host=演示主程序
first_process=
second_process=

declare -A pids=() width_of=([first]=$ZV_WIDTH [second]=$ZV_WIDTH)

# with_width WHO COMMAND...
with_width() (
    wine_width "${width_of[$1]}"
    "${@:2}"
)
register() { wine_register "$ZV_BIN/$1"; }
# A workstation is the process that the name stands for.
at() { # first|second COMMAND...
    local process=$1_process
    ZV_PROCESS=${!process} with_width "$1" outside "${@:2}"
}
main() { at "$1" "$2" "frmTaskMain.$3" "${@:4}"; }
holds() { main "$1" tree tvwTask | grep -qF -- "$2"; }
lacks() { ! holds "$@"; }
# The text may hold * for what does not matter.
is_asked() { [[ "$(at "$1" message)" == $2 ]]; }
is_not_asked_for() { ! is_asked "$@"; }
is_not_asked() { ! at "$1" message >/dev/null; }
answer() { # WHO NAME TEXT BUTTON
    expect "$2" is_asked "$1" "$3"
    at "$1" press "$4"
    expect "$2: the box closes" is_not_asked_for "$1" "$3"
}
# A press on a window that is not in front may be lost, so it is made again when nothing follows.
press() { # WHO NAME CONTROL TEXT BUTTON: the box that the control brings, and its answer
    expect "$2" brings "$1" "$3" "$4"
    answer "$1" "$2" "$4" "$5"
}
brings() { main "$1" click "$2"; settles is_asked "$1" "$3"; }
text_at_is() { [ "$(main "$1" text "$2")" = "$3" ]; }
refill() { main "$1" click cmdSeek; }
# What an act leads to may take a while; the act is made again only when nothing came of it.
settles() {
    local i
    for i in $(seq 20); do
        "$@" && return 0
        sleep 0.1
    done
    return 1
}
finds() { refill "$1"; settles holds "$1" "$2"; }
selects() { main "$1" node tvwTask "$2"; settles text_at_is "$1" txtTitle2 "$2"; }
may_save() { main "$1" click "cmdAction(2)"; settles text_at_is "$1" cmdSave 任务修改; }
change() { # WHO TITLE TEXT
    expect "$1 shows $2" selects "$1" "$2"
    expect "$1 may save" may_save "$1"
    main "$1" settext "txtOther(0)" "$3"
}
# start WHO USER: the host is the newest one; the other is not looked at.
start() {
    (
        wine_width "${width_of[$1]}"
        ZV_WINE_TIMEOUT=400 wine_run "$ZV_BIN/zvDemo.exe" --data "$address" --user "$2"
    ) &
    pids[$1]=$!
    expect "$1 starts" host_of "$1"
    if [[ "$address" == *Driver=* ]]; then at "$1" pick "$host.cboKind" 1; fi
    at "$1" click "$host.cmdRefresh1"
    expect "$1 has the manager" at "$1" wait frmTaskMain 30
    at "$1" tab frmTaskMain.SSTab1 1
}
host_of() {
    local process
    for process in $(with_width "$1" outside processes "$host"); do
        # Another width counts its processes anew.
        [ "$process" = "$first_process" ] && [ "${width_of[$1]}" = "${width_of[first]}" ] && continue
        printf -v "$1_process" '%s' "$process"
        return 0
    done
    return 1
}
# leave_both: the day's end.
leave_both() {
    local who
    for who in first second; do
        at "$who" close frmTaskMain
        expect "$who closes its window" at "$who" gone frmTaskMain 20
        at "$who" close "$host"
        expect "$who closes" at "$who" gone "$host" 20
        wait "${pids[$who]}"
        expect "$who ends well" test $? -eq 0
    done
}
