# The part of bench/run that measures windows; sourced by it. Uses $data, $runs, $results, $cpu and
# the functions build and pinned.
source tools/setup/wine.sh

build windows-x64 zvbench_window zvbench_start zvbench_floor_start zv_Task
win=build/windows-x64/bin
wine_prepare >&2
# A display and a Wine server of this run's own, started on the processor that everything is held
# on, so that what they start stays there too.
taskset -cp "$cpu" $$ >/dev/null
unset DISPLAY
wine_start
trap 'rm -f "$results"; wine_stop' EXIT

for items in 1000 10000 100000; do
    ZV_WINE_TIMEOUT=600 wine_run "$win/zvbench_window.exe" "$(winepath_of "$data/list_$items.db")" \
        "$([ "$items" = 100000 ] && echo 3 || echo "$runs")" | tr -d '\r' >>"$results"
done

# Alternating starts; the first of each only warms up.
starts=$(mktemp)
for run in $(seq 0 "$runs"); do
    ours=$(wine_run "$win/zvbench_start.exe" "$(winepath_of "$data/list_1000.db")" | tr -d '\r')
    floor=$(wine_run "$win/zvbench_floor_start.exe" | tr -d '\r')
    [ "$run" = 0 ] || echo "$ours $floor" >>"$starts"
done
median() { cut -d' ' -f"$1" "$starts" | sort -n | sed -n "$((runs / 2 + 1))p"; }
printf 'process start to the first window, 1000 items\t%s\t%s\tms\t0\t0\t%s\n' \
    "$(median 1)" "$(median 2)" "$runs" >>"$results"
rm -f "$starts"

printf 'size of the control, x64\t%s\t0\tMB\t0\t4\t1\n' \
    "$(stat -c %s "$win/zv_Task.ocx" | awk '{ printf "%.3f", $1 / 1048576 }')" >>"$results"
