#!/usr/bin/env bash
# Users and hosts who do whatever can be done, chosen by a seed, while what must always hold is checked
# after each act. What was found before is played first (corpus/), and every scenario is watched in the
# same way.
#
#   ZV_NATIVE_BIN=FOLDER tests/ring/monkey/run.sh
#
# With ZV_LONG=1 it goes on for ZV_SECONDS (600) with seeds from ZV_SEED (the time of day) on. A playing
# that fails is left, as short as it could be made, in build/ring/monkey. Closes with
# "N passed, N failed".
set -uo pipefail
cd "$(dirname "$0")/../../.."
: "${ZV_NATIVE_BIN:?folder of the native programs}"
steps=300
seeds=({1..12})
found=$PWD/build/ring/monkey
mkdir -p "$found"
passed=0
failed=0
take() { # takes the last line "N passed, N failed" of a log over
    local p f
    read -r p f < <(sed -nE 's/^([0-9]+) passed, ([0-9]+) failed$/\1 \2/p' "$1" | tail -n 1)
    passed=$((passed + ${p:-0}))
    failed=$((failed + ${f:-1}))
    grep -v '^ok ' "$1" | head -n -1
}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mapfile -t known < <(find tests/ring/monkey/corpus -name '*.zvs' | sort)
if [ ${#known[@]} -gt 0 ]; then
    "$ZV_NATIVE_BIN/zvscript" --watch "${known[@]}" >"$work/corpus.log" 2>&1
    take "$work/corpus.log"
fi
# Those of unwatched.txt let the host ask for what no database has.
mapfile -t files < <(find tests/scenarios -name '*.zvs' | sort | grep -vxFf tests/ring/monkey/unwatched.txt)
"$ZV_NATIVE_BIN/zvscript" --watch "${files[@]}" >"$work/scenarios.log" 2>&1
take "$work/scenarios.log"
play() { # SEED
    if "$ZV_NATIVE_BIN/zvscript" --monkey "$1" "$steps" "$found/$1.zvs" >"$work/monkey.log" 2>&1; then
        passed=$((passed + 1))
    else
        failed=$((failed + 1))
        tail -n 40 "$work/monkey.log"
    fi
}
for seed in "${seeds[@]}"; do play "$seed"; done
if [ -n "${ZV_LONG:-}" ]; then
    seed=${ZV_SEED:-$(date +%s)}
    echo "seeds from $seed on"
    for ((end = SECONDS + ${ZV_SECONDS:-600}; SECONDS < end; seed++)); do play "$seed"; done
fi
echo "$passed passed, $failed failed"
[ "$failed" -eq 0 ]
