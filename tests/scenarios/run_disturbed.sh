#!/usr/bin/env bash
# Plays every scenario once more for each box that it answers, with a call of the host or a closed
# window put in while the box stands. Each scenario gets one of the disturbances, by turns; with
# ZV_LONG=1 all of them. Needs ZV_NATIVE_BIN (folder of the native programs); closes with "N passed,
# N failed", a scenario under one disturbance being one.
set -uo pipefail
cd "$(dirname "$0")/../.."
source tests/scenarios/tally.sh
: "${ZV_NATIVE_BIN:?folder of the native programs}"
mapfile -t files < <(find tests/scenarios -name '*.zvs' -exec grep -lE '^ *(answer|input) ' {} + | sort)
disturbances=(refresh0 refresh1 refresh9 close opener)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
status=0
count=0
for ((d = 0; d < ${#disturbances[@]}; d++)); do
    for ((i = 0; i < ${#files[@]}; i++)); do
        if [ -n "${ZV_LONG:-}" ] || [ $((i % ${#disturbances[@]})) -eq "$d" ]; then
            echo "${files[i]}"
            count=$((count + 1))
        fi
    done >"$work/${disturbances[d]}.files"
done
printf '%s\n' "${disturbances[@]}" | xargs -P "$(nproc)" -I{} sh -c '
    xargs "$ZV_NATIVE_BIN/zvscript" --disturb "$1" <"$2/$1.files" >"$2/$1.log" 2>&1' \
    sh {} "$work" || status=1
grep -hv '^ok ' "$work"/*.log
rm "$work"/*.files
tally "$work" "$count"
exit "$status"
