# The part of bench/run that measures the alerter while nothing is due; sourced by bench/wine.sh. Uses
# its functions and variables.
#
# An hour of its clock is played in a minute (tools/setup/fast_clock.sh). A wake-up is a stretch of time
# in which the program's threads gave the processor up at least once: one that is woken asks its Wine
# server several times, and waits for each answer. Memory is what no other process could share: pages
# that were written to. Code and data as they lie in files are not counted, as in the private working
# set of Windows.
source tools/setup/fast_clock.sh

sandbox=$(mktemp -d)
(
    trap 'fast_stop; rm -rf "$sandbox"' EXIT
    fast_prepare "$sandbox" "2003-03-07 09:00:00" 60
    wine_register "$win/zv_Host.dll"
    wine_register "$win/zv_Task.ocx"
    wine_run "$win/zvdb.exe" create "$(winepath_of "$sandbox")\\nothing.db" >/dev/null
    wine_output cscript //nologo "$(winepath_of tests/e2e/alerter/hand_over.vbs)" \
        "$(winepath_of "$sandbox/nothing.db")" tester geheim >/dev/null

    switches() { # PROCESS; into `count`, and without a process of its own
        local file key value
        count=0
        for file in /proc/"$1"/task/*/status; do
            while read -r key value; do
                [ "$key" != voluntary_ctxt_switches: ] || count=$((count + value))
            done <"$file"
        done
    }
    # idle PROGRAM.EXE: prints MB and wake-ups an hour.
    idle() {
        local number wakes=0 awake= last end
        timeout 200 "$ZV_WINE" "$win/$1" >/dev/null 2>&1 &
        until number=$(pgrep -P $!); do
            kill -0 $! || return
            sleep 0.2
        done
        # Its start is over.
        sleep 5
        [ -n "$fast_began" ] || fast_go
        end=$((SECONDS + 60))
        switches "$number"
        last=$count
        while [ "$SECONDS" -lt "$end" ]; do
            read -r -t 0.005 <>"$sandbox/never" || true
            switches "$number"
            if [ "$count" = "$last" ]; then
                awake=
            elif [ -z "$awake" ]; then
                wakes=$((wakes + 1))
                awake=yes
            fi
            last=$count
        done
        awk -v wakes="$wakes" '/^Private_Dirty/ { kb += $2 } END { printf "%.2f %d\n", kb / 1024, wakes }' \
            "/proc/$number/smaps_rollup"
        kill "$number"
    }
    mkfifo "$sandbox/never"
    idle zvAlert.exe >"$sandbox/ours"
    idle zvbench_floor_idle.exe >"$sandbox/floor"
    read -r memory wakes <"$sandbox/ours"
    read -r bare_memory bare_wakes <"$sandbox/floor"
    row "the alerter's memory, nothing due" "$memory" "$bare_memory" MB 0 20 1
    row "the alerter's wake-ups an hour, nothing due" "$wakes" "$bare_wakes" "" 0 60 1
)
