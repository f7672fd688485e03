# The part of bench/run that measures windows; sourced by it. Uses $data, $runs, $results, $cpu and
# the function build.
source tools/setup/wine.sh
# There the clock of the process only counts the time that passes, and coarsely.
unset ZV_BENCH_CPU

build windows-x64-release zvbench_window zvbench_query zvbench_editor zvbench_start zvbench_remind_window \
    zvbench_floor_start zvbench_floor_idle zv_Task zvAlert zvdb zv_Host
win=build/windows-x64-release/bin
wine_prepare >&2
# A display and a Wine server of this run's own, started on the processor that everything is held
# on, so that what they start stays there too.
taskset -cp "$cpu" $$ >/dev/null
unset DISPLAY
wine_start
trap 'rm -f "$results"; wine_stop' EXIT

# median FILE COLUMN: of the numbers in that column.
median() { cut -d' ' -f"$2" "$1" | sort -n | awk '{ v[NR] = $1 } END { print v[int((NR + 1) / 2)] }'; }
# row MEASURE OURS FLOOR UNIT GOALRATIO GOALVALUE RUNS
row() { printf '%s\t%s\t%s\t%s\t%s\t%s\t%s\n' "$@" >>"$results"; }

ours=$(mktemp)
floor=$(mktemp)
for items in 1000 10000 100000; do
    # Three processes of each in turn, so that whatever disturbs the machine disturbs both.
    : >"$ours"
    : >"$floor"
    each=3
    [ "$items" = 100000 ] && each=1
    for round in 1 2 3; do
        for subject in ours floor; do
            ZV_WINE_TIMEOUT=600 wine_run "$win/zvbench_window.exe" "$subject" \
                "$(winepath_of "$data/list_$items.db")" "$each" | tr -d '\r' >>"${!subject}"
        done
    done
    [ "$(median "$ours" 5)" = "$(median "$floor" 5)" ] || { echo "the trees differ" >&2; exit 1; }
    row "list of $items, window, from empty" "$(median "$ours" 1)" "$(median "$floor" 1)" ms 1.3 0 \
        $((3 * each))
    row "list of $items, window, filled again with the same" "$(median "$ours" 2)" "$(median "$floor" 2)" ms 1 0 \
        $((3 * each))
    row "list of $items, window, filled again with other texts" "$(median "$ours" 3)" \
        "$(median "$floor" 3)" ms 1 0 $((3 * each))
    row "memory a node, window, $items" "$(median "$ours" 4)" "$(median "$floor" 4)" bytes 0 0 3
done

for items in 10000 100000; do
    ZV_WINE_TIMEOUT=600 wine_run "$win/zvbench_query.exe" "$(winepath_of "$data/list_$items.db")" \
        "$runs" | tr -d '\r' >>"$results"
done

ZV_WINE_TIMEOUT=600 wine_run "$win/zvbench_remind_window.exe" "$(winepath_of "$data/alert_10000_1000.db")" \
    "$runs" | tr -d '\r' >>"$results"

# Alternating starts; the first of each only warms up.
: >"$ours"
: >"$floor"
for run in $(seq 0 "$runs"); do
    [ "$run" = 1 ] && : >"$ours" && : >"$floor"
    wine_run "$win/zvbench_start.exe" "$(winepath_of "$data/list_1000.db")" | tr -d '\r' >>"$ours"
    wine_run "$win/zvbench_floor_start.exe" | tr -d '\r' >>"$floor"
done
row "process start to the first window, 1000 items" "$(median "$ours" 1)" "$(median "$floor" 1)" \
    ms 0 0 "$runs"
rm -f "$ours" "$floor"

read -r ours floor _ < <(wine_run "$win/zvbench_editor.exe" "$(winepath_of "$data/plans.db")" "$runs" |
    tr -d '\r')
row "plan editor, open to ready" "$ours" "$floor" ms 0 0 "$runs"

row "size of the control, x64" "$(stat -c %s "$win/zv_Task.ocx" | awk '{ printf "%.3f", $1 / 1048576 }')" \
    0 MB 0 4 1

source bench/alerter.sh
