#!/usr/bin/env bash
# The random users of tests/ring/monkey in real windows: what the system's own controls do with the
# focus, with keys and with messages that wait is watched in the same way.
#
#   tests/ring/monkey/windows.sh
#
# Needs ZV_TEST_BIN (folder of the test programs) and a display. What was found before is played first
# (corpus/), then one seed after the other, from ZV_SEED on (6400 in 64 bits, 3200 in 32: each width has
# users of its own), until ZV_SECONDS (600) are over; a seed that has begun is played to its end. A
# playing that fails is left, as short as it could be made, in build/ring/monkey. Closes with
# "N passed, N failed".
set -uo pipefail
cd "$(dirname "$0")/../../.."
source tools/setup/wine.sh
: "${ZV_TEST_BIN:?folder of the test programs}"
steps=300
found=$PWD/build/ring/monkey
mkdir -p "$found"
passed=0
failed=0
zvscript() { wine_output "$ZV_TEST_BIN/zvscript.exe" --backend win32 "$@"; }
mapfile -t known < <(find tests/ring/monkey/corpus -name '*.zvs' | sort)
for file in ${known[@]+"${known[@]}"}; do
    if zvscript --watch "$file"; then passed=$((passed + 1)); else failed=$((failed + 1)); fi
done
# One seed takes about ten seconds; one that fails is played again and again while it gets shorter.
play() { # SEED
    local file=$found/windows-$ZV_WIDTH-$1.zvs status
    ZV_WINE_TIMEOUT=900 zvscript --monkey "$1" "$steps" "$(winepath_of "$file")"
    status=$?
    [ "$status" -eq 0 ] && passed=$((passed + 1)) && return
    [ "$status" -ne 124 ] || echo "seed $1 did not end in 15 minutes; played so far: $file"
    failed=$((failed + 1))
}
first=${ZV_SEED:-${ZV_WIDTH}00}
seed=$first
for ((end = SECONDS + ${ZV_SECONDS:-600}; SECONDS < end; seed++)); do play "$seed"; done
echo "seeds from $first to $((seed - 1))"
echo "$passed passed, $failed failed"
[ "$failed" -eq 0 ]
