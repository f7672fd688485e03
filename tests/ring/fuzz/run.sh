#!/usr/bin/env bash
# With ZV_LONG=1: installs the fuzzer when it is missing, builds the targets and plays each for
# ZV_SECONDS (600 when left out) from its corpus, its seeds and ZV_SEED (1), two at a time; ZV_TARGETS
# names some of them. Prints for each how far it got, also at half time. What is found is in
# build/ring/fuzz/TARGET/found, what led further in build/ring/fuzz/TARGET/grown, logs are in
# ZV_FUZZ_LOGS (build/ring/fuzz/logs). Closes with "N passed, N failed".
#
# Otherwise plays the corpus and some changes of it: ring_fuzz_test.
#
#   tests/ring/fuzz/run.sh sum LOGS     the table of logs that are there, also while it runs
set -uo pipefail
here=$(cd "$(dirname "$0")" && pwd)
root=$(cd "$here/../../.." && pwd)
work=$root/build/ring/fuzz
logs=${ZV_FUZZ_LOGS:-$work/logs}
seconds=${ZV_SECONDS:-600}

# row LOG: "target seconds executions edges-at-half-time edges findings".
row() {
    awk -v name="$(basename "$1" .log)" -v file="$1" '
        /^#[0-9]+/ {
            count = substr($1, 2) + 0
            for (i = 2; i < NF; i++) if ($i == "cov:") edges = $(i + 1)
        }
        /^finding:|ERROR: / { found = 1 }
        /^Done [0-9]+ runs in [0-9]+ second/ { count = $2; seconds = $5; done = 1 }
        /^half time$/ { half = edges }
        END { printf "%-12s %8s %12d %12s %8s %8d\n", name, done ? seconds : "-", count,
                     half == "" ? "-" : half, edges, found }' "$1"
}
table() {
    printf '%-12s %8s %12s %12s %8s %8s\n' target seconds executions edges-half edges findings
    for log in "$1"/*.log; do row "$log"; done
}
if [ "${1:-}" = sum ]; then
    table "$2"
    exit
fi

if [ -z "${ZV_LONG:-}" ]; then
    "${ZV_NATIVE_BIN:-$root/build/native-asan/bin}/ring_fuzz_test" --gtest_brief=1 \
        && echo "1 passed, 0 failed" || { echo "0 passed, 1 failed"; exit 1; }
    exit
fi

"$root/tools/setup/clang16" || exit 1
cd "$root" && cmake --preset native-fuzz >/dev/null && cmake --build --preset native-fuzz -j2 --target fuzz || exit 1
bin=$root/build/native-fuzz/bin
mkdir -p "$logs"
"$bin/fuzz_seeds" "$work/seeds" || exit 1

# play TARGET: answers whether nothing was found. Half time is marked in the log.
play() {
    local name=$1 dictionary=$here/dictionaries/$1.txt longest=512 log=$logs/$1.log fuzzer timer status
    local folders=("$work/$name/grown" "$work/seeds/$name")
    mkdir -p "$work/$name/found" "$work/$name/grown"
    : >"$log"
    [ -d "$here/corpus/$name" ] && folders+=("$here/corpus/$name")
    case $name in fonts | scenarios | statements) longest=4096 ;; esac
    "$bin/fuzz_$name" -max_total_time="$seconds" -seed="${ZV_SEED:-1}" -max_len="$longest" \
        -timeout=120 -rss_limit_mb=3000 -print_final_stats=1 \
        -artifact_prefix="$work/$name/found/" ${dictionary:+$([ -e "$dictionary" ] && echo "-dict=$dictionary")} \
        "${folders[@]}" >>"$log" 2>&1 &
    fuzzer=$!
    { sleep $((seconds / 2)) && echo "half time" >>"$log"; } &
    timer=$!
    wait "$fuzzer"
    status=$?
    kill "$timer" 2>/dev/null
    return "$status"
}

passed=0
failed=0
read -ra names <<<"${ZV_TARGETS:-access connections csv fonts properties scenarios settings statements}"
for ((i = 0; i < ${#names[@]}; i += 2)); do
    declare -A players=()
    for name in "${names[@]:i:2}"; do
        play "$name" &
        players[$name]=$!
    done
    for name in "${!players[@]}"; do
        if wait "${players[$name]}"; then
            passed=$((passed + 1))
        else
            failed=$((failed + 1))
            echo "$name: see $logs/$name.log"
        fi
    done
    unset players
done
table "$logs"
echo "$passed passed, $failed failed"
[ "$failed" -eq 0 ]
